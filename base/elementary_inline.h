// The single-precision functions of elementary.h in a form that hot loops can inline. Each works in double
// inside, where a two-part reduction and a short polynomial leave an error far below half an ulp of float,
// and takes a branch only for arguments that no scene has.
//
// The polynomials are minimax fits (Remez exchange, relative error in the comments). The argument reduction
// follows Cody and Waite, "Software Manual for the Elementary Functions", 1980.
#pragma once

#include "base/elementary.h"

#include <bit>
#include <cmath>
#include <cstdint>
#include <limits>

namespace vantle {
namespace elementary {

/// Below this magnitude of the angle the two-part reduction is exact enough; above it ReduceHugeAngle takes
/// over.
inline constexpr double kPlainAngleLimit = 1048576.0;

/// An angle less its nearest multiple of pi/2: `high + low`, at most pi/4 in size, and that multiple
/// modulo 4.
struct ReducedAngle {
  double high;
  double low;
  int32_t quadrant;
};

/// Reduction for any finite angle of at least kPlainAngleLimit in size, by multiplication with enough bits of
/// 2/pi (Payne and Hanek, "Radian Reduction for Trigonometric Functions", 1983).
ReducedAngle ReduceHugeAngle(double radians);

/// Reduction of a float angle below kPlainAngleLimit. The first part of pi/2 has 25 bits, so that its product
/// with the multiple is exact.
inline ReducedAngle ReducePlainAngle(double radians) {
  constexpr double kRound = 6755399441055744.0;  // 1.5 * 2^52: adding it rounds to an integer
  constexpr double kTwoOverPi = 0x1.45f306dc9c883p-1;
  constexpr double kHalfPi1 = 0x1.921fb50000000p+0;
  constexpr double kHalfPi2 = 0x1.110b4611a6263p-26;
  const double shifted = radians * kTwoOverPi + kRound;
  const double n = shifted - kRound;
  const double r = (radians - n * kHalfPi1) - n * kHalfPi2;
  return {r, 0.0, static_cast<int32_t>(std::bit_cast<uint64_t>(shifted) & 3u)};
}

/// Sine on -pi/4..pi/4, relative error 2^-37.5. Real is double, or several of them side by side.
template <class Real>
Real SineKernel(Real r) {
  const Real z = r * r;
  const Real p = ((0x1.6cd1d1d632eb1p-19 * z - 0x1.a00f7e9fbf03fp-13) * z + 0x1.11110869b7e5ep-7) * z -
                 0x1.5555554c70e79p-3;
  return r * (1.0 + z * p);
}

/// Cosine on -pi/4..pi/4, relative error 2^-33.9.
template <class Real>
Real CosineKernel(Real r) {
  const Real z = r * r;
  const Real p = ((0x1.9916714a3eda3p-16 * z - 0x1.6c07f0a408db8p-10) * z + 0x1.55553c76a7a8cp-5) * z -
                 0x1.ffffffcb7d74fp-2;
  return 1.0 + z * p;
}

/// Arc tangent on -tan(pi/8)..tan(pi/8), relative error 2^-35.4.
template <class Real>
Real ArcTangentKernel(Real t) {
  const Real z = t * t;
  const Real p = ((((0x1.849d760f4d719p-5 * z - 0x1.5b2f1771f0afdp-4) * z + 0x1.c463cef33bfcfp-4) * z -
                   0x1.247ed89455b97p-3) *
                      z +
                  0x1.99991891df5bbp-3) *
                     z -
                 0x1.555554c5f0edcp-2;
  return t * (1.0 + z * p);
}

struct DoubleSineCosine {
  double sine;
  double cosine;
};

/// Puts the kernels' values in their quadrant.
inline DoubleSineCosine TurnByQuadrants(double sine, double cosine, int32_t quadrant) {
  const bool swapped = (quadrant & 1) != 0;
  const double s = swapped ? cosine : sine;
  const double c = swapped ? sine : cosine;
  return {(quadrant & 2) != 0 ? -s : s, ((quadrant + 1) & 2) != 0 ? -c : c};
}

/// Sine and cosine for float use: correct to some 2^-33.
inline DoubleSineCosine SineCosineOf(double radians) {
  if (!(std::fabs(radians) <= std::numeric_limits<double>::max())) {
    const double nan = std::numeric_limits<double>::quiet_NaN();
    return {nan, nan};
  }
  const ReducedAngle angle =
      std::fabs(radians) < kPlainAngleLimit ? ReducePlainAngle(radians) : ReduceHugeAngle(radians);
  return TurnByQuadrants(SineKernel(angle.high), CosineKernel(angle.high), angle.quadrant);
}

}  // namespace elementary

inline SineCosine SinCosInline(float radians) {
  const elementary::DoubleSineCosine both = elementary::SineCosineOf(static_cast<double>(radians));
  return {static_cast<float>(both.sine), static_cast<float>(both.cosine)};
}

inline float SinInline(float radians) {
  return SinCosInline(radians).sine;
}
inline float CosInline(float radians) {
  return SinCosInline(radians).cosine;
}

inline float Atan2Inline(float y, float x) {
  constexpr double kPi = 0x1.921fb54442d18p+1;
  // Infinities stand for a direction only; of two infinite coordinates neither is the larger.
  const bool bothInfinite = std::isinf(y) && std::isinf(x);
  const double ay = bothInfinite ? 1.0 : std::fabs(static_cast<double>(y));
  const double ax = bothInfinite ? 1.0 : std::fabs(static_cast<double>(x));
  const double larger = ay > ax ? ay : ax;
  const double smaller = ay > ax ? ax : ay;
  // One division serves both halves of the first octant: atan(q) = pi/4 + atan((q - 1) / (q + 1)).
  const bool upper = smaller > larger * 0.41421356237309503;
  const double numerator = upper ? smaller - larger : smaller;
  const double denominator = upper ? smaller + larger : (larger == 0.0 ? 1.0 : larger);
  const double t = std::isinf(denominator) ? 0.0 : numerator / denominator;
  double angle = elementary::ArcTangentKernel(t) + (upper ? kPi * 0.25 : 0.0);
  angle = ay > ax ? kPi * 0.5 - angle : angle;
  angle = std::signbit(x) ? kPi - angle : angle;
  if (std::isnan(x) || std::isnan(y)) return std::numeric_limits<float>::quiet_NaN();
  return std::copysign(static_cast<float>(angle), y);
}

namespace elementary {
/// Remainder by long division in integers, for any finite x and finite y != 0.
float FmodOfIntegers(float x, float y);
}  // namespace elementary

inline float FmodInline(float x, float y) {
  const double dx = static_cast<double>(x);
  const double dy = static_cast<double>(y);
  const double quotient = dx / dy;
  if (!(std::fabs(quotient) < 536870912.0)) {
    // Here the whole quotient times y would no longer fit a double; and NaN, infinities and y = 0 end here.
    if (!(std::fabs(dx) <= std::numeric_limits<double>::max()) || !(y == y) || y == 0.0f) {
      return std::numeric_limits<float>::quiet_NaN();
    }
    return elementary::FmodOfIntegers(x, y);
  }
  if (std::isinf(y)) return x;
  // The rounded quotient may be one too large; every product and difference below is exact.
  const double size = std::fabs(dy);
  const double whole = static_cast<double>(static_cast<int32_t>(std::fabs(quotient)));
  double r = std::fabs(dx) - whole * size;
  r = r < 0.0 ? r + size : r;
  return std::copysign(static_cast<float>(r), x);
}

}  // namespace vantle
