#include "base/pixels.h"

#include "base/numeric.h"

#include <cmath>
#include <gtest/gtest.h>
#include <limits>

namespace vantle {
namespace {

TEST(Format8, FullCodeIsOneAndEveryCodeComesBackWithinOneStep) {
  EXPECT_EQ(Format8::ToFloat(0), 0.0f);
  EXPECT_EQ(Format8::ToFloat(255), 1.0f);
  for (int code = 0; code <= 255; ++code) {
    const int back = Format8::FromFloat(Format8::ToFloat(static_cast<uint8_t>(code)));
    EXPECT_GE(back, code - 1);
    EXPECT_LE(back, code);
  }
}

TEST(Format16, EveryCodeOfTheHostsRangeComesBack) {
  for (int code = 0; code <= 32768; ++code) {
    ASSERT_EQ(Format16::FromFloat(Format16::ToFloat(static_cast<uint16_t>(code))), code);
  }
}

TEST(Formats, ClampFromAboveAndNeverReadNonsense) {
  const float nan = std::numeric_limits<float>::quiet_NaN();
  EXPECT_EQ(Format8::FromFloat(7.0f), 255);
  EXPECT_EQ(Format8::FromFloat(-1.0f), 0);
  EXPECT_EQ(Format16::FromFloat(std::numeric_limits<float>::infinity()), 32768);
  EXPECT_LE(Format16::FromFloat(nan), 32768);
}

TEST(TruncToInt, SaturatesAndTakesNanForZero) {
  EXPECT_EQ(TruncToInt(1.9f), 1);
  EXPECT_EQ(TruncToInt(-1.9f), -1);
  EXPECT_EQ(TruncToInt(3e9f), INT32_MAX);
  EXPECT_EQ(TruncToInt(-3e9f), INT32_MIN);
  EXPECT_EQ(TruncToInt(-2147483648.0f), INT32_MIN);
  EXPECT_EQ(TruncToInt(std::nanf("")), 0);
  EXPECT_EQ(TruncToInt(-2147483648.9), INT32_MIN);
  EXPECT_EQ(TruncToInt(2147483647.9), INT32_MAX);
  EXPECT_EQ(TruncToInt(std::nan("")), 0);
}

TEST(Clamp, TakesNanForTheLowerEnd) {
  EXPECT_EQ(Clamp(std::nanf(""), 0.25f, 1.0f), 0.25f);
  EXPECT_EQ(Clamp(2.0f, 0.25f, 1.0f), 1.0f);
  EXPECT_EQ(Clamp(0.5f, 0.25f, 1.0f), 0.5f);
}

}  // namespace
}  // namespace vantle
