// What the particle system hands to the renderers.
#pragma once

#include "base/buffer.h"
#include "base/vec.h"

#include <cstddef>
#include <cstdint>

namespace vantle {

/// A particle on the screen. The first twelve floats are, in this order, the record that the graphics
/// processor reads; keep them together and first.
struct ProjectedParticle {
  float sx, sy;            ///< centre, pixels
  float size;              ///< radius of round shapes, length of lines; pixels
  float lineWidth;         ///< full stroke width, pixels
  float r, g, b;           ///< straight colour
  float alpha;             ///< opacity 0..1
  float rotX, rotY, rotZ;  ///< degrees, resolved against the view
  float cocRadius;         ///< blur radius of the depth of field, pixels
  float depth;             ///< sort key, larger is farther
  float random;            ///< the particle's own random number, 0..1
  int32_t spriteFrame;     ///< index into the frame's sprites, -1 for none
  uint32_t curvePoints;    ///< slot in the frame's CurvePointPool; meaningful for curved shapes only
};
static_assert(sizeof(ProjectedParticle) == 64 && offsetof(ProjectedParticle, cocRadius) == 44);

/// Room for a trail's points: its head, and one for each step of a walk that comes to the path's start in 24
/// steps, or one more where rounding leaves a rest; made up to whole cache lines.
inline constexpr int32_t kMaxTrailPoints = 32;

/// Projected trails of the visible particles of curved shapes, head first; one pool a frame, so that no
/// particle allocates. Slot s owns points[s * kMaxTrailPoints] and the counts[s] - 1 after it.
struct CurvePointPool {
  Buffer<Vec2> points;
  Buffer<uint8_t> counts;
};

}  // namespace vantle
