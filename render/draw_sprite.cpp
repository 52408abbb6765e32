// Frames of a layer stamped as sprites: nearest texels, and a grid of samples for the depth of field.
#include "base/numeric.h"
#include "render/draw_particle.h"
#include "render/sprite.h"

#include <algorithm>
#include <cmath>

namespace vantle {

namespace {

/// One sample up to a blur of half a pixel, then trunc(coc) + 1 a side, between 3 and 7.
int32_t SamplesOfBlur(float cocRadius) {
  if (!(cocRadius > 0.5f)) return 1;
  return std::clamp(std::min(TruncToInt(cocRadius), 100) + 1, 3, kMostSpriteSamples);
}

/// The grid (u + (i step - 1) coc W / dispW, v + (j step - 1) coc H / dispH), step = 2 / (n - 1).
void SetSamples(float coc, SpriteFrame* s) {
  s->samples = SamplesOfBlur(coc);
  if (s->samples == 1) return;
  const float step = 2.0f / static_cast<float>(s->samples - 1);
  for (int32_t i = 0; i < s->samples; ++i) {
    s->offsetU[i] = (static_cast<float>(i) * step - 1.0f) * coc * s->width / s->dispW;
    s->offsetV[i] = (static_cast<float>(i) * step - 1.0f) * coc * s->height / s->dispH;
  }
}

/// The last of `size` texels; for sizes that a float cannot hold, one that does exist.
float LastTexel(int32_t size) {
  constexpr int32_t kExact = 1 << 24;
  return static_cast<float>(size <= kExact ? size - 1 : (size - 1) / 256 * 256);
}

SpriteFrame PrepareSprite(const ImageView& image, const ProjectedParticle& p) {
  SpriteFrame s{};
  s.image = image;
  s.shape = PrepareShape(p);
  s.width = static_cast<float>(image.width);
  s.height = static_cast<float>(image.height);
  s.lastColumn = LastTexel(image.width);
  s.lastRow = LastTexel(image.height);
  const float aspect = s.width / s.height;
  const float span = 2.0f * p.size;
  s.dispW = aspect < 1.0f ? aspect * span : span;
  s.dispH = aspect < 1.0f ? span : span / aspect;
  s.perPixelX = s.width / s.dispW;
  s.perPixelY = s.height / s.dispH;
  s.opacity = p.alpha;
  SetSamples(p.cocRadius, &s);
  return s;
}

/// The frame that the particle shows, null where there is none that could be drawn.
const ImageView* FindSprite(const RasterFrame& frame, const ProjectedParticle& particle) {
  const int64_t k = particle.spriteFrame;
  if (k < 0 || k >= static_cast<int64_t>(frame.spriteCount)) return nullptr;
  const ImageView* sprite = frame.sprites + k;
  return HasPixels(*sprite) && sprite->depth == frame.output.depth ? sprite : nullptr;
}

/// The rectangle that decides what may be drawn, around the sprite however it is turned.
PixelRect RectOfSprite(const SpriteFrame& s, const RowBand& band) {
  const kernel::ShapeFrame& f = s.shape;
  const float reach = std::sqrt((s.dispW * s.dispW + s.dispH * s.dispH) * 0.25f) + f.cocRadius + 1.0f;
  return CutToBand({f.sx - reach, f.sx + reach, f.sy - reach, f.sy + reach}, band);
}

}  // namespace

void DrawSprite(const RasterFrame& frame, const ProjectedParticle& particle, const RowBand& band) {
  const ImageView* image = FindSprite(frame, particle);
  if (image == nullptr || !std::isfinite(particle.size)) return;
  const SpriteFrame s = PrepareSprite(*image, particle);
  if (kernel::isEdgeOn(s.shape)) return;
  const float blur = s.samples > 1 ? particle.cocRadius : 0.0f;
  const PixelRect rect = TightenToBox(RectOfSprite(s, band), s.shape, 0.5f * std::fabs(s.dispW) + blur,
                                      0.5f * std::fabs(s.dispH) + blur);
  if (IsEmpty(rect)) return;

  constexpr int32_t kColumns = 32;
  PixelSources sources;
  ForEachBlock(rect, frame, kColumns, RowsOfBlock(rect, frame, kColumns, kSpriteBlock),
               [&](const PixelBlock& block) {
                 frame.kernels.sampleSprite(s, block, &sources);
                 BlendBlockWith(frame, block, [&](std::byte* at, int64_t rowBytes) {
                   frame.kernels.blendSources(sources, block, at, rowBytes);
                 });
               });
}

}  // namespace vantle
