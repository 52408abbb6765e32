// Seeded random frames that together reach every control, shape, mode, depth and layout.
#pragma once

#include "tests/reference/picture.h"
#include "tests/reference/reference_renderer.h"

#include <cstdint>
#include <memory>
#include <vector>

namespace vantle::reference {

/// A frame and the memory that its views point into; not to be copied.
struct Scene {
  FrameInput frame;
  Layout output;
  std::vector<std::unique_ptr<Picture>> pictures;

  Scene() = default;
  Scene(Scene&&) = default;
  Scene& operator=(Scene&&) = default;
};

/// How wild a frame may be.
enum class Nature {
  kTame,     ///< values that the controls allow
  kHostile,  ///< one control or another at values that only broken projects hold
};

Scene RandomScene(uint64_t seed, Nature nature);

/// Finite particles for the rasteriser alone: `frame.settings` says how they are drawn.
std::vector<Particle> RandomParticles(uint64_t seed, const Scene& scene);

}  // namespace vantle::reference
