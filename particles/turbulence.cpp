#include "particles/turbulence.h"

#include "base/numeric.h"
#include "particles/stages.h"

#include <algorithm>
#include <cstdint>

namespace vantle {
namespace {

/// Floor, for any float; what lies beyond the integers saturates.
int32_t FloorToInt(float v) {
  const int32_t truncated = TruncToInt(v);
  const bool below = v < 0.0f && static_cast<float>(truncated) != v;
  return static_cast<int32_t>(static_cast<uint32_t>(truncated) - (below ? 1u : 0u));
}

float Fade(float t) {
  return t * t * t * (t * (6.0f * t - 15.0f) + 10.0f);
}

LatticeSlice MakeSlice(float z, uint32_t seed) {
  const int32_t iz = FloorToInt(z);
  const float fz = z - static_cast<float>(iz);
  const uint32_t seeded = seed * kLatticeHashSeed;
  const uint32_t plane = static_cast<uint32_t>(iz);
  return {seeded ^ (plane * kLatticeHashZ), seeded ^ ((plane + 1u) * kLatticeHashZ), fz, Fade(fz)};
}

NoiseSlices MakeSlices(float z, uint32_t seed) {
  NoiseSlices slices;
  float frequency = 1.0f;
  for (LatticeSlice& slice : slices.octave) {
    slice = MakeSlice(frequency * z, seed);
    frequency *= 2.0f;
    seed += 17u;
  }
  return slices;
}

}  // namespace

TurbulenceField MakeTurbulenceField(const FrameSettings& s) {
  TurbulenceField field;
  field.active = !(s.turbulenceAmount < 0.001f);
  field.ridged = s.turbulenceType == TURBULENCE_RIDGED;
  field.gradient = s.turbulenceType == TURBULENCE_FBM;
  field.amount = s.turbulenceAmount;
  field.depthAmount = s.turbulenceZDepth;
  field.normaliser = static_cast<float>(std::max({s.outputWidth, s.outputHeight, 1}));
  field.scale = std::max(0.2f * s.turbulenceScale, 0.01f);

  const float evolution = 2.0f * s.timeSeconds * s.turbulenceSpeed + s.turbulenceEvolution;
  const uint32_t seed = static_cast<uint32_t>(s.turbulenceSeed);
  field.slices = MakeSlices(evolution, seed);
  field.depthSlices = MakeSlices(evolution, seed + 7919u);
  return field;
}

void EvaluateTurbulence(const TurbulenceField& field, const float* x, const float* y,
                        VectorLanes* displacement) {
  if (!field.active) {
    *displacement = {};
    return;
  }
  CurrentStages().evaluateTurbulence(field, x, y, displacement);
}

float GradientNoise(float x, float y, float z, uint32_t seed) {
  float xs[kLanes], ys[kLanes], noise[kLanes];
  std::fill(xs, xs + kLanes, x);
  std::fill(ys, ys + kLanes, y);
  CurrentStages().evaluateNoise(MakeSlice(z, seed), xs, ys, noise);
  return noise[0];
}

}  // namespace vantle
