#include "tests/graphics/kernel_difference.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstring>

namespace vantle::test {

namespace {

/// The largest difference of a pixel's premultiplied channels; infinite for what is not a number.
float PixelDifference(const float* a, const float* b) {
  float largest = std::fabs(a[0] - b[0]);
  for (int c = 1; c < 4; ++c) {
    const float difference = std::fabs(a[c] * a[0] - b[c] * b[0]);
    if (!(difference <= largest)) largest = difference;
  }
  return std::isfinite(largest) ? largest : INFINITY;
}

bool IsOnThreshold(const KernelScene& scene, float px, float py) {
  constexpr float kLeast = 0.001f;
  constexpr float kWidth = 1e-5f;
  for (const ProjectedParticle& particle : scene.particles) {
    kernel::Particle p{};
    std::memcpy(&p, &particle, sizeof(p));
    const kernel::ShapeFrame frame = kernel::prepareShape(p);
    if (!kernel::inBounds(px, py, frame, scene.shape)) continue;
    const float coverage = kernel::computeCoverage(px, py, frame, scene.shape, scene.roundCap);
    if (std::fabs(p.alpha * coverage - kLeast) <= kWidth) return true;
  }
  return false;
}

std::string Describe(const KernelScene& scene, int64_t index, const float* a, const float* b) {
  char text[320];
  std::snprintf(text, sizeof(text),
                "%s, %s, %s ends, %dx%d, pixel (%d, %d): processor (%.7g %.7g %.7g %.7g), graphics (%.7g "
                "%.7g %.7g %.7g)",
                ShapeName(scene.shape), ModeName(scene.mode), scene.roundCap ? "round" : "flat",
                scene.size.width, scene.size.height, static_cast<int>(index % scene.size.width),
                static_cast<int>(index / scene.size.width), static_cast<double>(a[0]),
                static_cast<double>(a[1]), static_cast<double>(a[2]), static_cast<double>(a[3]),
                static_cast<double>(b[0]), static_cast<double>(b[1]), static_cast<double>(b[2]),
                static_cast<double>(b[3]));
  return text;
}

}  // namespace

FrameDifference CompareFrames(const KernelScene& scene, const std::vector<float>& processor,
                              const std::vector<float>& graphics) {
  FrameDifference result;
  result.pixels = int64_t{scene.size.width} * scene.size.height;
  for (int64_t i = 0; i < result.pixels; ++i) {
    const float* const a = processor.data() + 4 * i;
    const float* const b = graphics.data() + 4 * i;
    if (a[0] != 0.0f) ++result.drawn;
    const float difference = PixelDifference(a, b);
    const bool equal = difference <= kTolerance && (a[0] != 0.0f) == (b[0] != 0.0f);
    if (equal) {
      result.largest = std::max(result.largest, difference);
      continue;
    }
    const float px = static_cast<float>(i % scene.size.width);
    const float py = static_cast<float>(i / scene.size.width);
    if (IsOnThreshold(scene, px, py)) {
      ++result.onThreshold;
      continue;
    }
    result.largest = std::max(result.largest, difference);
    if (result.wrong++ == 0) result.firstFault = Describe(scene, i, a, b);
  }
  return result;
}

void Accumulate(FrameDifference* sum, const FrameDifference& more) {
  sum->largest = std::max(sum->largest, more.largest);
  sum->pixels += more.pixels;
  sum->drawn += more.drawn;
  sum->onThreshold += more.onThreshold;
  sum->wrong += more.wrong;
  if (sum->firstFault.empty()) sum->firstFault = more.firstFault;
}

}  // namespace vantle::test
