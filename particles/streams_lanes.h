// The random streams on lanes. Included after a lanes_*.h.
#pragma once

#include "particles/particle_streams.h"

#include <cstdint>

namespace vantle {
namespace {

inline Ints MixStepOf(Ints x) {
  return (x ^ ShiftRight<16>(x)) * SplatInts(kMixFactor);
}
inline Ints MixFinalOf(Ints x) {
  return x ^ ShiftRight<16>(x);
}

inline Floats StreamValues(Ints key, StreamSalt salt) {
  const Ints bits = MixFinalOf(MixStepOf(MixStepOf(key + SplatInts(salt)))) & SplatInts(0xFFFFFFu);
  return ToFloats(bits);
}
inline Floats Units(Ints key, StreamSalt salt) {
  return StreamValues(key, salt) * kUnitFactor;
}
inline Floats SignedUnits(Ints key, StreamSalt salt) {
  const Floats u = Units(key, salt);
  return ((u - 0.5f) + u) - 0.5f;
}

/// Random points of a sphere, whose z and azimuth the two streams give.
struct DirectionLanes {
  Floats x, y, z;
};
inline DirectionLanes RandomDirections(Ints key, StreamSalt azimuth, StreamSalt z) {
  const SineCosineLanes theta = SinCosOf(StreamValues(key, azimuth) * kAngleFactor);
  const Floats w = StreamValues(key, z) * kDirectionFactor - 1.0f;
  const Floats r = Sqrt(Max(Floats(0.0f), 1.0f - w * w));
  return {theta.cosine * r, theta.sine * r, w};
}

/// As KeysOfParticle, for the kLanes particles of these indices.
inline void KeysOfLanes(int32_t seed, const int32_t* indices, uint32_t* keys, uint32_t* sources,
                        uint32_t* targets) {
  const Ints factor = SplatInts(kMixFactor), ofSeed = SplatInts(static_cast<uint32_t>(seed) * 0x9E37u);
  const Ints ofTarget = SplatInts(static_cast<uint32_t>(seed) * 0x85EBCA77u + 0x9E3779B9u);
  for (int32_t l = 0; l < kLanes; l += kWidth) {
    uint32_t index[kWidth];
    for (int32_t i = 0; i < kWidth; ++i) index[i] = static_cast<uint32_t>(indices[l + i]);
    const Ints h = ofSeed + LoadInts(index) * SplatInts(0x9E3779B1u);
    const Ints mixed = MixFinalOf(MixStepOf(h)) * factor;
    const Ints key = MixFinalOf(mixed);
    StoreInts(keys + l, key);
    StoreInts(sources + l, MixFinalOf(MixStepOf(mixed * factor)));
    StoreInts(targets + l, MixFinalOf(MixStepOf(MixStepOf(key ^ ofTarget))));
  }
}

}  // namespace
}  // namespace vantle
