// The turbulence field: octaves of a seeded gradient noise, turned into a flow.
#pragma once

#include "base/vec.h"
#include "particles/frame_settings.h"

namespace vantle::reference {

/// Displacement in pixels at a point of the composition; zero below an amount of 0.001.
Vec3 TurbulenceAt(float px, float py, const FrameSettings& settings);

}  // namespace vantle::reference
