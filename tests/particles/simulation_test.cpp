#include "particles/simulation.h"

#include "base/floating_environment.h"
#include "tests/particles/test_frames.h"

#include <cstring>
#include <gtest/gtest.h>

namespace vantle {
namespace {

using testing::PlainSettings;
using testing::RandomLayer;
using testing::SameBytes;
using testing::SetThreads;
using testing::Simulate;
using testing::TestLayer;

/// Settings that use every control at once.
FrameSettings FullSettings(int32_t width, int32_t height) {
  FrameSettings s = PlainSettings(width, height);
  MakeDefaultGradient(&s.colorGradient);
  s.density = 5000;
  s.scatter = 0.3f;
  s.swirlAngle = 70.0f;
  s.stagger = 0.4f;
  s.variationA = -0.5f;
  s.variationB = 0.8f;
  s.planeA.thickness = s.planeB.thickness = 60.0f;
  s.planeB.rotation[1] = 30.0f;
  s.viewAngle = 40.0f;
  s.turbulenceAmount = 0.1f;
  s.turbulenceZDepth = 0.2f;
  s.sizeVariation = 0.9f;
  s.colorMode = 2;
  s.hueVariation = 0.2f;
  s.opacityVariation = 0.5f;
  s.spin[2] = 90.0f;
  s.autoOrient = true;
  s.shape = SHAPE_CURVE_LINE;
  return s;
}

TEST(SimulateParticles, CountsWhatTheDensityAsksForWithinLimits) {
  const TestLayer a = RandomLayer(20, 20, PixelDepth::k8, 0.0f, 1);
  FrameSettings s = PlainSettings(20, 20);
  for (const auto& [density, expected] : {std::pair<int32_t, size_t>{0, 1},
                                          {-5, 1},
                                          {1, 1},
                                          {17, 17},
                                          {1024, 1024},
                                          {1025, 1025},
                                          {300000, 200000},
                                          {INT32_MAX, 200000}}) {
    s.density = density;
    EXPECT_EQ(Simulate(&a, &a, s).count, expected);
  }
}

TEST(SimulateParticles, HasNoneWithoutPoints) {
  const TestLayer empty = testing::MakeLayer(20, 20, PixelDepth::k8);
  EXPECT_EQ(Simulate(&empty, nullptr, PlainSettings(20, 20)).count, 0u);
  EXPECT_EQ(Simulate(nullptr, nullptr, PlainSettings(20, 20)).count, 0u);
}

TEST(SimulateParticles, DoesNotDependOnTheNumberOfThreads) {
  const TestLayer a = RandomLayer(90, 70, PixelDepth::k8, 0.3f, 1),
                  b = RandomLayer(50, 99, PixelDepth::k8, 0.5f, 2);
  const FrameSettings s = FullSettings(96, 80);
  SetThreads(1);
  const ParticleList one = Simulate(&a, &b, s);
  EXPECT_GT(one.count, 1000u);
  for (const int threads : {2, 3, 8, 1}) {
    SetThreads(threads);
    EXPECT_TRUE(SameBytes(one, Simulate(&a, &b, s))) << threads << " threads";
  }
}

TEST(SimulateParticles, DoesNotCareForTheCallersFloatingEnvironment) {
  const TestLayer a = RandomLayer(90, 70, PixelDepth::k8, 0.3f, 1);
  const FrameSettings s = FullSettings(96, 80);
  const ParticleList expected = Simulate(&a, &a, s);
  const unsigned before = _mm_getcsr();
  _mm_setcsr(before | 0x4000u | 0x8040u);
  const ParticleList found = Simulate(&a, &a, s);
  _mm_setcsr(before);
  EXPECT_TRUE(SameBytes(expected, found));
}

TEST(SimulateParticles, MoreParticlesLeaveTheOthersAlone) {
  const TestLayer a = RandomLayer(90, 70, PixelDepth::k8, 0.3f, 1);
  FrameSettings s = FullSettings(96, 80);
  s.shape = SHAPE_CIRCLE;
  s.density = 100;
  const ParticleList few = Simulate(&a, &a, s);
  s.density = 3333;
  const ParticleList many = Simulate(&a, &a, s);
  for (size_t i = 0; i < few.count; ++i) {
    // `curvePoints` says nothing about other shapes.
    ASSERT_EQ(std::memcmp(&few.particles[i], &many.particles[i], offsetof(ProjectedParticle, curvePoints)),
              0);
  }
}

TEST(SimulateParticles, KeepsTheVisibleInIndexOrder) {
  const TestLayer a = RandomLayer(90, 70, PixelDepth::k8, 0.3f, 1);
  FrameSettings s = FullSettings(96, 80);
  s.shape = SHAPE_CIRCLE;
  s.colorMode = 1;
  s.hueVariation = 0.0f;
  const ParticleList all = Simulate(&a, &a, s);
  ASSERT_EQ(all.count, 5000u);
  // A thin camera range: particles at depths under 0.1 are not kept.
  CameraData camera;
  camera.hasCamera = true;
  camera.imagePlaneDistance = 100.0;
  const ParticleList some = Simulate(&a, &a, s, camera);
  ASSERT_GT(some.count, 100u);
  ASSERT_LT(some.count, 4900u);
  size_t at = 0;
  for (size_t i = 0; i < some.count; ++i) {
    while (at < all.count && all.particles[at].random != some.particles[i].random) ++at;
    ASSERT_LT(at, all.count) << "out of order at " << i;
  }
}

TEST(SimulateParticles, TheEmptiestTransformEndsOnTheOtherLayer) {
  TestLayer a = testing::MakeLayer(30, 30, PixelDepth::k8), b = testing::MakeLayer(30, 30, PixelDepth::k8);
  a.Set(3, 4, 1, 1, 1, 1);
  b.Set(20, 25, 1, 1, 1, 1);
  FrameSettings s = PlainSettings(30, 30);
  for (const auto& [transform, x, y] :
       {std::tuple{0.0f, 3.0f, 4.0f}, {1.0f, 20.0f, 25.0f}, {-9.0f, 3.0f, 4.0f}, {9.0f, 20.0f, 25.0f}}) {
    s.transform = transform;
    const ParticleList list = Simulate(&a, &b, s);
    EXPECT_EQ(list.particles[7].sx, x);
    EXPECT_EQ(list.particles[7].sy, y);
  }
}

TEST(SimulateParticles, ReducedLayersLieWhereTheFullOnesDo) {
  // At half resolution pixel (3, 4) of a layer as large as the output stands at (6, 8).
  TestLayer a = testing::MakeLayer(30, 30, PixelDepth::k8);
  a.Set(3, 4, 1, 1, 1, 1);
  FrameSettings s = PlainSettings(30, 30);
  s.fullWidth = s.fullHeight = 60;
  s.downsampleX = s.downsampleY = 0.5f;
  EXPECT_EQ(Simulate(&a, &a, s).particles[0].sx, 6.0f);
  EXPECT_EQ(Simulate(&a, &a, s).particles[0].sy, 8.0f);
  s.downsampleX = 0.001f;  // counts as 1
  EXPECT_EQ(Simulate(&a, &a, s).particles[0].sx, 3.0f);
}

TEST(ScaleToPreview, ScalesPlacesByEachAxisAndLengthsByTheSmaller) {
  const TestLayer a = RandomLayer(90, 70, PixelDepth::k8, 0.3f, 1);
  FrameSettings s = FullSettings(96, 80);
  const ParticleList full = Simulate(&a, &a, s);
  ParticleList half = Simulate(&a, &a, s);
  s.downsampleX = 0.5f;
  s.downsampleY = 0.25f;
  ScaleToPreview(s, &half);
  for (size_t i = 0; i < full.count; ++i) {
    const ProjectedParticle &f = full.particles[i], &h = half.particles[i];
    ASSERT_EQ(h.sx, f.sx * 0.5f);
    ASSERT_EQ(h.sy, f.sy * 0.25f);
    ASSERT_EQ(h.size, f.size * 0.25f);
    ASSERT_EQ(h.lineWidth, f.lineWidth * 0.25f);
    ASSERT_EQ(h.cocRadius, f.cocRadius * 0.25f);
    const size_t at = size_t{f.curvePoints} * kMaxTrailPoints;
    ASSERT_EQ(half.curvePoints.points[at + 1].x, full.curvePoints.points[at + 1].x * 0.5f);
    ASSERT_EQ(half.curvePoints.points[at + 1].y, full.curvePoints.points[at + 1].y * 0.25f);
  }
}

TEST(ScaleToPreview, LeavesFullResolutionAlone) {
  const TestLayer a = RandomLayer(90, 70, PixelDepth::k8, 0.3f, 1);
  FrameSettings s = FullSettings(96, 80);
  const ParticleList before = Simulate(&a, &a, s);
  ParticleList after = Simulate(&a, &a, s);
  s.downsampleX = s.downsampleY = 0.999f;
  ScaleToPreview(s, &after);
  EXPECT_TRUE(SameBytes(before, after));
  ParticleList nothing;
  s.downsampleX = 0.5f;
  ScaleToPreview(s, &nothing);
  SortBackToFront(&nothing);
  EXPECT_EQ(nothing.count, 0u);
}

}  // namespace
}  // namespace vantle
