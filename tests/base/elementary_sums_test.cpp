// The elementary functions give the same bits on every machine: sums over their results, noted once. They
// also stand in for the comparison with the C library where that one's own functions are not good enough.
#include "base/elementary.h"

#include <bit>
#include <cstdint>
#include <gtest/gtest.h>

namespace vantle {
namespace {

struct Sum {
  uint64_t value = 14695981039346656037u;

  void Add(uint64_t bits) { value = (value ^ bits) * 1099511628211u; }
  // Which NaN comes out of an operation is the processor's business.
  void Add(float v) { Add(v != v ? uint64_t{0} : uint64_t{std::bit_cast<uint32_t>(v)}); }
  void Add(double v) { Add(v != v ? uint64_t{0} : std::bit_cast<uint64_t>(v)); }
};

TEST(ElementarySums, FloatsOfEveryExponent) {
  Sum sum;
  for (uint64_t bits = 0; bits < uint64_t{1} << 32; bits += 10007) {
    const auto x = std::bit_cast<float>(static_cast<uint32_t>(bits));
    for (const float result : {Sin(x), Cos(x), Tan(x), Asin(x), Atan2(x, 0.75f), Fmod(x, 3.0f)})
      sum.Add(result);
  }
  EXPECT_EQ(sum.value, 10118303423884912488u);
}

TEST(ElementarySums, DoublesOfEveryExponent) {
  Sum sum;
  for (uint64_t i = 0; i < 400000; ++i) {
    const auto x = std::bit_cast<double>(i * 46116860184273u);
    for (const double result : {Sin(x), Cos(x), Asin(x), Atan2(x, 0.75)}) sum.Add(result);
  }
  EXPECT_EQ(sum.value, 7742867921042543967u);
}

}  // namespace
}  // namespace vantle
