#include "host/cli/render_loop.h"

#include "host/cli/platform.h"
#include "host/cli/session.h"

#include <algorithm>
#include <atomic>
#include <cstdio>
#include <exception>
#include <new>
#include <thread>

namespace vantle::cli {
namespace {

std::string MillisecondsText(double milliseconds) {
  char text[32];
  std::snprintf(text, sizeof(text), "%.1f ms", milliseconds);
  return text;
}

void Fail(FrameJob& job, io::ExitCode code, const std::string& problem) {
  job.status = FrameStatus::kFailed;
  job.code = code;
  job.problem = problem;
}

void RunJob(FrameJob& job, const RenderOne& render) {
  try {
    job.milliseconds = render(job);
    job.status = FrameStatus::kWritten;
  } catch (const io::Failure& failure) {
    Fail(job, failure.code, failure.what());
  } catch (const std::bad_alloc&) {
    Fail(job, io::kUnreadableInput, "there is not enough memory: lower --threads, --resolution or --depth");
  } catch (const std::exception& error) {
    Fail(job, io::kUnreadableInput, error.what());
  }
}

void Tell(Progress& progress, const FrameJob& job) {
  const std::string frame = "frame " + std::to_string(job.frame);
  if (job.status == FrameStatus::kFailed) Report(progress, "vantle: " + frame + ": " + job.problem);
  AdvanceProgress(progress, frame + (job.status == FrameStatus::kFailed
                                         ? " failed"
                                         : "  " + job.file + "  " + MillisecondsText(job.milliseconds)));
}

}  // namespace

ThreadPlan PlanThreads(int threads, size_t frames, bool framesMayOverlap, int64_t frameBytes,
                       int64_t memory) {
  ThreadPlan plan;
  int64_t atOnce = std::min<int64_t>(threads, static_cast<int64_t>(frames));
  if (frameBytes > 0) atOnce = std::min(atOnce, memory / frameBytes);
  plan.frames = framesMayOverlap ? static_cast<int>(std::max<int64_t>(1, atOnce)) : 1;
  plan.loopThreads = std::max(1, threads / plan.frames);
  return plan;
}

void RunJobs(std::vector<FrameJob>& jobs, const ThreadPlan& plan, Progress& progress,
             const RenderOne& render) {
  std::atomic<size_t> next{0};
  std::atomic<bool> stop{false};
  const auto work = [&] {
    SetLoopThreads(plan.loopThreads);
    while (!stop.load() && !WasInterrupted()) {
      const size_t i = next.fetch_add(1);
      if (i >= jobs.size()) return;
      if (jobs[i].status != FrameStatus::kNotBegun) continue;
      RunJob(jobs[i], render);
      Tell(progress, jobs[i]);
      if (jobs[i].code == io::kOutputNotWritable) stop.store(true);
    }
  };
  std::vector<std::thread> workers;
  for (int w = 0; w < plan.frames; ++w) workers.emplace_back(work);
  for (std::thread& worker : workers) worker.join();
}

io::ExitCode CodeOfRun(const std::vector<FrameJob>& jobs, bool interrupted) {
  if (interrupted) return io::kInterrupted;
  bool written = false;
  io::ExitCode firstFailure = io::kDone;
  for (const FrameJob& job : jobs) {
    written = written || job.status == FrameStatus::kWritten;
    if (job.status == FrameStatus::kFailed && firstFailure == io::kDone) firstFailure = job.code;
  }
  return written && firstFailure != io::kDone ? io::kSomeFramesFailed : firstFailure;
}

}  // namespace vantle::cli
