// The stages one by one: vantle_bench [--level=sse2|avx2|avx512] [options of Google Benchmark]. Without a
// level the stages run at the best one that the processor has.
#include "base/instruction_level.h"

#include <benchmark/benchmark.h>
#include <cstdio>
#include <cstring>

namespace {

using vantle::InstructionLevel;

/// Takes the level out of the arguments and sets it; false for one that is unknown or that the machine lacks.
bool TakeLevel(int* argc, char** argv) {
  constexpr struct {
    const char* argument;
    InstructionLevel level;
  } kLevels[] = {{"--level=sse2", InstructionLevel::kSse2},
                 {"--level=avx2", InstructionLevel::kAvx2},
                 {"--level=avx512", InstructionLevel::kAvx512}};
  if (*argc < 2 || std::strncmp(argv[1], "--level=", 8) != 0) return true;
  for (const auto& [argument, level] : kLevels) {
    if (std::strcmp(argv[1], argument) != 0) continue;
    if (level > vantle::BestInstructionLevel()) return false;
    vantle::SetInstructionLevel(level);
    for (int i = 1; i + 1 < *argc; ++i) argv[i] = argv[i + 1];
    --*argc;
    return true;
  }
  return false;
}

}  // namespace

int main(int argc, char** argv) {
  if (!TakeLevel(&argc, argv)) {
    std::fprintf(stderr, "%s: no such level, or not on this processor\n", argv[1]);
    return 1;
  }
  benchmark::Initialize(&argc, argv);
  if (benchmark::ReportUnrecognizedArguments(argc, argv)) return 1;
  benchmark::RunSpecifiedBenchmarks();
  return 0;
}
