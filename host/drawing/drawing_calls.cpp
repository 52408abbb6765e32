#include "host/drawing/drawing_calls.h"

#include "host_api/commands.h"

#include <charconv>
#include <cmath>

namespace vantle::host {
namespace {

std::string NumberText(float value) {
  char text[32];
  const std::to_chars_result result = std::to_chars(text, text + sizeof text, value);
  return {text, result.ptr};
}

DrawingObject* Unusable(const DrawingCall& call, const char* what) {
  Misused(call, what);
  return nullptr;
}

}  // namespace

DrawingCall EnterDrawing(const char* function, PF_Err* due) {
  const Entry entry = EnterHostCall(function);
  DrawingCall call{entry.call, CurrentDrawing(), function, PF_Err_NONE};
  *due = entry.error;
  if (entry.call == nullptr) {
    call.error = entry.error;
  } else if (call.session == nullptr || !call.session->drawing) {
    call.error = Misused(call, "outside of a DRAW event");
  }
  return call;
}

DrawingCall EnterDrawing(const char* function) {
  PF_Err due = PF_Err_NONE;
  DrawingCall call = EnterDrawing(function, &due);
  if (call.error == PF_Err_NONE && due != PF_Err_NONE) {
    Record(call, std::string(function) + " fails with " + std::to_string(due));
    call.error = due;
  }
  return call;
}

DrawingCall EnterDrawing(const char* function, DRAWBOT_SupplierRef supplier) {
  DrawingCall call = EnterDrawing(function);
  if (call.error == PF_Err_NONE && supplier != SupplierOf(*call.session))
    call.error = Misused(call, "with a supplier that is not this panel's");
  return call;
}

DrawingCall EnterDrawing(const char* function, DRAWBOT_SurfaceRef surface) {
  DrawingCall call = EnterDrawing(function);
  if (call.error == PF_Err_NONE && surface != SurfaceOf(*call.session))
    call.error = Misused(call, "with a surface that is not this panel's");
  return call;
}

PF_Err Misused(const DrawingCall& call, const std::string& what) {
  Complain(*call.call, std::string(call.function) + " called " + what);
  return PF_Err_BAD_CALLBACK_PARAM;
}

void Record(const DrawingCall& call, const std::string& line) {
  call.session->calls.push_back(line);
}

std::string Numbers(std::initializer_list<float> values) {
  std::string text;
  for (const float value : values) text += (text.empty() ? "" : " ") + NumberText(value);
  return text;
}

std::string ColorText(const DRAWBOT_ColorRGBA& color) {
  return Numbers({color.red, color.green, color.blue, color.alpha});
}

std::string RectText(const DRAWBOT_RectF32& rect) {
  return Numbers({rect.left, rect.top, rect.width, rect.height});
}

bool AllFinite(std::initializer_list<float> values) {
  for (const float value : values)
    if (!std::isfinite(value)) return false;
  return true;
}

DrawingObject& MakeObject(const DrawingCall& call, DrawingKind kind, const std::string& details) {
  DrawingSession& session = *call.session;
  auto object = std::make_unique<DrawingObject>();
  object->kind = kind;
  object->name = KindName(kind) + std::to_string(++session.made[kind]);
  Take(*call.call->ledger, Item::kDrawing, KindName(kind));
  Record(call, object->name + " = new " + KindName(kind) + (details.empty() ? std::string() : " " + details));
  DrawingObject* made = object.get();
  session.objects.emplace(made, std::move(object));
  session.current.push_back(made);
  return *made;
}

DrawingObject* FindObject(const DrawingCall& call, const void* ref) {
  if (ref == nullptr) return Unusable(call, "with a null object");
  const auto found = call.session->objects.find(ref);
  if (found == call.session->objects.end())
    return Unusable(call, "with an object that this panel never made");
  if (found->second->references == 0) return Unusable(call, "with an object that was released");
  return found->second.get();
}

DrawingObject* FindObject(const DrawingCall& call, const void* ref, DrawingKind kind) {
  DrawingObject* object = FindObject(call, ref);
  if (object == nullptr || object->kind == kind) return object;
  Misused(call, std::string("with a ") + KindName(object->kind) + " instead of a " + KindName(kind));
  return nullptr;
}

const char* KindName(DrawingKind kind) {
  switch (kind) {
    case DrawingKind::kPen:
      return "pen";
    case DrawingKind::kBrush:
      return "brush";
    case DrawingKind::kFont:
      return "font";
    case DrawingKind::kPath:
      return "path";
    case DrawingKind::kImage:
      return "image";
  }
  return "object";
}

DRAWBOT_DrawRef ReferenceOf(DrawingSession& session) {
  return reinterpret_cast<DRAWBOT_DrawRef>(&session.tokens[0]);
}

DRAWBOT_SupplierRef SupplierOf(DrawingSession& session) {
  return reinterpret_cast<DRAWBOT_SupplierRef>(&session.tokens[1]);
}

DRAWBOT_SurfaceRef SurfaceOf(DrawingSession& session) {
  return reinterpret_cast<DRAWBOT_SurfaceRef>(&session.tokens[2]);
}

}  // namespace vantle::host
