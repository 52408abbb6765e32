// Editing a curve over life with the mouse, without a host. The control is 200 x 140 at (10, 20): the plot
// goes from x = 14 to 206 and from y = 24 to 138, and the RESET button from (164, 140) to (206, 156).
#include "ui/curve_rules.h"

#include <cmath>
#include <cstring>
#include <gtest/gtest.h>
#include <limits>

namespace vantle {
namespace {

constexpr ControlFrame kFrame = {10, 20, 210, 160};
constexpr float kNan = std::numeric_limits<float>::quiet_NaN();
constexpr float kInfinity = std::numeric_limits<float>::infinity();

struct PlacedPoint {
  float x, y;
};

LifeCurve Default(float maximum) {
  LifeCurve curve;
  MakeDefaultLifeCurve(&curve, maximum);
  return curve;
}

LifeCurve WithPoints(float maximum, std::initializer_list<PlacedPoint> points) {
  LifeCurve curve = Default(maximum);
  curve.count = 0;
  for (const PlacedPoint& point : points) {
    const int32_t i = curve.count++;
    curve.x[i] = point.x;
    curve.y[i] = point.y;
    curve.extra1[i] = 100.0f + static_cast<float>(i);
    curve.extra2[i] = 200.0f + static_cast<float>(i);
  }
  return curve;
}

LifeCurve WithSixteenPoints() {
  LifeCurve curve = Default(1.0f);
  curve.count = 16;
  for (int32_t i = 0; i < 16; ++i) {
    curve.x[i] = static_cast<float>(i) / 15.0f;
    curve.y[i] = 0.0f;
  }
  return curve;
}

MouseClick ClickAt(int32_t x, int32_t y) {
  return {{x, y}, false, false};
}

MouseClick CommandClickAt(int32_t x, int32_t y) {
  return {{x, y}, true, false};
}

bool SameBytes(const LifeCurve& a, const LifeCurve& b) {
  return std::memcmp(&a, &b, sizeof(a)) == 0;
}

TEST(CurveHit, ReachesLessThanEightPixelsAround) {
  // The point at (0.5, 1) of maximum 2 lies at (110, 81).
  const LifeCurve curve = WithPoints(2.0f, {{0.0f, 0.0f}, {0.5f, 1.0f}, {1.0f, 0.0f}});
  EXPECT_EQ(HitCurvePoint(curve, kFrame, {110, 81}), 1);
  EXPECT_EQ(HitCurvePoint(curve, kFrame, {117, 81}), 1);
  EXPECT_EQ(HitCurvePoint(curve, kFrame, {118, 81}), kNothing) << "64 is not below 64";
  EXPECT_EQ(HitCurvePoint(curve, kFrame, {110, 73}), kNothing);
  EXPECT_EQ(HitCurvePoint(curve, kFrame, {110, 74}), 1);
  EXPECT_EQ(HitCurvePoint(curve, kFrame, {115, 87}), 1) << "25 + 36";
  EXPECT_EQ(HitCurvePoint(curve, kFrame, {116, 87}), kNothing) << "36 + 36";
}

TEST(CurveHit, LowestIndexWins) {
  const LifeCurve curve = WithPoints(1.0f, {{0.0f, 0.5f}, {0.0f, 0.5f}, {0.01f, 0.5f}, {1.0f, 0.5f}});
  EXPECT_EQ(HitCurvePoint(curve, kFrame, {14, 81}), 0);
}

TEST(CurveHit, ValuesBeyondTheRangeAreGrabbedAtItsBorder) {
  const LifeCurve curve =
      WithPoints(1.0f, {{0.0f, 9.0f}, {kNan, kNan}, {5.0f, -kInfinity}, {1.0f, kInfinity}});
  EXPECT_EQ(HitCurvePoint(curve, kFrame, {14, 24}), 0);
  EXPECT_EQ(HitCurvePoint(curve, kFrame, {14, 138}), 1);
  EXPECT_EQ(HitCurvePoint(curve, kFrame, {206, 138}), 2);
  EXPECT_EQ(HitCurvePoint(curve, kFrame, {206, 24}), 3);
}

TEST(CurveMaximum, SmallOnesCountAsOne) {
  for (const float maximum : {0.0f, -3.0f, 0.0009f, kNan, kInfinity, -kInfinity}) {
    LifeCurve curve = Default(1.0f);
    curve.maximum = maximum;
    EXPECT_EQ(EditorMaximum(curve), 1.0f) << maximum;
    DragCurve(&curve, kFrame, 0, {14, 81});
    EXPECT_EQ(curve.y[0], 0.5f) << maximum;
  }
  EXPECT_EQ(EditorMaximum(Default(0.001f)), 0.001f);
  EXPECT_EQ(EditorMaximum(Default(2.0f)), 2.0f);
}

TEST(CurveClick, AddsAPointUnderTheMouse) {
  LifeCurve curve = WithPoints(2.0f, {{0.0f, 1.0f}, {0.75f, 1.0f}, {1.0f, 1.0f}});
  const EditResult result = ClickCurve(&curve, kFrame, ClickAt(62, 52));
  EXPECT_TRUE(result.changed);
  EXPECT_EQ(result.drag, 1);
  ASSERT_EQ(curve.count, 4);
  EXPECT_EQ(curve.x[1], 0.25f);
  EXPECT_EQ(curve.y[1], (1.0f - 28.0f / 114.0f) * 2.0f);
  EXPECT_EQ(curve.extra1[1], 0.0f);
  EXPECT_EQ(curve.extra2[1], 0.0f);
  EXPECT_EQ(curve.x[2], 0.75f);
  EXPECT_EQ(curve.extra1[0], 100.0f);
  EXPECT_EQ(curve.extra1[2], 101.0f);
  EXPECT_EQ(curve.extra2[3], 202.0f);
}

TEST(CurveClick, OutsideThePlotThePositionIsHeldToIt) {
  LifeCurve curve = WithPoints(1.0f, {{0.0f, 1.0f}, {1.0f, 1.0f}});
  const EditResult result = ClickCurve(&curve, kFrame, ClickAt(110, 159));
  EXPECT_EQ(result.drag, 1);
  EXPECT_EQ(curve.x[1], 0.5f);
  EXPECT_EQ(curve.y[1], 0.0f);
}

TEST(CurveClick, AtTheStartANewPointComesSecondAndTheFirstIsGrabbed) {
  // The click far below the first point has its very x.
  LifeCurve curve = WithPoints(1.0f, {{0.0f, 1.0f}, {1.0f, 1.0f}});
  const EditResult result = ClickCurve(&curve, kFrame, ClickAt(14, 138));
  EXPECT_EQ(curve.count, 3);
  EXPECT_EQ(curve.x[1], 0.0f);
  EXPECT_EQ(curve.y[1], 0.0f);
  EXPECT_EQ(result.drag, 0);
}

TEST(CurveClick, AFullCurveTakesNoMorePoints) {
  LifeCurve curve = WithSixteenPoints();
  const LifeCurve before = curve;
  const EditResult result = ClickCurve(&curve, kFrame, ClickAt(20, 30));
  EXPECT_TRUE(SameBytes(curve, before));
  EXPECT_EQ(result.drag, kNothing);

  // x = 154 is 140/192 of the plot; the point at 11/15 is further than a thousandth away, the one at 0 is
  // not.
  EXPECT_EQ(ClickCurve(&curve, kFrame, ClickAt(154, 30)).drag, kNothing);
  EXPECT_EQ(ClickCurve(&curve, kFrame, ClickAt(14, 30)).drag, 0);
}

TEST(CurveClick, GrabsAPointWithoutChangingIt) {
  LifeCurve curve = Default(2.0f);
  const LifeCurve before = curve;
  const EditResult result = ClickCurve(&curve, kFrame, ClickAt(206, 81));
  EXPECT_FALSE(result.changed);
  EXPECT_EQ(result.drag, 1);
  EXPECT_TRUE(IsHandled(result));
  EXPECT_TRUE(SameBytes(curve, before));
}

TEST(CurveClick, CommandDeletesInnerPointsOnly) {
  LifeCurve curve = WithPoints(2.0f, {{0.0f, 1.0f}, {0.25f, 1.0f}, {0.5f, 1.0f}, {1.0f, 1.0f}});
  EXPECT_EQ(ClickCurve(&curve, kFrame, CommandClickAt(14, 81)).drag, 0);
  EXPECT_EQ(ClickCurve(&curve, kFrame, CommandClickAt(206, 81)).drag, 3);
  EXPECT_EQ(curve.count, 4);

  const EditResult result = ClickCurve(&curve, kFrame, CommandClickAt(62, 81));
  EXPECT_TRUE(result.changed);
  EXPECT_EQ(result.drag, kNothing);
  EXPECT_EQ(curve.count, 3);
  EXPECT_EQ(curve.x[1], 0.5f);
  EXPECT_EQ(curve.x[2], 1.0f);
  EXPECT_EQ(curve.extra1[1], 102.0f);
  EXPECT_EQ(curve.extra2[2], 203.0f);
}

TEST(CurveClick, CommandOnATwoPointCurveGrabs) {
  LifeCurve curve = Default(2.0f);
  EXPECT_EQ(ClickCurve(&curve, kFrame, CommandClickAt(14, 81)).drag, 0);
  EXPECT_EQ(ClickCurve(&curve, kFrame, CommandClickAt(206, 81)).drag, 1);
  EXPECT_EQ(curve.count, 2);
}

TEST(CurveReset, RestoresTheFlatLineAndKeepsTheMaximum) {
  LifeCurve curve = WithSixteenPoints();
  curve.maximum = 2.0f;
  curve.extra1[7] = 9.0f;
  const EditResult result = ClickCurve(&curve, kFrame, ClickAt(180, 150));
  EXPECT_TRUE(result.changed);
  EXPECT_EQ(result.drag, kNothing);
  EXPECT_TRUE(SameBytes(curve, Default(2.0f)));
}

TEST(CurveReset, ASmallMaximumIsKeptAndTheLineLiesWithinTheEditorsRange) {
  LifeCurve curve = WithSixteenPoints();
  curve.maximum = 0.5f;
  ClickCurve(&curve, kFrame, ClickAt(180, 150));
  EXPECT_TRUE(SameBytes(curve, Default(0.5f)));
  EXPECT_EQ(curve.y[0], 0.5f);

  for (const float maximum : {0.0f, -4.0f}) {
    curve.maximum = maximum;
    ClickCurve(&curve, kFrame, ClickAt(180, 150));
    EXPECT_EQ(curve.maximum, maximum);
    EXPECT_EQ(curve.y[0], 1.0f);
    EXPECT_EQ(curve.y[1], 1.0f);
  }
}

TEST(CurveReset, ButtonBordersAreInclusive) {
  struct Case {
    int32_t x, y;
    bool resets;
  };
  for (const Case& c : {Case{163, 150, false},
                        {164, 150, true},
                        {206, 150, true},
                        {207, 150, false},
                        {180, 139, false},
                        {180, 140, true},
                        {180, 156, true},
                        {180, 157, false}}) {
    LifeCurve curve = WithSixteenPoints();
    ClickCurve(&curve, kFrame, ClickAt(c.x, c.y));
    EXPECT_EQ(curve.count, c.resets ? 2 : 16) << c.x << " " << c.y;
  }
}

TEST(CurveDrag, EndPointsMoveOnlyUpAndDown) {
  LifeCurve curve = Default(2.0f);
  EXPECT_EQ(DragCurve(&curve, kFrame, 0, {110, 81}).drag, 0);
  EXPECT_EQ(curve.x[0], 0.0f);
  EXPECT_EQ(curve.y[0], 1.0f);
  DragCurve(&curve, kFrame, 1, {110, -1000});
  EXPECT_EQ(curve.x[1], 1.0f);
  EXPECT_EQ(curve.y[1], 2.0f);
  DragCurve(&curve, kFrame, 1, {110, 1000});
  EXPECT_EQ(curve.y[1], 0.0f);
}

TEST(CurveDrag, InnerPointsKeepTheirDistance) {
  LifeCurve curve = WithPoints(1.0f, {{0.0f, 0.0f}, {0.25f, 0.0f}, {0.5f, 0.0f}, {1.0f, 0.0f}});
  DragCurve(&curve, kFrame, 1, {90, 81});
  EXPECT_EQ(curve.x[1], (90.0f - 14.0f) / 192.0f);
  DragCurve(&curve, kFrame, 1, {200, 81});
  EXPECT_EQ(curve.x[1], 0.5f - 0.005f);
  DragCurve(&curve, kFrame, 1, {-200, 81});
  EXPECT_EQ(curve.x[1], 0.0f + 0.005f);
  EXPECT_EQ(curve.x[2], 0.5f);
}

TEST(CurveDrag, BetweenCloseNeighboursTheLowerLimitWins) {
  LifeCurve curve =
      WithPoints(1.0f, {{0.0f, 0.0f}, {0.5f, 0.0f}, {0.502f, 0.0f}, {0.504f, 0.0f}, {1.0f, 0.0f}});
  DragCurve(&curve, kFrame, 2, {110, 81});
  EXPECT_EQ(curve.x[2], 0.5f + 0.005f);
  EXPECT_GT(curve.x[2], curve.x[3]);
}

TEST(CurveDrag, IndicesThatAreNoPointChangeNothing) {
  const LifeCurve start = Default(1.0f);
  for (const int64_t index : {int64_t{-1}, int64_t{2}, int64_t{16}, int64_t{1} << 32,
                              std::numeric_limits<int64_t>::min(), std::numeric_limits<int64_t>::max()}) {
    LifeCurve curve = start;
    EXPECT_FALSE(IsHandled(DragCurve(&curve, kFrame, index, {62, 60}))) << index;
    EXPECT_TRUE(SameBytes(curve, start)) << index;
  }
}

TEST(CurveDrag, NeighboursThatAreNotFiniteSetNoLimit) {
  for (const float hostile : {kNan, kInfinity, -kInfinity}) {
    LifeCurve curve = WithPoints(1.0f, {{hostile, 0.0f}, {0.5f, 0.0f}, {hostile, 0.0f}});
    DragCurve(&curve, kFrame, 1, {62, 81});
    EXPECT_EQ(curve.x[1], 0.25f) << hostile;
  }
}

TEST(CurveHostile, CountsOutsideTheArraysAreSafe) {
  LifeCurve curve = Default(1.0f);
  curve.count = std::numeric_limits<int32_t>::min();
  EXPECT_EQ(ClickCurve(&curve, kFrame, ClickAt(110, 81)).drag, 0);
  EXPECT_EQ(curve.count, 1);
  EXPECT_EQ(DragCurve(&curve, kFrame, 0, {62, 138}).drag, 0);
  EXPECT_EQ(curve.x[0], 0.5f) << "the only point is the first and the last";

  curve = WithSixteenPoints();
  curve.count = std::numeric_limits<int32_t>::max();
  EXPECT_EQ(ClickCurve(&curve, kFrame, ClickAt(206, 138)).drag, 15);
  EXPECT_TRUE(ClickCurve(&curve, kFrame, CommandClickAt(193, 138)).changed);
  EXPECT_EQ(curve.count, 15);
}

TEST(CurveControl, WithoutRoomForAPlotNothingHappens) {
  const LifeCurve start = Default(1.0f);
  for (const ControlFrame& frame : {ControlFrame{10, 20, 10, 160},
                                    {10, 20, 11, 160},
                                    {10, 20, 18, 160},
                                    {10, 20, 50, 46},
                                    {10, 20, 50, 20},
                                    {210, 160, 10, 20}}) {
    for (int32_t y = 15; y < 165; y += 3) {
      LifeCurve curve = start;
      EXPECT_FALSE(IsHandled(ClickCurve(&curve, frame, ClickAt(14, y))));
      EXPECT_FALSE(IsHandled(DragCurve(&curve, frame, 1, {14, y})));
      EXPECT_TRUE(SameBytes(curve, start));
    }
  }
}

TEST(CurveControl, AFlatControlStillHasItsButton) {
  // 26 pixels high: no plot, but the strip with the button, from y = 26 to 42.
  const ControlFrame frame = {10, 20, 210, 46};
  LifeCurve curve = WithSixteenPoints();
  EXPECT_FALSE(IsHandled(ClickCurve(&curve, frame, ClickAt(110, 30))));
  EXPECT_TRUE(ClickCurve(&curve, frame, ClickAt(180, 30)).changed);
  EXPECT_EQ(curve.count, 2);
}

TEST(CurveControl, APlotOfOnePixelTakesClicks) {
  const ControlFrame frame = {10, 20, 19, 47};
  EXPECT_FALSE(HasResetButton(frame));
  LifeCurve curve = Default(1.0f);
  curve.y[0] = curve.y[1] = 0.0f;
  const EditResult result = DragCurve(&curve, frame, 1, {14, 24});
  EXPECT_EQ(result.drag, 1);
  EXPECT_EQ(curve.y[1], 1.0f);
}

TEST(CurveControl, AnyRectangleIsSafe) {
  constexpr int32_t kMin = std::numeric_limits<int32_t>::min();
  constexpr int32_t kMax = std::numeric_limits<int32_t>::max();
  LifeCurve curve = Default(1.0f);
  for (const ControlFrame& frame : {ControlFrame{kMin, kMin, kMax, kMax},
                                    {kMax, kMax, kMin, kMin},
                                    {kMax - 200, kMax - 140, kMax, kMax},
                                    {kMin, kMin, kMin + 200, kMin + 140}}) {
    ClickCurve(&curve, frame, ClickAt(kMax, kMin));
    DragCurve(&curve, frame, 1, {kMin, kMax});
    for (int32_t i = 0; i < curve.count; ++i) {
      EXPECT_GE(curve.x[i], 0.0f);
      EXPECT_LE(curve.x[i], 1.0f);
    }
  }
}

}  // namespace
}  // namespace vantle
