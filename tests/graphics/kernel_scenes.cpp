#include "tests/graphics/kernel_scenes.h"

#include "render/rasteriser.h"
#include "tests/reference/dice.h"

#include <algorithm>
#include <cstring>
#include <stdexcept>

namespace vantle::test {

namespace {

using reference::Dice;

float RollSize(Dice* dice) {
  switch (dice->Below(5)) {
    case 0:
      return dice->Below(3) == 0 ? 0.0f : dice->Between(0.0f, 2.0f);
    case 1:
      return dice->Between(30.0f, 90.0f);
    default:
      return dice->Between(2.0f, 20.0f);
  }
}

float RollColor(Dice* dice) {
  switch (dice->Below(8)) {
    case 0:
      return 0.0f;
    case 1:
      return 1.0f;
    case 2:
      return dice->Between(0.0f, 0.002f);
    default:
      return dice->Between(0.0f, 1.0f);
  }
}

float RollAlpha(Dice* dice) {
  switch (dice->Below(8)) {
    case 0:
      return 1.0f;
    case 1:
      return dice->Between(0.0f, 0.003f);
    default:
      return dice->Between(0.05f, 1.0f);
  }
}

ProjectedParticle RollParticle(Dice* dice, FrameSize size) {
  ProjectedParticle p{};
  p.sx = dice->Between(-25.0f, static_cast<float>(size.width) + 25.0f);
  p.sy = dice->Between(-25.0f, static_cast<float>(size.height) + 25.0f);
  p.size = RollSize(dice);
  p.lineWidth = dice->Below(8) == 0 ? 0.0f : dice->Between(0.2f, 12.0f);
  p.r = RollColor(dice);
  p.g = RollColor(dice);
  p.b = RollColor(dice);
  p.alpha = RollAlpha(dice);
  const bool upright = dice->Below(3) == 0;
  p.rotX = upright ? 0.0f : dice->Between(-100.0f, 100.0f);
  p.rotY = upright ? 0.0f : dice->Between(-100.0f, 100.0f);
  p.rotZ = upright ? 0.0f : dice->Between(-400.0f, 400.0f);
  p.cocRadius = dice->Below(2) == 0 ? 0.0f : dice->Between(0.0f, 8.0f);
  p.spriteFrame = -1;
  return p;
}

}  // namespace

const char* ShapeName(int32_t shape) {
  switch (shape) {
    case SHAPE_POINT:
      return "point";
    case SHAPE_CIRCLE:
      return "circle";
    case SHAPE_SOFT_CIRCLE:
      return "soft circle";
    case SHAPE_TRIANGLE:
      return "triangle";
    case SHAPE_SQUARE:
      return "square";
    case SHAPE_LINE:
      return "line";
    case SHAPE_ARROW:
      return "arrow";
    default:
      return "other";
  }
}

const char* ModeName(int32_t mode) {
  switch (mode) {
    case BLEND_NORMAL:
      return "Normal";
    case BLEND_ADD:
      return "Add";
    case BLEND_SCREEN:
      return "Screen";
    case BLEND_MULTIPLY:
      return "Multiply";
    case BLEND_OVERLAY:
      return "Overlay";
    case BLEND_SOFT_LIGHT:
      return "Soft Light";
    case BLEND_HARD_LIGHT:
      return "Hard Light";
    case BLEND_COLOR_BURN:
      return "Color Burn";
    default:
      return "other";
  }
}

KernelScene MakeKernelScene(int32_t shape, int32_t mode, bool roundCap, FrameSize size, uint32_t seed) {
  constexpr int kParticles = 60;
  Dice dice{seed};
  KernelScene scene{shape, mode, roundCap, size, {}};
  for (int i = 0; i < kParticles; ++i) {
    scene.particles.push_back(RollParticle(&dice, size));
    ProjectedParticle& p = scene.particles.back();
    // An arrow of no length fills its box, and the renderers round boxes to pixels each in its own way.
    if (shape == SHAPE_ARROW) p.size = std::max(p.size, 0.25f);
  }
  return scene;
}

KernelInput MakeKernelInput(const KernelScene& scene, bool useTiles) {
  KernelInput input;
  input.particles.resize(scene.particles.size());
  for (size_t i = 0; i < scene.particles.size(); ++i) {
    std::memcpy(&input.particles[i], &scene.particles[i], sizeof(kernel::Particle));
  }
  if (!BinParticles(input.particles.data(), input.particles.size(), scene.shape, scene.size.width,
                    scene.size.height, &input.lists)) {
    throw std::runtime_error("the particles do not fit the tile lists");
  }
  input.params = {.g_width = scene.size.width,
                  .g_height = scene.size.height,
                  .g_numParticles = static_cast<int32_t>(input.particles.size()),
                  .g_partShape = scene.shape,
                  .g_blendMode = scene.mode,
                  .g_roundCap = scene.roundCap ? 1 : 0,
                  .g_tilesX = input.lists.tilesX,
                  .g_tilesY = input.lists.tilesY,
                  .g_tileSize = kTileSize,
                  .g_useTiles = useTiles ? 1 : 0};
  return input;
}

std::vector<float> DrawOnProcessor(const KernelScene& scene) {
  const size_t rowFloats = static_cast<size_t>(scene.size.width) * 4;
  std::vector<float> pixels(rowFloats * static_cast<size_t>(scene.size.height));
  FrameSettings settings{};
  settings.shape = scene.shape;
  settings.transferMode = scene.mode;
  settings.roundCap = scene.roundCap;
  const MutableImage image{reinterpret_cast<std::byte*>(pixels.data()),
                           static_cast<int64_t>(rowFloats * sizeof(float)), scene.size.width,
                           scene.size.height, PixelDepth::k32};
  RenderParticlesCpu(image, scene.particles.data(), scene.particles.size(), CurvePointPool{}, settings,
                     nullptr, 0);
  return pixels;
}

}  // namespace vantle::test
