// How a particle's colour is laid over what lies beneath it. The same rules as the coverage's hold: plain
// float32 expressions in the written order, shared by every renderer. The destination is a `Real`; the source
// is a float for the particle's one colour, or as many as the destination for a picture's.
#pragma once

#include "particles/frame_settings.h"
#include "render/kernel_math.h"

namespace vantle::kernel {

/// 1 - (1 - s)(1 - d).
template <class Source, class Real>
inline Real screenChannel(Source s, Real d) {
  return 1.0f - (1.0f - s) * (1.0f - d);
}

/// 2 s d where the deciding channel is below a half, else 1 - 2 (1 - s)(1 - d). The destination decides in
/// Overlay, the source in Hard Light.
template <class Source, class Real, class Decider>
inline Real hardChannel(Source s, Real d, Decider deciding) {
  return select(deciding < 0.5f, 2.0f * s * d, 1.0f - 2.0f * (1.0f - s) * (1.0f - d));
}

/// s < 0.5: d - (1 - 2s) d (1 - d), else d + (2s - 1)(sqrt(d) - d); a negative d counts as 0 under the root.
template <class Source, class Real>
inline Real softLightChannel(Source s, Real d) {
  const Real darker = d - (1.0f - 2.0f * s) * d * (1.0f - d);
  const Real lighter = d + (2.0f * s - 1.0f) * (sqrt(max(d, 0.0f)) - d);
  return select(s < 0.5f, darker, lighter);
}

/// s < 0.001: 0, else max(0, 1 - (1 - d) / s).
template <class Source, class Real>
inline Real colorBurnChannel(Source s, Real d) {
  const Real burnt = max(0.0f, 1.0f - (1.0f - d) / s);
  return select(s < 0.001f, 0.0f, burnt);
}

/// `blendChannel`: the transfer mode's result for source s over destination d; Normal gives s, so does an
/// unknown mode. Add is not limited.
template <class Source, class Real>
inline Real blendChannel(Source s, Real d, int mode) {
  if (mode == BLEND_ADD) return d + s;
  if (mode == BLEND_SCREEN) return screenChannel(s, d);
  if (mode == BLEND_MULTIPLY) return s * d;
  if (mode == BLEND_OVERLAY) return hardChannel(s, d, d);
  if (mode == BLEND_SOFT_LIGHT) return softLightChannel(s, d);
  if (mode == BLEND_HARD_LIGHT) return hardChannel(s, d, s);
  if (mode == BLEND_COLOR_BURN) return colorBurnChannel(s, d);
  return s;
}

/// Whether the mode looks at the destination's colour.
inline bool isMixing(int mode) {
  return mode >= BLEND_ADD && mode <= BLEND_COLOR_BURN;
}

/// One channel of `blendPixel`: b = s + dstA (blend(s, d) - s), then (b srcA + d dstA (1 - srcA)) / outA.
/// Normal has b = s.
template <class Source, class Real>
inline Real overChannel(Source s, Real srcA, Real d, Real dstA, Real outA, int mode) {
  Real b = s;
  if (isMixing(mode)) b = s + dstA * (blendChannel(s, d, mode) - s);
  return (b * srcA + d * dstA * (1.0f - srcA)) / outA;
}

/// `blendPixel`: lays straight colour src over straight colour dst. outA = srcA + dstA (1 - srcA). A source
/// alpha below 0.001 changes nothing; where outA is not above 0.001 the colour stays as it was.
template <class Source, class Real>
inline void blendPixel(Source srcR, Source srcG, Source srcB, Real srcA, Real& dstR, Real& dstG, Real& dstB,
                       Real& dstA, int mode) {
  const Real outA = srcA + dstA * (1.0f - srcA);
  const Real outR = overChannel(srcR, srcA, dstR, dstA, outA, mode);
  const Real outG = overChannel(srcG, srcA, dstG, dstA, outA, mode);
  const Real outB = overChannel(srcB, srcA, dstB, dstA, outA, mode);
  dstR = select(both(srcA >= 0.001f, outA > 0.001f), outR, dstR);
  dstG = select(both(srcA >= 0.001f, outA > 0.001f), outG, dstG);
  dstB = select(both(srcA >= 0.001f, outA > 0.001f), outB, dstB);
  dstA = select(srcA >= 0.001f, outA, dstA);
}

}  // namespace vantle::kernel
