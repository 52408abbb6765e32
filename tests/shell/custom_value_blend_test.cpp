// Values between two keyframes.
#include "tests/shell/custom_value_fixture.h"

#include <algorithm>
#include <cstring>
#include <gtest/gtest.h>
#include <random>

namespace vantle::test {
namespace {

TEST_F(CustomValues, InterpolatingGradientsKeepsTheLeftShape) {
  std::mt19937 random(5);
  for (int round = 0; round < 100; ++round) {
    const ColorGradient left = RandomGradient(&random);
    const ColorGradient right = RandomGradient(&random);
    const double f = static_cast<double>(round) / 99.0;
    PF_ArbitraryH value = nullptr;
    EXPECT_EQ(Interpolate(kGradientTag, Keep(HandleOf(&host, left)), Keep(HandleOf(&host, right)), f, &value),
              PF_Err_NONE);
    ColorGradient result;
    std::memcpy(&result, Bytes(Keep(value)).data(), sizeof(result));
    ColorGradient expected = left;
    const float t = static_cast<float>(f);
    for (int i = 0; i < std::min(left.count, right.count); ++i) {
      const float* a = &left.stops[i].position;
      const float* b = &right.stops[i].position;
      float* to = &expected.stops[i].position;
      for (int field = 0; field < 4; ++field) to[field] = a[field] + (b[field] - a[field]) * t;
    }
    EXPECT_EQ(std::memcmp(&result, &expected, sizeof(result)), 0);
  }
  EXPECT_EQ(host.Imbalance(), "");
}

TEST_F(CustomValues, ThreeStopsTowardsFiveStayThree) {
  ColorGradient left;
  MakeDefaultGradient(&left);
  ColorGradient right = left;
  right.count = 5;
  PF_ArbitraryH value = nullptr;
  EXPECT_EQ(Interpolate(kGradientTag, Keep(HandleOf(&host, left)), Keep(HandleOf(&host, right)), 1.0, &value),
            PF_Err_NONE);
  EXPECT_EQ(Bytes(Keep(value)), BytesOf(left));
}

TEST_F(CustomValues, InterpolatingCurvesSamplesTheRightOne) {
  std::mt19937 random(6);
  for (int round = 0; round < 100; ++round) {
    const LifeCurve left = RandomCurve(&random);
    const LifeCurve right = RandomCurve(&random);
    const float t = static_cast<float>(round) / 99.0f;
    PF_ArbitraryH value = nullptr;
    EXPECT_EQ(
        Interpolate(kScaleCurveTag, Keep(HandleOf(&host, left)), Keep(HandleOf(&host, right)), t, &value),
        PF_Err_NONE);
    LifeCurve expected = left;
    for (int i = 0; i < left.count; ++i) {
      expected.y[i] = left.y[i] + (EvaluateLifeCurve(right, left.x[i]) - left.y[i]) * t;
    }
    EXPECT_EQ(Bytes(Keep(value)), BytesOf(expected));
  }
}

TEST_F(CustomValues, InterpolationWithAMissingPartIsADefault) {
  std::mt19937 random(7);
  const PF_Handle good = Keep(HandleOf(&host, RandomGradient(&random)));
  const PF_Handle tooSmall = Keep(host.NewHandle("abc", 3));
  const PF_Handle pairs[][2] = {{nullptr, good}, {good, nullptr}, {tooSmall, good}, {good, tooSmall}};
  PF_ArbitraryH value = nullptr;
  for (const auto& pair : pairs) {
    EXPECT_EQ(Interpolate(kGradientTag, pair[0], pair[1], 0.5, &value), PF_Err_NONE);
    EXPECT_EQ(Bytes(Keep(value)), DefaultBytes(kGradientTag));
  }
  for (int n = 2; n <= 4; ++n) {
    host.lockCalls = 0;
    host.failLockAt = n;
    EXPECT_EQ(Interpolate(kGradientTag, good, good, 0.5, &value), PF_Err_NONE);
    EXPECT_EQ(Bytes(Keep(value)), DefaultBytes(kGradientTag));
    EXPECT_EQ(host.Imbalance(), "");
  }
}

TEST_F(CustomValues, HostileCountsAreKeptAsTheyAre) {
  for (const int32_t count : {-1, 0, 17, INT32_MAX, INT32_MIN}) {
    const PF_Handle a = Keep(HandleOf(&host, CurveOfCount(count)));
    const ColorGradient gradient = GradientOfCount(count);
    const PF_Handle b = Keep(HandleOf(&host, gradient));
    PF_ArbitraryH value = nullptr;
    EXPECT_EQ(Interpolate(kOpacityCurveTag, a, a, 0.5, &value), PF_Err_NONE);
    LifeCurve blended;
    std::memcpy(&blended, Bytes(Keep(value)).data(), sizeof(blended));
    EXPECT_EQ(blended.count, count) << "what is stored is not rewritten";
    EXPECT_EQ(Interpolate(kGradientTag, b, b, 0.5, &value), PF_Err_NONE);
    EXPECT_EQ(Bytes(Keep(value)), BytesOf(gradient));
  }
}

}  // namespace
}  // namespace vantle::test
