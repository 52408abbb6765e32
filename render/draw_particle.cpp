#include "render/draw_particle.h"

#include "base/pixels.h"

#include <algorithm>
#include <cmath>
#include <cstring>

namespace vantle {

namespace {

DrawParticleFn FindDraw(int32_t shape) {
  if (shape == SHAPE_CURVE_LINE || shape == SHAPE_CURVED_ARROW) return DrawCurve;
  if (shape == SHAPE_LAYER) return DrawSprite;
  return shape >= SHAPE_POINT && shape <= SHAPE_ARROW ? DrawShape : nullptr;
}

bool IsLine(int32_t shape) {
  return shape == SHAPE_LINE || shape == SHAPE_ARROW;
}

}  // namespace

kernel::ShapeFrame PrepareShape(const ProjectedParticle& p) {
  const kernel::Particle particle{p.sx, p.sy,    p.size, p.lineWidth, p.r,    p.g,
                                  p.b,  p.alpha, p.rotX, p.rotY,      p.rotZ, p.cocRadius};
  if (p.rotX != 0.0f || p.rotY != 0.0f || p.rotZ != 0.0f) return kernel::prepareShape(particle);
  return kernel::placeShape(particle, 1.0f, 1.0f, 1.0f, 0.0f);
}

void CopyNarrowRows(const MutableImage& image, const PixelBlock& block, NarrowRows* rows) {
  const size_t rowBytes = static_cast<size_t>(block.stride) * PixelBytes(image.depth);
  const size_t imageBytes = static_cast<size_t>(image.width) * PixelBytes(image.depth);
  rows->rowBytes = static_cast<int64_t>(rowBytes);
  for (int32_t row = 0; row < block.rows; ++row) {
    std::byte* to = rows->bytes + static_cast<size_t>(row) * rowBytes;
    std::memcpy(to, Row(image, block.y + row), imageBytes);
    std::memset(to + imageBytes, 0, rowBytes - imageBytes);
  }
}

void WriteNarrowRows(const NarrowRows& rows, const PixelBlock& block, const MutableImage& image) {
  const size_t imageBytes = static_cast<size_t>(image.width) * PixelBytes(image.depth);
  for (int32_t row = 0; row < block.rows; ++row) {
    std::memcpy(Row(image, block.y + row), rows.bytes + rows.rowBytes * row, imageBytes);
  }
}

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
          .draw = FindDraw(shape)};
}

void BlendBlockOver(const RasterFrame& frame, const BlendSource& source, const PixelBlock& block,
                    const float* coverage) {
  BlendBlockWith(frame, block, [&](std::byte* at, int64_t rowBytes) {
    frame.kernels.blend(source, block, coverage, at, rowBytes);
  });
}

void DrawShape(const RasterFrame& frame, const ProjectedParticle& particle, const RowBand& band) {
  if (!std::isfinite(particle.size)) return;
  const kernel::ShapeFrame f = PrepareShape(particle);
  if (!IsLine(frame.shape) && kernel::isEdgeOn(f)) return;
  const PixelRect bounds = CutToBand(ShapeEdges(f, frame.shape), band);
  const PixelRect rect = IsLine(frame.shape) ? TightenToLine(bounds, f, frame.shape, frame.roundCap)
                                             : TightenToPlaneShape(bounds, f, frame.shape);
  if (IsEmpty(rect)) return;

  const bool upright = f.cx == 1.0f && f.cy == 1.0f && f.cz == 1.0f && f.sz == 0.0f;
  const CoverBlockFn cover = upright ? frame.kernels.coverUpright : frame.kernels.cover;
  const BlendSource source{particle.r, particle.g, particle.b, particle.alpha};
  constexpr int32_t kColumns = kBlockSlack;
  const int32_t rows = RowsOfBlock(rect, frame, kColumns, kBlockCoverages);
  ForEachBlock(rect, frame, kColumns, rows, [&](const PixelBlock& block) {
    float coverage[kBlockCoverages + kBlockSlack];
    cover(f, block, coverage);
    BlendBlockOver(frame, source, block, coverage);
  });
}

}  // namespace vantle
