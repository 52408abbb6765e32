// From the world to the screen.
#pragma once

#include "particles/frame_settings.h"
#include "tests/reference/motion.h"
#include "tests/reference/reference_renderer.h"

#include <optional>

namespace vantle::reference {

/// The particle as the renderers see it, in full-resolution pixels; nothing when it cannot be seen.
std::optional<Particle> Project(const WorldParticle& particle, const FrameSettings& settings,
                                const CameraData& camera);

}  // namespace vantle::reference
