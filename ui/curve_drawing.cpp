#include "ui/curve_rules.h"
#include "ui/editor_drawing.h"

namespace vantle {
namespace {

constexpr DRAWBOT_ColorRGBA kBackground = {0.15f, 0.15f, 0.15f, 1.0f};
constexpr DRAWBOT_ColorRGBA kGridLine = {0.25f, 0.25f, 0.25f, 1.0f};
constexpr DRAWBOT_ColorRGBA kPlotOutline = {0.4f, 0.4f, 0.4f, 1.0f};
constexpr DRAWBOT_ColorRGBA kArea = {0.25f, 0.55f, 0.55f, 0.6f};
constexpr DRAWBOT_ColorRGBA kCurveLine = {0.8f, 0.9f, 0.9f, 1.0f};
constexpr DRAWBOT_ColorRGBA kEndPoint = {0.3f, 0.7f, 0.7f, 1.0f};
constexpr DRAWBOT_ColorRGBA kInnerPoint = {0.4f, 0.8f, 0.5f, 1.0f};
constexpr DRAWBOT_ColorRGBA kPointOutline = {1.0f, 1.0f, 1.0f, 1.0f};
constexpr DRAWBOT_ColorRGBA kControlPolygon = {0.6f, 0.6f, 0.6f, 0.5f};
constexpr DRAWBOT_ColorRGBA kResetFace = {0.25f, 0.25f, 0.25f, 0.9f};
constexpr DRAWBOT_ColorRGBA kResetOutline = {0.5f, 0.5f, 0.5f, 0.9f};
constexpr DRAWBOT_ColorRGBA kResetLabel = {0.8f, 0.8f, 0.8f, 1.0f};

constexpr float kEndPointRadius = 4.0f;
constexpr float kInnerPointRadius = 3.5f;
constexpr float kPointOutlineWidth = 1.5f;
constexpr float kCurveLineWidth = 1.5f;
constexpr float kThinLineWidth = 1.0f;  // grid, outlines, control polygon
constexpr int32_t kCurveSteps = 60;
constexpr int32_t kGridQuarters = 4;

constexpr DRAWBOT_UTF16Char kResetText[] = {'R', 'E', 'S', 'E', 'T', 0};
constexpr float kResetTextX = 4.0f;
constexpr float kResetTextY = 11.0f;

// The whole control is drawn half a pixel to the right and down, so that lines run through pixel centres.
struct Layout {
  DRAWBOT_RectF32 frame;
  DRAWBOT_RectF32 plot;
};

Layout LayoutOf(const ControlFrame& frame) {
  const float left = static_cast<float>(frame.left) + 0.5f;
  const float top = static_cast<float>(frame.top) + 0.5f;
  const CurvePlot plot = CurvePlotOf(frame);
  return {{left, top, ControlWidth(frame), ControlHeight(frame)},
          {left + kCurveMargin, top + kCurveMargin, plot.width, plot.height}};
}

float PlotX(const DRAWBOT_RectF32& plot, float x) {
  return plot.left + Clamp01(x) * plot.width;
}

float PlotY(const DRAWBOT_RectF32& plot, float level) {
  return plot.top + (1.0f - level) * plot.height;
}

void DrawGrid(Drawing& drawing, const DRAWBOT_RectF32& plot) {
  const Path path = NewPath(drawing);
  for (int32_t i = 1; i < kGridQuarters; ++i) {
    const float x = plot.left + plot.width * static_cast<float>(i) / static_cast<float>(kGridQuarters);
    MoveTo(drawing, path, x, plot.top);
    LineTo(drawing, path, x, plot.top + plot.height);
  }
  for (int32_t i = 1; i < kGridQuarters; ++i) {
    const float y = plot.top + plot.height * static_cast<float>(i) / static_cast<float>(kGridQuarters);
    MoveTo(drawing, path, plot.left, y);
    LineTo(drawing, path, plot.left + plot.width, y);
  }
  const Pen pen = NewPen(drawing, kGridLine, kThinLineWidth);
  Stroke(drawing, path, pen);
}

DRAWBOT_PointF32 Sample(const LifeCurve& curve, const DRAWBOT_RectF32& plot, int32_t step) {
  const float t = static_cast<float>(step) / static_cast<float>(kCurveSteps);
  return {PlotX(plot, t), PlotY(plot, CurveLevel(EvaluateLifeCurve(curve, t), EditorMaximum(curve)))};
}

void DrawArea(Drawing& drawing, const LifeCurve& curve, const DRAWBOT_RectF32& plot) {
  const float bottom = plot.top + plot.height;
  const Path path = NewPath(drawing);
  MoveTo(drawing, path, plot.left, bottom);
  for (int32_t k = 0; k <= kCurveSteps; ++k) {
    const DRAWBOT_PointF32 point = Sample(curve, plot, k);
    LineTo(drawing, path, point.x, point.y);
  }
  LineTo(drawing, path, plot.left + plot.width, bottom);
  Close(drawing, path);
  const Brush brush = NewBrush(drawing, kArea);
  Fill(drawing, path, brush);
}

void DrawLine(Drawing& drawing, const LifeCurve& curve, const DRAWBOT_RectF32& plot) {
  const Path path = NewPath(drawing);
  const DRAWBOT_PointF32 start = Sample(curve, plot, 0);
  MoveTo(drawing, path, start.x, start.y);
  for (int32_t k = 1; k <= kCurveSteps; ++k) {
    const DRAWBOT_PointF32 point = Sample(curve, plot, k);
    LineTo(drawing, path, point.x, point.y);
  }
  const Pen pen = NewPen(drawing, kCurveLine, kCurveLineWidth);
  Stroke(drawing, path, pen);
}

DRAWBOT_PointF32 PointCenter(const LifeCurve& curve, const DRAWBOT_RectF32& plot, int32_t index) {
  return {PlotX(plot, curve.x[index]), PlotY(plot, CurveLevel(curve.y[index], EditorMaximum(curve)))};
}

void DrawPoints(Drawing& drawing, const LifeCurve& curve, const DRAWBOT_RectF32& plot) {
  const Pen outline = NewPen(drawing, kPointOutline, kPointOutlineWidth);
  const Brush endBrush = NewBrush(drawing, kEndPoint);
  const Brush innerBrush = NewBrush(drawing, kInnerPoint);
  const int32_t count = UsableCount(curve);
  for (int32_t i = 0; i < count; ++i) {
    const bool isEnd = i == 0 || i == count - 1;
    const DRAWBOT_PointF32 center = PointCenter(curve, plot, i);
    const Path path = NewPath(drawing);
    AddCircle(drawing, path, center.x, center.y, isEnd ? kEndPointRadius : kInnerPointRadius);
    Stroke(drawing, path, outline);
    Fill(drawing, path, isEnd ? endBrush : innerBrush);
  }
}

void DrawControlPolygon(Drawing& drawing, const LifeCurve& curve, const DRAWBOT_RectF32& plot) {
  const int32_t count = UsableCount(curve);
  if (count < 2) return;

  const Path path = NewPath(drawing);
  const DRAWBOT_PointF32 start = PointCenter(curve, plot, 0);
  MoveTo(drawing, path, start.x, start.y);
  for (int32_t i = 1; i < count; ++i) {
    const DRAWBOT_PointF32 point = PointCenter(curve, plot, i);
    LineTo(drawing, path, point.x, point.y);
  }
  const Pen pen = NewPen(drawing, kControlPolygon, kThinLineWidth);
  Stroke(drawing, path, pen);
}

void DrawResetButton(Drawing& drawing, const DRAWBOT_RectF32& frame) {
  const float right = frame.left + frame.width - kResetMargin;
  const float bottom = frame.top + frame.height - kResetMargin;
  const DRAWBOT_RectF32 button = {right - kResetWidth, bottom - kResetHeight, kResetWidth, kResetHeight};

  PaintRect(drawing, kResetFace, button);
  {
    const Pen pen = NewPen(drawing, kResetOutline, kThinLineWidth);
    StrokeRect(drawing, button, pen);
  }
  const Font font = NewDefaultFont(drawing);
  const Brush brush = NewBrush(drawing, kResetLabel);
  DrawLabel(drawing, font, brush, kResetText, button.left + kResetTextX, button.top + kResetTextY);
}

void DrawPlot(Drawing& drawing, const LifeCurve& curve, const DRAWBOT_RectF32& plot) {
  DrawGrid(drawing, plot);
  {
    const Pen pen = NewPen(drawing, kPlotOutline, kThinLineWidth);
    StrokeRect(drawing, plot, pen);
  }
  DrawArea(drawing, curve, plot);
  DrawLine(drawing, curve, plot);
  DrawPoints(drawing, curve, plot);
  DrawControlPolygon(drawing, curve, plot);
}

}  // namespace

void DrawCurveEditor(Drawing& drawing, const LifeCurve& curve, const ControlFrame& frame) {
  const Layout layout = LayoutOf(frame);
  if (layout.frame.width <= 0.0f || layout.frame.height <= 0.0f) return;

  PaintRect(drawing, kBackground, layout.frame);
  if (HasPlot({layout.plot.width, layout.plot.height})) DrawPlot(drawing, curve, layout.plot);
  if (HasResetButton(frame)) DrawResetButton(drawing, layout.frame);
}

}  // namespace vantle
