// The parallel loops of a frame: a static schedule over contiguous ranges, so that which iteration runs where
// depends on nothing but the counts. Inside a body nothing throws, allocates or calls the host.
#pragma once

#include "base/floating_environment.h"

#include <cstdint>

#ifdef VANTLE_STD_THREADS
#include <thread>
#include <vector>
#else
#include <omp.h>
#endif

namespace vantle {

/// Number of threads the next loop may use: the OpenMP runtime's own setting of the calling thread.
inline int ParallelThreads() {
#ifdef VANTLE_STD_THREADS
  return 4;
#else
  return omp_get_max_threads();
#endif
}

/// Calls body(begin, end) over disjoint contiguous ranges that cover 0..count-1, at most one a thread, each
/// at least `grain` long where possible. Body must be noexcept in effect.
template <class Body>
void ParallelRanges(int64_t count, int64_t grain, const Body& body) {
  if (count <= 0) return;
  const int64_t useful = grain > 0 ? (count + grain - 1) / grain : count;
  const int64_t limit = ParallelThreads();
  const int64_t threads = useful < limit ? useful : limit;
  if (threads <= 1) {
    const ScopedFloatingEnvironment environment;
    body(int64_t{0}, count);
    return;
  }
  const auto range = [&](int64_t t) {
    const ScopedFloatingEnvironment environment;
    body(count * t / threads, count * (t + 1) / threads);
  };
#ifdef VANTLE_STD_THREADS
  std::vector<std::thread> workers;
  for (int64_t t = 1; t < threads; ++t) workers.emplace_back([&range, t] { range(t); });
  range(0);
  for (std::thread& worker : workers) worker.join();
#else
#pragma omp parallel for schedule(static) num_threads(static_cast <int>(threads))
  for (int64_t t = 0; t < threads; ++t) range(t);
#endif
}

}  // namespace vantle
