// The rasteriser by shape, transfer mode, depth and size, and two whole frames: the default one, 20,000 soft
// circles of size 4, and a heavy one, 200,000 of size 10, both at 1920 x 1080.
#include "base/buffer.h"
#include "base/pixels.h"
#include "render/rasteriser.h"

#include <benchmark/benchmark.h>
#include <cmath>
#include <cstdint>
#include <omp.h>
#include <random>
#include <vector>

namespace {

using namespace vantle;

constexpr int32_t kWidth = 1920;
constexpr int32_t kHeight = 1080;

struct Scene {
  std::vector<ProjectedParticle> particles;
  CurvePointPool trails;
  FrameSettings settings{};
  std::vector<std::byte> spritePixels;
  std::vector<ImageView> sprites;
};

float Uniform(std::mt19937* random, float lo, float hi) {
  return lo + (hi - lo) * static_cast<float>((*random)() >> 8) / 16777216.0f;
}

ProjectedParticle RandomParticle(std::mt19937* random, float size) {
  ProjectedParticle p{};
  p.sx = Uniform(random, 0.0f, kWidth);
  p.sy = Uniform(random, 0.0f, kHeight);
  p.size = size * Uniform(random, 0.8f, 1.2f);
  p.lineWidth = 2.0f;
  p.r = Uniform(random, 0.0f, 1.0f);
  p.g = Uniform(random, 0.0f, 1.0f);
  p.b = Uniform(random, 0.0f, 1.0f);
  p.alpha = 0.8f;
  p.spriteFrame = 0;
  return p;
}

/// A trail of 25 points that winds over about four sizes.
void AddTrail(std::mt19937* random, uint32_t slot, const ProjectedParticle& p, CurvePointPool* pool) {
  float angle = Uniform(random, 0.0f, 6.28f);
  const float turn = Uniform(random, -0.2f, 0.2f);
  Vec2 at{p.sx, p.sy};
  constexpr uint8_t kPoints = 25;
  pool->counts[slot] = kPoints;
  for (size_t i = 0; i < kPoints; ++i) {
    pool->points[slot * static_cast<size_t>(kMaxTrailPoints) + i] = at;
    at.x += std::cos(angle) * p.size * 0.1667f;
    at.y += std::sin(angle) * p.size * 0.1667f;
    angle += turn;
  }
}

Scene MakeScene(size_t count, float size, int32_t shape, int32_t mode, PixelDepth depth) {
  Scene scene;
  std::mt19937 random(7);
  scene.settings.shape = shape;
  scene.settings.transferMode = mode;
  scene.settings.roundCap = true;
  scene.trails.counts.Reset(count);
  scene.trails.points.Reset(count * static_cast<size_t>(kMaxTrailPoints));
  for (uint32_t i = 0; i < count; ++i) {
    scene.particles.push_back(RandomParticle(&random, size));
    scene.particles.back().curvePoints = i;
    AddTrail(&random, i, scene.particles.back(), &scene.trails);
  }
  scene.spritePixels.assign(64 * 64 * PixelBytes(depth), std::byte{0});
  for (std::byte& b : scene.spritePixels) b = static_cast<std::byte>(depth == PixelDepth::k32 ? 0x3f : 0x7f);
  scene.sprites.push_back(
      {scene.spritePixels.data(), static_cast<int64_t>(64 * PixelBytes(depth)), 64, 64, depth});
  return scene;
}

/// Renders over and over on `threads` threads; 0 is all.
void RenderLoop(benchmark::State& state, const Scene& scene, PixelDepth depth, int threads) {
  std::vector<std::byte> pixels(static_cast<size_t>(kWidth) * kHeight * PixelBytes(depth));
  const MutableImage output{pixels.data(), static_cast<int64_t>(kWidth * PixelBytes(depth)), kWidth, kHeight,
                            depth};
  const int all = omp_get_max_threads();
  if (threads > 0) omp_set_num_threads(threads);
  for (auto _ : state) {
    RenderParticlesCpu(output, scene.particles.data(), scene.particles.size(), scene.trails, scene.settings,
                       scene.sprites.data(), scene.sprites.size());
    benchmark::DoNotOptimize(pixels.data());
    benchmark::ClobberMemory();
  }
  omp_set_num_threads(all);
  state.SetItemsProcessed(state.iterations() * static_cast<int64_t>(scene.particles.size()));
}

PixelDepth DepthOfBits(int64_t bits) {
  return bits == 8 ? PixelDepth::k8 : bits == 16 ? PixelDepth::k16 : PixelDepth::k32;
}

void RasterDefaultFrame(benchmark::State& state) {
  const PixelDepth depth = DepthOfBits(state.range(0));
  RenderLoop(state, MakeScene(20000, 4.0f, SHAPE_SOFT_CIRCLE, BLEND_NORMAL, depth), depth,
             static_cast<int>(state.range(1)));
}
BENCHMARK(RasterDefaultFrame)
    ->ArgNames({"bits", "threads"})
    ->ArgsProduct({{8, 16, 32}, {1, 0}})
    ->UseRealTime()
    ->Unit(benchmark::kMillisecond);

void RasterHeavyFrame(benchmark::State& state) {
  const PixelDepth depth = DepthOfBits(state.range(0));
  RenderLoop(state, MakeScene(200000, 10.0f, SHAPE_SOFT_CIRCLE, BLEND_NORMAL, depth), depth,
             static_cast<int>(state.range(1)));
}
BENCHMARK(RasterHeavyFrame)
    ->ArgNames({"bits", "threads"})
    ->ArgsProduct({{8, 16, 32}, {1, 0}})
    ->UseRealTime()
    ->Unit(benchmark::kMillisecond);

void RasterShape(benchmark::State& state) {
  const PixelDepth depth = DepthOfBits(state.range(2));
  RenderLoop(state,
             MakeScene(2000, static_cast<float>(state.range(1)), static_cast<int32_t>(state.range(0)),
                       BLEND_NORMAL, depth),
             depth, 1);
}
BENCHMARK(RasterShape)
    ->ArgNames({"shape", "size", "bits"})
    ->ArgsProduct({{1, 2, 3, 4, 5, 6, 7, 8, 9, 10}, {4, 40}, {8, 32}})
    ->Unit(benchmark::kMillisecond);

void RasterTurnedShape(benchmark::State& state) {
  Scene scene = MakeScene(2000, static_cast<float>(state.range(1)), static_cast<int32_t>(state.range(0)),
                          BLEND_NORMAL, PixelDepth::k8);
  for (ProjectedParticle& p : scene.particles) {
    p.rotX = 20.0f;
    p.rotY = -35.0f;
    p.rotZ = p.sx;
    p.cocRadius = 3.0f;
  }
  RenderLoop(state, scene, PixelDepth::k8, 1);
}
BENCHMARK(RasterTurnedShape)
    ->ArgNames({"shape", "size"})
    ->ArgsProduct({{2, 3, 4, 5, 6, 8, 10}, {4, 40}})
    ->Unit(benchmark::kMillisecond);

void RasterMode(benchmark::State& state) {
  const PixelDepth depth = DepthOfBits(state.range(1));
  RenderLoop(state, MakeScene(20000, 4.0f, SHAPE_SOFT_CIRCLE, static_cast<int32_t>(state.range(0)), depth),
             depth, 1);
}
BENCHMARK(RasterMode)
    ->ArgNames({"mode", "bits"})
    ->ArgsProduct({{1, 2, 3, 4, 5, 6, 7, 8}, {8, 16, 32}})
    ->Unit(benchmark::kMillisecond);

}  // namespace
