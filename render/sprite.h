// A frame of a layer as it lies on the screen.
#pragma once

#include "base/image_view.h"
#include "render/coverage.h"

#include <cstdint>

namespace vantle {

/// Most samples along a side of a blurred sprite's grid.
inline constexpr int32_t kMostSpriteSamples = 7;

/// u = ((dx cz + dy sz) / cy + dispW / 2) W / dispW, v likewise with the sine's sign turned and cx. The
/// sprite's longer side spans 2 size pixels.
struct SpriteFrame {
  ImageView image;
  kernel::ShapeFrame shape;
  float width, height;                ///< texels
  float lastColumn, lastRow;          ///< of the texels
  float dispW, dispH;                 ///< pixels
  float perPixelX, perPixelY;         ///< texels a pixel
  float opacity;                      ///< the particle's
  int32_t samples;                    ///< n of the n x n samples
  float offsetU[kMostSpriteSamples];  ///< of the samples, texels
  float offsetV[kMostSpriteSamples];
};

/// Most pixels of a block of sprites.
inline constexpr int32_t kSpriteBlock = 256;

/// What is laid over the pixels of a block, a colour and an alpha each. There is room for a second row
/// beneath the last.
struct PixelSources {
  float alpha[kSpriteBlock + 64];
  float r[kSpriteBlock + 64];
  float g[kSpriteBlock + 64];
  float b[kSpriteBlock + 64];
};

}  // namespace vantle
