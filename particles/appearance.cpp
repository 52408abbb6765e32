#include "particles/appearance.h"

#include "base/elementary_inline.h"
#include "base/numeric.h"
#include "particles/particle_streams.h"

#include <algorithm>
#include <cmath>

namespace vantle {
namespace {

enum ColorModeId : int32_t {
  COLOR_SOLID = 1,
  COLOR_FROM_EMITTER = 2,
  COLOR_OVER_LIFE = 3,
  COLOR_RANDOM_OVER_LIFE = 4,
};

// ---- Colour ----

void SetColor(AppearanceLanes* out, int32_t l, const Color& color) {
  out->r[l] = color.r;
  out->g[l] = color.g;
  out->b[l] = color.b;
}

void SetEmitterColors(const ParticleLanes& lanes, AppearanceLanes* out) {
  for (int32_t l = 0; l < kLanes; ++l) {
    const Color from = {lanes.fromR[l], lanes.fromG[l], lanes.fromB[l]};
    if (!lanes.hasTarget) {
      SetColor(out, l, from);
      continue;
    }
    const float p = lanes.progress[l];
    SetColor(out, l,
             {from.r + (lanes.toR[l] - from.r) * p, from.g + (lanes.toG[l] - from.g) * p,
              from.b + (lanes.toB[l] - from.b) * p});
  }
}

void SetColors(const FrameConstants& frame, const ParticleLanes& lanes, AppearanceLanes* out) {
  const FrameSettings& s = *frame.settings;
  if (s.colorMode == COLOR_FROM_EMITTER) return SetEmitterColors(lanes, out);
  for (int32_t l = 0; l < kLanes; ++l) {
    if (s.colorMode == COLOR_OVER_LIFE) {
      SetColor(out, l, EvaluateGradient(s.colorGradient, lanes.progress[l]));
    } else if (s.colorMode == COLOR_RANDOM_OVER_LIFE) {
      SetColor(out, l, EvaluateGradient(s.colorGradient, Unit(lanes.key[l], kSaltGradient)));
    } else {
      SetColor(out, l, frame.solidColor);
    }
  }
}

/// Hue in degrees of a colour with the largest channel `value` and the given chroma.
float HueOf(const Color& c, float value, float chroma) {
  if (chroma < 0.001f) return 0.0f;
  if (value == c.r) return 60.0f * FmodInline((c.g - c.b) / chroma + 6.0f, 6.0f);
  if (value == c.g) return 60.0f * (c.b - c.r) / chroma + 120.0f;
  return 60.0f * (c.r - c.g) / chroma + 240.0f;
}

// ---- Opacity, size, rotation ----

void SetOpacities(const FrameConstants& frame, const ParticleLanes& lanes, AppearanceLanes* out) {
  const FrameSettings& s = *frame.settings;
  for (int32_t l = 0; l < kLanes; ++l) {
    const float varied = 1.0f - Unit(lanes.key[l], kSaltOpacity) * s.opacityVariation;
    const float curve = EvaluateLifeCurve(s.opacityOverLife, lanes.progress[l]);
    out->opacity[l] = Clamp(varied * s.opacity * curve * frame.fade, 0.0f, 1.0f);
  }
}

/// A value varied by up to +-variation of itself, and at least 0.5.
float Varied(uint32_t key, StreamSalt salt, float variation, float value) {
  return std::max((SignedUnit(key, salt) * variation + 1.0f) * value, 0.5f);
}

void SetRotation(const FrameSettings& s, int32_t axis, StreamSalt salt, const ParticleLanes& lanes,
                 float* out) {
  for (int32_t l = 0; l < kLanes; ++l) {
    out[l] = SignedUnit(lanes.key[l], salt) * s.rotationVariation[axis] + s.rotation[axis] +
             lanes.progress[l] * s.spin[axis];
  }
}

}  // namespace

Color ShiftHue(const Color& c, float degrees) {
  const float value = std::max({c.r, c.g, c.b});
  const float chroma = value - std::min({c.r, c.g, c.b});
  const float saturation = value > 0.001f ? chroma / value : 0.0f;
  const float hue = FmodInline(HueOf(c, value, chroma) + degrees + 360.0f, 360.0f);

  // Back from hue, saturation and value: k is the chroma, x the channel between, the rest lies below by k.
  const float h = FmodInline(hue * 0.016666668f, 6.0f);
  const float k = value * saturation;
  const float x = k * (1.0f - std::fabs(FmodInline(h, 2.0f) - 1.0f));
  const float rest = value - k;
  Color turned = {k, 0.0f, x};
  if (h < 1.0f) {
    turned = {k, x, 0.0f};
  } else if (h < 2.0f) {
    turned = {x, k, 0.0f};
  } else if (h < 3.0f) {
    turned = {0.0f, k, x};
  } else if (h < 4.0f) {
    turned = {0.0f, x, k};
  } else if (h < 5.0f) {
    turned = {x, 0.0f, k};
  }
  return {turned.r + rest, turned.g + rest, turned.b + rest};
}

void EvaluateSizes(const FrameConstants& frame, const ParticleLanes& lanes, float* sizes) {
  const FrameSettings& s = *frame.settings;
  for (int32_t l = 0; l < kLanes; ++l) {
    const float base = Varied(lanes.key[l], kSaltSize, s.sizeVariation, s.size);
    sizes[l] = std::max(base * EvaluateLifeCurve(s.scaleOverLife, lanes.progress[l]), 0.5f);
  }
}

void EvaluateAppearance(const FrameConstants& frame, const ParticleLanes& lanes, AppearanceLanes* out) {
  const FrameSettings& s = *frame.settings;
  SetColors(frame, lanes, out);
  if (s.hueVariation > 0.001f) {
    for (int32_t l = 0; l < kLanes; ++l) {
      const float degrees = HueOffset(lanes.key[l], kSaltHue) * s.hueVariation;
      SetColor(out, l, ShiftHue({out->r[l], out->g[l], out->b[l]}, degrees));
    }
  }
  SetOpacities(frame, lanes, out);
  EvaluateSizes(frame, lanes, out->size);
  for (int32_t l = 0; l < kLanes; ++l) {
    out->lineWidth[l] = Varied(lanes.key[l], kSaltLineWidth, s.lineWidthVariation, s.lineWidth);
    out->random[l] = Unit(lanes.key[l], kSaltRandom);
  }
  SetRotation(s, 0, kSaltRotationX, lanes, out->rotX);
  SetRotation(s, 1, kSaltRotationY, lanes, out->rotY);
  SetRotation(s, 2, kSaltRotationZ, lanes, out->rotZ);
}

}  // namespace vantle
