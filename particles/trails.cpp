#include "particles/trails.h"

#include <algorithm>
#include <cmath>
#include <cstring>

namespace vantle {
namespace {

/// More than the walk ever takes: 24 steps lead to the path's start.
constexpr int32_t kMostSteps = kMaxTrailPoints - 1;

/// A trail as it grows.
struct Trail {
  const ViewProjection* view;
  Vec2* points;
  int32_t count;
  Vec3 last;        ///< last point in the world
  float remaining;  ///< length left
};

void Append(Trail& trail, const Vec3& point) {
  const ScreenPoint screen = ProjectPoint(*trail.view, point);
  trail.points[trail.count++] = {screen.x, screen.y};
  trail.last = point;
}

float Length(const Vec3& v) {
  return std::sqrt(v.x * v.x + v.y * v.y + v.z * v.z);
}

/// Goes on to the next point of the path, or as far towards it as the length left allows.
void WalkTo(Trail& trail, const Vec3& point) {
  const Vec3 way = {point.x - trail.last.x, point.y - trail.last.y, point.z - trail.last.z};
  const float distance = Length(way);
  if (distance <= trail.remaining || distance < 0.0001f) {
    Append(trail, point);
    trail.remaining -= distance;
    return;
  }
  const float part = trail.remaining / distance;
  Append(trail, {trail.last.x + way.x * part, trail.last.y + way.y * part, trail.last.z + way.z * part});
  trail.remaining = 0.0f;
}

/// One particle's path in every lane, so that the steps along it fill a batch. What nothing bends is not set.
void Spread(const FrameConstants& frame, const PathLanes& path, int32_t l, PathLanes* out) {
  const auto spread = [l](const float* from, float* to) { std::fill(to, to + kLanes, from[l]); };
  const auto spreadVector = [&](const VectorLanes& from, VectorLanes& to) {
    spread(from.x, to.x);
    spread(from.y, to.y);
    spread(from.z, to.z);
  };
  spreadVector(path.start, out->start);
  spreadVector(path.end, out->end);
  spread(path.bentEndX, out->bentEndX);
  spread(path.bentEndY, out->bentEndY);
  if (frame.settings->scatter > 0.0f) {
    spreadVector(path.scatter, out->scatter);
    spread(path.scatterStrength, out->scatterStrength);
  }
  if (frame.hasTurbulence) spreadVector(path.turbulence, out->turbulence);
}

/// Walks back along the path, a batch of steps at a time.
void WalkBack(const FrameConstants& frame, const PathLanes& path, int32_t l, Trail& trail) {
  const float transform = frame.transform;
  const float step = std::max(transform > 0.0001f ? transform / 24.0f : 0.0f, 0.0008f);
  if (!(transform > 0.0001f)) return;
  PathLanes same;
  Spread(frame, path, l, &same);

  float reached = transform;
  for (int32_t from = 0; from < kMostSteps; from += kLanes) {
    float q[kLanes];
    for (int32_t i = 0; i < kLanes; ++i) {
      q[i] = std::max(transform - static_cast<float>(from + i + 1) * step, 0.0f);
    }
    VectorLanes p;
    PositionsAt(frame, same, q, &p);
    for (int32_t i = 0; i < std::min(kLanes, kMostSteps - from); ++i) {
      // The step that ends at 0 is still taken; none follows it.
      if (!(trail.remaining > 0.0f) || !(reached > 0.0001f)) return;
      WalkTo(trail, {p.x[i], p.y[i], p.z[i]});
      reached = q[i];
    }
  }
}

}  // namespace

int32_t BuildTrail(const FrameConstants& frame, const ViewProjection& view, const PathLanes& path,
                   const VectorLanes& positions, const VectorLanes& directions, float size, int32_t l,
                   Vec2* points) {
  const Vec3 head = {positions.x[l], positions.y[l], positions.z[l]};
  const float length = std::max(4.0f * size, 1.0f);
  Trail trail = {&view, points, 0, head, length};
  Append(trail, head);
  WalkBack(frame, path, l, trail);
  if (trail.count > 1) return trail.count;

  // At the start of the path there is nothing to follow: a straight tail against the direction.
  const Vec3 d = {directions.x[l], directions.y[l], directions.z[l]};
  const float size3 = Length(d);
  if (size3 <= 0.0001f) {
    Append(trail, {head.x - length, head.y, head.z});
  } else {
    Append(trail,
           {head.x - length * d.x / size3, head.y - length * d.y / size3, head.z - length * d.z / size3});
  }
  return trail.count;
}

}  // namespace vantle
