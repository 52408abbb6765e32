#include "base/floating_environment.h"
#include "base/parallel.h"

#include <atomic>
#include <gtest/gtest.h>
#include <vector>

namespace vantle {
namespace {

constexpr unsigned kRoundUp = 0x4000, kFlushToZero = 0x8000, kDenormalsAreZero = 0x0040;

/// What one twenty-fifth, whose nearest float lies below it, comes to under the rounding mode in force.
float TwentyFifth() {
  volatile float one = 1.0f, quotient = 0.0f;
  quotient = one / 25.0f;  // volatile on both sides, so that the division stays where it is
  return quotient;
}

TEST(FloatingEnvironment, IsTheDefaultInsideAndTheCallersAfterwards) {
  const unsigned before = _mm_getcsr();
  const float nearest = TwentyFifth();
  _mm_setcsr(before | kRoundUp | kFlushToZero | kDenormalsAreZero);
  const unsigned caller = _mm_getcsr() & ~0x3Fu;  // the lowest bits are sticky flags
  const float up = TwentyFifth();
  float inside = 0.0f;
  {
    const ScopedFloatingEnvironment environment;
    inside = TwentyFifth();
  }
  const unsigned after = _mm_getcsr() & ~0x3Fu;
  _mm_setcsr(before);
  EXPECT_EQ(inside, nearest);
  EXPECT_GT(up, nearest);
  EXPECT_EQ(after, caller);
}

TEST(ParallelRanges, CoverEveryIndexOnceOnAnyNumberOfThreads) {
  for (const int threads : {1, 2, 3, 8}) {
#ifndef VANTLE_STD_THREADS
    omp_set_num_threads(threads);
#else
    static_cast<void>(threads);
#endif
    for (const int64_t count : {0, 1, 2, 7, 8, 1000}) {
      std::vector<std::atomic<int>> hits(static_cast<size_t>(count));
      ParallelRanges(count, 2, [&](int64_t begin, int64_t end) {
        for (int64_t i = begin; i < end; ++i) ++hits[static_cast<size_t>(i)];
      });
      for (const std::atomic<int>& hit : hits) EXPECT_EQ(hit, 1);
    }
  }
}

TEST(ParallelRanges, ComputeUnderTheDefaultEnvironment) {
  const unsigned before = _mm_getcsr();
  const float nearest = TwentyFifth();
  float found[8] = {};
  _mm_setcsr(before | kRoundUp);
  ParallelRanges(8, 1, [&](int64_t begin, int64_t end) {
    for (int64_t i = begin; i < end; ++i) found[i] = TwentyFifth();
  });
  _mm_setcsr(before);
  for (const float value : found) EXPECT_EQ(value, nearest);
}

}  // namespace
}  // namespace vantle
