// Pixel formats as types: how a channel's code becomes a float and back. Channel order is alpha, red, green,
// blue at every depth.
#pragma once

#include "base/image_view.h"

#include <cstddef>
#include <cstdint>
#include <cstring>

namespace vantle {

/// A pixel in floats: straight colour 0..1 (and beyond in float worlds), alpha 0..1.
struct FloatPixel {
  float a = 0.0f;
  float r = 0.0f;
  float g = 0.0f;
  float b = 0.0f;
};

/// 8 bits a channel, 255 is full.
struct Format8 {
  using Channel = uint8_t;
  static constexpr PixelDepth kDepth = PixelDepth::k8;
  static float ToFloat(Channel code) { return static_cast<float>(code) * (1.0f / 255.0f); }
  /// Clamps from above only and truncates: the blend never produces negatives. NaN and negatives give 0.
  static Channel FromFloat(float v) {
    const float capped = v > 1.0f ? 1.0f : v;
    return capped > 0.0f ? static_cast<Channel>(capped * 255.0f) : Channel{0};
  }
};

/// 16 bits a channel in the host's range, where 32768 is full.
struct Format16 {
  using Channel = uint16_t;
  static constexpr PixelDepth kDepth = PixelDepth::k16;
  static float ToFloat(Channel code) { return static_cast<float>(code) * (1.0f / 32768.0f); }
  static Channel FromFloat(float v) {
    const float capped = v > 1.0f ? 1.0f : v;
    return capped > 0.0f ? static_cast<Channel>(capped * 32768.0f) : Channel{0};
  }
};

/// 32-bit floats, never clamped.
struct Format32 {
  using Channel = float;
  static constexpr PixelDepth kDepth = PixelDepth::k32;
  static float ToFloat(Channel code) { return code; }
  static Channel FromFloat(float v) { return v; }
};

template <class Format>
constexpr size_t kPixelBytes = 4 * sizeof(typename Format::Channel);

/// Reads the pixel at `at`, which need not be aligned.
template <class Format>
FloatPixel LoadPixel(const std::byte* at) {
  typename Format::Channel c[4];
  std::memcpy(c, at, sizeof(c));
  return {Format::ToFloat(c[0]), Format::ToFloat(c[1]), Format::ToFloat(c[2]), Format::ToFloat(c[3])};
}

/// Writes the pixel to `at`, which need not be aligned.
template <class Format>
void StorePixel(std::byte* at, const FloatPixel& p) {
  const typename Format::Channel c[4] = {Format::FromFloat(p.a), Format::FromFloat(p.r),
                                         Format::FromFloat(p.g), Format::FromFloat(p.b)};
  std::memcpy(at, c, sizeof(c));
}

inline size_t PixelBytes(PixelDepth depth) {
  return depth == PixelDepth::k8    ? kPixelBytes<Format8>
         : depth == PixelDepth::k16 ? kPixelBytes<Format16>
                                    : kPixelBytes<Format32>;
}

}  // namespace vantle
