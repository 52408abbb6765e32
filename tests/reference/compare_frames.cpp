// Compares many random frames, or times both roads:
// compare_frames [particles | raster | whole] [frames N] [first SEED], or compare_frames times
//
// Exit code 0 when every frame is equal; the first ten differences are printed.

#include "tests/reference/compare.h"
#include "tests/reference/product.h"
#include "tests/reference/timed_frames.h"

#include <cstdio>
#include <cstdlib>
#include <cstring>

namespace vantle::reference {
namespace {

constexpr int kThreads[] = {1, 2, 3, 8};

// One stage, or by turns whole frames and the rasteriser alone.
Stage StageOf(const char* name, uint64_t seed) {
  if (std::strcmp(name, "particles") == 0) return Stage::kParticles;
  if (std::strcmp(name, "raster") == 0) return Stage::kRaster;
  if (std::strcmp(name, "whole") == 0) return Stage::kWholeFrame;
  return seed % 3 == 0 ? Stage::kRaster : Stage::kWholeFrame;
}

int CompareMany(const char* stageName, uint64_t first, uint64_t frames) {
  uint64_t differences = 0;
  for (uint64_t seed = first; seed < first + frames; ++seed) {
    SetThreads(kThreads[seed % 4]);
    const Nature nature = seed % 5 == 0 ? Nature::kHostile : Nature::kTame;
    const std::string difference =
        Compare(seed, nature, StageOf(stageName, seed), LevelOf(static_cast<int>(seed / 4 % 3)));
    if (difference.empty()) continue;
    if (++differences <= 10) std::printf("%s\n", difference.c_str());
  }
  std::printf("%llu frames compared, %llu differ\n", static_cast<unsigned long long>(frames),
              static_cast<unsigned long long>(differences));
  return differences == 0 ? 0 : 1;
}

uint64_t Option(int argc, char** argv, const char* name, uint64_t fallback) {
  for (int i = 1; i + 1 < argc; ++i) {
    if (std::strcmp(argv[i], name) == 0) return std::strtoull(argv[i + 1], nullptr, 10);
  }
  return fallback;
}

}  // namespace
}  // namespace vantle::reference

int main(int argc, char** argv) {
  using namespace vantle::reference;
  if (argc > 1 && std::strcmp(argv[1], "times") == 0) return PrintTimes();
  return CompareMany(argc > 1 ? argv[1] : "", Option(argc, argv, "first", 100000),
                     Option(argc, argv, "frames", 10000));
}
