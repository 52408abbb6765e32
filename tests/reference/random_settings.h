// Random values for every control and for the camera.
#pragma once

#include "particles/frame_settings.h"
#include "tests/reference/dice.h"

namespace vantle::reference {

/// Each control keeps its default or takes a random value of its range; sizes and preview factors are those
/// of an output of this size.
FrameSettings RandomSettings(Dice& dice, int32_t outputWidth, int32_t outputHeight);

/// The defaults of every control at full resolution.
FrameSettings DefaultSettings(int32_t outputWidth, int32_t outputHeight);

/// Spoils a few controls, the curves or the gradient with values that no control allows.
void SpoilSettings(Dice& dice, FrameSettings& settings);

CameraData RandomCamera(Dice& dice, const FrameSettings& settings);

}  // namespace vantle::reference
