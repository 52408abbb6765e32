// Keys and streams against values worked out with big integers.

#include "particles/particle_streams.h"

#include <gtest/gtest.h>
#include <set>

namespace vantle {
namespace {

struct Sample {
  int32_t seed;
  uint32_t index;
  ParticleKeys keys;
  uint32_t random, opacity, thickness;
};

constexpr Sample kSamples[] = {
    {0, 0, {0x00000000u, 0x00000000u, 0xB94A814Bu}, 0xB6D245, 0x531B52, 0xA17820},
    {1, 0, {0xC269DC13u, 0x5AA3601Eu, 0xC8BAD51Au}, 0x184EC0, 0x592C15, 0xC402FA},
    {1, 1, {0x39B138D4u, 0xC992F43Du, 0xD86254D2u}, 0x6F3B58, 0xB3917D, 0x29B130},
    {12345, 199999, {0x6D56F801u, 0x91047F6Bu, 0x838AFE1Cu}, 0xA0B7DE, 0xA1C66A, 0x867F9A},
    {-7, 42, {0x0EBAC5EDu, 0xABF22937u, 0xD07E65D8u}, 0xA5D120, 0x61E1BB, 0xA70B3C},
};

TEST(Streams, HaveTheKnownKeysAndBits) {
  for (const Sample& sample : kSamples) {
    const ParticleKeys keys = KeysOfParticle(sample.seed, sample.index);
    EXPECT_EQ(keys.key, sample.keys.key);
    EXPECT_EQ(keys.source, sample.keys.source);
    EXPECT_EQ(keys.target, sample.keys.target);
    EXPECT_EQ(StreamBits(keys.key, kSaltRandom), sample.random);
    EXPECT_EQ(StreamBits(keys.key, kSaltOpacity), sample.opacity);
    EXPECT_EQ(StreamBits(keys.key, kSaltThickness), sample.thickness);
  }
}

TEST(Streams, FactorsAreTheNearestFloatsOfTheirDecimals) {
  EXPECT_EQ(kUnitFactor, 5.9604652e-08f);
  EXPECT_EQ(kDirectionFactor, 1.1920930e-07f);
  EXPECT_EQ(kAngleFactor, 3.745071e-07f);
  EXPECT_EQ(kRadiusFactor, 4.1723254e-08f);
  EXPECT_EQ(kHueFactor, 4.2915348e-05f);
}

/// A key whose stream of this salt has the given 24 bits.
uint32_t KeyFor(uint32_t bits, StreamSalt salt) {
  for (uint32_t key = 0;; ++key) {
    if (StreamBits(key, salt) == bits) return key;
  }
}

TEST(Streams, FormsReachBothEndsOfTheirRangesExactly) {
  const uint32_t least = KeyFor(0, kSaltSize), most = KeyFor(0xFFFFFF, kSaltSize);
  EXPECT_EQ(Unit(least, kSaltSize), 0.0f);
  EXPECT_EQ(Unit(most, kSaltSize), 1.0f);
  EXPECT_EQ(SignedUnit(least, kSaltSize), -1.0f);
  EXPECT_EQ(SignedUnit(most, kSaltSize), 1.0f);
  EXPECT_EQ(DirectionZ(least, kSaltSize), -1.0f);
  EXPECT_EQ(DirectionZ(most, kSaltSize), 1.0f);
  EXPECT_EQ(Azimuth(least, kSaltSize), 0.0f);
  EXPECT_NEAR(Azimuth(most, kSaltSize), 6.2831853f, 1e-6f);
  EXPECT_EQ(JitterRadius(least, kSaltSize), 0.3f);
  EXPECT_NEAR(JitterRadius(most, kSaltSize), 1.0f, 1e-6f);
  EXPECT_EQ(HueOffset(least, kSaltSize), -360.0f);
  EXPECT_NEAR(HueOffset(most, kSaltSize), 360.0f, 1e-4f);
}

TEST(Streams, AreSpreadEvenlyOverIndicesAndSalts) {
  for (const StreamSalt salt : {kSaltRandom, kSaltHue, kSaltScatterZ}) {
    double sum = 0.0;
    for (uint32_t i = 0; i < 100000; ++i) sum += static_cast<double>(Unit(KeysOfParticle(3, i).key, salt));
    EXPECT_NEAR(sum / 100000.0, 0.5, 0.005);
  }
}

TEST(Streams, TheSeedChangesEveryParticle) {
  std::set<uint32_t> keys;
  for (int32_t seed = 0; seed < 50; ++seed) {
    for (uint32_t i = 0; i < 1000; ++i) keys.insert(KeysOfParticle(seed, i).key);
  }
  EXPECT_GT(keys.size(), 49990u);
}

}  // namespace
}  // namespace vantle
