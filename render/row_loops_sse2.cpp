#include "render/lanes_sse2.h"
#include "render/row_loops.h"

namespace vantle {

RowKernels FindRowKernelsSse2(const RowKernelKey& key) {
  return FindRowLoops<LanesSse2>(key);
}

WarpRowFn FindWarpRowSse2(PixelDepth depth) {
  return FindWarpLoop<LanesSse2>(depth);
}

}  // namespace vantle
