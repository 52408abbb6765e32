#include "tests/reference/pixel_blend.h"

#include "particles/frame_settings.h"

#include <algorithm>
#include <cmath>

namespace vantle::reference {

float Transfer(float s, float d, int32_t mode) {
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

bool BlendOver(const Pixel& source, Pixel& destination, int32_t mode) {
  const float srcA = source.a;
  if (srcA < 0.001f) return false;
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
  return true;
}

}  // namespace vantle::reference
