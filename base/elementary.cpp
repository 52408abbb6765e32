#include "base/elementary.h"

#include "base/elementary_inline.h"

#include <bit>
#include <cmath>
#include <cstdint>
#include <limits>

namespace vantle {

// ---- Single precision ----

float Sin(float radians) {
  return SinInline(radians);
}

float Cos(float radians) {
  return CosInline(radians);
}

SineCosine SinCos(float radians) {
  return SinCosInline(radians);
}

float Tan(float radians) {
  const elementary::DoubleSineCosine both = elementary::SineCosineOf(static_cast<double>(radians));
  return static_cast<float>(both.sine / both.cosine);
}

float Atan2(float y, float x) {
  return Atan2Inline(y, x);
}

float Asin(float x) {
  const double d = static_cast<double>(x);
  return static_cast<float>(Asin(d));
}

float Fmod(float x, float y) {
  return FmodInline(x, y);
}

namespace elementary {

float FmodOfIntegers(float x, float y) {
  // Both as whole multiples of the smallest float, 2^-149.
  const auto exponentOf = [](uint32_t bits) { return bits >> 23 ? static_cast<int32_t>(bits >> 23) : 1; };
  const auto mantissaOf = [](uint32_t bits) { return (bits & 0x7FFFFFu) | (bits >> 23 ? 0x800000u : 0u); };
  const uint32_t sizeX = std::bit_cast<uint32_t>(x) & 0x7FFFFFFFu;
  const uint32_t sizeY = std::bit_cast<uint32_t>(y) & 0x7FFFFFFFu;
  if (sizeX < sizeY) return x;
  // Long division, up to 32 bits a step: the remainder stays below y's 24 bits.
  const uint64_t divisor = mantissaOf(sizeY);
  uint64_t remainder = mantissaOf(sizeX);
  int32_t shift = exponentOf(sizeX) - exponentOf(sizeY);
  remainder %= divisor;
  while (shift > 0) {
    const int32_t step = shift < 32 ? shift : 32;
    remainder = (remainder << step) % divisor;
    shift -= step;
  }
  const double unit = std::ldexp(1.0, exponentOf(sizeY) - 150);
  return std::copysign(static_cast<float>(static_cast<double>(remainder) * unit), x);
}

}  // namespace elementary
}  // namespace vantle
