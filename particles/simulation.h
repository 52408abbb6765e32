// From weighted layers to a list of particles on the screen.
#pragma once

#include "base/buffer.h"
#include "particles/emission.h"
#include "particles/frame_settings.h"
#include "particles/projected_particle.h"

#include <cstddef>

namespace vantle {

/// The visible particles of a frame.
struct ParticleList {
  Buffer<ProjectedParticle> particles;  ///< the first `count` are valid
  size_t count = 0;
  CurvePointPool curvePoints;  ///< filled for the two curved shapes only
};

/// Simulates and projects every particle, and keeps the visible ones in index order. A particle whose depth,
/// position or size is not finite is not kept. The result does not depend on the number of threads. Throws
/// std::bad_alloc, outside of parallel regions only.
ParticleList SimulateParticles(const Emission& emission, const FrameSettings& settings,
                               const CameraData& camera);

/// Orders the list back to front, the painter's order of every renderer. Equal depths (-0 and +0 are equal)
/// keep index order. Throws std::bad_alloc.
void SortBackToFront(ParticleList* list);

/// Scales positions and sizes from full-resolution pixels to those of a reduced preview.
void ScaleToPreview(const FrameSettings& settings, ParticleList* list);

}  // namespace vantle
