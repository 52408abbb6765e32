#include "host/io/codes.h"

#include <cmath>
#include <gtest/gtest.h>
#include <limits>

namespace vantle::io {
namespace {

TEST(Codes, FullAndNothingStayFullAndNothing) {
  for (const uint32_t from : {kFull8, kFullFile16, kFullWorld16}) {
    for (const uint32_t to : {kFull8, kFullFile16, kFullWorld16}) {
      EXPECT_EQ(ConvertCode(0, from, to), 0u);
      EXPECT_EQ(ConvertCode(from, from, to), to);
    }
  }
}

TEST(Codes, EveryConversionRoundsToTheNearestCode) {
  for (uint32_t code = 0; code <= kFullFile16; ++code) {
    const double exact = code * 32768.0 / 65535.0;
    EXPECT_EQ(ConvertCode(code, kFullFile16, kFullWorld16), static_cast<uint32_t>(std::floor(exact + 0.5)));
    EXPECT_EQ(ConvertCode(code, kFullFile16, kFull8),
              static_cast<uint32_t>(std::floor(code * 255.0 / 65535.0 + 0.5)));
  }
}

TEST(Codes, AWiderDepthAndBackGivesTheSameCode) {
  for (uint32_t code = 0; code <= kFull8; ++code) {
    EXPECT_EQ(ConvertCode(ConvertCode(code, kFull8, kFullWorld16), kFullWorld16, kFull8), code);
    EXPECT_EQ(ConvertCode(ConvertCode(code, kFull8, kFullFile16), kFullFile16, kFull8), code);
    EXPECT_EQ(CodeFromFloat(FloatFromCode(code, kFull8), kFull8), code);
  }
  for (uint32_t code = 0; code <= kFullWorld16; ++code) {
    EXPECT_EQ(ConvertCode(ConvertCode(code, kFullWorld16, kFullFile16), kFullFile16, kFullWorld16), code);
    EXPECT_EQ(CodeFromFloat(FloatFromCode(code, kFullWorld16), kFullWorld16), code);
  }
}

TEST(Codes, CodesAboveFullCountAsFull) {
  EXPECT_EQ(ConvertCode(65535, kFullWorld16, kFull8), 255u);
  EXPECT_EQ(ConvertCode(40000, kFullWorld16, kFullFile16), 65535u);
}

TEST(Codes, FloatsBeyondTheRangeAreHeld) {
  EXPECT_EQ(CodeFromFloat(-1.0f, kFull8), 0u);
  EXPECT_EQ(CodeFromFloat(7.0f, kFull8), 255u);
  EXPECT_EQ(CodeFromFloat(std::numeric_limits<float>::quiet_NaN(), kFull8), 0u);
  EXPECT_EQ(CodeFromFloat(std::numeric_limits<float>::infinity(), kFullWorld16), 32768u);
  EXPECT_EQ(CodeFromFloat(-std::numeric_limits<float>::infinity(), kFullWorld16), 0u);
}

}  // namespace
}  // namespace vantle::io
