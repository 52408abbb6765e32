// From the world to the screen.
#pragma once

#include "particles/frame_settings.h"
#include "tests/reference/motion.h"
#include "tests/reference/reference_renderer.h"

#include <optional>

namespace vantle::reference {

/// How a frame is looked at.
struct View {
  const FrameSettings& settings;
  const CameraData& camera;
  float focal;  ///< distance of the eye without a camera, pixels; unused for a view without perspective
};
View ViewOfFrame(const FrameSettings& settings, const CameraData& camera);

/// The particle as the renderers see it, in full-resolution pixels; nothing when it cannot be seen.
std::optional<Particle> Project(const WorldParticle& particle, const View& view);

}  // namespace vantle::reference
