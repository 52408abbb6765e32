// The colour gradient and the curves over life on lanes. Included after a lanes_*.h.
//
// Every lane starts on the first segment; lanes that lie beyond a segment's end go on to the next one, until
// none does.
#pragma once

#include "particles/custom_values.h"

#include <cstdint>

namespace vantle {
namespace {

struct ColorLanes {
  Floats r, g, b;
};

inline ColorLanes SelectColors(Mask m, const ColorLanes& a, const ColorLanes& b) {
  return {Select(m, a.r, b.r), Select(m, a.g, b.g), Select(m, a.b, b.b)};
}

/// 0 across a segment too short to divide by.
inline Floats SegmentFractions(Floats t, Floats from, Floats to) {
  const Floats length = to - from;
  return Select(0.0001f < length, (t - from) / length, 0.0f);
}

// ---- Curve ----

struct CurveSegment {
  Floats x1, x2;
  Floats p0, p1, p2, p3;
};

/// Segment i; beyond the ends the neighbours are mirrored.
inline CurveSegment SegmentOf(const LifeCurve& curve, int32_t count, int32_t i) {
  const float p1 = curve.y[i], p2 = curve.y[i + 1];
  const float p0 = i >= 1 ? curve.y[i - 1] : 2.0f * p1 - p2;
  const float p3 = i < count - 2 ? curve.y[i + 2] : 2.0f * p2 - p1;
  return {curve.x[i], curve.x[i + 1], p0, p1, p2, p3};
}

inline CurveSegment FindSegments(const LifeCurve& curve, int32_t count, Floats t) {
  CurveSegment s = SegmentOf(curve, count, 0);
  Mask beyond = AllLanes();
  for (int32_t i = 0; i < count - 2; ++i) {
    beyond = AndNot(t <= curve.x[i + 1], beyond);
    if (BitsOf(beyond) == 0) break;
    const CurveSegment next = SegmentOf(curve, count, i + 1);
    s = {Select(beyond, next.x1, s.x1), Select(beyond, next.x2, s.x2), Select(beyond, next.p0, s.p0),
         Select(beyond, next.p1, s.p1), Select(beyond, next.p2, s.p2), Select(beyond, next.p3, s.p3)};
  }
  return s;
}

/// As EvaluateLifeCurve.
inline Floats CurveOf(const LifeCurve& curve, Floats at) {
  const int32_t count = UsableCount(curve);
  if (count == 0) return 0.0f;
  if (count == 1) return curve.y[0];
  const Floats t = ClampLanes(at, 0.0f, 1.0f);
  const CurveSegment s = FindSegments(curve, count, t);
  const Floats u = SegmentFractions(t, s.x1, s.x2);
  const Floats u2 = u * u;
  const Floats u3 = u2 * u;
  const Floats value =
      s.p1 + 0.5f * ((s.p2 - s.p0) * u + (2.0f * s.p0 - 5.0f * s.p1 + 4.0f * s.p2 - s.p3) * u2 +
                     (3.0f * s.p1 - s.p0 - 3.0f * s.p2 + s.p3) * u3);
  return Select(0.0f < value, value, 0.0f);
}

// ---- Gradient ----

inline ColorLanes SplatColor(const GradientStop& stop) {
  return {stop.r, stop.g, stop.b};
}

/// As EvaluateGradient.
inline ColorLanes GradientOf(const ColorGradient& gradient, Floats at) {
  const int32_t count = UsableCount(gradient);
  if (count == 0) return {1.0f, 1.0f, 1.0f};
  const GradientStop* stops = gradient.stops;
  const ColorLanes first = SplatColor(stops[0]), last = SplatColor(stops[count - 1]);
  if (count == 1) return first;

  const Floats t = ClampLanes(at, 0.0f, 1.0f);
  Floats from = stops[0].position, to = stops[1].position;
  ColorLanes a = first, b = SplatColor(stops[1]);
  Mask beyond = AndNot(t <= stops[1].position, AllLanes());
  for (int32_t i = 1; i < count - 1 && BitsOf(beyond) != 0; ++i) {
    from = Select(beyond, stops[i].position, from);
    to = Select(beyond, stops[i + 1].position, to);
    a = SelectColors(beyond, SplatColor(stops[i]), a);
    b = SelectColors(beyond, SplatColor(stops[i + 1]), b);
    beyond = AndNot(t <= stops[i + 1].position, beyond);
  }
  const Floats u = SegmentFractions(t, from, to);
  const Floats s = (3.0f - 2.0f * u) * (u * u);
  ColorLanes color = {a.r + (b.r - a.r) * s, a.g + (b.g - a.g) * s, a.b + (b.b - a.b) * s};
  color = SelectColors(beyond, last, color);
  color = SelectColors(stops[count - 1].position <= t, last, color);
  return SelectColors(t <= stops[0].position, first, color);
}

}  // namespace
}  // namespace vantle
