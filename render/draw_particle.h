// One particle drawn into a band of rows.
#pragma once

#include "base/pixels.h"
#include "particles/frame_settings.h"
#include "particles/projected_particle.h"
#include "render/pixel_rect.h"
#include "render/row_kernels.h"

#include <cstddef>

namespace vantle {

struct RasterFrame;

using DrawParticleFn = void (*)(const RasterFrame& frame, const ProjectedParticle& particle,
                                const RowBand& band);

/// A frame to be drawn, with the loops that its shape, transfer mode and pixel format call for.
struct RasterFrame {
  MutableImage output;
  const CurvePointPool* curvePoints;
  const ImageView* sprites;
  size_t spriteCount;
  int32_t shape;
  int32_t mode;
  bool roundCap;
  RowKernels kernels;
  DrawParticleFn draw;  ///< null for a shape that does not exist
};

/// Borrows everything it is given.
RasterFrame MakeRasterFrame(InstructionLevel level, const MutableImage& output,
                            const CurvePointPool& curvePoints, const FrameSettings& settings,
                            const ImageView* sprites, size_t spriteCount);

/// Points, circles, triangles, squares, lines and arrows.
void DrawShape(const RasterFrame& frame, const ProjectedParticle& particle, const RowBand& band);

/// Curve lines and curved arrows.
void DrawCurve(const RasterFrame& frame, const ProjectedParticle& particle, const RowBand& band);

/// Rows first..last of any picture as tall as can be; none where `last` lies before `first`.
struct RowSpan {
  int32_t first, last;
};

/// The rows that DrawCurve may touch for the particle.
RowSpan RowsOfCurve(const RasterFrame& frame, const ProjectedParticle& particle);

/// Asks for the particle's trail, which is going to be drawn soon.
void PrefetchCurve(const RasterFrame& frame, const ProjectedParticle& particle);

/// Layer sprites.
void DrawSprite(const RasterFrame& frame, const ProjectedParticle& particle, const RowBand& band);

/// As kernel::prepareShape, without sines and cosines of nothing.
kernel::ShapeFrame PrepareShape(const ProjectedParticle& particle);

/// The columns of a block, filled up to whole chunks of lanes.
inline int32_t FillUp(int32_t columns, int32_t chunk) {
  return (columns + chunk - 1) / chunk * chunk;
}

/// Calls body(block) for blocks that tile `rect`, each of at most `maxColumns` by `maxRows` pixels before its
/// columns are filled up. Where the picture is wide enough, the filled-up columns lie inside.
template <class Body>
void ForEachBlock(const PixelRect& rect, const RasterFrame& frame, int32_t maxColumns, int32_t maxRows,
                  const Body& body) {
  const int32_t width = frame.output.width;
  for (int32_t y = rect.y0; y <= rect.y1; y += maxRows) {
    const int32_t rows = rect.y1 - y + 1 < maxRows ? rect.y1 - y + 1 : maxRows;
    for (int32_t x = rect.x0; x <= rect.x1; x += maxColumns) {
      const int32_t columns = rect.x1 - x + 1 < maxColumns ? rect.x1 - x + 1 : maxColumns;
      const int32_t stride = FillUp(columns, frame.kernels.columns);
      const int32_t start = x + stride <= width ? x : (stride <= width ? width - stride : 0);
      body(PixelBlock{start, y, stride, rows, x, x + columns - 1});
    }
  }
}

/// The tallest block whose pixels are at most `most`, its columns filled up.
inline int32_t RowsOfBlock(const PixelRect& rect, const RasterFrame& frame, int32_t maxColumns,
                           int32_t most) {
  const int32_t columns = rect.x1 - rect.x0 + 1 < maxColumns ? rect.x1 - rect.x0 + 1 : maxColumns;
  return most / FillUp(columns, frame.kernels.columns);
}

/// A copy of a block's rows in a picture narrower than a chunk of lanes.
struct NarrowRows {
  std::byte bytes[kBlockCoverages * 16];
  int64_t rowBytes;
};
void CopyNarrowRows(const MutableImage& image, const PixelBlock& block, NarrowRows* rows);
void WriteNarrowRows(const NarrowRows& rows, const PixelBlock& block, const MutableImage& image);

/// Calls blend(at, rowBytes) with the block's first pixel; in a picture too narrow for the block's columns,
/// by way of a copy of its rows.
template <class Blend>
void BlendBlockWith(const RasterFrame& frame, const PixelBlock& block, const Blend& blend) {
  const MutableImage& out = frame.output;
  if (block.x + block.stride <= out.width) {
    const int64_t offset = static_cast<int64_t>(block.x) * static_cast<int64_t>(PixelBytes(out.depth));
    return blend(Row(out, block.y) + offset, out.rowBytes);
  }
  NarrowRows rows;
  CopyNarrowRows(out, block, &rows);
  blend(rows.bytes, rows.rowBytes);
  WriteNarrowRows(rows, block, out);
}

/// Lays `source` over the block with the frame's transfer mode.
void BlendBlockOver(const RasterFrame& frame, const BlendSource& source, const PixelBlock& block,
                    const float* coverage);

}  // namespace vantle
