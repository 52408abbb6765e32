// The rows of solid layers, generic over the lanes. Included by one file per instruction set, which is
// compiled for it.
#pragma once

#include "render/lane_pixels.h"
#include "render/row_kernels.h"
#include "render/transfer.h"

namespace vantle {

/// Where the pixels of L::kCount columns fall on the layer: the upper left texel of each, the way beyond it
/// in parts of a texel, and a bit for each pixel that lies on the layer at all.
template <class L>
struct WarpedPixels {
  int32_t column[L::kCount], row[L::kCount];
  float right[L::kCount], down[L::kCount];
  uint32_t inside;
};

/// Positions so close to the layer's edge are meant to lie on it: the map is right to about a billionth of a
/// texel, and a row of pixels must not come and go with the rounding of its last bit.
inline constexpr double kEdgeSlack = 1e-9;

template <class D>
inline D OntoEdges(D position, double size) {
  const D high = SelectNotAbove(abs(position - D(size)), kEdgeSlack, size, position);
  return SelectNotAbove(abs(position), kEdgeSlack, 0.0, high);
}

template <class L>
inline void WarpPixels(const SolidWarp& warp, int32_t x, int32_t y, WarpedPixels<L>* pixels) {
  using D = typename L::Doubles;
  const double* m = warp.toLayer;
  const double width = warp.layer.width;
  const double height = warp.layer.height;
  pixels->inside = 0;
  for (int32_t l = 0; l < L::kCount; l += D::kCount) {
    const D px = D::Columns(x + l);
    const D w = D(m[6]) * px + D(m[7] * y) + D(m[8]);
    const D u = OntoEdges((D(m[0]) * px + D(m[1] * y) + D(m[2])) / w, width);
    const D v = OntoEdges((D(m[3]) * px + D(m[4] * y) + D(m[5])) / w, height);
    (u - Truncate(u, pixels->column + l)).StoreFloats(pixels->right + l);
    (v - Truncate(v, pixels->row + l)).StoreFloats(pixels->down + l);
    pixels->inside |= (BitsInside(u, width) & BitsInside(v, height)) << l;
  }
}

/// The four texels around each pixel; transparent ones for a pixel beside the layer. A missing right or lower
/// neighbour repeats the last texel.
template <class L, class Format>
struct Neighbours {
  static constexpr size_t kBytes = kPixelBytes<Format>;
  std::byte texels[4][static_cast<size_t>(L::kCount) * kBytes];
};

template <class L, class Format>
inline void FetchNeighbours(const ImageView& layer, const WarpedPixels<L>& p, Neighbours<L, Format>* out) {
  constexpr size_t kBytes = kPixelBytes<Format>;
  for (int32_t l = 0; l < L::kCount; ++l) {
    const size_t to = static_cast<size_t>(l) * kBytes;
    if ((p.inside >> l & 1u) == 0) {
      for (auto& texels : out->texels) std::memset(texels + to, 0, kBytes);
      continue;
    }
    const std::byte* at = layer.data + layer.rowBytes * p.row[l] + static_cast<int64_t>(kBytes) * p.column[l];
    const int64_t below = p.row[l] + 1 < layer.height ? layer.rowBytes : 0;
    const int64_t right = p.column[l] + 1 < layer.width ? static_cast<int64_t>(kBytes) : 0;
    std::memcpy(out->texels[0] + to, at, kBytes);
    std::memcpy(out->texels[1] + to, at + below, kBytes);
    std::memcpy(out->texels[2] + to, at + right, kBytes);
    std::memcpy(out->texels[3] + to, at + (below + right), kBytes);
  }
}

/// What is laid over the pixels: straight colour, and alpha in `a`.
template <class L>
struct SampledLanes {
  L a, r, g, b;
};

/// Bilinear in alpha; the colours are weighted by their alphas as well, so that white over transparent black
/// does not darken at its edge.
template <class L, class Format>
inline SampledLanes<L> SampleNeighbours(const WarpedPixels<L>& p, const Neighbours<L, Format>& neighbours) {
  const L fx = LoadLanes<L>(p.right);
  const L fy = LoadLanes<L>(p.down);
  const L weights[4] = {(1.0f - fx) * (1.0f - fy), (1.0f - fx) * fy, fx * (1.0f - fy), fx * fy};
  SampledLanes<L> sum = {0.0f, 0.0f, 0.0f, 0.0f};
  for (int32_t i = 0; i < 4; ++i) {
    const auto texel = LoadInOneRow<L, Format>(neighbours.texels[i]);
    const L a = weights[i] * texel.a;
    sum.a = sum.a + a;
    sum.r = sum.r + a * texel.r;
    sum.g = sum.g + a * texel.g;
    sum.b = sum.b + a * texel.b;
  }
  return {select(sum.a > 0.0f, sum.a, 0.0f), sum.r / sum.a, sum.g / sum.a, sum.b / sum.a};
}

/// Lays the samples over `count` pixels of a row. Pixels that nothing is laid over keep their very bytes, and
/// none beyond `count` is touched.
template <class L, class Format>
inline void LayOver(const SampledLanes<L>& source, float opacity, uint32_t inside, int32_t count,
                    std::byte* at) {
  constexpr size_t kBytes = kPixelBytes<Format>;
  constexpr uint32_t kAll = (1u << L::kCount) - 1u;
  const L alpha = source.a * opacity;
  const uint32_t drawn = BitsOf(alpha >= 0.001f) & inside;
  if (drawn == 0) return;
  std::byte copy[static_cast<size_t>(L::kCount) * kBytes] = {};
  std::byte* pixels = at;
  if (drawn != kAll) {
    pixels = copy;
    std::memcpy(copy, at, static_cast<size_t>(count) * kBytes);
  }
  auto under = LoadInOneRow<L, Format>(pixels);
  kernel::blendPixel(source.r, source.g, source.b, alpha, under.r, under.g, under.b, under.a, BLEND_NORMAL);
  StorePixels(Format{}, under, pixels, pixels + kChunkBytes<L, Format>);
  if (drawn == kAll) return;
  for (int32_t l = 0; l < count; ++l) {
    const size_t to = static_cast<size_t>(l) * kBytes;
    if ((drawn >> l & 1u) != 0) std::memcpy(at + to, copy + to, kBytes);
  }
}

/// A WarpRowFn.
template <class L, class Format>
void WarpRow(const SolidWarp& warp, int32_t y, std::byte* row) {
  for (int32_t x = warp.x0; x <= warp.x1; x += L::kCount) {
    const int32_t count = warp.x1 - x + 1 < L::kCount ? warp.x1 - x + 1 : L::kCount;
    WarpedPixels<L> pixels;
    WarpPixels<L>(warp, x, y, &pixels);
    pixels.inside &= (1u << count) - 1u;
    if (pixels.inside == 0) continue;
    Neighbours<L, Format> neighbours;
    FetchNeighbours<L, Format>(warp.layer, pixels, &neighbours);
    LayOver<L, Format>(SampleNeighbours<L, Format>(pixels, neighbours), warp.opacity, pixels.inside, count,
                       row + static_cast<int64_t>(x) * int64_t{kPixelBytes<Format>});
  }
}

}  // namespace vantle
