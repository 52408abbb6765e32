// How much of a pixel each shape covers, and the rectangle of pixels that may be covered at all.
#pragma once

#include "base/vec.h"
#include "particles/projected_particle.h"

#include <cstdint>
#include <vector>

namespace vantle::reference {

/// Edges of a region in pixels, not yet cut to a picture.
struct Region {
  float left = 0.0f;
  float right = 0.0f;
  float top = 0.0f;
  float bottom = 0.0f;
};

/// What a shape is drawn from.
struct Stamp {
  const ProjectedParticle& particle;
  const std::vector<Vec2>& curve;
  int32_t shape;
  bool roundCap;
};

/// Width of a soft edge: a pixel, or twice the blur radius.
float BlurWidth(const ProjectedParticle& particle);

/// Whether the shape's plane is seen so nearly from its edge that nothing is drawn.
bool EdgeOn(const ProjectedParticle& particle);

/// Sines and cosines of the particle's rotations.
struct Tilt {
  float cx, cy, cz, sz;
};
Tilt TiltOf(const ProjectedParticle& particle);

/// Analytic shapes and curves; not for sprites.
Region RegionOf(const Stamp& stamp);

/// 0..1 at the point (px, py). Not for sprites.
float CoverageAt(const Stamp& stamp, float px, float py);

}  // namespace vantle::reference
