// How far a run is, on standard error: a bar with the remaining time on a terminal, one line a frame in a
// pipe.
#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <mutex>
#include <string>

namespace vantle::cli {

struct Progress {
  bool quiet = false;
  bool terminal = false;
  size_t total = 0;
  size_t done = 0;
  size_t barLength = 0;  ///< characters of the bar on the terminal
  std::chrono::steady_clock::time_point start;
  std::mutex mutex;
};

void StartProgress(Progress& progress, size_t total, bool quiet);

/// One more frame ended; `line` says how, in one line.
void AdvanceProgress(Progress& progress, const std::string& line);

/// Removes the bar.
void EndProgress(Progress& progress);

/// Something to tell in between, above the bar; told also when quiet.
void Report(Progress& progress, const std::string& line);

/// "1:02:03" or "0:07".
std::string ClockText(double seconds);

}  // namespace vantle::cli
