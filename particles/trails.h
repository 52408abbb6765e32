// The polylines behind the particles of the two curved shapes.
#pragma once

#include "particles/motion.h"
#include "particles/projected_particle.h"
#include "particles/projection.h"

#include <cstdint>

namespace vantle {

/// Writes the projected trail of lane l, head first, and returns its number of points, 1..kMaxTrailPoints.
/// The trail follows the path back from the frame's progress until its length is four sizes.
int32_t BuildTrail(const FrameConstants& frame, const ViewProjection& view, const PathLanes& path,
                   const VectorLanes& positions, const VectorLanes& directions, float size, int32_t l,
                   Vec2* points);

}  // namespace vantle
