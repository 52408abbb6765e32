#include "tests/reference/sprite.h"

#include "base/numeric.h"

#include <algorithm>
#include <cmath>

namespace vantle::reference {
namespace {

// Adds the texel under (u, v), unscaled, its colour weighted by its alpha.
void AddTexel(const ImageView& sprite, float u, float v, Pixel& sum) {
  const float width = static_cast<float>(sprite.width);
  const float height = static_cast<float>(sprite.height);
  if (!(0.0f <= u && u < width && 0.0f <= v && v < height)) return;
  const int32_t x = std::min(TruncToInt(u), sprite.width - 1);
  const int32_t y = std::min(TruncToInt(v), sprite.height - 1);
  const size_t column = static_cast<size_t>(x) * BytesPerPixel(sprite.depth);
  const Pixel texel = ReadCodes(Row(sprite, y) + column, sprite.depth);
  sum.a += texel.a;
  sum.r += texel.a * texel.r;
  sum.g += texel.a * texel.g;
  sum.b += texel.a * texel.b;
}

// Samples along each side of the blur's grid.
int GridSize(float cocRadius) {
  if (cocRadius <= 0.5f) return 1;
  if (cocRadius >= 6.0f) return 7;
  return std::clamp(TruncToInt(cocRadius) + 1, 3, 7);
}

}  // namespace

const ImageView* SpriteOf(const ProjectedParticle& particle, const std::vector<ImageView>& sprites) {
  const int32_t k = particle.spriteFrame;
  if (k < 0 || static_cast<size_t>(k) >= sprites.size()) return nullptr;
  const ImageView& sprite = sprites[static_cast<size_t>(k)];
  return HasPixels(sprite) ? &sprite : nullptr;
}

SpriteStamp SpriteStampOf(const ProjectedParticle& particle, const ImageView& sprite) {
  const float aspect = static_cast<float>(sprite.width) / static_cast<float>(sprite.height);
  const float d = 2.0f * particle.size;
  SpriteStamp stamp = {particle, sprite, TiltOf(particle), d, d};
  (aspect < 1.0f ? stamp.width : stamp.height) = aspect < 1.0f ? aspect * d : d / aspect;
  return stamp;
}

Region SpriteRegion(const SpriteStamp& stamp) {
  const ProjectedParticle& p = stamp.particle;
  const float reach =
      std::sqrt((stamp.width * stamp.width + stamp.height * stamp.height) * 0.25f) + p.cocRadius + 1.0f;
  return {p.sx - reach, p.sx + reach, p.sy - reach, p.sy + reach};
}

Pixel SpriteAt(const SpriteStamp& stamp, float px, float py) {
  const ProjectedParticle& p = stamp.particle;
  const ImageView& sprite = stamp.sprite;
  const Tilt& t = stamp.tilt;
  const float width = static_cast<float>(sprite.width);
  const float height = static_cast<float>(sprite.height);

  // Where the point lies on the sprite, in texels.
  const float dx = px - p.sx;
  const float dy = py - p.sy;
  const float u = ((dx * t.cz + dy * t.sz) / t.cy + stamp.width / 2.0f) * (width / stamp.width);
  const float v = ((dy * t.cz - dx * t.sz) / t.cx + stamp.height / 2.0f) * (height / stamp.height);

  // Sum one texel, or a grid of them over the blur.
  Pixel sum;
  const int n = GridSize(p.cocRadius);
  if (n == 1) {
    AddTexel(sprite, u, v, sum);
  } else {
    const float step = 2.0f / static_cast<float>(n - 1);
    for (int i = 0; i < n; ++i) {
      for (int j = 0; j < n; ++j) {
        const float alongX = static_cast<float>(i) * step - 1.0f;
        const float alongY = static_cast<float>(j) * step - 1.0f;
        AddTexel(sprite, u + alongX * p.cocRadius * width / stamp.width,
                 v + alongY * p.cocRadius * height / stamp.height, sum);
      }
    }
  }

  // Scale the sums.
  const float least = sprite.depth == PixelDepth::k32 ? 0.001f : 0.1f;
  if (!(sum.a >= least)) return {};
  const float scale = CodeScale(sprite.depth);
  return {sum.a / static_cast<float>(n * n) * scale, sum.r / sum.a * scale, sum.g / sum.a * scale,
          sum.b / sum.a * scale};
}

}  // namespace vantle::reference
