#include "ui/curve_rules.h"

#include <cmath>

namespace vantle {
namespace {

constexpr float kPointReachSquared = 64.0f;  // exclusive
constexpr float kMinPointGap = 0.005f;       // between neighbours in x

// Position and level under the mouse, both 0..1.
struct PlotPosition {
  float x;
  float level;
};

PlotPosition PositionUnder(const ControlFrame& frame, const CurvePlot& plot, MousePosition mouse) {
  const float left = static_cast<float>(frame.left) + kCurveMargin;
  const float top = static_cast<float>(frame.top) + kCurveMargin;
  return {Clamp01((static_cast<float>(mouse.x) - left) / plot.width),
          Clamp01(1.0f - (static_cast<float>(mouse.y) - top) / plot.height)};
}

bool IsOnResetButton(const ControlFrame& frame, MousePosition mouse) {
  const float right = static_cast<float>(frame.right) - kResetMargin;
  const float bottom = static_cast<float>(frame.bottom) - kResetMargin;
  const float x = static_cast<float>(mouse.x);
  const float y = static_cast<float>(mouse.y);
  return HasResetButton(frame) && x >= right - kResetWidth && x <= right && y >= bottom - kResetHeight &&
         y <= bottom;
}

// The stored maximum stays as it is, whatever it is; the line lies where the editor's range has it.
void ResetCurve(LifeCurve* curve) {
  const float stored = curve->maximum;
  MakeDefaultLifeCurve(curve, EditorMaximum(*curve));
  curve->maximum = stored;
}

void MovePoint(LifeCurve* curve, int32_t from, int32_t to) {
  curve->x[to] = curve->x[from];
  curve->y[to] = curve->y[from];
  curve->extra1[to] = curve->extra1[from];
  curve->extra2[to] = curve->extra2[from];
}

// Before the first point that lies further right.
void InsertPoint(LifeCurve* curve, float x, float y) {
  const int32_t count = UsableCount(*curve);
  int32_t at = 0;
  while (at < count && !(curve->x[at] > x)) ++at;
  for (int32_t i = count; i > at; --i) MovePoint(curve, i - 1, i);

  curve->x[at] = x;
  curve->y[at] = y;
  curve->extra1[at] = 0.0f;
  curve->extra2[at] = 0.0f;
  curve->count = count + 1;
}

void DeletePoint(LifeCurve* curve, int32_t index) {
  const int32_t count = UsableCount(*curve) - 1;
  for (int32_t i = index; i < count; ++i) MovePoint(curve, i + 1, i);
  curve->count = count;
}

int32_t FindPoint(const LifeCurve& curve, float x) {
  const int32_t count = UsableCount(curve);
  for (int32_t i = 0; i < count; ++i) {
    if (IsSamePosition(curve.x[i], x)) return i;
  }
  return kNothing;
}

bool IsInnerPoint(const LifeCurve& curve, int32_t index) {
  return index > 0 && index < UsableCount(curve) - 1;
}

// The upper limit first, then the lower: between neighbours that are closer than two gaps the lower one wins.
// A neighbour that is not finite sets no limit.
float BetweenNeighbours(const LifeCurve& curve, int32_t index, float x) {
  const float upper = curve.x[index + 1] - kMinPointGap;
  const float lower = curve.x[index - 1] + kMinPointGap;
  if (std::isfinite(upper) && x > upper) x = upper;
  if (std::isfinite(lower) && x < lower) x = lower;
  return x;
}

EditResult ClickEmptyPlot(LifeCurve* curve, const PlotPosition& position) {
  if (UsableCount(*curve) < kMaxCurvePoints) {
    InsertPoint(curve, position.x, position.level * EditorMaximum(*curve));
  }
  return {.changed = true, .drag = FindPoint(*curve, position.x)};
}

}  // namespace

CurvePlot CurvePlotOf(const ControlFrame& frame) {
  const float width = ControlWidth(frame) - 2.0f * kCurveMargin;
  const float height = ControlHeight(frame) - kCurveStripHeight;
  return {width > 0.0f ? width : 0.0f, height > 0.0f ? height : 0.0f};
}

bool HasPlot(const CurvePlot& plot) {
  return plot.width > 0.0f && plot.height > 0.0f;
}

bool HasResetButton(const ControlFrame& frame) {
  return ControlWidth(frame) >= kResetWidth + kResetMargin &&
         ControlHeight(frame) >= kResetHeight + kResetMargin;
}

float EditorMaximum(const LifeCurve& curve) {
  return std::isfinite(curve.maximum) && curve.maximum >= 0.001f ? curve.maximum : 1.0f;
}

float CurveLevel(float value, float maximum) {
  return Clamp01(value / maximum);
}

int32_t HitCurvePoint(const LifeCurve& curve, const ControlFrame& frame, MousePosition mouse) {
  const CurvePlot plot = CurvePlotOf(frame);
  if (!HasPlot(plot)) return kNothing;

  const float left = static_cast<float>(frame.left) + kCurveMargin;
  const float top = static_cast<float>(frame.top) + kCurveMargin;
  const float maximum = EditorMaximum(curve);
  const int32_t count = UsableCount(curve);
  for (int32_t i = 0; i < count; ++i) {
    const float dx = static_cast<float>(mouse.x) - (left + Clamp01(curve.x[i]) * plot.width);
    const float level = CurveLevel(curve.y[i], maximum);
    const float dy = static_cast<float>(mouse.y) - (top + (1.0f - level) * plot.height);
    if (dx * dx + dy * dy < kPointReachSquared) return i;
  }
  return kNothing;
}

EditResult ClickCurve(LifeCurve* curve, const ControlFrame& frame, const MouseClick& click) {
  if (IsOnResetButton(frame, click.mouse)) {
    ResetCurve(curve);
    return {.changed = true};
  }
  const CurvePlot plot = CurvePlotOf(frame);
  if (!HasPlot(plot)) return {};

  const int32_t hit = HitCurvePoint(*curve, frame, click.mouse);
  if (hit == kNothing) return ClickEmptyPlot(curve, PositionUnder(frame, plot, click.mouse));
  if (!click.command || !IsInnerPoint(*curve, hit)) return {.drag = hit};
  DeletePoint(curve, hit);
  return {.changed = true};
}

EditResult DragCurve(LifeCurve* curve, const ControlFrame& frame, int64_t index, MousePosition mouse) {
  const CurvePlot plot = CurvePlotOf(frame);
  const int32_t at = CheckedIndex(index, UsableCount(*curve));
  if (at == kNothing || !HasPlot(plot)) return {};

  const PlotPosition position = PositionUnder(frame, plot, mouse);
  curve->y[at] = position.level * EditorMaximum(*curve);
  if (IsInnerPoint(*curve, at)) curve->x[at] = BetweenNeighbours(*curve, at, position.x);
  return {.changed = true, .drag = at};
}

}  // namespace vantle
