#include "tests/reference/particle_path.h"

#include "base/elementary.h"
#include "tests/reference/random_streams.h"
#include "tests/reference/turbulence_field.h"

#include <algorithm>
#include <cmath>

namespace vantle::reference {
namespace {

Vec3 Difference(const Vec3& a, const Vec3& b) {
  return {a.x - b.x, a.y - b.y, a.z - b.z};
}

float SquaredLength(const Vec3& v) {
  return v.x * v.x + v.y * v.y + v.z * v.z;
}

// Pushes the particle out in a direction of its own, or pulls it towards the centre of the frame.
Vec3 Scattered(Vec3 v, float bell, const Path& path, float scatter) {
  if (scatter > 0.0f) {
    const float theta = Angle(path.key, kSaltScatterAzimuth);
    const float w = DirectionZ(path.key, kSaltScatterZ);
    const float r = std::sqrt(std::max(0.0f, 1.0f - w * w));
    const float k = (Unit(path.key, kSaltScatterStrength) + 0.4f) * bell * scatter * path.largerSide;
    return {v.x + k * (Cos(theta) * r), v.y + k * (Sin(theta) * r), v.z + k * w};
  }
  if (scatter < 0.0f) {
    const float k = std::min(std::fabs(scatter), 1.0f) * bell;
    return {v.x + (path.centreX - v.x) * k, v.y + (path.centreY - v.y) * k, v.z * (1.0f - k)};
  }
  return v;
}

}  // namespace

Vec3 Turned(const Vec3& v, float sine, float cosine, const Path& path) {
  const float dx = v.x - path.centreX;
  const float dy = v.y - path.centreY;
  return {path.centreX + cosine * dx - sine * dy, path.centreY + sine * dx + cosine * dy, v.z};
}

Vec3 PositionAt(const Path& path, float q, const FrameSettings& s) {
  const Vec3& from = path.start;
  const Vec3& to = path.bentEnd;
  Vec3 x = {from.x + (to.x - from.x) * q, from.y + (to.y - from.y) * q, from.z + (to.z - from.z) * q};

  const bool turbulent = s.turbulenceAmount > 0.001f;
  const float bell = turbulent || s.scatter != 0.0f ? Sin(3.14159265f * q) : 0.0f;
  x = Scattered(x, bell, path, s.scatter);
  if (path.swirl != 0.0f) x = Turned(x, Sin(path.swirl * q), Cos(path.swirl * q), path);
  if (turbulent) {
    const Vec3 d = TurbulenceAt((path.start.x + path.end.x) / 2.0f, (path.start.y + path.end.y) / 2.0f, s);
    x = {x.x + bell * d.x, x.y + bell * d.y, x.z + bell * d.z};
  }
  return x;
}

Vec3 DirectionAt(const Path& path, float p, const FrameSettings& s) {
  const Vec3 before = PositionAt(path, std::max(p - 0.02f, 0.0f), s);
  const Vec3 moved = Difference(PositionAt(path, p, s), before);
  return SquaredLength(moved) < 1e-06f ? Difference(path.end, path.start) : moved;
}

std::vector<Vec3> TrailBehind(const Path& path, float p, float t, float size, const FrameSettings& s) {
  const float length = std::max(4.0f * size, 1.0f);
  std::vector<Vec3> trail = {PositionAt(path, p, s)};
  const float step = std::max(t > 0.0001f ? t / 24.0f : 0.0f, 0.0008f);

  float remaining = length;
  float q = t;
  for (int k = 1; k <= 64 && remaining > 0.0f && q > 0.0001f; ++k) {
    q = std::max(t - static_cast<float>(k) * step, 0.0f);
    const Vec3 last = trail.back();
    const Vec3 next = PositionAt(path, q, s);
    const Vec3 way = Difference(next, last);
    const float distance = std::sqrt(SquaredLength(way));
    if (distance <= remaining || distance < 0.0001f) {
      trail.push_back(next);
      remaining -= distance;
      continue;
    }
    const float part = remaining / distance;
    trail.push_back({last.x + way.x * part, last.y + way.y * part, last.z + way.z * part});
    break;
  }
  if (trail.size() > 1) return trail;

  // Nothing to walk back along: a straight tail against the motion.
  const Vec3 head = trail.front();
  const Vec3 d = DirectionAt(path, p, s);
  const float speed = std::sqrt(SquaredLength(d));
  if (speed <= 0.0001f) {
    trail.push_back({head.x - length, head.y, head.z});
  } else {
    trail.push_back(
        {head.x - length * d.x / speed, head.y - length * d.y / speed, head.z - length * d.z / speed});
  }
  return trail;
}

}  // namespace vantle::reference
