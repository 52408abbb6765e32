#include "particles/frame_constants.h"

#include "base/elementary.h"
#include "base/numeric.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstdint>

namespace vantle {
namespace {

constexpr int32_t kMostParticles = 200000;

/// Opacity of the particles while the solid layers fade out and in at the ends of the transformation.
float FadeOfParticles(const FrameSettings& s, float transform) {
  const float fade = std::min(s.fade, 0.5f);
  if (!s.showSolids || !(fade > 0.001f)) return 1.0f;
  if (transform < fade) return transform / fade;
  if (transform > 1.0f - fade) return (1.0f - transform) / fade;
  return 1.0f;
}

Color FirstColor(const ColorGradient& gradient) {
  if (UsableCount(gradient) == 0) return {1.0f, 1.0f, 1.0f};
  return {gradient.stops[0].r, gradient.stops[0].g, gradient.stops[0].b};
}

void SetGeometry(const FrameSettings& s, FrameConstants& frame) {
  frame.centreX = static_cast<float>(s.fullWidth) * 0.5f;
  frame.centreY = static_cast<float>(s.fullHeight) * 0.5f;
  frame.extent = static_cast<float>(std::max(s.fullWidth, s.fullHeight));
  frame.jitter = frame.extent / 4.0f;
  frame.downsampleX = UsableDownsample(s.downsampleX);
  frame.downsampleY = UsableDownsample(s.downsampleY);
  frame.planeA = MakePlaneTransform(s.planeA, frame.centreX, frame.centreY);
  frame.planeB = MakePlaneTransform(s.planeB, frame.centreX, frame.centreY);
}

void SetPath(const FrameSettings& s, FrameConstants& frame) {
  frame.swirl = s.swirlAngle * std::bit_cast<float>(uint32_t{0x3C8EFA36});
  const SineCosine back = SinCos(-frame.swirl);
  frame.unswirlSine = back.sine;
  frame.unswirlCosine = back.cosine;
  frame.pull = std::min(std::fabs(s.scatter), 1.0f);
  frame.hasTurbulence = s.turbulenceAmount > 0.001f;
  frame.hasBell = frame.hasTurbulence || s.scatter != 0.0f;
  frame.turbulence = MakeTurbulenceField(s);
}

}  // namespace

FrameConstants MakeFrameConstants(const Emission& emission, const FrameSettings& s) {
  FrameConstants frame;
  frame.settings = &s;
  frame.source = emission.source.hasPoints ? &emission.source : nullptr;
  frame.target = emission.target.hasPoints ? &emission.target : nullptr;
  frame.transform = Clamp(s.transform, 0.0f, 1.0f);
  frame.stagger = std::min(std::fabs(s.stagger), 1.0f);
  frame.fade = FadeOfParticles(s, frame.transform);
  SetGeometry(s, frame);
  SetPath(s, frame);
  frame.hasTrails = s.shape == SHAPE_CURVE_LINE || s.shape == SHAPE_CURVED_ARROW;
  frame.needsDirection = s.autoOrient;
  frame.solidColor = FirstColor(s.colorGradient);
  return frame;
}

int32_t ParticleCount(const FrameConstants& frame) {
  if (frame.source == nullptr && frame.target == nullptr) return 0;
  return std::clamp(frame.settings->density, 1, kMostParticles);
}

}  // namespace vantle
