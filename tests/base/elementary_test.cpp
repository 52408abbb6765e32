// Our single-precision functions against the C library in double, which is some 2^29 times finer.

#include "base/elementary.h"

#include "base/elementary_inline.h"

#include <bit>
#include <cmath>
#include <gtest/gtest.h>
#include <limits>
#include <random>

namespace vantle {
namespace {

constexpr float kInf = std::numeric_limits<float>::infinity();
constexpr float kNan = std::numeric_limits<float>::quiet_NaN();

uint32_t Bits(float v) {
  return std::bit_cast<uint32_t>(v);
}

float FloatOf(uint32_t bits) {
  return std::bit_cast<float>(bits);
}

/// Distance from the truth in units of the last place of a float of that size.
double UlpsOff(float value, double truth) {
  int exponent = 0;
  std::frexp(truth, &exponent);
  const double ulp = std::ldexp(1.0, std::max(exponent - 24, -149));
  return std::fabs(static_cast<double>(value) - truth) / ulp;
}

/// The worst error of `ours` against `truth` over every `stride`th positive float up to `largest`.
template <class Ours, class Truth>
double WorstError(float largest, uint32_t stride, const Ours& ours, const Truth& truth) {
  double worst = 0.0;
  for (uint32_t bits = 0; bits <= Bits(largest); bits += stride) {
    const float x = FloatOf(bits);
    worst = std::max(worst, UlpsOff(ours(x), truth(static_cast<double>(x))));
  }
  return worst;
}

constexpr float kLargest = std::numeric_limits<float>::max();
constexpr double kAllowed = 0.502;  // of an ulp; 0.5 is correct rounding

TEST(Sine, IsWithinHalfAnUlpOverAllFloats) {
  EXPECT_LT(WorstError(
                kLargest, 331, [](float x) { return Sin(x); }, [](double x) { return std::sin(x); }),
            kAllowed);
}

TEST(Cosine, IsWithinHalfAnUlpOverAllFloats) {
  EXPECT_LT(WorstError(
                kLargest, 331, [](float x) { return Cos(x); }, [](double x) { return std::cos(x); }),
            kAllowed);
}

TEST(Tangent, IsWithinHalfAnUlpOverAllFloats) {
  EXPECT_LT(WorstError(
                kLargest, 331, [](float x) { return Tan(x); }, [](double x) { return std::tan(x); }),
            kAllowed);
}

TEST(ArcSine, IsWithinHalfAnUlpOverItsDomain) {
  EXPECT_LT(WorstError(
                1.0f, 101, [](float x) { return Asin(x); }, [](double x) { return std::asin(x); }),
            kAllowed);
}

TEST(Sine, IsDenselyRightWhereScenesUseIt) {
  // Every float of one binade each: the steep start, the turn of the quadrant, large swirls.
  for (const float from : {0.5f, 1.0f, 2.0f, 512.0f, 524288.0f}) {
    double worst = 0.0;
    for (uint32_t bits = Bits(from); bits < Bits(2.0f * from); bits += 3) {
      const SineCosine both = SinCos(FloatOf(bits));
      const double x = static_cast<double>(FloatOf(bits));
      worst = std::max({worst, UlpsOff(both.sine, std::sin(x)), UlpsOff(both.cosine, std::cos(x))});
    }
    EXPECT_LT(worst, kAllowed) << "from " << from;
  }
}

TEST(ArcTangent, IsWithinHalfAnUlpAnywhere) {
  std::mt19937 random(1);
  double worst = 0.0;
  for (int i = 0; i < 4000000; ++i) {
    const bool wild = i % 2 == 0;
    const auto coordinate = [&] {
      const uint32_t bits = static_cast<uint32_t>(random());
      return wild ? FloatOf(bits) : static_cast<float>(static_cast<int32_t>(bits)) * 0x1p-20f;
    };
    const float y = coordinate(), x = coordinate();
    if (std::isnan(x) || std::isnan(y)) continue;
    worst = std::max(worst, UlpsOff(Atan2(y, x), std::atan2(static_cast<double>(y), static_cast<double>(x))));
  }
  EXPECT_LT(worst, kAllowed);
}

TEST(ArcTangent, FollowsTheStandardAtZeroAndInfinity) {
  for (const float y : {0.0f, -0.0f, 1.0f, -1.0f, kInf, -kInf}) {
    for (const float x : {0.0f, -0.0f, 1.0f, -1.0f, kInf, -kInf}) {
      const double truth = std::atan2(static_cast<double>(y), static_cast<double>(x));
      EXPECT_EQ(Bits(Atan2(y, x)), Bits(static_cast<float>(truth))) << y << ", " << x;
    }
  }
  EXPECT_TRUE(std::isnan(Atan2(kNan, 1.0f)));
  EXPECT_TRUE(std::isnan(Atan2(1.0f, kNan)));
  EXPECT_TRUE(std::isnan(Atan2(kInf, kNan)));
}

TEST(Sine, IsOddAndCosineEven) {
  std::mt19937 random(2);
  for (int i = 0; i < 200000; ++i) {
    const float x = FloatOf(static_cast<uint32_t>(random()));
    if (!std::isfinite(x)) continue;
    ASSERT_EQ(Bits(Sin(-x)), Bits(-Sin(x))) << x;
    ASSERT_EQ(Bits(Cos(-x)), Bits(Cos(x))) << x;
  }
  EXPECT_EQ(Bits(Sin(-0.0f)), Bits(-0.0f));
  EXPECT_EQ(Sin(0.0f), 0.0f);
  EXPECT_EQ(Cos(0.0f), 1.0f);
}

TEST(Sine, HasNoValueAtInfinity) {
  for (const float x : {kInf, -kInf, kNan}) {
    EXPECT_TRUE(std::isnan(Sin(x)));
    EXPECT_TRUE(std::isnan(Cos(x)));
    EXPECT_TRUE(std::isnan(Tan(x)));
    EXPECT_TRUE(std::isnan(Asin(x)));
  }
  EXPECT_TRUE(std::isnan(Asin(1.0000001f)));
}

TEST(Sine, IsTheSameAloneAndTogetherAndInline) {
  std::mt19937 random(3);
  for (int i = 0; i < 100000; ++i) {
    const float x = FloatOf(static_cast<uint32_t>(random()) & 0x7F7FFFFFu);
    const SineCosine both = SinCos(x);
    ASSERT_EQ(Bits(Sin(x)), Bits(both.sine));
    ASSERT_EQ(Bits(Cos(x)), Bits(both.cosine));
    ASSERT_EQ(Bits(SinInline(x)), Bits(both.sine));
  }
}

// Computed with sixty digits; whatever compiler or processor runs this must come to the same.
TEST(Sine, HasTheRecordedBits) {
  EXPECT_EQ(Bits(Sin(3.14159265f)), 0xB3BBBD2Eu);
  EXPECT_EQ(Bits(Sin(2.0f)), 0x3F68C7B7u);
  EXPECT_EQ(Bits(Sin(1e10f)), 0xBEF99A64u);
  EXPECT_EQ(Bits(Cos(3e6f)), 0x3EF49D0Bu);
  EXPECT_EQ(Bits(Cos(1e30f)), 0xBF1C9222u);
  EXPECT_EQ(Bits(Tan(0.5f)), 0x3F0BDA7Bu);
  EXPECT_EQ(Bits(Atan2(-3.0f, -2.0f)), 0xC00A29C3u);
  EXPECT_EQ(Bits(Asin(0.7f)), 0x3F468073u);
}

TEST(Remainder, EqualsTheExactOneForAllKindsOfFloats) {
  std::mt19937 random(4);
  for (int i = 0; i < 3000000; ++i) {
    const float x = FloatOf(static_cast<uint32_t>(random()));
    const float y = i % 3 == 0   ? FloatOf(static_cast<uint32_t>(random()))
                    : i % 3 == 1 ? x / static_cast<float>(random() % 1000u + 1u)
                                 : FloatOf(static_cast<uint32_t>(random()) % 0x00900000u);
    const float expected = std::fmod(x, y), found = Fmod(x, y);
    if (std::isnan(expected)) {
      ASSERT_TRUE(std::isnan(found)) << x << " % " << y;
    } else {
      ASSERT_EQ(Bits(found), Bits(expected)) << x << " % " << y;
    }
  }
}

TEST(Remainder, KeepsTheDividendsSign) {
  EXPECT_EQ(Bits(Fmod(-6.0f, 3.0f)), Bits(-0.0f));
  EXPECT_EQ(Fmod(-7.0f, 3.0f), -1.0f);
  EXPECT_EQ(Fmod(7.0f, -3.0f), 1.0f);
  EXPECT_EQ(Fmod(5.5f, kInf), 5.5f);
  EXPECT_TRUE(std::isnan(Fmod(kInf, 2.0f)));
  EXPECT_TRUE(std::isnan(Fmod(1.0f, 0.0f)));
  EXPECT_TRUE(std::isnan(Fmod(1.0f, kNan)));
  EXPECT_TRUE(std::isnan(Fmod(kNan, 1.0f)));
}

}  // namespace
}  // namespace vantle
