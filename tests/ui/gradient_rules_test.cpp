// Editing a gradient with the mouse, without a host. The control is 200 x 40 at (10, 20): the mouse sees the
// bar from x = 14.5 to 206.5 and from y = 24.5 to 44.5, and 96 pixels are half of it.
#include "ui/gradient_rules.h"

#include <cmath>
#include <cstring>
#include <gtest/gtest.h>
#include <limits>

namespace vantle {
namespace {

constexpr ControlFrame kFrame = {10, 20, 210, 60};
constexpr float kNan = std::numeric_limits<float>::quiet_NaN();
constexpr float kInfinity = std::numeric_limits<float>::infinity();

ColorGradient Default() {
  ColorGradient gradient;
  MakeDefaultGradient(&gradient);
  return gradient;
}

ColorGradient WithPositions(std::initializer_list<float> positions) {
  ColorGradient gradient = {};
  gradient.tag = 1;
  gradient.selected = kNothing;
  for (const float position : positions) {
    gradient.stops[gradient.count] = {position, 0.1f * static_cast<float>(gradient.count), 0.5f, 0.25f};
    ++gradient.count;
  }
  return gradient;
}

MouseClick ClickAt(int32_t x, int32_t y) {
  return {{x, y}, false, false};
}

MouseClick CommandClickAt(int32_t x, int32_t y) {
  return {{x, y}, true, false};
}

bool SameBytes(const ColorGradient& a, const ColorGradient& b) {
  return std::memcmp(&a, &b, sizeof(a)) == 0;
}

TEST(GradientHit, ReachesLessThanSixPixelsToEachSide) {
  // The middle handle's centre is at 110.5: 105 is 5.5 away, 104 is 6.5.
  const ColorGradient gradient = Default();
  EXPECT_EQ(HitGradientStop(gradient, kFrame, {105, 50}), 1);
  EXPECT_EQ(HitGradientStop(gradient, kFrame, {104, 50}), kNothing);
  EXPECT_EQ(HitGradientStop(gradient, kFrame, {116, 50}), 1);
  EXPECT_EQ(HitGradientStop(gradient, kFrame, {117, 50}), kNothing);
}

TEST(GradientHit, SixPixelsExactlyIsAMiss) {
  // A bar of 128 pixels: the stop at 1/256 lies half a pixel to the right of 14.5, on a whole number.
  const ControlFrame frame = {10, 20, 146, 60};
  const ColorGradient gradient = WithPositions({0.00390625f, 1.0f});
  EXPECT_EQ(HitGradientStop(gradient, frame, {20, 50}), 0);
  EXPECT_EQ(HitGradientStop(gradient, frame, {21, 50}), kNothing);
  EXPECT_EQ(HitGradientStop(gradient, frame, {9, 50}), kNothing);
}

TEST(GradientHit, CoversBarAndHandlesInHeight) {
  // From top + 2.5 to top + 38.5.
  const ColorGradient gradient = Default();
  EXPECT_EQ(HitGradientStop(gradient, kFrame, {110, 22}), kNothing);
  EXPECT_EQ(HitGradientStop(gradient, kFrame, {110, 23}), 1);
  EXPECT_EQ(HitGradientStop(gradient, kFrame, {110, 58}), 1);
  EXPECT_EQ(HitGradientStop(gradient, kFrame, {110, 59}), kNothing);
}

TEST(GradientHit, LowestIndexWins) {
  const ColorGradient gradient = WithPositions({0.5f, 0.5f, 0.5f, 0.51f, 0.5f, 0.5f, 0.5f, 0.5f});
  EXPECT_EQ(HitGradientStop(gradient, kFrame, {110, 50}), 0);
}

TEST(GradientHit, StopsOutsideTheBarAreGrabbedAtItsEnds) {
  const ColorGradient gradient = WithPositions({kNan, -kInfinity, kInfinity, 7.0f});
  EXPECT_EQ(HitGradientStop(gradient, kFrame, {14, 50}), 0);
  EXPECT_EQ(HitGradientStop(gradient, kFrame, {206, 50}), 2);
}

TEST(GradientHit, CountsOutsideTheArrayAreHeldToIt) {
  ColorGradient gradient = WithPositions({0.0f, 0.1f, 0.2f, 0.3f, 0.4f, 0.5f, 0.6f, 0.7f});
  gradient.count = std::numeric_limits<int32_t>::max();
  EXPECT_EQ(HitGradientStop(gradient, kFrame, {149, 50}), 7);
  gradient.count = std::numeric_limits<int32_t>::min();
  EXPECT_EQ(HitGradientStop(gradient, kFrame, {149, 50}), kNothing);
}

TEST(GradientClick, AddsAStopOfTheColourUnderIt) {
  ColorGradient gradient = Default();
  const float t = (62.0f - 14.5f) / 192.0f;
  const Color expected = EvaluateGradient(gradient, t);
  const EditResult result = ClickGradient(&gradient, kFrame, ClickAt(62, 30));

  EXPECT_TRUE(result.changed);
  EXPECT_EQ(result.drag, 1);
  EXPECT_EQ(gradient.count, 4);
  EXPECT_EQ(gradient.selected, 1);
  EXPECT_EQ(gradient.stops[0].position, 0.0f);
  EXPECT_EQ(gradient.stops[1].position, t);
  EXPECT_EQ(gradient.stops[1].r, expected.r);
  EXPECT_EQ(gradient.stops[1].g, expected.g);
  EXPECT_EQ(gradient.stops[1].b, expected.b);
  EXPECT_EQ(gradient.stops[2].position, 0.5f);
  EXPECT_EQ(gradient.stops[3].position, 1.0f);
}

TEST(GradientClick, BarBordersAreInclusive) {
  // Whole numbers inside [14.5, 206.5] x [24.5, 44.5], with the stops out of the way.
  const ColorGradient start = WithPositions({0.5f, 0.5f});
  struct Case {
    int32_t x, y;
    bool adds;
  };
  for (const Case& c : {Case{14, 30, false},
                        {15, 30, true},
                        {206, 30, true},
                        {207, 30, false},
                        {60, 24, false},
                        {60, 25, true},
                        {60, 44, true},
                        {60, 45, false}}) {
    ColorGradient gradient = start;
    const EditResult result = ClickGradient(&gradient, kFrame, ClickAt(c.x, c.y));
    EXPECT_EQ(result.changed, c.adds) << c.x << " " << c.y;
    EXPECT_EQ(IsHandled(result), c.adds) << c.x << " " << c.y;
    EXPECT_EQ(gradient.count, c.adds ? 3 : 2) << c.x << " " << c.y;
    if (!c.adds) {
      EXPECT_TRUE(SameBytes(gradient, start));
    }
  }
}

TEST(GradientClick, FullGradientTakesNoMoreStops) {
  ColorGradient gradient = WithPositions({0.5f, 0.5f, 0.5f, 0.5f, 0.5f, 0.5f, 0.5f, 0.5f});
  gradient.selected = 3;
  const ColorGradient before = gradient;
  const EditResult result = ClickGradient(&gradient, kFrame, ClickAt(20, 30));

  EXPECT_TRUE(result.changed);
  EXPECT_EQ(result.drag, kNothing);
  EXPECT_EQ(gradient.selected, kNothing);
  EXPECT_EQ(gradient.count, 8);
  EXPECT_EQ(std::memcmp(gradient.stops, before.stops, sizeof(before.stops)), 0);
}

TEST(GradientClick, FullGradientSelectsAStopAtTheVeryPlace) {
  // A bar so wide that a thousandth of it is more than the reach of a handle.
  const ControlFrame wide = {0, 0, 20008, 40};
  ColorGradient gradient = WithPositions({0.0f, 0.1f, 0.2f, 0.3f, 0.5f, 0.6f, 0.7f, 1.0f});
  const EditResult result = ClickGradient(&gradient, wide, ClickAt(10014, 10));
  EXPECT_TRUE(result.changed);
  EXPECT_EQ(result.drag, 4);
  EXPECT_EQ(gradient.selected, 4);
  EXPECT_EQ(gradient.count, 8);
}

TEST(GradientClick, SelectsAndGrabsAStop) {
  ColorGradient gradient = Default();
  const EditResult result = ClickGradient(&gradient, kFrame, ClickAt(206, 50));
  EXPECT_TRUE(result.changed);
  EXPECT_EQ(result.drag, 2);
  EXPECT_EQ(gradient.selected, 2);
  EXPECT_EQ(gradient.count, 3);
}

TEST(GradientClick, CommandDeletesTheStop) {
  ColorGradient gradient = Default();
  gradient.selected = 2;
  const EditResult result = ClickGradient(&gradient, kFrame, CommandClickAt(110, 50));
  EXPECT_TRUE(result.changed);
  EXPECT_EQ(result.drag, kNothing);
  EXPECT_EQ(gradient.count, 2);
  EXPECT_EQ(gradient.stops[1].position, 1.0f);
  EXPECT_EQ(gradient.selected, kNothing);
}

TEST(GradientClick, DeletingKeepsASelectionBelowTheCount) {
  ColorGradient gradient = WithPositions({0.0f, 0.5f, 0.7f, 1.0f});
  gradient.selected = 2;
  ClickGradient(&gradient, kFrame, CommandClickAt(14, 50));
  EXPECT_EQ(gradient.count, 3);
  EXPECT_EQ(gradient.selected, 2);
}

TEST(GradientClick, CommandOnTheLastTwoStopsGrabsInstead) {
  ColorGradient gradient = WithPositions({0.0f, 1.0f});
  const EditResult result = ClickGradient(&gradient, kFrame, CommandClickAt(206, 50));
  EXPECT_EQ(gradient.count, 2);
  EXPECT_EQ(gradient.selected, 1);
  EXPECT_EQ(result.drag, 1);
}

TEST(GradientClick, DoubleClickAsksForAColour) {
  ColorGradient gradient = Default();
  const EditResult result = ClickGradient(&gradient, kFrame, {{110, 50}, false, true});
  EXPECT_TRUE(result.changed);
  EXPECT_EQ(result.recolour, 1);
  EXPECT_EQ(result.drag, kNothing);
  EXPECT_EQ(gradient.selected, 1);
}

TEST(GradientClick, CountsOutsideTheArrayAreSafe) {
  ColorGradient gradient = {};
  gradient.count = -5;
  EXPECT_EQ(ClickGradient(&gradient, kFrame, ClickAt(110, 30)).drag, 0);
  EXPECT_EQ(gradient.count, 1);
  EXPECT_EQ(gradient.stops[0].r, 1.0f) << "a gradient without stops is white";

  gradient = WithPositions({0.0f, 0.1f, 0.2f, 0.3f, 0.4f, 0.5f, 0.6f, 1.0f});
  gradient.count = 1000000;
  ClickGradient(&gradient, kFrame, CommandClickAt(206, 50));
  EXPECT_EQ(gradient.count, 7);
}

TEST(GradientDrag, FollowsTheMouseAndStopsAtTheEnds) {
  ColorGradient gradient = Default();
  EXPECT_EQ(DragGradient(&gradient, kFrame, 1, {62, 500}).drag, 1);
  EXPECT_EQ(gradient.stops[1].position, (62.0f - 14.5f) / 192.0f);
  DragGradient(&gradient, kFrame, 1, {-5000, 0});
  EXPECT_EQ(gradient.stops[1].position, 0.0f);
  DragGradient(&gradient, kFrame, 1, {5000, 0});
  EXPECT_EQ(gradient.stops[1].position, 1.0f);
}

TEST(GradientDrag, PassesNeighboursBySwapping) {
  ColorGradient gradient = Default();
  const EditResult right = DragGradient(&gradient, kFrame, 0, {158, 50});
  EXPECT_EQ(right.drag, 1);
  EXPECT_EQ(gradient.selected, 1);
  EXPECT_EQ(gradient.stops[0].position, 0.5f);
  EXPECT_EQ(gradient.stops[0].g, 1.0f);
  EXPECT_EQ(gradient.stops[1].r, 1.0f);
  EXPECT_EQ(gradient.stops[1].b, 0.0f);

  const EditResult left = DragGradient(&gradient, kFrame, 1, {0, 50});
  EXPECT_EQ(left.drag, 0);
  EXPECT_EQ(gradient.selected, 0);
  EXPECT_EQ(gradient.stops[0].b, 0.0f);
  EXPECT_EQ(gradient.stops[2].position, 1.0f);
}

TEST(GradientDrag, StaysBesideAnEqualNeighbour) {
  ColorGradient gradient = WithPositions({0.0f, 1.0f, 1.0f});
  EXPECT_EQ(DragGradient(&gradient, kFrame, 0, {5000, 0}).drag, 0);
  EXPECT_EQ(DragGradient(&gradient, kFrame, 2, {5000, 0}).drag, 2);
}

TEST(GradientDrag, OutOfEightOnOnePlaceOnlyTheGrabbedOneMoves) {
  ColorGradient gradient = WithPositions({0.5f, 0.5f, 0.5f, 0.5f, 0.5f, 0.5f, 0.5f, 0.5f});
  EXPECT_EQ(DragGradient(&gradient, kFrame, 0, {206, 50}).drag, 7);
  EXPECT_EQ(gradient.stops[7].r, 0.0f);
  for (int32_t i = 0; i < 7; ++i) {
    EXPECT_EQ(gradient.stops[i].position, 0.5f);
    EXPECT_EQ(gradient.stops[i].r, 0.1f * static_cast<float>(i + 1));
  }
}

TEST(GradientDrag, IndicesThatAreNoStopChangeNothing) {
  const ColorGradient start = Default();
  for (const int64_t index : {int64_t{-1}, int64_t{3}, int64_t{8}, int64_t{1} << 32,
                              std::numeric_limits<int64_t>::min(), std::numeric_limits<int64_t>::max()}) {
    ColorGradient gradient = start;
    const EditResult result = DragGradient(&gradient, kFrame, index, {62, 30});
    EXPECT_FALSE(IsHandled(result)) << index;
    EXPECT_TRUE(SameBytes(gradient, start)) << index;
  }
}

TEST(GradientDrag, UnsortedAndNotFinitePositionsAreSafe) {
  ColorGradient gradient = WithPositions({0.9f, kNan, kInfinity, 0.2f, -kInfinity, 0.1f});
  for (int32_t i = 0; i < 6; ++i) {
    const EditResult result = DragGradient(&gradient, kFrame, i, {110, 30});
    ASSERT_GE(result.drag, 0);
    ASSERT_LT(result.drag, 6);
    EXPECT_EQ(gradient.stops[result.drag].position, (110.0f - 14.5f) / 192.0f);
  }
}

TEST(GradientControl, WithoutRoomForABarNothingHappens) {
  const ColorGradient start = Default();
  for (const int32_t width : {-200, 0, 1, 8}) {
    const ControlFrame frame = {10, 20, 10 + width, 60};
    EXPECT_EQ(GradientBarWidth(frame), 0.0f);
    for (int32_t x = 0; x < 30; ++x) {
      ColorGradient gradient = start;
      EXPECT_FALSE(IsHandled(ClickGradient(&gradient, frame, ClickAt(x, 30))));
      EXPECT_FALSE(IsHandled(DragGradient(&gradient, frame, 1, {x, 30})));
      EXPECT_TRUE(SameBytes(gradient, start));
    }
  }
}

TEST(GradientControl, ABarOfOnePixelTakesClicks) {
  const ControlFrame frame = {10, 20, 19, 60};
  ColorGradient gradient = WithPositions({0.0f, 1.0f});
  EXPECT_EQ(ClickGradient(&gradient, frame, ClickAt(15, 30)).drag, 0);
  DragGradient(&gradient, frame, 0, {15, 30});
  EXPECT_EQ(gradient.stops[0].position, 0.5f);
}

TEST(GradientControl, AnyRectangleIsSafe) {
  constexpr int32_t kMin = std::numeric_limits<int32_t>::min();
  constexpr int32_t kMax = std::numeric_limits<int32_t>::max();
  ColorGradient gradient = Default();
  for (const ControlFrame& frame : {ControlFrame{kMin, kMin, kMax, kMax},
                                    {kMax, kMax, kMin, kMin},
                                    {kMax - 100, kMax - 40, kMax, kMax},
                                    {kMin, kMin, kMin + 200, kMin + 40}}) {
    ClickGradient(&gradient, frame, ClickAt(kMax, kMin));
    DragGradient(&gradient, frame, 0, {kMin, kMax});
    EXPECT_GE(gradient.stops[0].position, 0.0f);
    EXPECT_LE(gradient.stops[0].position, 1.0f);
  }
}

TEST(GradientRecolour, WritesTheStopThatStillExists) {
  ColorGradient gradient = Default();
  EXPECT_TRUE(RecolourGradientStop(&gradient, 2, {0.25f, 0.5f, 0.75f}));
  EXPECT_EQ(gradient.stops[2].r, 0.25f);
  EXPECT_EQ(gradient.stops[2].g, 0.5f);
  EXPECT_EQ(gradient.stops[2].b, 0.75f);
  EXPECT_EQ(gradient.stops[2].position, 1.0f);

  const ColorGradient before = gradient;
  EXPECT_FALSE(RecolourGradientStop(&gradient, 3, {0.0f, 0.0f, 0.0f}));
  EXPECT_FALSE(RecolourGradientStop(&gradient, -1, {0.0f, 0.0f, 0.0f}));
  EXPECT_TRUE(SameBytes(gradient, before));
}

}  // namespace
}  // namespace vantle
