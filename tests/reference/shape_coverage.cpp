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

Region EllipseRegion(const ProjectedParticle& p, const Tilt& t) {
  const float extX = p.size * (std::fabs(t.cy * t.cz) + std::fabs(t.cx * t.sz)) + p.cocRadius + 1.0f;
  const float extY = p.size * (std::fabs(t.cy * t.sz) + std::fabs(t.cx * t.cz)) + p.cocRadius + 1.0f;
  const float reachX = extX + p.cocRadius + 1.0f;
  const float reachY = extY + p.cocRadius + 1.0f;
  return {p.sx - reachX, p.sx + reachX, p.sy - reachY, p.sy + reachY};
}

}  // namespace

Tilt TiltOf(const ProjectedParticle& p) {
  return {Cos(p.rotX * kRadians), Cos(p.rotY * kRadians), Cos(p.rotZ * kRadians), Sin(p.rotZ * kRadians)};
}

Stamp StampOf(const ProjectedParticle& particle, const std::vector<Vec2>& curve, int32_t shape,
              bool roundCap) {
  Stamp stamp = {particle, curve, shape, roundCap, {}, {}, BlurWidth(particle)};
  if (shape == SHAPE_LINE || shape == SHAPE_ARROW) {
    stamp.segment = SegmentOf(particle);
  } else if (shape != SHAPE_CURVE_LINE && shape != SHAPE_CURVED_ARROW) {
    stamp.tilt = TiltOf(particle);
  }
  return stamp;
}

Region RegionOf(const Stamp& stamp) {
  const ProjectedParticle& p = stamp.particle;
  const float half = p.lineWidth * 0.5f;
  switch (stamp.shape) {
    case SHAPE_LINE:
      return Around(stamp.segment, half, p.cocRadius, 1.0f);
    case SHAPE_ARROW:
      return Around(stamp.segment, half * 2.5f, p.cocRadius, 2.0f);
    case SHAPE_CURVE_LINE:
      return BoundsOf(stamp.curve, half + p.cocRadius + 1.0f);
    case SHAPE_CURVED_ARROW:
      return BoundsOf(stamp.curve, half * 2.5f + p.cocRadius + 2.0f);
    default:
      return EllipseRegion(p, stamp.tilt);
  }
}

float LineCoverage(const Stamp& stamp, float px, float py) {
  const Segment& s = stamp.segment;
  const bool noLength = s.a.x == s.b.x && s.a.y == s.b.y;
  if (noLength && !stamp.roundCap) return 0.0f;
  const float d =
      stamp.roundCap ? RoundSegmentDistance({px, py}, s.a, s.b) : ButtSegmentDistance({px, py}, s.a, s.b);
  return EdgeCoverage(stamp.particle.lineWidth * 0.5f - d, BlurWidth(stamp.particle));
}

float ArrowCoverage(const Stamp& stamp, float px, float py) {
  const ProjectedParticle& p = stamp.particle;
  const Segment& s = stamp.segment;
  const float half = p.lineWidth * 0.5f;
  const float d = ArrowDistance({px, py}, s.a, s.b, half, p.size * 0.35f, half * 2.5f);
  return EdgeCoverage(-d, BlurWidth(p));
}

}  // namespace vantle::reference
