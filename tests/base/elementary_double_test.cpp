// The double-precision functions against the C library in extended precision where there is one.

#include "base/elementary.h"

#include <cmath>
#include <gtest/gtest.h>
#include <limits>
#include <random>

namespace vantle {
namespace {

using Wide = long double;

double UlpsOff(double value, Wide truth) {
  int exponent = 0;
  std::frexp(truth, &exponent);
  const Wide ulp = std::ldexp(Wide{1}, std::max(exponent - 53, -1074));
  return static_cast<double>(std::fabs(static_cast<Wide>(value) - truth) / ulp);
}

double Spread(std::mt19937_64& random, int exponent) {
  return std::ldexp(static_cast<double>(static_cast<int64_t>(random())), exponent - 63);
}

TEST(DoubleSine, IsWithinAnUlp) {
  std::mt19937_64 random(1);
  double worst = 0.0;
  for (int i = 0; i < 500000; ++i) {
    const double x = Spread(random, i % 60);
    worst = std::max({worst, UlpsOff(Sin(x), std::sin(static_cast<Wide>(x))),
                      UlpsOff(Cos(x), std::cos(static_cast<Wide>(x)))});
  }
  EXPECT_LT(worst, 1.1);
}

TEST(DoubleSine, TakesTheLargestArguments) {
  std::mt19937_64 random(2);
  for (int i = 0; i < 100000; ++i) {
    const double x = Spread(random, 60 + i % 963);
    ASSERT_NEAR(Sin(x), std::sin(x), 4e-16) << x;
    ASSERT_NEAR(Cos(x), std::cos(x), 4e-16) << x;
  }
  EXPECT_TRUE(std::isnan(Sin(std::numeric_limits<double>::infinity())));
  EXPECT_TRUE(std::isnan(Cos(std::numeric_limits<double>::quiet_NaN())));
}

TEST(DoubleArcTangent, IsWithinFourUlps) {
  std::mt19937_64 random(3);
  double worst = 0.0;
  for (int i = 0; i < 500000; ++i) {
    const double y = Spread(random, i % 9), x = Spread(random, i % 11);
    worst = std::max(worst, UlpsOff(Atan2(y, x), std::atan2(static_cast<Wide>(y), static_cast<Wide>(x))));
  }
  EXPECT_LT(worst, 4.0);
}

TEST(DoubleArcTangent, FollowsTheStandardAtZeroAndInfinity) {
  const double inf = std::numeric_limits<double>::infinity();
  for (const double y : {0.0, -0.0, 1.0, -1.0, inf, -inf}) {
    for (const double x : {0.0, -0.0, 1.0, -1.0, inf, -inf}) {
      EXPECT_EQ(Atan2(y, x), std::atan2(y, x)) << y << ", " << x;
      EXPECT_EQ(std::signbit(Atan2(y, x)), std::signbit(y)) << y << ", " << x;
    }
  }
}

TEST(DoubleArcSine, IsWithinFourUlpsAndEndsAtOne) {
  std::mt19937_64 random(4);
  double worst = 0.0;
  for (int i = 0; i < 300000; ++i) {
    const double x = Spread(random, 0);
    worst = std::max(worst, UlpsOff(Asin(x), std::asin(static_cast<Wide>(x))));
  }
  EXPECT_LT(worst, 4.0);
  EXPECT_EQ(Asin(1.0), std::asin(1.0));
  EXPECT_EQ(Asin(-1.0), std::asin(-1.0));
  EXPECT_TRUE(std::isnan(Asin(1.0000000000000002)));
  EXPECT_TRUE(std::isnan(Asin(std::numeric_limits<double>::quiet_NaN())));
}

}  // namespace
}  // namespace vantle
