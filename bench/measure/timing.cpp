#include "bench/measure/timing.h"

#include <algorithm>
#include <chrono>
#include <cmath>
#include <cstdio>
#include <fstream>
#include <omp.h>
#include <thread>
#include <time.h>

namespace vantle::measure {
namespace {

double Nanoseconds() {
  return std::chrono::duration<double, std::nano>(std::chrono::steady_clock::now().time_since_epoch())
      .count();
}

bool usesProcessorTime = false;

/// Of this thread; without threads beside it, it does not count what other programs take from it.
double ThreadNanoseconds() {
  timespec now;
  clock_gettime(CLOCK_THREAD_CPUTIME_ID, &now);
  return static_cast<double>(now.tv_sec) * 1e9 + static_cast<double>(now.tv_nsec);
}

/// The processor's own name for itself, as Linux tells it.
std::string ProcessorName() {
  std::ifstream file("/proc/cpuinfo");
  for (std::string line; std::getline(file, line);) {
    const size_t colon = line.find(": ");
    if (line.rfind("model name", 0) == 0 && colon != std::string::npos) return line.substr(colon + 2);
  }
  return "unknown processor";
}

}  // namespace

double Now() {
  static const double start = Nanoseconds();
  return (Nanoseconds() - start) * 1e-9;
}

void UseProcessorTime() {
  usesProcessorTime = true;
}

double TimeOf(const std::function<void()>& work) {
  constexpr double kEnough = 4e6;
  const auto clock = usesProcessorTime && omp_get_max_threads() == 1 ? ThreadNanoseconds : Nanoseconds;
  double least = INFINITY;
  double spent = 0.0;
  while (spent < kEnough) {
    const double start = clock();
    work();
    const double took = clock() - start;
    least = std::min(least, took);
    spent += took;
  }
  return least;
}

void SetRoad(InstructionLevel level, int threads) {
  SetInstructionLevel(level);
  if (omp_get_max_threads() != threads) {
    omp_set_num_threads(threads);
    std::this_thread::sleep_for(std::chrono::milliseconds(3));
  }
}

double Least(const std::vector<double>& values) {
  return *std::min_element(values.begin(), values.end());
}

double Median(std::vector<double> values) {
  std::sort(values.begin(), values.end());
  const size_t middle = values.size() / 2;
  return values.size() % 2 == 1 ? values[middle] : (values[middle - 1] + values[middle]) / 2;
}

Record& Record::Add(const char* name, const std::string& value) {
  text += (text.empty() ? "\"" : ", \"") + std::string(name) + "\": \"" + value + "\"";
  return *this;
}

Record& Record::Add(const char* name, double value) {
  char number[32];
  std::snprintf(number, sizeof(number), "%.6g", std::isfinite(value) ? value : -1.0);
  text += (text.empty() ? "\"" : ", \"") + std::string(name) + "\": " + number;
  return *this;
}

void Print(const Report& report) {
  std::printf(
      "{\"kind\": \"%s\",\n \"machine\": {\"processor\": \"%s\", \"threads\": %d, \"compiler\": \"%s\"",
      report.kind.c_str(), ProcessorName().c_str(), omp_get_num_procs(), __VERSION__);
  std::printf(", \"level\": \"%s\"},\n \"records\": [", NameOf(BestInstructionLevel()));
  const char* separator = "\n";
  for (const Record& record : report.records) {
    std::printf("%s  {%s}", separator, record.text.c_str());
    separator = ",\n";
  }
  std::printf("\n]}\n");
}

void Tell(const std::string& text) {
  std::fprintf(stderr, "%6.1f s  %s\n", Now(), text.c_str());
}

const char* NameOf(InstructionLevel level) {
  return level == InstructionLevel::kAvx512 ? "avx512" : level == InstructionLevel::kAvx2 ? "avx2" : "sse2";
}

std::vector<InstructionLevel> Levels() {
  std::vector<InstructionLevel> levels;
  for (InstructionLevel level :
       {InstructionLevel::kSse2, InstructionLevel::kAvx2, InstructionLevel::kAvx512}) {
    if (level <= BestInstructionLevel()) levels.push_back(level);
  }
  return levels;
}

}  // namespace vantle::measure
