#include "host/cli/progress.h"

#include "host/cli/platform.h"

#include <algorithm>
#include <cmath>
#include <cstdio>

namespace vantle::cli {
namespace {

double Elapsed(const Progress& progress) {
  return std::chrono::duration<double>(std::chrono::steady_clock::now() - progress.start).count();
}

void EraseBar(Progress& progress) {
  if (progress.barLength == 0) return;
  std::fprintf(stderr, "\r%*s\r", static_cast<int>(progress.barLength), "");
  progress.barLength = 0;
}

void DrawBar(Progress& progress) {
  constexpr size_t kCells = 30;
  const double elapsed = Elapsed(progress);
  const double left =
      elapsed / static_cast<double>(progress.done) * static_cast<double>(progress.total - progress.done);
  const size_t filled = kCells * progress.done / progress.total;
  std::string bar = std::string("[") + std::string(filled, '=') + std::string(kCells - filled, ' ') + "] " +
                    std::to_string(progress.done) + "/" + std::to_string(progress.total) + "  " +
                    ClockText(left) + " left";
  const size_t length = bar.size();
  if (length < progress.barLength) bar.resize(progress.barLength, ' ');
  std::fprintf(stderr, "\r%s", bar.c_str());
  std::fflush(stderr);
  progress.barLength = length;
}

void PrintOne(const std::string& line) {
  std::string clean = line;
  std::replace(clean.begin(), clean.end(), '\n', ' ');
  std::fprintf(stderr, "%s\n", clean.c_str());
}

}  // namespace

std::string ClockText(double seconds) {
  const auto whole = static_cast<long>(std::ceil(std::clamp(seconds, 0.0, 3.6e8)));
  char text[32];
  if (whole >= 3600)
    std::snprintf(text, sizeof(text), "%ld:%02ld:%02ld", whole / 3600, whole / 60 % 60, whole % 60);
  else
    std::snprintf(text, sizeof(text), "%ld:%02ld", whole / 60, whole % 60);
  return text;
}

void StartProgress(Progress& progress, size_t total, bool quiet) {
  progress.quiet = quiet;
  progress.terminal = ErrorsGoToTerminal();
  progress.total = total;
  progress.done = 0;
  progress.start = std::chrono::steady_clock::now();
}

void AdvanceProgress(Progress& progress, const std::string& line) {
  const std::lock_guard<std::mutex> lock(progress.mutex);
  ++progress.done;
  if (progress.quiet) return;
  if (progress.terminal)
    DrawBar(progress);
  else
    PrintOne(line + " (" + std::to_string(progress.done) + "/" + std::to_string(progress.total) + ")");
}

void EndProgress(Progress& progress) {
  const std::lock_guard<std::mutex> lock(progress.mutex);
  EraseBar(progress);
}

void Report(Progress& progress, const std::string& line) {
  const std::lock_guard<std::mutex> lock(progress.mutex);
  EraseBar(progress);
  PrintOne(line);
}

}  // namespace vantle::cli
