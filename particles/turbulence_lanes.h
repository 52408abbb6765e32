// The turbulence field on lanes. Included after a lanes_*.h.
//
// A gradient's hash is h = hash of the column ^ hash of the row ^ hash of plane and seed, and its first
// mixing step x ^ (x >> 16) is linear over ^, so that step is done once a line of corners. Signs and weights
// come from hash bits by logic: branches on them would be mispredicted half the time.
#pragma once

#include "particles/lanes.h"
#include "particles/turbulence.h"

#include <cstdint>

namespace vantle {
namespace {

inline constexpr uint32_t kLatticeFactor = 73244475u;

/// The points' places along one axis: the folded hashes of the lines of corners before and behind, and the
/// offsets from both.
struct AxisLanes {
  Ints before, behind;
  Floats fromBefore, fromBehind;
  Floats fade;
};

inline Floats FadeOf(Floats t) {
  return t * t * t * (t * (6.0f * t - 15.0f) + 10.0f);
}

inline Ints Fold(Ints x) {
  return ShiftRight<16>(x) ^ x;
}

inline AxisLanes PlaceOnAxis(Floats at, uint32_t hash) {
  const Ints truncated = TruncToInts(at);
  const Mask below = And(at < 0.0f, ToFloats(truncated) != at);
  const Ints whole = LessOne(below, truncated);
  const Floats offset = at - ToFloats(whole);
  const Ints line = whole * SplatInts(hash);
  return {Fold(line), Fold(line + SplatInts(hash)), offset, offset - 1.0f, FadeOf(offset)};
}

/// (+-fy) * wy + (+-fx) * wx + (+-0.7071) * fz, where bits choose the signs and which of wx and wy is 1 and
/// which 1/2. Signs are turned after the products, which changes no bit; a clear bit turns.
inline Floats CornerOf(Ints folded, Floats fx, Floats fy, Floats dz) {
  Ints h = Fold(folded * SplatInts(kLatticeFactor)) * SplatInts(kLatticeFactor);
  h = h ^ ShiftRight<16>(h) ^ SplatInts(7u);
  const Mask alongX = BitSet<3>(h);
  const Floats x = TurnSign<0>(Select(alongX, fx, fx * 0.5f), h);
  const Floats y = TurnSign<1>(Select(alongX, fy * 0.5f, fy), h);
  return y + x + TurnSign<2>(dz, h);
}

inline Floats MixOf(Floats a, Floats b, Floats u) {
  return a + (b - a) * u;
}

/// Noise between the four corners on one plane of the third coordinate; dz is 0.7071 of the distance from it.
inline Floats NoiseOnPlaneOf(const AxisLanes& x, const AxisLanes& y, uint32_t plane, Floats dz) {
  const Ints upper = y.before ^ SplatInts(plane), lower = y.behind ^ SplatInts(plane);
  const Floats above = MixOf(CornerOf(x.before ^ upper, x.fromBefore, y.fromBefore, dz),
                             CornerOf(x.behind ^ upper, x.fromBehind, y.fromBefore, dz), x.fade);
  const Floats below = MixOf(CornerOf(x.before ^ lower, x.fromBefore, y.fromBehind, dz),
                             CornerOf(x.behind ^ lower, x.fromBehind, y.fromBehind, dz), x.fade);
  return MixOf(above, below, y.fade);
}

inline Floats NoiseOf(const LatticeSlice& slice, const AxisLanes& x, const AxisLanes& y) {
  const auto folded = [](uint32_t plane) { return (plane >> 16) ^ plane; };
  const Floats lower = NoiseOnPlaneOf(x, y, folded(slice.lower), 0.7071f * slice.fz);
  const Floats upper = NoiseOnPlaneOf(x, y, folded(slice.upper), 0.7071f * (slice.fz - 1.0f));
  return MixOf(lower, upper, slice.fade);
}

/// amplitude * noise, or amplitude * (1 - |noise|)^2 for ridges.
template <bool ridged>
inline Floats OctaveOf(Floats noise, float amplitude) {
  if (!ridged) return amplitude * noise;
  const Floats ridge = 1.0f - Abs(noise);
  return amplitude * (ridge * ridge);
}

/// The sums of octaves around a point: to its right, left, below, above, and the depth's at the point.
struct StencilLanes {
  Floats right, left, below, above, depth;
};

template <bool ridged>
inline StencilLanes SumOctavesOf(const TurbulenceField& field, Floats u, Floats v) {
  const Floats uMore = u + kTurbulenceStep, uLess = u - kTurbulenceStep;
  const Floats vMore = v + kTurbulenceStep, vLess = v - kTurbulenceStep;
  StencilLanes sums = {0.0f, 0.0f, 0.0f, 0.0f, 0.0f};
  float amplitude = 1.0f, frequency = 1.0f;
  for (int32_t i = 0; i < kOctaves; ++i) {
    const LatticeSlice &slice = field.slices.octave[i], &deep = field.depthSlices.octave[i];
    const AxisLanes x = PlaceOnAxis(frequency * u, kLatticeHashX);
    const AxisLanes y = PlaceOnAxis(frequency * v, kLatticeHashY);
    const AxisLanes xMore = PlaceOnAxis(frequency * uMore, kLatticeHashX);
    sums.right = sums.right + OctaveOf<ridged>(NoiseOf(slice, xMore, y), amplitude);
    const AxisLanes xLess = PlaceOnAxis(frequency * uLess, kLatticeHashX);
    sums.left = sums.left + OctaveOf<ridged>(NoiseOf(slice, xLess, y), amplitude);
    const AxisLanes yMore = PlaceOnAxis(frequency * vMore, kLatticeHashY);
    sums.below = sums.below + OctaveOf<ridged>(NoiseOf(slice, x, yMore), amplitude);
    const AxisLanes yLess = PlaceOnAxis(frequency * vLess, kLatticeHashY);
    sums.above = sums.above + OctaveOf<ridged>(NoiseOf(slice, x, yLess), amplitude);
    sums.depth = sums.depth + OctaveOf<ridged>(NoiseOf(deep, x, y), amplitude);
    amplitude *= 0.5f;
    frequency *= 2.0f;
  }
  return sums;
}

/// As EvaluateTurbulence; the field is active.
inline void EvaluateTurbulenceLanes(const TurbulenceField& field, const float* x, const float* y,
                                    VectorLanes* displacement) {
  constexpr float kInverseStep = 50.0f;    // 1 / (2 * kTurbulenceStep)
  constexpr float kAmplitudeSum = 1.875f;  // 1 + 1/2 + 1/4 + 1/8
  for (int32_t l = 0; l < kLanes; l += kWidth) {
    const Floats u = Load(x + l) / field.normaliser * 10.0f / field.scale;
    const Floats v = Load(y + l) / field.normaliser * 10.0f / field.scale;
    const StencilLanes sums =
        field.ridged ? SumOctavesOf<true>(field, u, v) : SumOctavesOf<false>(field, u, v);
    const Floats alongU = (sums.right / kAmplitudeSum - sums.left / kAmplitudeSum) * kInverseStep;
    const Floats alongV = (sums.below / kAmplitudeSum - sums.above / kAmplitudeSum) * kInverseStep;
    const Floats dx = field.gradient ? alongU : alongV;
    const Floats dy = field.gradient ? alongV : -alongU;
    Store(displacement->x + l, dx * field.amount * 500.0f);
    Store(displacement->y + l, dy * field.amount * 500.0f);
    Store(displacement->z + l, sums.depth / kAmplitudeSum * field.depthAmount * 500.0f);
  }
}

/// One octave at kLanes points.
inline void NoiseLanes(const LatticeSlice& slice, const float* x, const float* y, float* noise) {
  for (int32_t l = 0; l < kLanes; l += kWidth) {
    const AxisLanes column = PlaceOnAxis(Load(x + l), kLatticeHashX);
    const AxisLanes row = PlaceOnAxis(Load(y + l), kLatticeHashY);
    Store(noise + l, NoiseOf(slice, column, row));
  }
}

}  // namespace
}  // namespace vantle
