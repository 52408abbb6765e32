// Coverage against values worked out by hand.
#include "render/coverage.h"

#include "render/accumulate.h"

#include <cmath>
#include <gtest/gtest.h>
#include <random>

namespace vantle::kernel {
namespace {

Particle At(float sx, float sy, float size) {
  return {sx, sy, size, 2.0f, 1.0f, 1.0f, 1.0f, 1.0f, 0.0f, 0.0f, 0.0f, 0.0f};
}

float Cover(const Particle& p, int shape, float px, float py, bool roundCap = true) {
  return computeCoverage(px, py, prepareShape(p), shape, roundCap);
}

TEST(CircleCoverage, FadesOverOnePixelAtItsEdge) {
  const Particle p = At(50, 50, 10);
  EXPECT_EQ(Cover(p, SHAPE_CIRCLE, 50, 50), 1.0f);
  EXPECT_EQ(Cover(p, SHAPE_CIRCLE, 60, 50), 0.5f);
  EXPECT_EQ(Cover(p, SHAPE_CIRCLE, 59.5f, 50), 1.0f);
  EXPECT_EQ(Cover(p, SHAPE_CIRCLE, 60.25f, 50), 0.25f);
  EXPECT_EQ(Cover(p, SHAPE_CIRCLE, 60.5f, 50), 0.0f);
  EXPECT_EQ(Cover(p, SHAPE_CIRCLE, 56, 58), 0.5f) << "6-8-10 triangle";
}

TEST(CircleCoverage, BlurWidensTheEdgeBothWays) {
  Particle p = At(50, 50, 10);
  p.cocRadius = 4.0f;  // the edge is 8 wide
  EXPECT_EQ(Cover(p, SHAPE_CIRCLE, 60, 50), 0.5f);
  EXPECT_EQ(Cover(p, SHAPE_CIRCLE, 56, 50), 1.0f);
  EXPECT_EQ(Cover(p, SHAPE_CIRCLE, 62, 50), 0.25f);
  EXPECT_EQ(Cover(p, SHAPE_CIRCLE, 64, 50), 0.0f);
  p.cocRadius = 0.5f;  // 2 x 0.5 is still the one pixel of a sharp edge
  EXPECT_EQ(Cover(p, SHAPE_CIRCLE, 60.25f, 50), 0.25f);
}

TEST(PointCoverage, IgnoresTheSize) {
  for (const float size : {0.5f, 3.0f, 40.0f}) {
    const Particle p = At(7, 7, size);
    EXPECT_EQ(Cover(p, SHAPE_POINT, 7, 7), 1.0f);
    EXPECT_EQ(Cover(p, SHAPE_POINT, 8, 7), 0.5f);
    EXPECT_EQ(Cover(p, SHAPE_POINT, 9, 7), 0.0f);
  }
}

TEST(SoftCircleCoverage, IsACone) {
  const Particle p = At(20, 20, 8);
  EXPECT_EQ(Cover(p, SHAPE_SOFT_CIRCLE, 20, 20), 1.0f);
  EXPECT_EQ(Cover(p, SHAPE_SOFT_CIRCLE, 22, 20), 0.75f);
  EXPECT_EQ(Cover(p, SHAPE_SOFT_CIRCLE, 20, 24), 0.5f);
  EXPECT_EQ(Cover(p, SHAPE_SOFT_CIRCLE, 28, 20), 0.0f);
  EXPECT_EQ(Cover(p, SHAPE_SOFT_CIRCLE, 29, 20), 0.0f);
}

TEST(SoftCircleCoverage, BlurGrowsTheCone) {
  Particle p = At(20, 20, 8);
  p.cocRadius = 8.0f;
  EXPECT_EQ(Cover(p, SHAPE_SOFT_CIRCLE, 28, 20), 0.5f);
  EXPECT_EQ(Cover(p, SHAPE_SOFT_CIRCLE, 32, 20), 0.25f);
}

TEST(SoftCircleCoverage, OfNoSizeIsNotDrawn) {
  EXPECT_FALSE(Cover(At(20, 20, 0), SHAPE_SOFT_CIRCLE, 20, 20) > 0.001f);
}

TEST(TriangleCoverage, PointsDownWithTheInscribedRadiusHalfTheSize) {
  const Particle p = At(50, 50, 20);
  EXPECT_EQ(Cover(p, SHAPE_TRIANGLE, 50, 50), 1.0f);
  EXPECT_EQ(Cover(p, SHAPE_TRIANGLE, 50, 40), 0.5f) << "flat edge, above the centre";
  EXPECT_EQ(Cover(p, SHAPE_TRIANGLE, 50, 39), 0.0f);
  EXPECT_EQ(Cover(p, SHAPE_TRIANGLE, 50, 70), 0.5f) << "apex, below the centre";
  EXPECT_EQ(Cover(p, SHAPE_TRIANGLE, 50, 72), 0.0f);
  EXPECT_EQ(Cover(p, SHAPE_TRIANGLE, 50, 66), 1.0f);
}

TEST(TriangleCoverage, IsSymmetric) {
  const Particle p = At(50, 50, 20);
  for (float dx = 0.0f; dx <= 22.0f; dx += 1.0f) {
    for (float dy = -12.0f; dy <= 22.0f; dy += 1.0f) {
      EXPECT_EQ(Cover(p, SHAPE_TRIANGLE, 50 + dx, 50 + dy), Cover(p, SHAPE_TRIANGLE, 50 - dx, 50 + dy));
    }
  }
}

TEST(TriangleCoverage, OfNoSizeCoversNothing) {
  const Particle p = At(50, 50, 0);
  for (float dx = -2.0f; dx <= 2.0f; dx += 1.0f) {
    for (float dy = -2.0f; dy <= 2.0f; dy += 1.0f) {
      EXPECT_EQ(Cover(p, SHAPE_TRIANGLE, 50 + dx, 50 + dy), 0.0f);
    }
  }
}

TEST(SquareCoverage, SizeIsHalfTheSide) {
  const Particle p = At(50, 50, 10);
  EXPECT_EQ(Cover(p, SHAPE_SQUARE, 59, 59), 1.0f);
  EXPECT_EQ(Cover(p, SHAPE_SQUARE, 60, 45), 0.5f);
  EXPECT_EQ(Cover(p, SHAPE_SQUARE, 45, 40), 0.5f);
  EXPECT_EQ(Cover(p, SHAPE_SQUARE, 60, 60), 0.5f);
  EXPECT_EQ(Cover(p, SHAPE_SQUARE, 61, 50), 0.0f);
}

TEST(SquareCoverage, TurnsWithTheSpin) {
  Particle p = At(50, 50, 10);
  p.rotZ = 45.0f;
  EXPECT_GT(Cover(p, SHAPE_SQUARE, 63, 50), 0.9f) << "corner at 14.14 to the right";
  EXPECT_EQ(Cover(p, SHAPE_SQUARE, 59, 59), 0.0f);
}

TEST(PlaneCoverage, TiltsForeshorten) {
  Particle p = At(50, 50, 10);
  p.rotY = 60.0f;  // half as wide
  EXPECT_NEAR(Cover(p, SHAPE_CIRCLE, 55, 50), 0.5f, 1e-5f);
  EXPECT_NEAR(Cover(p, SHAPE_CIRCLE, 50, 60), 0.5f, 1e-5f);
  p.rotY = 0.0f;
  p.rotX = 60.0f;  // half as high
  EXPECT_NEAR(Cover(p, SHAPE_CIRCLE, 60, 50), 0.5f, 1e-5f);
  EXPECT_NEAR(Cover(p, SHAPE_CIRCLE, 50, 55), 0.5f, 1e-5f);
}

TEST(PlaneCoverage, VanishesEdgeOnWhileLinesStay) {
  for (const bool tiltX : {true, false}) {
    Particle p = At(50, 50, 10);
    (tiltX ? p.rotX : p.rotY) = 88.0f;
    for (int shape = SHAPE_POINT; shape <= SHAPE_SQUARE; ++shape) EXPECT_EQ(Cover(p, shape, 50, 50), 0.0f);
    EXPECT_EQ(Cover(p, SHAPE_LINE, 50, 50), 1.0f);
    EXPECT_EQ(Cover(p, SHAPE_ARROW, 50, 50), 1.0f);
    (tiltX ? p.rotX : p.rotY) = 87.0f;  // cosine 0.0523
    EXPECT_EQ(Cover(p, SHAPE_CIRCLE, 50, 50), 1.0f);
  }
}

TEST(PlaneCoverage, OtherIdsCoverNothing) {
  for (const int shape : {-1, 0, 7, 9, 10, 11, 1000}) EXPECT_EQ(Cover(At(5, 5, 10), shape, 5, 5), 0.0f);
}

TEST(LineCoverage, SizeIsTheWholeLength) {
  Particle p = At(50, 50, 20);
  p.lineWidth = 4.0f;
  EXPECT_EQ(Cover(p, SHAPE_LINE, 50, 50, false), 1.0f);
  EXPECT_EQ(Cover(p, SHAPE_LINE, 60, 50, false), 1.0f) << "the end itself";
  EXPECT_EQ(Cover(p, SHAPE_LINE, 60.01f, 50, false), 0.0f) << "flat";
  EXPECT_EQ(Cover(p, SHAPE_LINE, 50, 52, false), 0.5f);
  EXPECT_EQ(Cover(p, SHAPE_LINE, 62, 50, true), 0.5f) << "rounded by half the stroke";
  EXPECT_EQ(Cover(p, SHAPE_LINE, 63, 50, true), 0.0f);
}

TEST(LineCoverage, FollowsTheSpin) {
  Particle p = At(50, 50, 20);
  p.rotZ = 90.0f;
  EXPECT_EQ(Cover(p, SHAPE_LINE, 50, 58), 1.0f);
  EXPECT_EQ(Cover(p, SHAPE_LINE, 58, 50), 0.0f);
}

TEST(LineCoverage, OfNoLengthIsADotOrNothing) {
  Particle p = At(50, 50, 0);
  p.lineWidth = 6.0f;
  EXPECT_EQ(Cover(p, SHAPE_LINE, 50, 50, true), 1.0f);
  EXPECT_EQ(Cover(p, SHAPE_LINE, 53, 50, true), 0.5f);
  EXPECT_EQ(Cover(p, SHAPE_LINE, 50, 47, true), 0.5f);
  EXPECT_EQ(Cover(p, SHAPE_LINE, 54, 50, true), 0.0f);
  for (float dx = -3.0f; dx <= 3.0f; dx += 1.0f) EXPECT_EQ(Cover(p, SHAPE_LINE, 50 + dx, 50, false), 0.0f);
}

TEST(ArrowCoverage, HasAShaftAndAHeadThatNarrows) {
  Particle p = At(50, 50, 100);  // from 0 to 100, the head from 65 on, 5 half-strokes wide
  p.lineWidth = 8.0f;
  EXPECT_EQ(Cover(p, SHAPE_ARROW, 10, 50), 1.0f);
  EXPECT_EQ(Cover(p, SHAPE_ARROW, 10, 54), 0.5f) << "edge of the shaft";
  EXPECT_EQ(Cover(p, SHAPE_ARROW, 64, 56), 0.0f) << "beside the shaft";
  EXPECT_EQ(Cover(p, SHAPE_ARROW, 66, 56), 1.0f) << "the head is wider";
  EXPECT_NEAR(Cover(p, SHAPE_ARROW, 82.5f, 55), 0.5f, 1e-4f) << "half way, half of its 10";
  EXPECT_EQ(Cover(p, SHAPE_ARROW, 100.5f, 50), 0.0f);
  EXPECT_EQ(Cover(p, SHAPE_ARROW, -0.5f, 50), 0.0f);
  EXPECT_EQ(Cover(p, SHAPE_ARROW, 10, 50, true), Cover(p, SHAPE_ARROW, 10, 50, false));
}

TEST(Bounds, AreWideEnoughForEveryCoveredPixel) {
  std::mt19937 random(3);
  std::uniform_real_distribution<float> unit(0.0f, 1.0f);
  for (int i = 0; i < 200; ++i) {
    Particle p = At(30 + unit(random), 30 + unit(random), 0.2f + 12 * unit(random));
    p.lineWidth = 4 * unit(random);
    p.rotX = 80 * unit(random);
    p.rotY = 80 * unit(random);
    p.rotZ = 360 * unit(random);
    p.cocRadius = i % 2 == 0 ? 0.0f : 4 * unit(random);
    const ShapeFrame f = prepareShape(p);
    for (const int shape : {1, 2, 3, 4, 5, 6, 8}) {
      for (int y = 0; y < 60; ++y) {
        for (int x = 0; x < 60; ++x) {
          const float px = static_cast<float>(x);
          const float py = static_cast<float>(y);
          if (computeCoverage(px, py, f, shape, true) > 0.001f) {
            ASSERT_TRUE(inBounds(px, py, f, shape)) << "shape " << shape << " at " << x << ", " << y;
          }
        }
      }
    }
  }
}

TEST(Bounds, AreABoxOfTheStatedWidth) {
  Particle p = At(50, 50, 10);
  p.cocRadius = 2.0f;
  const ShapeFrame f = prepareShape(p);
  EXPECT_TRUE(inBounds(66, 66, f, SHAPE_CIRCLE)) << "10 + 2 + 1 and 2 + 1 more";
  EXPECT_FALSE(inBounds(66.1f, 50, f, SHAPE_CIRCLE));
  EXPECT_TRUE(inBounds(60, 60, f, SHAPE_LINE)) << "5 + 1 + 2 + 2";
  EXPECT_FALSE(inBounds(60.1f, 50, f, SHAPE_LINE));
  EXPECT_TRUE(inBounds(61.5f, 50, f, SHAPE_ARROW)) << "5 + 2.5 + 2 + 2";
  EXPECT_FALSE(inBounds(61.6f, 50, f, SHAPE_ARROW));
}

TEST(Accumulation, LeavesPixelsOutsideAlone) {
  float r = 0.1f, g = 0.2f, b = 0.3f, a = 0.4f;
  accumParticle(100, 100, At(5, 5, 4), SHAPE_CIRCLE, BLEND_NORMAL, true, r, g, b, a);
  EXPECT_EQ(a, 0.4f);
  accumParticle(5, 5, At(5, 5, 4), SHAPE_CIRCLE, BLEND_NORMAL, true, r, g, b, a);
  EXPECT_EQ(a, 1.0f);
  EXPECT_EQ(r, 1.0f);
}

}  // namespace
}  // namespace vantle::kernel
