#include "tests/reference/pixel_codec.h"

#include "base/numeric.h"

#include <algorithm>
#include <cstdint>
#include <cstring>

namespace vantle::reference {
namespace {

template <class Channel>
Pixel Read(const std::byte* at) {
  Channel c[4];
  std::memcpy(c, at, sizeof(c));
  return {static_cast<float>(c[0]), static_cast<float>(c[1]), static_cast<float>(c[2]),
          static_cast<float>(c[3])};
}

template <class Channel>
void Write(std::byte* at, const Pixel& pixel, float full) {
  const auto code = [full](float v) {
    return static_cast<Channel>(std::max(TruncToInt(std::min(v, 1.0f) * full), 0));
  };
  const Channel c[4] = {code(pixel.a), code(pixel.r), code(pixel.g), code(pixel.b)};
  std::memcpy(at, c, sizeof(c));
}

}  // namespace

size_t BytesPerPixel(PixelDepth depth) {
  return depth == PixelDepth::k8 ? 4 : depth == PixelDepth::k16 ? 8 : 16;
}

float CodeScale(PixelDepth depth) {
  return depth == PixelDepth::k8 ? 1.0f / 255.0f : depth == PixelDepth::k16 ? 1.0f / 32768.0f : 1.0f;
}

Pixel ReadCodes(const std::byte* at, PixelDepth depth) {
  return depth == PixelDepth::k8    ? Read<uint8_t>(at)
         : depth == PixelDepth::k16 ? Read<uint16_t>(at)
                                    : Read<float>(at);
}

Pixel ReadPixel(const std::byte* at, PixelDepth depth) {
  const Pixel codes = ReadCodes(at, depth);
  const float scale = CodeScale(depth);
  return {codes.a * scale, codes.r * scale, codes.g * scale, codes.b * scale};
}

void WritePixel(std::byte* at, PixelDepth depth, const Pixel& pixel) {
  if (depth == PixelDepth::k8) return Write<uint8_t>(at, pixel, 255.0f);
  if (depth == PixelDepth::k16) return Write<uint16_t>(at, pixel, 32768.0f);
  const float c[4] = {pixel.a, pixel.r, pixel.g, pixel.b};
  std::memcpy(at, c, sizeof(c));
}

}  // namespace vantle::reference
