// A slow, obvious renderer of a whole frame, the judge of the fast one: point lists, float images, one
// particle after another, one pixel after another. It shares with the product the records of its interface
// and the elementary functions, and not one formula more.
#pragma once

#include "base/image_view.h"
#include "particles/frame_settings.h"
#include "particles/projected_particle.h"
#include "tests/reference/layer_points.h"

#include <vector>

namespace vantle::reference {

struct FrameInput {
  FrameSettings settings{};
  CameraData camera;
  ImageView input;   ///< the effect's own layer
  ImageView layerA;  ///< data null for none
  ImageView layerB;
  std::vector<ImageView> sprites;
};

struct Particle {
  ProjectedParticle projected{};
  std::vector<Vec2> curvePoints;
  int32_t index = 0;  ///< the particle's index before culling and sorting
};

/// The points of both layers; the effect's own layer stands in for an empty first one.
Layers LayersOf(const FrameInput& frame);

/// Visible particles in painter's order, scaled for preview.
std::vector<Particle> Simulate(const FrameInput& frame);

/// Draws them over transparent black.
void Rasterise(const FrameInput& frame, const std::vector<Particle>& particles, const MutableImage& output);

/// The whole frame.
void Render(const FrameInput& frame, const MutableImage& output);

}  // namespace vantle::reference
