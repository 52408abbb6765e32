// The turbulence field: seeded gradient noise, four octaves of it summed plainly or as ridges, turned into a
// displacement by its curl or its gradient. The first two noise coordinates are a place, the third is time.
#pragma once

#include "particles/frame_settings.h"
#include "particles/lanes.h"

#include <cstdint>

namespace vantle {

enum TurbulenceTypeId : int32_t {
  TURBULENCE_CURL = 1,
  TURBULENCE_FBM = 2,
  TURBULENCE_RIDGED = 3,
};

inline constexpr int32_t kOctaves = 4;

/// Of the central differences, in noise coordinates.
inline constexpr float kTurbulenceStep = 0.01f;

// Factors of a corner's coordinates and of the seed in its hash.
inline constexpr uint32_t kLatticeHashX = 73856093u, kLatticeHashY = 19349663u, kLatticeHashZ = 53471161u,
                          kLatticeHashSeed = 83492791u;

/// What all points of one octave share, the third coordinate being one number a frame.
struct LatticeSlice {
  uint32_t lower;  ///< hash of the seed and of the plane of corners below the third coordinate
  uint32_t upper;  ///< the same of the plane above
  float fz;        ///< distance from the plane below
  float fade;      ///< of fz
};

/// The octaves of one noise, from the broadest on.
struct NoiseSlices {
  LatticeSlice octave[kOctaves];
};

/// A frame's field.
struct TurbulenceField {
  bool active = false;  ///< without it every displacement is zero
  bool ridged = false;
  bool gradient = false;      ///< a gradient flow instead of a curl
  float amount = 0.0f;        ///< strength across the picture
  float depthAmount = 0.0f;   ///< strength in z
  float normaliser = 1.0f;    ///< larger side of the output, pixels
  float scale = 1.0f;         ///< size of the features
  NoiseSlices slices{};       ///< of the flow across the picture
  NoiseSlices depthSlices{};  ///< of the displacement in z
};

TurbulenceField MakeTurbulenceField(const FrameSettings& settings);

/// Displacements in pixels at kLanes points of the picture.
void EvaluateTurbulence(const TurbulenceField& field, const float* x, const float* y,
                        VectorLanes* displacement);

/// The noise itself at (x, y, z): 0 on the lattice, roughly within -1.5..1.5. Exposed for tests.
float GradientNoise(float x, float y, float z, uint32_t seed);

}  // namespace vantle
