// The graphics processor's road of a frame.
#pragma once

#include "base/image_view.h"
#include "particles/frame_settings.h"
#include "particles/projected_particle.h"

#include <cstddef>

namespace vantle {

/// Whether the kernel knows the shape. Trails and sprites are the processor's.
inline bool IsGpuShape(int32_t shape) {
  return shape != SHAPE_CURVE_LINE && shape != SHAPE_CURVED_ARROW && shape != SHAPE_LAYER;
}

/// Draws the particles over transparent black in list order, on the graphics processor. False when it could
/// not, for whatever reason; the output is then as it was, and the processor draws the frame. Throws
/// std::bad_alloc.
bool DrawParticlesGpu(const MutableImage& output, const ProjectedParticle* particles, size_t count,
                      const FrameSettings& settings);

}  // namespace vantle
