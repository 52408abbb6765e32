// The life of one particle: where it starts and ends, where it is, and what it looks like.
#pragma once

#include "base/vec.h"
#include "particles/frame_settings.h"
#include "tests/reference/layer_points.h"

#include <cstdint>
#include <vector>

namespace vantle::reference {

/// The points of a frame, from which particles pick their start and end.
struct Layers {
  PointList a;
  PointList b;
};

/// One particle in the world, in full-resolution composition pixels: x right, y down, z into depth.
struct WorldParticle {
  Vec3 position;
  float size = 0.0f;
  float opacity = 0.0f;
  Color color;
  float lineWidth = 0.0f;
  float rotation[3] = {0.0f, 0.0f, 0.0f};  ///< degrees
  Vec3 direction;
  float random = 0.0f;
  std::vector<Vec3> trail;  ///< curved shapes only
};

/// Rotation about x, then y, then z: matrix rows. Angles in radians.
struct Rotation {
  float row[3][3];
};
Rotation RotationOf(float x, float y, float z);

/// Simulates the particle of this index. At least one of the two lists has a point.
WorldParticle SimulateOne(uint32_t index, const Layers& layers, const FrameSettings& settings);

}  // namespace vantle::reference
