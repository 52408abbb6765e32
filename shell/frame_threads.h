// Threads of a frame when a host renders several at once.
#pragma once

namespace vantle {

/// How many of the `offered` threads a frame uses while `frames` are under way on so many processors: all of
/// them alone, else its share of the processors; at least one.
int ThreadsOfFrame(int offered, int processors, int frames);

/// Counts the frame that this thread renders, for the time of its scope, and gives its loops their share of
/// the processor: a frame alone gets all of it, and frames that a host renders side by side do not crowd it
/// with more threads than it runs at once. A frame inside a frame's checkout keeps what the outer one has,
/// which waits meanwhile. The bytes of a frame do not depend on its threads.
class ScopedFrameThreads {
 public:
  ScopedFrameThreads();
  ~ScopedFrameThreads();
  ScopedFrameThreads(const ScopedFrameThreads&) = delete;
  ScopedFrameThreads& operator=(const ScopedFrameThreads&) = delete;

 private:
  bool isOutermost_;
  int threadsBefore_ = 0;
};

}  // namespace vantle
