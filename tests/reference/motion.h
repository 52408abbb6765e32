// The life of one particle: where it starts and ends, where it is, and what it looks like.
#pragma once

#include "base/vec.h"
#include "particles/frame_settings.h"
#include "tests/reference/layer_points.h"
#include "tests/reference/random_streams.h"

#include <cstdint>
#include <vector>

namespace vantle::reference {

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

/// What is the same for every particle of a frame.
struct MotionFrame {
  const FrameSettings& settings;
  Rotation planeA;
  Rotation planeB;
  float swirl;  ///< radians
  float unswirlSine, unswirlCosine;
};
MotionFrame MotionFrameOf(const FrameSettings& settings);

/// The points that a particle was dealt.
struct Ends {
  const Point* emitter;
  const Point* target;  ///< null without a second layer
  bool startsOnA;       ///< else the only layer is the second one, and a particle ends where it was picked
};

/// At least one of the two lists has a point.
Ends PickEnds(const ParticleKeys& keys, const Layers& layers);

/// Simulates one particle.
WorldParticle SimulateOne(const ParticleKeys& keys, const Ends& ends, const MotionFrame& frame);

}  // namespace vantle::reference
