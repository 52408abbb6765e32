// How particles move: where each starts and ends, how far it has come, and its place on the bent path
// between.
#pragma once

#include "particles/emitter_pick.h"
#include "particles/frame_constants.h"
#include "particles/lanes.h"

#include <cstdint>

namespace vantle {

/// What fixes the paths of kLanes particles.
struct alignas(64) PathLanes {
  VectorLanes start;
  VectorLanes end;
  float bentEndX[kLanes], bentEndY[kLanes];  ///< the end, turned back by what the swirl will turn it
  VectorLanes scatter;                       ///< unit direction; set while scattering outwards
  float scatterStrength[kLanes];
  VectorLanes turbulence;  ///< displacement in mid-path; set while there is turbulence
};

/// kLanes particles at the start of their simulation.
struct alignas(64) ParticleLanes {
  uint32_t key[kLanes];  ///< of the random streams
  PathLanes path;
  bool hasTarget;  ///< whether `toR` to `toB` are set
  float fromR[kLanes], fromG[kLanes], fromB[kLanes], fromAlpha[kLanes];
  float toR[kLanes], toG[kLanes], toB[kLanes];
  float progress[kLanes];
};

/// Where the points lie that the particles were picked, before they are put on their planes;
/// full-resolution composition pixels. Without a second layer `to` is the same as `from`.
struct alignas(64) PointLanes {
  float fromX[kLanes], fromY[kLanes];
  float toX[kLanes], toY[kLanes];
};

/// kLanes particles whose picks are under way.
struct PendingParticles {
  uint32_t key[kLanes];
  PendingPicks from, to;  ///< `to` only when both layers have points
};

/// Begins the picks of the particles with these indices; FinishStart then sets everything of ParticleLanes.
/// Whoever starts batch after batch begins the next one before finishing this, and waits for no pixel.
void BeginStart(const FrameConstants& frame, const int32_t* indices, PendingParticles* pending);
void FinishStart(const FrameConstants& frame, PendingParticles* pending, ParticleLanes* lanes);

/// Both at once.
void StartParticles(const FrameConstants& frame, const int32_t* indices, ParticleLanes* lanes);

/// Positions at the progress q[l] of each path.
void PositionsAt(const FrameConstants& frame, const PathLanes& path, const float* q, VectorLanes* positions);

/// Direction of motion at the particles' progress, not normalised: the way come in the last 2 % of the path,
/// or from start to end for a particle that hardly moves.
void Directions(const FrameConstants& frame, const ParticleLanes& lanes, const VectorLanes& positions,
                VectorLanes* directions);

}  // namespace vantle
