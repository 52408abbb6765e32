// Settings that only broken projects and broken hosts hold: nothing crashes, nothing undefined happens (the
// sanitizer builds watch), and what is kept can be drawn.

#include "tests/particles/test_frames.h"

#include <cmath>
#include <gtest/gtest.h>
#include <limits>
#include <random>
#include <vector>

namespace vantle {
namespace {

using testing::PlainSettings;
using testing::RandomLayer;
using testing::Simulate;
using testing::TestLayer;

constexpr float kOdd[] = {std::numeric_limits<float>::quiet_NaN(),
                          std::numeric_limits<float>::infinity(),
                          -std::numeric_limits<float>::infinity(),
                          3e38f,
                          -3e38f,
                          1e12f,
                          -1e9f,
                          1e-42f,
                          -0.0f};

constexpr int32_t kOddIntegers[] = {INT32_MIN, INT32_MAX, -1, 0, 11};

/// Every float of the settings.
std::vector<float*> Floats(FrameSettings& s) {
  std::vector<float*> floats = {&s.transform,
                                &s.fade,
                                &s.scatter,
                                &s.swirlAngle,
                                &s.stagger,
                                &s.variationA,
                                &s.variationB,
                                &s.viewAngle,
                                &s.turbulenceAmount,
                                &s.turbulenceScale,
                                &s.turbulenceEvolution,
                                &s.turbulenceSpeed,
                                &s.turbulenceZDepth,
                                &s.size,
                                &s.sizeVariation,
                                &s.lineWidth,
                                &s.lineWidthVariation,
                                &s.hueVariation,
                                &s.opacity,
                                &s.opacityVariation,
                                &s.timeSeconds,
                                &s.frameRate,
                                &s.downsampleX,
                                &s.downsampleY};
  for (PlaneSettings* plane : {&s.planeA, &s.planeB}) {
    for (float& v : plane->position) floats.push_back(&v);
    for (float& v : plane->rotation) floats.push_back(&v);
    for (float& v : plane->scale) floats.push_back(&v);
    floats.push_back(&plane->thickness);
  }
  for (float(*list)[3] : {&s.rotation, &s.rotationVariation, &s.spin}) {
    for (float& v : *list) floats.push_back(&v);
  }
  for (GradientStop& stop : s.colorGradient.stops) {
    for (float* v : {&stop.position, &stop.r, &stop.g, &stop.b}) floats.push_back(v);
  }
  for (LifeCurve* curve : {&s.scaleOverLife, &s.opacityOverLife}) {
    for (int i = 0; i < 3; ++i) floats.insert(floats.end(), {&curve->x[i], &curve->y[i]});
  }
  return floats;
}

std::vector<int32_t*> Integers(FrameSettings& s) {
  return {&s.staggerBy,
          &s.staggerFrom,
          &s.variationABy,
          &s.variationBBy,
          &s.seed,
          &s.turbulenceType,
          &s.turbulenceSeed,
          &s.shape,
          &s.timeType,
          &s.colorMode,
          &s.transferMode,
          &s.outputWidth,
          &s.outputHeight,
          &s.fullWidth,
          &s.fullHeight,
          &s.colorGradient.count,
          &s.colorGradient.selected,
          &s.scaleOverLife.count,
          &s.opacityOverLife.count};
}

FrameSettings BusySettings() {
  FrameSettings s = PlainSettings(40, 30);
  MakeDefaultGradient(&s.colorGradient);
  s.density = 40;
  s.showSolids = true;
  s.stagger = 0.3f;
  s.scatter = 0.3f;
  s.swirlAngle = 33.0f;
  s.variationA = 0.4f;
  s.turbulenceAmount = 0.1f;
  s.hueVariation = 0.3f;
  s.colorMode = 3;
  s.viewAngle = 30.0f;
  s.autoOrient = s.depthOfField = true;
  s.shape = SHAPE_CURVE_LINE;
  return s;
}

void ExpectDrawable(const TestLayer& a, const FrameSettings& s, const CameraData& camera = {}) {
  ParticleList list = Simulate(&a, &a, s, camera);
  for (size_t i = 0; i < list.count; ++i) {
    const ProjectedParticle& p = list.particles[i];
    ASSERT_TRUE(std::isfinite(p.sx) && std::isfinite(p.sy) && std::isfinite(p.depth) &&
                std::isfinite(p.size));
    ASSERT_TRUE(p.alpha > 0.001f && p.alpha <= 1.0f);
  }
  SortBackToFront(&list);
  ScaleToPreview(s, &list);
}

TEST(Hostile, EachFloatAlone) {
  const TestLayer a = RandomLayer(20, 20, PixelDepth::k8, 0.2f, 1);
  FrameSettings s = BusySettings();
  for (float* value : Floats(s)) {
    const float before = *value;
    for (const float odd : kOdd) {
      *value = odd;
      ExpectDrawable(a, s);
    }
    *value = before;
  }
}

TEST(Hostile, EachIntegerAlone) {
  const TestLayer a = RandomLayer(20, 20, PixelDepth::k8, 0.2f, 1);
  FrameSettings s = BusySettings();
  for (int32_t* value : Integers(s)) {
    const int32_t before = *value;
    for (const int32_t odd : kOddIntegers) {
      *value = odd;
      ExpectDrawable(a, s);
    }
    *value = before;
  }
}

TEST(Hostile, ManyAtOnce) {
  const TestLayer a = RandomLayer(20, 20, PixelDepth::k16, 0.2f, 1);
  std::mt19937 random(1);
  for (int round = 0; round < 3000; ++round) {
    FrameSettings s = BusySettings();
    for (float* value : Floats(s)) {
      if (random() % 12 == 0) *value = kOdd[random() % std::size(kOdd)];
    }
    for (int32_t* value : Integers(s)) {
      if (random() % 12 == 0) *value = kOddIntegers[random() % std::size(kOddIntegers)];
    }
    ExpectDrawable(a, s);
  }
}

TEST(Hostile, Cameras) {
  const TestLayer a = RandomLayer(20, 20, PixelDepth::k8, 0.2f, 1);
  std::mt19937 random(2);
  for (int round = 0; round < 2000; ++round) {
    CameraData camera;
    camera.hasCamera = camera.cameraDepthOfField = true;
    camera.viewMatrix[14] = 50.0;
    camera.imagePlaneDistance = 60.0;
    camera.focusDistance = camera.aperture = camera.zoom = 30.0f;
    for (double& element : camera.viewMatrix) {
      if (random() % 8 == 0) element = static_cast<double>(kOdd[random() % std::size(kOdd)]) * 1e200;
    }
    for (float* value : {&camera.cameraCentre[0], &camera.focusDistance, &camera.aperture, &camera.zoom}) {
      if (random() % 8 == 0) *value = kOdd[random() % std::size(kOdd)];
    }
    if (random() % 4 == 0) camera.imagePlaneDistance = static_cast<double>(kOdd[random() % std::size(kOdd)]);
    FrameSettings s = BusySettings();
    s.faceCamera = random() % 2 == 0;
    ExpectDrawable(a, s, camera);
  }
}

TEST(Hostile, FloatLayersWithAnythingInThem) {
  TestLayer a = testing::MakeLayer(20, 20, PixelDepth::k32, 5, 3);
  std::mt19937 random(3);
  for (int round = 0; round < 500; ++round) {
    for (int32_t y = 0; y < 20; ++y) {
      for (int32_t x = 0; x < 20; ++x) {
        const auto value = [&] { return random() % 3 == 0 ? kOdd[random() % std::size(kOdd)] : 0.5f; };
        const float alpha = value(), r = value(), g = value(), b = value();
        a.Set(x, y, alpha, r, g, b);
      }
    }
    FrameSettings s = BusySettings();
    s.colorMode = 2;
    s.variationABy = static_cast<int32_t>(random() % 8);
    s.staggerBy = static_cast<int32_t>(random() % 8);
    ExpectDrawable(a, s);
  }
}

TEST(Hostile, ViewsWithoutPixels) {
  const FrameSettings s = BusySettings();
  const std::byte some[16] = {};
  for (const ImageView& view :
       {ImageView{}, ImageView{some, 16, 0, 5, PixelDepth::k8}, ImageView{some, 16, 5, -1, PixelDepth::k8},
        ImageView{nullptr, 16, 5, 5, PixelDepth::k32}}) {
    const Emission emission = BuildEmission(view, view, view, s);
    EXPECT_FALSE(emission.source.hasPoints);
    EXPECT_EQ(SimulateParticles(emission, s, {}).count, 0u);
  }
}

}  // namespace
}  // namespace vantle
