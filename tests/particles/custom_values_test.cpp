#include "particles/custom_values.h"

#include <cmath>
#include <gtest/gtest.h>
#include <limits>

namespace vantle {
namespace {

constexpr float kInf = std::numeric_limits<float>::infinity();
constexpr float kNan = std::numeric_limits<float>::quiet_NaN();

ColorGradient GradientOf(std::initializer_list<GradientStop> stops) {
  ColorGradient g{};
  g.tag = 1;
  g.selected = -1;
  for (const GradientStop& stop : stops) g.stops[g.count++] = stop;
  return g;
}

LifeCurve CurveOf(std::initializer_list<std::pair<float, float>> points) {
  LifeCurve c{};
  c.tag = 2;
  c.maximum = 2.0f;
  for (const auto& [x, y] : points) {
    c.x[c.count] = x;
    c.y[c.count++] = y;
  }
  return c;
}

void ExpectColor(const Color& c, float r, float g, float b) {
  EXPECT_FLOAT_EQ(c.r, r);
  EXPECT_FLOAT_EQ(c.g, g);
  EXPECT_FLOAT_EQ(c.b, b);
}

TEST(Gradient, HasTheDefaultStops) {
  ColorGradient g;
  MakeDefaultGradient(&g);
  EXPECT_EQ(g.tag, 1);
  EXPECT_EQ(g.count, 3);
  EXPECT_EQ(g.selected, -1);
  EXPECT_EQ(g.stops[1].position, 0.5f);
  EXPECT_EQ(g.stops[2].g, 0.4f);
  EXPECT_EQ(g.stops[2].b, 0.7f);
  EXPECT_EQ(g.stops[7].position, 0.0f);
}

TEST(Gradient, EasesBetweenStopsBySmoothstep) {
  const ColorGradient g = GradientOf({{0.0f, 0, 0, 0}, {1.0f, 1, 0.5f, 2}});
  ExpectColor(EvaluateGradient(g, 0.25f), 0.15625f, 0.078125f, 0.3125f);
  ExpectColor(EvaluateGradient(g, 0.5f), 0.5f, 0.25f, 1.0f);
}

TEST(Gradient, ClampsThePositionAndEndsInItsEndColours) {
  ColorGradient g;
  MakeDefaultGradient(&g);
  ExpectColor(EvaluateGradient(g, -3.0f), 1, 1, 0);
  ExpectColor(EvaluateGradient(g, 9.0f), 1, 0.4f, 0.7f);
  ExpectColor(EvaluateGradient(g, kNan), 1, 1, 0);
  ExpectColor(EvaluateGradient(g, 0.5f), 0, 1, 1);
}

TEST(Gradient, IsWhiteWithoutStopsAndPlainWithOne) {
  ExpectColor(EvaluateGradient(GradientOf({}), 0.5f), 1, 1, 1);
  ExpectColor(EvaluateGradient(GradientOf({{0.7f, 0.1f, 0.2f, 0.3f}}), 0.9f), 0.1f, 0.2f, 0.3f);
}

TEST(Gradient, TwoStopsAtOnePlaceMakeAHardEdge) {
  const ColorGradient g = GradientOf({{0.0f, 0, 0, 0}, {0.5f, 1, 0, 0}, {0.5f, 0, 0, 1}, {1.0f, 0, 0, 1}});
  ExpectColor(EvaluateGradient(g, 0.5f), 1, 0, 0);
  ExpectColor(EvaluateGradient(g, 0.50001f), 0, 0, 1);
}

TEST(Gradient, SegmentsTooShortToDivideTakeTheLowerColour) {
  const ColorGradient g =
      GradientOf({{0.0f, 0, 0, 0}, {0.5f, 1, 0, 0}, {0.50005f, 0, 0, 1}, {1.0f, 0, 0, 1}});
  ExpectColor(EvaluateGradient(g, 0.50004f), 1, 0, 0);
}

TEST(Gradient, ReadsNoMoreStopsThanThereAre) {
  ColorGradient g = GradientOf({{0.0f, 0.5f, 0.5f, 0.5f}});
  for (const int32_t count : {-5, INT32_MIN}) {
    g.count = count;
    ExpectColor(EvaluateGradient(g, 0.3f), 1, 1, 1);
  }
  for (int i = 0; i < 8; ++i) g.stops[i] = {static_cast<float>(i) / 7.0f, static_cast<float>(i), 0, 0};
  g.count = INT32_MAX;
  EXPECT_EQ(UsableCount(g), 8);
  EXPECT_EQ(EvaluateGradient(g, 1.0f).r, 7.0f);
}

TEST(Gradient, StrangePositionsGiveNoColourBeyondTheStops) {
  for (const float odd : {kNan, kInf, -kInf}) {
    for (int at = 0; at < 3; ++at) {
      ColorGradient g;
      MakeDefaultGradient(&g);
      g.stops[at].position = odd;
      for (const float t : {0.0f, 0.3f, 0.6f, 1.0f}) {
        const Color c = EvaluateGradient(g, t);
        // Within a segment that begins at minus infinity no place is a number.
        EXPECT_FALSE(c.r < 0.0f || c.r > 1.0f) << odd << " at " << at << ", t " << t;
      }
    }
  }
}

TEST(Gradient, UnsortedStopsTakeTheFirstSegmentThatReaches) {
  const ColorGradient g = GradientOf({{0.2f, 0, 0, 0}, {0.9f, 1, 0, 0}, {0.4f, 0, 1, 0}, {0.95f, 0, 0, 1}});
  // The first segment runs from 0.2 to 0.9, half way at 0.55.
  ExpectColor(EvaluateGradient(g, 0.55f), 0.5f, 0, 0);
}

TEST(LifeCurve, HasAFlatDefaultAtOneAtMost) {
  for (const float maximum : {0.5f, 1.0f, 2.0f}) {
    LifeCurve c;
    MakeDefaultLifeCurve(&c, maximum);
    EXPECT_EQ(c.tag, 2);
    EXPECT_EQ(c.count, 2);
    EXPECT_EQ(c.maximum, maximum);
    EXPECT_EQ(c.extra1[0], 0.0f);
    EXPECT_EQ(c.x[1], 1.0f);
    for (float t = 0.0f; t <= 1.0f; t += 0.125f) EXPECT_EQ(EvaluateLifeCurve(c, t), std::min(maximum, 1.0f));
  }
}

TEST(LifeCurve, PassesThroughItsPoints) {
  const LifeCurve c = CurveOf({{0.0f, 0.5f}, {0.25f, 2.0f}, {0.75f, 0.25f}, {1.0f, 1.0f}});
  for (int i = 0; i < c.count; ++i) EXPECT_FLOAT_EQ(EvaluateLifeCurve(c, c.x[i]), c.y[i]);
}

TEST(LifeCurve, IsTheCatmullRomSplineWithMirroredEnds) {
  // Half way the spline is (9 (p1 + p2) - (p0 + p3)) / 16.
  const LifeCurve c = CurveOf({{0.0f, 0.0f}, {0.5f, 1.0f}, {1.0f, 0.5f}});
  // First segment: p0 = 2 * 0 - 1 = -1, p3 = 0.5.
  EXPECT_FLOAT_EQ(EvaluateLifeCurve(c, 0.25f), (9.0f * 1.0f - (-1.0f + 0.5f)) / 16.0f);
  // Second segment: p0 = 0, p3 = 2 * 0.5 - 1 = 0.
  EXPECT_FLOAT_EQ(EvaluateLifeCurve(c, 0.75f), 9.0f * 1.5f / 16.0f);
}

TEST(LifeCurve, NeverDipsBelowZeroAndMayOvershoot) {
  const LifeCurve dip = CurveOf({{0.0f, 1.0f}, {0.3f, 0.0f}, {0.7f, 0.0f}, {1.0f, 1.0f}});
  EXPECT_EQ(EvaluateLifeCurve(dip, 0.5f), 0.0f);
  const LifeCurve hump = CurveOf({{0.0f, 0.0f}, {0.3f, 2.0f}, {0.7f, 2.0f}, {1.0f, 0.0f}});
  EXPECT_FLOAT_EQ(EvaluateLifeCurve(hump, 0.5f), 2.25f);
}

TEST(LifeCurve, IsPlainWithOnePointAndZeroWithNone) {
  EXPECT_EQ(EvaluateLifeCurve(CurveOf({{0.4f, 1.5f}}), 0.9f), 1.5f);
  EXPECT_EQ(EvaluateLifeCurve(CurveOf({}), 0.5f), 0.0f);
}

TEST(LifeCurve, IsDefinedForWhateverIsStored) {
  for (const int32_t count : {INT32_MIN, -1, 17, INT32_MAX}) {
    LifeCurve c = CurveOf({{0.0f, 1.0f}, {1.0f, 1.0f}});
    c.count = count;
    EXPECT_GE(EvaluateLifeCurve(c, 0.5f), 0.0f);
  }
  for (const float odd : {kNan, kInf, -kInf}) {
    for (int at = 0; at < 3; ++at) {
      LifeCurve x = CurveOf({{0.0f, 1.0f}, {0.5f, 0.5f}, {1.0f, 1.0f}}), y = x;
      x.x[at] = odd;
      y.y[at] = odd;
      for (const float t : {0.0f, 0.3f, 0.8f, 1.0f, kNan}) {
        EXPECT_GE(EvaluateLifeCurve(x, t), 0.0f);
        EXPECT_GE(EvaluateLifeCurve(y, t), 0.0f);
      }
    }
  }
}

}  // namespace
}  // namespace vantle
