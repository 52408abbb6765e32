// Paths on paper: single-pixel layers pin both ends of every particle.

#include "particles/motion.h"

#include "particles/particle_streams.h"
#include "tests/particles/test_frames.h"

#include <cmath>
#include <gtest/gtest.h>

namespace vantle {
namespace {

using testing::MakeLayer;
using testing::PlainSettings;
using testing::TestLayer;

constexpr int32_t kSize = 100;

/// A layer that emits at one pixel only.
TestLayer Dot(int32_t x, int32_t y, float r = 1.0f, float g = 1.0f, float b = 1.0f, float a = 1.0f) {
  TestLayer layer = MakeLayer(kSize, kSize, PixelDepth::k32);
  layer.Set(x, y, a, r, g, b);
  return layer;
}

struct Started {
  Emission emission;
  FrameConstants frame;
  ParticleLanes lanes;
  VectorLanes positions;
};

/// The first kLanes particles of the frame.
void Start(const TestLayer* a, const TestLayer* b, const FrameSettings& s, Started* out) {
  out->emission = BuildEmission(a ? a->view : ImageView{}, b ? b->view : ImageView{}, {}, s);
  out->frame = MakeFrameConstants(out->emission, s);
  int32_t indices[kLanes];
  for (int32_t l = 0; l < kLanes; ++l) indices[l] = l;
  StartParticles(out->frame, indices, &out->lanes);
  PositionsAt(out->frame, out->lanes.path, out->lanes.progress, &out->positions);
}

FrameSettings SettingsAt(float transform) {
  FrameSettings s = PlainSettings(kSize, kSize);
  s.transform = transform;
  return s;
}

TEST(Motion, RunsStraightWithoutAnythingThatBends) {
  const TestLayer a = Dot(10, 20), b = Dot(50, 80);
  Started started;
  FrameSettings s = SettingsAt(0.25f);
  Start(&a, &b, s, &started);
  for (int32_t l = 0; l < kLanes; ++l) {
    EXPECT_EQ(started.positions.x[l], 20.0f);
    EXPECT_EQ(started.positions.y[l], 35.0f);
    EXPECT_EQ(started.positions.z[l], 0.0f);
  }
}

TEST(Motion, StartsAndEndsOnTheLayersWhateverBendsThePath) {
  const TestLayer a = Dot(10, 20), b = Dot(50, 80);
  for (const float scatter : {0.7f, -0.7f}) {
    FrameSettings s = SettingsAt(0.0f);
    s.scatter = scatter;
    s.swirlAngle = 200.0f;
    s.turbulenceAmount = 0.3f;
    Started started;
    Start(&a, &b, s, &started);
    EXPECT_EQ(started.positions.x[3], 10.0f);
    EXPECT_EQ(started.positions.y[3], 20.0f);
    s.transform = 1.0f;
    Start(&a, &b, s, &started);
    EXPECT_NEAR(started.positions.x[3], 50.0f, 1e-3f);
    EXPECT_NEAR(started.positions.y[3], 80.0f, 1e-3f);
  }
}

TEST(Motion, ScattersByItsOwnStreams) {
  const TestLayer a = Dot(10, 20), b = Dot(10, 20);
  FrameSettings s = SettingsAt(0.5f);
  s.scatter = 0.5f;
  Started started;
  Start(&a, &b, s, &started);
  for (uint32_t l = 0; l < kLanes; ++l) {
    const uint32_t key = KeysOfParticle(s.seed, l).key;
    const double k = (static_cast<double>(Unit(key, kSaltScatterStrength)) + 0.4) * 0.5 * kSize;
    const double w = static_cast<double>(DirectionZ(key, kSaltScatterZ));
    const double theta = static_cast<double>(Azimuth(key, kSaltScatterAzimuth)), r = std::sqrt(1.0 - w * w);
    EXPECT_NEAR(started.positions.x[l], 10.0 + k * r * std::cos(theta), 1e-4);
    EXPECT_NEAR(started.positions.y[l], 20.0 + k * r * std::sin(theta), 1e-4);
    EXPECT_NEAR(started.positions.z[l], k * w, 1e-4);
  }
}

TEST(Motion, FullNegativeScatterMeetsInTheCentre) {
  const TestLayer a = Dot(10, 20), b = Dot(70, 80);
  for (const float scatter : {-1.0f, -3.0f}) {
    FrameSettings s = SettingsAt(0.5f);
    s.scatter = scatter;
    s.planeA.thickness = s.planeB.thickness = 40.0f;
    Started started;
    Start(&a, &b, s, &started);
    for (int32_t l = 0; l < kLanes; ++l) {
      EXPECT_EQ(started.positions.x[l], 50.0f);
      EXPECT_EQ(started.positions.y[l], 50.0f);
      EXPECT_EQ(started.positions.z[l], 0.0f);
    }
  }
}

TEST(Motion, SwirlsAboutTheCentre) {
  // Both ends at (60, 50), the whole swirl half a turn: half way the end stands turned back by a half turn,
  // at (40, 50), so the straight path is at (50, 50), the centre; at a quarter it is at (55, 50), turned
  // by 45.
  const TestLayer a = Dot(60, 50), b = Dot(60, 50);
  FrameSettings s = SettingsAt(0.25f);
  s.swirlAngle = 180.0f;
  Started started;
  Start(&a, &b, s, &started);
  EXPECT_NEAR(started.positions.x[0], 50.0f + 5.0f * std::sqrt(0.5f), 1e-4f);
  EXPECT_NEAR(started.positions.y[0], 50.0f + 5.0f * std::sqrt(0.5f), 1e-4f);
}

TEST(Motion, TurbulenceIsTakenAtTheMiddleOfTheUnturnedEnds) {
  const TestLayer a = Dot(10, 20), b = Dot(50, 80);
  FrameSettings s = SettingsAt(0.5f);
  s.turbulenceAmount = 0.2f;
  s.turbulenceZDepth = 0.5f;
  s.swirlAngle = 90.0f;
  Started started;
  Start(&a, &b, s, &started);
  float x[kLanes], y[kLanes];
  std::fill(x, x + kLanes, 30.0f);
  std::fill(y, y + kLanes, 50.0f);
  VectorLanes d;
  EvaluateTurbulence(started.frame.turbulence, x, y, &d);
  EXPECT_EQ(started.positions.z[0], d.z[0]);  // the bell is 1 half way
  EXPECT_EQ(started.lanes.path.turbulence.x[5], d.x[0]);
}

TEST(Motion, DepthInsideTheThicknessIsOneStreamOnBothPlanes) {
  const TestLayer a = Dot(10, 20), b = Dot(50, 80);
  FrameSettings s = SettingsAt(0.0f);
  s.planeA.thickness = 100.0f;
  s.planeB.thickness = 300.0f;
  Started started;
  Start(&a, &b, s, &started);
  for (int32_t l = 0; l < kLanes; ++l) {
    const float depth = Unit(started.lanes.key[l], kSaltThickness) - 0.5f;
    EXPECT_EQ(started.lanes.path.start.z[l], depth * 100.0f);
    EXPECT_EQ(started.lanes.path.end.z[l], depth * 300.0f);
  }
}

TEST(Motion, PlanesScaleTurnAndMove) {
  const TestLayer a = Dot(60, 50), b = Dot(50, 50);
  FrameSettings s = SettingsAt(0.0f);
  s.planeA.scale[0] = 2.0f;
  s.planeA.rotation[2] = 90.0f;  // x turns to y
  s.planeA.position[0] = 3.0f;
  s.planeA.position[2] = -7.0f;
  Started started;
  Start(&a, &b, s, &started);
  EXPECT_NEAR(started.positions.x[0], 53.0f, 1e-4f);
  EXPECT_NEAR(started.positions.y[0], 70.0f, 1e-4f);
  EXPECT_EQ(started.positions.z[0], -7.0f);
}

TEST(Motion, RotationsApplyXFirst) {
  // x by 90 degrees takes y to z; z by 90 then leaves z alone. The other way round y would end on -x.
  const Rotation3 r = MakeRotation(1.57079633f, 0.0f, 1.57079633f);
  EXPECT_NEAR(r.m[2][1], 1.0f, 1e-6f);
  EXPECT_NEAR(r.m[0][1], 0.0f, 1e-6f);
}

TEST(Motion, WithoutATargetParticlesDriftOut) {
  const TestLayer a = Dot(10, 20);
  Started started;
  Start(&a, nullptr, SettingsAt(1.0f), &started);
  for (int32_t l = 0; l < kLanes; ++l) {
    const float dx = started.lanes.path.end.x[l] - 10.0f, dy = started.lanes.path.end.y[l] - 20.0f;
    const float dz = started.lanes.path.end.z[l];
    const float reach = JitterRadius(started.lanes.key[l], kSaltJitterRadius) * 25.0f;
    EXPECT_NEAR(std::sqrt(dx * dx + dy * dy + dz * dz), reach, 1e-4f);
    EXPECT_FALSE(started.lanes.hasTarget);
  }
}

TEST(Motion, WithoutASourceParticlesGatherOnTheTarget) {
  const TestLayer b = Dot(50, 80, 0.25f);
  Started started;
  Start(nullptr, &b, SettingsAt(0.0f), &started);
  for (int32_t l = 0; l < kLanes; ++l) {
    EXPECT_EQ(started.lanes.path.end.x[l], 50.0f);
    EXPECT_NE(started.lanes.path.start.x[l], 50.0f);
    EXPECT_EQ(started.lanes.fromR[l], 0.25f);
    EXPECT_EQ(started.lanes.toR[l], 0.25f);
  }
}

// ---- Stagger ----

float ProgressOf(const TestLayer& a, const TestLayer& b, float transform, float stagger, int32_t by,
                 int32_t from) {
  FrameSettings s = SettingsAt(transform);
  s.stagger = stagger;
  s.staggerBy = by;
  s.staggerFrom = from;
  Started started;
  Start(&a, &b, s, &started);
  return started.lanes.progress[0];
}

TEST(Stagger, DelaysByTheChosenChannel) {
  const TestLayer a = Dot(10, 20, 0.25f, 0.5f, 0.75f, 0.875f), b = Dot(50, 80, 1.0f, 0.0f, 0.125f, 0.5f);
  const auto expected = [](float c) { return (0.5f - 0.5f * c) / 0.5f; };
  EXPECT_EQ(ProgressOf(a, b, 0.5f, 0.5f, 3, 1), expected(0.25f));
  EXPECT_EQ(ProgressOf(a, b, 0.5f, 0.5f, 4, 1), expected(0.5f));
  EXPECT_EQ(ProgressOf(a, b, 0.5f, 0.5f, 5, 1), expected(0.75f));
  EXPECT_EQ(ProgressOf(a, b, 0.5f, 0.5f, 6, 1), expected(0.875f));
  EXPECT_FLOAT_EQ(ProgressOf(a, b, 0.5f, 0.5f, 2, 1), expected(0.5f / 0.75f));
  EXPECT_FLOAT_EQ(ProgressOf(a, b, 0.5f, 0.5f, 1, 1),
                  expected(0.299f * 0.25f + 0.587f * 0.5f + 0.114f * 0.75f));
  EXPECT_EQ(ProgressOf(a, b, 0.5f, 0.5f, 99, 1), ProgressOf(a, b, 0.5f, 0.5f, 1, 1));
  EXPECT_EQ(ProgressOf(a, b, 0.5f, 0.5f, 3, 2), expected(1.0f));
}

TEST(Stagger, ByAlphaIsAlwaysTheEmittingPoints) {
  const TestLayer a = Dot(10, 20, 1, 1, 1, 0.75f), b = Dot(50, 80, 1, 1, 1, 0.25f);
  EXPECT_EQ(ProgressOf(a, b, 0.5f, 0.5f, 6, 2), (0.5f - 0.5f * 0.75f) / 0.5f);
}

TEST(Stagger, NegativeReversesTheOrder) {
  const TestLayer a = Dot(10, 20, 0.25f), b = Dot(50, 80);
  EXPECT_EQ(ProgressOf(a, b, 0.5f, -0.5f, 3, 1), ProgressOf(Dot(10, 20, 0.75f), b, 0.5f, 0.5f, 3, 1));
}

TEST(Stagger, InFullIsAllOrNothing) {
  const TestLayer a = Dot(10, 20, 0.5f), b = Dot(50, 80);
  EXPECT_EQ(ProgressOf(a, b, 0.49f, 1.0f, 3, 1), 0.0f);
  EXPECT_EQ(ProgressOf(a, b, 0.5f, 1.0f, 3, 1), 1.0f);
  EXPECT_EQ(ProgressOf(Dot(10, 20, 0.0f), b, 0.0f, 1.0f, 3, 1), 1.0f);
  EXPECT_EQ(ProgressOf(a, b, 0.49f, 7.0f, 3, 1), 0.0f);
}

TEST(Stagger, OfAThousandthIsNone) {
  const TestLayer a = Dot(10, 20), b = Dot(50, 80);
  EXPECT_EQ(ProgressOf(a, b, 0.3f, 0.001f, 1, 1), 0.3f);
}

}  // namespace
}  // namespace vantle
