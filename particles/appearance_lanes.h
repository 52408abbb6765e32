// Colours, opacities, sizes and rotations on lanes. Included after a lanes_*.h.
#pragma once

#include "particles/appearance.h"
#include "particles/elementary_lanes.h"
#include "particles/life_lanes.h"
#include "particles/streams_lanes.h"

#include <cstdint>

namespace vantle {
namespace {

// ---- Colour ----

inline ColorLanes EmitterColors(const ParticleLanes& lanes, int32_t l) {
  const ColorLanes from = {Load(lanes.fromR + l), Load(lanes.fromG + l), Load(lanes.fromB + l)};
  if (!lanes.hasTarget) return from;
  const ColorLanes to = {Load(lanes.toR + l), Load(lanes.toG + l), Load(lanes.toB + l)};
  const Floats p = Load(lanes.progress + l);
  return {from.r + (to.r - from.r) * p, from.g + (to.g - from.g) * p, from.b + (to.b - from.b) * p};
}

inline ColorLanes ColorsOf(const FrameConstants& frame, const ParticleLanes& lanes, int32_t l) {
  const FrameSettings& s = *frame.settings;
  switch (s.colorMode) {
    case COLOR_FROM_EMITTER:
      return EmitterColors(lanes, l);
    case COLOR_OVER_LIFE:
      return GradientOf(s.colorGradient, Load(lanes.progress + l));
    case COLOR_RANDOM_OVER_LIFE:
      return GradientOf(s.colorGradient, Units(LoadInts(lanes.key + l), kSaltGradient));
    default:
      return {frame.solidColor.r, frame.solidColor.g, frame.solidColor.b};
  }
}

/// Hues in degrees of colours with the largest channel `value` and the given chroma.
inline Floats HuesOf(const ColorLanes& c, Floats value, Floats chroma) {
  const Mask grey = chroma < 0.001f, red = AndNot(grey, value == c.r);
  const Floats ofRed = 60.0f * FmodOf(Select(red, (c.g - c.b) / chroma + 6.0f, 0.0f), 6.0f);
  const Floats ofGreen = 60.0f * (c.b - c.r) / chroma + 120.0f;
  const Floats ofBlue = 60.0f * (c.r - c.g) / chroma + 240.0f;
  return Select(grey, 0.0f, Select(red, ofRed, Select(value == c.g, ofGreen, ofBlue)));
}

/// Back from the hue in sixths of the circle: k is the chroma, x the channel between.
inline ColorLanes SextantColors(Floats h, Floats k, Floats x) {
  const Floats zero = 0.0f;
  ColorLanes c = {k, zero, x};
  c = SelectColors(h < 5.0f, {x, zero, k}, c);
  c = SelectColors(h < 4.0f, {zero, x, k}, c);
  c = SelectColors(h < 3.0f, {zero, k, x}, c);
  c = SelectColors(h < 2.0f, {x, k, zero}, c);
  return SelectColors(h < 1.0f, {k, x, zero}, c);
}

/// Turns the colours' hues by `degrees`; saturation and value stay.
inline ColorLanes ShiftHues(const ColorLanes& c, Floats degrees) {
  const Floats value = Max(Max(c.r, c.g), c.b);
  const Floats chroma = value - Min(Min(c.r, c.g), c.b);
  const Floats saturation = Select(0.001f < value, chroma / value, 0.0f);
  const Floats hue = FmodOf(HuesOf(c, value, chroma) + degrees + 360.0f, 360.0f);
  const Floats h = FmodOf(hue * 0.016666668f, 6.0f);
  const Floats k = value * saturation;
  const Floats x = k * (1.0f - Abs(FmodOf(h, 2.0f) - 1.0f));
  const Floats rest = value - k;
  const ColorLanes turned = SextantColors(h, k, x);
  return {turned.r + rest, turned.g + rest, turned.b + rest};
}

inline void ShiftHueLanes(float degrees, AppearanceLanes* looks) {
  for (int32_t l = 0; l < kLanes; l += kWidth) {
    const ColorLanes c = ShiftHues({Load(looks->r + l), Load(looks->g + l), Load(looks->b + l)}, degrees);
    Store(looks->r + l, c.r);
    Store(looks->g + l, c.g);
    Store(looks->b + l, c.b);
  }
}

// ---- Size, opacity, rotation ----

/// Values varied by up to +-variation of themselves, and at least 0.5.
inline Floats Varied(Ints key, StreamSalt salt, float variation, float value) {
  return Max((SignedUnits(key, salt) * variation + 1.0f) * value, 0.5f);
}

inline void SizesOfLanes(const FrameConstants& frame, const ParticleLanes& lanes, float* sizes) {
  const FrameSettings& s = *frame.settings;
  for (int32_t l = 0; l < kLanes; l += kWidth) {
    const Floats base = Varied(LoadInts(lanes.key + l), kSaltSize, s.sizeVariation, s.size);
    Store(sizes + l, Max(base * CurveOf(s.scaleOverLife, Load(lanes.progress + l)), 0.5f));
  }
}

inline Floats OpacitiesOf(const FrameConstants& frame, Ints key, Floats progress) {
  const FrameSettings& s = *frame.settings;
  const Floats varied = 1.0f - Units(key, kSaltOpacity) * s.opacityVariation;
  return ClampLanes(varied * s.opacity * CurveOf(s.opacityOverLife, progress) * frame.fade, 0.0f, 1.0f);
}

inline Floats RotationsOf(const FrameSettings& s, int32_t axis, StreamSalt salt, Ints key, Floats progress) {
  return SignedUnits(key, salt) * s.rotationVariation[axis] + s.rotation[axis] + progress * s.spin[axis];
}

inline void AppearanceOfLanes(const FrameConstants& frame, const ParticleLanes& lanes, AppearanceLanes* out) {
  const FrameSettings& s = *frame.settings;
  for (int32_t l = 0; l < kLanes; l += kWidth) {
    const Ints key = LoadInts(lanes.key + l);
    const Floats progress = Load(lanes.progress + l);
    ColorLanes c = ColorsOf(frame, lanes, l);
    if (s.hueVariation > 0.001f) {
      const Floats offset = StreamValues(key, kSaltHue) * kHueFactor - 360.0f;
      c = ShiftHues(c, offset * s.hueVariation);
    }
    Store(out->r + l, c.r);
    Store(out->g + l, c.g);
    Store(out->b + l, c.b);
    Store(out->opacity + l, OpacitiesOf(frame, key, progress));
    Store(out->lineWidth + l, Varied(key, kSaltLineWidth, s.lineWidthVariation, s.lineWidth));
    Store(out->random + l, Units(key, kSaltRandom));
    Store(out->rotX + l, RotationsOf(s, 0, kSaltRotationX, key, progress));
    Store(out->rotY + l, RotationsOf(s, 1, kSaltRotationY, key, progress));
    Store(out->rotZ + l, RotationsOf(s, 2, kSaltRotationZ, key, progress));
  }
  SizesOfLanes(frame, lanes, out->size);
}

}  // namespace
}  // namespace vantle
