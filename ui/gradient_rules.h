// How the gradient control is laid out and how a gradient is edited with the mouse. Knows no host.
#pragma once

#include "particles/custom_values.h"
#include "ui/control_geometry.h"

#include <cstdint>

namespace vantle {

inline constexpr float kGradientMargin = 4.0f;      ///< from the control's left and top to the bar
inline constexpr float kGradientBarHeight = 20.0f;  ///< pixels
inline constexpr float kGradientHandleTip = 22.0f;  ///< from the bar's top down to the tips of the handles
inline constexpr float kGradientHandleHeight = 10.0f;

/// Width of the colour bar in pixels; 0 when the control has no room for one, and then nothing is drawn, hit
/// or dragged.
float GradientBarWidth(const ControlFrame& frame);

/// Stop whose handle lies under the mouse, the lowest index of several; kNothing for none. Positions outside
/// 0..1 are taken where they are shown, at the end of the bar.
int32_t HitGradientStop(const ColorGradient& gradient, const ControlFrame& frame, MousePosition mouse);

/// A click adds a stop to the bar, selects or recolours the stop under it, or deletes that stop with the
/// command key held as long as two remain.
EditResult ClickGradient(ColorGradient* gradient, const ControlFrame& frame, const MouseClick& click);

/// Moves stop `index` under the mouse and swaps it past neighbours until the order is right again. The
/// result's `drag` is its new index. An index that is no stop (any word may arrive here) changes nothing.
EditResult DragGradient(ColorGradient* gradient, const ControlFrame& frame, int64_t index,
                        MousePosition mouse);

/// Gives stop `index` a colour; false, and nothing written, when there is no such stop any more.
bool RecolourGradientStop(ColorGradient* gradient, int64_t index, const Color& color);

}  // namespace vantle
