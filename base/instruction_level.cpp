#include "base/instruction_level.h"

#include "base/compiler.h"

#include <algorithm>
#include <atomic>

namespace vantle {

namespace {

InstructionLevel DetectLevel() {
  const VectorInstructions has = AskProcessor();
  if (has.avx512) return InstructionLevel::kAvx512;
  return has.avx2 ? InstructionLevel::kAvx2 : InstructionLevel::kSse2;
}

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
