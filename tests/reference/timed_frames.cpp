#include "tests/reference/timed_frames.h"

#include "tests/reference/dice.h"
#include "tests/reference/picture.h"
#include "tests/reference/product.h"
#include "tests/reference/random_settings.h"

#include <chrono>
#include <cstdio>

namespace vantle::reference {
namespace {

constexpr int32_t kWidth = 1920;
constexpr int32_t kHeight = 1080;

Picture OpaqueNoise(uint64_t seed) {
  Picture picture = MakePicture({.width = kWidth, .height = kHeight});
  Dice dice{seed};
  for (int32_t y = 0; y < kHeight; ++y) {
    for (int32_t x = 0; x < kWidth; ++x) {
      SetPixel(picture, x, y, {{1.0f, dice.Unit(), dice.Unit(), dice.Unit()}});
    }
  }
  return picture;
}

template <class Work>
double Seconds(const Work& work) {
  const auto start = std::chrono::steady_clock::now();
  work();
  return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

int TimeFrame(const char* name, const FrameInput& frame) {
  Picture expected = MakePicture({.width = kWidth, .height = kHeight});
  Picture actual = expected;
  std::vector<Particle> particles;
  ParticleList list;
  const double slow[] = {Seconds([&] { particles = Simulate(frame); }),
                         Seconds([&] { Rasterise(frame, particles, MutableOf(expected)); })};
  const double fast[] = {Seconds([&] { list = SimulateWithProduct(frame); }),
                         Seconds([&] { RasteriseWithProduct(frame, list, list.count, actual); })};
  std::printf(
      "%s frame, one thread, seconds: particles %.3f against %.3f, raster %.3f against %.3f, "
      "together %.1f times\n",
      name, slow[0], fast[0], slow[1], fast[1], (slow[0] + slow[1]) / (fast[0] + fast[1]));
  const std::string difference = FirstDifference(expected, actual);
  if (!difference.empty()) std::printf("%s frame differs: %s\n", name, difference.c_str());
  return difference.empty() ? 0 : 1;
}

}  // namespace

int PrintTimes() {
  SetThreads(1);
  const Picture a = OpaqueNoise(1);
  const Picture b = OpaqueNoise(2);
  FrameInput frame;
  frame.settings = DefaultSettings(kWidth, kHeight);
  frame.settings.transform = 0.5f;
  frame.layerA = ViewOf(a);
  frame.layerB = ViewOf(b);
  int result = TimeFrame("default", frame);

  frame.settings.density = 200000;
  frame.settings.size = 10.0f;
  frame.settings.turbulenceAmount = 0.1f;
  result |= TimeFrame("heavy", frame);
  return result;
}

}  // namespace vantle::reference
