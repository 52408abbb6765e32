// How much of a pixel each shape covers, and the rectangle of pixels that may be covered at all.
#pragma once

#include "base/numeric.h"
#include "base/vec.h"
#include "particles/frame_settings.h"
#include "particles/projected_particle.h"

#include <algorithm>
#include <cmath>
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

/// Sines and cosines of the particle's rotations.
struct Tilt {
  float cx, cy, cz, sz;
};
Tilt TiltOf(const ProjectedParticle& particle);

/// A line through the particle's centre, as long as its size.
struct Segment {
  Vec2 a;
  Vec2 b;
};

/// What a shape is drawn from, with what is the same for all its pixels.
struct Stamp {
  const ProjectedParticle& particle;
  const std::vector<Vec2>& curve;
  int32_t shape;
  bool roundCap;
  Tilt tilt;        ///< of plane shapes only
  Segment segment;  ///< of lines and arrows only
  float blurWidth;
};
Stamp StampOf(const ProjectedParticle& particle, const std::vector<Vec2>& curve, int32_t shape,
              bool roundCap);

/// Width of a soft edge: a pixel, or twice the blur radius.
inline float BlurWidth(const ProjectedParticle& particle) {
  return 2.0f * particle.cocRadius <= 1.0f ? 1.0f : 2.0f * particle.cocRadius;
}

/// Whether the shape's plane is seen so nearly from its edge that nothing is drawn.
inline bool EdgeOn(const Tilt& t) {
  return std::fabs(t.cx) < 0.05f || std::fabs(t.cy) < 0.05f;
}

/// Analytic shapes and curves; not for sprites.
Region RegionOf(const Stamp& stamp);

/// clamp(distance to the edge, inside positive, over the blur width, + 1/2)
inline float EdgeCoverage(float inside, float blurW) {
  return Clamp(inside / blurW + 0.5f, 0.0f, 1.0f);
}

/// Three half-planes; the apex points down.
inline float TriangleInside(float lx, float ly, float r) {
  const float tx = lx / r;
  const float ty = ly / r;
  const float bottom = ty + 0.5f;
  const float left = 0.866f * tx - 0.5f * ty + 0.5f;
  const float right = -0.866f * tx - 0.5f * ty + 0.5f;
  return std::min(std::min(bottom, left), right) * r;
}

/// Of a shape that is not seen from its edge.
inline float EllipseCoverage(const Stamp& stamp, int32_t shape, float px, float py) {
  const ProjectedParticle& p = stamp.particle;
  const Tilt& t = stamp.tilt;
  const float dx = px - p.sx;
  const float dy = py - p.sy;
  const float lx = (dx * t.cz + dy * t.sz) / t.cy;
  const float ly = (-dx * t.sz + dy * t.cz) / t.cx;
  const float dist = std::sqrt(lx * lx + ly * ly);

  const float r = p.size;
  const float blurW = stamp.blurWidth;
  if (shape == SHAPE_POINT) return EdgeCoverage(1.0f - dist, blurW);
  if (shape == SHAPE_CIRCLE) return EdgeCoverage(r - dist, blurW);
  if (shape == SHAPE_TRIANGLE) return EdgeCoverage(TriangleInside(lx, ly, r), blurW);
  if (shape == SHAPE_SQUARE) {
    return EdgeCoverage(std::min(r - std::fabs(lx), r - std::fabs(ly)), blurW);
  }
  const float effR = r + p.cocRadius;
  return dist <= effR ? 1.0f - dist / effR : 0.0f;
}

float LineCoverage(const Stamp& stamp, float px, float py);
float ArrowCoverage(const Stamp& stamp, float px, float py);
float CurveCoverage(const Stamp& stamp, float px, float py);
float CurvedArrowCoverage(const Stamp& stamp, float px, float py);

/// 0..1 at the point (px, py) of a stamp of this shape. Not for sprites. In the header, like all that is done
/// for every pixel: a call for each would be no fair measure of what plain code costs.
inline float CoverageAt(const Stamp& stamp, int32_t shape, float px, float py) {
  switch (shape) {
    case SHAPE_LINE:
      return LineCoverage(stamp, px, py);
    case SHAPE_ARROW:
      return ArrowCoverage(stamp, px, py);
    case SHAPE_CURVE_LINE:
      return CurveCoverage(stamp, px, py);
    case SHAPE_CURVED_ARROW:
      return CurvedArrowCoverage(stamp, px, py);
    default:
      return EllipseCoverage(stamp, shape, px, py);
  }
}

}  // namespace vantle::reference
