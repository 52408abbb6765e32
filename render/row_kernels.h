// The inner loops of the rasteriser, lanes across pixels: first the coverages of a block, then its blends.
// The compiler makes one loop per shape and one per transfer mode and pixel format; a frame picks its pair
// once.
#pragma once

#include "base/image_view.h"
#include "base/instruction_level.h"
#include "render/coverage.h"
#include "render/sprite.h"
#include "render/trail.h"

#include <cstddef>
#include <cstdint>

namespace vantle {

/// Most coverages of one block: what fits the nearest cache beside the pixels. The array that takes them has
/// kBlockSlack more.
inline constexpr int32_t kBlockCoverages = 1024;

/// Room for a second row beneath the last, for lanes that span two rows.
inline constexpr int32_t kBlockSlack = 128;

/// A group of pixels: `stride` columns, a multiple of the lanes' columns, from (x, y), of which only
/// first..last may be touched.
struct PixelBlock {
  int32_t x, y;
  int32_t stride;
  int32_t rows;
  int32_t first, last;
};

/// Writes stride * rows coverages; 0 outside first..last.
using CoverBlockFn = void (*)(const kernel::ShapeFrame& frame, const PixelBlock& block, float* coverage);

/// What is laid over the pixels.
struct BlendSource {
  float r, g, b;
  float alpha;
};

/// Lays `source` with its alpha times the coverage over the block, whose first pixel is at `at`. All of the
/// block's columns are read and written, but pixels with a coverage of 0.001 or less keep their bytes.
using BlendBlockFn = void (*)(const BlendSource& source, const PixelBlock& block, const float* coverage,
                              std::byte* at, int64_t rowBytes);

/// Copies the points, 1..kMaxTrailPoints, and fills in what follows from them alone: `count`, `largest`,
/// the box, `spreading` and everything by segment.
using PrepareTrailFn = void (*)(const Vec2* points, int32_t count, Trail* trail);

/// Writes the coverages of a block of at most kTrailTile columns and rows, 0 outside first..last; false, with
/// none of them written, when all are 0. `head`: whether the head may cover a pixel of the block.
using CoverTrailFn = bool (*)(const Trail& trail, bool head, const PixelBlock& block, float* coverage);

/// Writes what a sprite lays over each pixel of a block of at most kSpriteBlock pixels; an alpha of 0 outside
/// first..last. The sprite has the depth that the loop was found for.
using SampleSpriteFn = void (*)(const SpriteFrame& sprite, const PixelBlock& block, PixelSources* sources);

/// Lays the sources over the block, whose first pixel is at `at`. All of the block's columns are read and
/// written, but pixels under an alpha below 0.001 keep their bytes.
using BlendSourcesFn = void (*)(const PixelSources& sources, const PixelBlock& block, std::byte* at,
                                int64_t rowBytes);

/// The loops of a frame.
struct RowKernels {
  int32_t columns;            ///< of a chunk of lanes; block strides are multiples of it
  CoverBlockFn cover;         ///< of a line, an arrow or a plane shape; null for other shapes
  CoverBlockFn coverUpright;  ///< the same for plane shapes neither turned nor tilted; gives the same bits
  BlendBlockFn blend;         ///< unknown modes are Normal
  PrepareTrailFn prepareTrail;
  CoverTrailFn coverTrail;
  SampleSpriteFn sampleSprite;
  BlendSourcesFn blendSources;
};

/// What decides on the loops.
struct RowKernelKey {
  int32_t shape;
  bool roundCap;
  int32_t mode;
  PixelDepth depth;
};

/// A solid layer on its way to the output, which has the same depth.
struct SolidWarp {
  ImageView layer;
  double toLayer[9];  ///< row-major homography from pixels to texels
  int32_t x0, x1;     ///< columns to be drawn
  float opacity;
};

/// Lays the layer over columns x0..x1 of row y of the output, which begins at `row`, by the Normal rule.
/// Pixels that it does not cover are not touched.
using WarpRowFn = void (*)(const SolidWarp& warp, int32_t y, std::byte* row);

/// The loops at a level that this processor has. Every level gives the same bytes.
RowKernels FindRowKernels(InstructionLevel level, const RowKernelKey& key);

WarpRowFn FindWarpRow(InstructionLevel level, PixelDepth depth);

RowKernels FindRowKernelsSse2(const RowKernelKey& key);
RowKernels FindRowKernelsAvx2(const RowKernelKey& key);
RowKernels FindRowKernelsAvx512(const RowKernelKey& key);
WarpRowFn FindWarpRowSse2(PixelDepth depth);
WarpRowFn FindWarpRowAvx2(PixelDepth depth);
WarpRowFn FindWarpRowAvx512(PixelDepth depth);

}  // namespace vantle
