// Work that must not hang.
#pragma once

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <functional>
#include <future>
#include <thread>
#include <utility>

namespace vantle::test {

/// Does the work on a thread of its own. Ends the program when it takes many minutes: threads that wait for
/// each other cannot be taken back.
inline void MustEnd(const std::function<void()>& work) {
  std::packaged_task<void()> task(work);
  std::future<void> end = task.get_future();
  std::thread thread(std::move(task));
  if (end.wait_for(std::chrono::minutes(8)) != std::future_status::ready) {
    std::fprintf(stderr, "the renders wait for each other\n");
    std::_Exit(1);
  }
  thread.join();
}

}  // namespace vantle::test
