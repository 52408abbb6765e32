#include "render/draw_particle.h"

#include "base/pixels.h"

#include <algorithm>
#include <cmath>
#include <cstring>

namespace vantle {

namespace {

DrawParticleFn FindDraw(int32_t shape, PixelDepth depth) {
  if (shape == SHAPE_CURVE_LINE || shape == SHAPE_CURVED_ARROW) return DrawCurve;
  if (shape == SHAPE_LAYER) return FindDrawSprite(depth);
  return shape >= SHAPE_POINT && shape <= SHAPE_ARROW ? DrawShape : nullptr;
}

bool IsLine(int32_t shape) {
  return shape == SHAPE_LINE || shape == SHAPE_ARROW;
}

kernel::Particle ToKernel(const ProjectedParticle& p) {
  return {p.sx, p.sy, p.size, p.lineWidth, p.r, p.g, p.b, p.alpha, p.rotX, p.rotY, p.rotZ, p.cocRadius};
}

/// The tallest block of a stride that the coverages have room for.
int32_t RowsOfBlock(const PixelRect& rect, int32_t maxColumns, int32_t chunk) {
  const int32_t columns = std::min(rect.x1 - rect.x0 + 1, maxColumns);
  return kBlockCoverages / FillUp(columns, chunk);
}

/// In a picture narrower than a chunk of lanes: by way of a copy of its rows.
void BlendNarrow(const RasterFrame& frame, const BlendSource& source, const PixelBlock& block,
                 const float* coverage) {
  const MutableImage& out = frame.output;
  constexpr size_t kMostPixelBytes = 16;
  std::byte copy[kBlockCoverages * kMostPixelBytes] = {};
  const size_t rowBytes = static_cast<size_t>(block.stride) * PixelBytes(out.depth);
  const size_t imageBytes = static_cast<size_t>(out.width) * PixelBytes(out.depth);
  const size_t rows = static_cast<size_t>(block.rows);
  for (size_t row = 0; row < rows; ++row) {
    std::memcpy(copy + row * rowBytes, Row(out, block.y + static_cast<int32_t>(row)), imageBytes);
  }
  frame.kernels.blend(source, block, coverage, copy, static_cast<int64_t>(rowBytes));
  for (size_t row = 0; row < rows; ++row) {
    std::memcpy(Row(out, block.y + static_cast<int32_t>(row)), copy + row * rowBytes, imageBytes);
  }
}

/// As kernel::prepareShape, without sines and cosines of nothing.
kernel::ShapeFrame PrepareShape(const kernel::Particle& p) {
  if (p.rotX != 0.0f || p.rotY != 0.0f || p.rotZ != 0.0f) return kernel::prepareShape(p);
  return kernel::placeShape(p, 1.0f, 1.0f, 1.0f, 0.0f);
}

}  // namespace

RasterFrame MakeRasterFrame(InstructionLevel level, const MutableImage& output,
                            const CurvePointPool& curvePoints, const FrameSettings& settings,
                            const ImageView* sprites, size_t spriteCount) {
  const int32_t shape = settings.shape;
  const RowKernelKey key{shape, settings.roundCap, settings.transferMode, output.depth};
  return {.output = output,
          .curvePoints = &curvePoints,
          .sprites = sprites,
          .spriteCount = sprites != nullptr ? spriteCount : 0,
          .shape = shape,
          .mode = settings.transferMode,
          .roundCap = settings.roundCap,
          .kernels = FindRowKernels(level, key),
          .draw = FindDraw(shape, output.depth)};
}

void BlendBlockOver(const RasterFrame& frame, const BlendSource& source, const PixelBlock& block,
                    const float* coverage) {
  const MutableImage& out = frame.output;
  if (block.x + block.stride > out.width) return BlendNarrow(frame, source, block, coverage);
  const int64_t offset = static_cast<int64_t>(block.x) * static_cast<int64_t>(PixelBytes(out.depth));
  frame.kernels.blend(source, block, coverage, Row(out, block.y) + offset, out.rowBytes);
}

void DrawShape(const RasterFrame& frame, const ProjectedParticle& particle, const RowBand& band) {
  if (!std::isfinite(particle.size)) return;
  const kernel::ShapeFrame f = PrepareShape(ToKernel(particle));
  if (!IsLine(frame.shape) && kernel::isEdgeOn(f)) return;
  PixelRect rect = CutToBand(ShapeEdges(f, frame.shape), band);
  if (!IsLine(frame.shape)) rect = TightenToPlaneShape(rect, f, frame.shape);
  if (IsEmpty(rect)) return;

  const bool upright = f.cx == 1.0f && f.cy == 1.0f && f.cz == 1.0f && f.sz == 0.0f;
  const CoverBlockFn cover = upright ? frame.kernels.coverUpright : frame.kernels.cover;
  const BlendSource source{particle.r, particle.g, particle.b, particle.alpha};
  constexpr int32_t kColumns = kBlockSlack;
  const int32_t rows = RowsOfBlock(rect, kColumns, frame.kernels.columns);
  ForEachBlock(rect, frame, kColumns, rows, [&](const PixelBlock& block) {
    float coverage[kBlockCoverages + kBlockSlack];
    cover(f, block, coverage);
    BlendBlockOver(frame, source, block, coverage);
  });
}

}  // namespace vantle
