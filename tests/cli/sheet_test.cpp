#include "host/cli/sheet.h"

#include "tests/cli/scratch.h"

#include <array>
#include <gtest/gtest.h>

namespace vantle::cli {
namespace {

std::array<uint8_t, 3> At(const SheetImage& sheet, int32_t x, int32_t y) {
  const size_t at = (static_cast<size_t>(y) * static_cast<size_t>(sheet.width) + static_cast<size_t>(x)) * 3;
  return {sheet.rgb[at], sheet.rgb[at + 1], sheet.rgb[at + 2]};
}

TEST(Sheet, CellsLieInATidyGrid) {
  std::vector<SheetCell> cells;
  for (uint8_t i = 0; i < 5; ++i)
    cells.push_back({test::FlatPicture8(8, 4, 255, static_cast<uint8_t>(100 + i), 0, 0), ""});
  const SheetImage sheet = ComposeSheet(cells, {3, 8, 2, false});
  EXPECT_EQ(sheet.width, 2 + 3 * 10);
  EXPECT_EQ(sheet.height, 2 + 2 * 6);
  for (int i = 0; i < 5; ++i) {
    const int32_t left = 2 + i % 3 * 10, top = 2 + i / 3 * 6;
    EXPECT_EQ(At(sheet, left, top)[0], 100 + i);
    EXPECT_EQ(At(sheet, left + 7, top + 3)[0], 100 + i);
    EXPECT_EQ(At(sheet, left - 1, top), At(sheet, 0, 0));
  }
  EXPECT_EQ(At(sheet, 2 + 20, 2 + 6), At(sheet, 0, 0));
}

TEST(Sheet, TransparencyShowsADarkGround) {
  const SheetImage sheet = ComposeSheet({{test::FlatPicture8(4, 4, 0, 255, 255, 255), ""}}, {1, 4, 1, false});
  EXPECT_LT(At(sheet, 2, 2)[0], 40);
}

TEST(Sheet, LabelsAreDrawnUnderThePicture) {
  const std::vector<SheetCell> cells = {{test::FlatPicture8(64, 32, 255, 0, 0, 0), "42"}};
  const SheetImage with = ComposeSheet(cells, {1, 64, 4, true}),
                   without = ComposeSheet(cells, {1, 64, 4, false});
  EXPECT_GT(with.height, without.height);
  int light = 0;
  for (int32_t y = 36; y < with.height; ++y)
    for (int32_t x = 0; x < with.width; ++x) light += At(with, x, y)[0] > 100 ? 1 : 0;
  EXPECT_GT(light, 40);
}

TEST(Sheet, LabelsAreFrameNumbers) {
  EXPECT_EQ(LabelOfFile("out/f.0042.png"), "42");
  EXPECT_EQ(LabelOfFile("f.0000.png"), "0");
  EXPECT_EQ(LabelOfFile("shot12_0007.exr"), "7");
  EXPECT_EQ(LabelOfFile("out/plain.png"), "plain");
}

TEST(Sheet, ColumnsComeNearWidescreenWithoutHoles) {
  EXPECT_EQ(ChooseColumns(1, 16, 9), 1);
  EXPECT_EQ(ChooseColumns(4, 16, 9), 2);
  EXPECT_EQ(ChooseColumns(9, 16, 9), 3);
  EXPECT_EQ(ChooseColumns(8, 16, 9), 4);
  EXPECT_EQ(ChooseColumns(8, 9, 16), 4);
}

}  // namespace
}  // namespace vantle::cli
