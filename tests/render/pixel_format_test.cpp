// Codes to floats and back, over all codes.
#include "base/pixels.h"

#include <cmath>
#include <gtest/gtest.h>

namespace vantle {
namespace {

// The row loops write untouched neighbours back through their floats, which relies on this.
TEST(PixelFormat, EveryCodeComesBack) {
  for (int c = 0; c < 256; ++c) {
    ASSERT_EQ(Format8::FromFloat(Format8::ToFloat(static_cast<uint8_t>(c))), c);
  }
  for (int c = 0; c <= 32768; ++c) {
    ASSERT_EQ(Format16::FromFloat(Format16::ToFloat(static_cast<uint16_t>(c))), c);
  }
}

TEST(PixelFormat, TruncatesAndCapsFromAbove) {
  EXPECT_EQ(Format8::FromFloat(0.5f), 127);
  EXPECT_EQ(Format8::FromFloat(0.999f), 254);
  EXPECT_EQ(Format8::FromFloat(1.0f), 255);
  EXPECT_EQ(Format8::FromFloat(17.0f), 255);
  EXPECT_EQ(Format16::FromFloat(1.0f), 32768);
  EXPECT_EQ(Format16::FromFloat(INFINITY), 32768);
  EXPECT_EQ(Format16::FromFloat(0.5f), 16384);
  EXPECT_EQ(Format32::FromFloat(3.5f), 3.5f);
}

TEST(PixelFormat, NegativesAndNanAreZero) {
  for (const float v : {-0.0f, -1e-30f, -5.0f, -INFINITY, NAN}) {
    EXPECT_EQ(Format8::FromFloat(v), 0);
    EXPECT_EQ(Format16::FromFloat(v), 0);
  }
}

}  // namespace
}  // namespace vantle
