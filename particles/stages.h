// The loops of the simulation, compiled once for every instruction level.
#pragma once

#include "base/instruction_level.h"
#include "particles/appearance.h"
#include "particles/emitter_pick.h"
#include "particles/motion.h"
#include "particles/projection.h"
#include "particles/turbulence.h"

#include <cstddef>
#include <cstdint>

namespace vantle {

/// The stages of kLanes particles, and of a layer's weights. Every level gives the same bits.
struct ParticleStages {
  /// As PixelWeights.
  void (*weigh)(PixelDepth depth, const std::byte* at, int32_t count, float variation, int32_t channel,
                float* weights);
  /// Adds up blocks of kSumGroup weights, one weight after the other, on `sum`; returns the last of the sums.
  float (*sumBlocks)(const float* weights, int32_t blocks, float sum, float* sums);
  /// The same for two layers side by side.
  void (*sumBlockPairs)(const float* weightsA, const float* weightsB, int32_t blocks, float* sumA,
                        float* sumB, float* sumsA, float* sumsB);
  /// As BeginPicks and FinishPicks, for layers summed in float.
  void (*beginPicks)(const Emitter& emitter, const uint32_t* keys, PendingPicks* picks);
  void (*finishPicks)(const Emitter& emitter, PendingPicks* picks);

  /// As KeysOfParticle.
  void (*makeKeys)(int32_t seed, const int32_t* indices, uint32_t* keys, uint32_t* sources,
                   uint32_t* targets);
  /// Ends, progress and paths from the picked points; keys and colours are set.
  void (*startFromPoints)(const FrameConstants& frame, const PointLanes& points, ParticleLanes* lanes);
  void (*positionsAt)(const FrameConstants& frame, const PathLanes& path, const float* q,
                      VectorLanes* positions);
  void (*directions)(const FrameConstants& frame, const ParticleLanes& lanes, const VectorLanes& positions,
                     VectorLanes* directions);
  /// Of an active field.
  void (*evaluateTurbulence)(const TurbulenceField& field, const float* x, const float* y,
                             VectorLanes* displacement);
  /// One octave.
  void (*evaluateNoise)(const LatticeSlice& slice, const float* x, const float* y, float* noise);
  void (*evaluateAppearance)(const FrameConstants& frame, const ParticleLanes& lanes, AppearanceLanes* out);
  void (*evaluateSizes)(const FrameConstants& frame, const ParticleLanes& lanes, float* sizes);
  void (*shiftHues)(float degrees, AppearanceLanes* looks);
  /// Everything but rotations seen by a camera; returns a bit for every lane to be drawn.
  uint32_t (*project)(const ViewProjection& view, const VectorLanes& positions, const VectorLanes& directions,
                      const AppearanceLanes& appearance, RecordLanes* records);
  /// Gathers the lanes to be drawn into records and returns how many they are.
  int32_t (*storeRecords)(const RecordLanes& records, const int32_t* indices, uint32_t visible, int32_t count,
                          ProjectedParticle* out);
};

/// The stages at the process's current level.
const ParticleStages& CurrentStages();

const ParticleStages& StagesSse2();
const ParticleStages& StagesAvx2();
const ParticleStages& StagesAvx512();

}  // namespace vantle
