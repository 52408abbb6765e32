// The random numbers of a particle: pure functions of the seed, the particle's index and a salt that names
// the property. Integer arithmetic is unsigned and wraps.
#pragma once

#include <bit>
#include <cstdint>

namespace vantle::reference {

/// The salts, one independent stream each.
enum Salt : uint32_t {
  kSaltRecord = 3,
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

/// What identifies a particle.
struct ParticleKeys {
  uint32_t key = 0;  ///< feeds the streams
  uint32_t emitterPick = 0;
  uint32_t targetPick = 0;
};

inline constexpr uint32_t kMultiplier = 0x045D9F3Bu;

inline uint32_t Mix(uint32_t x) {
  return (x ^ (x >> 16)) * kMultiplier;
}

inline uint32_t Finish(uint32_t x) {
  return x ^ (x >> 16);
}

inline float FloatOf(uint32_t bits) {
  return std::bit_cast<float>(bits);
}

inline float Stream(uint32_t key, uint32_t salt) {
  return static_cast<float>(Finish(Mix(Mix(key + salt))) & 0xFFFFFFu);
}

inline ParticleKeys KeysOf(int32_t seed, uint32_t index) {
  const uint32_t s = static_cast<uint32_t>(seed);
  const uint32_t h = s * 0x9E37u + index * 0x9E3779B1u;
  const uint32_t a = Finish(Mix(h));
  const uint32_t m = a * kMultiplier;
  const uint32_t s2 = s * 0x85EBCA77u + 0x9E3779B9u;

  ParticleKeys keys;
  keys.key = Finish(m);
  keys.emitterPick = Finish(Mix(m * kMultiplier));
  keys.targetPick = Finish(Mix(Mix(keys.key ^ s2)));
  return keys;
}

/// A pick value's fraction of a whole, 0..1 with both ends; the factor is one unit above 2^-24, so that the
/// largest 24-bit number gives exactly 1.
inline float Fraction(uint32_t bits) {
  return static_cast<float>(bits & 0xFFFFFFu) * FloatOf(0x33800001u);
}

/// The stream's number as 0..1.
inline float Unit(uint32_t key, uint32_t salt) {
  return Stream(key, salt) * FloatOf(0x33800001u);
}
/// As -1..1, for variations.
inline float Signed(uint32_t key, uint32_t salt) {
  const float u = Unit(key, salt);
  return ((u - 0.5f) + u) - 0.5f;
}
/// As -1..1, for the z of a direction.
inline float DirectionZ(uint32_t key, uint32_t salt) {
  return Stream(key, salt) * FloatOf(0x34000001u) - 1.0f;
}
/// As an angle of 0..2 pi.
inline float Angle(uint32_t key, uint32_t salt) {
  return Stream(key, salt) * FloatOf(0x34C90FDDu);
}
/// As 0.3..1.
inline float JitterRadius(uint32_t key, uint32_t salt) {
  return Stream(key, salt) * FloatOf(0x33333334u) + 0.3f;
}
/// As -360..360 degrees.
inline float HueOffset(uint32_t key, uint32_t salt) {
  return Stream(key, salt) * FloatOf(0x38340001u) - 360.0f;
}

}  // namespace vantle::reference
