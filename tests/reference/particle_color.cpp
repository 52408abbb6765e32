#include "tests/reference/particle_color.h"

#include "base/elementary.h"
#include "tests/reference/custom_curves.h"
#include "tests/reference/random_streams.h"

#include <algorithm>
#include <cmath>

namespace vantle::reference {
namespace {

Color BaseColor(const Point& emitter, const Point* target, uint32_t key, float p, const FrameSettings& s) {
  if (s.colorMode == 2 && target == nullptr) return {emitter.r, emitter.g, emitter.b};
  if (s.colorMode == 2) {
    return {emitter.r + (target->r - emitter.r) * p, emitter.g + (target->g - emitter.g) * p,
            emitter.b + (target->b - emitter.b) * p};
  }
  if (s.colorMode == 3) return GradientAt(s.colorGradient, p);
  if (s.colorMode == 4) return GradientAt(s.colorGradient, Unit(key, kSaltGradient));
  if (Stops(s.colorGradient) == 0) return {1.0f, 1.0f, 1.0f};
  return StopColor(s.colorGradient.stops[0]);
}

// Hue in degrees, 0 for greys.
float HueOf(const Color& c, float value, float chroma) {
  if (chroma < 0.001f) return 0.0f;
  if (value == c.r) return 60.0f * Fmod((c.g - c.b) / chroma + 6.0f, 6.0f);
  if (value == c.g) return 60.0f * (c.b - c.r) / chroma + 120.0f;
  return 60.0f * (c.r - c.g) / chroma + 240.0f;
}

Color SectorColor(float h, float k, float x) {
  if (h < 1.0f) return {k, x, 0.0f};
  if (h < 2.0f) return {x, k, 0.0f};
  if (h < 3.0f) return {0.0f, k, x};
  if (h < 4.0f) return {0.0f, x, k};
  if (h < 5.0f) return {x, 0.0f, k};
  return {k, 0.0f, x};
}

// Turns the hue; saturation and value stay.
Color ShiftHue(const Color& c, float degrees) {
  const float value = std::max(std::max(c.r, c.g), c.b);
  const float low = std::min(std::min(c.r, c.g), c.b);
  const float chroma = value - low;
  const float saturation = value > 0.001f ? chroma / value : 0.0f;

  const float hue = Fmod(HueOf(c, value, chroma) + degrees + 360.0f, 360.0f);
  const float h = Fmod(hue * 0.016666668f, 6.0f);
  const float k = value * saturation;
  const float x = k * (1.0f - std::fabs(Fmod(h, 2.0f) - 1.0f));
  const Color sector = SectorColor(h, k, x);
  const float grey = value - k;
  return {sector.r + grey, sector.g + grey, sector.b + grey};
}

}  // namespace

Color ColorOf(const Point& emitter, const Point* target, uint32_t key, float p, const FrameSettings& s) {
  const Color color = BaseColor(emitter, target, key, p, s);
  if (!(s.hueVariation > 0.001f)) return color;
  return ShiftHue(color, HueOffset(key, kSaltHue) * s.hueVariation);
}

}  // namespace vantle::reference
