// Weights of pixels on lanes. Included after a lanes_*.h.
#pragma once

#include "base/pixels.h"
#include "particles/emission.h"
#include "particles/emission_weights.h"
#include "particles/lanes.h"

#include <cstddef>
#include <cstdint>
#include <limits>

namespace vantle {
namespace {

template <class Format>
inline constexpr int32_t kFormatBytes = static_cast<int32_t>(kPixelBytes<Format>);

inline PixelLanes LoadPixels(Format8, const std::byte* at) {
  const Ints words = LoadWords(at), low = SplatInts(255u);
  constexpr float kUnit = 1.0f / 255.0f;
  return {ToFloats(words & low) * kUnit, ToFloats(ShiftRight<8>(words) & low) * kUnit,
          ToFloats(ShiftRight<16>(words) & low) * kUnit, ToFloats(ShiftRight<24>(words)) * kUnit};
}
inline PixelLanes LoadPixels(Format16, const std::byte* at) {
  Ints ar, gb;
  LoadWordPairs(at, &ar, &gb);
  const Ints low = SplatInts(65535u);
  constexpr float kUnit = 1.0f / 32768.0f;
  return {ToFloats(ar & low) * kUnit, ToFloats(ShiftRight<16>(ar)) * kUnit, ToFloats(gb & low) * kUnit,
          ToFloats(ShiftRight<16>(gb)) * kUnit};
}
inline PixelLanes LoadPixels(Format32, const std::byte* at) {
  return LoadFloatPixels(at);
}

/// As ChannelValue.
inline Floats ChannelOf(int32_t channel, Floats r, Floats g, Floats b, Floats alpha) {
  if (channel == CHANNEL_SATURATION) {
    const Floats largest = Max(Max(r, g), b), smallest = Min(Min(r, g), b);
    return Select(largest <= 0.001f, 0.0f, (largest - smallest) / largest);
  }
  if (channel == CHANNEL_RED) return r;
  if (channel == CHANNEL_GREEN) return g;
  if (channel == CHANNEL_BLUE) return b;
  if (channel == CHANNEL_ALPHA) return alpha;
  return 0.299f * r + 0.587f * g + 0.114f * b;
}

/// How a layer's weights are made.
struct WeightRule {
  bool byChannel;  ///< else alpha alone
  int32_t channel;
  bool inverted;
  float strength, rest;
};

inline WeightRule MakeWeightRule(float variation, int32_t channel) {
  const float size = variation < 0.0f ? -variation : variation;
  const float v = size > 1.0f ? 1.0f : size;
  return {!(size <= 0.001f), channel, variation < 0.0f, v, 1.0f - v};
}

/// Held to at least the least weight, which also stands for weights that are not finite; 0 where nothing
/// emits.
template <class Format>
inline Floats WeightsOf(const PixelLanes& p, const WeightRule& rule) {
  Floats weight = p.a;
  if (rule.byChannel) {
    const Floats value = ChannelOf(rule.channel, p.r, p.g, p.b, p.a);
    const Floats c = rule.inverted ? 1.0f - value : value;
    weight = p.a * (c * rule.strength + rule.rest);
  }
  Floats held = Select(kLeastWeight < weight, weight, kLeastWeight);
  if constexpr (Format::kDepth == PixelDepth::k32) {
    constexpr float kLargest = std::numeric_limits<float>::max();
    held = Select(weight <= kLargest, held, kLeastWeight);
  }
  return Select(kEmittingAlpha < p.a, held, 0.0f);
}

template <class Format>
inline void WeighFormat(const std::byte* at, int32_t count, const WeightRule& rule, float* weights) {
  int32_t i = 0;
  for (; i + kWidth <= count; i += kWidth) {
    Store(weights + i, WeightsOf<Format>(LoadPixels(Format{}, at + i * kFormatBytes<Format>), rule));
  }
  if (i == count) return;
  // The last few pixels, filled up with transparent ones.
  std::byte rest[kWidth * kFormatBytes<Format>] = {};
  const int32_t bytes = (count - i) * kFormatBytes<Format>;
  for (int32_t k = 0; k < bytes; ++k) rest[k] = at[i * kFormatBytes<Format> + k];
  float last[kWidth];
  Store(last, WeightsOf<Format>(LoadPixels(Format{}, rest), rule));
  for (int32_t k = 0; i + k < count; ++k) weights[i + k] = last[k];
}

/// The sum after one more block, its weights added one after the other. Sixteen weights of 1 on a whole sum
/// come to exactly 16 more; weights of 0 change nothing.
inline float AddBlockOf(const float* weights, float sum) {
  Mask ones = AllLanes(), zeros = AllLanes();
  for (int32_t i = 0; i < kSumGroup; i += kWidth) {
    const Floats w = Load(weights + i);
    ones = And(ones, w == 1.0f);
    zeros = And(zeros, w == 0.0f);
  }
  if (BitsOf(zeros) == kAllBits) return sum;
  if (BitsOf(ones) == kAllBits && sum <= 16777200.0f &&
      sum == static_cast<float>(static_cast<int32_t>(sum))) {
    return sum + 16.0f;
  }
  for (int32_t i = 0; i < kSumGroup; ++i) sum += weights[i];
  return sum;
}

/// Adds up blocks of sixteen weights; sums[i] is the sum after block i.
inline float SumBlocksOf(const float* weights, int32_t blocks, float sum, float* sums) {
  for (int32_t i = 0; i < blocks; ++i) sums[i] = sum = AddBlockOf(weights + i * kSumGroup, sum);
  return sum;
}

/// The same for two layers side by side: each is one long chain of dependent additions, and the processor
/// works on both chains at once.
inline void SumBlockPairsOf(const float* weightsA, const float* weightsB, int32_t blocks, float* sumA,
                            float* sumB, float* sumsA, float* sumsB) {
  float a = *sumA, b = *sumB;
  for (int32_t i = 0; i < blocks; ++i) {
    sumsA[i] = a = AddBlockOf(weightsA + i * kSumGroup, a);
    sumsB[i] = b = AddBlockOf(weightsB + i * kSumGroup, b);
  }
  *sumA = a;
  *sumB = b;
}

/// As PixelWeights.
inline void WeighLanes(PixelDepth depth, const std::byte* at, int32_t count, float variation, int32_t channel,
                       float* weights) {
  const WeightRule rule = MakeWeightRule(variation, channel);
  switch (depth) {
    case PixelDepth::k8:
      return WeighFormat<Format8>(at, count, rule, weights);
    case PixelDepth::k16:
      return WeighFormat<Format16>(at, count, rule, weights);
    default:
      return WeighFormat<Format32>(at, count, rule, weights);
  }
}

}  // namespace
}  // namespace vantle
