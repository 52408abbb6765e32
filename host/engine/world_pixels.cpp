// Single pixels, for tests and for whoever draws small worlds by hand.
#include "host/engine/world.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstring>

namespace vantle::host {
namespace {

template <typename Code>
PF_PixelFloat ReadCodes(const std::uint8_t* at, float full) {
  std::array<Code, 4> codes{};
  std::memcpy(codes.data(), at, sizeof codes);
  return {static_cast<float>(codes[0]) / full, static_cast<float>(codes[1]) / full,
          static_cast<float>(codes[2]) / full, static_cast<float>(codes[3]) / full};
}

template <typename Code>
Code ToCode(float channel, float full) {
  const float clamped = channel > 0.0F ? std::min(channel, 1.0F) : 0.0F;
  return static_cast<Code>(std::floor(clamped * full + 0.5F));
}

template <typename Code>
void WriteCodes(std::uint8_t* at, const PF_PixelFloat& pixel, float full) {
  const std::array<Code, 4> codes{ToCode<Code>(pixel.alpha, full), ToCode<Code>(pixel.red, full),
                                  ToCode<Code>(pixel.green, full), ToCode<Code>(pixel.blue, full)};
  std::memcpy(at, codes.data(), sizeof codes);
}

std::size_t PixelOffset(const World& world, int x) {
  return static_cast<std::size_t>(x) * static_cast<std::size_t>(PixelBytes(world.depth));
}

}  // namespace

PF_PixelFloat ReadPixel(const World& world, int x, int y) {
  const std::uint8_t* at = WorldRow(world, y) + PixelOffset(world, x);
  if (world.depth == 8) {
    return ReadCodes<std::uint8_t>(at, 255.0F);
  }
  if (world.depth == 16) {
    return ReadCodes<std::uint16_t>(at, 32768.0F);
  }
  PF_PixelFloat pixel{};
  std::memcpy(&pixel, at, sizeof pixel);
  return pixel;
}

void WritePixel(World& world, int x, int y, const PF_PixelFloat& pixel) {
  std::uint8_t* at = WorldRow(world, y) + PixelOffset(world, x);
  if (world.depth == 8) {
    WriteCodes<std::uint8_t>(at, pixel, 255.0F);
  } else if (world.depth == 16) {
    WriteCodes<std::uint16_t>(at, pixel, 32768.0F);
  } else {
    std::memcpy(at, &pixel, sizeof pixel);
  }
}

}  // namespace vantle::host
