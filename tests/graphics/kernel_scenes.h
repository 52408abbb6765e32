// Small frames for the compute shader: every shape, transfer mode, line end and way of walking the particles.
// The same seed gives the same frame on every system.
#pragma once

#include "particles/frame_settings.h"
#include "particles/projected_particle.h"
#include "render/graphics/render_params.h"
#include "render/graphics/tile_binning.h"

#include <cstdint>
#include <vector>

namespace vantle::test {

struct FrameSize {
  int32_t width;
  int32_t height;
};

/// One pixel, whole groups of threads, and sizes that fill neither a group nor a tile.
inline constexpr FrameSize kFrameSizes[] = {{1, 1}, {32, 32}, {33, 17}, {97, 70}};

/// The shapes that the kernel draws.
inline constexpr int32_t kKernelShapes[] = {SHAPE_POINT,  SHAPE_CIRCLE, SHAPE_SOFT_CIRCLE, SHAPE_TRIANGLE,
                                            SHAPE_SQUARE, SHAPE_LINE,   SHAPE_ARROW};
const char* ShapeName(int32_t shape);

/// The transfer modes; the last is none of them and counts as Normal.
inline constexpr int32_t kKernelModes[] = {BLEND_NORMAL,     BLEND_ADD,        BLEND_SCREEN,
                                           BLEND_MULTIPLY,   BLEND_OVERLAY,    BLEND_SOFT_LIGHT,
                                           BLEND_HARD_LIGHT, BLEND_COLOR_BURN, 9};
const char* ModeName(int32_t mode);

struct KernelScene {
  int32_t shape = SHAPE_CIRCLE;
  int32_t mode = BLEND_NORMAL;
  bool roundCap = false;
  FrameSize size{};
  std::vector<ProjectedParticle> particles;
};

/// Particles of all sizes, from nothing to larger than the frame, tilted, spun and blurred, in the frame and
/// around it; faint ones among them, and colours at the ends of their range.
KernelScene MakeKernelScene(int32_t shape, int32_t mode, bool roundCap, FrameSize size, uint32_t seed);

/// What the kernel is given for a scene.
struct KernelInput {
  RenderParamsCB params{};
  std::vector<kernel::Particle> particles;
  TileLists lists;
};
KernelInput MakeKernelInput(const KernelScene& scene, bool useTiles);

/// The frame as the processor's rasteriser draws it: four floats a pixel, alpha, red, green, blue.
std::vector<float> DrawOnProcessor(const KernelScene& scene);

}  // namespace vantle::test
