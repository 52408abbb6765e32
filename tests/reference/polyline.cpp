#include "tests/reference/polyline.h"

#include "base/numeric.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace vantle::reference {
namespace {

Vec2 Minus(const Vec2& a, const Vec2& b) {
  return {a.x - b.x, a.y - b.y};
}

float Dot(const Vec2& a, const Vec2& b) {
  return a.x * b.x + a.y * b.y;
}

float Cross(const Vec2& a, const Vec2& b) {
  return a.x * b.y - a.y * b.x;
}

float Length(const Vec2& v) {
  return std::sqrt(Dot(v, v));
}

// Never 0, so that it can be divided by.
float GuardedLength(const Vec2& v) {
  return std::sqrt(Dot(v, v) + 1e-12f);
}

// Position of p along the ray from a through b.
float Along(const Vec2& p, const Vec2& a, const Vec2& b) {
  const Vec2 ab = Minus(b, a);
  return Dot(Minus(p, a), ab) / GuardedLength(ab);
}

// Whether p lies beyond b, seen from a.
bool PastEnd(const Vec2& p, const Vec2& a, const Vec2& b) {
  const Vec2 ab = Minus(b, a);
  return Dot(Minus(p, b), ab) / GuardedLength(ab) > 0.0f;
}

float RoundDistance(const Vec2& p, const std::vector<Vec2>& c) {
  float d = c.size() < 2 ? kFarAway : std::numeric_limits<float>::infinity();
  for (size_t i = 1; i < c.size(); ++i) d = std::min(d, RoundSegmentDistance(p, c[i - 1], c[i]));
  return d;
}

// Joints are filled with discs, except where a disc would round off one of the two flat ends.
float ButtDistance(const Vec2& p, const std::vector<Vec2>& c) {
  float d = kFarAway;
  for (size_t i = 1; i < c.size(); ++i) {
    const float along = Along(p, c[i - 1], c[i]);
    const bool beside = 0.0f <= along && along <= GuardedLength(Minus(c[i], c[i - 1]));
    if (beside) d = std::min(d, ButtSegmentDistance(p, c[i - 1], c[i]));
  }

  const size_t n = c.size();
  for (size_t k = 1; k + 1 < n; ++k) {
    if (k == 1 && !(Along(p, c[0], c[1]) >= 0.0f)) continue;
    if (k == n - 2 && PastEnd(p, c[n - 2], c[n - 1])) continue;
    d = std::min(d, Length(Minus(p, c[k])));
  }
  return d;
}

float BodyCoverage(const Stamp& stamp, const Vec2& p) {
  const float d = stamp.roundCap ? RoundDistance(p, stamp.curve) : ButtDistance(p, stamp.curve);
  return Clamp((stamp.particle.lineWidth * 0.5f - d) / BlurWidth(stamp.particle) + 0.5f, 0.0f, 1.0f);
}

// The head sits on the first point and points away from the rest of the curve.
float HeadDistance(const Stamp& stamp, const Vec2& p) {
  const std::vector<Vec2>& c = stamp.curve;
  if (c.size() < 2 || (c[0].x == c[1].x && c[0].y == c[1].y)) return kFarAway;
  const float half = stamp.particle.lineWidth * 0.5f;
  const float headLength = std::max(stamp.particle.size * 0.15f, half * 3.0f);

  const Vec2 back = Minus(c[0], c[1]);
  const float length = GuardedLength(back);
  const Vec2 dir = {back.x / length, back.y / length};
  const Vec2 tip = {c[0].x + dir.x * headLength, c[0].y + dir.y * headLength};
  const Vec2 base = {c[0].x - dir.x * headLength * 0.1f, c[0].y - dir.y * headLength * 0.1f};
  return ArrowDistance(p, base, tip, half, headLength, half * 2.5f);
}

}  // namespace

float RoundSegmentDistance(const Vec2& p, const Vec2& a, const Vec2& b) {
  const Vec2 ab = Minus(b, a);
  const Vec2 ap = Minus(p, a);
  const float t = Clamp(Dot(ap, ab) / (Dot(ab, ab) + 1e-12f), 0.0f, 1.0f);
  const Vec2 closest = {a.x + ab.x * t, a.y + ab.y * t};
  return Length(Minus(p, closest));
}

float ButtSegmentDistance(const Vec2& p, const Vec2& a, const Vec2& b) {
  const Vec2 ab = Minus(b, a);
  if (ab.x == 0.0f && ab.y == 0.0f) return kFarAway;
  const float along = Along(p, a, b);
  if (along < 0.0f || along > GuardedLength(ab)) return kFarAway;
  return std::fabs(Cross(Minus(p, a), ab)) / GuardedLength(ab);
}

float ArrowDistance(const Vec2& p, const Vec2& a, const Vec2& b, float shaftHalf, float headLength,
                    float headHalf) {
  const Vec2 ab = Minus(b, a);
  const Vec2 ap = Minus(p, a);
  const float length = GuardedLength(ab);
  const Vec2 u = {ab.x / length, ab.y / length};
  const float along = Dot(ap, u);
  const float across = std::fabs(Dot(ap, {-u.y, u.x}));
  const float shaftEnd = length - headLength;
  if (0.0f <= along && along <= shaftEnd) return across - shaftHalf;
  if (shaftEnd < along && along <= length) {
    const float t = (along - shaftEnd) / headLength;
    return across - headHalf * (1.0f - t);
  }
  return kFarAway;
}

Region BoundsOf(const std::vector<Vec2>& curve, float margin) {
  Region box = {curve[0].x, curve[0].x, curve[0].y, curve[0].y};
  for (const Vec2& p : curve) {
    box.left = std::min(box.left, p.x);
    box.right = std::max(box.right, p.x);
    box.top = std::min(box.top, p.y);
    box.bottom = std::max(box.bottom, p.y);
  }
  return {box.left - margin, box.right + margin, box.top - margin, box.bottom + margin};
}

float CurveCoverage(const Stamp& stamp, float px, float py) {
  return BodyCoverage(stamp, {px, py});
}

float CurvedArrowCoverage(const Stamp& stamp, float px, float py) {
  const float head = Clamp(0.5f - HeadDistance(stamp, {px, py}) / BlurWidth(stamp.particle), 0.0f, 1.0f);
  return std::max(head, BodyCoverage(stamp, {px, py}));
}

}  // namespace vantle::reference
