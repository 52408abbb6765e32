// Frames of a layer stamped as sprites: nearest texels, and a grid of samples for the depth of field.
#include "base/numeric.h"
#include "base/pixels.h"
#include "render/draw_particle.h"
#include "render/transfer.h"

#include <algorithm>
#include <cmath>

namespace vantle {

namespace {

/// How a sprite lies on the screen: u = ((dx cz + dy sz) / cy + dispW / 2) W / dispW, v likewise with the
/// sine's sign turned and cx. Its longer side spans 2 size pixels.
struct SpriteFrame {
  const ImageView* image;
  kernel::ShapeFrame shape;
  float width, height;         ///< texels
  float dispW, dispH;          ///< pixels
  float perPixelX, perPixelY;  ///< texels a pixel
  int32_t samples;             ///< n of the n x n samples
  float step;                  ///< between samples, in blur radii
};

/// Sums over a pixel's samples, in raw codes: alpha, and colour times alpha.
struct TexelSum {
  float a = 0.0f;
  float r = 0.0f;
  float g = 0.0f;
  float b = 0.0f;
};

/// Full scale of a format's codes as the factor to 0..1, and the least sum of alphas that counts: in codes
/// any texel that is not fully transparent does.
template <class Format>
constexpr float kUnit = Format::kDepth == PixelDepth::k8 ? 1.0f / 255.0f : 1.0f / 32768.0f;
template <>
constexpr float kUnit<Format32> = 1.0f;
template <class Format>
constexpr float kLeastAlpha = Format::kDepth == PixelDepth::k32 ? 0.001f : 0.1f;

/// One sample up to a blur of half a pixel, then trunc(coc) + 1 a side, between 3 and 7.
int32_t SamplesOfBlur(float cocRadius) {
  if (!(cocRadius > 0.5f)) return 1;
  return std::clamp(std::min(TruncToInt(cocRadius), 100) + 1, 3, 7);
}

SpriteFrame PrepareSprite(const ImageView& image, const ProjectedParticle& p) {
  SpriteFrame s{};
  s.image = &image;
  s.shape = kernel::prepareShape(
      {p.sx, p.sy, p.size, p.lineWidth, p.r, p.g, p.b, p.alpha, p.rotX, p.rotY, p.rotZ, p.cocRadius});
  s.width = static_cast<float>(image.width);
  s.height = static_cast<float>(image.height);
  const float aspect = s.width / s.height;
  const float span = 2.0f * p.size;
  s.dispW = aspect < 1.0f ? aspect * span : span;
  s.dispH = aspect < 1.0f ? span : span / aspect;
  s.perPixelX = s.width / s.dispW;
  s.perPixelY = s.height / s.dispH;
  s.samples = SamplesOfBlur(p.cocRadius);
  s.step = s.samples > 1 ? 2.0f / static_cast<float>(s.samples - 1) : 0.0f;
  return s;
}

template <class Format>
void AddTexel(const SpriteFrame& s, float u, float v, TexelSum* sum) {
  if (!(u >= 0.0f && u < s.width && v >= 0.0f && v < s.height)) return;
  const int32_t column = std::min(TruncToInt(u), s.image->width - 1);
  const int32_t row = std::min(TruncToInt(v), s.image->height - 1);
  typename Format::Channel texel[4];
  const int64_t offset = static_cast<int64_t>(column) * static_cast<int64_t>(sizeof(texel));
  std::memcpy(texel, Row(*s.image, row) + offset, sizeof(texel));
  const float a = static_cast<float>(texel[0]);
  sum->a += a;
  sum->r += a * static_cast<float>(texel[1]);
  sum->g += a * static_cast<float>(texel[2]);
  sum->b += a * static_cast<float>(texel[3]);
}

/// The one sample (u, v), or the grid (u + (i step - 1) coc W / dispW, v + (j step - 1) coc H / dispH).
template <class Format>
TexelSum SampleSprite(const SpriteFrame& s, float u, float v) {
  TexelSum sum;
  if (s.samples == 1) {
    AddTexel<Format>(s, u, v, &sum);
    return sum;
  }
  const float coc = s.shape.cocRadius;
  for (int32_t i = 0; i < s.samples; ++i) {
    const float su = u + (static_cast<float>(i) * s.step - 1.0f) * coc * s.width / s.dispW;
    for (int32_t j = 0; j < s.samples; ++j) {
      const float sv = v + (static_cast<float>(j) * s.step - 1.0f) * coc * s.height / s.dispH;
      AddTexel<Format>(s, su, sv, &sum);
    }
  }
  return sum;
}

/// Colour sum / a, coverage a / n^2, both scaled to 0..1; the particle gives its opacity only.
template <class Format>
void BlendSprite(const SpriteFrame& s, const TexelSum& sum, float opacity, int32_t mode, std::byte* at) {
  const float count = static_cast<float>(s.samples * s.samples);
  const float coverage = sum.a / count * kUnit<Format>;
  if (!(coverage > 0.001f)) return;
  const float srcR = sum.r / sum.a * kUnit<Format>;
  const float srcG = sum.g / sum.a * kUnit<Format>;
  const float srcB = sum.b / sum.a * kUnit<Format>;
  FloatPixel d = LoadPixel<Format>(at);
  kernel::blendPixel(srcR, srcG, srcB, coverage * opacity, d.r, d.g, d.b, d.a, mode);
  StorePixel<Format>(at, d);
}

/// The frame that the particle shows, null where there is none that could be drawn.
const ImageView* FindSprite(const RasterFrame& frame, const ProjectedParticle& particle) {
  const int64_t k = particle.spriteFrame;
  if (k < 0 || k >= static_cast<int64_t>(frame.spriteCount)) return nullptr;
  const ImageView* sprite = frame.sprites + k;
  return HasPixels(*sprite) && sprite->depth == frame.output.depth ? sprite : nullptr;
}

template <class Format>
void DrawSpriteRow(const RasterFrame& frame, const SpriteFrame& s, float opacity, const PixelRect& rect,
                   int32_t y) {
  const kernel::ShapeFrame& f = s.shape;
  const float dy = static_cast<float>(y) - f.sy;
  std::byte* at = Row(frame.output, y) + static_cast<int64_t>(rect.x0) * int64_t{kPixelBytes<Format>};
  for (int32_t x = rect.x0; x <= rect.x1; ++x, at += kPixelBytes<Format>) {
    const float dx = static_cast<float>(x) - f.sx;
    const float u = ((dx * f.cz + dy * f.sz) / f.cy + s.dispW / 2.0f) * s.perPixelX;
    const float v = ((dy * f.cz - dx * f.sz) / f.cx + s.dispH / 2.0f) * s.perPixelY;
    const TexelSum sum = SampleSprite<Format>(s, u, v);
    if (sum.a >= kLeastAlpha<Format>) BlendSprite<Format>(s, sum, opacity, frame.mode, at);
  }
}

template <class Format>
void DrawSprite(const RasterFrame& frame, const ProjectedParticle& particle, const RowBand& band) {
  const ImageView* image = FindSprite(frame, particle);
  if (image == nullptr || !std::isfinite(particle.size)) return;
  const SpriteFrame s = PrepareSprite(*image, particle);
  if (kernel::isEdgeOn(s.shape)) return;
  const float reach = std::sqrt((s.dispW * s.dispW + s.dispH * s.dispH) * 0.25f) + particle.cocRadius + 1.0f;
  const PixelRect rect =
      CutToBand({particle.sx - reach, particle.sx + reach, particle.sy - reach, particle.sy + reach}, band);
  for (int32_t y = rect.y0; y <= rect.y1; ++y) {
    DrawSpriteRow<Format>(frame, s, particle.alpha, rect, y);
  }
}

}  // namespace

DrawParticleFn FindDrawSprite(PixelDepth depth) {
  if (depth == PixelDepth::k8) return DrawSprite<Format8>;
  return depth == PixelDepth::k16 ? DrawSprite<Format16> : DrawSprite<Format32>;
}

}  // namespace vantle
