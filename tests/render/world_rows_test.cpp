// Pictures as hosts hand them over: padded, odd and negative strides, data aligned to a byte only.
#include "tests/render/canvas.h"

#include <gtest/gtest.h>
#include <random>

namespace vantle::test {
namespace {

Scene Sprinkle(int32_t shape) {
  std::mt19937 random(5);
  std::uniform_real_distribution<float> place(-5.0f, 60.0f);
  Scene scene = MakeScene(shape, BLEND_NORMAL, {});
  for (int i = 0; i < 80; ++i) {
    ProjectedParticle p = MakeParticle(place(random), place(random), 6.0f);
    p.alpha = 0.7f;
    p.rotZ = place(random);
    p.spriteFrame = 0;
    scene.particles.push_back(p);
  }
  SetTrail(&scene, {{5, 5}, {20, 9}, {33, 40}, {54, 50}});
  return scene;
}

TEST(WorldRows, LayoutDoesNotShowAndNothingElseIsTouched) {
  const Layout layouts[] = {{.padding = 0, .offset = 1},
                            {.padding = 7, .offset = 3},
                            {.padding = 1, .offset = 0, .bottomUp = true},
                            {.padding = 64, .offset = 13, .bottomUp = true}};
  for (const PixelDepth depth : kDepths) {
    const Canvas texels(9, 7, depth);
    for (int32_t y = 0; y < 7; ++y) {
      for (int32_t x = 0; x < 9; ++x) texels.Set(x, y, {0.8f, 0.1f * static_cast<float>(x), 0.5f, 0.2f});
    }
    for (int32_t shape = SHAPE_POINT; shape <= SHAPE_LAYER; ++shape) {
      Scene scene = Sprinkle(shape);
      scene.sprites.push_back(texels.view());
      const Canvas plain(55, 53, depth);
      Draw(scene, plain);
      for (const Layout& layout : layouts) {
        for (const InstructionLevel level : Levels()) {
          const Canvas canvas(55, 53, depth, layout);
          DrawAt(level, scene, canvas);
          ASSERT_EQ(canvas.Rows(), plain.Rows()) << "shape " << shape;
          ASSERT_TRUE(canvas.GuardsIntact()) << "shape " << shape;
        }
      }
    }
  }
}

TEST(WorldRows, WorldsWithoutPixelsAreLeftAlone) {
  const Scene scene = Sprinkle(SHAPE_CIRCLE);
  std::byte pixel{7};
  const MutableImage worlds[] = {{nullptr, 40, 10, 10, PixelDepth::k8},
                                 {&pixel, 40, 0, 10, PixelDepth::k8},
                                 {&pixel, 40, 10, 0, PixelDepth::k8},
                                 {&pixel, 40, -3, -3, PixelDepth::k32}};
  for (const MutableImage& world : worlds) {
    RenderParticlesCpu(world, scene.particles.data(), scene.particles.size(), scene.trails, scene.settings,
                       nullptr, 0);
    EXPECT_EQ(pixel, std::byte{7});
  }
}

TEST(WorldRows, NoParticlesAtAll) {
  const Canvas canvas(5, 5, PixelDepth::k8);
  RenderParticlesCpu(canvas.image(), nullptr, 0, CurvePointPool{}, FrameSettings{}, nullptr, 0);
  for (const std::byte b : canvas.Rows()) EXPECT_EQ(b, std::byte{0});
}

}  // namespace
}  // namespace vantle::test
