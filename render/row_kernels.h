// The inner loops of the rasteriser, lanes across pixels: first the coverages of a block, then its blends.
// The compiler makes one loop per shape and one per transfer mode and pixel format; a frame picks its pair
// once.
#pragma once

#include "base/image_view.h"
#include "base/instruction_level.h"
#include "render/coverage.h"

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

/// The loops of a frame.
struct RowKernels {
  int32_t columns;            ///< of a chunk of lanes; block strides are multiples of it
  CoverBlockFn cover;         ///< of a line, an arrow or a plane shape; null for other shapes
  CoverBlockFn coverUpright;  ///< the same for plane shapes neither turned nor tilted; gives the same bits
  BlendBlockFn blend;         ///< unknown modes are Normal
};

/// What decides on the loops.
struct RowKernelKey {
  int32_t shape;
  bool roundCap;
  int32_t mode;
  PixelDepth depth;
};

/// The loops at a level that this processor has. Every level gives the same bytes.
RowKernels FindRowKernels(InstructionLevel level, const RowKernelKey& key);

RowKernels FindRowKernelsSse2(const RowKernelKey& key);
RowKernels FindRowKernelsAvx2(const RowKernelKey& key);
RowKernels FindRowKernelsAvx512(const RowKernelKey& key);

}  // namespace vantle
