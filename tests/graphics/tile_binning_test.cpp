#include "render/graphics/tile_binning.h"

#include "tests/reference/dice.h"

#include <cmath>
#include <gtest/gtest.h>
#include <limits>
#include <vector>

namespace vantle {
namespace {

constexpr float kNan = std::numeric_limits<float>::quiet_NaN();
constexpr float kInfinity = std::numeric_limits<float>::infinity();

kernel::Particle MakeParticle(float sx, float sy, float size) {
  kernel::Particle p{};
  p.sx = sx;
  p.sy = sy;
  p.size = size;
  p.alpha = 1.0f;
  return p;
}

TileLists Bin(const std::vector<kernel::Particle>& particles, int32_t shape, int32_t width, int32_t height) {
  TileLists lists;
  EXPECT_TRUE(BinParticles(particles.data(), particles.size(), shape, width, height, &lists));
  return lists;
}

std::vector<int32_t> ListOf(const TileLists& lists, int32_t tile) {
  const size_t t = static_cast<size_t>(tile);
  const int32_t* const indices = lists.indices.data();
  return {indices + lists.offsets[t], indices + lists.offsets[t + 1]};
}

using Indices = std::vector<int32_t>;

// Reach 4 + 3 = 7 around (32, 10): columns 25 to 39, rows 3 to 17.
TEST(TileBinning, APlainParticleGoesIntoTheTilesItReaches) {
  const TileLists lists = Bin({MakeParticle(32.0f, 10.0f, 4.0f)}, SHAPE_CIRCLE, 100, 64);
  EXPECT_EQ(lists.tilesX, 4);
  EXPECT_EQ(lists.tilesY, 2);
  ASSERT_EQ(lists.offsets.size(), 9u);
  EXPECT_EQ(ListOf(lists, 0), Indices{0});
  EXPECT_EQ(ListOf(lists, 1), Indices{0});
  for (int32_t tile = 2; tile < 8; ++tile) EXPECT_EQ(ListOf(lists, tile), Indices{});
}

TEST(TileBinning, ReachIsTheSumOfWhatAParticleHas) {
  kernel::Particle p = MakeParticle(0.0f, 0.0f, 4.0f);
  p.lineWidth = 2.0f;
  p.cocRadius = 1.5f;
  EXPECT_EQ(TileReach(p, SHAPE_SOFT_CIRCLE), 1.5f + 4.0f + 2.0f + 3.0f);
}

// A square of size 100 turned by 45 degrees has its corners at 141.42, and its bounds two pixels further.
TEST(TileBinning, ReachHoldsTheCornersOfATurnedSquare) {
  kernel::Particle p = MakeParticle(0.0f, 0.0f, 100.0f);
  p.rotZ = 45.0f;
  EXPECT_NEAR(TileReach(p, SHAPE_SQUARE), 143.42f, 0.01f);
  p.rotZ = 0.0f;
  EXPECT_EQ(TileReach(p, SHAPE_SQUARE), 103.0f);
}

// Half of a head of 2.5 strokes: 125, wider than stroke and length together.
TEST(TileBinning, ReachHoldsAWideArrowHead) {
  kernel::Particle p = MakeParticle(0.0f, 0.0f, 0.0f);
  p.lineWidth = 100.0f;
  EXPECT_EQ(TileReach(p, SHAPE_ARROW), 127.0f);
  EXPECT_EQ(TileReach(p, SHAPE_LINE), 103.0f);
}

TEST(TileBinning, ListsKeepThePaintersOrder) {
  std::vector<kernel::Particle> particles;
  for (int i = 0; i < 50; ++i)
    particles.push_back(MakeParticle(20.0f + static_cast<float>(i % 7), 16.0f, 30.0f));
  const TileLists lists = Bin(particles, SHAPE_CIRCLE, 64, 32);
  for (int32_t tile = 0; tile < 2; ++tile) {
    const Indices list = ListOf(lists, tile);
    ASSERT_EQ(list.size(), 50u);
    for (int32_t i = 0; i < 50; ++i) EXPECT_EQ(list[static_cast<size_t>(i)], i);
  }
}

TEST(TileBinning, AnEmptyFrameHasEmptyListsAndTwoEntries) {
  TileLists lists;
  ASSERT_TRUE(BinParticles(nullptr, 0, SHAPE_CIRCLE, 33, 1, &lists));
  EXPECT_EQ(lists.tilesX, 2);
  EXPECT_EQ(lists.tilesY, 1);
  for (size_t i = 0; i < lists.offsets.size(); ++i) EXPECT_EQ(lists.offsets[i], 0);
  ASSERT_EQ(lists.indices.size(), 2u);
  EXPECT_EQ(lists.indices[0], 0);
  EXPECT_EQ(lists.indices[1], 0);
}

// Particle 1 alone is seen: a list of one entry would be taken for particle 0.
TEST(TileBinning, ASingleEntryIsFilledUpToTwo) {
  const TileLists lists =
      Bin({MakeParticle(-500.0f, 5.0f, 4.0f), MakeParticle(5.0f, 5.0f, 4.0f)}, SHAPE_CIRCLE, 16, 16);
  EXPECT_EQ(ListOf(lists, 0), Indices{1});
  ASSERT_EQ(lists.indices.size(), 2u);
  EXPECT_EQ(lists.indices[1], 0);
}

TEST(TileBinning, ParticlesBesideThePictureAreInNoTile) {
  const TileLists lists = Bin({MakeParticle(-20.0f, 10.0f, 4.0f), MakeParticle(10.0f, -20.0f, 4.0f),
                               MakeParticle(120.0f, 10.0f, 4.0f), MakeParticle(10.0f, 120.0f, 4.0f)},
                              SHAPE_CIRCLE, 64, 64);
  EXPECT_EQ(lists.offsets[4], 0);
}

TEST(TileBinning, HugeParticlesSaturateAndFillThePicture) {
  for (const float size : {1e9f, 1e20f, 3e38f}) {
    const TileLists lists = Bin({MakeParticle(10.0f, 10.0f, size)}, SHAPE_SQUARE, 100, 100);
    EXPECT_EQ(lists.offsets[16], 16) << size;
  }
  kernel::Particle blurred = MakeParticle(10.0f, 10.0f, 1.0f);
  blurred.cocRadius = kInfinity;
  EXPECT_EQ(Bin({blurred}, SHAPE_CIRCLE, 100, 100).offsets[16], 16);
  const TileLists far = Bin({MakeParticle(3e38f, -3e38f, 10.0f)}, SHAPE_CIRCLE, 100, 100);
  EXPECT_EQ(far.offsets[16], 0);
}

TEST(TileBinning, WhatIsNotANumberTouchesNothing) {
  std::vector<kernel::Particle> particles(6, MakeParticle(10.0f, 10.0f, 4.0f));
  particles[0].sx = kNan;
  particles[1].sy = kNan;
  particles[2].size = kNan;
  particles[3].cocRadius = kNan;
  particles[4].size = kInfinity;
  particles[5].sx = kInfinity;
  EXPECT_EQ(Bin(particles, SHAPE_CIRCLE, 32, 32).offsets[1], 0);
}

// A circle has no stroke; the rasteriser draws it whatever its line width.
TEST(TileBinning, AnUnusedLineWidthHidesNothing) {
  kernel::Particle p = MakeParticle(10.0f, 10.0f, 4.0f);
  p.lineWidth = kNan;
  EXPECT_EQ(Bin({p}, SHAPE_CIRCLE, 32, 32).offsets[1], 1);
  EXPECT_EQ(Bin({p}, SHAPE_LINE, 32, 32).offsets[1], 0);
}

TEST(TileBinning, APictureWithoutPixelsIsRefused) {
  const kernel::Particle p = MakeParticle(0.0f, 0.0f, 4.0f);
  for (const auto& [width, height] : {std::pair{0, 10}, {10, 0}, {-5, 10}, {10, INT32_MIN}}) {
    TileLists lists;
    EXPECT_FALSE(BinParticles(&p, 1, SHAPE_CIRCLE, width, height, &lists));
    EXPECT_TRUE(lists.offsets.empty());
    EXPECT_TRUE(lists.indices.empty());
  }
}

// 16384 tiles of a picture, each with all of 8193 particles: 2^27 + 2^14 entries.
TEST(TileBinning, TooManyEntriesAreRefusedBeforeMemoryIsTaken) {
  std::vector<kernel::Particle> particles(8193, MakeParticle(2000.0f, 2000.0f, 1e6f));
  TileLists lists;
  EXPECT_FALSE(BinParticles(particles.data(), particles.size(), SHAPE_CIRCLE, 4096, 4096, &lists));
  EXPECT_TRUE(lists.offsets.empty());
  EXPECT_TRUE(lists.indices.empty());
}

TEST(TileBinning, TooManyTilesAreRefused) {
  TileLists lists;
  EXPECT_FALSE(BinParticles(nullptr, 0, SHAPE_CIRCLE, INT32_MAX, INT32_MAX, &lists));
  EXPECT_TRUE(lists.offsets.empty());
}

class TilesOfShape : public testing::TestWithParam<int32_t> {};

// Every pixel inside a particle's bounds lies in a tile that lists the particle, and no list has it twice.
TEST_P(TilesOfShape, HoldEveryParticleWhoseBoundsTouchThem) {
  constexpr int32_t kWidth = 150;
  constexpr int32_t kHeight = 100;
  reference::Dice dice{11};
  for (int i = 0; i < 300; ++i) {
    kernel::Particle p =
        MakeParticle(dice.Between(-60.0f, 210.0f), dice.Between(-60.0f, 160.0f), dice.Between(-5.0f, 70.0f));
    p.lineWidth = dice.Between(0.0f, 40.0f);
    p.rotX = dice.Between(-180.0f, 180.0f);
    p.rotY = dice.Between(-180.0f, 180.0f);
    p.rotZ = dice.Between(-720.0f, 720.0f);
    p.cocRadius = dice.Between(0.0f, 12.0f);
    const TileLists lists = Bin({p}, GetParam(), kWidth, kHeight);
    const kernel::ShapeFrame frame = kernel::prepareShape(p);
    for (int32_t y = 0; y < kHeight; ++y) {
      for (int32_t x = 0; x < kWidth; ++x) {
        const bool inside = kernel::inBounds(static_cast<float>(x), static_cast<float>(y), frame, GetParam());
        const int32_t tile = y / kTileSize * lists.tilesX + x / kTileSize;
        const size_t entries = ListOf(lists, tile).size();
        ASSERT_LE(entries, 1u);
        ASSERT_TRUE(entries == 1 || !inside) << "particle " << i << ", pixel " << x << ", " << y;
      }
    }
  }
}

// The bound that needs no sine is never narrower than the bounds.
TEST_P(TilesOfShape, ReachWithoutSinesHoldsTheBounds) {
  reference::Dice dice{12};
  for (int i = 0; i < 20000; ++i) {
    kernel::Particle p = MakeParticle(0.0f, 0.0f, dice.Between(-100.0f, 5000.0f));
    p.lineWidth = dice.Between(0.0f, 2000.0f);
    p.rotX = dice.Between(-180.0f, 180.0f);
    p.rotY = dice.Between(-180.0f, 180.0f);
    p.rotZ = dice.Between(-720.0f, 720.0f);
    p.cocRadius = dice.Between(0.0f, 500.0f);
    const kernel::ShapeFrame frame = kernel::prepareShape(p);
    const float reach = kernel::boundsReach(p, GetParam());
    ASSERT_GE(reach, kernel::boundsExtentX(frame, GetParam()));
    ASSERT_GE(reach, kernel::boundsExtentY(frame, GetParam()));
  }
}

INSTANTIATE_TEST_SUITE_P(Shapes, TilesOfShape,
                         testing::Values(SHAPE_POINT, SHAPE_CIRCLE, SHAPE_SOFT_CIRCLE, SHAPE_TRIANGLE,
                                         SHAPE_SQUARE, SHAPE_LINE, SHAPE_ARROW));

}  // namespace
}  // namespace vantle
