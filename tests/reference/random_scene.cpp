#include "tests/reference/random_scene.h"

#include "base/elementary.h"
#include "tests/reference/dice.h"
#include "tests/reference/random_layers.h"
#include "tests/reference/random_settings.h"

#include <utility>

namespace vantle::reference {
namespace {

ImageView Keep(Scene& scene, Picture picture) {
  scene.pictures.push_back(std::make_unique<Picture>(std::move(picture)));
  return ViewOf(*scene.pictures.back());
}

// A layer about as large as the output, or of a size of its own, or none.
ImageView RandomLayer(Dice& dice, Scene& scene, float missing, bool hostile) {
  if (dice.Chance(missing)) return {};
  Layout layout = RandomLayout(dice, 90);
  if (dice.Chance(0.01f)) {
    layout.width = dice.Range(300, 900);
    layout.height = dice.Range(100, 400);
  } else if (dice.Chance(0.5f)) {
    layout.width = scene.output.width;
    layout.height = scene.output.height;
  }
  if (dice.Chance(0.8f)) layout.depth = scene.output.depth;
  return Keep(scene, RandomPicture(dice, layout, hostile));
}

Particle RandomParticle(Dice& dice, const Layout& output) {
  const float w = static_cast<float>(output.width);
  const float h = static_cast<float>(output.height);
  Particle particle;
  ProjectedParticle& p = particle.projected;
  p.sx = dice.Chance(0.2f) ? static_cast<float>(dice.Below(output.width)) : dice.Between(-0.3f * w, 1.3f * w);
  p.sy =
      dice.Chance(0.2f) ? static_cast<float>(dice.Below(output.height)) : dice.Between(-0.3f * h, 1.3f * h);
  p.size = dice.Chance(0.1f) ? dice.OneOf({0.1f, 0.5f, 1.0f, 10.0f}) : dice.Between(0.1f, 20.0f);
  p.lineWidth = dice.Chance(0.1f) ? 0.0f : dice.Between(0.1f, 8.0f);
  p.r = dice.Chance(0.2f) ? 1.0f : dice.Unit();
  p.g = dice.Chance(0.2f) ? 0.0f : dice.Unit();
  p.b = dice.Unit();
  p.alpha = dice.Chance(0.3f) ? 1.0f : dice.Unit();
  if (dice.Chance(0.5f)) p.rotZ = dice.Between(-400.0f, 400.0f);
  if (dice.Chance(0.3f)) p.rotX = dice.Between(-100.0f, 100.0f);
  if (dice.Chance(0.3f)) p.rotY = dice.Between(-100.0f, 100.0f);
  if (dice.Chance(0.2f)) p.cocRadius = dice.Between(0.0f, 9.0f);
  p.spriteFrame = dice.Range(-1, 3);
  return particle;
}

// A wandering curve, sometimes with points on top of each other.
std::vector<Vec2> RandomCurve(Dice& dice, const ProjectedParticle& head) {
  std::vector<Vec2> curve = {{head.sx, head.sy}};
  const int32_t count = dice.Chance(0.3f) ? dice.Range(1, 4) : dice.Range(1, kMaxTrailPoints);
  float angle = dice.Between(0.0f, 6.0f);
  const float bend = dice.OneOf({0.0f, 0.1f, 2.0f});
  while (static_cast<int32_t>(curve.size()) < count) {
    const float length = dice.Chance(0.05f) ? 0.0f : dice.Between(0.0f, 6.0f);
    angle += dice.Between(-bend, bend);
    curve.push_back({curve.back().x + length * Cos(angle), curve.back().y + length * Sin(angle)});
  }
  return curve;
}

}  // namespace

Scene RandomScene(uint64_t seed, Nature nature) {
  Dice dice{seed * 0x2545F4914F6CDD1Du + static_cast<uint64_t>(nature)};
  Scene scene;
  scene.output = RandomLayout(dice, 90);
  scene.frame.settings = RandomSettings(dice, scene.output.width, scene.output.height);
  scene.frame.camera = RandomCamera(dice, scene.frame.settings);

  const bool hostile = nature == Nature::kHostile && dice.Chance(0.3f);
  scene.frame.input = RandomLayer(dice, scene, 0.02f, hostile);
  scene.frame.layerA = RandomLayer(dice, scene, 0.15f, hostile);
  scene.frame.layerB = RandomLayer(dice, scene, 0.2f, hostile);
  if (nature == Nature::kHostile) SpoilSettings(dice, scene.frame.settings);

  // Sprites have the depth of the output; one of them is missing.
  for (int i = 0; i < 3; ++i) {
    Layout layout = RandomLayout(dice, 24);
    layout.depth = scene.output.depth;
    scene.frame.sprites.push_back(i == 1 ? ImageView{} : Keep(scene, RandomPicture(dice, layout, false)));
  }
  return scene;
}

std::vector<Particle> RandomParticles(uint64_t seed, const Scene& scene) {
  Dice dice{seed * 0x9E6C63D0876A9A47u + 1};
  std::vector<Particle> particles;
  for (int32_t n = dice.Range(1, 60); n > 0; --n) {
    Particle particle = RandomParticle(dice, scene.output);
    particle.curvePoints = RandomCurve(dice, particle.projected);
    particle.index = static_cast<int32_t>(particles.size());
    particles.push_back(std::move(particle));
  }
  return particles;
}

}  // namespace vantle::reference
