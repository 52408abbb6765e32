#include "particles/motion.h"

#include "particles/emitter_pick.h"
#include "particles/stages.h"

#include <algorithm>

namespace vantle {
namespace {

bool HasBothLayers(const FrameConstants& frame) {
  return frame.source != nullptr && frame.target != nullptr;
}

const Emitter& FirstLayer(const FrameConstants& frame) {
  return frame.source != nullptr ? *frame.source : *frame.target;
}

/// Takes over the picked points' places and colours.
void SetPoints(const EmittingPoint* from, const EmittingPoint* to, PointLanes* points, ParticleLanes* lanes) {
  for (int32_t l = 0; l < kLanes; ++l) {
    points->fromX[l] = from[l].x;
    points->fromY[l] = from[l].y;
    lanes->fromR[l] = from[l].r;
    lanes->fromG[l] = from[l].g;
    lanes->fromB[l] = from[l].b;
    lanes->fromAlpha[l] = from[l].alpha;
    points->toX[l] = to[l].x;
    points->toY[l] = to[l].y;
    lanes->toR[l] = to[l].r;
    lanes->toG[l] = to[l].g;
    lanes->toB[l] = to[l].b;
  }
}

}  // namespace

void BeginStart(const FrameConstants& frame, const int32_t* indices, PendingParticles* pending) {
  uint32_t sourceKeys[kLanes], targetKeys[kLanes];
  CurrentStages().makeKeys(frame.settings->seed, indices, pending->key, sourceKeys, targetKeys);
  BeginPicks(FirstLayer(frame), sourceKeys, &pending->from);
  if (HasBothLayers(frame)) BeginPicks(*frame.target, targetKeys, &pending->to);
}

void FinishStart(const FrameConstants& frame, PendingParticles* pending, ParticleLanes* lanes) {
  EmittingPoint from[kLanes], to[kLanes];
  FinishPicks(FirstLayer(frame), &pending->from);
  PointsOfPicks(FirstLayer(frame), pending->from, frame.downsampleX, frame.downsampleY, from);
  const bool both = HasBothLayers(frame);
  if (both) {
    FinishPicks(*frame.target, &pending->to);
    PointsOfPicks(*frame.target, pending->to, frame.downsampleX, frame.downsampleY, to);
  }
  PointLanes points;
  SetPoints(from, both ? to : from, &points, lanes);
  std::copy(pending->key, pending->key + kLanes, lanes->key);
  lanes->hasTarget = frame.target != nullptr;
  CurrentStages().startFromPoints(frame, points, lanes);
}

void StartParticles(const FrameConstants& frame, const int32_t* indices, ParticleLanes* lanes) {
  PendingParticles pending;
  BeginStart(frame, indices, &pending);
  FinishStart(frame, &pending, lanes);
}

void PositionsAt(const FrameConstants& frame, const PathLanes& path, const float* q, VectorLanes* positions) {
  CurrentStages().positionsAt(frame, path, q, positions);
}

void Directions(const FrameConstants& frame, const ParticleLanes& lanes, const VectorLanes& positions,
                VectorLanes* directions) {
  CurrentStages().directions(frame, lanes, positions, directions);
}

}  // namespace vantle
