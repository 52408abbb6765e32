#include "tests/graphics/kernel_times.h"

#include "tests/graphics/kernel_difference.h"
#include "tests/reference/dice.h"

#include <algorithm>
#include <chrono>
#include <cstdio>

namespace vantle::test {

namespace {

using Clock = std::chrono::steady_clock;

double MillisecondsSince(Clock::time_point start) {
  return std::chrono::duration<double, std::milli>(Clock::now() - start).count();
}

/// Particles of one size, evenly spread.
KernelScene SpreadParticles(int32_t shape, int count, float size) {
  reference::Dice dice{7};
  KernelScene scene{shape, BLEND_NORMAL, true, {1920, 1080}, {}};
  for (int i = 0; i < count; ++i) {
    ProjectedParticle p{};
    p.sx = dice.Unit() * 1920.0f;
    p.sy = dice.Unit() * 1080.0f;
    p.size = size;
    p.lineWidth = 2.0f;
    p.r = dice.Unit();
    p.g = dice.Unit();
    p.b = dice.Unit();
    p.alpha = 1.0f;
    p.spriteFrame = -1;
    scene.particles.push_back(p);
  }
  return scene;
}

bool TimeScene(const VulkanKernel& kernel, const KernelScene& scene) {
  constexpr int kMostRuns = 5;
  constexpr double kPatience = 10000.0;  // milliseconds; a software driver needs that much for one frame
  double lists = 1e30;
  double processor = 1e30;
  KernelTimes graphics{1e30, 1e30};
  std::vector<float> drawn;
  std::vector<float> expected;
  const Clock::time_point begin = Clock::now();
  for (int run = 0; run < kMostRuns && MillisecondsSince(begin) < kPatience; ++run) {
    Clock::time_point start = Clock::now();
    const KernelInput input = MakeKernelInput(scene, true);
    lists = std::min(lists, MillisecondsSince(start));
    KernelTimes times;
    drawn = kernel.Draw(input, &times);
    graphics.dispatch = std::min(graphics.dispatch, times.dispatch);
    graphics.roundTrip = std::min(graphics.roundTrip, times.roundTrip);
    start = Clock::now();
    expected = DrawOnProcessor(scene);
    processor = std::min(processor, MillisecondsSince(start));
  }
  const FrameDifference difference = CompareFrames(scene, expected, drawn);
  std::printf("| %zu %ss of size %g | %.2f | %.2f | %.2f | %.2f | %.1e |\n", scene.particles.size(),
              ShapeName(scene.shape), static_cast<double>(scene.particles[0].size), lists, graphics.dispatch,
              graphics.roundTrip, processor, static_cast<double>(difference.largest));
  if (difference.wrong > 0) std::fprintf(stderr, "%s\n", difference.firstFault.c_str());
  return difference.wrong == 0;
}

}  // namespace

bool PrintTimes(const VulkanKernel& kernel) {
  std::printf("Milliseconds at 1920 x 1080, best of up to 5 runs:\n\n");
  std::printf(
      "| frame | tile lists | dispatch | round trip | processor's rasteriser | largest difference |\n");
  std::printf("|---|---|---|---|---|---|\n");
  const bool light = TimeScene(kernel, SpreadParticles(SHAPE_SOFT_CIRCLE, 20000, 4.0f));
  const bool heavy = TimeScene(kernel, SpreadParticles(SHAPE_CIRCLE, 200000, 10.0f));
  return light && heavy;
}

}  // namespace vantle::test
