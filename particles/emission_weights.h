// How likely a pixel is to emit. Building the sums and redoing a few of their additions in a pick share these
// functions, since both must come to the same bits.
#pragma once

#include "base/image_view.h"
#include "base/pixels.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>

namespace vantle {

/// Pixels up to this alpha emit nothing.
inline constexpr float kEmittingAlpha = 0.01f;

/// No weight of a pixel that emits is less.
inline constexpr float kLeastWeight = 0.0001f;

/// What the channel popups of weights and stagger choose.
enum ChannelId : int32_t {
  CHANNEL_BRIGHTNESS = 1,
  CHANNEL_SATURATION = 2,
  CHANNEL_RED = 3,
  CHANNEL_GREEN = 4,
  CHANNEL_BLUE = 5,
  CHANNEL_ALPHA = 6,
};

/// The value of a channel; brightness for an unknown one.
inline float ChannelValue(int32_t channel, float r, float g, float b, float alpha) {
  switch (channel) {
    case CHANNEL_SATURATION: {
      const float largest = std::max(std::max(r, g), b);
      const float smallest = std::min(std::min(r, g), b);
      return largest <= 0.001f ? 0.0f : (largest - smallest) / largest;
    }
    case CHANNEL_RED:
      return r;
    case CHANNEL_GREEN:
      return g;
    case CHANNEL_BLUE:
      return b;
    case CHANNEL_ALPHA:
      return alpha;
    default:
      return 0.299f * r + 0.587f * g + 0.114f * b;
  }
}

/// The pixel at `at` in floats, whatever the depth.
inline FloatPixel LoadPixel(PixelDepth depth, const std::byte* at) {
  switch (depth) {
    case PixelDepth::k8:
      return LoadPixel<Format8>(at);
    case PixelDepth::k16:
      return LoadPixel<Format16>(at);
    default:
      return LoadPixel<Format32>(at);
  }
}

/// Weights of `count` pixels in a row from `at` on: alpha, drawn by |variation| towards alpha times the
/// channel (or its complement when variation is negative), at least 0.0001; 0 where nothing emits.
void PixelWeights(PixelDepth depth, const std::byte* at, int32_t count, float variation, int32_t channel,
                  float* weights);

}  // namespace vantle
