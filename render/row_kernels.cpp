#include "render/row_kernels.h"

namespace vantle {

RowKernels FindRowKernels(InstructionLevel level, const RowKernelKey& key) {
  if (level == InstructionLevel::kAvx512) return FindRowKernelsAvx512(key);
  if (level == InstructionLevel::kAvx2) return FindRowKernelsAvx2(key);
  return FindRowKernelsSse2(key);
}

}  // namespace vantle
