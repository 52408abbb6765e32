// One pixel of any depth to floats and back.
#pragma once

#include "base/image_view.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>

namespace vantle::reference {

/// Straight colour and alpha, 1 is full.
struct Pixel {
  float a = 0.0f;
  float r = 0.0f;
  float g = 0.0f;
  float b = 0.0f;
};

/// Bytes of a pixel.
inline size_t BytesPerPixel(PixelDepth depth) {
  return depth == PixelDepth::k8 ? 4 : depth == PixelDepth::k16 ? 8 : 16;
}

/// What one code value is worth: 1/255, 1/32768 or 1.
inline float CodeScale(PixelDepth depth) {
  return depth == PixelDepth::k8 ? 1.0f / 255.0f : depth == PixelDepth::k16 ? 1.0f / 32768.0f : 1.0f;
}

template <class Channel>
Pixel ReadChannels(const std::byte* at) {
  Channel c[4];
  std::memcpy(c, at, sizeof(c));
  return {static_cast<float>(c[0]), static_cast<float>(c[1]), static_cast<float>(c[2]),
          static_cast<float>(c[3])};
}

template <class Channel>
void WriteChannels(std::byte* at, const Pixel& pixel, float full) {
  const auto code = [full](float v) {
    const float capped = std::min(v, 1.0f);
    return capped > 0.0f ? static_cast<Channel>(static_cast<int32_t>(capped * full)) : Channel{0};
  };
  const Channel c[4] = {code(pixel.a), code(pixel.r), code(pixel.g), code(pixel.b)};
  std::memcpy(at, c, sizeof(c));
}

/// The codes as floats, not scaled.
inline Pixel ReadCodes(const std::byte* at, PixelDepth depth) {
  return depth == PixelDepth::k8    ? ReadChannels<uint8_t>(at)
         : depth == PixelDepth::k16 ? ReadChannels<uint16_t>(at)
                                    : ReadChannels<float>(at);
}

/// The codes scaled so that full is 1.
inline Pixel ReadPixel(const std::byte* at, PixelDepth depth) {
  const Pixel codes = ReadCodes(at, depth);
  const float scale = CodeScale(depth);
  return {codes.a * scale, codes.r * scale, codes.g * scale, codes.b * scale};
}

/// Whole codes are capped from above and truncated, negatives and NaNs are 0; floats are written as they are.
inline void WritePixel(std::byte* at, PixelDepth depth, const Pixel& pixel) {
  if (depth == PixelDepth::k8) return WriteChannels<uint8_t>(at, pixel, 255.0f);
  if (depth == PixelDepth::k16) return WriteChannels<uint16_t>(at, pixel, 32768.0f);
  const float c[4] = {pixel.a, pixel.r, pixel.g, pixel.b};
  std::memcpy(at, c, sizeof(c));
}

}  // namespace vantle::reference
