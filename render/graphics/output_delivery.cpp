#include "render/graphics/output_delivery.h"

#include "base/parallel.h"
#include "base/pixels.h"

namespace vantle {

namespace {

template <class Format>
void DeliverRows(const float* pixels, const MutableImage& output, int64_t first, int64_t end) {
  for (int64_t y = first; y < end; ++y) {
    const float* from = pixels + y * output.width * 4;
    std::byte* to = output.data + output.rowBytes * y;
    for (int32_t x = 0; x < output.width; ++x, from += 4, to += kPixelBytes<Format>) {
      StorePixel<Format>(to, {from[0], from[1], from[2], from[3]});
    }
  }
}

}  // namespace

void DeliverPixels(const float* pixels, const MutableImage& output) {
  constexpr int64_t kRowsWorthAThread = 64;
  ParallelRanges(output.height, kRowsWorthAThread, [&](int64_t first, int64_t end) {
    if (output.depth == PixelDepth::k8) return DeliverRows<Format8>(pixels, output, first, end);
    if (output.depth == PixelDepth::k16) return DeliverRows<Format16>(pixels, output, first, end);
    return DeliverRows<Format32>(pixels, output, first, end);
  });
}

}  // namespace vantle
