#include "render/graphics/draw_particles_gpu.h"
#include "tests/graphics/kernel_scenes.h"
#include "tests/graphics/stand_in_renderer.h"
#include "tests/render/canvas.h"

#include <gtest/gtest.h>
#include <tuple>

namespace vantle::test {
namespace {

FrameSettings SettingsOf(const KernelScene& scene) {
  FrameSettings settings{};
  settings.shape = scene.shape;
  settings.transferMode = scene.mode;
  settings.roundCap = scene.roundCap;
  return settings;
}

bool DrawOnStandIn(const KernelScene& scene, const MutableImage& image) {
  return DrawParticlesGpu(image, scene.particles.data(), scene.particles.size(), SettingsOf(scene));
}

Canvas CanvasFor(const KernelScene& scene, PixelDepth depth, Layout layout = {}) {
  return {scene.size.width, scene.size.height, depth, layout};
}

KernelScene SmallScene() {
  return MakeKernelScene(SHAPE_CIRCLE, BLEND_SCREEN, false, {70, 40}, 3);
}

class DrawOnGraphicsProcessor : public testing::Test {
 protected:
  void SetUp() override { TheStandIn() = {}; }
};

class EveryShapeAndMode : public testing::TestWithParam<std::tuple<int32_t, int32_t>> {
 protected:
  void SetUp() override { TheStandIn() = {}; }
};

// In floats both processors' roads give the same picture; with the same arithmetic, to the bit.
TEST_P(EveryShapeAndMode, GivesTheRasterisersFloats) {
  const auto [shape, mode] = GetParam();
  for (const bool roundCap : {false, true}) {
    const KernelScene scene = MakeKernelScene(shape, mode, roundCap, {97, 70}, static_cast<uint32_t>(mode));
    const Canvas canvas = CanvasFor(scene, PixelDepth::k32, {12, 0, false});
    ASSERT_TRUE(DrawOnStandIn(scene, canvas.image()));
    const std::vector<float> expected = DrawOnProcessor(scene);
    const std::vector<std::byte> rows = canvas.Rows();
    ASSERT_EQ(rows.size(), expected.size() * sizeof(float));
    EXPECT_EQ(std::memcmp(rows.data(), expected.data(), rows.size()), 0);
    EXPECT_TRUE(canvas.GuardsIntact());
  }
}

INSTANTIATE_TEST_SUITE_P(All, EveryShapeAndMode,
                         testing::Combine(testing::ValuesIn(kKernelShapes), testing::ValuesIn(kKernelModes)));

// Integers are what the floats are limited and truncated to, once.
TEST_F(DrawOnGraphicsProcessor, QuantisesOnce) {
  const KernelScene scene = SmallScene();
  const std::vector<float> floats = DrawOnProcessor(scene);
  for (const PixelDepth depth : {PixelDepth::k8, PixelDepth::k16}) {
    const Canvas canvas = CanvasFor(scene, depth, {10, 1, true});
    ASSERT_TRUE(DrawOnStandIn(scene, canvas.image()));
    const Canvas expected = CanvasFor(scene, depth);
    for (int32_t y = 0; y < scene.size.height; ++y) {
      for (int32_t x = 0; x < scene.size.width; ++x) {
        const float* const p = floats.data() + 4 * (y * scene.size.width + x);
        expected.Set(x, y, {p[0], p[1], p[2], p[3]});
      }
    }
    EXPECT_EQ(canvas.Rows(), expected.Rows());
    EXPECT_TRUE(canvas.GuardsIntact());
  }
}

TEST_F(DrawOnGraphicsProcessor, TellsTheKernelWhatItNeeds) {
  KernelScene scene = SmallScene();
  scene.roundCap = true;
  ASSERT_TRUE(DrawOnStandIn(scene, CanvasFor(scene, PixelDepth::k8).image()));
  const RenderParamsCB& p = TheStandIn().params;
  EXPECT_EQ(p.g_width, 70);
  EXPECT_EQ(p.g_height, 40);
  EXPECT_EQ(p.g_numParticles, static_cast<int32_t>(scene.particles.size()));
  EXPECT_EQ(p.g_partShape, SHAPE_CIRCLE);
  EXPECT_EQ(p.g_blendMode, BLEND_SCREEN);
  EXPECT_EQ(p.g_roundCap, 1);
  EXPECT_EQ(p.g_tilesX, 3);
  EXPECT_EQ(p.g_tilesY, 2);
  EXPECT_EQ(p.g_tileSize, 32);
  EXPECT_EQ(p.g_useTiles, 1);
}

TEST_F(DrawOnGraphicsProcessor, WithoutParticlesThePictureIsTransparent) {
  for (const PixelDepth depth : kDepths) {
    const Canvas canvas(33, 5, depth);
    ASSERT_TRUE(DrawParticlesGpu(canvas.image(), nullptr, 0, SettingsOf(SmallScene())));
    EXPECT_EQ(canvas.Rows(), std::vector<std::byte>(canvas.Rows().size()));
    EXPECT_EQ(TheStandIn().numTileIndices, 2u);
  }
}

TEST_F(DrawOnGraphicsProcessor, AFailureLeavesTheOutputAlone) {
  const KernelScene scene = SmallScene();
  TheStandIn().fails = true;
  for (const PixelDepth depth : kDepths) {
    const Canvas canvas = CanvasFor(scene, depth);
    const std::vector<std::byte> before = canvas.Rows();
    EXPECT_FALSE(DrawOnStandIn(scene, canvas.image()));
    EXPECT_EQ(canvas.Rows(), before);
  }
  EXPECT_EQ(TheStandIn().renders, 3);
}

TEST_F(DrawOnGraphicsProcessor, TrailsAndSpritesAreNotItsBusiness) {
  for (const int32_t shape : {SHAPE_CURVE_LINE, SHAPE_CURVED_ARROW, SHAPE_LAYER}) {
    KernelScene scene = SmallScene();
    scene.shape = shape;
    EXPECT_FALSE(DrawOnStandIn(scene, CanvasFor(scene, PixelDepth::k8).image()));
  }
  EXPECT_EQ(TheStandIn().renders, 0);
}

// The pixels are never looked at: one byte stands for a picture of 14 gigabytes.
TEST_F(DrawOnGraphicsProcessor, PicturesBeyondABufferAreRefused) {
  const KernelScene scene = SmallScene();
  std::byte pixel{};
  const auto draw = [&](int32_t width, int32_t height) {
    return DrawOnStandIn(scene, {&pixel, int64_t{width} * 4, width, height, PixelDepth::k8});
  };
  EXPECT_FALSE(draw(30000, 30000));
  EXPECT_FALSE(draw(INT32_MAX, INT32_MAX));
  EXPECT_FALSE(draw(0, 10));
  EXPECT_FALSE(draw(10, -1));
  EXPECT_EQ(TheStandIn().renders, 0);
}

// 16384 tiles of a picture, each with all of 8193 particles: more entries than a list can have. One byte
// stands for the picture, and must stay as it is for the processor.
TEST_F(DrawOnGraphicsProcessor, ListsBeyondABufferAreRefused) {
  KernelScene scene = SmallScene();
  ProjectedParticle everywhere{};
  everywhere.sx = everywhere.sy = 2000.0f;
  everywhere.size = 1e6f;
  everywhere.alpha = 1.0f;
  scene.particles.assign(8193, everywhere);
  std::byte pixel{42};
  EXPECT_FALSE(DrawOnStandIn(scene, {&pixel, 4096 * 4, 4096, 4096, PixelDepth::k8}));
  EXPECT_EQ(pixel, std::byte{42});
  EXPECT_EQ(TheStandIn().renders, 0);
}

}  // namespace
}  // namespace vantle::test
