// The random numbers of a particle. Each is a pure function of the seed, the particle's index and a salt that
// names the property, so that frames, threads and counts never disturb one another. Arithmetic is unsigned,
// 32 bits, wrapping.
#pragma once

#include <bit>
#include <cstdint>

namespace vantle {

/// What a stream drives. One property, one stream: changing a control never reshuffles another property.
enum StreamSalt : uint32_t {
  kSaltRandom = 3,
  kSaltOpacity = 5,
  kSaltHue = 6,
  kSaltJitterAzimuth = 7,
  kSaltGradient = 8,
  kSaltJitterRadius = 11,
  kSaltJitterZ = 12,
  kSaltScatterAzimuth = 21,
  kSaltScatterStrength = 22,
  kSaltSize = 23,
  kSaltLineWidth = 24,
  kSaltRotationX = 25,
  kSaltRotationY = 26,
  kSaltRotationZ = 27,
  kSaltScatterZ = 28,
  kSaltThickness = 31,
};

// ---- Hashing ----

inline constexpr uint32_t kMixFactor = 0x045D9F3Bu;

constexpr uint32_t MixStep(uint32_t x) {
  return (x ^ (x >> 16)) * kMixFactor;
}
constexpr uint32_t MixFinal(uint32_t x) {
  return x ^ (x >> 16);
}

/// The numbers that a particle's streams and picks start from.
struct ParticleKeys {
  uint32_t key;     ///< of all streams
  uint32_t source;  ///< of the pick of the emitting point
  uint32_t target;  ///< of the pick of the target point
};

/// Per-frame part of the target's pick.
constexpr uint32_t TargetSeed(int32_t seed) {
  return static_cast<uint32_t>(seed) * 0x85EBCA77u + 0x9E3779B9u;
}

constexpr ParticleKeys KeysOfParticle(int32_t seed, uint32_t index) {
  const uint32_t h = static_cast<uint32_t>(seed) * 0x9E37u + index * 0x9E3779B1u;
  const uint32_t mixed = MixFinal(MixStep(h)) * kMixFactor;
  const uint32_t key = MixFinal(mixed);
  const uint32_t source = MixFinal(MixStep(mixed * kMixFactor));
  const uint32_t target = MixFinal(MixStep(MixStep(key ^ TargetSeed(seed))));
  return {key, source, target};
}

/// The 24 bits of a stream that everything else is made from; exact in a float.
constexpr uint32_t StreamBits(uint32_t key, StreamSalt salt) {
  return MixFinal(MixStep(MixStep(key + salt))) & 0xFFFFFFu;
}

constexpr float StreamValue(uint32_t key, StreamSalt salt) {
  return static_cast<float>(static_cast<int32_t>(StreamBits(key, salt)));
}

// ---- Derived forms ----
// All are 2^-24 times something, with the factor one unit high, so that the largest 24 bits give the end of
// the range itself.

inline constexpr float kUnitFactor = std::bit_cast<float>(0x33800001u);
inline constexpr float kDirectionFactor = std::bit_cast<float>(0x34000001u);
inline constexpr float kAngleFactor = std::bit_cast<float>(0x34C90FDDu);
inline constexpr float kRadiusFactor = std::bit_cast<float>(0x33333334u);
inline constexpr float kHueFactor = std::bit_cast<float>(0x38340001u);

/// 0..1, both included.
constexpr float Unit(uint32_t key, StreamSalt salt) {
  return StreamValue(key, salt) * kUnitFactor;
}

/// -1..1, the form of the variation controls.
constexpr float SignedUnit(uint32_t key, StreamSalt salt) {
  const float u = Unit(key, salt);
  return ((u - 0.5f) + u) - 0.5f;
}

/// -1..1, the form of a direction's z.
constexpr float DirectionZ(uint32_t key, StreamSalt salt) {
  return StreamValue(key, salt) * kDirectionFactor - 1.0f;
}

/// 0..2 pi.
constexpr float Azimuth(uint32_t key, StreamSalt salt) {
  return StreamValue(key, salt) * kAngleFactor;
}

/// 0.3..1.
constexpr float JitterRadius(uint32_t key, StreamSalt salt) {
  return StreamValue(key, salt) * kRadiusFactor + 0.3f;
}

/// -360..360 degrees.
constexpr float HueOffset(uint32_t key, StreamSalt salt) {
  return StreamValue(key, salt) * kHueFactor - 360.0f;
}

}  // namespace vantle
