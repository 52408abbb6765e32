// Frames that are rendered at once share the processor.
#include "shell/frame_threads.h"

#include "base/parallel.h"

#include <gtest/gtest.h>
#include <thread>

namespace vantle {
namespace {

TEST(FrameThreads, AFrameAloneGetsAllAndOthersTheirShare) {
  EXPECT_EQ(ThreadsOfFrame(8, 8, 1), 8);
  EXPECT_EQ(ThreadsOfFrame(8, 8, 3), 2);
  EXPECT_EQ(ThreadsOfFrame(8, 8, 4), 2);
  EXPECT_EQ(ThreadsOfFrame(2, 2, 4), 1);
  EXPECT_EQ(ThreadsOfFrame(1, 8, 1), 1);
}

TEST(FrameThreads, AHostThatSharesOutThreadsItselfIsNotSecondGuessed) {
  EXPECT_EQ(ThreadsOfFrame(2, 8, 4), 2);
  EXPECT_EQ(ThreadsOfFrame(1, 8, 2), 1);
  EXPECT_EQ(ThreadsOfFrame(16, 8, 1), 16);
}

#ifndef VANTLE_STD_THREADS
class FrameThreadsOfFour : public ::testing::Test {
 protected:
  void SetUp() override { omp_set_num_threads(4); }
  void TearDown() override { omp_set_num_threads(before_); }
  int before_ = ParallelThreads();
};

TEST_F(FrameThreadsOfFour, AreAllGivenBackAtTheEnd) {
  {
    const ScopedFrameThreads frame;
    EXPECT_EQ(ParallelThreads(), 4);
  }
  EXPECT_EQ(ParallelThreads(), 4);
}

TEST_F(FrameThreadsOfFour, AreKeptByAFrameInsideAFrame) {
  const ScopedFrameThreads outer;
  {
    const ScopedFrameThreads inner;
    EXPECT_EQ(ParallelThreads(), 4);
  }
  EXPECT_EQ(ParallelThreads(), 4);
}

TEST_F(FrameThreadsOfFour, AreSharedWhileAnotherThreadRenders) {
  const ScopedFrameThreads first;
  int during = 0, after = 0;
  std::thread([&] {
    omp_set_num_threads(4);
    {
      const ScopedFrameThreads second;
      during = ParallelThreads();
    }
    after = ParallelThreads();
  }).join();
  EXPECT_EQ(during, ThreadsOfFrame(4, omp_get_num_procs(), 2));
  EXPECT_EQ(after, 4);
  EXPECT_EQ(ParallelThreads(), 4);
}
#endif

}  // namespace
}  // namespace vantle
