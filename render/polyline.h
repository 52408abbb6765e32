// Distance to a trail of points: the body of curve lines and curved arrows.
#pragma once

#include "particles/projected_particle.h"
#include "render/pixel_rect.h"

#include <cstdint>

namespace vantle {

/// The distance where no segment is near.
inline constexpr float kFarDistance = 1e9f;

/// A trail's segments with what is the same for every pixel.
struct Polyline {
  int32_t count;  ///< points
  Vec2 points[kMaxTrailPoints];
  Vec2 step[kMaxTrailPoints];            ///< point i to point i + 1
  float lengthSquared[kMaxTrailPoints];  ///< of the step, + 1e-12
  float length[kMaxTrailPoints];         ///< its root
  bool spreads[kMaxTrailPoints];  ///< so short that, without round caps, it counts far away from itself
};

/// The pieces of a trail that can come near a group of pixels.
struct NearPieces {
  int32_t segmentCount;
  int32_t jointCount;
  uint8_t segments[kMaxTrailPoints];
  uint8_t joints[kMaxTrailPoints];
};

/// Copies the points; `count` is held to 0..kMaxTrailPoints.
void PreparePolyline(const Vec2* points, int32_t count, Polyline* line);

/// Every piece: what the distance is by definition.
void AllPieces(const Polyline& line, NearPieces* near);

/// Those of `from` whose box, widened by `reach`, meets the pixels of `rect`. For a pixel of `rect`, a
/// distance below `reach` (less what rounding can move it) comes out the same with these pieces as with all.
/// `from` and `near` may be the same.
void PiecesNear(const Polyline& line, const PixelRect& rect, float reach, const NearPieces& from,
                NearPieces* near);

/// Pixels whose distances are taken side by side.
inline constexpr int32_t kPolylineLanes = 8;

/// Distances of the pixels (x .. x + kPolylineLanes - 1, y) to the pieces; 1e9 or more where there are none.
/// With round caps the minimum over the segments of the distance to their closest point. Without, a segment
/// counts beside itself only, and the joints between segments are filled by discs, except beyond the two flat
/// ends. Fewer than two points are infinitely far: 1e9.
void PolylineDistances(const Polyline& line, const NearPieces& near, bool roundCap, int32_t x, int32_t y,
                       float* distances);

}  // namespace vantle
