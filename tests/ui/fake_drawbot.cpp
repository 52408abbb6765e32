#include "tests/ui/fake_drawbot.h"

#include <string_view>

namespace vantle::test {
namespace {

// Tokens whose addresses are the opaque references.
int contextToken, referenceToken, supplierToken, surfaceToken;

// Writes the call down and decides whether it fails.
PF_Err Call(const std::string& text) {
  currentHost->calls.push_back(text);
  currentHost->counted.push_back(text);
  return ++currentHost->countedCalls == currentHost->failCall && !currentHost->madeNothing ? kInjectedError
                                                                                           : PF_Err_NONE;
}

bool GivesNothing() {
  return currentHost->countedCalls == currentHost->failCall && currentHost->madeNothing;
}

std::string Concat(std::initializer_list<std::string_view> parts) {
  std::string text;
  for (const std::string_view part : parts) text.append(part);
  return text;
}

std::string Join(std::initializer_list<float> values) {
  std::string text;
  for (const float value : values) {
    if (!text.empty()) text.push_back(' ');
    text.append(Text(value));
  }
  return text;
}

std::string ColorText(const DRAWBOT_ColorRGBA& c) {
  return Join({c.red, c.green, c.blue, c.alpha});
}

void NoteDrawn(float x, float y) {
  currentHost->drawn.push_back({x, y});
}

void NoteDrawn(const DRAWBOT_RectF32& rect) {
  NoteDrawn(rect.left, rect.top);
  NoteDrawn(rect.left + rect.width, rect.top + rect.height);
}

std::string NameOf(const void* object, const char* kind) {
  const auto found = currentHost->objects.find(object);
  if (found == currentHost->objects.end() || found->second.rfind(kind, 0) != 0) {
    currentHost->Fault(std::string("not a live ") + kind);
    return "?";
  }
  return found->second;
}

// ---- Suites ----

void NeedSuite(const char* name) {
  if (currentHost->suitesHeld[name] <= 0) currentHost->Fault(std::string("used without being held: ") + name);
}

template <typename Ref>
PF_Err Make(const char* kind, const std::string& details, Ref* out) {
  NeedSuite(kDRAWBOT_SupplierSuite1Name);
  const std::string name = kind + std::to_string(++currentHost->objectsMade[kind]);
  const PF_Err error = Call(name + " = new " + kind + details);
  if (error != PF_Err_NONE || GivesNothing()) return error;
  const auto ref = reinterpret_cast<Ref>(new char);
  currentHost->objects[ref] = name;
  *out = ref;
  return PF_Err_NONE;
}

void NeedSupplier(DRAWBOT_SupplierRef supplier) {
  if (supplier != reinterpret_cast<DRAWBOT_SupplierRef>(&supplierToken))
    currentHost->Fault("not the supplier");
}

void NeedSurface(DRAWBOT_SurfaceRef surface) {
  NeedSuite(kDRAWBOT_SurfaceSuite2Name);
  if (surface != reinterpret_cast<DRAWBOT_SurfaceRef>(&surfaceToken)) currentHost->Fault("not the surface");
}

SPErr GetSupplier(DRAWBOT_DrawRef reference, DRAWBOT_SupplierRef* out) {
  NeedSuite(kDRAWBOT_DrawbotSuite1Name);
  if (reference != reinterpret_cast<DRAWBOT_DrawRef>(&referenceToken))
    currentHost->Fault("not the drawing reference");
  const PF_Err error = Call("get supplier");
  if (error == PF_Err_NONE && !GivesNothing()) *out = reinterpret_cast<DRAWBOT_SupplierRef>(&supplierToken);
  return error;
}

SPErr GetSurface(DRAWBOT_DrawRef, DRAWBOT_SurfaceRef* out) {
  NeedSuite(kDRAWBOT_DrawbotSuite1Name);
  const PF_Err error = Call("get surface");
  if (error == PF_Err_NONE && !GivesNothing()) *out = reinterpret_cast<DRAWBOT_SurfaceRef>(&surfaceToken);
  return error;
}

SPErr NewPen(DRAWBOT_SupplierRef supplier, const DRAWBOT_ColorRGBA* color, float size, DRAWBOT_PenRef* out) {
  NeedSupplier(supplier);
  return Make("pen", Concat({" ", ColorText(*color), " width ", Text(size)}), out);
}

SPErr NewBrush(DRAWBOT_SupplierRef supplier, const DRAWBOT_ColorRGBA* color, DRAWBOT_BrushRef* out) {
  NeedSupplier(supplier);
  return Make("brush", Concat({" ", ColorText(*color)}), out);
}

SPErr GetDefaultFontSize(DRAWBOT_SupplierRef supplier, float* out) {
  NeedSupplier(supplier);
  *out = 11.0f;
  return Call("get default font size");
}

SPErr NewDefaultFont(DRAWBOT_SupplierRef supplier, float size, DRAWBOT_FontRef* out) {
  NeedSupplier(supplier);
  return Make("font", Concat({" size ", Text(size)}), out);
}

SPErr NewPath(DRAWBOT_SupplierRef supplier, DRAWBOT_PathRef* out) {
  NeedSupplier(supplier);
  return Make("path", "", out);
}

// A failing release still releases: what is counted is the caller's side.
SPErr ReleaseObject(DRAWBOT_ObjectRef object) {
  NeedSuite(kDRAWBOT_SupplierSuite1Name);
  const auto found = currentHost->objects.find(object);
  if (found == currentHost->objects.end()) {
    currentHost->Fault("released what is not alive");
    return kInjectedError;
  }
  const PF_Err error = Call("release " + found->second);
  currentHost->objects.erase(found);
  delete reinterpret_cast<char*>(object);
  return error;
}

SPErr PaintRect(DRAWBOT_SurfaceRef surface, const DRAWBOT_ColorRGBA* color, const DRAWBOT_RectF32* rect) {
  NeedSurface(surface);
  NoteDrawn(*rect);
  return Call("paint rect " + Join({rect->left, rect->top, rect->width, rect->height}) + " in " +
              ColorText(*color));
}

SPErr FillPath(DRAWBOT_SurfaceRef surface, DRAWBOT_BrushRef brush, DRAWBOT_PathRef path,
               DRAWBOT_FillType rule) {
  NeedSurface(surface);
  return Call("fill " + NameOf(path, "path") + " with " + NameOf(brush, "brush") + " rule " +
              std::to_string(rule));
}

SPErr StrokePath(DRAWBOT_SurfaceRef surface, DRAWBOT_PenRef pen, DRAWBOT_PathRef path) {
  NeedSurface(surface);
  return Call("stroke " + NameOf(path, "path") + " with " + NameOf(pen, "pen"));
}

SPErr DrawString(DRAWBOT_SurfaceRef surface, DRAWBOT_BrushRef brush, DRAWBOT_FontRef font,
                 const DRAWBOT_UTF16Char* string, const DRAWBOT_PointF32* origin,
                 DRAWBOT_TextAlignment alignment, DRAWBOT_TextTruncation truncation, float width) {
  NeedSurface(surface);
  NoteDrawn(origin->x, origin->y);
  std::string text;
  for (; *string; ++string) text += static_cast<char>(*string);
  return Call("draw \"" + text + "\" at " + Join({origin->x, origin->y}) + " with " + NameOf(font, "font") +
              " " + NameOf(brush, "brush") + " alignment " + std::to_string(alignment) + " truncation " +
              std::to_string(truncation) + " " + Text(width));
}

PF_Err PathCall(DRAWBOT_PathRef path, const std::string& what) {
  NeedSuite(kDRAWBOT_PathSuite1Name);
  return Call(NameOf(path, "path") + " " + what);
}

SPErr MoveTo(DRAWBOT_PathRef path, float x, float y) {
  NoteDrawn(x, y);
  return PathCall(path, "move to " + Join({x, y}));
}

SPErr LineTo(DRAWBOT_PathRef path, float x, float y) {
  NoteDrawn(x, y);
  return PathCall(path, "line to " + Join({x, y}));
}

SPErr AddRect(DRAWBOT_PathRef path, const DRAWBOT_RectF32* rect) {
  NoteDrawn(*rect);
  return PathCall(path, "rect " + Join({rect->left, rect->top, rect->width, rect->height}));
}

SPErr AddArc(DRAWBOT_PathRef path, const DRAWBOT_PointF32* center, float radius, float start, float sweep) {
  NoteDrawn(center->x - radius, center->y - radius);
  NoteDrawn(center->x + radius, center->y + radius);
  return PathCall(path, "arc " + Join({center->x, center->y, radius, start, sweep}));
}

SPErr ClosePath(DRAWBOT_PathRef path) {
  return PathCall(path, "close");
}

PF_Err GetDrawingReference(PF_ContextH context, DRAWBOT_DrawRef* out) {
  NeedSuite(kPF_EffectCustomUISuite2Name);
  if (context != reinterpret_cast<PF_ContextH>(&contextToken)) currentHost->Fault("not the event's context");
  const PF_Err error = Call("get drawing reference");
  if (error == PF_Err_NONE && !currentHost->nullReference) {
    *out = reinterpret_cast<DRAWBOT_DrawRef>(&referenceToken);
  }
  return error;
}

// A cancelled or failing dialog leaves the result as it was.
PF_Err ColorPicker(const A_char* title, const PF_PixelFloat* sample, PF_Boolean transform,
                   PF_PixelFloat* out) {
  NeedSuite(kPFAppSuite6Name);
  if (transform) currentHost->Fault("asked for a working-space conversion");
  for (const auto& handle : currentHost->handles) {
    if (handle->locks != 0) currentHost->Fault("handle locked while the dialog is open");
  }
  currentHost->pickerTitles.emplace_back(title);
  currentHost->pickerSamples.push_back(*sample);
  if (currentHost->pickerAnswers.empty()) {
    currentHost->Fault("dialog not expected");
    return PF_Interrupt_CANCEL;
  }
  const PickerAnswer answer = currentHost->pickerAnswers.front();
  currentHost->pickerAnswers.erase(currentHost->pickerAnswers.begin());
  if (answer.meanwhile) answer.meanwhile();
  if (answer.error == PF_Err_NONE) *out = {1.0f, answer.red, answer.green, answer.blue};
  return answer.error;
}

struct Suites {
  DRAWBOT_DrawbotSuite1 draw = {};
  DRAWBOT_SupplierSuite1 supplier = {};
  DRAWBOT_SurfaceSuite2 surface = {};
  DRAWBOT_PathSuite1 path = {};
  PF_EffectCustomUISuite2 customUi = {};
  PFAppSuite6 app = {};
};

Suites MakeSuites() {
  Suites s;
  s.draw.GetSupplier = GetSupplier;
  s.draw.GetSurface = GetSurface;
  s.supplier.NewPen = NewPen;
  s.supplier.NewBrush = NewBrush;
  s.supplier.GetDefaultFontSize = GetDefaultFontSize;
  s.supplier.NewDefaultFont = NewDefaultFont;
  s.supplier.NewPath = NewPath;
  s.supplier.ReleaseObject = ReleaseObject;
  s.surface.PaintRect = PaintRect;
  s.surface.FillPath = FillPath;
  s.surface.StrokePath = StrokePath;
  s.surface.DrawString = DrawString;
  s.path.MoveTo = MoveTo;
  s.path.LineTo = LineTo;
  s.path.AddRect = AddRect;
  s.path.AddArc = AddArc;
  s.path.Close = ClosePath;
  s.customUi.PF_GetDrawingReference = GetDrawingReference;
  s.app.PF_AppColorPickerDialog = ColorPicker;
  return s;
}

const void* FindSuite(const std::string& name, int32 version) {
  static const Suites suites = MakeSuites();
  const std::string key = name + " " + std::to_string(version);
  if (key == "DRAWBOT Draw Suite 1") return &suites.draw;
  if (key == "DRAWBOT Supplier Suite 1") return &suites.supplier;
  if (key == "DRAWBOT Surface Suite 2") return &suites.surface;
  if (key == "DRAWBOT Path Suite 1") return &suites.path;
  if (key == "PF Effect Custom UI Suite 2") return &suites.customUi;
  if (key == "PF AE App Suite 1") return &suites.app;
  return nullptr;
}

SPErr AcquireSuiteCall(const char* name, int32 version, const void** out) {
  const PF_Err injected = Call("acquire " + std::string(name) + " " + std::to_string(version));
  const void* const suite = name == currentHost->hiddenSuite ? nullptr : FindSuite(name, version);
  if (injected != PF_Err_NONE || (!suite && !currentHost->hiddenSuiteSucceeds)) {
    *out = &contextToken;  // a host may leave anything behind when it fails
    return kInjectedError;
  }
  if (!suite || GivesNothing()) {
    *out = nullptr;
    return 0;
  }
  *out = suite;
  ++currentHost->suitesHeld[name];
  return 0;
}

SPErr ReleaseSuiteCall(const char* name, int32 version) {
  currentHost->calls.push_back("release " + std::string(name) + " " + std::to_string(version));
  if (--currentHost->suitesHeld[name] < 0) currentHost->Fault(std::string("released but not held: ") + name);
  return 0;
}

}  // namespace

void SetSuites(FakeHost* host) {
  host->basic.AcquireSuite = AcquireSuiteCall;
  host->basic.ReleaseSuite = ReleaseSuiteCall;
  host->extra.contextH = reinterpret_cast<PF_ContextH>(&contextToken);
}

}  // namespace vantle::test
