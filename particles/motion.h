// How particles move: where each starts and ends, how far it has come, and its place on the bent path
// between.
#pragma once

#include "particles/frame_constants.h"
#include "particles/lanes.h"

#include <cstdint>

namespace vantle {

/// What fixes the paths of kLanes particles.
struct PathLanes {
  VectorLanes start;
  VectorLanes end;
  float bentEndX[kLanes], bentEndY[kLanes];  ///< the end, turned back by what the swirl will turn it
  VectorLanes scatter;                       ///< unit direction; set while scattering outwards
  float scatterStrength[kLanes];
  VectorLanes turbulence;  ///< displacement in mid-path; set while there is turbulence
};

/// kLanes particles at the start of their simulation.
struct ParticleLanes {
  uint32_t key[kLanes];  ///< of the random streams
  PathLanes path;
  bool hasTarget;  ///< whether `toR` to `toB` are set
  float fromR[kLanes], fromG[kLanes], fromB[kLanes], fromAlpha[kLanes];
  float toR[kLanes], toG[kLanes], toB[kLanes];
  float progress[kLanes];
};

/// Picks the ends of the particles with these indices and sets everything of ParticleLanes.
void StartParticles(const FrameConstants& frame, const int32_t* indices, ParticleLanes* lanes);

/// Positions at the progress q[l] of each path.
void PositionsAt(const FrameConstants& frame, const PathLanes& path, const float* q, VectorLanes* positions);

/// Direction of motion at the particles' progress, not normalised: the way come in the last 2 % of the path,
/// or from start to end for a particle that hardly moves.
void Directions(const FrameConstants& frame, const ParticleLanes& lanes, const VectorLanes& positions,
                VectorLanes* directions);

}  // namespace vantle
