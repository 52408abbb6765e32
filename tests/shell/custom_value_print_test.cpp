// The texts that hosts show beside the controls.
#include "tests/shell/custom_value_fixture.h"

#include <cmath>
#include <gtest/gtest.h>
#include <limits>
#include <random>
#include <string>

namespace vantle::test {
namespace {

TEST_F(CustomValues, PrintSizeIsFixed) {
  A_u_long size = 0;
  PF_ArbParamsExtra extra{};
  extra.u.print_size_func_params = {nullptr, nullptr, &size};
  EXPECT_EQ(Call(&host, PF_Arbitrary_PRINT_SIZE_FUNC, &extra), PF_Err_NONE);
  EXPECT_EQ(size, 128u);
}

TEST_F(CustomValues, DefaultsPrintAsHostsShowThem) {
  PF_ArbitraryH value = nullptr;
  New(kGradientTag, &value);
  EXPECT_EQ(Print(Keep(value), 128), "0%,50%,100%");
  New(kScaleCurveTag, &value);
  EXPECT_EQ(Print(Keep(value), 128), "100,100");
  EXPECT_EQ(Print(nullptr, 128), "");
  EXPECT_EQ(Print(nullptr, 1), "");
  EXPECT_EQ(Print(Keep(host.NewHandle("x", 1)), 128), "");
}

TEST_F(CustomValues, PrintStopsNearTheEndOfTheBuffer) {
  ColorGradient gradient;
  MakeDefaultGradient(&gradient);
  gradient.count = 8;
  for (GradientStop& stop : gradient.stops)
    stop.position = 1e10f;  // "999999995904%": 13 characters and a comma
  const PF_Handle value = Keep(HandleOf(&host, gradient));
  // Parts start at 0, 14, 28 ... and only below size - 16: the eighth would start at 97.
  EXPECT_EQ(Print(value, 128).size(), 8 * 13 + 7u);
  EXPECT_EQ(Print(value, 17).size(), 13u);
  EXPECT_EQ(Print(value, 16), "");
  EXPECT_EQ(Print(value, 1), "");
  const std::string longest = Print(value, 113);
  EXPECT_EQ(longest.size(), 7 * 13 + 6u) << "a part at position 97 = 113 - 16 is not begun";
  EXPECT_EQ(Print(value, 114).size(), 8 * 13 + 7u);
}

TEST_F(CustomValues, PrintNeverOverrunsItsBuffer) {
  const float infinity = std::numeric_limits<float>::infinity();
  const float hostile[] = {std::nanf(""), infinity, -infinity, 3.4e36f,  -3.4e36f, 1e20f,
                           -0.0f,         -0.001f,  1e-40f,    0.00499f, 123.456f, 3.4e38f};
  std::mt19937 random(9);
  for (int round = 0; round < 300; ++round) {
    ColorGradient gradient;
    LifeCurve curve;
    MakeDefaultGradient(&gradient);
    MakeDefaultLifeCurve(&curve, 1.0f);
    gradient.count = static_cast<int32_t>(random());
    curve.count = round % 3 == 0 ? INT32_MAX : static_cast<int32_t>(random() % 20);
    for (GradientStop& stop : gradient.stops) stop.position = hostile[random() % 12];
    for (float& y : curve.y) y = hostile[random() % 12];
    const PF_Handle first = Keep(HandleOf(&host, gradient));
    const PF_Handle second = Keep(HandleOf(&host, curve));
    for (const A_u_long size : {1u, 2u, 8u, 9u, 10u, 16u, 17u, 20u, 45u, 64u, 128u, 300u}) {
      EXPECT_LT(Print(first, size).size(), size);
      EXPECT_LT(Print(second, size).size(), size);
    }
  }
  EXPECT_EQ(host.Imbalance(), "");
}

TEST_F(CustomValues, ValuesWithoutItemsPrintNothing) {
  for (const int32_t count : {-1, 0, INT32_MIN}) {
    EXPECT_EQ(Print(Keep(HandleOf(&host, CurveOfCount(count))), 128), "");
    EXPECT_EQ(Print(Keep(HandleOf(&host, GradientOfCount(count))), 128), "");
  }
}

}  // namespace
}  // namespace vantle::test
