#include "particles/appearance.h"

#include "particles/particle_streams.h"
#include "tests/particles/test_frames.h"

#include <cmath>
#include <gtest/gtest.h>
#include <random>

namespace vantle {
namespace {

using testing::PlainSettings;
using testing::SolidLayer;
using testing::TestLayer;

struct Looks {
  ParticleLanes lanes;
  AppearanceLanes looks;
};

/// The first particles between a layer of colour (1, 0.5, 0) and one of colour (0, 0.25, 1).
Looks LooksOf(const FrameSettings& s, bool withTarget = true) {
  const TestLayer a = SolidLayer(8, 8, 1.0f, 0.5f, 0.0f), b = SolidLayer(8, 8, 0.0f, 0.25f, 1.0f);
  const Emission emission = BuildEmission(a.view, withTarget ? b.view : ImageView{}, {}, s);
  const FrameConstants frame = MakeFrameConstants(emission, s);
  int32_t indices[kLanes];
  for (int32_t l = 0; l < kLanes; ++l) indices[l] = l;
  Looks out;
  StartParticles(frame, indices, &out.lanes);
  EvaluateAppearance(frame, out.lanes, &out.looks);
  return out;
}

TEST(Color, FollowsTheMode) {
  FrameSettings s = PlainSettings(8, 8);
  MakeDefaultGradient(&s.colorGradient);
  s.transform = 0.25f;
  for (const int32_t mode : {1, 0, 5}) {
    s.colorMode = mode;
    EXPECT_EQ(LooksOf(s).looks.b[0], 0.0f) << mode;
    EXPECT_EQ(LooksOf(s).looks.r[0], 1.0f) << mode;
  }
  s.colorMode = 2;
  EXPECT_EQ(LooksOf(s).looks.r[3], 0.75f);
  EXPECT_EQ(LooksOf(s).looks.g[3], 0.4375f);
  EXPECT_EQ(LooksOf(s, false).looks.g[3], 0.5f);
  s.colorMode = 3;
  EXPECT_EQ(LooksOf(s).looks.r[3], EvaluateGradient(s.colorGradient, 0.25f).r);
  s.colorMode = 4;
  const Looks random = LooksOf(s);
  for (int32_t l = 0; l < kLanes; ++l) {
    EXPECT_EQ(random.looks.r[l],
              EvaluateGradient(s.colorGradient, Unit(random.lanes.key[l], kSaltGradient)).r);
  }
}

TEST(Color, IsWhiteWithoutStops) {
  FrameSettings s = PlainSettings(8, 8);
  s.colorGradient.count = 0;
  s.colorGradient.stops[0] = {0, 0.5f, 0.5f, 0.5f};
  EXPECT_EQ(LooksOf(s).looks.g[0], 1.0f);
  s.colorGradient.count = -4;
  EXPECT_EQ(LooksOf(s).looks.g[0], 1.0f);
}

TEST(Hue, TurnsThePrimariesIntoEachOther) {
  const Color green = ShiftHue({1, 0, 0}, 120.0f), blue = ShiftHue({1, 0, 0}, -120.0f);
  EXPECT_NEAR(green.g, 1.0f, 1e-5f);
  EXPECT_NEAR(green.r, 0.0f, 1e-5f);
  EXPECT_NEAR(blue.b, 1.0f, 1e-5f);
  const Color yellow = ShiftHue({1, 0, 0}, 60.0f);
  EXPECT_NEAR(yellow.r, 1.0f, 1e-5f);
  EXPECT_NEAR(yellow.g, 1.0f, 1e-5f);
}

TEST(Hue, KeepsValueAndSaturation) {
  std::mt19937 random(1);
  std::uniform_real_distribution<float> unit(0.0f, 1.0f);
  for (int i = 0; i < 2000; ++i) {
    const Color c = {unit(random), unit(random), unit(random)};
    const Color t = ShiftHue(c, 720.0f * unit(random) - 360.0f);
    EXPECT_NEAR(std::max({t.r, t.g, t.b}), std::max({c.r, c.g, c.b}), 1e-5f);
    EXPECT_NEAR(std::min({t.r, t.g, t.b}), std::min({c.r, c.g, c.b}), 1e-5f);
  }
}

TEST(Hue, LeavesGreysAndComesRoundAgain) {
  const Color grey = ShiftHue({0.5f, 0.5f, 0.5f}, 77.0f);
  EXPECT_EQ(grey.r, 0.5f);
  EXPECT_EQ(grey.g, 0.5f);
  EXPECT_EQ(grey.b, 0.5f);
  const Color round = ShiftHue({0.2f, 0.7f, 0.4f}, 360.0f);
  EXPECT_NEAR(round.r, 0.2f, 1e-5f);
  EXPECT_NEAR(round.g, 0.7f, 1e-5f);
  EXPECT_NEAR(round.b, 0.4f, 1e-5f);
}

TEST(Hue, VariationOfAThousandthIsNone) {
  FrameSettings s = PlainSettings(8, 8);
  s.colorMode = 2;
  s.hueVariation = 0.001f;
  s.transform = 0.0f;
  EXPECT_EQ(LooksOf(s).looks.g[0], 0.5f);
  s.hueVariation = 0.5f;
  const Looks varied = LooksOf(s);
  const Color expected = ShiftHue({1, 0.5f, 0}, HueOffset(varied.lanes.key[2], kSaltHue) * 0.5f);
  EXPECT_EQ(varied.looks.g[2], expected.g);
}

TEST(Opacity, VariesDownwardsAndStaysInRange) {
  FrameSettings s = PlainSettings(8, 8);
  s.opacity = 0.8f;
  s.opacityVariation = 0.5f;
  const Looks varied = LooksOf(s);
  for (int32_t l = 0; l < kLanes; ++l) {
    EXPECT_FLOAT_EQ(varied.looks.opacity[l], (1.0f - Unit(varied.lanes.key[l], kSaltOpacity) * 0.5f) * 0.8f);
  }
  s.opacity = 5.0f;
  EXPECT_EQ(LooksOf(s).looks.opacity[0], 1.0f);
  s.opacity = -1.0f;
  EXPECT_EQ(LooksOf(s).looks.opacity[0], 0.0f);
}

float FadedAt(float transform, float fade, bool show) {
  FrameSettings s = PlainSettings(8, 8);
  s.transform = transform;
  s.fade = fade;
  s.showSolids = show;
  return LooksOf(s).looks.opacity[0];
}

TEST(Opacity, FadesAtBothEndsWhileTheSolidsShow) {
  EXPECT_EQ(FadedAt(0.125f, 0.25f, true), 0.5f);
  EXPECT_EQ(FadedAt(0.875f, 0.25f, true), 0.5f);
  EXPECT_EQ(FadedAt(0.5f, 0.25f, true), 1.0f);
  EXPECT_EQ(FadedAt(0.0f, 0.25f, true), 0.0f);
  EXPECT_EQ(FadedAt(0.25f, 0.9f, true), 0.5f);  // the fade is at most a half
  EXPECT_EQ(FadedAt(0.125f, 0.25f, false), 1.0f);
  EXPECT_EQ(FadedAt(0.0f, 0.001f, true), 1.0f);
}

TEST(Size, VariesAroundTheControlAndFollowsTheCurve) {
  FrameSettings s = PlainSettings(8, 8);
  s.size = 10.0f;
  s.sizeVariation = 0.5f;
  s.scaleOverLife.y[0] = s.scaleOverLife.y[1] = 2.0f;
  const Looks varied = LooksOf(s);
  for (int32_t l = 0; l < kLanes; ++l) {
    EXPECT_FLOAT_EQ(varied.looks.size[l], (SignedUnit(varied.lanes.key[l], kSaltSize) * 0.5f + 1.0f) * 20.0f);
  }
}

TEST(Size, AndStrokeNeverFallBelowHalfAPixel) {
  FrameSettings s = PlainSettings(8, 8);
  s.size = 0.0f;
  s.lineWidth = -3.0f;
  s.scaleOverLife.y[0] = s.scaleOverLife.y[1] = 0.0f;
  const Looks small = LooksOf(s);
  EXPECT_EQ(small.looks.size[0], 0.5f);
  EXPECT_EQ(small.looks.lineWidth[0], 0.5f);
}

TEST(Rotation, AddsVariationAndSpin) {
  FrameSettings s = PlainSettings(8, 8);
  s.transform = 0.25f;
  for (int axis = 0; axis < 3; ++axis) {
    s.rotation[axis] = 10.0f * static_cast<float>(axis + 1);
    s.rotationVariation[axis] = 5.0f;
    s.spin[axis] = 360.0f;
  }
  const Looks turned = LooksOf(s);
  for (int32_t l = 0; l < kLanes; ++l) {
    const uint32_t key = turned.lanes.key[l];
    EXPECT_FLOAT_EQ(turned.looks.rotX[l], SignedUnit(key, kSaltRotationX) * 5.0f + 10.0f + 90.0f);
    EXPECT_FLOAT_EQ(turned.looks.rotY[l], SignedUnit(key, kSaltRotationY) * 5.0f + 20.0f + 90.0f);
    EXPECT_FLOAT_EQ(turned.looks.rotZ[l], SignedUnit(key, kSaltRotationZ) * 5.0f + 30.0f + 90.0f);
    EXPECT_EQ(turned.looks.random[l], Unit(key, kSaltRandom));
  }
}

}  // namespace
}  // namespace vantle
