#include "particles/simulation.h"

#include "base/floating_environment.h"
#include "base/parallel.h"
#include "particles/appearance.h"
#include "particles/frame_constants.h"
#include "particles/motion.h"
#include "particles/projection.h"
#include "particles/trails.h"

#include <algorithm>
#include <cstring>

namespace vantle {
namespace {

/// Particles that one thread takes at a time; whole batches.
constexpr int32_t kChunk = 1024;
static_assert(kChunk % kLanes == 0);

/// The indices of a batch from `at` on; one that is not full repeats its last particle.
void SetIndices(int32_t at, int32_t end, int32_t* indices) {
  for (int32_t l = 0; l < kLanes; ++l) indices[l] = std::min(at + l, end - 1);
}

/// Writes the visible ones among particles begin..end-1 to `out`, with their indices in `curvePoints`, and
/// returns how many they are.
int32_t SimulateChunk(const FrameConstants& frame, const ViewProjection& view, int32_t begin, int32_t end,
                      ProjectedParticle* out) {
  int32_t kept = 0;
  int32_t indices[2][kLanes];
  PendingParticles pending[2];
  SetIndices(begin, end, indices[0]);
  BeginStart(frame, indices[0], &pending[0]);
  int32_t now = 0;
  for (int32_t at = begin; at < end; at += kLanes, now = 1 - now) {
    if (at + kLanes < end) {
      SetIndices(at + kLanes, end, indices[1 - now]);
      BeginStart(frame, indices[1 - now], &pending[1 - now]);
    }
    ParticleLanes lanes;
    VectorLanes positions, directions = {};
    AppearanceLanes appearance;
    FinishStart(frame, &pending[now], &lanes);
    PositionsAt(frame, lanes.path, lanes.progress, &positions);
    if (frame.needsDirection) Directions(frame, lanes, positions, &directions);
    EvaluateAppearance(frame, lanes, &appearance);
    kept += ProjectParticles(view, positions, directions, appearance, indices[now],
                             std::min(kLanes, end - at), out + kept);
  }
  return kept;
}

/// Moves the chunks' particles together and returns how many they are.
size_t CloseGaps(ProjectedParticle* particles, const Buffer<int32_t>& kept) {
  size_t count = 0;
  for (size_t chunk = 0; chunk < kept.size(); ++chunk) {
    const size_t from = chunk * static_cast<size_t>(kChunk);
    const size_t size = static_cast<size_t>(kept[chunk]);
    if (from != count) std::memmove(particles + count, particles + from, size * sizeof(ProjectedParticle));
    count += size;
  }
  return count;
}

/// Builds the trails of up to kLanes listed particles, whose indices stand in `curvePoints`, into the slots
/// from `slot` on, and puts the slots in place of the indices. The paths are worked out again: they would
/// take far more memory than time.
void BuildTrails(const FrameConstants& frame, const ViewProjection& view, size_t slot, int32_t count,
                 ParticleList& list) {
  ProjectedParticle* particles = list.particles.data() + slot;
  int32_t indices[kLanes];
  for (int32_t l = 0; l < kLanes; ++l) {
    indices[l] = static_cast<int32_t>(particles[std::min(l, count - 1)].curvePoints);
  }
  ParticleLanes lanes;
  VectorLanes positions, directions;
  float sizes[kLanes];
  StartParticles(frame, indices, &lanes);
  PositionsAt(frame, lanes.path, lanes.progress, &positions);
  Directions(frame, lanes, positions, &directions);
  EvaluateSizes(frame, lanes, sizes);
  for (int32_t l = 0; l < count; ++l) {
    const size_t own = slot + static_cast<size_t>(l);
    Vec2* points = list.curvePoints.points.data() + own * kMaxTrailPoints;
    list.curvePoints.counts[own] =
        static_cast<uint8_t>(BuildTrail(frame, view, lanes.path, positions, directions, sizes[l], l, points));
    particles[l].curvePoints = static_cast<uint32_t>(own);
  }
}

void BuildAllTrails(const FrameConstants& frame, const ViewProjection& view, ParticleList& list) {
  list.curvePoints.points.Reset(list.count * kMaxTrailPoints);
  list.curvePoints.counts.Reset(list.count);
  const int64_t batches = (static_cast<int64_t>(list.count) + kLanes - 1) / kLanes;
  ParallelRanges(batches, 8, [&](int64_t begin, int64_t end) {
    for (int64_t batch = begin; batch < end; ++batch) {
      const size_t slot = static_cast<size_t>(batch * kLanes);
      const size_t count = std::min(static_cast<size_t>(kLanes), list.count - slot);
      BuildTrails(frame, view, slot, static_cast<int32_t>(count), list);
    }
  });
}

}  // namespace

ParticleList SimulateParticles(const Emission& emission, const FrameSettings& settings,
                               const CameraData& camera) {
  const ScopedFloatingEnvironment environment;
  const FrameConstants frame = MakeFrameConstants(emission, settings);
  const ViewProjection view = MakeViewProjection(settings, camera);
  ParticleList list;
  const int32_t count = ParticleCount(frame);
  if (count == 0) return list;

  const int64_t chunks = (count + kChunk - 1) / kChunk;
  list.particles.Reset(static_cast<size_t>(count));
  Buffer<int32_t> kept(static_cast<size_t>(chunks));
  ParallelRanges(chunks, 1, [&](int64_t begin, int64_t end) {
    for (int64_t chunk = begin; chunk < end; ++chunk) {
      const int32_t from = static_cast<int32_t>(chunk) * kChunk;
      kept[static_cast<size_t>(chunk)] =
          SimulateChunk(frame, view, from, std::min(from + kChunk, count), list.particles.data() + from);
    }
  });
  list.count = CloseGaps(list.particles.data(), kept);
  if (frame.hasTrails && list.count > 0) BuildAllTrails(frame, view, list);
  return list;
}

void ScaleToPreview(const FrameSettings& settings, ParticleList* list) {
  const float x = settings.downsampleX, y = settings.downsampleY;
  if (!(x < 0.999f || y < 0.999f)) return;
  const float smaller = std::min(x, y);
  const bool hasTrails = !list->curvePoints.counts.empty();
  ParallelRanges(static_cast<int64_t>(list->count), kChunk, [&](int64_t begin, int64_t end) {
    for (size_t i = static_cast<size_t>(begin); i < static_cast<size_t>(end); ++i) {
      ProjectedParticle& p = list->particles[i];
      p.sx *= x;
      p.sy *= y;
      p.size *= smaller;
      p.lineWidth *= smaller;
      p.cocRadius *= smaller;
      if (!hasTrails) continue;
      Vec2* points = list->curvePoints.points.data() + size_t{p.curvePoints} * kMaxTrailPoints;
      for (int32_t k = 0; k < list->curvePoints.counts[p.curvePoints]; ++k) {
        points[k].x *= x;
        points[k].y *= y;
      }
    }
  });
}

}  // namespace vantle
