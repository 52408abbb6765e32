// Noise and field against values worked out in exact fractions.

#include "particles/turbulence.h"

#include "tests/particles/test_frames.h"

#include <cmath>
#include <gtest/gtest.h>
#include <limits>

namespace vantle {
namespace {

TEST(GradientNoise, HasTheKnownValues) {
  EXPECT_NEAR(GradientNoise(2.5f, 1.25f, 0.375f, 7), -0.3070132443085313f, 1e-6f);
  EXPECT_NEAR(GradientNoise(-3.25f, 2.125f, -0.5f, 0), 0.1586680311024189f, 1e-6f);
  EXPECT_NEAR(GradientNoise(0.5f, 0.5f, 0.5f, 1), 0.2651625f, 1e-6f);
  EXPECT_NEAR(GradientNoise(-0.25f, -3.875f, 4.5f, 4294967295u), 0.5454116378009319f, 1e-6f);
}

TEST(GradientNoise, IsZeroOnTheLattice) {
  for (int x = -3; x <= 3; ++x) {
    for (int y = -3; y <= 3; ++y) {
      EXPECT_EQ(GradientNoise(static_cast<float>(x), static_cast<float>(y), 5.0f, 3), 0.0f);
    }
  }
}

TEST(GradientNoise, RunsSmoothlyAcrossTheLattice) {
  for (float at = -2.0f; at <= 2.0f; at += 1.0f) {
    EXPECT_NEAR(GradientNoise(at - 1e-4f, 0.3f, 0.7f, 1), GradientNoise(at + 1e-4f, 0.3f, 0.7f, 1), 1e-3f);
  }
}

FrameSettings FieldSettings(int32_t type) {
  FrameSettings s = testing::PlainSettings(640, 480);
  s.turbulenceType = type;
  s.turbulenceAmount = 0.1f;
  s.turbulenceZDepth = 0.5f;
  s.turbulenceSpeed = 0.5f;
  s.turbulenceEvolution = 0.25f;
  s.turbulenceSeed = 5;
  s.timeSeconds = 2.0f;
  return s;
}

Vec3 FieldAt(const FrameSettings& s, float x, float y) {
  float xs[kLanes], ys[kLanes];
  for (int32_t l = 0; l < kLanes; ++l) {
    xs[l] = x + static_cast<float>(l);
    ys[l] = y;
  }
  VectorLanes d;
  EvaluateTurbulence(MakeTurbulenceField(s), xs, ys, &d);
  return {d.x[0], d.y[0], d.z[0]};
}

void ExpectNear(const Vec3& v, float x, float y, float z) {
  // The central differences multiply rounding by 50, the strength by another 50.
  EXPECT_NEAR(v.x, x, 0.01f);
  EXPECT_NEAR(v.y, y, 0.01f);
  EXPECT_NEAR(v.z, z, 0.001f);
}

TEST(TurbulenceField, HasTheKnownValuesOfEveryType) {
  ExpectNear(FieldAt(FieldSettings(1), 300, 200), 82.598784f, -12.743672f, -100.503785f);
  ExpectNear(FieldAt(FieldSettings(2), 300, 200), 12.743672f, 82.598784f, -100.503785f);
  ExpectNear(FieldAt(FieldSettings(3), 300, 200), -38.065731f, -54.585760f, 91.998424f);
  ExpectNear(FieldAt(FieldSettings(9), 300, 200), 82.598784f, -12.743672f, -100.503785f);
}

TEST(TurbulenceField, IsOffBelowAThousandthWhateverTheDepth) {
  FrameSettings s = FieldSettings(1);
  s.turbulenceAmount = 0.0009f;
  const Vec3 v = FieldAt(s, 300, 200);
  EXPECT_EQ(v.x, 0.0f);
  EXPECT_EQ(v.y, 0.0f);
  EXPECT_EQ(v.z, 0.0f);
}

TEST(TurbulenceField, ScaleHasAFloor) {
  FrameSettings none = FieldSettings(1), least = none;
  none.turbulenceScale = 0.0f;
  least.turbulenceScale = 0.05f;
  const Vec3 a = FieldAt(none, 3.5f, 2.25f), b = FieldAt(least, 3.5f, 2.25f);
  // A fifth of 0.05 is one unit in the last place above the floor.
  EXPECT_NEAR(a.x, b.x, 0.002f);
  EXPECT_NEAR(a.y, b.y, 0.002f);
}

TEST(TurbulenceField, FeaturesFollowTheOutputsSize) {
  FrameSettings half = FieldSettings(1);
  half.outputWidth = 320;
  half.outputHeight = 240;
  EXPECT_EQ(FieldAt(half, 150, 100).x, FieldAt(FieldSettings(1), 300, 200).x);
}

TEST(TurbulenceField, LanesDoNotMixAndHostilePlacesAreDefined) {
  const TurbulenceField field = MakeTurbulenceField(FieldSettings(3));
  const float inf = std::numeric_limits<float>::infinity();
  const float odd[] = {inf,   -inf,  std::numeric_limits<float>::quiet_NaN(), 3e38f, -3e38f, 1e12f,
                       -0.0f, 300.0f};
  float x[kLanes], y[kLanes];
  for (int32_t l = 0; l < kLanes; ++l) {
    x[l] = odd[l % 8];
    y[l] = l < 8 ? 200.0f : odd[(l + 1) % 8];
  }
  VectorLanes d;
  EvaluateTurbulence(field, x, y, &d);
  EXPECT_EQ(d.x[7], FieldAt(FieldSettings(3), 300, 200).x);
}

}  // namespace
}  // namespace vantle
