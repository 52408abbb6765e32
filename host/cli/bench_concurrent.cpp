#include "host/cli/bench_concurrent.h"

#include "host/cli/session.h"
#include "host/io/failure.h"

#include <barrier>
#include <chrono>
#include <exception>
#include <mutex>
#include <thread>

namespace vantle::cli {
namespace {

using Clock = std::chrono::steady_clock;

/// What the threads of a round share.
struct Round {
  explicit Round(int parties) : start(parties) {}
  std::barrier<> start;
  std::mutex mutex;
  double milliseconds = 0.0;
  std::exception_ptr failure;
};

/// One of a host's threads. The first frame is not measured: it starts the thread's loop threads.
void RenderFrames(host::EffectInstance& effect, const BenchScene& scene, int loopThreads, int frames,
                  Round* round) {
  double sum = 0.0;
  try {
    SetLoopThreads(loopThreads);
    host::World world;
    RenderOnce(effect, scene, &world);
    round->start.arrive_and_wait();
    for (int i = 0; i < frames; ++i) sum += RenderOnce(effect, scene, &world);
  } catch (...) {
    const std::lock_guard lock(round->mutex);
    round->failure = std::current_exception();
    round->start.arrive_and_drop();
  }
  const std::lock_guard lock(round->mutex);
  round->milliseconds += sum;
}

void RunRound(host::EffectInstance& effect, const BenchScene& scene, int frames, ConcurrentCase* entry) {
  const int each = frames / entry->framesAtOnce;
  Round round(entry->framesAtOnce + 1);
  std::vector<std::thread> threads;
  for (int i = 0; i < entry->framesAtOnce; ++i) {
    threads.emplace_back([&] { RenderFrames(effect, scene, entry->loopThreads, each, &round); });
  }
  round.start.arrive_and_wait();
  const auto began = Clock::now();
  for (std::thread& thread : threads) thread.join();
  const double seconds = std::chrono::duration<double>(Clock::now() - began).count();
  if (round.failure) std::rethrow_exception(round.failure);
  entry->framesPerSecond.push_back(each * entry->framesAtOnce / seconds);
  entry->milliseconds.push_back(round.milliseconds / (each * entry->framesAtOnce));
}

}  // namespace

std::vector<ConcurrentCase> MeasureConcurrent(host::EffectInstance& effect,
                                              const std::vector<BenchScene>& scenes, int atOnce, int threads,
                                              int rounds) {
  std::vector<ConcurrentCase> cases;
  for (const BenchScene& scene : scenes) {
    const size_t first = cases.size();
    for (const int frames : {1, atOnce})
      for (const int loopThreads : {1, threads}) cases.push_back({scene.name, frames, loopThreads, {}, {}});
    const int frames = atOnce * (scene.settings.density > 100000 ? 2 : 8);
    for (int round = 0; round < rounds; ++round) {
      PrintLine("concurrent: " + scene.name + " frame, round " + std::to_string(round + 1) + " of " +
                std::to_string(rounds));
      for (size_t i = first; i < cases.size(); ++i) RunRound(effect, scene, frames, &cases[i]);
    }
  }
  return cases;
}

}  // namespace vantle::cli
