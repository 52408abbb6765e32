#include "host/engine/world.h"

#include <bit>
#include <cmath>
#include <cstring>
#include <gtest/gtest.h>
#include <limits>
#include <stdexcept>

namespace vantle::host {
namespace {

constexpr RowLayout kLayouts[] = {RowLayout::kPadded,   RowLayout::kTight,        RowLayout::kOddPadding,
                                  RowLayout::kNegative, RowLayout::kPixelAligned, RowLayout::kByteAligned};

std::uintptr_t Address(const World& world) {
  return std::bit_cast<std::uintptr_t>(WorldRow(world, 0));
}

TEST(World, IsTransparentBlackAtFirst) {
  for (const int depth : {8, 16, 32}) {
    for (const RowLayout layout : kLayouts) {
      const World world = MakeWorld(5, 3, depth, layout);
      for (int i = 0; i < 15; ++i) {
        const PF_PixelFloat pixel = ReadPixel(world, i % 5, i / 5);
        EXPECT_EQ(pixel.alpha + pixel.red + pixel.green + pixel.blue, 0.0F);
      }
      EXPECT_TRUE(FindDamage(world).empty());
    }
  }
}

TEST(World, LaysRowsOutAsAsked) {
  const World padded = MakeWorld(5, 3, 8, RowLayout::kPadded);
  EXPECT_EQ(Address(padded) % 64, 0U);
  EXPECT_EQ(padded.rowBytes, 64);
  EXPECT_EQ(MakeWorld(16, 3, 8, RowLayout::kPadded).rowBytes, 128) << "padding even where none is needed";
  EXPECT_EQ(MakeWorld(5, 3, 16, RowLayout::kTight).rowBytes, 40);
  EXPECT_EQ(MakeWorld(5, 3, 16, RowLayout::kOddPadding).rowBytes, 64);
  EXPECT_EQ(MakeWorld(5, 3, 8, RowLayout::kNegative).rowBytes, -64);
  EXPECT_EQ(Address(MakeWorld(5, 3, 16, RowLayout::kPixelAligned)) % 64, 8U);
  const World odd = MakeWorld(5, 3, 16, RowLayout::kByteAligned);
  EXPECT_EQ(Address(odd) % 2, 1U);
  EXPECT_EQ(odd.rowBytes % 2, 1);
}

TEST(World, KeepsPixelsThroughEveryLayout) {
  for (const int depth : {8, 16, 32}) {
    World world = MakeWorld(7, 4, depth);
    for (int i = 0; i < 28; ++i) {
      WritePixel(world, i % 7, i / 7, {1.0F, static_cast<float>(i) / 28, 0.5F, 0.25F});
    }
    for (const RowLayout layout : kLayouts) {
      const World copy = CopyWorld(world, layout);
      EXPECT_EQ(HashPixels(copy), HashPixels(world));
      EXPECT_TRUE(FindDamage(copy).empty());
      EXPECT_EQ(ReadPixel(copy, 3, 2).red, ReadPixel(world, 3, 2).red);
    }
  }
}

TEST(World, RoundsAndClampsCodes) {
  World world = MakeWorld(1, 1, 8);
  WritePixel(world, 0, 0, {2.0F, -1.0F, 0.5F, std::numeric_limits<float>::quiet_NaN()});
  const std::uint8_t* row = WorldRow(world, 0);
  EXPECT_EQ(row[0], 255);
  EXPECT_EQ(row[1], 0);
  EXPECT_EQ(row[2], 128);
  EXPECT_EQ(row[3], 0);
  World deep = MakeWorld(1, 1, 16);
  WritePixel(deep, 0, 0, {1.0F, 0.5F, 0.0F, 1.0F / 32768});
  std::uint16_t codes[4];
  std::memcpy(codes, WorldRow(deep, 0), sizeof codes);
  EXPECT_EQ(codes[0], 32768);
  EXPECT_EQ(codes[1], 16384);
  EXPECT_EQ(codes[3], 1);
}

TEST(World, FindsEveryByteWrittenOutsideItsRows) {
  for (const RowLayout layout : kLayouts) {
    World world = MakeWorld(3, 3, 8, layout);
    SoilWorld(world);
    ASSERT_TRUE(FindDamage(world).empty()) << "pixels count as damage";
    std::size_t guards = 0;
    for (std::uint8_t& byte : world.storage) {
      byte = static_cast<std::uint8_t>(byte + 1);
      const std::size_t found = FindDamage(world).size();
      ASSERT_LE(found, 1U);
      guards += found;
      byte = static_cast<std::uint8_t>(byte - 1);
    }
    EXPECT_EQ(guards, world.storage.size() - 3 * 3 * 4);
  }
}

TEST(World, SaysWhereTheDamageIs) {
  World world = MakeWorld(3, 2, 8, RowLayout::kPadded);
  WorldRow(world, 0)[-1] = 0;
  WorldRow(world, 0)[12] = 0;
  WorldRow(world, 0)[13] = 0;
  WorldRow(world, 1)[12] = 0;
  const std::vector<std::string> expected = {"1 bytes written before the rows",
                                             "2 bytes written in the padding of row 0",
                                             "1 bytes written behind the rows"};
  EXPECT_EQ(FindDamage(world), expected);
  World upsideDown = MakeWorld(3, 3, 8, RowLayout::kNegative);
  WorldRow(upsideDown, 2)[12] = 0;
  EXPECT_EQ(FindDamage(upsideDown), std::vector<std::string>{"1 bytes written in the padding of row 2"});
}

TEST(World, MayBeEmpty) {
  for (const RowLayout layout : kLayouts) {
    EXPECT_TRUE(FindDamage(MakeWorld(0, 0, 8, layout)).empty());
    EXPECT_TRUE(FindDamage(MakeWorld(0, 5, 16, layout)).empty());
    EXPECT_TRUE(FindDamage(MakeWorld(5, 0, 32, layout)).empty());
  }
}

TEST(World, RefusesShapesThatHostsDoNotHave) {
  EXPECT_THROW(MakeWorld(30001, 1, 8), std::invalid_argument);
  EXPECT_THROW(MakeWorld(1, -1, 8), std::invalid_argument);
  EXPECT_THROW(MakeWorld(1, 1, 10), std::invalid_argument);
}

TEST(World, DescribesItselfToEffects) {
  World world = MakeWorld(4, 2, 16, RowLayout::kNegative);
  const PF_LayerDef layer = DescribeWorld(world, true);
  EXPECT_EQ(layer.width, 4);
  EXPECT_EQ(layer.height, 2);
  EXPECT_EQ(layer.rowbytes, -64);
  EXPECT_EQ(static_cast<const void*>(layer.data), WorldRow(world, 0));
  EXPECT_EQ(layer.world_flags, PF_WorldFlag_DEEP | PF_WorldFlag_WRITEABLE);
  EXPECT_EQ(layer.extent_hint.right, 4);
  EXPECT_EQ(DescribeReadOnlyWorld(MakeWorld(1, 1, 8)).world_flags, 0);
}

}  // namespace
}  // namespace vantle::host
