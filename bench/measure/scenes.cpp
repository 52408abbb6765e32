#include "bench/measure/scenes.h"

#include "base/elementary.h"
#include "particles/emission.h"
#include "render/rasteriser.h"
#include "tests/reference/dice.h"
#include "tests/reference/product.h"
#include "tests/reference/random_settings.h"

#include <algorithm>
#include <cmath>

namespace vantle::measure {

using reference::Dice;
using reference::Picture;

namespace {

constexpr size_t kTrailPoints = 25;

/// A trail that winds over four sizes.
std::vector<Vec2> Trail(Dice* dice, const ProjectedParticle& head) {
  std::vector<Vec2> trail = {{head.sx, head.sy}};
  float angle = dice->Between(0.0f, 6.28f);
  const float turn = dice->Between(-0.2f, 0.2f);
  const float step = 4.0f * head.size / static_cast<float>(kTrailPoints - 1);
  while (trail.size() < kTrailPoints) {
    trail.push_back({trail.back().x + Cos(angle) * step, trail.back().y + Sin(angle) * step});
    angle += turn;
  }
  return trail;
}

reference::Particle Stamp(Dice* dice, const ShapeVariant& variant, float size, int32_t width,
                          int32_t height) {
  reference::Particle particle;
  ProjectedParticle& p = particle.projected;
  p.sx = dice->Between(0.0f, static_cast<float>(width));
  p.sy = dice->Between(0.0f, static_cast<float>(height));
  p.size = size * dice->Between(0.8f, 1.2f);
  p.lineWidth = 2.0f;
  p.r = dice->Unit();
  p.g = dice->Unit();
  p.b = dice->Unit();
  p.alpha = 0.8f;
  p.cocRadius = variant.blur;
  const bool isLine = variant.shape == SHAPE_LINE || variant.shape == SHAPE_ARROW;
  if (variant.turned || isLine) p.rotZ = dice->Between(0.0f, 360.0f);
  if (variant.turned) {
    p.rotX = dice->Between(-50.0f, 50.0f);
    p.rotY = dice->Between(-50.0f, 50.0f);
  }
  const bool isCurve = variant.shape == SHAPE_CURVE_LINE || variant.shape == SHAPE_CURVED_ARROW;
  if (isCurve) particle.curvePoints = Trail(dice, p);
  return particle;
}

void MakeScene(int32_t width, int32_t height, PixelDepth depth, Scene* scene) {
  scene->layerA = NoiseLayer(width, height, depth, false);
  scene->layerB = NoiseLayer(width, height, depth, true);
  scene->output = {.width = width, .height = height, .depth = depth};
  reference::FrameInput& frame = scene->frame;
  frame.settings = reference::DefaultSettings(width, height);
  frame.settings.transform = 0.5f;
  frame.settings.timeSeconds = 1.0f;
  frame.settings.sizeVariation = 0.2f;
  frame.settings.opacity = 0.8f;
  frame.layerA = frame.input = ViewOf(scene->layerA);
  frame.layerB = ViewOf(scene->layerB);
}

}  // namespace

Picture NoiseLayer(int32_t width, int32_t height, PixelDepth depth, bool feathered) {
  Picture picture = reference::MakePicture({.width = width, .height = height, .depth = depth});
  Dice dice{feathered ? uint64_t{2} : uint64_t{1}};
  for (int32_t y = 0; y < height; ++y) {
    const float dy = static_cast<float>(y) / static_cast<float>(height) - 0.5f;
    for (int32_t x = 0; x < width; ++x) {
      const float dx = static_cast<float>(x) / static_cast<float>(width) - 0.5f;
      const float falloff = std::max(0.0f, 1.2f - 2.0f * std::sqrt(dx * dx + dy * dy));
      const float alpha = feathered ? std::min(1.0f, falloff) : 1.0f;
      reference::SetPixel(picture, x, y, {{alpha, dice.Unit(), dice.Unit(), dice.Unit()}});
    }
  }
  return picture;
}

void MakeDefaultScene(int32_t width, int32_t height, PixelDepth depth, Scene* scene) {
  MakeScene(width, height, depth, scene);
}

void MakeHeavyScene(int32_t width, int32_t height, PixelDepth depth, Scene* scene) {
  MakeScene(width, height, depth, scene);
  FrameSettings& s = scene->frame.settings;
  s.density = 200000;
  s.size = 10.0f;
  s.shape = SHAPE_CIRCLE;
  s.turbulenceType = 1;
  s.turbulenceAmount = 0.1f;
}

void UseAllControls(FrameSettings* s) {
  s->stagger = 0.5f;
  s->scatter = 0.2f;
  s->swirlAngle = 90.0f;
  s->hueVariation = 0.2f;
  s->autoOrient = true;
}

CameraData FrontCamera() {
  CameraData camera;
  camera.hasCamera = true;
  camera.viewMatrix[14] = 1500.0;
  camera.imagePlaneDistance = 1500.0;
  return camera;
}

ParticleList SimulateFrame(const reference::FrameInput& frame) {
  return reference::SimulateWithProduct(frame);
}

void RenderFrame(const reference::FrameInput& frame, Picture* output) {
  const ParticleList list = SimulateFrame(frame);
  RenderParticlesCpu(MutableOf(*output), list.particles.data(), list.count, list.curvePoints, frame.settings,
                     frame.sprites.data(), frame.sprites.size());
}

const std::vector<ShapeVariant>& ShapeVariants() {
  static const std::vector<ShapeVariant> variants = {
      {"soft circle", SHAPE_SOFT_CIRCLE, false, 0.0f, true},
      {"circle", SHAPE_CIRCLE, false, 0.0f, true},
      {"triangle", SHAPE_TRIANGLE, false, 0.0f, true},
      {"square", SHAPE_SQUARE, false, 0.0f, true},
      {"soft circle, turned", SHAPE_SOFT_CIRCLE, true, 0.0f, true},
      {"circle, turned", SHAPE_CIRCLE, true, 0.0f, true},
      {"triangle, turned", SHAPE_TRIANGLE, true, 0.0f, true},
      {"square, turned", SHAPE_SQUARE, true, 0.0f, true},
      {"square, turned, blurred", SHAPE_SQUARE, true, 3.0f, true},
      {"circle, blurred", SHAPE_CIRCLE, false, 3.0f, true},
      {"line", SHAPE_LINE, false, 0.0f, true},
      {"line, flat ends", SHAPE_LINE, false, 0.0f, false},
      {"arrow", SHAPE_ARROW, false, 0.0f, true},
      {"curve line", SHAPE_CURVE_LINE, false, 0.0f, true},
      {"curve line, flat ends", SHAPE_CURVE_LINE, false, 0.0f, false},
      {"curve line, blurred", SHAPE_CURVE_LINE, false, 3.0f, true},
      {"curved arrow", SHAPE_CURVED_ARROW, false, 0.0f, true},
      {"sprite", SHAPE_LAYER, false, 0.0f, true},
      {"sprite, turned", SHAPE_LAYER, true, 0.0f, true},
      {"sprite, blurred", SHAPE_LAYER, false, 3.0f, true},
  };
  return variants;
}

void MakeStamps(const ShapeVariant& variant, size_t count, float size, PixelDepth depth, int32_t width,
                int32_t height, Stamps* stamps) {
  stamps->sprite = NoiseLayer(64, 64, depth, true);
  reference::FrameInput& frame = stamps->frame;
  frame.settings = reference::DefaultSettings(width, height);
  frame.settings.shape = variant.shape;
  frame.settings.roundCap = variant.roundCap;
  frame.sprites = {ViewOf(stamps->sprite)};
  Dice dice{7};
  stamps->plain.clear();
  for (size_t i = 0; i < count; ++i) stamps->plain.push_back(Stamp(&dice, variant, size, width, height));
  stamps->list = reference::ListOf(stamps->plain);
}

}  // namespace vantle::measure
