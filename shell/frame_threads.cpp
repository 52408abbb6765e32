#include "shell/frame_threads.h"

#include "base/parallel.h"

#include <algorithm>
#include <atomic>

namespace vantle {
namespace {

std::atomic<int> framesUnderWay{0};
thread_local bool isInFrame = false;

int Processors() {
#ifdef VANTLE_STD_THREADS
  return ParallelThreads();
#else
  return omp_get_num_procs();
#endif
}

void SetLoopThreads([[maybe_unused]] int threads) {
#ifndef VANTLE_STD_THREADS
  omp_set_num_threads(threads);
#endif
}

}  // namespace

int ThreadsOfFrame(int offered, int processors, int frames) {
  return frames <= 1 ? offered : std::min(offered, std::max(1, processors / frames));
}

ScopedFrameThreads::ScopedFrameThreads() : isOutermost_(!isInFrame) {
  if (!isOutermost_) return;
  isInFrame = true;
  threadsBefore_ = ParallelThreads();
  SetLoopThreads(ThreadsOfFrame(threadsBefore_, Processors(), ++framesUnderWay));
}

ScopedFrameThreads::~ScopedFrameThreads() {
  if (!isOutermost_) return;
  --framesUnderWay;
  SetLoopThreads(threadsBefore_);
  isInFrame = false;
}

}  // namespace vantle
