// Which vector instructions the processor has, and which of them are used.
#pragma once

namespace vantle {

/// In rising order; each includes those before it.
enum class InstructionLevel {
  kSse2,    ///< every 64-bit x86
  kAvx2,    ///< eight lanes
  kAvx512,  ///< sixteen lanes: F, DQ, BW and VL
};

/// The best level that the processor and its operating system support. Asked once.
InstructionLevel BestInstructionLevel();

/// The level of the loops that start from now on: the best one unless a test has set another.
InstructionLevel CurrentInstructionLevel();

/// Sets the level for the whole process, or the best one when the processor lacks it. For tests, between
/// frames; every level gives the same bytes.
void SetInstructionLevel(InstructionLevel level);

}  // namespace vantle
