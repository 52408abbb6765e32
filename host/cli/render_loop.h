// Many frames at once: a few workers take the next frame in turn until none is left, one cannot be written,
// or the user interrupts.
#pragma once

#include "host/cli/progress.h"
#include "host/io/failure.h"

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

namespace vantle::cli {

enum class FrameStatus { kNotBegun, kWritten, kSkipped, kFailed };

struct FrameJob {
  int32_t frame = 0;
  std::string file;
  FrameStatus status = FrameStatus::kNotBegun;
  double milliseconds = 0.0;  ///< of the render command
  std::string problem;        ///< of a failed frame
  io::ExitCode code = io::kDone;
};

/// How a run uses the machine: `frames` at once, each with `loopThreads` threads for the effect's own loops.
struct ThreadPlan {
  int frames = 1;
  int loopThreads = 1;
};

/// Frames in parallel gain more than threads inside a frame, so they come first; what is left over when there
/// are fewer frames than threads goes to the loops. `frameBytes` is what one frame in work holds; all of them
/// together stay under `memory` bytes.
ThreadPlan PlanThreads(int threads, size_t frames, bool framesMayOverlap, int64_t frameBytes, int64_t memory);

/// Renders and writes one frame; returns the milliseconds of the render command. Throws io::Failure.
using RenderOne = std::function<double(const FrameJob& job)>;

/// Runs the jobs that have not begun. A frame that fails does not keep the others from rendering, except
/// when it could not be written. After an interrupt the running frames end and no more are begun.
void RunJobs(std::vector<FrameJob>& jobs, const ThreadPlan& plan, Progress& progress,
             const RenderOne& render);

/// The exit code of a run.
io::ExitCode CodeOfRun(const std::vector<FrameJob>& jobs, bool interrupted);

}  // namespace vantle::cli
