#include "tests/reference/shape_coverage.h"

#include "base/elementary.h"
#include "base/numeric.h"
#include "particles/frame_settings.h"
#include "tests/reference/polyline.h"

#include <algorithm>
#include <cmath>

namespace vantle::reference {
namespace {

constexpr float kRadians = 0.017453292f;

struct Segment {
  Vec2 a;
  Vec2 b;
};

// A line through the particle's centre, as long as its size.
Segment SegmentOf(const ProjectedParticle& p) {
  const float angle = p.rotZ * kRadians;
  const float ex = Cos(angle) * p.size * 0.5f;
  const float ey = Sin(angle) * p.size * 0.5f;
  return {{p.sx - ex, p.sy - ey}, {p.sx + ex, p.sy + ey}};
}

Region Around(const Segment& s, float half, float blur, float margin) {
  return {std::min(s.a.x, s.b.x) - half - blur - margin, std::max(s.a.x, s.b.x) + half + blur + margin,
          std::min(s.a.y, s.b.y) - half - blur - margin, std::max(s.a.y, s.b.y) + half + blur + margin};
}

Region EllipseRegion(const ProjectedParticle& p) {
  const Tilt t = TiltOf(p);
  const float extX = p.size * (std::fabs(t.cy * t.cz) + std::fabs(t.cx * t.sz)) + p.cocRadius + 1.0f;
  const float extY = p.size * (std::fabs(t.cy * t.sz) + std::fabs(t.cx * t.cz)) + p.cocRadius + 1.0f;
  const float reachX = extX + p.cocRadius + 1.0f;
  const float reachY = extY + p.cocRadius + 1.0f;
  return {p.sx - reachX, p.sx + reachX, p.sy - reachY, p.sy + reachY};
}

// clamp(distance to the edge, inside positive, over the blur width, + 1/2)
float EdgeCoverage(float inside, float blurW) {
  return Clamp(inside / blurW + 0.5f, 0.0f, 1.0f);
}

// Three half-planes; the apex points down.
float TriangleInside(float lx, float ly, float r) {
  const float tx = lx / r;
  const float ty = ly / r;
  const float bottom = ty + 0.5f;
  const float left = 0.866f * tx - 0.5f * ty + 0.5f;
  const float right = -0.866f * tx - 0.5f * ty + 0.5f;
  return std::min(std::min(bottom, left), right) * r;
}

float EllipseCoverage(const ProjectedParticle& p, int32_t shape, float px, float py) {
  const Tilt t = TiltOf(p);
  if (std::fabs(t.cx) < 0.05f || std::fabs(t.cy) < 0.05f) return 0.0f;
  const float dx = px - p.sx;
  const float dy = py - p.sy;
  const float lx = (dx * t.cz + dy * t.sz) / t.cy;
  const float ly = (-dx * t.sz + dy * t.cz) / t.cx;
  const float dist = std::sqrt(lx * lx + ly * ly);

  const float r = p.size;
  const float blurW = BlurWidth(p);
  if (shape == SHAPE_POINT) return EdgeCoverage(1.0f - dist, blurW);
  if (shape == SHAPE_CIRCLE) return EdgeCoverage(r - dist, blurW);
  if (shape == SHAPE_TRIANGLE) return EdgeCoverage(TriangleInside(lx, ly, r), blurW);
  if (shape == SHAPE_SQUARE) {
    return EdgeCoverage(std::min(r - std::fabs(lx), r - std::fabs(ly)), blurW);
  }
  const float effR = r + p.cocRadius;
  return dist <= effR ? 1.0f - dist / effR : 0.0f;
}

float LineCoverage(const Stamp& stamp, float px, float py) {
  const Segment s = SegmentOf(stamp.particle);
  const bool noLength = s.a.x == s.b.x && s.a.y == s.b.y;
  if (noLength && !stamp.roundCap) return 0.0f;
  const float d =
      stamp.roundCap ? RoundSegmentDistance({px, py}, s.a, s.b) : ButtSegmentDistance({px, py}, s.a, s.b);
  return EdgeCoverage(stamp.particle.lineWidth * 0.5f - d, BlurWidth(stamp.particle));
}

float ArrowCoverage(const ProjectedParticle& p, float px, float py) {
  const Segment s = SegmentOf(p);
  const float half = p.lineWidth * 0.5f;
  const float d = ArrowDistance({px, py}, s.a, s.b, half, p.size * 0.35f, half * 2.5f);
  return EdgeCoverage(-d, BlurWidth(p));
}

}  // namespace

float BlurWidth(const ProjectedParticle& particle) {
  return 2.0f * particle.cocRadius <= 1.0f ? 1.0f : 2.0f * particle.cocRadius;
}

Tilt TiltOf(const ProjectedParticle& p) {
  return {Cos(p.rotX * kRadians), Cos(p.rotY * kRadians), Cos(p.rotZ * kRadians), Sin(p.rotZ * kRadians)};
}

bool EdgeOn(const ProjectedParticle& particle) {
  const Tilt t = TiltOf(particle);
  return std::fabs(t.cx) < 0.05f || std::fabs(t.cy) < 0.05f;
}

Region RegionOf(const Stamp& stamp) {
  const ProjectedParticle& p = stamp.particle;
  const float half = p.lineWidth * 0.5f;
  switch (stamp.shape) {
    case SHAPE_LINE:
      return Around(SegmentOf(p), half, p.cocRadius, 1.0f);
    case SHAPE_ARROW:
      return Around(SegmentOf(p), half * 2.5f, p.cocRadius, 2.0f);
    case SHAPE_CURVE_LINE:
      return BoundsOf(stamp.curve, half + p.cocRadius + 1.0f);
    case SHAPE_CURVED_ARROW:
      return BoundsOf(stamp.curve, half * 2.5f + p.cocRadius + 2.0f);
    default:
      return EllipseRegion(p);
  }
}

float CoverageAt(const Stamp& stamp, float px, float py) {
  const ProjectedParticle& p = stamp.particle;
  switch (stamp.shape) {
    case SHAPE_LINE:
      return LineCoverage(stamp, px, py);
    case SHAPE_ARROW:
      return ArrowCoverage(p, px, py);
    case SHAPE_CURVE_LINE:
      return CurveCoverage(stamp, px, py);
    case SHAPE_CURVED_ARROW:
      return CurvedArrowCoverage(stamp, px, py);
    default:
      return EllipseCoverage(p, stamp.shape, px, py);
  }
}

}  // namespace vantle::reference
