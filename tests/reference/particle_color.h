// The colour of one particle.
#pragma once

#include "particles/frame_settings.h"
#include "tests/reference/layer_points.h"

#include <cstdint>

namespace vantle::reference {

/// Colour at progress p, with the particle's own shift of hue. `target` is null for none.
Color ColorOf(const Point& emitter, const Point* target, uint32_t key, float p,
              const FrameSettings& settings);

}  // namespace vantle::reference
