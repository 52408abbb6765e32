// The drawing suites that give out references, and the supplier of pens, brushes, fonts, paths and images.
#include "host/drawing/drawing_calls.h"
#include "host/drawing/drawing_suites.h"
#include "host_api/commands.h"

#include <cmath>
#include <limits>

namespace vantle::host {
namespace {

constexpr PF_Err kBad = PF_Err_BAD_CALLBACK_PARAM;

SPErr GetSupplier(DRAWBOT_DrawRef reference, DRAWBOT_SupplierRef* supplier) {
  const DrawingCall call = EnterDrawing("GetSupplier");
  if (call.error != PF_Err_NONE) return call.error;
  if (reference != ReferenceOf(*call.session) || supplier == nullptr)
    return Misused(call, "with a drawing reference that is not this panel's, or without a place");
  Record(call, "get supplier");
  *supplier = SupplierOf(*call.session);
  return PF_Err_NONE;
}

SPErr GetSurface(DRAWBOT_DrawRef reference, DRAWBOT_SurfaceRef* surface) {
  const DrawingCall call = EnterDrawing("GetSurface");
  if (call.error != PF_Err_NONE) return call.error;
  if (reference != ReferenceOf(*call.session) || surface == nullptr)
    return Misused(call, "with a drawing reference that is not this panel's, or without a place");
  Record(call, "get surface");
  *surface = SurfaceOf(*call.session);
  return PF_Err_NONE;
}

bool IsColor(const DRAWBOT_ColorRGBA* color) {
  return color != nullptr && AllFinite({color->red, color->green, color->blue, color->alpha});
}

SPErr NewPen(DRAWBOT_SupplierRef supplier, const DRAWBOT_ColorRGBA* color, float size, DRAWBOT_PenRef* pen) {
  const DrawingCall call = EnterDrawing("NewPen", supplier);
  if (call.error != PF_Err_NONE) return call.error;
  if (!IsColor(color) || pen == nullptr || !(size > 0) || !std::isfinite(size))
    return Misused(call, "without a colour, a width above 0 or a place for the pen");
  DrawingObject& made = MakeObject(call, DrawingKind::kPen, ColorText(*color) + " width " + Numbers({size}));
  made.color = *color;
  made.size = size;
  *pen = reinterpret_cast<DRAWBOT_PenRef>(&made);
  return PF_Err_NONE;
}

SPErr NewBrush(DRAWBOT_SupplierRef supplier, const DRAWBOT_ColorRGBA* color, DRAWBOT_BrushRef* brush) {
  const DrawingCall call = EnterDrawing("NewBrush", supplier);
  if (call.error != PF_Err_NONE) return call.error;
  if (!IsColor(color) || brush == nullptr) return Misused(call, "without a colour or a place for the brush");
  DrawingObject& made = MakeObject(call, DrawingKind::kBrush, ColorText(*color));
  made.color = *color;
  *brush = reinterpret_cast<DRAWBOT_BrushRef>(&made);
  return PF_Err_NONE;
}

SPErr SupportsText(DRAWBOT_SupplierRef supplier, DRAWBOT_Boolean* answer) {
  const DrawingCall call = EnterDrawing("SupportsText", supplier);
  if (call.error != PF_Err_NONE || answer == nullptr) return call.error != PF_Err_NONE ? call.error : kBad;
  *answer = 1;
  return PF_Err_NONE;
}

SPErr GetDefaultFontSize(DRAWBOT_SupplierRef supplier, float* size) {
  const DrawingCall call = EnterDrawing("GetDefaultFontSize", supplier);
  if (call.error != PF_Err_NONE || size == nullptr) return call.error != PF_Err_NONE ? call.error : kBad;
  Record(call, "get default font size");
  *size = call.session->fontSize;
  return PF_Err_NONE;
}

SPErr NewDefaultFont(DRAWBOT_SupplierRef supplier, float size, DRAWBOT_FontRef* font) {
  const DrawingCall call = EnterDrawing("NewDefaultFont", supplier);
  if (call.error != PF_Err_NONE) return call.error;
  if (font == nullptr || !(size > 0) || !std::isfinite(size))
    return Misused(call, "without a size above 0 or a place for the font");
  DrawingObject& made = MakeObject(call, DrawingKind::kFont, "size " + Numbers({size}));
  made.size = size;
  *font = reinterpret_cast<DRAWBOT_FontRef>(&made);
  return PF_Err_NONE;
}

int PixelBytesOf(DRAWBOT_PixelLayout layout) {
  return layout == kDRAWBOT_PixelLayout_24RGB || layout == kDRAWBOT_PixelLayout_24BGR ? 3 : 4;
}

SPErr NewImage(DRAWBOT_SupplierRef supplier, int width, int height, int rowBytes, DRAWBOT_PixelLayout layout,
               const void* data, DRAWBOT_ImageRef* image) {
  const DrawingCall call = EnterDrawing("NewImageFromBuffer", supplier);
  if (call.error != PF_Err_NONE) return call.error;
  const bool sound = data != nullptr && image != nullptr && width > 0 && height > 0 && width <= 16384 &&
                     height <= 16384 && rowBytes >= width * PixelBytesOf(layout) && layout >= 0 &&
                     layout <= kDRAWBOT_PixelLayout_32BGRA_Premul;
  if (!sound) return Misused(call, "with a buffer that is no picture");
  if (!MayAllocate(*call.call)) return PF_Err_OUT_OF_MEMORY;
  auto copy = std::make_shared<DrawImage>();
  copy->width = width;
  copy->height = height;
  copy->rowBytes = rowBytes;
  copy->layout = layout;
  const auto* bytes = static_cast<const std::uint8_t*>(data);
  const auto used = static_cast<std::size_t>(height - 1) * static_cast<std::size_t>(rowBytes) +
                    static_cast<std::size_t>(width * PixelBytesOf(layout));
  copy->bytes.assign(bytes, bytes + used);
  DrawingObject& made = MakeObject(
      call, DrawingKind::kImage,
      std::to_string(width) + " x " + std::to_string(height) + " layout " + std::to_string(layout));
  made.image = std::move(copy);
  *image = reinterpret_cast<DRAWBOT_ImageRef>(&made);
  return PF_Err_NONE;
}

SPErr NewPath(DRAWBOT_SupplierRef supplier, DRAWBOT_PathRef* path) {
  const DrawingCall call = EnterDrawing("NewPath", supplier);
  if (call.error != PF_Err_NONE) return call.error;
  if (path == nullptr) return Misused(call, "without a place for the path");
  *path = reinterpret_cast<DRAWBOT_PathRef>(&MakeObject(call, DrawingKind::kPath, ""));
  return PF_Err_NONE;
}

/// All layouts are taken; the one that needs no conversion here is preferred.
template <bool kAnswer>
SPErr AnswerLayout(DRAWBOT_SupplierRef supplier, DRAWBOT_Boolean* answer) {
  const DrawingCall call = EnterDrawing("pixel layout query", supplier);
  if (call.error != PF_Err_NONE || answer == nullptr) return call.error != PF_Err_NONE ? call.error : kBad;
  *answer = kAnswer ? 1 : 0;
  return PF_Err_NONE;
}

SPErr RetainObject(DRAWBOT_ObjectRef ref) {
  const DrawingCall call = EnterDrawing("RetainObject");
  if (call.error != PF_Err_NONE) return call.error;
  DrawingObject* object = FindObject(call, ref);
  if (object == nullptr) return kBad;
  ++object->references;
  Take(*call.call->ledger, Item::kDrawing, KindName(object->kind));
  Record(call, "retain " + object->name);
  return PF_Err_NONE;
}

/// Done even when it is told to fail: what is counted is the caller's side.
SPErr ReleaseObject(DRAWBOT_ObjectRef ref) {
  PF_Err due = PF_Err_NONE;
  const DrawingCall call = EnterDrawing("ReleaseObject", &due);
  if (call.error != PF_Err_NONE) return call.error;
  DrawingObject* object = FindObject(call, ref);
  if (object == nullptr) return kBad;
  --object->references;
  Give(*call.call->ledger, Item::kDrawing, KindName(object->kind));
  Record(call, "release " + object->name);
  return due;
}

constexpr DRAWBOT_DrawbotSuite1 kDrawSuite{GetSupplier, GetSurface};

constexpr DRAWBOT_SupplierSuite1 kSupplierSuite{NewPen,
                                                NewBrush,
                                                SupportsText,
                                                GetDefaultFontSize,
                                                NewDefaultFont,
                                                NewImage,
                                                NewPath,
                                                AnswerLayout<true>,
                                                AnswerLayout<true>,
                                                AnswerLayout<true>,
                                                AnswerLayout<false>,
                                                RetainObject,
                                                ReleaseObject};

}  // namespace

void AddSupplierSuites(std::vector<SuiteEntry>& suites) {
  suites.push_back({kDRAWBOT_DrawbotSuite1Name, kDRAWBOT_DrawbotSuite1Version, &kDrawSuite, true});
  suites.push_back({kDRAWBOT_SupplierSuite1Name, kDRAWBOT_SupplierSuite1Version, &kSupplierSuite, true});
}

}  // namespace vantle::host
