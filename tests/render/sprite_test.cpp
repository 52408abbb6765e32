// Layer sprites.
#include "tests/render/canvas.h"

#include <cmath>
#include <gtest/gtest.h>

namespace vantle::test {
namespace {

Canvas Filled(int32_t width, int32_t height, PixelDepth depth, const FloatPixel& pixel) {
  Canvas canvas(width, height, depth);
  for (int32_t y = 0; y < height; ++y) {
    for (int32_t x = 0; x < width; ++x) canvas.Set(x, y, pixel);
  }
  return canvas;
}

Scene SpriteScene(const Canvas& sprite, const ProjectedParticle& particle) {
  Scene scene = MakeScene(SHAPE_LAYER, BLEND_NORMAL, {particle});
  scene.particles[0].spriteFrame = 0;
  scene.sprites.push_back(sprite.view());
  return scene;
}

struct Covered {
  int32_t x0 = INT32_MAX, x1 = INT32_MIN, y0 = INT32_MAX, y1 = INT32_MIN;
  int count = 0;
};

Covered FindCovered(const Canvas& canvas) {
  Covered c;
  for (int32_t y = 0; y < canvas.image().height; ++y) {
    for (int32_t x = 0; x < canvas.image().width; ++x) {
      if (canvas.Pixel(x, y).a == 0.0f) continue;
      c.x0 = std::min(c.x0, x);
      c.x1 = std::max(c.x1, x);
      c.y0 = std::min(c.y0, y);
      c.y1 = std::max(c.y1, y);
      ++c.count;
    }
  }
  return c;
}

TEST(Sprite, ItsLongerSideSpansTwiceTheSize) {
  struct Case {
    int32_t width, height, columns, rows;
  };
  for (const Case& c : {Case{50, 50, 20, 20}, Case{200, 100, 20, 10}, Case{100, 200, 10, 20}}) {
    const Canvas sprite = Filled(c.width, c.height, PixelDepth::k8, {1, 1, 1, 1});
    const Canvas canvas(60, 60, PixelDepth::k8);
    Draw(SpriteScene(sprite, MakeParticle(30, 30, 10)), canvas);
    const Covered covered = FindCovered(canvas);
    EXPECT_EQ(covered.x1 - covered.x0 + 1, c.columns);
    EXPECT_EQ(covered.y1 - covered.y0 + 1, c.rows);
    EXPECT_EQ(covered.count, c.columns * c.rows);
  }
}

TEST(Sprite, TexelsLandPixelForPixelAtNaturalSize) {
  for (const PixelDepth depth : kDepths) {
    const Canvas sprite(8, 8, depth);
    for (int32_t y = 0; y < 8; ++y) {
      for (int32_t x = 0; x < 8; ++x) {
        sprite.Set(x, y, {1.0f, 0.125f * static_cast<float>(x), 0.125f * static_cast<float>(y), 0.5f});
      }
    }
    const Canvas canvas(20, 20, depth);
    Draw(SpriteScene(sprite, MakeParticle(10, 10, 4)), canvas);
    for (int32_t y = 0; y < 8; ++y) {
      for (int32_t x = 0; x < 8; ++x) {
        ASSERT_NEAR(canvas.Pixel(x + 6, y + 6).r, sprite.Pixel(x, y).r, 1.01f / 255.0f);
        ASSERT_NEAR(canvas.Pixel(x + 6, y + 6).g, sprite.Pixel(x, y).g, 1.01f / 255.0f);
      }
    }
  }
}

TEST(Sprite, KeepsItsColoursAndTakesTheParticlesOpacity) {
  const Canvas sprite = Filled(4, 4, PixelDepth::k32, {0.5f, 0.25f, 0.5f, 0.75f});
  ProjectedParticle p = MakeParticle(10, 10, 4);
  p.r = p.g = p.b = 0.0f;
  p.alpha = 0.5f;
  const Canvas canvas(20, 20, PixelDepth::k32);
  Draw(SpriteScene(sprite, p), canvas);
  EXPECT_EQ(canvas.Pixel(10, 10).a, 0.25f);
  EXPECT_EQ(canvas.Pixel(10, 10).r, 0.25f);
  EXPECT_EQ(canvas.Pixel(10, 10).b, 0.75f);
}

TEST(Sprite, MissingFramesDrawNothing) {
  const Canvas sprite = Filled(4, 4, PixelDepth::k8, {1, 1, 1, 1});
  ImageView noPixels = sprite.view();
  noPixels.data = nullptr;
  ImageView noWidth = sprite.view();
  noWidth.width = 0;
  ImageView otherDepth = sprite.view();
  otherDepth.depth = PixelDepth::k32;
  for (const int32_t frame : {-1, INT32_MIN, 4, 100, INT32_MAX, 1, 2, 3}) {
    Scene scene = SpriteScene(sprite, MakeParticle(10, 10, 4));
    scene.sprites.insert(scene.sprites.end(), {noPixels, noWidth, otherDepth});
    scene.particles[0].spriteFrame = frame;
    const Canvas canvas(20, 20, PixelDepth::k8);
    Draw(scene, canvas);
    EXPECT_EQ(FindCovered(canvas).count, 0) << "frame " << frame;
  }
}

TEST(Sprite, EdgeOnOnesVanish) {
  const Canvas sprite = Filled(4, 4, PixelDepth::k8, {1, 1, 1, 1});
  for (const bool tiltX : {true, false}) {
    ProjectedParticle p = MakeParticle(10, 10, 4);
    (tiltX ? p.rotX : p.rotY) = 88.0f;
    const Canvas canvas(20, 20, PixelDepth::k8);
    Draw(SpriteScene(sprite, p), canvas);
    EXPECT_EQ(FindCovered(canvas).count, 0);
  }
}

TEST(Sprite, TurnsWithTheSpin) {
  const Canvas sprite = Filled(20, 10, PixelDepth::k8, {1, 1, 1, 1});
  ProjectedParticle p = MakeParticle(30.5f, 30.5f, 10);
  p.rotZ = 90.0f;
  const Canvas canvas(60, 60, PixelDepth::k8);
  Draw(SpriteScene(sprite, p), canvas);
  const Covered covered = FindCovered(canvas);
  EXPECT_EQ(covered.x1 - covered.x0 + 1, 10);
  EXPECT_EQ(covered.y1 - covered.y0 + 1, 20);
}

/// Steps of alpha across the blurred edge of an opaque square sprite: one per column of samples.
int StepsAcrossTheEdge(float cocRadius) {
  const Canvas sprite = Filled(100, 100, PixelDepth::k32, {1, 1, 1, 1});
  ProjectedParticle p = MakeParticle(100, 100, 50);
  p.cocRadius = cocRadius;
  const Canvas canvas(200, 200, PixelDepth::k32);
  Draw(SpriteScene(sprite, p), canvas);
  int steps = 0;
  for (int32_t x = 1; x <= 100; ++x) steps += canvas.Pixel(x, 100).a > canvas.Pixel(x - 1, 100).a ? 1 : 0;
  return steps;
}

TEST(Sprite, SampleGridFollowsTheBlur) {
  EXPECT_EQ(StepsAcrossTheEdge(0.0f), 1);
  EXPECT_EQ(StepsAcrossTheEdge(0.5f), 1);
  EXPECT_EQ(StepsAcrossTheEdge(2.0f), 3);
  EXPECT_EQ(StepsAcrossTheEdge(3.0f), 4);
  EXPECT_EQ(StepsAcrossTheEdge(10.0f), 7);
  EXPECT_EQ(StepsAcrossTheEdge(30.0f), 7);
}

TEST(Sprite, AnySmallBlurTakesNineSamples) {
  // A single opaque texel of 10 pixels' width in a transparent sprite: with coc 0.6 its borders are thirds.
  const Canvas sprite = Filled(2, 2, PixelDepth::k32, {1, 1, 1, 1});
  ProjectedParticle p = MakeParticle(20, 20, 10);
  p.cocRadius = 0.6f;
  const Canvas canvas(40, 40, PixelDepth::k32);
  Draw(SpriteScene(sprite, p), canvas);
  EXPECT_EQ(canvas.Pixel(20, 20).a, 1.0f);
  EXPECT_NEAR(canvas.Pixel(10, 20).a, 2.0f / 3.0f, 1e-6f) << "its left sample misses";
}

TEST(Sprite, InCodesAnyTexelThatIsNotFullyTransparentCounts) {
  const Canvas sprite(4, 4, PixelDepth::k16);
  const uint16_t texel[4] = {40, 32768, 0, 0};  // alpha 0.0012
  for (int32_t y = 0; y < 4; ++y) {
    for (int32_t x = 0; x < 4; ++x) std::memcpy(sprite.At(x, y), texel, sizeof(texel));
  }
  const Canvas canvas(20, 20, PixelDepth::k16);
  Draw(SpriteScene(sprite, MakeParticle(10, 10, 4)), canvas);
  EXPECT_EQ(canvas.Code(10, 10, 0), 40);
  EXPECT_EQ(canvas.Code(10, 10, 1), 32768);
}

TEST(Sprite, BlendsWithTheTransferMode) {
  const Canvas sprite = Filled(4, 4, PixelDepth::k32, {1, 0.5f, 0.5f, 0.5f});
  Scene scene = SpriteScene(sprite, MakeParticle(10, 10, 4));
  scene.particles.push_back(scene.particles[0]);
  scene.settings.transferMode = BLEND_ADD;
  const Canvas canvas(20, 20, PixelDepth::k32);
  Draw(scene, canvas);
  EXPECT_EQ(canvas.Pixel(10, 10).g, 1.0f);
}

}  // namespace
}  // namespace vantle::test
