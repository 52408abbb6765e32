#include "particles/trails.h"

#include "tests/particles/test_frames.h"

#include <cmath>
#include <gtest/gtest.h>

namespace vantle {
namespace {

using testing::MakeLayer;
using testing::PlainSettings;
using testing::Simulate;
using testing::TestLayer;

/// Particles from (20, 50) to (120, 50), flat on the screen.
ParticleList Travellers(float transform, float size, float stagger = 0.0f) {
  TestLayer a = MakeLayer(200, 100, PixelDepth::k8), b = a;
  b.view.data = b.bytes.data();
  a.Set(20, 50, 1, 1, 1, 1);
  b.Set(120, 50, 1, 1, 1, 1);
  FrameSettings s = PlainSettings(200, 100);
  s.shape = SHAPE_CURVE_LINE;
  s.density = 3;
  s.transform = transform;
  s.size = size;
  s.stagger = stagger;
  s.staggerBy = 3;
  return Simulate(&a, &b, s);
}

std::vector<Vec2> TrailOf(const ParticleList& list, size_t i) {
  const uint32_t slot = list.particles[i].curvePoints;
  const Vec2* points = list.curvePoints.points.data() + size_t{slot} * kMaxTrailPoints;
  return {points, points + list.curvePoints.counts[slot]};
}

float LengthOf(const std::vector<Vec2>& trail) {
  float length = 0.0f;
  for (size_t i = 1; i < trail.size(); ++i) {
    length += std::hypot(trail[i].x - trail[i - 1].x, trail[i].y - trail[i - 1].y);
  }
  return length;
}

TEST(Trails, AreFourSizesLongWhereThePathIs) {
  const std::vector<Vec2> trail = TrailOf(Travellers(0.8f, 5.0f), 1);
  EXPECT_EQ(trail[0].x, 100.0f);
  EXPECT_NEAR(LengthOf(trail), 20.0f, 1e-3f);
  EXPECT_NEAR(trail.back().x, 80.0f, 1e-3f);
  EXPECT_NEAR(trail[1].x, 100.0f - 80.0f / 24.0f, 1e-4f);
}

TEST(Trails, NeverFillTheirRoom) {
  constexpr size_t kMost = 26;
  static_assert(kMost < size_t{kMaxTrailPoints});
  for (int i = 0; i <= 3000; ++i) {
    const float transform = i <= 1000 ? static_cast<float>(i) * 3e-5f : static_cast<float>(i) / 3000.0f;
    const ParticleList list = Travellers(transform, 500.0f);
    for (size_t k = 0; k < list.count; ++k) ASSERT_LE(TrailOf(list, k).size(), kMost) << transform;
  }
}

TEST(Trails, EndAtTheStartOfThePath) {
  const std::vector<Vec2> trail = TrailOf(Travellers(0.8f, 500.0f), 0);
  // Twenty-four steps; a last crumb above the limit would make one more.
  EXPECT_GE(trail.size(), 25u);
  EXPECT_NEAR(trail.back().x, 20.0f, 1e-3f);
}

TEST(Trails, OfAShortWayTakeTheLeastStep) {
  const std::vector<Vec2> trail = TrailOf(Travellers(0.008f, 500.0f), 0);
  EXPECT_NEAR(trail[0].x - trail[1].x, 0.08f, 1e-4f);
  EXPECT_NEAR(trail.back().x, 20.0f, 1e-3f);
}

TEST(Trails, NeverNeedMoreThanTwentySixPoints) {
  for (float transform = 0.0f; transform <= 1.0f; transform += 0.0037f) {
    const ParticleList list = Travellers(transform, 100.0f);
    ASSERT_LE(TrailOf(list, 0).size(), 26u) << transform;
    ASSERT_GE(TrailOf(list, 0).size(), 2u) << transform;
  }
}

TEST(Trails, OfParticlesThatHaveNotMovedPointAgainstTheirWay) {
  const std::vector<Vec2> trail = TrailOf(Travellers(0.0f, 5.0f), 2);
  ASSERT_EQ(trail.size(), 2u);
  EXPECT_EQ(trail[0].x, 20.0f);
  EXPECT_NEAR(trail[1].x, 0.0f, 1e-4f);
  EXPECT_EQ(trail[1].y, 50.0f);
}

TEST(Trails, OfParticlesWithoutAnyWayPointLeft) {
  TestLayer a = MakeLayer(200, 100, PixelDepth::k8);
  a.Set(50, 50, 1, 1, 1, 1);
  FrameSettings s = PlainSettings(200, 100);
  s.shape = SHAPE_CURVED_ARROW;
  s.transform = 0.0f;
  const ParticleList list = Simulate(&a, &a, s);
  const std::vector<Vec2> trail = TrailOf(list, 0);
  ASSERT_EQ(trail.size(), 2u);
  EXPECT_EQ(trail[1].x, 50.0f - 16.0f);
}

TEST(Trails, WalkFromTheFramesProgressAndNotTheParticles) {
  // Held back by half, the particle stands at (T - 0.5) / 0.5 of its way, and the walk still begins at T.
  const ParticleList list = Travellers(0.75f, 500.0f, 0.5f);
  const std::vector<Vec2> trail = TrailOf(list, 0);
  EXPECT_EQ(trail[0].x, 70.0f);
  EXPECT_NEAR(trail[1].x, 20.0f + 100.0f * (0.75f - 0.75f / 24.0f), 1e-3f);
}

TEST(Trails, BelongToTheCurvedShapesOnlyAndSlotsSurviveSorting) {
  TestLayer a = testing::RandomLayer(60, 40, PixelDepth::k8, 0.1f, 1);
  FrameSettings s = PlainSettings(60, 40);
  s.planeA.thickness = s.planeB.thickness = 100.0f;
  EXPECT_TRUE(Simulate(&a, &a, s).curvePoints.counts.empty());
  s.shape = SHAPE_CURVED_ARROW;
  ParticleList list = Simulate(&a, &a, s);
  SortBackToFront(&list);
  for (size_t i = 0; i < list.count; ++i) {
    ASSERT_GE(list.particles[i > 0 ? i - 1 : 0].depth, list.particles[i].depth);
    const std::vector<Vec2> trail = TrailOf(list, i);
    ASSERT_EQ(trail[0].x, list.particles[i].sx);
    ASSERT_EQ(trail[0].y, list.particles[i].sy);
  }
}

}  // namespace
}  // namespace vantle
