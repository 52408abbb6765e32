// Weights and picks against a plain list of points and a full table of sums.

#include "particles/emission.h"

#include "base/floating_environment.h"
#include "base/pixels.h"
#include "particles/emission_weights.h"
#include "particles/emitter_pick.h"
#include "particles/particle_streams.h"
#include "tests/particles/test_frames.h"

#include <cmath>
#include <gtest/gtest.h>
#include <limits>
#include <random>
#include <vector>

namespace vantle {
namespace {

using testing::MakeLayer;
using testing::PlainSettings;
using testing::RandomLayer;
using testing::TestLayer;

/// Every emitting pixel and the running sum of the weights, the long way.
struct FullTable {
  std::vector<int64_t> pixels;
  std::vector<float> sums;
};

float PlainWeight(const FloatPixel& p, float variation, int32_t by) {
  const float v = std::min(std::fabs(variation), 1.0f);
  float w = p.a;
  if (v > 0.001f) {
    float c = 0.299f * p.r + 0.587f * p.g + 0.114f * p.b;
    const float most = std::max({p.r, p.g, p.b}), least = std::min({p.r, p.g, p.b});
    if (by == 2) c = most <= 0.001f ? 0.0f : (most - least) / most;
    if (by == 3) c = p.r;
    if (by == 4) c = p.g;
    if (by == 5) c = p.b;
    if (by == 6) c = p.a;
    if (variation < 0.0f) c = 1.0f - c;
    w = p.a * (c * v + (1.0f - v));
  }
  if (!std::isfinite(w)) return 0.0001f;
  return std::max(w, 0.0001f);
}

FullTable TableOf(const ImageView& image, float variation, int32_t by) {
  FullTable table;
  float sum = 0.0f;
  for (int32_t y = 0; y < image.height; ++y) {
    for (int32_t x = 0; x < image.width; ++x) {
      const std::byte* at = Row(image, y) + static_cast<size_t>(x) * PixelBytes(image.depth);
      const FloatPixel p = LoadPixel(image.depth, at);
      if (!(p.a > 0.01f)) continue;
      sum += PlainWeight(p, variation, by);
      table.pixels.push_back(int64_t{y} * image.width + x);
      table.sums.push_back(sum);
    }
  }
  return table;
}

int64_t PlainPick(const FullTable& table, uint32_t key) {
  const float r = static_cast<float>(key & 0xFFFFFFu) * kUnitFactor * table.sums.back();
  size_t lo = 0, hi = table.sums.size() - 1;
  while (lo < hi) {
    const size_t mid = (lo + hi) >> 1;
    if (r <= table.sums[mid]) {
      hi = mid;
    } else {
      lo = mid + 1;
    }
  }
  return table.pixels[lo];
}

Emission Weigh(const TestLayer& layer, float variation, int32_t by) {
  FrameSettings s = PlainSettings(layer.view.width, layer.view.height);
  s.variationA = s.variationB = variation;
  s.variationABy = s.variationBBy = by;
  return BuildEmission(layer.view, layer.view, {}, s);
}

void ExpectPlainPicks(const TestLayer& layer, float variation, int32_t by) {
  const FullTable table = TableOf(layer.view, variation, by);
  const Emission emission = Weigh(layer, variation, by);
  for (const Emitter* emitter : {&emission.source, &emission.target}) {
    ASSERT_EQ(emitter->hasPoints, !table.pixels.empty());
    if (table.pixels.empty()) continue;
    ASSERT_EQ(emitter->total, table.sums.back());
    ASSERT_EQ(emitter->firstPoint, table.pixels.front());
    std::mt19937 random(7);
    for (int i = 0; i < 500; ++i) {
      const uint32_t key = i == 0   ? 0u
                           : i == 1 ? 0xFFFFFFu
                           : i < 50 ? static_cast<uint32_t>(i)
                                    : static_cast<uint32_t>(random());
      ASSERT_EQ(PickPixel(*emitter, key), PlainPick(table, key)) << "key " << key;
    }
  }
}

TEST(Picks, EqualTheFullTablesForAllDepthsSizesChannelsAndLayouts) {
  uint32_t seed = 1;
  for (const PixelDepth depth : {PixelDepth::k8, PixelDepth::k16, PixelDepth::k32}) {
    for (const auto& [width, height] :
         {std::pair{1, 1}, {1, 40}, {15, 3}, {16, 2}, {17, 9}, {100, 33}, {1025, 3}}) {
      for (int32_t by = 0; by <= 7; ++by) {
        const float variation = by == 0 ? 0.0f : (by % 2 == 0 ? 0.7f : -1.3f);
        const float empty = by % 3 == 0 ? 0.9f : 0.2f;
        ExpectPlainPicks(RandomLayer(width, height, depth, empty, ++seed, 3, 1), variation, by);
      }
    }
  }
}

TEST(Picks, EqualTheFullTablesOnALargeLayer) {
  ExpectPlainPicks(RandomLayer(900, 700, PixelDepth::k8, 0.3f, 5), 0.0f, 1);
  TestLayer opaque = RandomLayer(900, 700, PixelDepth::k16, 0.0f, 6);
  for (int32_t y = 0; y < 700; ++y) {
    for (int32_t x = 0; x < 900; ++x) opaque.Set(x, y, y < 350 ? 1.0f : 0.5f, 0, 0, 0);
  }
  ExpectPlainPicks(opaque, 0.0f, 1);
}

TEST(Picks, OfABatchAreThoseOfItsKeys) {
  const TestLayer layer = RandomLayer(300, 200, PixelDepth::k8, 0.4f, 4);
  const Emission emission = Weigh(layer, 0.5f, 2);
  std::mt19937 random(3);
  for (int round = 0; round < 200; ++round) {
    uint32_t keys[kLanes];
    for (uint32_t& key : keys) key = random() % 5 == 0 ? 0u : static_cast<uint32_t>(random());
    int64_t pixels[kLanes];
    PickPixels(emission.source, keys, pixels);
    for (int32_t l = 0; l < kLanes; ++l) ASSERT_EQ(pixels[l], PickPixel(emission.source, keys[l]));
  }
}

TEST(Picks, AreRightFromOneSumToTheNext) {
  // Every random number that the first sums can be told apart by.
  const TestLayer layer = RandomLayer(37, 2, PixelDepth::k32, 0.4f, 9);
  const FullTable table = TableOf(layer.view, 0.0f, 1);
  const Emission emission = Weigh(layer, 0.0f, 1);
  for (const float sum : table.sums) {
    const double share = static_cast<double>(sum) / static_cast<double>(emission.source.total);
    const int64_t middle = static_cast<int64_t>(share * 16777216.0);
    for (int64_t key = std::max(middle - 5, int64_t{0}); key <= std::min(middle + 5, int64_t{0xFFFFFF});
         ++key) {
      ASSERT_EQ(PickPixel(emission.source, static_cast<uint32_t>(key)),
                PlainPick(table, static_cast<uint32_t>(key)));
    }
  }
}

TEST(Picks, OfNothingTakeTheFirstPointAndNotTheFirstPixel) {
  TestLayer layer = MakeLayer(40, 2, PixelDepth::k8);
  layer.Set(35, 0, 1, 0, 0, 0);
  layer.Set(3, 1, 1, 0, 0, 0);
  const Emission emission = Weigh(layer, 0.0f, 1);
  EXPECT_EQ(emission.source.firstPoint, 35);
  EXPECT_EQ(PickPixel(emission.source, 0xAB000000u), 35);
  EXPECT_EQ(PickPixel(emission.source, 1), 35);
  EXPECT_EQ(PickPixel(emission.source, 0xFFFFFF), 43);
}

TEST(Picks, OfEqualSumsTakeTheFirst) {
  // The small weights vanish in the rounding of the large sum before them.
  TestLayer layer = MakeLayer(40, 1, PixelDepth::k32);
  layer.Set(2, 0, 1e9f, 0, 0, 0);
  for (int32_t x = 3; x < 40; ++x) layer.Set(x, 0, 0.5f, 0, 0, 0);
  const Emission emission = Weigh(layer, 0.0f, 1);
  EXPECT_EQ(emission.source.total, 1e9f);
  EXPECT_EQ(PickPixel(emission.source, 0xFFFFFF), 2);
  ExpectPlainPicks(layer, 0.0f, 1);
}

TEST(Picks, SurviveSumsThatOverflow) {
  TestLayer layer = MakeLayer(50, 1, PixelDepth::k32);
  for (int32_t x = 5; x < 45; ++x) layer.Set(x, 0, x < 30 ? 1.0f : 3e38f, 0, 0, 0);
  const Emission emission = Weigh(layer, 0.0f, 1);
  EXPECT_TRUE(std::isinf(emission.source.total));
  // An infinite share is first reached by the second huge weight; no share at all times infinity is no number
  // and ends at the last point.
  EXPECT_EQ(PickPixel(emission.source, 77), 31);
  EXPECT_EQ(PickPixel(emission.source, 0), 44);
  ExpectPlainPicks(layer, 0.0f, 1);
}

TEST(Weights, AreTheLeastOneWhereTheyAreNotFinite) {
  const float inf = std::numeric_limits<float>::infinity(), nan = std::nanf("");
  TestLayer layer = MakeLayer(6, 1, PixelDepth::k32);
  layer.Set(0, 0, inf, 0, 0, 0);
  layer.Set(1, 0, nan, 0, 0, 0);  // not above the threshold: emits nothing
  layer.Set(2, 0, -inf, 0, 0, 0);
  layer.Set(3, 0, 0.5f, nan, 0, 0);
  layer.Set(4, 0, 0.5f, -1e30f, 0, 0);
  float weights[6];
  PixelWeights(PixelDepth::k32, layer.view.data, 6, 0.0f, 1, weights);
  EXPECT_EQ(weights[0], 0.0001f);
  EXPECT_EQ(weights[1], 0.0f);
  EXPECT_EQ(weights[2], 0.0f);
  EXPECT_EQ(weights[3], 0.5f);
  EXPECT_EQ(weights[5], 0.0f);
  PixelWeights(PixelDepth::k32, layer.view.data, 6, 1.0f, CHANNEL_RED, weights);
  EXPECT_EQ(weights[3], 0.0001f);
  EXPECT_EQ(weights[4], 0.0001f);
}

TEST(Weights, WhitePixelsFallToTheFloorUnderTheNegativeExtreme) {
  TestLayer layer = MakeLayer(2, 1, PixelDepth::k8);
  layer.Set(0, 0, 1, 1, 1, 1);
  layer.Set(1, 0, 1, 0, 0, 0);
  float weights[2];
  PixelWeights(PixelDepth::k8, layer.view.data, 2, -1.0f, CHANNEL_RED, weights);
  EXPECT_EQ(weights[0], 0.0001f);
  EXPECT_EQ(weights[1], 1.0f);
}

TEST(Weights, TheThresholdLiesBetweenTwoCodes) {
  TestLayer layer = MakeLayer(2, 1, PixelDepth::k8);
  layer.bytes[0] = std::byte{2};
  layer.bytes[4] = std::byte{3};
  const Emission emission = Weigh(layer, 0.0f, 1);
  EXPECT_EQ(emission.source.firstPoint, 1);
  EXPECT_EQ(emission.source.total, Format8::ToFloat(3));
}

TEST(BuildEmission, FallsBackToTheInputWithoutCentringIt) {
  const TestLayer empty = MakeLayer(8, 8, PixelDepth::k8);
  TestLayer input = MakeLayer(4, 4, PixelDepth::k8);
  input.Set(1, 2, 1, 1, 0, 0);
  const FrameSettings s = PlainSettings(10, 9);
  for (const ImageView& a : {empty.view, ImageView{}}) {
    const Emission emission = BuildEmission(a, {}, input.view, s);
    ASSERT_TRUE(emission.source.hasPoints);
    EXPECT_FALSE(emission.target.hasPoints);
    const EmittingPoint p = PointOfPixel(emission.source, PickPixel(emission.source, 5), 1.0f, 1.0f);
    EXPECT_EQ(p.x, 1.0f);
    EXPECT_EQ(p.y, 2.0f);
    EXPECT_EQ(p.r, 1.0f);
  }
  EXPECT_FALSE(BuildEmission(empty.view, empty.view, empty.view, s).source.hasPoints);
  EXPECT_FALSE(BuildEmission({}, {}, {}, s).target.hasPoints);
}

TEST(BuildEmission, CentresLayersToTheHalfPixel) {
  TestLayer layer = MakeLayer(3, 4, PixelDepth::k8);
  layer.Set(0, 0, 1, 0, 0, 0);
  const Emission emission = BuildEmission(layer.view, layer.view, {}, PlainSettings(10, 4));
  const EmittingPoint p = PointOfPixel(emission.target, 0, 0.5f, 0.25f);
  EXPECT_EQ(p.x, 7.0f);
  EXPECT_EQ(p.y, 0.0f);
}

TEST(BuildEmission, ReadsUpsideDownRows) {
  TestLayer layer = RandomLayer(20, 5, PixelDepth::k8, 0.5f, 3);
  layer.view.data += layer.view.rowBytes * 4;
  layer.view.rowBytes = -layer.view.rowBytes;
  ExpectPlainPicks(layer, 0.5f, 2);
}

TEST(BuildEmission, LargeLayersReachTheirLowerRows) {
  // All rows are one row: more than 2^24 pixels in a few kilobytes. Weight 1 each, so that r / total is the
  // share of the pixels passed, in double, rounded.
  TestLayer row = MakeLayer(5000, 1, PixelDepth::k8);
  for (int32_t x = 0; x < 5000; ++x) row.Set(x, 0, 1, 0, 0, 0);
  ImageView tall = row.view;
  tall.rowBytes = 0;
  tall.height = 5000;
  const Emission emission = BuildEmission(tall, {}, {}, PlainSettings(5000, 5000));
  ASSERT_EQ(emission.source.total, 25000000.0f);
  std::mt19937 random(1);
  for (int i = 0; i < 2000; ++i) {
    const uint32_t key = static_cast<uint32_t>(random());
    const float r = static_cast<float>(key & 0xFFFFFFu) * kUnitFactor * 25000000.0f;
    // The smallest pixel whose count, as a float, reaches r.
    int64_t expected = static_cast<int64_t>(std::ceil(r)) - 1;
    while (expected > 0 && r <= static_cast<float>(expected)) --expected;
    ASSERT_EQ(PickPixel(emission.source, key), std::max(expected, int64_t{0}));
  }
  EXPECT_EQ(PickPixel(emission.source, 0xFFFFFF), 24999998);  // 24999999 already rounds to the total
}

TEST(BuildEmission, FeatheredLargeLayersEqualTheTableSummedInDouble) {
  TestLayer row = RandomLayer(4099, 1, PixelDepth::k8, 0.3f, 8);
  ImageView tall = row.view;
  tall.rowBytes = 0;
  tall.height = 4100;
  FullTable table;
  double sum = 0.0;
  for (int32_t y = 0; y < tall.height; ++y) {
    for (int32_t x = 0; x < tall.width; ++x) {
      const FloatPixel p = LoadPixel<Format8>(Row(tall, y) + 4 * x);
      if (!(p.a > 0.01f)) continue;
      sum += static_cast<double>(PlainWeight(p, 0.0f, 1));
      table.pixels.push_back(int64_t{y} * tall.width + x);
      table.sums.push_back(static_cast<float>(sum));
    }
  }
  const Emission emission = BuildEmission({}, tall, {}, PlainSettings(4099, 4100));
  ASSERT_EQ(emission.target.total, table.sums.back());
  std::mt19937 random(2);
  for (int i = 0; i < 5000; ++i) {
    const uint32_t key = static_cast<uint32_t>(random());
    ASSERT_EQ(PickPixel(emission.target, key), PlainPick(table, key));
  }
}

TEST(BuildEmission, DoesNotCareForTheCallersRoundingMode) {
  const TestLayer layer = RandomLayer(333, 77, PixelDepth::k8, 0.1f, 4);
  const float expected = Weigh(layer, 0.6f, 1).source.total;
  const unsigned before = _mm_getcsr();
  _mm_setcsr(before | 0x4000u);
  const float found = Weigh(layer, 0.6f, 1).source.total;
  _mm_setcsr(before);
  EXPECT_EQ(found, expected);
}

}  // namespace
}  // namespace vantle
