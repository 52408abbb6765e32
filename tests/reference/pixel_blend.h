// How one particle is laid over a pixel.
#pragma once

#include "particles/frame_settings.h"
#include "tests/reference/pixel_codec.h"

#include <algorithm>
#include <cmath>
#include <cstdint>

namespace vantle::reference {

/// The transfer mode's result for one channel.
inline float Transfer(float s, float d, int32_t mode) {
  switch (mode) {
    case BLEND_ADD:
      return d + s;
    case BLEND_SCREEN:
      return 1.0f - (1.0f - s) * (1.0f - d);
    case BLEND_MULTIPLY:
      return s * d;
    case BLEND_OVERLAY:
      return d < 0.5f ? 2.0f * s * d : 1.0f - 2.0f * (1.0f - s) * (1.0f - d);
    case BLEND_SOFT_LIGHT:
      return s < 0.5f ? d - (1.0f - 2.0f * s) * d * (1.0f - d)
                      : d + (2.0f * s - 1.0f) * (std::sqrt(std::max(d, 0.0f)) - d);
    case BLEND_HARD_LIGHT:
      return s < 0.5f ? 2.0f * s * d : 1.0f - 2.0f * (1.0f - s) * (1.0f - d);
    case BLEND_COLOR_BURN:
      return s < 0.001f ? 0.0f : std::max(0.0f, 1.0f - (1.0f - d) / s);
    default:
      return s;
  }
}

/// Whether a source is too transparent to count.
inline bool IsFaint(const Pixel& source) {
  return source.a < 0.001f;
}

/// Lays `source` (its `a` is opacity times coverage), which is not faint, over `destination`, both straight
/// colour.
inline void BlendOver(const Pixel& source, Pixel& destination, int32_t mode) {
  const float srcA = source.a;
  const float dstA = destination.a;
  const float outA = srcA + dstA * (1.0f - srcA);

  const bool normal = mode < BLEND_ADD || mode > BLEND_COLOR_BURN;
  const auto blended = [&](float s, float d) {
    const float b = normal ? s : s + dstA * (Transfer(s, d, mode) - s);
    return (b * srcA + d * dstA * (1.0f - srcA)) / outA;
  };
  if (outA > 0.001f) {
    destination.r = blended(source.r, destination.r);
    destination.g = blended(source.g, destination.g);
    destination.b = blended(source.b, destination.b);
  }
  destination.a = outA;
}

}  // namespace vantle::reference
