#include "particles/custom_values.h"

#include "base/numeric.h"

#include <algorithm>

namespace vantle {

void MakeDefaultGradient(ColorGradient* gradient) {
  *gradient = {};
  gradient->tag = 1;
  gradient->count = 3;
  gradient->stops[0] = {0.0f, 1.0f, 1.0f, 0.0f};
  gradient->stops[1] = {0.5f, 0.0f, 1.0f, 1.0f};
  gradient->stops[2] = {1.0f, 1.0f, 0.4f, 0.7f};
  gradient->selected = -1;
}

void MakeDefaultLifeCurve(LifeCurve* curve, float maximum) {
  *curve = {};
  curve->tag = 2;
  curve->maximum = maximum;
  curve->count = 2;
  curve->x[1] = 1.0f;
  curve->y[0] = curve->y[1] = std::min(maximum, 1.0f);
}

int32_t UsableCount(const ColorGradient& gradient) {
  return std::clamp(gradient.count, 0, kMaxGradientStops);
}

int32_t UsableCount(const LifeCurve& curve) {
  return std::clamp(curve.count, 0, kMaxCurvePoints);
}

namespace {

Color ColorOf(const GradientStop& stop) {
  return {stop.r, stop.g, stop.b};
}

/// u is 0 across a segment too short to divide by.
float SegmentFraction(float t, float from, float to) {
  const float length = to - from;
  return length > 0.0001f ? (t - from) / length : 0.0f;
}

}  // namespace

Color EvaluateGradient(const ColorGradient& gradient, float t) {
  const int32_t count = UsableCount(gradient);
  if (count == 0) return {1.0f, 1.0f, 1.0f};
  t = Clamp(t, 0.0f, 1.0f);
  const GradientStop* stops = gradient.stops;
  const GradientStop& last = stops[count - 1];
  if (count == 1 || t <= stops[0].position) return ColorOf(stops[0]);
  if (t >= last.position) return ColorOf(last);

  // The lower segment wins where two meet.
  int32_t i = 0;
  while (i < count - 1 && !(t <= stops[i + 1].position)) ++i;
  if (i == count - 1) return ColorOf(last);

  const GradientStop& a = stops[i];
  const GradientStop& b = stops[i + 1];
  const float u = SegmentFraction(t, a.position, b.position);
  const float s = (3.0f - 2.0f * u) * (u * u);
  return {a.r + (b.r - a.r) * s, a.g + (b.g - a.g) * s, a.b + (b.b - a.b) * s};
}

float EvaluateLifeCurve(const LifeCurve& curve, float t) {
  const int32_t count = UsableCount(curve);
  if (count == 0) return 0.0f;
  if (count == 1) return curve.y[0];
  t = Clamp(t, 0.0f, 1.0f);

  int32_t i = 0;
  while (i < count - 2 && !(t <= curve.x[i + 1])) ++i;
  const float u = SegmentFraction(t, curve.x[i], curve.x[i + 1]);

  // Beyond the ends the neighbours are mirrored.
  const float p1 = curve.y[i];
  const float p2 = curve.y[i + 1];
  const float p0 = i >= 1 ? curve.y[i - 1] : 2.0f * p1 - p2;
  const float p3 = i < count - 2 ? curve.y[i + 2] : 2.0f * p2 - p1;

  const float u2 = u * u;
  const float u3 = u2 * u;
  const float value = p1 + 0.5f * ((p2 - p0) * u + (2.0f * p0 - 5.0f * p1 + 4.0f * p2 - p3) * u2 +
                                   (3.0f * p1 - p0 - 3.0f * p2 + p3) * u3);
  return value > 0.0f ? value : 0.0f;
}

}  // namespace vantle
