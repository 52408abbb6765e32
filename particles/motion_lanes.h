// Starts, paths and directions on lanes. Included after a lanes_*.h.
#pragma once

#include "particles/elementary_lanes.h"
#include "particles/motion.h"
#include "particles/streams_lanes.h"
#include "particles/turbulence_lanes.h"
#include "particles/weights_lanes.h"

#include <cstdint>

namespace vantle {
namespace {

struct PlaceLanes {
  Floats x, y, z;
};

inline PlaceLanes LoadPlace(const VectorLanes& from, int32_t l) {
  return {Load(from.x + l), Load(from.y + l), Load(from.z + l)};
}
inline void StorePlace(VectorLanes& to, int32_t l, const PlaceLanes& p) {
  Store(to.x + l, p.x);
  Store(to.y + l, p.y);
  Store(to.z + l, p.z);
}

// ---- Ends ----

/// As MapToPlane.
inline PlaceLanes MapToPlaneOf(const PlaneTransform& plane, Floats x, Floats y, Floats depth) {
  const float(&m)[3][3] = plane.rotation.m;
  const Floats lx = (x - plane.centre[0]) * plane.scale[0];
  const Floats ly = (y - plane.centre[1]) * plane.scale[1];
  const Floats lz = depth * plane.thickness;
  return {m[0][0] * lx + m[0][1] * ly + m[0][2] * lz + plane.offset.x,
          m[1][0] * lx + m[1][1] * ly + m[1][2] * lz + plane.offset.y,
          m[2][0] * lx + m[2][1] * ly + m[2][2] * lz + plane.offset.z};
}

/// The random place around a particle's only end where its free end lies.
inline PlaceLanes JitterAround(const FrameConstants& frame, Ints key, const PlaceLanes& end) {
  const DirectionLanes direction = RandomDirections(key, kSaltJitterAzimuth, kSaltJitterZ);
  const Floats radius = (StreamValues(key, kSaltJitterRadius) * kRadiusFactor + 0.3f) * frame.jitter;
  return {end.x + radius * direction.x, end.y + radius * direction.y, end.z + radius * direction.z};
}

/// Puts the points on their planes.
inline void SetEnds(const FrameConstants& frame, const PointLanes& points, ParticleLanes& lanes) {
  for (int32_t l = 0; l < kLanes; l += kWidth) {
    const Ints key = LoadInts(lanes.key + l);
    const Floats depth = Units(key, kSaltThickness) - 0.5f;
    PlaceLanes start = {}, end = {};
    if (frame.source != nullptr) {
      start = MapToPlaneOf(frame.planeA, Load(points.fromX + l), Load(points.fromY + l), depth);
    }
    if (frame.target != nullptr) {
      end = MapToPlaneOf(frame.planeB, Load(points.toX + l), Load(points.toY + l), depth);
    }
    if (frame.target == nullptr) end = JitterAround(frame, key, start);
    if (frame.source == nullptr) start = JitterAround(frame, key, end);
    StorePlace(lanes.path.start, l, start);
    StorePlace(lanes.path.end, l, end);
  }
}

// ---- Progress ----

/// Each particle's own progress: held back by up to `stagger` of the whole, by a channel of its point.
inline void SetProgress(const FrameConstants& frame, ParticleLanes& lanes) {
  constexpr int32_t kStaggerFromTarget = 2;
  const FrameSettings& s = *frame.settings;
  const Floats transform = frame.transform;
  const bool byTarget = s.staggerFrom == kStaggerFromTarget && lanes.hasTarget;
  const float* r = byTarget ? lanes.toR : lanes.fromR;
  const float* g = byTarget ? lanes.toG : lanes.fromG;
  const float* b = byTarget ? lanes.toB : lanes.fromB;
  const float rest = 1.0f - frame.stagger;
  for (int32_t l = 0; l < kLanes; l += kWidth) {
    if (frame.stagger <= 0.001f) {
      Store(lanes.progress + l, transform);
      continue;
    }
    const Floats value =
        ChannelOf(s.staggerBy, Load(r + l), Load(g + l), Load(b + l), Load(lanes.fromAlpha + l));
    const Floats delay = frame.stagger * (s.stagger < 0.0f ? 1.0f - value : value);
    const Floats eased = ClampLanes((transform - delay) / rest, 0.0f, 1.0f);
    const Floats sudden = Select(transform < delay, 0.0f, 1.0f);
    Store(lanes.progress + l, rest >= 0.001f ? eased : sudden);
  }
}

// ---- Path ----

/// The ends that the straight part of the path leads to: the swirl then turns them to where they belong.
inline void SetBentEnds(const FrameConstants& frame, PathLanes& path) {
  const float cx = frame.centreX, cy = frame.centreY;
  const float sine = frame.unswirlSine, cosine = frame.unswirlCosine;
  for (int32_t l = 0; l < kLanes; l += kWidth) {
    const Floats x = Load(path.end.x + l), y = Load(path.end.y + l);
    const Floats dx = x - cx, dy = y - cy;
    Store(path.bentEndX + l, frame.swirl != 0.0f ? cx + cosine * dx - sine * dy : x);
    Store(path.bentEndY + l, frame.swirl != 0.0f ? cy + sine * dx + cosine * dy : y);
  }
}

inline void SetScatter(const uint32_t* keys, PathLanes& path) {
  for (int32_t l = 0; l < kLanes; l += kWidth) {
    const Ints key = LoadInts(keys + l);
    Store(path.scatterStrength + l, Units(key, kSaltScatterStrength) + 0.4f);
    const DirectionLanes d = RandomDirections(key, kSaltScatterAzimuth, kSaltScatterZ);
    StorePlace(path.scatter, l, {d.x, d.y, d.z});
  }
}

/// A particle keeps one place in the field, the middle between its ends.
inline void SetTurbulence(const FrameConstants& frame, PathLanes& path) {
  if (!frame.turbulence.active) {
    for (int32_t l = 0; l < kLanes; l += kWidth) StorePlace(path.turbulence, l, {0.0f, 0.0f, 0.0f});
    return;
  }
  float x[kLanes], y[kLanes];
  for (int32_t l = 0; l < kLanes; l += kWidth) {
    Store(x + l, (Load(path.start.x + l) + Load(path.end.x + l)) / 2.0f);
    Store(y + l, (Load(path.start.y + l) + Load(path.end.y + l)) / 2.0f);
  }
  EvaluateTurbulenceLanes(frame.turbulence, x, y, &path.turbulence);
}

/// Sets what follows from the keys, points and colours.
inline void StartLanes(const FrameConstants& frame, const PointLanes& points, ParticleLanes* lanes) {
  SetEnds(frame, points, *lanes);
  SetProgress(frame, *lanes);
  SetBentEnds(frame, lanes->path);
  if (frame.settings->scatter > 0.0f) SetScatter(lanes->key, lanes->path);
  if (frame.hasTurbulence) SetTurbulence(frame, lanes->path);
}

inline void ScatterOutwards(const FrameConstants& frame, const PathLanes& path, int32_t l, Floats bell,
                            PlaceLanes& p) {
  const Floats k = Load(path.scatterStrength + l) * bell * frame.settings->scatter * frame.extent;
  const PlaceLanes direction = LoadPlace(path.scatter, l);
  p = {p.x + k * direction.x, p.y + k * direction.y, p.z + k * direction.z};
}

inline void PullInwards(const FrameConstants& frame, Floats bell, PlaceLanes& p) {
  const Floats k = frame.pull * bell;
  p = {p.x + (frame.centreX - p.x) * k, p.y + (frame.centreY - p.y) * k, p.z * (1.0f - k)};
}

inline void Swirl(const FrameConstants& frame, Floats q, PlaceLanes& p) {
  const SineCosineLanes turn = SinCosOf(frame.swirl * q);
  const Floats dx = p.x - frame.centreX, dy = p.y - frame.centreY;
  p.x = frame.centreX + turn.cosine * dx - turn.sine * dy;
  p.y = frame.centreY + turn.sine * dx + turn.cosine * dy;
}

/// Places of lanes l.. at the progress q of their paths.
inline PlaceLanes PlaceAt(const FrameConstants& frame, const PathLanes& path, int32_t l, Floats q) {
  const PlaceLanes start = LoadPlace(path.start, l);
  PlaceLanes p = {start.x + (Load(path.bentEndX + l) - start.x) * q,
                  start.y + (Load(path.bentEndY + l) - start.y) * q,
                  start.z + (Load(path.end.z + l) - start.z) * q};
  // Everything that bends the path grows and vanishes with half a sine.
  Floats bell = 0.0f;
  if (frame.hasBell) bell = SinCosOf(3.14159265f * q).sine;
  if (frame.settings->scatter > 0.0f) ScatterOutwards(frame, path, l, bell, p);
  if (frame.settings->scatter < 0.0f) PullInwards(frame, bell, p);
  if (frame.swirl != 0.0f) Swirl(frame, q, p);
  if (!frame.hasTurbulence) return p;
  const PlaceLanes drift = LoadPlace(path.turbulence, l);
  return {p.x + bell * drift.x, p.y + bell * drift.y, p.z + bell * drift.z};
}

inline void PositionsAtLanes(const FrameConstants& frame, const PathLanes& path, const float* q,
                             VectorLanes* positions) {
  for (int32_t l = 0; l < kLanes; l += kWidth) {
    StorePlace(*positions, l, PlaceAt(frame, path, l, Load(q + l)));
  }
}

inline void DirectionsLanes(const FrameConstants& frame, const ParticleLanes& lanes,
                            const VectorLanes& positions, VectorLanes* directions) {
  for (int32_t l = 0; l < kLanes; l += kWidth) {
    const Floats earlier = Max(Load(lanes.progress + l) - 0.02f, 0.0f);
    const PlaceLanes p = LoadPlace(positions, l), before = PlaceAt(frame, lanes.path, l, earlier);
    const PlaceLanes d = {p.x - before.x, p.y - before.y, p.z - before.z};
    const PlaceLanes start = LoadPlace(lanes.path.start, l), end = LoadPlace(lanes.path.end, l);
    const Mask resting = d.x * d.x + d.y * d.y + d.z * d.z < 1e-6f;
    StorePlace(*directions, l,
               {Select(resting, end.x - start.x, d.x), Select(resting, end.y - start.y, d.y),
                Select(resting, end.z - start.z, d.z)});
  }
}

}  // namespace
}  // namespace vantle
