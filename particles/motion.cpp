#include "particles/motion.h"

#include "base/elementary_inline.h"
#include "base/numeric.h"
#include "particles/emission_weights.h"
#include "particles/emitter_pick.h"
#include "particles/particle_streams.h"

#include <algorithm>
#include <cmath>

namespace vantle {
namespace {

constexpr float kPi = 3.14159265f;
constexpr int32_t kStaggerFromTarget = 2;

Vec3 LaneOf(const VectorLanes& lanes, int32_t l) {
  return {lanes.x[l], lanes.y[l], lanes.z[l]};
}

void SetLane(VectorLanes& lanes, int32_t l, const Vec3& v) {
  lanes.x[l] = v.x;
  lanes.y[l] = v.y;
  lanes.z[l] = v.z;
}

/// The random point of a sphere whose z and azimuth the two streams give.
Vec3 RandomDirection(uint32_t key, StreamSalt azimuth, StreamSalt z) {
  const SineCosine theta = SinCosInline(Azimuth(key, azimuth));
  const float w = DirectionZ(key, z);
  const float r = std::sqrt(std::max(0.0f, 1.0f - w * w));
  return {theta.cosine * r, theta.sine * r, w};
}

// ---- Ends ----

/// Offset of a particle's free end from the one that lies on a layer.
Vec3 Jitter(const FrameConstants& frame, uint32_t key) {
  const Vec3 direction = RandomDirection(key, kSaltJitterAzimuth, kSaltJitterZ);
  const float radius = JitterRadius(key, kSaltJitterRadius) * frame.jitter;
  return {radius * direction.x, radius * direction.y, radius * direction.z};
}

Vec3 Sum(const Vec3& a, const Vec3& b) {
  return {a.x + b.x, a.y + b.y, a.z + b.z};
}

/// The particles' points before they are put on their planes.
struct PointLanes {
  EmittingPoint from[kLanes];
  EmittingPoint to[kLanes];  ///< the same as `from` unless both layers have points
};

void PickPoints(const FrameConstants& frame, const Emitter& emitter, const uint32_t* keys,
                EmittingPoint* points) {
  int64_t pixels[kLanes];
  PickPixels(emitter, keys, pixels);
  for (int32_t l = 0; l < kLanes; ++l) {
    points[l] = PointOfPixel(emitter, pixels[l], frame.downsampleX, frame.downsampleY);
  }
}

void PickEnds(const FrameConstants& frame, const int32_t* indices, uint32_t* streamKeys, PointLanes* points) {
  uint32_t sourceKeys[kLanes], targetKeys[kLanes];
  for (int32_t l = 0; l < kLanes; ++l) {
    const ParticleKeys keys = KeysOfParticle(frame.settings->seed, static_cast<uint32_t>(indices[l]));
    streamKeys[l] = keys.key;
    sourceKeys[l] = keys.source;
    targetKeys[l] = keys.target;
  }
  PickPoints(frame, frame.source != nullptr ? *frame.source : *frame.target, sourceKeys, points->from);
  if (frame.source != nullptr && frame.target != nullptr) {
    PickPoints(frame, *frame.target, targetKeys, points->to);
  } else {
    std::copy(points->from, points->from + kLanes, points->to);
  }
}

void SetColors(const PointLanes& points, ParticleLanes& lanes) {
  for (int32_t l = 0; l < kLanes; ++l) {
    lanes.fromR[l] = points.from[l].r;
    lanes.fromG[l] = points.from[l].g;
    lanes.fromB[l] = points.from[l].b;
    lanes.fromAlpha[l] = points.from[l].alpha;
    lanes.toR[l] = points.to[l].r;
    lanes.toG[l] = points.to[l].g;
    lanes.toB[l] = points.to[l].b;
  }
}

/// Puts the points on their planes; an end without a layer lies somewhere around the other one.
void SetEnds(const FrameConstants& frame, const PointLanes& points, ParticleLanes& lanes) {
  for (int32_t l = 0; l < kLanes; ++l) {
    const uint32_t key = lanes.key[l];
    const EmittingPoint &from = points.from[l], &to = points.to[l];
    const float depth = Unit(key, kSaltThickness) - 0.5f;
    Vec3 start, end;
    if (frame.source != nullptr) start = MapToPlane(frame.planeA, from.x, from.y, depth);
    if (frame.target != nullptr) end = MapToPlane(frame.planeB, to.x, to.y, depth);
    if (frame.target == nullptr) end = Sum(start, Jitter(frame, key));
    if (frame.source == nullptr) start = Sum(end, Jitter(frame, key));
    SetLane(lanes.path.start, l, start);
    SetLane(lanes.path.end, l, end);
  }
}

// ---- Progress ----

/// Each particle's own progress: held back by up to `stagger` of the whole, by a channel of its point.
void SetProgress(const FrameConstants& frame, ParticleLanes& lanes) {
  const FrameSettings& s = *frame.settings;
  const float transform = frame.transform, stagger = frame.stagger;
  if (stagger <= 0.001f) {
    std::fill(lanes.progress, lanes.progress + kLanes, transform);
    return;
  }
  const bool byTarget = s.staggerFrom == kStaggerFromTarget && lanes.hasTarget;
  const float* r = byTarget ? lanes.toR : lanes.fromR;
  const float* g = byTarget ? lanes.toG : lanes.fromG;
  const float* b = byTarget ? lanes.toB : lanes.fromB;
  const bool reversed = s.stagger < 0.0f;
  const float rest = 1.0f - stagger;
  for (int32_t l = 0; l < kLanes; ++l) {
    const float value = ChannelValue(s.staggerBy, r[l], g[l], b[l], lanes.fromAlpha[l]);
    const float c = reversed ? 1.0f - value : value;
    const float delay = stagger * c;
    if (rest >= 0.001f) {
      lanes.progress[l] = Clamp((transform - delay) / rest, 0.0f, 1.0f);
    } else {
      lanes.progress[l] = transform < delay ? 0.0f : 1.0f;
    }
  }
}

// ---- Path ----

/// The ends that the straight part of the path leads to: the swirl then turns them to where they belong.
void SetBentEnds(const FrameConstants& frame, PathLanes& path) {
  const float cx = frame.centreX, cy = frame.centreY;
  const float sine = frame.unswirlSine, cosine = frame.unswirlCosine;
  const bool swirls = frame.swirl != 0.0f;
  for (int32_t l = 0; l < kLanes; ++l) {
    const float dx = path.end.x[l] - cx, dy = path.end.y[l] - cy;
    path.bentEndX[l] = swirls ? cx + cosine * dx - sine * dy : path.end.x[l];
    path.bentEndY[l] = swirls ? cy + sine * dx + cosine * dy : path.end.y[l];
  }
}

void SetScatter(const uint32_t* keys, PathLanes& path) {
  for (int32_t l = 0; l < kLanes; ++l) {
    path.scatterStrength[l] = Unit(keys[l], kSaltScatterStrength) + 0.4f;
    SetLane(path.scatter, l, RandomDirection(keys[l], kSaltScatterAzimuth, kSaltScatterZ));
  }
}

/// A particle keeps one place in the field, the middle between its ends.
void SetTurbulence(const FrameConstants& frame, PathLanes& path) {
  float x[kLanes], y[kLanes];
  for (int32_t l = 0; l < kLanes; ++l) {
    x[l] = (path.start.x[l] + path.end.x[l]) / 2.0f;
    y[l] = (path.start.y[l] + path.end.y[l]) / 2.0f;
  }
  EvaluateTurbulence(frame.turbulence, x, y, &path.turbulence);
}

void ScatterOutwards(const FrameConstants& frame, const PathLanes& path, const float* bell, VectorLanes* p) {
  const float scatter = frame.settings->scatter;
  for (int32_t l = 0; l < kLanes; ++l) {
    const float k = path.scatterStrength[l] * bell[l] * scatter * frame.extent;
    p->x[l] += k * path.scatter.x[l];
    p->y[l] += k * path.scatter.y[l];
    p->z[l] += k * path.scatter.z[l];
  }
}

void PullInwards(const FrameConstants& frame, const float* bell, VectorLanes* p) {
  for (int32_t l = 0; l < kLanes; ++l) {
    const float k = frame.pull * bell[l];
    p->x[l] += (frame.centreX - p->x[l]) * k;
    p->y[l] += (frame.centreY - p->y[l]) * k;
    p->z[l] *= 1.0f - k;
  }
}

void Swirl(const FrameConstants& frame, const float* q, VectorLanes* p) {
  const float cx = frame.centreX, cy = frame.centreY;
  for (int32_t l = 0; l < kLanes; ++l) {
    const auto [sine, cosine] = SinCosInline(frame.swirl * q[l]);
    const float dx = p->x[l] - cx, dy = p->y[l] - cy;
    p->x[l] = cx + cosine * dx - sine * dy;
    p->y[l] = cy + sine * dx + cosine * dy;
  }
}

}  // namespace

void StartParticles(const FrameConstants& frame, const int32_t* indices, ParticleLanes* lanes) {
  lanes->hasTarget = frame.target != nullptr;
  PointLanes points;
  PickEnds(frame, indices, lanes->key, &points);
  SetColors(points, *lanes);
  SetEnds(frame, points, *lanes);
  SetProgress(frame, *lanes);
  SetBentEnds(frame, lanes->path);
  if (frame.settings->scatter > 0.0f) SetScatter(lanes->key, lanes->path);
  if (frame.hasTurbulence) SetTurbulence(frame, lanes->path);
}

void PositionsAt(const FrameConstants& frame, const PathLanes& path, const float* q, VectorLanes* p) {
  for (int32_t l = 0; l < kLanes; ++l) {
    p->x[l] = path.start.x[l] + (path.bentEndX[l] - path.start.x[l]) * q[l];
    p->y[l] = path.start.y[l] + (path.bentEndY[l] - path.start.y[l]) * q[l];
    p->z[l] = path.start.z[l] + (path.end.z[l] - path.start.z[l]) * q[l];
  }
  // Everything that bends the path grows and vanishes with half a sine.
  float bell[kLanes];
  if (frame.hasBell) {
    for (int32_t l = 0; l < kLanes; ++l) bell[l] = SinInline(kPi * q[l]);
  }
  if (frame.settings->scatter > 0.0f) ScatterOutwards(frame, path, bell, p);
  if (frame.settings->scatter < 0.0f) PullInwards(frame, bell, p);
  if (frame.swirl != 0.0f) Swirl(frame, q, p);
  if (!frame.hasTurbulence) return;
  for (int32_t l = 0; l < kLanes; ++l) {
    p->x[l] += bell[l] * path.turbulence.x[l];
    p->y[l] += bell[l] * path.turbulence.y[l];
    p->z[l] += bell[l] * path.turbulence.z[l];
  }
}

void Directions(const FrameConstants& frame, const ParticleLanes& lanes, const VectorLanes& positions,
                VectorLanes* directions) {
  float earlier[kLanes];
  for (int32_t l = 0; l < kLanes; ++l) earlier[l] = std::max(lanes.progress[l] - 0.02f, 0.0f);
  VectorLanes before;
  PositionsAt(frame, lanes.path, earlier, &before);
  for (int32_t l = 0; l < kLanes; ++l) {
    Vec3 d = {positions.x[l] - before.x[l], positions.y[l] - before.y[l], positions.z[l] - before.z[l]};
    if (d.x * d.x + d.y * d.y + d.z * d.z < 1e-6f) {
      const Vec3 start = LaneOf(lanes.path.start, l), end = LaneOf(lanes.path.end, l);
      d = {end.x - start.x, end.y - start.y, end.z - start.z};
    }
    SetLane(*directions, l, d);
  }
}

}  // namespace vantle
