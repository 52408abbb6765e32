// The random numbers of a particle: pure functions of the seed, the particle's index and a salt that names
// the property. Integer arithmetic is unsigned and wraps.
#pragma once

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

ParticleKeys KeysOf(int32_t seed, uint32_t index);

/// A pick value's fraction of a whole, 0..1 with both ends; the factor is one unit above 2^-24, so that the
/// largest 24-bit number gives exactly 1.
float Fraction(uint32_t bits);

/// The stream's number as 0..1.
float Unit(uint32_t key, uint32_t salt);
/// As -1..1, for variations.
float Signed(uint32_t key, uint32_t salt);
/// As -1..1, for the z of a direction.
float DirectionZ(uint32_t key, uint32_t salt);
/// As an angle of 0..2 pi.
float Angle(uint32_t key, uint32_t salt);
/// As 0.3..1.
float JitterRadius(uint32_t key, uint32_t salt);
/// As -360..360 degrees.
float HueOffset(uint32_t key, uint32_t salt);

}  // namespace vantle::reference
