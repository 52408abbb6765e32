// Frames whose answer is known on paper, asked of the product and of the reference alike.

#include "tests/reference/product.h"
#include "tests/reference/random_settings.h"

#include <cmath>
#include <gtest/gtest.h>
#include <numbers>

namespace vantle::reference {
namespace {

enum class Road { kReference, kProduct };

constexpr int32_t kSide = 81;
constexpr int32_t kMiddle = 40;

/// A white, opaque, untilted particle in the middle of the picture.
Particle Middle(float size, float lineWidth = 4.0f) {
  Particle particle;
  ProjectedParticle& p = particle.projected;
  p.sx = p.sy = static_cast<float>(kMiddle);
  p.size = size;
  p.lineWidth = lineWidth;
  p.r = p.g = p.b = p.alpha = 1.0f;
  p.spriteFrame = -1;
  return particle;
}

class AnalyticFrames : public testing::TestWithParam<Road> {
 protected:
  Picture Draw(const std::vector<Particle>& particles, PixelDepth depth = PixelDepth::k32) {
    Picture output = MakePicture({.width = kSide, .height = kSide, .depth = depth});
    if (GetParam() == Road::kReference) {
      Rasterise(frame, particles, MutableOf(output));
    } else {
      RasteriseWithProduct(frame, ListOf(particles), particles.size(), output);
    }
    return output;
  }

  Picture Render() {
    Picture output = MakePicture({.width = kSide, .height = kSide, .depth = PixelDepth::k32});
    if (GetParam() == Road::kReference) {
      reference::Render(frame, MutableOf(output));
    } else {
      const ParticleList list = SimulateWithProduct(frame);
      RasteriseWithProduct(frame, list, list.count, output);
    }
    return output;
  }

  double AlphaOf(int32_t shape, float size, float lineWidth = 4.0f) {
    frame.settings.shape = shape;
    return SumOf(Draw({Middle(size, lineWidth)}), 0);
  }

