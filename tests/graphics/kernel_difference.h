// How far a frame of the graphics processor is from the processor's.
#pragma once

#include "tests/graphics/kernel_scenes.h"

#include <string>
#include <vector>

namespace vantle::test {

/// The most that a premultiplied channel may differ.
inline constexpr float kTolerance = 1e-4f;

struct FrameDifference {
  float largest = 0.0f;     ///< of all premultiplied channels, pixels on the threshold left out
  int64_t pixels = 0;       ///< compared
  int64_t drawn = 0;        ///< of those, with something on them
  int64_t onThreshold = 0;  ///< beyond the tolerance, or drawn by one alone, where rounding may decide it
  int64_t wrong = 0;        ///< the same anywhere else: faults
  std::string firstFault;   ///< where and what; empty without faults
};

/// A particle whose opacity on a pixel is below 0.001 is not laid down; where one lies within 1e-5 of that,
/// rounding decides, and the pixel may differ by more than the tolerance.
FrameDifference CompareFrames(const KernelScene& scene, const std::vector<float>& processor,
                              const std::vector<float>& graphics);

/// Adds `more` to `sum`; keeps the first fault.
void Accumulate(FrameDifference* sum, const FrameDifference& more);

}  // namespace vantle::test
