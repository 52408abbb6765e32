// Curve lines and curved arrows.
#include "tests/render/plain_rasteriser.h"

#include <cmath>
#include <gtest/gtest.h>
#include <random>

namespace vantle::test {
namespace {

Scene CurveScene(int32_t shape, bool roundCap, const std::vector<Vec2>& points, float lineWidth = 4.0f) {
  Scene scene = MakeScene(shape, BLEND_NORMAL, {MakeParticle(30, 30, 20)});
  scene.particles[0].lineWidth = lineWidth;
  scene.settings.roundCap = roundCap;
  SetTrail(&scene, points);
  return scene;
}

bool IsEmpty(const Canvas& canvas) {
  for (const std::byte b : canvas.Rows()) {
    if (b != std::byte{0}) return false;
  }
  return true;
}

TEST(Curve, ASinglePointOrNoneDrawsNothing) {
  for (const int32_t shape : {SHAPE_CURVE_LINE, SHAPE_CURVED_ARROW}) {
    for (const bool roundCap : {true, false}) {
      for (const std::vector<Vec2>& points : {std::vector<Vec2>{}, std::vector<Vec2>{{30, 30}}}) {
        const Canvas canvas(60, 60, PixelDepth::k32);
        Draw(CurveScene(shape, roundCap, points), canvas);
        EXPECT_TRUE(IsEmpty(canvas));
      }
    }
  }
}

TEST(Curve, SlotsOutsideThePoolDrawNothing) {
  for (const uint32_t slot : {1u, 7u, 0xFFFFFFFFu}) {
    Scene scene = CurveScene(SHAPE_CURVE_LINE, true, {{10, 10}, {50, 50}});
    scene.particles[0].curvePoints = slot;
    const Canvas canvas(60, 60, PixelDepth::k8);
    Draw(scene, canvas);
    EXPECT_TRUE(IsEmpty(canvas));
  }
  Scene scene = CurveScene(SHAPE_CURVE_LINE, true, {{10, 10}, {50, 50}});
  scene.trails = CurvePointPool{};
  const Canvas canvas(60, 60, PixelDepth::k8);
  Draw(scene, canvas);
  EXPECT_TRUE(IsEmpty(canvas));
}

TEST(Curve, PointCountsBeyondThePoolAreHeldToIt) {
  Scene scene = CurveScene(SHAPE_CURVE_LINE, true, {{10, 10}, {50, 50}});
  for (size_t i = 2; i < static_cast<size_t>(kMaxTrailPoints); ++i) scene.trails.points[i] = {50, 50};
  scene.trails.counts[0] = 255;
  const Canvas canvas(60, 60, PixelDepth::k8);
  Draw(scene, canvas);
  EXPECT_EQ(canvas.Code(30, 30, 0), 255);
}

TEST(Curve, AStraightOneWithFlatEndsIsALine) {
  const Canvas curve(60, 60, PixelDepth::k32);
  Draw(CurveScene(SHAPE_CURVE_LINE, false, {{10, 30}, {25, 30}, {50, 30}}), curve);
  Scene lineScene = MakeScene(SHAPE_LINE, BLEND_NORMAL, {MakeParticle(30, 30, 40)});
  lineScene.particles[0].lineWidth = 4.0f;
  const Canvas line(60, 60, PixelDepth::k32);
  Draw(lineScene, line);
  EXPECT_EQ(curve.Rows(), line.Rows());
}

TEST(Curve, RoundCapsRoundBothEndsByHalfTheStroke) {
  const Canvas canvas(60, 60, PixelDepth::k32);
  Draw(CurveScene(SHAPE_CURVE_LINE, true, {{10, 30}, {25, 30}, {50, 30}}, 8.0f), canvas);
  for (const int32_t x : {6, 54}) EXPECT_EQ(canvas.Pixel(x, 30).a, 0.5f);
  for (const int32_t x : {7, 53}) EXPECT_EQ(canvas.Pixel(x, 30).a, 1.0f);
  for (const int32_t x : {5, 55}) EXPECT_EQ(canvas.Pixel(x, 30).a, 0.0f);
}

TEST(Curve, FlatEndsStayFlatAndJointsAreRound) {
  const Canvas canvas(60, 60, PixelDepth::k32);
  Draw(CurveScene(SHAPE_CURVE_LINE, false, {{10, 20}, {40, 20}, {40, 50}}, 12.0f), canvas);
  EXPECT_EQ(canvas.Pixel(9, 20).a, 0.0f);
  EXPECT_EQ(canvas.Pixel(40, 51).a, 0.0f);
  EXPECT_EQ(canvas.Pixel(43, 16).a, 1.0f) << "5 from the joint, beside neither segment";
  EXPECT_EQ(canvas.Pixel(45, 15).a, 0.0f) << "7.07 from it";
}

TEST(CurvedArrow, OfTwoPointsHasItsHeadAtTheFirst) {
  // headLen = max(20 x 0.15, 4 x 3) = 12: the tip lies at 18, the base at 31.2.
  const Canvas canvas(80, 60, PixelDepth::k32);
  Draw(CurveScene(SHAPE_CURVED_ARROW, false, {{30, 30}, {70, 30}}, 8.0f), canvas);
  EXPECT_EQ(canvas.Pixel(50, 30).a, 1.0f);
  EXPECT_EQ(canvas.Pixel(28, 36).a, 1.0f) << "the head is wider than the shaft";
  EXPECT_EQ(canvas.Pixel(50, 36).a, 0.0f);
  EXPECT_EQ(canvas.Pixel(20, 30).a, 1.0f);
  EXPECT_EQ(canvas.Pixel(17, 30).a, 0.0f) << "past the tip";
  EXPECT_EQ(canvas.Pixel(72, 30).a, 0.0f);
}

TEST(CurvedArrow, TheHeadIsCutByTheRectangleOfTheTrail) {
  // The head is 30 long, the rectangle reaches 2.5 + 2 beyond the trail.
  Scene scene = CurveScene(SHAPE_CURVED_ARROW, false, {{50, 30}, {90, 30}}, 2.0f);
  scene.particles[0].size = 200.0f;
  const Canvas canvas(100, 60, PixelDepth::k32);
  Draw(scene, canvas);
  EXPECT_EQ(canvas.Pixel(46, 30).a, 1.0f);
  EXPECT_EQ(canvas.Pixel(44, 30).a, 0.0f);
}

std::vector<Vec2> RandomTrail(std::mt19937* random, int kind) {
  std::uniform_real_distribution<float> unit(0.0f, 1.0f);
  std::vector<Vec2> points;
  const int count = 1 + static_cast<int>(unit(*random) * 65.0f) % kMaxTrailPoints;
  Vec2 at{70.0f * unit(*random), 60.0f * unit(*random)};
  const float step = kind == 0 ? 2.0f : kind == 1 ? 20.0f : 0.001f;
  for (int i = 0; i < count; ++i) {
    points.push_back(at);
    const bool stays = kind == 3 && unit(*random) < 0.5f;
    const float length = stays ? 0.0f : kind == 4 ? 3000.0f : step;
    at.x += (unit(*random) - 0.5f) * length;
    at.y += (unit(*random) - 0.5f) * length;
  }
  return points;
}

TEST(Curve, EqualsTheDefinitionForRandomTrails) {
  std::mt19937 random(99);
  for (int i = 0; i < 240; ++i) {
    const int32_t shape = i % 2 == 0 ? SHAPE_CURVE_LINE : SHAPE_CURVED_ARROW;
    Scene scene = CurveScene(shape, i % 4 < 2, RandomTrail(&random, i % 5), 0.3f + static_cast<float>(i % 7));
    scene.particles[0].cocRadius = i % 3 == 0 ? 0.0f : static_cast<float>(i % 11);
    scene.particles[0].alpha = 0.9f;
    scene.particles.push_back(scene.particles[0]);
    const PixelDepth depth = kDepths[i % 3];
    const Canvas plain(77, 63, depth);
    DrawPlainly(scene, plain);
    for (const InstructionLevel level : Levels()) {
      const Canvas fast(77, 63, depth);
      DrawAt(level, scene, fast);
      ASSERT_EQ(fast.Rows(), plain.Rows())
          << "trail " << i << " of " << int{scene.trails.counts[0]} << " points";
    }
  }
}

TEST(Curve, BlursAsWideAsTheWorldEqualTheDefinition) {
  for (const bool roundCap : {true, false}) {
    for (const float coc : {1e4f, 1e8f, 1e10f, 1e20f}) {
      Scene scene = CurveScene(SHAPE_CURVED_ARROW, roundCap, {{10, 10}, {30, 20}, {50, 50}});
      scene.particles[0].cocRadius = coc;
      const Canvas plain(60, 60, PixelDepth::k32);
      const Canvas fast(60, 60, PixelDepth::k32);
      DrawPlainly(scene, plain);
      Draw(scene, fast);
      EXPECT_EQ(fast.Rows(), plain.Rows()) << coc;
    }
  }
}

// The rows of curves are looked up some tens of thousands at a time.
TEST(Curve, MoreOfThemThanAreLookedUpAtOnceEqualTheDefinition) {
  constexpr size_t kCount = 33000;
  std::mt19937 random(5);
  std::uniform_real_distribution<float> across(-4.0f, 154.0f), step(-3.0f, 3.0f);
  Scene scene = MakeScene(SHAPE_CURVE_LINE, BLEND_NORMAL, {});
  scene.trails.counts.Reset(kCount);
  scene.trails.points.Reset(kCount * static_cast<size_t>(kMaxTrailPoints));
  for (uint32_t i = 0; i < kCount; ++i) {
    ProjectedParticle p = MakeParticle(across(random), across(random), 1.0f);
    p.lineWidth = 1.0f;
    p.r = step(random);
    p.alpha = 0.4f;
    p.curvePoints = i;
    scene.particles.push_back(p);
    scene.trails.counts[i] = 2;
    Vec2* points = scene.trails.points.data() + size_t{i} * static_cast<size_t>(kMaxTrailPoints);
    points[0] = {p.sx, p.sy};
    points[1] = {p.sx + step(random), p.sy + step(random)};
  }
  const Canvas plain(150, 150, PixelDepth::k32);
  const Canvas fast(150, 150, PixelDepth::k32);
  DrawPlainly(scene, plain);
  Draw(scene, fast);
  EXPECT_EQ(fast.Rows(), plain.Rows());
}

}  // namespace
}  // namespace vantle::test
