// One exact frame from a file: just what a host hands over, for tests and bug reports.
#pragma once

#include "host/engine/frame_request.h"

#include <string>

namespace vantle::scene {

/// Reads FRAME.json and its worlds into a request for `effect`. Nothing is scaled, clamped or guessed: sizes
/// are those at the current resolution, parameter values are as the user sees them and may lie outside of
/// their ranges, angles go to 16.16 fixed point rounded to nearest. An unknown key, a wrong type, a missing
/// world or one of another depth throws Failure (kUnreadableInput).
host::FrameRequest ReadFrameRequest(const std::string& path, const host::EffectInstance& effect);

}  // namespace vantle::scene
