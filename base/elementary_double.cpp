// The double-precision functions, and the reduction of huge angles that both precisions share.
#include "base/elementary.h"
#include "base/elementary_inline.h"

#include <bit>
#include <cmath>
#include <cstdint>
#include <limits>

namespace vantle {
namespace {

using elementary::DoubleSineCosine;
using elementary::ReducedAngle;

constexpr double kNan = std::numeric_limits<double>::quiet_NaN();

/// 2/pi after the binary point, 32 bits a word; enough for the largest double.
constexpr uint32_t kTwoOverPi[42] = {
    0xA2F9836Eu, 0x4E441529u, 0xFC2757D1u, 0xF534DDC0u, 0xDB629599u, 0x3C439041u, 0xFE5163ABu,
    0xDEBBC561u, 0xB7246E3Au, 0x424DD2E0u, 0x06492EEAu, 0x09D1921Cu, 0xFE1DEB1Cu, 0xB129A73Eu,
    0xE88235F5u, 0x2EBB4484u, 0xE99C7026u, 0xB45F7E41u, 0x3991D639u, 0x835339F4u, 0x9C845F8Bu,
    0xBDF9283Bu, 0x1FF897FFu, 0xDE05980Fu, 0xEF2F118Bu, 0x5A0A6D1Fu, 0x6D367ECFu, 0x27CB09B7u,
    0x4F463F66u, 0x9E5FEA2Du, 0x7527BAC7u, 0xEBE5F17Bu, 0x3D0739F7u, 0x8A5292EAu, 0x6BFB5FB1u,
    0x1F8D5D08u, 0x56033046u, 0xFC7B6BABu, 0xF0CFBC20u, 0x9AF4361Du, 0xA9E39161u, 0x5EE61B08u};

/// Words of 2/pi that one reduction needs, and of their product with a 53-bit integer.
constexpr int32_t kWindow = 7;
constexpr int32_t kProductWords = kWindow + 2;

/// Upper 64 bits of the 128-bit product.
uint64_t MultiplyHigh(uint64_t a, uint64_t b) {
  const uint64_t a0 = a & 0xFFFFFFFFu, a1 = a >> 32, b0 = b & 0xFFFFFFFFu, b1 = b >> 32;
  const uint64_t middle = a1 * b0 + ((a0 * b0) >> 32);
  const uint64_t other = a0 * b1 + (middle & 0xFFFFFFFFu);
  return a1 * b1 + (middle >> 32) + (other >> 32);
}

/// product[0] is the lowest word of mantissa * (the seven words of 2/pi from `first` on).
void MultiplyWindow(uint64_t mantissa, int32_t first, uint32_t* product) {
  const uint64_t parts[2] = {mantissa & 0xFFFFFFFFu, mantissa >> 32};
  for (int32_t i = 0; i < kProductWords; ++i) product[i] = 0;
  for (int32_t p = 0; p < 2; ++p) {
    uint64_t carry = 0;
    for (int32_t i = 0; i < kWindow; ++i) {
      const uint64_t word = kTwoOverPi[first + kWindow - 1 - i];
      carry += parts[p] * word + product[i + p];
      product[i + p] = static_cast<uint32_t>(carry);
      carry >>= 32;
    }
    product[kWindow + p] = static_cast<uint32_t>(carry);
  }
}

/// Bit `at` and the 63 below it, from words with zeros below the lowest.
uint64_t BitsDownFrom(const uint32_t* words, int32_t at) {
  uint64_t bits = 0;
  for (int32_t i = 0; i < 64; ++i) {
    const int32_t k = at - i;
    const uint32_t bit = k < 0 ? 0u : (words[k / 32] >> (k % 32)) & 1u;
    bits = (bits << 1) | bit;
  }
  return bits;
}

bool BitOf(const uint32_t* words, int32_t at) {
  return ((words[at / 32] >> (at % 32)) & 1u) != 0;
}

/// Reduction of a double angle below kPlainAngleLimit: pi/2 in three parts, the first two of 33 bits.
ReducedAngle ReduceDoubleAngle(double radians) {
  constexpr double kRound = 6755399441055744.0;
  const double shifted = radians * 0x1.45f306dc9c883p-1 + kRound;
  const double n = shifted - kRound;
  const double first = radians - n * 0x1.921fb54400000p+0;
  const double secondPart = n * 0x1.0b4611a600000p-34;
  const double second = first - secondPart;
  const double thirdPart = n * 0x1.3198a2e037073p-69 - ((first - second) - secondPart);
  const double high = second - thirdPart;
  const double low = (second - high) - thirdPart;
  return {high, low, static_cast<int32_t>(std::bit_cast<uint64_t>(shifted) & 3u)};
}

/// Sine of high + low on -pi/4..pi/4, polynomial's relative error 2^-57.9.
double DoubleSineKernel(double high, double low) {
  const double z = high * high;
  const double p = ((((0x1.5d8fbae7208c7p-33 * z - 0x1.ae5e5a459a956p-26) * z + 0x1.71de356775f62p-19) * z -
                     0x1.a01a019bfd87fp-13) *
                        z +
                    0x1.111111110f7cdp-7) *
                       z -
                   0x1.5555555555548p-3;
  return high + (high * z * p + low * (1.0 - 0.5 * z));
}

/// Cosine of high + low on -pi/4..pi/4, polynomial's relative error 2^-64.
double DoubleCosineKernel(double high, double low) {
  const double z = high * high;
  const double p = ((((0x1.1ee9d783bb3b3p-29 - 0x1.8fa480026cc20p-37 * z) * z - 0x1.27e4f7ea7e0ffp-22) * z +
                     0x1.a01a019c83efdp-16) *
                        z -
                    0x1.6c16c16c14f8ep-10) *
                       z +
                   0x1.555555555554bp-5;
  const double half = 0.5 * z;
  const double w = 1.0 - half;
  return w + (((1.0 - w) - half) + (z * z * p - high * low));
}

DoubleSineCosine DoubleSinCos(double radians) {
  if (!(std::fabs(radians) <= std::numeric_limits<double>::max())) return {kNan, kNan};
  const ReducedAngle angle = std::fabs(radians) < elementary::kPlainAngleLimit
                                 ? ReduceDoubleAngle(radians)
                                 : elementary::ReduceHugeAngle(radians);
  return elementary::TurnByQuadrants(DoubleSineKernel(angle.high, angle.low),
                                     DoubleCosineKernel(angle.high, angle.low), angle.quadrant);
}

/// Arc tangent on -tan(pi/8)..tan(pi/8), relative error of the polynomial 2^-64.
double DoubleArcTangentKernel(double t) {
  constexpr double kTerms[12] = {0x1.f1d9f320d70f6p-7,  -0x1.1233c13f69280p-5, 0x1.70eb6aba99560p-5,
                                 -0x1.ab7d020896c72p-5, 0x1.e171eb2199b15p-5,  -0x1.110c71af104ebp-4,
                                 0x1.3b136e19a7b92p-4,  -0x1.745d14b8d4ff7p-4, 0x1.c71c71b744439p-4,
                                 -0x1.2492492475629p-3, 0x1.999999999964ap-3,  -0x1.5555555555554p-2};
  const double z = t * t;
  double p = kTerms[0];
  for (int32_t i = 1; i < 12; ++i) p = p * z + kTerms[i];
  return t + t * z * p;
}

}  // namespace

namespace elementary {

ReducedAngle ReduceHugeAngle(double radians) {
  const uint64_t bits = std::bit_cast<uint64_t>(radians);
  const uint64_t mantissa = (bits & 0xFFFFFFFFFFFFFu) | 0x10000000000000u;
  const int32_t exponent = static_cast<int32_t>((bits >> 52) & 0x7FFu) - 1075;

  // Words of 2/pi whose product is a multiple of four turns of pi/2 are left out.
  const int32_t first = exponent > 2 ? (exponent - 2) / 32 : 0;
  uint32_t product[kProductWords];
  MultiplyWindow(mantissa, first, product);
  const int32_t fractionBits = 32 * (first + kWindow) - exponent;

  // Round to the nearest quadrant; a fraction of a half or more is counted back from the next one.
  int32_t quadrant = (BitOf(product, fractionBits) ? 1 : 0) + (BitOf(product, fractionBits + 1) ? 2 : 0);
  const bool back = BitOf(product, fractionBits - 1);
  if (back) {
    ++quadrant;
    uint64_t carry = 1;
    for (uint32_t& word : product) {
      carry += static_cast<uint32_t>(~word);
      word = static_cast<uint32_t>(carry);
      carry >>= 32;
    }
  }
  int32_t top = fractionBits - 1;
  while (top > 0 && !BitOf(product, top)) --top;

  // fraction * pi/2, 64 bits of each.
  uint64_t size = MultiplyHigh(BitsDownFrom(product, top), 0xC90FDAA22168C235u);
  const double unit = std::ldexp(1.0, top - fractionBits - 62);
  const double high = static_cast<double>(size & ~uint64_t{0x7FF}) * unit;
  const double low = static_cast<double>(size & 0x7FFu) * unit;
  const bool negative = back != std::signbit(radians);
  const int32_t turns = std::signbit(radians) ? -quadrant : quadrant;
  return {negative ? -high : high, negative ? -low : low, turns & 3};
}

}  // namespace elementary

double Sin(double radians) {
  return radians == 0.0 ? radians : DoubleSinCos(radians).sine;
}

double Cos(double radians) {
  return DoubleSinCos(radians).cosine;
}

double Atan2(double y, double x) {
  constexpr double kPi = 0x1.921fb54442d18p+1, kPiLow = 0x1.1a62633145c07p-53;
  if (std::isnan(x) || std::isnan(y)) return kNan;
  const bool bothInfinite = std::isinf(y) && std::isinf(x);
  const double ay = bothInfinite ? 1.0 : std::fabs(y);
  const double ax = bothInfinite ? 1.0 : std::fabs(x);
  const bool steep = ay > ax;
  const double larger = steep ? ay : ax;
  const double smaller = steep ? ax : ay;

  const double q = larger == 0.0 || std::isinf(larger) ? 0.0 : smaller / larger;
  const bool upper = q > 0.41421356237309503;
  const double t = upper ? (q - 1.0) / (q + 1.0) : q;

  // Multiples of pi/4 enter with their low parts, the angle between them last.
  double base = upper ? kPi * 0.25 : 0.0, baseLow = upper ? kPiLow * 0.25 : 0.0, sign = 1.0;
  if (steep) base = kPi * 0.5 - base, baseLow = kPiLow * 0.5 - baseLow, sign = -sign;
  if (std::signbit(x)) base = kPi - base, baseLow = kPiLow - baseLow, sign = -sign;
  const double angle = base + (baseLow + sign * DoubleArcTangentKernel(t));
  return std::copysign(angle, y);
}

double Asin(double x) {
  if (!(std::fabs(x) <= 1.0)) return kNan;
  return Atan2(x, std::sqrt((1.0 - x) * (1.0 + x)));
}

}  // namespace vantle
