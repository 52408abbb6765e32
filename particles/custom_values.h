// The three values that the host cannot represent with parameter types of its own: the colour gradient and
// the two curves over life. Projects store these records byte for byte, so their layout is a file format.
#pragma once

#include <cstddef>
#include <cstdint>

namespace vantle {

inline constexpr int32_t kMaxGradientStops = 8;
inline constexpr int32_t kMaxCurvePoints = 16;

struct GradientStop {
  float position;  ///< 0..1 along the bar
  float r, g, b;   ///< 0..1
};

/// A colour ramp. Stored values are hostile: `count` may lie outside 0..8, positions may be unsorted or not
/// finite, `selected` may point anywhere. Whoever reads clamps; nobody rewrites what is stored.
struct ColorGradient {
  int32_t tag;    ///< written as 1, never examined
  int32_t count;  ///< stops in use
  GradientStop stops[kMaxGradientStops];
  int32_t selected;  ///< stop selected in the editor, -1 for none
};

/// A curve over a particle's life. As hostile as the gradient.
struct LifeCurve {
  int32_t tag;    ///< written as 2, never examined
  float maximum;  ///< top of the editor's value range
  int32_t count;  ///< points in use
  float x[kMaxCurvePoints];
  float y[kMaxCurvePoints];
  float extra1[kMaxCurvePoints];  ///< kept in step with the points, otherwise unused
  float extra2[kMaxCurvePoints];
};

static_assert(sizeof(ColorGradient) == 140 && offsetof(ColorGradient, stops) == 8 &&
              offsetof(ColorGradient, selected) == 136);
static_assert(sizeof(LifeCurve) == 268 && offsetof(LifeCurve, x) == 12 && offsetof(LifeCurve, y) == 76 &&
              offsetof(LifeCurve, extra1) == 140 && offsetof(LifeCurve, extra2) == 204);

struct Color {
  float r = 1.0f;
  float g = 1.0f;
  float b = 1.0f;
};

/// Yellow, cyan, pink; nothing selected.
void MakeDefaultGradient(ColorGradient* gradient);

/// A flat line of two points at min(maximum, 1).
void MakeDefaultLifeCurve(LifeCurve* curve, float maximum);

/// `count` held to what the arrays have.
int32_t UsableCount(const ColorGradient& gradient);
int32_t UsableCount(const LifeCurve& curve);

/// Colour at t (clamped to 0..1), eased between stops by a smoothstep; white without stops.
Color EvaluateGradient(const ColorGradient& gradient, float t);

/// Value at t (clamped to 0..1): a uniform Catmull-Rom spline with mirrored end points, never below 0 and
/// not limited above; 0 without points.
float EvaluateLifeCurve(const LifeCurve& curve, float t);

}  // namespace vantle
