// The picture library of the Windows program, where it is another one than elsewhere.
#include "host/io/picture_codec.h"

#include "host/io/codes.h"
#include "tests/cli/scratch.h"
#include "tests/cli/tiny_jpeg.h"
#include "tests/cli/tiny_png.h"

#include <gtest/gtest.h>

namespace vantle::io {
namespace {

using test::FailureOf;
using test::Scratch;

TEST(PictureCodec, PngKeepsEveryCodeAtEveryDepthAndOddSize) {
  const Scratch scratch;
  for (const PixelDepth depth : {PixelDepth::k8, PixelDepth::k16}) {
    for (const auto& [width, height] : {std::pair{1, 1}, {31, 17}, {200, 3}, {1, 257}}) {
      const Picture picture = test::RandomPicture(width, height, depth, 7);
      const std::string path = test::SavePicture(scratch, "x.png", picture);
      const Picture again = ReadPicture(path, depth);
      EXPECT_EQ(again.width, width);
      EXPECT_EQ(again.height, height);
      EXPECT_EQ(again.pixels, picture.pixels);
      EXPECT_EQ(ReadPictureSize(path).width, width);
    }
  }
}

TEST(PictureCodec, ReadsGreyPalettesAndFewBits) {
  const Scratch scratch;
  const std::string rows("\0\x1B", 2);  // four pixels of two bits: 0, 1, 2, 3
  const std::string grey = scratch.Write("grey.png", test::TinyPng(4, 1, 2, 0, "", rows));
  const Picture picture = ReadPicture(grey, PixelDepth::k8);
  for (size_t x = 0; x < 4; ++x) {
    EXPECT_EQ(std::to_integer<int>(picture.pixels[4 * x]), 255);
    EXPECT_EQ(std::to_integer<int>(picture.pixels[4 * x + 1]), static_cast<int>(85 * x));
  }
  const std::string colours = test::PngChunk("PLTE", std::string("\x0A\x14\x1E\x28\x32\x3C", 6));
  const std::string palette =
      scratch.Write("p.png", test::TinyPng(2, 1, 1, 3, colours, std::string("\0\x40", 2)));
  const Picture indexed = ReadPicture(palette, PixelDepth::k8);
  EXPECT_EQ(std::to_integer<int>(indexed.pixels[1]), 10);
  EXPECT_EQ(std::to_integer<int>(indexed.pixels[7]), 60);
}

TEST(PictureCodec, ReadsJpeg) {
  const Scratch scratch;
  const Picture picture = ReadPicture(scratch.Write("x.jpg", test::TinyJpeg()), PixelDepth::k8);
  ASSERT_EQ(picture.width, 8);
  ASSERT_EQ(picture.height, 8);
  for (size_t i = 0; i < picture.pixels.size(); ++i)
    EXPECT_EQ(std::to_integer<int>(picture.pixels[i]), i % 4 == 0 ? 255 : 200) << i;
  const std::string cut = scratch.Write("cut.jpg", test::TinyJpeg().substr(0, 100));
  EXPECT_EQ(FailureOf([&] { ReadPicture(cut, PixelDepth::k8); }).substr(0, 2), "3 ");
}

TEST(PictureCodec, RefusesDamagedMissingAndForeignFiles) {
  const Scratch scratch;
  const std::string path = test::SavePicture(scratch, "x.png", test::RandomPicture(9, 9, PixelDepth::k8, 1));
  const std::string whole = test::ReadText(path);
  for (size_t length = 0; length < whole.size(); length += 7) {
    const std::string cut = scratch.Write("cut.png", whole.substr(0, length));
    EXPECT_EQ(FailureOf([&] { ReadPicture(cut, PixelDepth::k8); }).substr(0, 2), "3 ") << length;
  }
  EXPECT_EQ(FailureOf([&] { ReadPicture(scratch.Path("none.png"), PixelDepth::k8); }).substr(0, 2), "3 ");
  const std::string text = scratch.Write("text.png", "no picture");
  EXPECT_NE(FailureOf([&] { ReadPicture(text, PixelDepth::k8); }).find("PNG or JPEG"), std::string::npos);
}

TEST(PictureCodec, SaysThatItWritesNoExr) {
  EXPECT_EQ(FailureOf([] { FormatForName("x.exr"); }),
            "2 x.exr: the name must end in .png or .npy; this build writes no .exr");
}

}  // namespace
}  // namespace vantle::io
