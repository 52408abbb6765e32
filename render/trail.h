// The body of curve lines and curved arrows: a trail of points, laid out for lanes across its segments.
#pragma once

#include "particles/projected_particle.h"

#include <cstdint>

namespace vantle {

/// Room for the points and for the lanes that hang over their end.
inline constexpr int32_t kTrailSlots = kMaxTrailPoints + 31;

/// Columns and rows of the blocks that trails are drawn in, from a block's first pixel to its middle, and
/// from there to its corners, rounded up.
inline constexpr int32_t kTrailTile = 8;
inline constexpr float kTileMiddle = 3.5f;
inline constexpr float kTileRadius = 4.96f;

/// A trail with what is the same for all its pixels. Segment i runs from point i to point i + 1.
struct Trail {
  int32_t count;                   ///< points, 1..kMaxTrailPoints
  float left, right, top, bottom;  ///< box of the points; NaN where the first point is
  bool roundCap;                   ///< round ends, else flat ones
  float halfLW;                    ///< half the stroke
  float blurW;                     ///< width of the soft edge, at least a pixel
  float largest;                   ///< largest coordinate of the points, without its sign
  float slack;                     ///< more than rounding can move a distance
  float reach;         ///< distance, slack included, at which nothing is covered; infinite: it cannot be told
  uint64_t spreading;  ///< segments that, with flat ends, may count far away from themselves; a bit each

  bool hasHead;
  Vec2 base, tip;  ///< of the head
  float headLen, headHalfW;

  float x[kTrailSlots], y[kTrailSlots];          ///< the points; after the last one it is repeated
  float stepX[kTrailSlots], stepY[kTrailSlots];  ///< of a segment
  float lengthSquared[kTrailSlots];              ///< of a segment, + 1e-12
  float length[kTrailSlots];                     ///< its root
};

}  // namespace vantle
