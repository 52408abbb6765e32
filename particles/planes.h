// The two planes in space on which the layers lie.
#pragma once

#include "base/vec.h"
#include "particles/frame_settings.h"

namespace vantle {

/// A rotation by angles about x, then y, then z: m[row][column].
struct Rotation3 {
  float m[3][3];
};

/// R = Rz * Ry * Rx of angles in radians.
Rotation3 MakeRotation(float x, float y, float z);

/// Output pixels a full-resolution pixel; a factor of (nearly) nothing says nothing and counts as 1.
inline float UsableDownsample(float factor) {
  return factor <= 0.001f ? 1.0f : factor;
}

/// Where a plane puts the points of its layer.
struct PlaneTransform {
  Rotation3 rotation;
  float centre[2];  ///< of the frame, full-resolution pixels
  float scale[2];
  float thickness;
  Vec3 offset;  ///< where the frame's centre goes
};

PlaneTransform MakePlaneTransform(const PlaneSettings& plane, float centreX, float centreY);

/// World position of the layer's point (x, y), `depth` (-0.5..0.5) of the thickness off the plane.
inline Vec3 MapToPlane(const PlaneTransform& plane, float x, float y, float depth) {
  const float(&m)[3][3] = plane.rotation.m;
  const float lx = (x - plane.centre[0]) * plane.scale[0];
  const float ly = (y - plane.centre[1]) * plane.scale[1];
  const float lz = depth * plane.thickness;
  return {m[0][0] * lx + m[0][1] * ly + m[0][2] * lz + plane.offset.x,
          m[1][0] * lx + m[1][1] * ly + m[1][2] * lz + plane.offset.y,
          m[2][0] * lx + m[2][1] * ly + m[2][2] * lz + plane.offset.z};
}

}  // namespace vantle
