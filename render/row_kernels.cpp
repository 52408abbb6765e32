#include "render/row_kernels.h"

namespace vantle {

RowKernels FindRowKernels(InstructionLevel level, const RowKernelKey& key) {
  if (level == InstructionLevel::kAvx512) return FindRowKernelsAvx512(key);
  if (level == InstructionLevel::kAvx2) return FindRowKernelsAvx2(key);
  return FindRowKernelsSse2(key);
}

WarpRowFn FindWarpRow(InstructionLevel level, PixelDepth depth) {
  if (level == InstructionLevel::kAvx512) return FindWarpRowAvx512(depth);
  if (level == InstructionLevel::kAvx2) return FindWarpRowAvx2(depth);
  return FindWarpRowSse2(depth);
}

}  // namespace vantle
