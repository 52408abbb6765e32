#include "tests/graphics/kernel_table.h"

#include "tests/graphics/kernel_difference.h"

#include <algorithm>
#include <cstdio>
#include <cstring>

namespace vantle::test {

namespace {

/// With tiles and without: the tiles leave out only what touches nothing, so not a bit may differ.
FrameDifference CompareScene(const KernelDrawer& draw, const KernelScene& scene) {
  const std::vector<float> all = draw(MakeKernelInput(scene, false));
  const std::vector<float> tiled = draw(MakeKernelInput(scene, true));
  FrameDifference difference = CompareFrames(scene, DrawOnProcessor(scene), tiled);
  if (std::memcmp(all.data(), tiled.data(), all.size() * sizeof(float)) == 0) return difference;
  FrameDifference untiled = CompareFrames(scene, all, tiled);
  untiled.wrong = std::max<int64_t>(untiled.wrong, 1);
  untiled.firstFault = "the tiles change the picture: " + untiled.firstFault;
  Accumulate(&difference, untiled);
  return difference;
}

/// A shape and a mode in every size and with both kinds of line ends.
FrameDifference CompareShapeAndMode(const KernelDrawer& draw, int32_t shape, int32_t mode, uint32_t seeds) {
  FrameDifference sum;
  for (uint32_t seed = 0; seed < seeds; ++seed) {
    uint32_t number = static_cast<uint32_t>(shape * 1000 + mode * 50) + seed * 100000;
    for (const FrameSize size : kFrameSizes) {
      for (const bool roundCap : {false, true}) {
        Accumulate(&sum, CompareScene(draw, MakeKernelScene(shape, mode, roundCap, size, number++)));
      }
    }
  }
  return sum;
}

}  // namespace

bool PrintKernelTable(const KernelDrawer& draw, uint32_t seeds) {
  std::printf("| |");
  for (const int32_t mode : kKernelModes) std::printf(" %s |", ModeName(mode));
  std::printf("\n|---|");
  for (size_t i = 0; i < std::size(kKernelModes); ++i) std::printf("---|");
  FrameDifference all;
  for (const int32_t shape : kKernelShapes) {
    std::printf("\n| %s |", ShapeName(shape));
    for (const int32_t mode : kKernelModes) {
      const FrameDifference difference = CompareShapeAndMode(draw, shape, mode, seeds);
      std::printf(" %.1e |", static_cast<double>(difference.largest));
      if (difference.wrong > 0) std::fprintf(stderr, "\n%s\n", difference.firstFault.c_str());
      Accumulate(&all, difference);
    }
    std::fflush(stdout);
  }
  std::printf(
      "\n\n%lld pixels compared, %lld of them drawn; largest difference %.2g, %lld pixels decided by "
      "the opacity threshold, %lld wrong\n",
      static_cast<long long>(all.pixels), static_cast<long long>(all.drawn), static_cast<double>(all.largest),
      static_cast<long long>(all.onThreshold), static_cast<long long>(all.wrong));
  return all.wrong == 0 && all.drawn > 0;
}

}  // namespace vantle::test