  FrameInput frame{.settings = DefaultSettings(kSide, kSide),
                   .camera = {},
                   .input = {},
                   .layerA = {},
                   .layerB = {},
                   .sprites = {}};
};

void ExpectPixel(const Picture& picture, int32_t x, int32_t y, const Channels& expected) {
  const Channels found = PixelAt(picture, x, y);
  for (int c = 0; c < 4; ++c)
    EXPECT_FLOAT_EQ(found.c[c], expected.c[c]) << x << ", " << y << " channel " << c;
}

// 19 x 19 pixels lie whole pixels inside, the 80 of the ring around them are half covered.
TEST_P(AnalyticFrames, SquareCoversItsWholePixelsAndHalfItsRing) {
  EXPECT_EQ(AlphaOf(SHAPE_SQUARE, 10.0f), 19.0 * 19.0 + 80.0 * 0.5);
}

TEST_P(AnalyticFrames, RoundShapesCoverTheirAreas) {
  const double area = std::numbers::pi * 30.0 * 30.0;
  EXPECT_NEAR(AlphaOf(SHAPE_CIRCLE, 30.0f), area, area * 0.002);
  EXPECT_NEAR(AlphaOf(SHAPE_SOFT_CIRCLE, 30.0f), area / 3.0, area * 0.002);
  const double triangle = 3.0 * std::sqrt(3.0) / 4.0 * 30.0 * 30.0;
  EXPECT_NEAR(AlphaOf(SHAPE_TRIANGLE, 30.0f), triangle, triangle * 0.01);
}

// Half a picture's turn of 60 degrees about x halves the height.
TEST_P(AnalyticFrames, TiltShortensTheArea) {
  frame.settings.shape = SHAPE_CIRCLE;
  Particle tilted = Middle(30.0f);
  tilted.projected.rotX = 60.0f;
  const double area = std::numbers::pi * 30.0 * 15.0;
  EXPECT_NEAR(SumOf(Draw({tilted}), 0), area, area * 0.01);
  tilted.projected.rotX = 88.0f;
  EXPECT_EQ(SumOf(Draw({tilted}), 0), 0.0);
}

// 21 columns of 3 full and 2 half rows; round caps add a disc of the stroke's width.
TEST_P(AnalyticFrames, LineCoversItsStroke) {
  frame.settings.roundCap = false;
  EXPECT_EQ(AlphaOf(SHAPE_LINE, 20.0f), 21.0 * 4.0);
  EXPECT_EQ(AlphaOf(SHAPE_LINE, 0.0f), 0.0);
  frame.settings.roundCap = true;
  EXPECT_NEAR(AlphaOf(SHAPE_LINE, 40.0f, 12.0f), 40.0 * 12.0 + std::numbers::pi * 36.0, 2.0);
  EXPECT_NEAR(AlphaOf(SHAPE_LINE, 0.0f, 12.0f), std::numbers::pi * 36.0, 2.0);
}

// A shaft of 0.65 of the length, a head of 0.35 that is 2.5 times as wide at its base.
TEST_P(AnalyticFrames, ArrowCoversShaftAndHead) {
  EXPECT_NEAR(AlphaOf(SHAPE_ARROW, 60.0f, 8.0f), 60.0 * 0.65 * 8.0 + 60.0 * 0.35 * 20.0 * 0.5, 12.0);
}

TEST_P(AnalyticFrames, StraightCurveIsALine) {
  frame.settings.roundCap = false;
  frame.settings.shape = SHAPE_CURVE_LINE;
  Particle curve = Middle(20.0f);
  curve.curvePoints = {{30.0f, 40.0f}, {40.0f, 40.0f}, {50.0f, 40.0f}};
  EXPECT_EQ(SumOf(Draw({curve}), 0), 21.0 * 4.0);
  curve.curvePoints.resize(1);
  EXPECT_EQ(SumOf(Draw({curve}), 0), 0.0);
}

TEST_P(AnalyticFrames, SpriteSpansTwiceItsSize) {
  Picture wide = MakePicture({.width = 40, .height = 20, .depth = PixelDepth::k32});
  for (int32_t y = 0; y < 20; ++y) {
    for (int32_t x = 0; x < 40; ++x) SetPixel(wide, x, y, {{1.0f, 0.25f, 0.5f, 0.75f}});
  }
  frame.settings.shape = SHAPE_LAYER;
  frame.sprites = {ViewOf(wide), ImageView{}};
  Particle sprite = Middle(10.0f);
  sprite.projected.spriteFrame = 0;
  const Picture drawn = Draw({sprite});
  EXPECT_EQ(SumOf(drawn, 0), 20.0 * 10.0);
  ExpectPixel(drawn, kMiddle, kMiddle, {{1.0f, 0.25f, 0.5f, 0.75f}});
  for (int32_t frameIndex : {-1, 1, 2}) {
    sprite.projected.spriteFrame = frameIndex;
    EXPECT_EQ(SumOf(Draw({sprite}), 0), 0.0);
  }
}

TEST_P(AnalyticFrames, WhiteFillsEveryCode) {
  for (PixelDepth depth : {PixelDepth::k8, PixelDepth::k16, PixelDepth::k32}) {
    ExpectPixel(Draw({Middle(10.0f)}, depth), kMiddle, kMiddle, {{1.0f, 1.0f, 1.0f, 1.0f}});
  }
  // Half of 255 is truncated.
  Particle half = Middle(10.0f);
  half.projected.alpha = 0.5f;
  frame.settings.shape = SHAPE_SQUARE;
  ExpectPixel(Draw({half}, PixelDepth::k8), kMiddle, kMiddle, {{127.0f / 255.0f, 1.0f, 1.0f, 1.0f}});
  ExpectPixel(Draw({half}, PixelDepth::k16), kMiddle, kMiddle, {{0.5f, 1.0f, 1.0f, 1.0f}});
}

// Half-transparent blue over half-transparent red: alpha 3/4, of which a third is red.
TEST_P(AnalyticFrames, LaterParticlesLieOnTop) {
  frame.settings.shape = SHAPE_SQUARE;
  Particle red = Middle(10.0f);
  red.projected.g = red.projected.b = 0.0f;
  red.projected.alpha = 0.5f;
  Particle blue = red;
  std::swap(blue.projected.r, blue.projected.b);
  ExpectPixel(Draw({red, blue}), kMiddle, kMiddle, {{0.75f, 1.0f / 3.0f, 0.0f, 2.0f / 3.0f}});
  ExpectPixel(Draw({blue, red}), kMiddle, kMiddle, {{0.75f, 2.0f / 3.0f, 0.0f, 1.0f / 3.0f}});
}

// Over an opaque pixel a mode's own formula shows; over nothing, the particle's own colour.
TEST_P(AnalyticFrames, TransferModesOfOpaqueColours) {
  frame.settings.shape = SHAPE_SQUARE;
  Particle below = Middle(10.0f);
  below.projected.r = 0.25f;
  below.projected.g = 0.5f;
  below.projected.b = 0.75f;
  Particle above = below;
  above.projected.r = above.projected.g = above.projected.b = 0.5f;
  const Channels expected[8] = {{{1.0f, 0.5f, 0.5f, 0.5f}},      {{1.0f, 0.75f, 1.0f, 1.25f}},
                                {{1.0f, 0.625f, 0.75f, 0.875f}}, {{1.0f, 0.125f, 0.25f, 0.375f}},
                                {{1.0f, 0.25f, 0.5f, 0.75f}},    {{1.0f, 0.25f, 0.5f, 0.75f}},
                                {{1.0f, 0.25f, 0.5f, 0.75f}},    {{1.0f, 0.0f, 0.0f, 0.5f}}};
  for (int32_t mode = BLEND_NORMAL; mode <= BLEND_COLOR_BURN; ++mode) {
    frame.settings.transferMode = mode;
    ExpectPixel(Draw({below, above}), kMiddle, kMiddle, expected[mode - 1]);
    ExpectPixel(Draw({below}), kMiddle, kMiddle, {{1.0f, 0.25f, 0.5f, 0.75f}});
  }
}

TEST_P(AnalyticFrames, NothingLeavesAClearPicture) {
  EXPECT_EQ(SumOf(Draw({}), 0), 0.0);
  EXPECT_EQ(SumOf(Render(), 0), 0.0);
}

// One emitting pixel: its particle stands at the pixel's place before the transition and at the target's
// after it.
TEST_P(AnalyticFrames, TransitionGoesFromPixelToPixel) {
  Picture a = MakePicture({.width = kSide, .height = kSide});
  for (int32_t y = 0; y < kSide; ++y) {
    for (int32_t x = 0; x < kSide; ++x) SetPixel(a, x, y, {{0.0f, 0.0f, 0.0f, 0.0f}});
  }
  Picture b = a;
  SetPixel(a, 20, 30, {{1.0f, 1.0f, 0.0f, 0.0f}});
  SetPixel(b, 60, 50, {{1.0f, 0.0f, 0.0f, 1.0f}});
  frame.layerA = ViewOf(a);
  frame.layerB = ViewOf(b);

  FrameSettings& s = frame.settings;
  s.density = 1;
  s.shape = SHAPE_SQUARE;
  s.size = 5.0f;
  s.sizeVariation = 0.0f;
  s.opacity = 1.0f;
  s.viewAngle = 0.0f;
  s.planeA.thickness = s.planeB.thickness = 0.0f;
  const double area = 9.0 * 9.0 + 40.0 * 0.5;
  const Picture before = Render();
  ExpectPixel(before, 20, 30, {{1.0f, 1.0f, 0.0f, 0.0f}});
  EXPECT_EQ(SumOf(before, 0), area);

  s.transform = 0.5f;
  ExpectPixel(Render(), 40, 40, {{1.0f, 0.5f, 0.0f, 0.5f}});

  s.transform = 1.0f;
  const Picture after = Render();
  ExpectPixel(after, 60, 50, {{1.0f, 0.0f, 0.0f, 1.0f}});
  EXPECT_EQ(SumOf(after, 0), area);
}

INSTANTIATE_TEST_SUITE_P(BothRoads, AnalyticFrames, testing::Values(Road::kReference, Road::kProduct),
                         [](const auto& road) {
                           return road.param == Road::kReference ? "Reference" : "Product";
                         });

}  // namespace
}  // namespace vantle::reference
