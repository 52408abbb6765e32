// The colour gradient and the curves over life, evaluated term by term.
#pragma once

#include "particles/custom_values.h"

namespace vantle::reference {

/// Number of entries that may be read: the stored count, held to the size of the arrays.
int Stops(const ColorGradient& gradient);
int Points(const LifeCurve& curve);

/// Colour of a stop.
Color StopColor(const GradientStop& stop);

/// Colour at t, eased between neighbouring stops by a smoothstep; white without stops.
Color GradientAt(const ColorGradient& gradient, float t);

/// Value at t of a uniform Catmull-Rom spline whose missing neighbours are mirrored; never negative, and 0
/// where stored values make it undefined.
float CurveAt(const LifeCurve& curve, float t);

}  // namespace vantle::reference
