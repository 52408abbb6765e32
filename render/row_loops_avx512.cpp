#include "render/lanes_avx512.h"
#include "render/row_loops.h"

namespace vantle {

RowKernels FindRowKernelsAvx512(const RowKernelKey& key) {
  return FindRowLoops<LanesAvx512>(key);
}

WarpRowFn FindWarpRowAvx512(PixelDepth depth) {
  return FindWarpLoop<LanesAvx512>(depth);
}

}  // namespace vantle
