// Picking a pixel of a weighted layer.
#pragma once

#include "particles/emission.h"
#include "particles/lanes.h"

#include <cstdint>

namespace vantle {

/// An emitting pixel as the particles see it.
struct EmittingPoint {
  float x, y;     ///< full-resolution composition pixels
  float r, g, b;  ///< straight colour
  float alpha;
};

/// The row-major index of the pixel that the random number `key` (its low 24 bits) picks: with r that share
/// of the total, the first emitting pixel up to which the weights sum to at least r. The emitter has points.
int64_t PickPixel(const Emitter& emitter, uint32_t key);

/// The same for kLanes keys at once, which hides the wait for their pixels.
void PickPixels(const Emitter& emitter, const uint32_t* keys, int64_t* pixels);

/// The pixel's point; the downsample factors are positive or whatever a hostile host sent.
EmittingPoint PointOfPixel(const Emitter& emitter, int64_t pixel, float downsampleX, float downsampleY);

}  // namespace vantle
