#include "base/instruction_level.h"

#include <algorithm>
#include <atomic>

#if defined(_MSC_VER) && !defined(__clang__)
#include <immintrin.h>
#include <intrin.h>
#endif

namespace vantle {

namespace {

#if defined(_MSC_VER) && !defined(__clang__)
InstructionLevel DetectLevel() {
  int id[4];
  __cpuid(id, 0);
  if (id[0] < 7) return InstructionLevel::kSse2;
  __cpuidex(id, 1, 0);
  const bool osSavesRegisters = (id[2] & (1 << 27)) != 0;
  if (!osSavesRegisters) return InstructionLevel::kSse2;
  const unsigned long long saved = _xgetbv(0);
  __cpuidex(id, 7, 0);
  const unsigned features = static_cast<unsigned>(id[1]);
  constexpr unsigned kAvx2 = 1u << 5;
  constexpr unsigned kAvx512 = 1u << 16 | 1u << 17 | 1u << 30 | 1u << 31;
  if ((saved & 0xE6) == 0xE6 && (features & kAvx512) == kAvx512) return InstructionLevel::kAvx512;
  if ((saved & 0x06) == 0x06 && (features & kAvx2) == kAvx2) return InstructionLevel::kAvx2;
  return InstructionLevel::kSse2;
}
#else
InstructionLevel DetectLevel() {
  __builtin_cpu_init();
  if (__builtin_cpu_supports("avx512f") && __builtin_cpu_supports("avx512dq") &&
      __builtin_cpu_supports("avx512bw") && __builtin_cpu_supports("avx512vl")) {
    return InstructionLevel::kAvx512;
  }
  return __builtin_cpu_supports("avx2") ? InstructionLevel::kAvx2 : InstructionLevel::kSse2;
}
#endif

}  // namespace

InstructionLevel BestInstructionLevel() {
  static const InstructionLevel level = DetectLevel();
  return level;
}

namespace {

std::atomic<InstructionLevel>& Level() {
  static std::atomic<InstructionLevel> level = BestInstructionLevel();
  return level;
}

}  // namespace

InstructionLevel CurrentInstructionLevel() {
  return Level().load(std::memory_order_relaxed);
}

void SetInstructionLevel(InstructionLevel level) {
  Level().store(std::min(level, BestInstructionLevel()), std::memory_order_relaxed);
}

}  // namespace vantle
