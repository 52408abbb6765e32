// The elementary functions on lanes, with the bits of their scalar forms: the same polynomials in the same
// order. Arguments that no scene has are handed to the scalar form one by one. Included after a lanes_*.h.
#pragma once

#include "base/elementary.h"
#include "base/elementary_inline.h"

#include <cstdint>
#include <limits>

namespace vantle {
namespace {

/// Angles or coordinates beyond it, and NaN, are left to the scalar functions.
inline Mask IsWithin(Floats a, float limit) {
  return Abs(a) < limit;
}

inline bool AllOf(Mask m) {
  return BitsOf(m) == kAllBits;
}

struct SineCosineLanes {
  Floats sine, cosine;
};

inline SineCosineLanes SinCosOneByOne(Floats radians) {
  float angles[kWidth], sines[kWidth], cosines[kWidth];
  Store(angles, radians);
  for (int32_t l = 0; l < kWidth; ++l) {
    const SineCosine both = SinCos(angles[l]);
    sines[l] = both.sine;
    cosines[l] = both.cosine;
  }
  return {Load(sines), Load(cosines)};
}

inline SineCosineLanes SinCosOf(Floats radians) {
  if (!AllOf(IsWithin(radians, static_cast<float>(elementary::kPlainAngleLimit)))) {
    return SinCosOneByOne(radians);
  }
  constexpr double kRound = 6755399441055744.0;  // 1.5 * 2^52: the quadrant is left in the lowest bits
  const Doubles angle = ToDoubles(radians);
  const Doubles shifted = angle * 0x1.45f306dc9c883p-1 + kRound;
  const Doubles n = shifted - kRound;
  const Doubles r = (angle - n * 0x1.921fb50000000p+0) - n * 0x1.110b4611a6263p-26;
  const Doubles sine = elementary::SineKernel(r), cosine = elementary::CosineKernel(r);

  const DoubleMask swapped = BitSet<0>(shifted);
  const Doubles s = Select(swapped, cosine, sine), c = Select(swapped, sine, cosine);
  // The cosine is negative in quadrants 1 and 2, where the lowest two bits differ.
  const Doubles turned = TurnSign<0>(TurnSign<1>(c, shifted), shifted);
  return {ToFloats(TurnSign<1>(s, shifted)), ToFloats(turned)};
}

inline Floats Atan2OneByOne(Floats y, Floats x) {
  float ys[kWidth], xs[kWidth];
  Store(ys, y);
  Store(xs, x);
  for (int32_t l = 0; l < kWidth; ++l) ys[l] = Atan2(ys[l], xs[l]);
  return Load(ys);
}

inline Floats Atan2Of(Floats y, Floats x) {
  constexpr float kInfinite = std::numeric_limits<float>::infinity();
  if (!AllOf(And(IsWithin(y, kInfinite), IsWithin(x, kInfinite)))) return Atan2OneByOne(y, x);
  constexpr double kPi = 0x1.921fb54442d18p+1;
  const Doubles ay = ToDoubles(Abs(y)), ax = ToDoubles(Abs(x));
  const DoubleMask steep = ax < ay;
  const Doubles larger = Select(steep, ay, ax), smaller = Select(steep, ax, ay);
  const DoubleMask upper = larger * 0.41421356237309503 < smaller;
  const Doubles numerator = Select(upper, smaller - larger, smaller);
  const Doubles denominator = Select(upper, smaller + larger, Select(larger == 0.0, Doubles(1.0), larger));
  const Doubles kernel = elementary::ArcTangentKernel(numerator / denominator);
  Doubles angle = kernel + Select(upper, Doubles(kPi * 0.25), Doubles(0.0));
  angle = Select(steep, kPi * 0.5 - angle, angle);
  angle = Select(BitSet<63>(ToDoubles(x)), kPi - angle, angle);
  // Angles from 0 to pi take y's sign.
  return TurnSign<31>(ToFloats(angle), AsInts(y));
}

/// Remainder of x / y for a whole y from 2 to 360. Every product and difference on the plain road is exact.
inline Floats FmodOf(Floats x, float y) {
  const Mask plain = And(Floats(0.0f) <= x, x < 32768.0f);
  if (!AllOf(plain)) {
    float xs[kWidth];
    Store(xs, x);
    for (int32_t l = 0; l < kWidth; ++l) xs[l] = Fmod(xs[l], y);
    return Load(xs);
  }
  // The rounded quotient may be one too large.
  const Floats r = x - ToFloats(TruncToPlainInts(x / y)) * y;
  return Select(r < 0.0f, r + y, r);
}

}  // namespace
}  // namespace vantle
