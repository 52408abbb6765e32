#include "tests/reference/random_streams.h"

#include <bit>

namespace vantle::reference {
namespace {

constexpr uint32_t kMultiplier = 0x045D9F3Bu;

uint32_t Mix(uint32_t x) {
  return (x ^ (x >> 16)) * kMultiplier;
}

uint32_t Finish(uint32_t x) {
  return x ^ (x >> 16);
}

float FloatOf(uint32_t bits) {
  return std::bit_cast<float>(bits);
}

float Stream(uint32_t key, uint32_t salt) {
  return static_cast<float>(Finish(Mix(Mix(key + salt))) & 0xFFFFFFu);
}

}  // namespace

ParticleKeys KeysOf(int32_t seed, uint32_t index) {
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

float Fraction(uint32_t bits) {
  return static_cast<float>(bits & 0xFFFFFFu) * FloatOf(0x33800001u);
}

float Unit(uint32_t key, uint32_t salt) {
  return Stream(key, salt) * FloatOf(0x33800001u);
}

float Signed(uint32_t key, uint32_t salt) {
  const float u = Unit(key, salt);
  return ((u - 0.5f) + u) - 0.5f;
}

float DirectionZ(uint32_t key, uint32_t salt) {
  return Stream(key, salt) * FloatOf(0x34000001u) - 1.0f;
}

float Angle(uint32_t key, uint32_t salt) {
  return Stream(key, salt) * FloatOf(0x34C90FDDu);
}

float JitterRadius(uint32_t key, uint32_t salt) {
  return Stream(key, salt) * FloatOf(0x33333334u) + 0.3f;
}

float HueOffset(uint32_t key, uint32_t salt) {
  return Stream(key, salt) * FloatOf(0x38340001u) - 360.0f;
}

}  // namespace vantle::reference
