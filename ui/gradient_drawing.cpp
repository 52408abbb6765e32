#include "ui/editor_drawing.h"
#include "ui/gradient_rules.h"

#include <algorithm>

namespace vantle {
namespace {

constexpr DRAWBOT_ColorRGBA kLightCell = {0.3f, 0.3f, 0.3f, 1.0f};
constexpr DRAWBOT_ColorRGBA kDarkCell = {0.2f, 0.2f, 0.2f, 1.0f};
constexpr DRAWBOT_ColorRGBA kBarOutline = {0.4f, 0.4f, 0.4f, 1.0f};
constexpr DRAWBOT_ColorRGBA kSelectedOutline = {1.0f, 1.0f, 1.0f, 1.0f};
constexpr DRAWBOT_ColorRGBA kHandleOutline = {0.5f, 0.5f, 0.5f, 1.0f};

constexpr float kCellSize = 5.0f;
constexpr float kBarOutlineWidth = 1.0f;
constexpr float kHandleHalfWidth = 4.0f;
constexpr float kHandleShoulder = 4.0f;  // from the tip down to where the sides become upright

DRAWBOT_ColorRGBA Opaque(float r, float g, float b) {
  return {Clamp01(r), Clamp01(g), Clamp01(b), 1.0f};
}

// Cells alternate with the sum of their column and row.
void DrawCheckerboard(Drawing& drawing, const DRAWBOT_RectF32& bar) {
  for (float y = 0.0f; y < bar.height; y += kCellSize) {
    for (float x = 0.0f; x < bar.width; x += kCellSize) {
      const int32_t sum = TruncToInt(x * 0.2f) + TruncToInt(y * 0.2f);
      const DRAWBOT_RectF32 cell = {bar.left + x, bar.top + y, std::min(kCellSize, bar.width - x),
                                    std::min(kCellSize, bar.height - y)};
      PaintRect(drawing, sum % 2 == 0 ? kLightCell : kDarkCell, cell);
    }
  }
}

int32_t ColumnCount(const DRAWBOT_RectF32& bar) {
  return std::max(TruncToInt(bar.width), 2);
}

// One pixel wide each; the first and the last show the ends of the gradient.
void DrawColumns(Drawing& drawing, const ColorGradient& gradient, const DRAWBOT_RectF32& bar) {
  const int32_t count = ColumnCount(bar);
  for (int32_t j = 0; j < count; ++j) {
    const float t = Clamp01(static_cast<float>(j) / static_cast<float>(count - 1));
    const Color color = EvaluateGradient(gradient, t);
    PaintRect(drawing, Opaque(color.r, color.g, color.b),
              {bar.left + static_cast<float>(j), bar.top, 1.0f, bar.height});
  }
}

// A pentagon pointing up at the bar.
void DrawHandle(Drawing& drawing, const GradientStop& stop, const DRAWBOT_RectF32& bar, const Pen& outline) {
  const float x = bar.left + Clamp01(stop.position) * bar.width;
  const float tip = bar.top + kGradientHandleTip;

  const Path path = NewPath(drawing);
  MoveTo(drawing, path, x, tip);
  LineTo(drawing, path, x - kHandleHalfWidth, tip + kHandleShoulder);
  LineTo(drawing, path, x - kHandleHalfWidth, tip + kGradientHandleHeight);
  LineTo(drawing, path, x + kHandleHalfWidth, tip + kGradientHandleHeight);
  LineTo(drawing, path, x + kHandleHalfWidth, tip + kHandleShoulder);
  Close(drawing, path);

  const Brush brush = NewBrush(drawing, Opaque(stop.r, stop.g, stop.b));
  Fill(drawing, path, brush);
  Stroke(drawing, path, outline);
}

// The outline is as wide as one column's step along the gradient: a hairline.
void DrawHandles(Drawing& drawing, const ColorGradient& gradient, const DRAWBOT_RectF32& bar) {
  const float hairline = 1.0f / static_cast<float>(ColumnCount(bar) - 1);
  const Pen selected = NewPen(drawing, kSelectedOutline, hairline);
  const Pen unselected = NewPen(drawing, kHandleOutline, hairline);
  const int32_t count = UsableCount(gradient);
  for (int32_t i = 0; i < count; ++i) {
    DrawHandle(drawing, gradient.stops[i], bar, i == gradient.selected ? selected : unselected);
  }
}

}  // namespace

void DrawGradientEditor(Drawing& drawing, const ColorGradient& gradient, const ControlFrame& frame) {
  const DRAWBOT_RectF32 bar = {static_cast<float>(frame.left) + kGradientMargin,
                               static_cast<float>(frame.top) + kGradientMargin, GradientBarWidth(frame),
                               kGradientBarHeight};
  const float height = ControlHeight(frame);
  if (bar.width <= 0.0f || height < kGradientMargin + kGradientBarHeight) return;

  DrawCheckerboard(drawing, bar);
  DrawColumns(drawing, gradient, bar);
  {
    const Pen pen = NewPen(drawing, kBarOutline, kBarOutlineWidth);
    StrokeRect(drawing, bar, pen);
  }
  if (height >= kGradientMargin + kGradientHandleTip + kGradientHandleHeight)
    DrawHandles(drawing, gradient, bar);
}

}  // namespace vantle
