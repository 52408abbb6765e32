// How the curve control is laid out and how a curve over life is edited with the mouse. Knows no host.
#pragma once

#include "particles/custom_values.h"
#include "ui/control_geometry.h"

#include <cstdint>

namespace vantle {

inline constexpr float kCurveMargin = 4.0f;        ///< from the control's left, top and right to the plot
inline constexpr float kCurveStripHeight = 26.0f;  ///< what the plot leaves free: margin and button strip
inline constexpr float kResetWidth = 42.0f;        ///< RESET button, at the right of the strip under the plot
inline constexpr float kResetHeight = 16.0f;
inline constexpr float kResetMargin = 4.0f;  ///< from the button to the control's right and bottom

/// Plot area of the control relative to the control's left and top; sizes are 0 when there is no room.
struct CurvePlot {
  float width;
  float height;
};

CurvePlot CurvePlotOf(const ControlFrame& frame);

/// Both sides above 0. Without a plot no point is drawn, hit, added or dragged.
bool HasPlot(const CurvePlot& plot);

/// Whether the control is large enough to hold the RESET button; it is neither drawn nor hit otherwise.
bool HasResetButton(const ControlFrame& frame);

/// Top of the editor's value range: the stored maximum, or 1 where that is below 0.001 or not finite.
float EditorMaximum(const LifeCurve& curve);

/// Height of a value in the plot, 0 at the bottom to 1 at the top.
float CurveLevel(float value, float maximum);

/// Point within 8 pixels of the mouse, the lowest index of several; kNothing for none. An x outside 0..1 is
/// taken where it is shown, at the end of the plot.
int32_t HitCurvePoint(const LifeCurve& curve, const ControlFrame& frame, MousePosition mouse);

/// A click resets the curve (on the button), adds a point, grabs the point under it, or deletes that point
/// with the command key held. The first and the last point cannot be deleted.
EditResult ClickCurve(LifeCurve* curve, const ControlFrame& frame, const MouseClick& click);

/// Moves point `index` under the mouse: the first and the last only up and down, others between their
/// neighbours. An index that is no point (any word may arrive here) changes nothing.
EditResult DragCurve(LifeCurve* curve, const ControlFrame& frame, int64_t index, MousePosition mouse);

}  // namespace vantle
