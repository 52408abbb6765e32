// The frames and particles that are measured.
#pragma once

#include "particles/simulation.h"
#include "tests/reference/picture.h"
#include "tests/reference/reference_renderer.h"

#include <cstdint>
#include <string>
#include <vector>

namespace vantle::measure {

/// Two layers as large as the output, A opaque and B feathered, and a frame half-way between them.
struct Scene {
  reference::Picture layerA, layerB;
  reference::FrameInput frame;
  reference::Layout output;

  Scene() = default;
  Scene(const Scene&) = delete;
  Scene& operator=(const Scene&) = delete;
};

/// 20,000 soft circles of size 4 +- 20 %, opacity 80 %.
void MakeDefaultScene(int32_t width, int32_t height, PixelDepth depth, Scene* scene);

/// 200,000 circles of size 10 +- 20 %, curl turbulence 10 %.
void MakeHeavyScene(int32_t width, int32_t height, PixelDepth depth, Scene* scene);

/// Stagger, scatter, swirl, hue and auto-orient on top.
void UseAllControls(FrameSettings* settings);

/// A camera in front of the frame, without depth of field.
CameraData FrontCamera();

/// Noise; opaque, or with an alpha that falls off towards the edges.
reference::Picture NoiseLayer(int32_t width, int32_t height, PixelDepth depth, bool feathered);

/// Everything but drawing, by the product.
ParticleList SimulateFrame(const reference::FrameInput& frame);

/// The whole frame, by the product.
void RenderFrame(const reference::FrameInput& frame, reference::Picture* output);

/// Random particles for the rasteriser alone, with sprites and trails to draw them by.
struct Stamps {
  reference::Picture sprite;
  reference::FrameInput frame;
  std::vector<reference::Particle> plain;
  ParticleList list;

  Stamps() = default;
  Stamps(const Stamps&) = delete;
  Stamps& operator=(const Stamps&) = delete;
};

/// A way to draw a shape.
struct ShapeVariant {
  std::string name;
  int32_t shape;
  bool turned;  ///< turned about all three axes
  float blur;   ///< radius, pixels
  bool roundCap;
};
const std::vector<ShapeVariant>& ShapeVariants();

void MakeStamps(const ShapeVariant& variant, size_t count, float size, PixelDepth depth, int32_t width,
                int32_t height, Stamps* stamps);

}  // namespace vantle::measure
