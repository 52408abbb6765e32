// The shipped effect on several threads and inside itself.
#include "tests/host/real_effect.h"

#include <gtest/gtest.h>
#include <thread>

namespace vantle::host {
namespace {

TEST(RealEffectThreads, EightFramesAtOnceAreTheFramesOneByOne) {
  OpenedEffect opened = OpenReal();
  ASSERT_NE(opened.effect, nullptr);
  std::vector<FrameRequest> requests;
  std::vector<std::uint64_t> expected;
  for (int t = 0; t < 8; ++t) {
    requests.push_back(RealFrame(*opened.effect, 40, 30, t % 3 == 0 ? 8 : t % 3 == 1 ? 16 : 32));
    requests.back().values[kTransformParam] = 10.0 * t;
    requests.back().values[kShapeParam] = A_long{1 + t};
    expected.push_back(HashPixels(RenderClean(*opened.effect, requests.back())));
  }
  std::vector<std::thread> threads;
  for (std::size_t t = 0; t < requests.size(); ++t) {
    threads.emplace_back([&, t] {
      for (int i = 0; i < 5; ++i) {
        EXPECT_EQ(HashPixels(RenderClean(*opened.effect, requests[t])), expected[t]) << t;
      }
    });
  }
  for (std::thread& thread : threads) {
    thread.join();
  }
  EXPECT_EQ(AllLines(CloseEffect(*opened.effect).problems), "");
}

TEST(RealEffectThreads, ACheckoutMayRenderAnotherFrameOfTheSameEffect) {
  OpenedEffect opened = OpenReal();
  ASSERT_NE(opened.effect, nullptr);
  FrameRequest outer = RealFrame(*opened.effect, 32, 24, 8);
  FrameRequest inner = RealFrame(*opened.effect, 20, 28, 16);
  inner.values[kTransformParam] = 80.0;
  const std::uint64_t outerAlone = HashPixels(RenderClean(*opened.effect, outer));
  const std::uint64_t innerAlone = HashPixels(RenderClean(*opened.effect, inner));
  int nested = 0;
  outer.faults.emplace().insideCheckout = [&] {
    EXPECT_EQ(HashPixels(RenderClean(*opened.effect, inner)), innerAlone);
    ++nested;
  };
  EXPECT_EQ(HashPixels(RenderClean(*opened.effect, outer)), outerAlone);
  EXPECT_GE(nested, 2) << "once for each layer";
}

TEST(RealEffectThreads, CustomValuesOnSeveralThreads) {
  OpenedEffect opened = OpenReal();
  ASSERT_NE(opened.effect, nullptr);
  EffectInstance& effect = *opened.effect;
  const std::vector<std::uint8_t> value = effect.params[kScaleOverLifeParam].defaultBytes;
  std::vector<std::thread> threads;
  for (int t = 0; t < 4; ++t) {
    threads.emplace_back([&] {
      for (int i = 0; i < 50; ++i) {
        const CustomResult result = InterpolateCustomValue(effect, kScaleOverLifeParam, value, value, 0.5);
        EXPECT_EQ(result.bytes, value);
        EXPECT_EQ(AllLines(result.problems), "");
      }
    });
  }
  for (std::thread& thread : threads) {
    thread.join();
  }
  EXPECT_EQ(AllLines(CloseEffect(effect).problems), "");
}

}  // namespace
}  // namespace vantle::host
