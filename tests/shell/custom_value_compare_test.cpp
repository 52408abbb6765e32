// Whether two values are equal.
#include "tests/shell/custom_value_fixture.h"

#include <gtest/gtest.h>
#include <random>

namespace vantle::test {
namespace {

TEST_F(CustomValues, CompareIsByteForByte) {
  std::mt19937 random(8);
  ColorGradient gradient = RandomGradient(&random);
  const PF_Handle a = Keep(HandleOf(&host, gradient));
  EXPECT_EQ(Compare(a, a), PF_ArbCompare_EQUAL);
  EXPECT_EQ(Compare(a, Keep(HandleOf(&host, gradient))), PF_ArbCompare_EQUAL);
  for (size_t i = 0; i < sizeof(gradient); ++i) {
    ColorGradient other = gradient;
    reinterpret_cast<char*>(&other)[i] ^= 1;
    EXPECT_EQ(Compare(a, Keep(HandleOf(&host, other))), PF_ArbCompare_NOT_EQUAL) << i;
  }
  gradient.selected += 1;
  EXPECT_EQ(Compare(a, Keep(HandleOf(&host, gradient))), PF_ArbCompare_NOT_EQUAL);
}

TEST_F(CustomValues, CompareOfUnequalKindsNoneOrUnlockableIsNotEqual) {
  const char zeros[268] = {};
  const PF_Handle small = Keep(host.NewHandle(zeros, 140));
  const PF_Handle large = Keep(host.NewHandle(zeros, 268));
  const PF_Handle tiny = Keep(host.NewHandle(zeros, 4));
  const PF_Handle handles[] = {nullptr, small, large, tiny};
  for (const PF_Handle a : handles) {
    for (const PF_Handle b : handles) {
      const bool equal = a == b && (a == small || a == large);
      EXPECT_EQ(Compare(a, b), equal ? PF_ArbCompare_EQUAL : PF_ArbCompare_NOT_EQUAL);
    }
  }
  for (int n = 1; n <= 2; ++n) {
    host.lockCalls = 0;
    host.failLockAt = n;
    EXPECT_EQ(Compare(small, small), PF_ArbCompare_NOT_EQUAL);
    EXPECT_EQ(host.Imbalance(), "");
  }
}

}  // namespace
}  // namespace vantle::test
