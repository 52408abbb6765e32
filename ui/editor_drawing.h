// The pictures of the two editors.
#pragma once

#include "particles/custom_values.h"
#include "ui/control_geometry.h"
#include "ui/drawbot.h"

namespace vantle {

/// A bar of the gradient's colours with a handle under each stop. What the control has no room for is left
/// out. Stops outside 0..1 are shown at the end of the bar. Errors stay in `drawing`.
void DrawGradientEditor(Drawing& drawing, const ColorGradient& gradient, const ControlFrame& frame);

/// A plot of the curve with its points, the straight lines between them and a RESET button. What the control
/// has no room for is left out. Errors stay in `drawing`.
void DrawCurveEditor(Drawing& drawing, const LifeCurve& curve, const ControlFrame& frame);

}  // namespace vantle
