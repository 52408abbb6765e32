#include "particles/emission_weights.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace vantle {
namespace {

constexpr float kLeastWeight = 0.0001f;

/// Holds a weight to at least the least one, which also stands for weights that are not finite.
template <class Format>
float UsableWeight(float weight) {
  const float held = weight > kLeastWeight ? weight : kLeastWeight;
  if (Format::kDepth != PixelDepth::k32) return held;  // whole codes come to finite weights
  return weight <= std::numeric_limits<float>::max() ? held : kLeastWeight;
}

/// Alpha itself as a weight. What emits lies above the least weight.
template <class Format>
float AlphaWeight(float alpha) {
  const float weight = Format::kDepth == PixelDepth::k32 ? UsableWeight<Format>(alpha) : alpha;
  return alpha > kEmittingAlpha ? weight : 0.0f;
}

template <class Format>
void AlphaWeights(const std::byte* at, int32_t count, float* weights) {
  for (int32_t i = 0; i < count; ++i) {
    typename Format::Channel code;
    std::memcpy(&code, at + static_cast<size_t>(i) * kPixelBytes<Format>, sizeof(code));
    weights[i] = AlphaWeight<Format>(Format::ToFloat(code));
  }
}

template <class Format, int32_t channel>
void ChannelWeights(const std::byte* at, int32_t count, float variation, float* weights) {
  const float v = std::min(std::fabs(variation), 1.0f);
  const float rest = 1.0f - v;
  const bool inverted = variation < 0.0f;
  for (int32_t i = 0; i < count; ++i) {
    const FloatPixel p = LoadPixel<Format>(at + static_cast<size_t>(i) * kPixelBytes<Format>);
    const float value = ChannelValue(channel, p.r, p.g, p.b, p.a);
    const float c = inverted ? 1.0f - value : value;
    weights[i] = p.a > kEmittingAlpha ? UsableWeight<Format>(p.a * (c * v + rest)) : 0.0f;
  }
}

template <class Format>
void FormatWeights(const std::byte* at, int32_t count, float variation, int32_t channel, float* weights) {
  if (std::fabs(variation) <= 0.001f) return AlphaWeights<Format>(at, count, weights);
  switch (channel) {
    case CHANNEL_SATURATION:
      return ChannelWeights<Format, CHANNEL_SATURATION>(at, count, variation, weights);
    case CHANNEL_RED:
      return ChannelWeights<Format, CHANNEL_RED>(at, count, variation, weights);
    case CHANNEL_GREEN:
      return ChannelWeights<Format, CHANNEL_GREEN>(at, count, variation, weights);
    case CHANNEL_BLUE:
      return ChannelWeights<Format, CHANNEL_BLUE>(at, count, variation, weights);
    case CHANNEL_ALPHA:
      return ChannelWeights<Format, CHANNEL_ALPHA>(at, count, variation, weights);
    default:
      return ChannelWeights<Format, CHANNEL_BRIGHTNESS>(at, count, variation, weights);
  }
}

}  // namespace

void PixelWeights(PixelDepth depth, const std::byte* at, int32_t count, float variation, int32_t channel,
                  float* weights) {
  switch (depth) {
    case PixelDepth::k8:
      return FormatWeights<Format8>(at, count, variation, channel, weights);
    case PixelDepth::k16:
      return FormatWeights<Format16>(at, count, variation, channel, weights);
    default:
      return FormatWeights<Format32>(at, count, variation, channel, weights);
  }
}

}  // namespace vantle
