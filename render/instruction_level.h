// Which vector instructions the processor has.
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

}  // namespace vantle
