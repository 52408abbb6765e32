#include "ui/value_text.h"

#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <gtest/gtest.h>
#include <limits>
#include <random>
#include <string>

namespace vantle {
namespace {

std::string Whole(float value) {
  char text[kWholeTextSize];
  const size_t length = FormatWhole(value, text);
  EXPECT_EQ(std::strlen(text), length);
  return text;
}

TEST(ValueText, RoundsHalvesToEven) {
  EXPECT_EQ(Whole(0.5f), "0");
  EXPECT_EQ(Whole(1.5f), "2");
  EXPECT_EQ(Whole(2.5f), "2");
  EXPECT_EQ(Whole(12.5f), "12");
  EXPECT_EQ(Whole(-0.5f), "-0");
  EXPECT_EQ(Whole(-1.5f), "-2");
  EXPECT_EQ(Whole(-0.0f), "-0");
  EXPECT_EQ(Whole(8388607.5f), "8388608");
  EXPECT_EQ(Whole(0.49999997f), "0");
}

TEST(ValueText, ValuesThatAreNoNumbers) {
  EXPECT_EQ(Whole(std::numeric_limits<float>::infinity()), "inf");
  EXPECT_EQ(Whole(-std::numeric_limits<float>::infinity()), "-inf");
  EXPECT_EQ(Whole(std::nanf("")), "nan");
  EXPECT_EQ(Whole(-std::nanf("")), "nan");
  EXPECT_EQ(Whole(std::numeric_limits<float>::max()), "340282346638528859811704183484516925440");
}

TEST(ValueText, AgreesWithTheCFunctionEverywhere) {
  std::mt19937 random(10);
  for (int i = 0; i < 300000; ++i) {
    const uint32_t bits = static_cast<uint32_t>(random());
    float value;
    std::memcpy(&value, &bits, sizeof(value));
    if (!(value == value)) continue;
    char expected[64];
    std::snprintf(expected, sizeof(expected), "%.0f", static_cast<double>(value));
    ASSERT_EQ(Whole(value), expected) << bits;
  }
}

}  // namespace
}  // namespace vantle
