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

/// The same for kLanes keys at once.
void PickPixels(const Emitter& emitter, const uint32_t* keys, int64_t* pixels);

/// kLanes picks under way. The pixels lie anywhere in the layer: all are asked for when the picks begin, and
/// the longer one does something else before they are finished, the less one waits.
struct alignas(64) PendingPicks {
  float r[kLanes];         ///< shares of the total; 0 for known pixels
  uint32_t block[kLanes];  ///< blocks in which they lie
  int32_t row[kLanes];     ///< of the picked pixels
  int32_t column[kLanes];  ///< of the blocks' first pixels; after FinishPicks of the picked pixels
  uint32_t known;          ///< a bit for every lane whose pixel needs no search
};

void BeginPicks(const Emitter& emitter, const uint32_t* keys, PendingPicks* picks);
void FinishPicks(const Emitter& emitter, PendingPicks* picks);

/// The points of finished picks.
void PointsOfPicks(const Emitter& emitter, const PendingPicks& picks, float downsampleX, float downsampleY,
                   EmittingPoint* points);

/// The pixel's point; the downsample factors are positive or whatever a hostile host sent.
EmittingPoint PointOfPixel(const Emitter& emitter, int64_t pixel, float downsampleX, float downsampleY);

}  // namespace vantle
