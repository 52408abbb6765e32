#include "tests/particles/test_frames.h"

#include "base/pixels.h"

#include <cstring>

#ifndef VANTLE_STD_THREADS
#include <omp.h>
#endif

namespace vantle::testing {

FrameSettings PlainSettings(int32_t width, int32_t height) {
  FrameSettings s{};
  s.transform = 0.5f;
  s.fade = 0.1f;
  s.staggerBy = s.staggerFrom = 1;
  s.variationABy = s.variationBBy = 1;
  s.density = 1000;
  s.seed = 1;
  s.planeA.scale[0] = s.planeA.scale[1] = s.planeB.scale[0] = s.planeB.scale[1] = 1.0f;
  s.turbulenceType = 1;
  s.turbulenceScale = 5.0f;
  s.size = 4.0f;
  s.shape = SHAPE_SOFT_CIRCLE;
  s.lineWidth = 1.0f;
  s.timeType = 1;
  s.colorMode = 1;
  s.opacity = 1.0f;
  MakeDefaultLifeCurve(&s.opacityOverLife, 1.0f);
  MakeDefaultLifeCurve(&s.scaleOverLife, 2.0f);
  s.transferMode = BLEND_NORMAL;
  s.frameRate = 25.0f;
  s.outputWidth = s.fullWidth = width;
  s.outputHeight = s.fullHeight = height;
  s.downsampleX = s.downsampleY = 1.0f;
  return s;
}

void TestLayer::Set(int32_t x, int32_t y, float a, float r, float g, float b) {
  const size_t at = static_cast<size_t>(view.data - bytes.data()) + static_cast<size_t>(view.rowBytes * y) +
                    static_cast<size_t>(x) * PixelBytes(view.depth);
  std::byte* pixel = bytes.data() + at;
  const FloatPixel value = {a, r, g, b};
  if (view.depth == PixelDepth::k8) StorePixel<Format8>(pixel, value);
  if (view.depth == PixelDepth::k16) StorePixel<Format16>(pixel, value);
  if (view.depth == PixelDepth::k32) StorePixel<Format32>(pixel, value);
}

TestLayer MakeLayer(int32_t width, int32_t height, PixelDepth depth, int32_t padding, int32_t shift) {
  TestLayer layer;
  const int64_t rowBytes = int64_t{width} * static_cast<int64_t>(PixelBytes(depth)) + padding;
  layer.bytes.assign(static_cast<size_t>(rowBytes * height + shift), std::byte{0});
  layer.view = {layer.bytes.data() + shift, rowBytes, width, height, depth};
  return layer;
}

TestLayer RandomLayer(int32_t width, int32_t height, PixelDepth depth, float emptyShare, uint32_t seed,
                      int32_t padding, int32_t shift) {
  TestLayer layer = MakeLayer(width, height, depth, padding, shift);
  std::mt19937 random(seed);
  std::uniform_real_distribution<float> unit(0.0f, 1.0f);
  for (int32_t y = 0; y < height; ++y) {
    for (int32_t x = 0; x < width; ++x) {
      const float a = unit(random) < emptyShare ? 0.0f : unit(random);
      const float r = unit(random), g = unit(random), b = unit(random);
      layer.Set(x, y, a, r, g, b);
    }
  }
  return layer;
}

TestLayer SolidLayer(int32_t width, int32_t height, float r, float g, float b) {
  TestLayer layer = MakeLayer(width, height, PixelDepth::k32);
  for (int32_t y = 0; y < height; ++y) {
    for (int32_t x = 0; x < width; ++x) layer.Set(x, y, 1.0f, r, g, b);
  }
  return layer;
}

ParticleList Simulate(const TestLayer* a, const TestLayer* b, const FrameSettings& settings,
                      const CameraData& camera) {
  const Emission emission = BuildEmission(a != nullptr ? a->view : ImageView{},
                                          b != nullptr ? b->view : ImageView{}, ImageView{}, settings);
  return SimulateParticles(emission, settings, camera);
}

void SetThreads([[maybe_unused]] int count) {
#ifndef VANTLE_STD_THREADS
  omp_set_num_threads(count);
#endif
}

bool SameBytes(const ParticleList& a, const ParticleList& b) {
  if (a.count != b.count) return false;
  if (a.count == 0) return true;
  if (std::memcmp(a.particles.data(), b.particles.data(), a.count * sizeof(ProjectedParticle)) != 0)
    return false;
  if (a.curvePoints.counts.size() != b.curvePoints.counts.size()) return false;
  for (size_t slot = 0; slot < a.curvePoints.counts.size(); ++slot) {
    const size_t count = a.curvePoints.counts[slot], at = slot * kMaxTrailPoints;
    if (count != b.curvePoints.counts[slot]) return false;
    if (std::memcmp(a.curvePoints.points.data() + at, b.curvePoints.points.data() + at,
                    count * sizeof(Vec2)) != 0) {
      return false;
    }
  }
  return true;
}

}  // namespace vantle::testing
