#include "render/lanes_avx2.h"
#include "render/row_loops.h"

namespace vantle {

RowKernels FindRowKernelsAvx2(const RowKernelKey& key) {
  return FindRowLoops<LanesAvx2>(key);
}

WarpRowFn FindWarpRowAvx2(PixelDepth depth) {
  return FindWarpLoop<LanesAvx2>(depth);
}

}  // namespace vantle
