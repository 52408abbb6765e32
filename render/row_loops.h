// The row loops, generic over the lanes. Included by one file per instruction set, which is compiled for it.
#pragma once

#include "render/block_loops.h"
#include "render/lane_pixels.h"
#include "render/row_kernels.h"
#include "render/sprite_loops.h"
#include "render/trail_loops.h"
#include "render/transfer.h"
#include "render/warp_loops.h"

namespace vantle {

template <class L, class CoverageAt>
void CoverRows(const PixelBlock& block, float* coverage, const CoverageAt& coverageAt) {
  for (int32_t row = 0; row < block.rows; row += L::kRows) {
    const L py = L::Rows(block.y + row);
    float* at = coverage + row * block.stride;
    for (int32_t x = 0; x < block.stride; x += L::kColumns) {
      const L c = coverageAt(L::Columns(block.x + x), py);
      c.StoreCoverage(at + x, block.stride);
    }
  }
  ClearOutside<L>(block, coverage);
}

template <class L, bool kRoundCap>
void CoverLine(const kernel::ShapeFrame& frame, const PixelBlock& block, float* coverage) {
  const kernel::ShapeFrame f = frame;
  CoverRows<L>(block, coverage, [f](L px, L py) { return kernel::lineCoverage(px, py, f, kRoundCap); });
}

template <class L>
void CoverArrow(const kernel::ShapeFrame& frame, const PixelBlock& block, float* coverage) {
  const kernel::ShapeFrame f = frame;
  CoverRows<L>(block, coverage, [f](L px, L py) { return kernel::arrowCoverage(px, py, f); });
}

template <class L, int32_t kShape>
void CoverPlane(const kernel::ShapeFrame& frame, const PixelBlock& block, float* coverage) {
  const kernel::ShapeFrame f = frame;
  CoverRows<L>(block, coverage, [f](L px, L py) {
    const L dx = px - f.sx;
    const L dy = py - f.sy;
    return kernel::planeCoverage(kernel::localX(dx, dy, f), kernel::localY(dx, dy, f), f, kShape);
  });
}

/// With cosines of 1 and a sine of 0 the way into the plane changes no bit of dx and dy (a difference is
/// never the negative zero).
template <class L, int32_t kShape>
void CoverUpright(const kernel::ShapeFrame& frame, const PixelBlock& block, float* coverage) {
  const kernel::ShapeFrame f = frame;
  CoverRows<L>(block, coverage,
               [f](L px, L py) { return kernel::planeCoverage(px - f.sx, py - f.sy, f, kShape); });
}

template <class L>
CoverBlockFn FindCover(const RowKernelKey& key, bool upright) {
  switch (key.shape) {
    case SHAPE_POINT:
      return upright ? CoverUpright<L, SHAPE_POINT> : CoverPlane<L, SHAPE_POINT>;
    case SHAPE_CIRCLE:
      return upright ? CoverUpright<L, SHAPE_CIRCLE> : CoverPlane<L, SHAPE_CIRCLE>;
    case SHAPE_SOFT_CIRCLE:
      return upright ? CoverUpright<L, SHAPE_SOFT_CIRCLE> : CoverPlane<L, SHAPE_SOFT_CIRCLE>;
    case SHAPE_TRIANGLE:
      return upright ? CoverUpright<L, SHAPE_TRIANGLE> : CoverPlane<L, SHAPE_TRIANGLE>;
    case SHAPE_SQUARE:
      return upright ? CoverUpright<L, SHAPE_SQUARE> : CoverPlane<L, SHAPE_SQUARE>;
    case SHAPE_LINE:
      return key.roundCap ? CoverLine<L, true> : CoverLine<L, false>;
    case SHAPE_ARROW:
      return CoverArrow<L>;
    default:
      return nullptr;
  }
}

/// Blends one chunk. Where nothing is laid over a pixel its floats stay, and those go back to the very codes
/// they came from.
template <class L, class Format, int32_t kMode>
inline void BlendChunk(const BlendSource& s, L coverage, std::byte* row, std::byte* nextRow) {
  auto p = LoadPixels<L, Format>(row, nextRow);
  const L srcA = select(coverage > 0.001f, s.alpha * coverage, 0.0f);
  kernel::blendPixel(s.r, s.g, s.b, srcA, p.r, p.g, p.b, p.a, kMode);
  StorePixels(Format{}, p, row, nextRow);
}

/// Lanes that span two rows blend a row without a partner together with a spare one that nobody sees.
template <class L, class Format, int32_t kMode>
void BlendBlock(const BlendSource& source, const PixelBlock& block, const float* coverage, std::byte* at,
                int64_t rowBytes) {
  constexpr int64_t kBytes = kChunkBytes<L, Format>;
  const BlendSource s = source;
  std::byte spare[static_cast<size_t>(kBytes)] = {};
  for (int32_t row = 0; row < block.rows; row += L::kRows, coverage += L::kRows * block.stride) {
    const bool paired = L::kRows == 2 && row + 1 < block.rows;
    std::byte* pixels = at + rowBytes * row;
    std::byte* below = paired ? pixels + rowBytes : spare;
    const int64_t belowStep = paired ? kBytes : 0;
    for (int32_t x = 0; x < block.stride; x += L::kColumns, pixels += kBytes, below += belowStep) {
      const L c = L::LoadCoverage(coverage + x, block.stride);
      if (any(c > 0.001f)) BlendChunk<L, Format, kMode>(s, c, pixels, below);
    }
  }
}

/// The two blends of a transfer mode and a pixel format.
struct BlendFns {
  BlendBlockFn block;
  BlendSourcesFn sources;
};

template <class L, class Format, int32_t kMode>
BlendFns BlendsOf() {
  return {BlendBlock<L, Format, kMode>, BlendSources<L, Format, kMode>};
}

template <class L, class Format>
BlendFns FindBlends(int32_t mode) {
  switch (mode) {
    case BLEND_ADD:
      return BlendsOf<L, Format, BLEND_ADD>();
    case BLEND_SCREEN:
      return BlendsOf<L, Format, BLEND_SCREEN>();
    case BLEND_MULTIPLY:
      return BlendsOf<L, Format, BLEND_MULTIPLY>();
    case BLEND_OVERLAY:
      return BlendsOf<L, Format, BLEND_OVERLAY>();
    case BLEND_SOFT_LIGHT:
      return BlendsOf<L, Format, BLEND_SOFT_LIGHT>();
    case BLEND_HARD_LIGHT:
      return BlendsOf<L, Format, BLEND_HARD_LIGHT>();
    case BLEND_COLOR_BURN:
      return BlendsOf<L, Format, BLEND_COLOR_BURN>();
    default:
      return BlendsOf<L, Format, BLEND_NORMAL>();
  }
}

template <class L, class Format>
RowKernels FindLoopsOfDepth(const RowKernelKey& key) {
  const BlendFns blends = FindBlends<L, Format>(key.mode);
  return {.columns = L::kColumns,
          .cover = FindCover<L>(key, false),
          .coverUpright = FindCover<L>(key, true),
          .blend = blends.block,
          .prepareTrail = PrepareTrail<L>,
          .coverTrail = key.roundCap ? CoverTrail<L, true> : CoverTrail<L, false>,
          .sampleSprite = SampleSprite<L, Format>,
          .blendSources = blends.sources};
}

template <class L>
RowKernels FindRowLoops(const RowKernelKey& key) {
  if (key.depth == PixelDepth::k8) return FindLoopsOfDepth<L, Format8>(key);
  return key.depth == PixelDepth::k16 ? FindLoopsOfDepth<L, Format16>(key)
                                      : FindLoopsOfDepth<L, Format32>(key);
}

template <class L>
WarpRowFn FindWarpLoop(PixelDepth depth) {
  if (depth == PixelDepth::k8) return WarpRow<L, Format8>;
  return depth == PixelDepth::k16 ? WarpRow<L, Format16> : WarpRow<L, Format32>;
}

}  // namespace vantle
