// The way of one particle from its start to its end.
#pragma once

#include "base/vec.h"
#include "particles/frame_settings.h"

#include <cstdint>
#include <vector>

namespace vantle::reference {

struct Path {
  Vec3 start;
  Vec3 end;
  uint32_t key = 0;      ///< of the particle's random streams
  float centreX = 0.0f;  ///< of the frame
  float centreY = 0.0f;
  float largerSide = 0.0f;
  float swirl = 0.0f;  ///< radians
  Vec3 bentEnd;        ///< the end, turned back by the whole swirl, which the swirl makes good on the way
};

/// Turns x and y about the centre of the frame.
Vec3 Turned(const Vec3& v, float sine, float cosine, const Path& path);

/// Position at progress q, 0..1.
Vec3 PositionAt(const Path& path, float q, const FrameSettings& settings);

/// Where the particle moves at progress p: its position less the one a moment before; for a particle at rest
/// from start to end. Not normalised.
Vec3 DirectionAt(const Path& path, float p, const FrameSettings& settings);

/// The line that a particle at progress p draws behind itself, at most 4 sizes long. The walk back starts at
/// the frame's progress t, not at the staggered p.
std::vector<Vec3> TrailBehind(const Path& path, float p, float t, float size, const FrameSettings& settings);

}  // namespace vantle::reference
