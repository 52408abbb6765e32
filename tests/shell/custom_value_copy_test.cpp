// Copies of values.
#include "tests/shell/custom_value_fixture.h"

#include <gtest/gtest.h>
#include <random>

namespace vantle::test {
namespace {

TEST_F(CustomValues, CopyTakesEveryByte) {
  std::mt19937 random(1);
  const ColorGradient gradient = RandomGradient(&random);
  const LifeCurve curve = RandomCurve(&random);
  const PF_Handle first = Keep(HandleOf(&host, gradient));
  const PF_Handle second = Keep(HandleOf(&host, curve));
  PF_ArbitraryH copy = nullptr;
  EXPECT_EQ(Copy(kGradientTag, first, &copy), PF_Err_NONE);
  EXPECT_EQ(Bytes(Keep(copy)), BytesOf(gradient));
  EXPECT_NE(copy, first);
  for (const uint32_t tag : {kScaleCurveTag, kOpacityCurveTag}) {
    EXPECT_EQ(Copy(tag, second, &copy), PF_Err_NONE);
    EXPECT_EQ(Bytes(Keep(copy)), BytesOf(curve));
  }
  EXPECT_EQ(host.Imbalance(), "");
}

TEST_F(CustomValues, CopyOfNothingOrOfTooLittleIsADefault) {
  const char bytes[267] = {};
  for (const uint32_t tag : kTags) {
    PF_ArbitraryH copy = nullptr;
    EXPECT_EQ(Copy(tag, nullptr, &copy), PF_Err_NONE);
    EXPECT_EQ(Bytes(Keep(copy)), DefaultBytes(tag));
    for (const size_t size : {0u, 1u, 139u, 140u, 267u}) {
      if (tag == kGradientTag && size >= 140) continue;
      EXPECT_EQ(Copy(tag, Keep(host.NewHandle(bytes, size)), &copy), PF_Err_NONE);
      EXPECT_EQ(Bytes(Keep(copy)), DefaultBytes(tag));
    }
  }
}

TEST_F(CustomValues, CopyWithAFailingLockStaysADefault) {
  std::mt19937 random(2);
  const PF_Handle source = Keep(HandleOf(&host, RandomGradient(&random)));
  for (int n = 2; n <= 3; ++n) {  // the first lock fills the new value
    host.lockCalls = 0;
    host.failLockAt = n;
    PF_ArbitraryH copy = nullptr;
    EXPECT_EQ(Copy(kGradientTag, source, &copy), PF_Err_NONE);
    EXPECT_EQ(Bytes(Keep(copy)), DefaultBytes(kGradientTag));
    EXPECT_EQ(host.Imbalance(), "");
  }
}

}  // namespace
}  // namespace vantle::test
