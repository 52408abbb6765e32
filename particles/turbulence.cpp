#include "particles/turbulence.h"

#include "base/numeric.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstdint>

namespace vantle {
namespace {

constexpr float kStep = 0.01f;           // of the central differences
constexpr float kInverseStep = 50.0f;    // 1 / (2 * kStep)
constexpr float kAmplitudeSum = 1.875f;  // 1 + 1/2 + 1/4 + 1/8

constexpr uint32_t kHashX = 73856093u, kHashY = 19349663u, kHashZ = 53471161u, kHashSeed = 83492791u;

// ---- Lattice ----

/// Floor, for any float; what lies beyond the integers saturates.
int32_t FloorToInt(float v) {
  const int32_t truncated = TruncToInt(v);
  const bool below = v < 0.0f && static_cast<float>(truncated) != v;
  return static_cast<int32_t>(static_cast<uint32_t>(truncated) - (below ? 1u : 0u));
}

float Fade(float t) {
  return t * t * t * (t * (6.0f * t - 15.0f) + 10.0f);
}

inline uint32_t MixLattice(uint32_t h) {
  h = ((h >> 16) ^ h) * 73244475u;
  h = ((h >> 16) ^ h) * 73244475u;
  return (h >> 16) ^ h;
}

/// v with its sign turned where `bit` of h is clear. Branches on hash bits would be mispredicted half the
/// time.
float TurnSign(float v, uint32_t h, uint32_t bit) {
  return std::bit_cast<float>(std::bit_cast<uint32_t>(v) ^ ((~(h >> bit) & 1u) << 31));
}

/// The gradient of a corner, scaled by the offset from it: (+-fy) * wy + (+-fx) * wx + (+-0.7071) * fz, where
/// the hash's bits choose the signs and which of wx and wy is 1 and which 1/2.
inline float Corner(uint32_t hash, float fx, float fy, float fz) {
  const uint32_t h = MixLattice(hash);
  const bool alongX = (h & 8u) != 0;
  const float wx = alongX ? 1.0f : 0.5f;
  const float wy = alongX ? 0.5f : 1.0f;
  return TurnSign(fy, h, 1) * wy + TurnSign(fx, h, 0) * wx + TurnSign(0.7071f, h, 2) * fz;
}

LatticeSlice MakeSlice(float z, uint32_t seed) {
  const int32_t iz = FloorToInt(z);
  const float fz = z - static_cast<float>(iz);
  const uint32_t seeded = seed * kHashSeed;
  const uint32_t plane = static_cast<uint32_t>(iz);
  return {seeded ^ (plane * kHashZ), seeded ^ ((plane + 1u) * kHashZ), fz, Fade(fz)};
}

float Mix(float a, float b, float u) {
  return a + (b - a) * u;
}

/// The cells in which kLanes points lie: what the lines of corners to the left and above add to the hash, the
/// points' offsets from there, and their fades.
struct CellLanes {
  uint32_t left[kLanes], top[kLanes];
  float fx[kLanes], fy[kLanes];
  float u[kLanes], v[kLanes];
};

void FindCells(const float* x, const float* y, float frequency, CellLanes* cells) {
  for (int32_t l = 0; l < kLanes; ++l) {
    const float px = frequency * x[l], py = frequency * y[l];
    const int32_t ix = FloorToInt(px), iy = FloorToInt(py);
    const float fx = px - static_cast<float>(ix), fy = py - static_cast<float>(iy);
    cells->left[l] = static_cast<uint32_t>(ix) * kHashX;
    cells->top[l] = static_cast<uint32_t>(iy) * kHashY;
    cells->fx[l] = fx;
    cells->fy[l] = fy;
    cells->u[l] = Fade(fx);
    cells->v[l] = Fade(fy);
  }
}

/// Noise between the four corners of each cell on one plane of the third coordinate.
void NoiseOnPlane(const CellLanes& cells, uint32_t plane, float fz, float* noise) {
  for (int32_t l = 0; l < kLanes; ++l) {
    const float fx = cells.fx[l], fy = cells.fy[l];
    const uint32_t upperLeft = plane ^ cells.left[l] ^ cells.top[l];
    const uint32_t upperRight = plane ^ (cells.left[l] + kHashX) ^ cells.top[l];
    const uint32_t lowerLeft = plane ^ cells.left[l] ^ (cells.top[l] + kHashY);
    const uint32_t lowerRight = plane ^ (cells.left[l] + kHashX) ^ (cells.top[l] + kHashY);
    const float upper = Mix(Corner(upperLeft, fx, fy, fz), Corner(upperRight, fx - 1.0f, fy, fz), cells.u[l]);
    const float lower =
        Mix(Corner(lowerLeft, fx, fy - 1.0f, fz), Corner(lowerRight, fx - 1.0f, fy - 1.0f, fz), cells.u[l]);
    noise[l] = Mix(upper, lower, cells.v[l]);
  }
}

/// The noise at kLanes points, their coordinates times `frequency`.
void NoiseLanes(const LatticeSlice& slice, const float* x, const float* y, float frequency, float* noise) {
  CellLanes cells;
  FindCells(x, y, frequency, &cells);
  float lower[kLanes], upper[kLanes];
  NoiseOnPlane(cells, slice.lower, slice.fz, lower);
  NoiseOnPlane(cells, slice.upper, slice.fz - 1.0f, upper);
  const float fade = slice.fade;
  for (int32_t l = 0; l < kLanes; ++l) noise[l] = Mix(lower[l], upper[l], fade);
}

// ---- Octaves ----

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

/// The sum of the octaves at kLanes points: amplitude * noise, or amplitude * (1 - |noise|)^2 for ridges.
template <bool ridged>
void SumOctaves(const NoiseSlices& slices, const float* x, const float* y, float* sums) {
  for (int32_t l = 0; l < kLanes; ++l) sums[l] = 0.0f;
  float amplitude = 1.0f, frequency = 1.0f;
  for (const LatticeSlice& slice : slices.octave) {
    float noise[kLanes];
    NoiseLanes(slice, x, y, frequency, noise);
    for (int32_t l = 0; l < kLanes; ++l) {
      const float ridge = 1.0f - std::fabs(noise[l]);
      sums[l] += amplitude * (ridged ? ridge * ridge : noise[l]);
    }
    amplitude *= 0.5f;
    frequency *= 2.0f;
  }
  for (int32_t l = 0; l < kLanes; ++l) sums[l] /= kAmplitudeSum;
}

void Sum(const TurbulenceField& field, const NoiseSlices& slices, const float* x, const float* y,
         float* sums) {
  return field.ridged ? SumOctaves<true>(slices, x, y, sums) : SumOctaves<false>(slices, x, y, sums);
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
  float u[kLanes], v[kLanes], uMore[kLanes], uLess[kLanes], vMore[kLanes], vLess[kLanes];
  for (int32_t l = 0; l < kLanes; ++l) {
    u[l] = x[l] / field.normaliser * 10.0f / field.scale;
    v[l] = y[l] / field.normaliser * 10.0f / field.scale;
    uMore[l] = u[l] + kStep;
    uLess[l] = u[l] - kStep;
    vMore[l] = v[l] + kStep;
    vLess[l] = v[l] - kStep;
  }

  float right[kLanes], left[kLanes], below[kLanes], above[kLanes], depth[kLanes];
  Sum(field, field.slices, uMore, v, right);
  Sum(field, field.slices, uLess, v, left);
  Sum(field, field.slices, u, vMore, below);
  Sum(field, field.slices, u, vLess, above);
  Sum(field, field.depthSlices, u, v, depth);

  for (int32_t l = 0; l < kLanes; ++l) {
    const float alongU = (right[l] - left[l]) * kInverseStep;
    const float alongV = (below[l] - above[l]) * kInverseStep;
    const float dx = field.gradient ? alongU : alongV;
    const float dy = field.gradient ? alongV : -alongU;
    displacement->x[l] = dx * field.amount * 500.0f;
    displacement->y[l] = dy * field.amount * 500.0f;
    displacement->z[l] = depth[l] * field.depthAmount * 500.0f;
  }
}

float GradientNoise(float x, float y, float z, uint32_t seed) {
  float xs[kLanes], ys[kLanes], noise[kLanes];
  std::fill(xs, xs + kLanes, x);
  std::fill(ys, ys + kLanes, y);
  NoiseLanes(MakeSlice(z, seed), xs, ys, 1.0f, noise);
  return noise[0];
}

}  // namespace vantle
