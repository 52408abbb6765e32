// Frames that together reach every shape, transfer mode, depth, kind of turbulence, time type and colour
// mode, with and without camera, solid layers and layers as particles. They depend on nothing but their
// number.
#pragma once

#include "host/engine/effect.h"
#include "host/engine/frame_request.h"

#include <string>

namespace vantle::host {

/// Every shape meets every transfer mode once.
inline constexpr int kVariedFrames = 72;

/// Frame `number`, 0..kVariedFrames - 1.
FrameRequest VariedFrame(const EffectInstance& effect, int number);

/// One line on the frame: its number, what it varies, and the sum over its rendered pixels. When the effect
/// fails or complains, the line says so instead of a sum.
std::string RenderedLine(EffectInstance& effect, int number);

}  // namespace vantle::host
