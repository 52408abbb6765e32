// How a channel's code at one depth becomes a code at another. One rule: the fraction of full is kept and
// rounded to the nearest code, ties upward; a float below 0 or not a number becomes 0, above 1 becomes full.
// "Full" is 255 in 8-bit files and worlds, 65535 in 16-bit files, 32768 in 16-bit worlds, 1.0 in floats.
// Going to a wider depth and back gives the code one started from.
#pragma once

#include "base/numeric.h"

#include <cstdint>

namespace vantle::io {

inline constexpr uint32_t kFull8 = 255;
inline constexpr uint32_t kFullFile16 = 65535;
inline constexpr uint32_t kFullWorld16 = 32768;

/// code * toFull / fromFull, rounded to nearest; codes above fromFull count as fromFull.
constexpr uint32_t ConvertCode(uint32_t code, uint32_t fromFull, uint32_t toFull) {
  const uint64_t held = code < fromFull ? code : fromFull;
  return static_cast<uint32_t>((held * toFull * 2 + fromFull) / (uint64_t{2} * fromFull));
}

/// value * full, rounded to nearest.
inline uint32_t CodeFromFloat(float value, uint32_t full) {
  const double held = value > 0.0f ? (value < 1.0f ? static_cast<double>(value) : 1.0) : 0.0;
  return static_cast<uint32_t>(held * full + 0.5);
}

/// code / full, the nearest float.
inline float FloatFromCode(uint32_t code, uint32_t full) {
  return static_cast<float>(static_cast<double>(code) / full);
}

}  // namespace vantle::io
