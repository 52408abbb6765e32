// Pixels in and out of lanes, generic over both.
#pragma once

#include "base/pixels.h"

#include <cstddef>
#include <cstdint>
#include <cstring>

namespace vantle {

/// Codes to 0..1.
template <class Format>
inline constexpr float kUnit = Format::kDepth == PixelDepth::k8 ? 1.0f / 255.0f : 1.0f / 32768.0f;
template <>
inline constexpr float kUnit<Format32> = 1.0f;

/// Bytes of a row of the lanes' pixels.
template <class L, class Format>
inline constexpr int64_t kChunkBytes = int64_t{L::kColumns} * int64_t{kPixelBytes<Format>};

/// The lanes' pixels in 0..1; `nextRow` is for lanes that span two rows.
template <class L, class Format>
inline auto LoadPixels(const std::byte* at, const std::byte* nextRow) {
  return LoadScaled(Format{}, at, nextRow, L{}, kUnit<Format>);
}

/// L::kCount pixels one after the other, in raw codes.
template <class L, class Format>
inline auto LoadCodes(const std::byte* at) {
  return LoadScaled(Format{}, at, at + kChunkBytes<L, Format>, L{}, 1.0f);
}

/// L::kCount pixels one after the other, in 0..1.
template <class L, class Format>
inline auto LoadInOneRow(const std::byte* at) {
  return LoadPixels<L, Format>(at, at + kChunkBytes<L, Format>);
}

/// Numbers one after the other.
template <class L>
inline L LoadLanes(const float* at) {
  return L::LoadCoverage(at, L::kColumns);
}
template <class L>
inline void StoreLanes(const L& values, float* at) {
  values.StoreCoverage(at, L::kColumns);
}

}  // namespace vantle
