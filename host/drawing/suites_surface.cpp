// The surface: what is drawn goes into the event's list, in order.
#include "host/drawing/drawing_calls.h"
#include "host/drawing/drawing_suites.h"
#include "host_api/commands.h"

#include <algorithm>
#include <cmath>

namespace vantle::host {
namespace {

constexpr PF_Err kBad = PF_Err_BAD_CALLBACK_PARAM;
constexpr const char* kPushedState = "pushed state";

std::string RectText(const DRAWBOT_Rect32& rect) {
  return std::to_string(rect.left) + " " + std::to_string(rect.top) + " " + std::to_string(rect.width) + " " +
         std::to_string(rect.height);
}

SurfaceState& State(const DrawingCall& call) {
  return call.session->states.back();
}

SPErr PushState(DRAWBOT_SurfaceRef surface) {
  const DrawingCall call = EnterDrawing("PushStateStack", surface);
  if (call.error != PF_Err_NONE) return call.error;
  Take(*call.call->ledger, Item::kDrawing, kPushedState);
  call.session->states.push_back(SurfaceState(State(call)));
  call.session->list.emplace_back(PushStateOp{});
  Record(call, "push state");
  return PF_Err_NONE;
}

SPErr PopState(DRAWBOT_SurfaceRef surface) {
  PF_Err due = PF_Err_NONE;
  const DrawingCall call = EnterDrawing("PopStateStack", &due);
  if (call.error != PF_Err_NONE) return call.error;
  if (surface != SurfaceOf(*call.session)) return Misused(call, "with a surface that is not this panel's");
  Give(*call.call->ledger, Item::kDrawing, kPushedState);
  if (call.session->states.size() < 2) return kBad;
  call.session->states.pop_back();
  call.session->list.emplace_back(PopStateOp{});
  Record(call, "pop state");
  return due;
}

SPErr PaintRect(DRAWBOT_SurfaceRef surface, const DRAWBOT_ColorRGBA* color, const DRAWBOT_RectF32* rect) {
  const DrawingCall call = EnterDrawing("PaintRect", surface);
  if (call.error != PF_Err_NONE) return call.error;
  if (color == nullptr || rect == nullptr ||
      !AllFinite({color->red, color->green, color->blue, color->alpha, rect->left, rect->top, rect->width,
                  rect->height}))
    return Misused(call, "without a colour or a rectangle");
  call.session->list.emplace_back(PaintRectOp{*color, *rect});
  Record(call, "paint rect " + vantle::host::RectText(*rect) + " in " + ColorText(*color));
  return PF_Err_NONE;
}

SPErr FillPath(DRAWBOT_SurfaceRef surface, DRAWBOT_BrushRef brushRef, DRAWBOT_PathRef pathRef,
               DRAWBOT_FillType rule) {
  const DrawingCall call = EnterDrawing("FillPath", surface);
  if (call.error != PF_Err_NONE) return call.error;
  const DrawingObject* brush = FindObject(call, brushRef, DrawingKind::kBrush);
  const DrawingObject* path = FindObject(call, pathRef, DrawingKind::kPath);
  if (brush == nullptr || path == nullptr) return kBad;
  if (rule != kDRAWBOT_FillType_EvenOdd && rule != kDRAWBOT_FillType_Winding)
    return Misused(call, "with an unknown fill rule");
  call.session->list.emplace_back(FillPathOp{brush->color, path->path, rule == kDRAWBOT_FillType_EvenOdd});
  Record(call, "fill " + path->name + " with " + brush->name + " rule " + std::to_string(rule));
  return PF_Err_NONE;
}

SPErr StrokePath(DRAWBOT_SurfaceRef surface, DRAWBOT_PenRef penRef, DRAWBOT_PathRef pathRef) {
  const DrawingCall call = EnterDrawing("StrokePath", surface);
  if (call.error != PF_Err_NONE) return call.error;
  const DrawingObject* pen = FindObject(call, penRef, DrawingKind::kPen);
  const DrawingObject* path = FindObject(call, pathRef, DrawingKind::kPath);
  if (pen == nullptr || path == nullptr) return kBad;
  call.session->list.emplace_back(StrokePathOp{pen->color, pen->size, path->path});
  Record(call, "stroke " + path->name + " with " + pen->name);
  return PF_Err_NONE;
}

/// The bounds of a rectangle under the current transform, on the surface.
DRAWBOT_Rect32 OnSurface(const DRAWBOT_MatrixF32& m, const DRAWBOT_Rect32& rect) {
  double lowX = 1e9, lowY = 1e9, highX = -1e9, highY = -1e9;
  for (const int corner : {0, 1, 2, 3}) {
    const double x = rect.left + (corner % 2 == 0 ? 0.0 : rect.width);
    const double y = rect.top + (corner / 2 == 0 ? 0.0 : rect.height);
    const double atX = x * double{m.mat[0][0]} + y * double{m.mat[1][0]} + double{m.mat[2][0]};
    const double atY = x * double{m.mat[0][1]} + y * double{m.mat[1][1]} + double{m.mat[2][1]};
    lowX = std::clamp(std::floor(atX), -1e9, lowX);
    lowY = std::clamp(std::floor(atY), -1e9, lowY);
    highX = std::clamp(std::ceil(atX), highX, 1e9);
    highY = std::clamp(std::ceil(atY), highY, 1e9);
  }
  return {static_cast<int>(lowX), static_cast<int>(lowY), static_cast<int>(highX - lowX),
          static_cast<int>(highY - lowY)};
}

DRAWBOT_Rect32 Intersection(const DRAWBOT_Rect32& a, const DRAWBOT_Rect32& b) {
  const int left = std::max(a.left, b.left), top = std::max(a.top, b.top);
  const int right = std::min(a.left + a.width, b.left + b.width);
  const int bottom = std::min(a.top + a.height, b.top + b.height);
  return {left, top, std::max(0, right - left), std::max(0, bottom - top)};
}

bool IsSound(const DRAWBOT_Rect32* rect) {
  constexpr int kFar = 1 << 20;
  return rect != nullptr && rect->width >= 0 && rect->height >= 0 && rect->width <= kFar &&
         rect->height <= kFar && std::abs(rect->left) <= kFar && std::abs(rect->top) <= kFar;
}

SPErr Clip(DRAWBOT_SurfaceRef surface, DRAWBOT_SupplierRef supplier, const DRAWBOT_Rect32* rect) {
  const DrawingCall call = EnterDrawing("Clip", surface);
  if (call.error != PF_Err_NONE) return call.error;
  if (supplier != SupplierOf(*call.session) || !IsSound(rect))
    return Misused(call, "with another supplier or without a rectangle");
  State(call).clip = Intersection(State(call).clip, OnSurface(State(call).transform, *rect));
  call.session->list.emplace_back(ClipOp{*rect});
  Record(call, "clip " + RectText(*rect));
  return PF_Err_NONE;
}

SPErr GetClipBounds(DRAWBOT_SurfaceRef surface, DRAWBOT_Rect32* rect) {
  const DrawingCall call = EnterDrawing("GetClipBounds", surface);
  if (call.error != PF_Err_NONE || rect == nullptr) return call.error != PF_Err_NONE ? call.error : kBad;
  *rect = State(call).clip;
  return PF_Err_NONE;
}

SPErr IsWithinClipBounds(DRAWBOT_SurfaceRef surface, const DRAWBOT_Rect32* rect, DRAWBOT_Boolean* within) {
  const DrawingCall call = EnterDrawing("IsWithinClipBounds", surface);
  if (call.error != PF_Err_NONE) return call.error;
  if (!IsSound(rect) || within == nullptr) return Misused(call, "without a rectangle or a place");
  const DRAWBOT_Rect32 common = Intersection(State(call).clip, *rect);
  *within = common.width == rect->width && common.height == rect->height ? 1 : 0;
  return PF_Err_NONE;
}

DRAWBOT_MatrixF32 Product(const DRAWBOT_MatrixF32& a, const DRAWBOT_MatrixF32& b) {
  DRAWBOT_MatrixF32 product{};
  for (int row = 0; row < 3; ++row)
    for (int column = 0; column < 3; ++column)
      for (int k = 0; k < 3; ++k) product.mat[row][column] += a.mat[row][k] * b.mat[k][column];
  return product;
}

SPErr Transform(DRAWBOT_SurfaceRef surface, const DRAWBOT_MatrixF32* matrix) {
  const DrawingCall call = EnterDrawing("Transform", surface);
  if (call.error != PF_Err_NONE) return call.error;
  bool sound = matrix != nullptr;
  for (int i = 0; sound && i < 9; ++i) sound = std::isfinite(matrix->mat[i / 3][i % 3]);
  if (!sound || matrix->mat[0][0] * matrix->mat[1][1] == matrix->mat[0][1] * matrix->mat[1][0])
    return Misused(call, "without a matrix that can be inverted");
  State(call).transform = Product(*matrix, State(call).transform);
  call.session->list.emplace_back(TransformOp{*matrix});
  const auto& m = matrix->mat;
  Record(call, "transform " + Numbers({m[0][0], m[0][1], m[1][0], m[1][1], m[2][0], m[2][1]}));
  return PF_Err_NONE;
}

std::string Readable(const std::u16string& text) {
  std::string readable;
  for (const char16_t unit : text) readable += unit >= 32 && unit < 127 ? static_cast<char>(unit) : '?';
  return readable;
}

SPErr DrawString(DRAWBOT_SurfaceRef surface, DRAWBOT_BrushRef brushRef, DRAWBOT_FontRef fontRef,
                 const DRAWBOT_UTF16Char* string, const DRAWBOT_PointF32* origin,
                 DRAWBOT_TextAlignment alignment, DRAWBOT_TextTruncation truncation, float width) {
  const DrawingCall call = EnterDrawing("DrawString", surface);
  if (call.error != PF_Err_NONE) return call.error;
  const DrawingObject* brush = FindObject(call, brushRef, DrawingKind::kBrush);
  const DrawingObject* font = FindObject(call, fontRef, DrawingKind::kFont);
  if (brush == nullptr || font == nullptr) return kBad;
  if (string == nullptr || origin == nullptr || !AllFinite({origin->x, origin->y, width}))
    return Misused(call, "without a text or a place for it");
  std::u16string text;
  for (; *string != 0; ++string) text += static_cast<char16_t>(*string);
  Record(call, "draw \"" + Readable(text) + "\" at " + Numbers({origin->x, origin->y}) + " with " +
                   font->name + " " + brush->name + " alignment " + std::to_string(alignment) +
                   " truncation " + std::to_string(truncation) + " " + Numbers({width}));
  call.session->list.emplace_back(
      DrawStringOp{brush->color, font->size, std::move(text), *origin, alignment, truncation, width});
  return PF_Err_NONE;
}

SPErr DrawImageAt(DRAWBOT_SurfaceRef surface, DRAWBOT_ImageRef imageRef, const DRAWBOT_PointF32* origin,
                  float alpha) {
  const DrawingCall call = EnterDrawing("DrawImage", surface);
  if (call.error != PF_Err_NONE) return call.error;
  const DrawingObject* image = FindObject(call, imageRef, DrawingKind::kImage);
  if (image == nullptr) return kBad;
  if (origin == nullptr || !AllFinite({origin->x, origin->y, alpha}))
    return Misused(call, "without a place for the image");
  call.session->list.emplace_back(DrawImageOp{image->image, *origin, alpha});
  Record(call,
         "draw " + image->name + " at " + Numbers({origin->x, origin->y}) + " alpha " + Numbers({alpha}));
  return PF_Err_NONE;
}

SPErr SetInterpolation(DRAWBOT_SurfaceRef surface, DRAWBOT_InterpolationPolicy policy) {
  const DrawingCall call = EnterDrawing("SetInterpolationPolicy", surface);
  if (call.error != PF_Err_NONE) return call.error;
  State(call).interpolation = policy;
  call.session->list.emplace_back(InterpolationOp{policy});
  Record(call, "interpolation " + std::to_string(policy));
  return PF_Err_NONE;
}

SPErr GetInterpolation(DRAWBOT_SurfaceRef surface, DRAWBOT_InterpolationPolicy* policy) {
  const DrawingCall call = EnterDrawing("GetInterpolationPolicy", surface);
  if (call.error != PF_Err_NONE || policy == nullptr) return call.error != PF_Err_NONE ? call.error : kBad;
  *policy = State(call).interpolation;
  return PF_Err_NONE;
}

SPErr SetAntiAlias(DRAWBOT_SurfaceRef surface, DRAWBOT_AntiAliasPolicy policy) {
  const DrawingCall call = EnterDrawing("SetAntiAliasPolicy", surface);
  if (call.error != PF_Err_NONE) return call.error;
  State(call).antiAlias = policy;
  call.session->list.emplace_back(AntiAliasOp{policy});
  Record(call, "anti-alias " + std::to_string(policy));
  return PF_Err_NONE;
}

SPErr GetAntiAlias(DRAWBOT_SurfaceRef surface, DRAWBOT_AntiAliasPolicy* policy) {
  const DrawingCall call = EnterDrawing("GetAntiAliasPolicy", surface);
  if (call.error != PF_Err_NONE || policy == nullptr) return call.error != PF_Err_NONE ? call.error : kBad;
  *policy = State(call).antiAlias;
  return PF_Err_NONE;
}

SPErr Flush(DRAWBOT_SurfaceRef surface) {
  const DrawingCall call = EnterDrawing("Flush", surface);
  if (call.error == PF_Err_NONE) Record(call, "flush");
  return call.error;
}

SPErr GetScreenScale(DRAWBOT_SurfaceRef surface, float* scale) {
  const DrawingCall call = EnterDrawing("GetTransformToScreenScale", surface);
  if (call.error != PF_Err_NONE || scale == nullptr) return call.error != PF_Err_NONE ? call.error : kBad;
  *scale = call.session->screenScale;
  return PF_Err_NONE;
}

constexpr DRAWBOT_SurfaceSuite2 kSurfaceSuite{
    PushState,        PopState,           PaintRect,    FillPath,   StrokePath,    Clip,
    GetClipBounds,    IsWithinClipBounds, Transform,    DrawString, DrawImageAt,   SetInterpolation,
    GetInterpolation, SetAntiAlias,       GetAntiAlias, Flush,      GetScreenScale};

}  // namespace

void AddSurfaceSuites(std::vector<SuiteEntry>& suites) {
  suites.push_back({kDRAWBOT_SurfaceSuite2Name, kDRAWBOT_SurfaceSuite2Version, &kSurfaceSuite, true});
}

}  // namespace vantle::host
