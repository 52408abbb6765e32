#include "tests/reference/custom_curves.h"

#include "base/numeric.h"

#include <algorithm>

namespace vantle::reference {

int Stops(const ColorGradient& gradient) {
  return std::clamp(gradient.count, 0, kMaxGradientStops);
}

int Points(const LifeCurve& curve) {
  return std::clamp(curve.count, 0, kMaxCurvePoints);
}

Color StopColor(const GradientStop& stop) {
  return {stop.r, stop.g, stop.b};
}

Color GradientAt(const ColorGradient& gradient, float t) {
  t = Clamp(t, 0.0f, 1.0f);
  const int count = Stops(gradient);
  if (count == 0) return {1.0f, 1.0f, 1.0f};

  const GradientStop& first = gradient.stops[0];
  const GradientStop& last = gradient.stops[count - 1];
  if (count == 1 || t <= first.position) return StopColor(first);
  if (t >= last.position) return StopColor(last);

  for (int i = 0; i + 1 < count; ++i) {
    const GradientStop& from = gradient.stops[i];
    const GradientStop& to = gradient.stops[i + 1];
    if (!(t <= to.position)) continue;
    const float d = to.position - from.position;
    const float u = d > 0.0001f ? (t - from.position) / d : 0.0f;
    const float s = (3.0f - 2.0f * u) * (u * u);
    return {from.r + (to.r - from.r) * s, from.g + (to.g - from.g) * s, from.b + (to.b - from.b) * s};
  }
  return StopColor(last);
}

float CurveAt(const LifeCurve& curve, float t) {
  const int count = Points(curve);
  if (count == 0) return 0.0f;
  if (count == 1) return curve.y[0];
  t = Clamp(t, 0.0f, 1.0f);

  // Find the segment; past the last point the last segment goes on.
  int i = 0;
  while (i < count - 2 && !(t <= curve.x[i + 1])) ++i;
  const float width = curve.x[i + 1] - curve.x[i];
  const float u = width > 0.0001f ? (t - curve.x[i]) / width : 0.0f;

  const float p1 = curve.y[i];
  const float p2 = curve.y[i + 1];
  const float p0 = i >= 1 ? curve.y[i - 1] : 2.0f * p1 - p2;
  const float p3 = i < count - 2 ? curve.y[i + 2] : 2.0f * p2 - p1;
  const float linear = (p2 - p0) * u;
  const float square = (2.0f * p0 - 5.0f * p1 + 4.0f * p2 - p3) * (u * u);
  const float cubic = (3.0f * p1 - p0 - 3.0f * p2 + p3) * (u * u * u);
  const float value = p1 + 0.5f * (linear + square + cubic);
  return value > 0.0f ? value : 0.0f;
}

}  // namespace vantle::reference
