#include "render/solid_layer.h"

#include "base/instruction_level.h"
#include "base/parallel.h"
#include "render/row_kernels.h"

#include <algorithm>

namespace vantle {

void DrawSolidLayer(const MutableImage& output, const ImageView& layer, const SolidPlacement& placement,
                    float opacity) {
  if (!(opacity > 0.001f) || !HasPixels(layer) || output.data == nullptr) return;
  SolidWarp warp{};
  warp.layer = layer;
  std::copy(placement.toLayer, placement.toLayer + 9, warp.toLayer);
  warp.x0 = placement.x0;
  warp.x1 = std::min(placement.x1, output.width - 1);
  warp.opacity = opacity;
  const int32_t lastRow = std::min(placement.y1, output.height - 1);
  const WarpRowFn warpRow = FindWarpRow(CurrentInstructionLevel(), output.depth);
  constexpr int64_t kRowsWorthAThread = 16;
  ParallelRanges(lastRow - placement.y0 + 1, kRowsWorthAThread, [&](int64_t begin, int64_t end) {
    for (int64_t i = begin; i < end; ++i) {
      const int32_t y = placement.y0 + static_cast<int32_t>(i);
      warpRow(warp, y, Row(output, y));
    }
  });
}

}  // namespace vantle
