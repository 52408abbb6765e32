// The loops of every instruction level: against the scalar functions where there are any, and against the
// least level, bit for bit. Levels that the machine lacks are reported as skipped.
#include "base/instruction_level.h"
#include "base/pixels.h"
#include "particles/emission_weights.h"
#include "particles/particle_streams.h"
#include "particles/stages.h"
#include "tests/particles/test_frames.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <gtest/gtest.h>
#include <limits>
#include <random>
#include <string>
#include <vector>

namespace vantle {
namespace {

using testing::MakeLayer;
using testing::PlainSettings;
using testing::RandomLayer;
using testing::SameBytes;
using testing::Simulate;
using testing::TestLayer;

constexpr float kInfinity = std::numeric_limits<float>::infinity();
constexpr float kNan = std::numeric_limits<float>::quiet_NaN();

class EveryLevel : public ::testing::TestWithParam<InstructionLevel> {
 protected:
  void SetUp() override {
    if (GetParam() > BestInstructionLevel()) GTEST_SKIP() << "not on this processor";
    SetInstructionLevel(GetParam());
    ASSERT_EQ(CurrentInstructionLevel(), GetParam());
  }
  void TearDown() override { SetInstructionLevel(BestInstructionLevel()); }

  std::mt19937 random_{17};
};

bool SameFloat(float a, float b) {
  return std::bit_cast<uint32_t>(a) == std::bit_cast<uint32_t>(b) || (std::isnan(a) && std::isnan(b));
}

void ExpectSameFloats(const float* expected, const float* actual, const std::string& what) {
  for (int32_t l = 0; l < kLanes; ++l) {
    EXPECT_TRUE(SameFloat(expected[l], actual[l]))
        << what << ", lane " << l << ": " << expected[l] << " expected, " << actual[l] << " found";
  }
}

TEST_P(EveryLevel, MakesTheKeysOfEachParticle) {
  for (const int32_t seed : {0, 1, -1, 123456789}) {
    int32_t indices[kLanes];
    for (int32_t& index : indices) index = static_cast<int32_t>(random_() % 200000u);
    uint32_t keys[kLanes], sources[kLanes], targets[kLanes];
    CurrentStages().makeKeys(seed, indices, keys, sources, targets);
    for (int32_t l = 0; l < kLanes; ++l) {
      const ParticleKeys expected = KeysOfParticle(seed, static_cast<uint32_t>(indices[l]));
      EXPECT_EQ(keys[l], expected.key);
      EXPECT_EQ(sources[l], expected.source);
      EXPECT_EQ(targets[l], expected.target);
    }
  }
}

/// The weight of a pixel as its rule reads.
float PlainWeight(const FloatPixel& p, float variation, int32_t channel) {
  if (!(p.a > kEmittingAlpha)) return 0.0f;
  float weight = p.a;
  if (std::fabs(variation) > 0.001f) {
    const float v = std::min(std::fabs(variation), 1.0f);
    const float value = ChannelValue(channel, p.r, p.g, p.b, p.a);
    weight = p.a * ((variation < 0.0f ? 1.0f - value : value) * v + (1.0f - v));
  }
  return weight > kLeastWeight && weight < kInfinity ? weight : kLeastWeight;
}

TEST_P(EveryLevel, WeighsPixelsOfEveryDepthByEveryChannel) {
  constexpr int32_t kCount = 37;  // whole vectors and a rest at every level
  for (const PixelDepth depth : {PixelDepth::k8, PixelDepth::k16, PixelDepth::k32}) {
    TestLayer layer = RandomLayer(kCount, 1, depth, 0.3f, 5, 0, 1);
    if (depth == PixelDepth::k32) {
      layer.Set(3, 0, kNan, 1, 1, 1);
      layer.Set(4, 0, kInfinity, 1, 1, 1);
      layer.Set(5, 0, 1, kNan, -3, kInfinity);
      layer.Set(36, 0, 0.5f, -2, -2, -2);
    }
    for (int32_t channel = 0; channel <= 7; ++channel) {
      for (const float variation : {0.0f, 0.001f, 0.6f, -0.6f, 1.0f, -3.0f}) {
        float weights[kCount + 1];
        weights[kCount] = 77.0f;
        PixelWeights(depth, layer.view.data, kCount, variation, channel, weights);
        for (int32_t i = 0; i < kCount; ++i) {
          const FloatPixel p = LoadPixel(depth, layer.view.data + static_cast<size_t>(i) * PixelBytes(depth));
          EXPECT_EQ(weights[i], PlainWeight(p, variation, channel)) << "pixel " << i << " by " << channel;
        }
        EXPECT_EQ(weights[kCount], 77.0f);
      }
    }
  }
}

TEST_P(EveryLevel, AddsWeightsOneAfterTheOther) {
  constexpr int32_t kBlocks = 64;
  std::vector<float> weights(kBlocks * kSumGroup), other(kBlocks * kSumGroup);
  for (size_t i = 0; i < weights.size(); ++i) {
    // Blocks of ones, of zeros and of mixed weights follow each other.
    const size_t kind = i / kSumGroup % 4;
    const float mixed = static_cast<float>(random_() % 256u) / 255.0f;
    weights[i] = kind == 0 ? 1.0f : kind == 1 ? 0.0f : mixed;
    other[i] = 1.0f;
  }
  for (const float start : {0.0f, 16777190.0f, 16777216.0f, 0.5f}) {
    float sums[kBlocks], pairA[kBlocks], pairB[kBlocks], a = start, b = start, plainA = start, plainB = start;
    const float last = CurrentStages().sumBlocks(weights.data(), kBlocks, start, sums);
    CurrentStages().sumBlockPairs(weights.data(), other.data(), kBlocks, &a, &b, pairA, pairB);
    for (int32_t i = 0; i < kBlocks; ++i) {
      for (int32_t k = 0; k < kSumGroup; ++k) {
        plainA += weights[static_cast<size_t>(i * kSumGroup + k)];
        plainB += other[static_cast<size_t>(i * kSumGroup + k)];
      }
      ASSERT_EQ(sums[i], plainA) << "block " << i << " from " << start;
      ASSERT_EQ(pairA[i], plainA);
      ASSERT_EQ(pairB[i], plainB);
    }
    EXPECT_EQ(last, plainA);
    EXPECT_EQ(a, plainA);
    EXPECT_EQ(b, plainB);
  }
}

TEST_P(EveryLevel, TakesTheValuesOfCurvesWithAnyPoints) {
  FrameSettings s = PlainSettings(100, 100);
  s.size = 100.0f;
  s.sizeVariation = 0.0f;
  FrameConstants frame;
  frame.settings = &s;
  ParticleLanes lanes;
  std::fill(lanes.key, lanes.key + kLanes, 1u);
  for (int32_t round = 0; round < 300; ++round) {
    LifeCurve& curve = s.scaleOverLife;
    curve.count = static_cast<int32_t>(random_() % 20u) - 1;
    for (int32_t i = 0; i < kMaxCurvePoints; ++i) {
      curve.x[i] = static_cast<float>(random_() % 1001u) / 1000.0f;
      curve.y[i] = static_cast<float>(random_() % 2001u) / 1000.0f;
    }
    if (round % 3 != 0) std::sort(curve.x, curve.x + kMaxCurvePoints);
    if (round % 7 == 0) curve.x[1] = kNan;
    for (float& t : lanes.progress) t = static_cast<float>(random_() % 1201u) / 1000.0f - 0.1f;
    lanes.progress[5] = curve.x[3];
    lanes.progress[6] = kNan;
    float sizes[kLanes], expected[kLanes];
    EvaluateSizes(frame, lanes, sizes);
    for (int32_t l = 0; l < kLanes; ++l) {
      expected[l] = std::max(100.0f * EvaluateLifeCurve(curve, lanes.progress[l]), 0.5f);
    }
    ExpectSameFloats(expected, sizes, "round " + std::to_string(round));
  }
}

TEST_P(EveryLevel, TakesTheColoursOfGradientsWithAnyStops) {
  FrameSettings s = PlainSettings(100, 100);
  s.colorMode = COLOR_OVER_LIFE;
  FrameConstants frame;
  frame.settings = &s;
  ParticleLanes lanes;
  std::fill(lanes.key, lanes.key + kLanes, 1u);
  for (int32_t round = 0; round < 300; ++round) {
    ColorGradient& gradient = s.colorGradient;
    gradient.count = static_cast<int32_t>(random_() % 11u) - 1;
    for (GradientStop& stop : gradient.stops) {
      stop.position = static_cast<float>(random_() % 11u) / 10.0f;
      stop.r = static_cast<float>(random_() % 256u) / 255.0f;
      stop.g = 1.0f - stop.r;
      stop.b = stop.position;
    }
    if (round % 3 != 0) {
      std::sort(std::begin(gradient.stops), std::end(gradient.stops),
                [](const GradientStop& a, const GradientStop& b) { return a.position < b.position; });
    }
    if (round % 7 == 0) gradient.stops[1].position = kNan;
    for (float& t : lanes.progress) t = static_cast<float>(random_() % 1201u) / 1000.0f - 0.1f;
    lanes.progress[4] = 0.5f;
    lanes.progress[5] = kNan;
    AppearanceLanes looks;
    EvaluateAppearance(frame, lanes, &looks);
    float r[kLanes], g[kLanes], b[kLanes];
    for (int32_t l = 0; l < kLanes; ++l) {
      const Color c = EvaluateGradient(gradient, lanes.progress[l]);
      r[l] = c.r, g[l] = c.g, b[l] = c.b;
    }
    ExpectSameFloats(r, looks.r, "red in round " + std::to_string(round));
    ExpectSameFloats(g, looks.g, "green in round " + std::to_string(round));
    ExpectSameFloats(b, looks.b, "blue in round " + std::to_string(round));
  }
}

TEST_P(EveryLevel, PlacesParticlesAsTheLeastLevelDoesWhateverTheNumbers) {
  FrameSettings s = PlainSettings(300, 200);
  FrameConstants frame;
  frame.settings = &s;
  const float hostile[] = {0.0f, -0.0f, 1e-30f, 3e9f, -5e9f, 1e30f, kInfinity, -kInfinity, kNan};
  for (int32_t round = 0; round < 500; ++round) {
    const auto number = [&] {
      if (random_() % 16u == 0) return hostile[random_() % 9u];
      return static_cast<float>(static_cast<int32_t>(random_() % 4001u) - 2000) * 0.37f;
    };
    s.scatter = static_cast<float>(static_cast<int32_t>(random_() % 3u)) - 1.0f;
    frame.swirl = number();
    frame.hasBell = true;
    frame.hasTurbulence = true;
    frame.pull = frame.extent = 0.7f;
    ParticleLanes lanes;
    for (int32_t l = 0; l < kLanes; ++l) {
      PathLanes& path = lanes.path;
      for (VectorLanes* v : {&path.start, &path.end, &path.scatter, &path.turbulence}) {
        v->x[l] = number(), v->y[l] = number(), v->z[l] = number();
      }
      path.bentEndX[l] = number(), path.bentEndY[l] = number(), path.scatterStrength[l] = number();
      lanes.progress[l] = random_() % 4u == 0 ? number() : static_cast<float>(random_() % 101u) / 100.0f;
    }
    VectorLanes expected, positions, expectedDirections, directions;
    const ParticleStages& least = StagesSse2();
    least.positionsAt(frame, lanes.path, lanes.progress, &expected);
    least.directions(frame, lanes, expected, &expectedDirections);
    PositionsAt(frame, lanes.path, lanes.progress, &positions);
    Directions(frame, lanes, expected, &directions);
    const std::string what = "round " + std::to_string(round);
    ExpectSameFloats(expected.x, positions.x, what + " x");
    ExpectSameFloats(expected.y, positions.y, what + " y");
    ExpectSameFloats(expected.z, positions.z, what + " z");
    ExpectSameFloats(expectedDirections.x, directions.x, what + " direction x");
    ExpectSameFloats(expectedDirections.y, directions.y, what + " direction y");

    VectorLanes field, expectedField;
    s.turbulenceAmount = 0.3f;
    s.turbulenceType = 1 + round % 3;
    const TurbulenceField turbulence = MakeTurbulenceField(s);
    least.evaluateTurbulence(turbulence, lanes.path.start.x, lanes.path.start.y, &expectedField);
    EvaluateTurbulence(turbulence, lanes.path.start.x, lanes.path.start.y, &field);
    ExpectSameFloats(expectedField.x, field.x, what + " field x");
    ExpectSameFloats(expectedField.y, field.y, what + " field y");
  }
}

TEST_P(EveryLevel, SimulatesTheSameBytesWithAndWithoutACamera) {
  const TestLayer a = RandomLayer(67, 45, PixelDepth::k8, 0.3f, 1),
                  b = RandomLayer(31, 70, PixelDepth::k16, 0.6f, 2);
  FrameSettings s = PlainSettings(300, 200);
  MakeDefaultGradient(&s.colorGradient);
  s.density = 3001;
  s.swirlAngle = 70.0f;
  s.scatter = 0.3f;
  s.stagger = -0.4f;
  s.planeA.thickness = 90.0f;
  s.viewAngle = 40.0f;
  s.turbulenceAmount = s.turbulenceZDepth = 0.2f;
  s.sizeVariation = s.opacityVariation = s.hueVariation = 0.5f;
  s.rotationVariation[0] = s.spin[2] = 90.0f;
  CameraData camera;
  camera.hasCamera = true;
  camera.viewMatrix[14] = camera.imagePlaneDistance = 400.0;
  for (int32_t variant = 0; variant < 16; ++variant) {
    s.autoOrient = (variant & 1) != 0;
    s.faceCamera = (variant & 2) != 0;
    s.colorMode = 1 + variant % 4;
    s.shape = (variant & 8) != 0 ? SHAPE_CURVE_LINE : SHAPE_CIRCLE;
    const CameraData view = (variant & 4) != 0 ? camera : CameraData{};
    const TestLayer* second = variant % 5 == 0 ? nullptr : &b;
    SetInstructionLevel(InstructionLevel::kSse2);
    const ParticleList expected = Simulate(&a, second, s, view);
    SetInstructionLevel(GetParam());
    const ParticleList actual = Simulate(&a, second, s, view);
    ASSERT_GT(expected.count, 100u);
    EXPECT_TRUE(SameBytes(expected, actual)) << "variant " << variant;
  }
}

TEST(InstructionLevels, TheBestIsUsedUnlessAnotherIsSetAndNoneThatTheProcessorLacks) {
  EXPECT_EQ(CurrentInstructionLevel(), BestInstructionLevel());
  SetInstructionLevel(InstructionLevel::kAvx512);
  EXPECT_LE(CurrentInstructionLevel(), BestInstructionLevel());
  SetInstructionLevel(InstructionLevel::kSse2);
  EXPECT_EQ(CurrentInstructionLevel(), InstructionLevel::kSse2);
  EXPECT_EQ(&CurrentStages(), &StagesSse2());
  SetInstructionLevel(BestInstructionLevel());
}

INSTANTIATE_TEST_SUITE_P(Levels, EveryLevel,
                         ::testing::Values(InstructionLevel::kSse2, InstructionLevel::kAvx2,
                                           InstructionLevel::kAvx512));

}  // namespace
}  // namespace vantle
