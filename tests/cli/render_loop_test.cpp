#include "host/cli/render_loop.h"

#include <atomic>
#include <gtest/gtest.h>

namespace vantle::cli {
namespace {

std::vector<FrameJob> Jobs(int count) {
  std::vector<FrameJob> jobs;
  for (int i = 0; i < count; ++i) {
    FrameJob job;
    job.frame = i;
    jobs.push_back(job);
  }
  return jobs;
}

struct QuietProgress {
  Progress progress;
  QuietProgress() { StartProgress(progress, 10, true); }
};

TEST(PlanThreads, FramesComeFirstAndLoopsGetWhatIsLeft) {
  EXPECT_EQ(PlanThreads(8, 100, true, 0, 0).frames, 8);
  EXPECT_EQ(PlanThreads(8, 100, true, 0, 0).loopThreads, 1);
  EXPECT_EQ(PlanThreads(8, 2, true, 0, 0).frames, 2);
  EXPECT_EQ(PlanThreads(8, 2, true, 0, 0).loopThreads, 4);
  EXPECT_EQ(PlanThreads(1, 5, true, 0, 0).frames, 1);
  EXPECT_EQ(PlanThreads(4, 0, true, 0, 0).frames, 1);
}

TEST(PlanThreads, AnEffectThatTakesTurnsGetsAllThreads) {
  EXPECT_EQ(PlanThreads(8, 100, false, 0, 0).frames, 1);
  EXPECT_EQ(PlanThreads(8, 100, false, 0, 0).loopThreads, 8);
}

TEST(PlanThreads, MemoryLimitsTheFramesAtOnce) {
  EXPECT_EQ(PlanThreads(8, 100, true, 1000, 3500).frames, 3);
  EXPECT_EQ(PlanThreads(8, 100, true, 1000, 10).frames, 1);
}

TEST(RunJobs, EveryFrameRunsOnce) {
  for (const int frames : {1, 2, 7}) {
    QuietProgress quiet;
    std::vector<FrameJob> jobs = Jobs(50);
    std::vector<std::atomic<int>> runs(50);
    RunJobs(jobs, {frames, 1}, quiet.progress, [&](const FrameJob& job) {
      ++runs[static_cast<size_t>(job.frame)];
      return 1.5;
    });
    for (size_t i = 0; i < 50; ++i) {
      EXPECT_EQ(runs[i].load(), 1);
      EXPECT_EQ(jobs[i].status, FrameStatus::kWritten);
      EXPECT_EQ(jobs[i].milliseconds, 1.5);
    }
    EXPECT_EQ(CodeOfRun(jobs, false), io::kDone);
  }
}

TEST(RunJobs, AFailedFrameDoesNotStopTheOthers) {
  QuietProgress quiet;
  std::vector<FrameJob> jobs = Jobs(6);
  RunJobs(jobs, {2, 1}, quiet.progress, [](const FrameJob& job) -> double {
    if (job.frame % 2 == 1) throw io::Failure(io::kEffectError, "no");
    return 1.0;
  });
  for (const FrameJob& job : jobs)
    EXPECT_EQ(job.status, job.frame % 2 == 1 ? FrameStatus::kFailed : FrameStatus::kWritten);
  EXPECT_EQ(CodeOfRun(jobs, false), io::kSomeFramesFailed);
  EXPECT_EQ(CodeOfRun(jobs, true), io::kInterrupted);
}

TEST(RunJobs, AFrameThatCannotBeWrittenStopsTheRun) {
  QuietProgress quiet;
  std::vector<FrameJob> jobs = Jobs(100);
  RunJobs(jobs, {1, 1}, quiet.progress, [](const FrameJob& job) -> double {
    if (job.frame == 3) throw io::Failure(io::kOutputNotWritable, "full");
    return 1.0;
  });
  EXPECT_EQ(jobs[3].status, FrameStatus::kFailed);
  EXPECT_EQ(jobs[4].status, FrameStatus::kNotBegun);
  EXPECT_EQ(CodeOfRun(jobs, false), io::kSomeFramesFailed);
}

TEST(RunJobs, WhenNothingWasWrittenTheFirstFailureCounts) {
  std::vector<FrameJob> jobs = Jobs(3);
  jobs[0].status = FrameStatus::kSkipped;
  jobs[1].status = jobs[2].status = FrameStatus::kFailed;
  jobs[1].code = io::kUnreadableInput;
  jobs[2].code = io::kEffectError;
  EXPECT_EQ(CodeOfRun(jobs, false), io::kUnreadableInput);
}

TEST(RunJobs, ExhaustedMemoryFailsTheFrame) {
  QuietProgress quiet;
  std::vector<FrameJob> jobs = Jobs(1);
  RunJobs(jobs, {1, 1}, quiet.progress, [](const FrameJob&) -> double { throw std::bad_alloc(); });
  EXPECT_EQ(jobs[0].status, FrameStatus::kFailed);
  EXPECT_NE(jobs[0].problem.find("memory"), std::string::npos);
}

TEST(Progress, TellsTimesAsClocks) {
  EXPECT_EQ(ClockText(0.0), "0:00");
  EXPECT_EQ(ClockText(6.2), "0:07");
  EXPECT_EQ(ClockText(61.0), "1:01");
  EXPECT_EQ(ClockText(3723.0), "1:02:03");
  EXPECT_EQ(ClockText(-4.0), "0:00");
}

}  // namespace
}  // namespace vantle::cli
