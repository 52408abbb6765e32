#include "host/io/image_file.h"

#include "host/io/codes.h"
#include "tests/cli/scratch.h"
#include "tests/cli/tiny_jpeg.h"
#include "tests/cli/tiny_png.h"

#include <OpenImageIO/imageio.h>
#include <array>
#include <gtest/gtest.h>

namespace vantle::io {
namespace {

using test::FailureOf;
using test::Scratch;

// The four channels of a pixel, as codes or floats.
template <class Channel>
std::array<Channel, 4> Pixel(const Picture& picture, int32_t x, int32_t y) {
  std::array<Channel, 4> argb;
  std::memcpy(argb.data(), Row(picture, y) + static_cast<size_t>(x) * sizeof(argb), sizeof(argb));
  return argb;
}

using Pixel8 = std::array<uint8_t, 4>;
using Pixel16 = std::array<uint16_t, 4>;
using PixelF = std::array<float, 4>;

template <class Channel>
std::string WriteWith(const Scratch& scratch, const std::string& name, OIIO::ImageSpec spec,
                      const std::vector<Channel>& pixels) {
  const std::string path = scratch.Path(name);
  auto output = OIIO::ImageOutput::create(path);
  EXPECT_TRUE(output && output->open(path, spec) && output->write_image(spec.format, pixels.data()) &&
              output->close())
      << OIIO::geterror();
  return path;
}

TEST(ImageFile, EightBitPngKeepsEveryCodeAlsoUnderTransparency) {
  const Scratch scratch;
  const Picture picture = test::RandomPicture(31, 17, PixelDepth::k8, 1);
  const Picture again = ReadPicture(test::SavePicture(scratch, "x.png", picture), PixelDepth::k8);
  EXPECT_EQ(again.width, 31);
  EXPECT_EQ(again.height, 17);
  EXPECT_EQ(again.pixels, picture.pixels);
}

TEST(ImageFile, SixteenBitPngKeepsEveryWorldCode) {
  const Scratch scratch;
  Picture picture = MakePicture(182, 182, PixelDepth::k16);
  for (uint32_t i = 0; i < 182 * 182; ++i) {
    const auto code = static_cast<uint16_t>(std::min(i, 32768u));
    const uint16_t argb[4] = {static_cast<uint16_t>(32768 - code), code, static_cast<uint16_t>(code / 2),
                              32768};
    std::memcpy(&picture.pixels[i * 8], argb, 8);
  }
  const Picture again = ReadPicture(test::SavePicture(scratch, "x.png", picture), PixelDepth::k16);
  EXPECT_EQ(again.pixels, picture.pixels);
}

TEST(ImageFile, FloatWorldsBecomeSixteenBitPngHeldToTheRange) {
  const Scratch scratch;
  Picture picture = MakePicture(2, 1, PixelDepth::k32);
  const float values[8] = {1.0f, 0.5f, -2.0f, 7.0f, 0.25f, 1.0f, 0.0f, 0.75f};
  std::memcpy(picture.pixels.data(), values, sizeof(values));
  const Picture again = ReadPicture(test::SavePicture(scratch, "x.png", picture), PixelDepth::k32);
  const PixelF first = Pixel<float>(again, 0, 0);
  EXPECT_FLOAT_EQ(first[0], 1.0f);
  EXPECT_NEAR(first[1], 0.5f, 1e-5f);
  EXPECT_FLOAT_EQ(first[2], 0.0f);
  EXPECT_FLOAT_EQ(first[3], 1.0f);
}

TEST(ImageFile, EightBitFilesFillDeeperWorldsByTheDocumentedRule) {
  const Scratch scratch;
  const std::string path = test::SavePicture(scratch, "x.png", test::FlatPicture8(1, 1, 255, 128, 1, 0));
  EXPECT_EQ(Pixel<uint16_t>(ReadPicture(path, PixelDepth::k16), 0, 0), (Pixel16{32768, 16448, 129, 0}));
  const PixelF floats = Pixel<float>(ReadPicture(path, PixelDepth::k32), 0, 0);
  EXPECT_EQ(floats, (PixelF{1.0f, FloatFromCode(128, 255), FloatFromCode(1, 255), 0.0f}));
}

TEST(ImageFile, ExrIsPremultipliedInTheFileAndStraightInTheWorld) {
  const Scratch scratch;
  Picture picture = MakePicture(2, 1, PixelDepth::k32);
  const float values[8] = {0.5f, 1.0f, 0.25f, 4.0f, 0.0f, 0.0f, 0.0f, 0.0f};
  std::memcpy(picture.pixels.data(), values, sizeof(values));
  const std::string path = test::SavePicture(scratch, "x.exr", picture);
  const auto input = OIIO::ImageInput::open(path);
  ASSERT_TRUE(input);
  float rgba[8];
  ASSERT_TRUE(input->read_image(0, 0, 0, 4, OIIO::TypeDesc::FLOAT, rgba));
  EXPECT_EQ(input->spec().format, OIIO::TypeDesc::FLOAT);
  EXPECT_EQ(input->spec().channelnames, (std::vector<std::string>{"R", "G", "B", "A"}));
  const float stored[8] = {0.5f, 0.125f, 2.0f, 0.5f, 0, 0, 0, 0};
  for (int i = 0; i < 8; ++i) EXPECT_EQ(rgba[i], stored[i]) << i;
  EXPECT_EQ(ReadPicture(path, PixelDepth::k32).pixels, picture.pixels);
}

TEST(ImageFile, ExrOfCodesHoldsFractionsOfFull) {
  const Scratch scratch;
  const std::string path = test::SavePicture(scratch, "x.exr", test::FlatPicture8(3, 2, 255, 51, 255, 0));
  EXPECT_EQ(Pixel<uint8_t>(ReadPicture(path, PixelDepth::k8), 2, 1), (Pixel8{255, 51, 255, 0}));
  EXPECT_EQ(Pixel<float>(ReadPicture(path, PixelDepth::k32), 0, 0)[1], 0.2f);
}

TEST(ImageFile, AnExrFillsItsDisplayWindow) {
  const Scratch scratch;
  OIIO::ImageSpec spec(2, 1, 4, OIIO::TypeDesc::FLOAT);
  spec.x = 1;
  spec.y = 2;
  spec.full_x = 0;
  spec.full_y = 0;
  spec.full_width = 4;
  spec.full_height = 3;
  const std::string path = WriteWith(scratch, "w.exr", spec, std::vector<float>{1, 0, 0, 1, 0, 1, 0, 1});
  const Picture picture = ReadPicture(path, PixelDepth::k8);
  EXPECT_EQ(picture.width, 4);
  EXPECT_EQ(picture.height, 3);
  EXPECT_EQ(Pixel<uint8_t>(picture, 0, 0), (Pixel8{0, 0, 0, 0}));
  EXPECT_EQ(Pixel<uint8_t>(picture, 1, 2), (Pixel8{255, 255, 0, 0}));
  EXPECT_EQ(Pixel<uint8_t>(picture, 2, 2), (Pixel8{255, 0, 255, 0}));
  EXPECT_EQ(Pixel<uint8_t>(picture, 3, 2), (Pixel8{0, 0, 0, 0}));
}

TEST(ImageFile, TiffAlphaIsTakenAsTheFileMeansIt) {
  const Scratch scratch;
  OIIO::ImageSpec spec(1, 1, 4, OIIO::TypeDesc::UINT8);
  spec.attribute("oiio:UnassociatedAlpha", 1);
  const std::string straight = WriteWith(scratch, "s.tif", spec, std::vector<uint8_t>{200, 100, 50, 128});
  EXPECT_EQ(Pixel<uint8_t>(ReadPicture(straight, PixelDepth::k8), 0, 0), (Pixel8{128, 200, 100, 50}));

  spec.attribute("oiio:UnassociatedAlpha", 0);
  const std::string premultiplied = WriteWith(scratch, "p.tif", spec, std::vector<uint8_t>{100, 50, 25, 128});
  EXPECT_EQ(Pixel<uint8_t>(ReadPicture(premultiplied, PixelDepth::k8), 0, 0), (Pixel8{128, 199, 100, 50}));
}

TEST(ImageFile, SixteenBitAndFloatTiff) {
  const Scratch scratch;
  OIIO::ImageSpec spec(1, 1, 3, OIIO::TypeDesc::UINT16);
  const std::string path = WriteWith(scratch, "x.tif", spec, std::vector<uint16_t>{65535, 32768, 1});
  EXPECT_EQ(Pixel<uint16_t>(ReadPicture(path, PixelDepth::k16), 0, 0), (Pixel16{32768, 32768, 16384, 1}));
  OIIO::ImageSpec floats(1, 1, 3, OIIO::TypeDesc::FLOAT);
  const std::string deep = WriteWith(scratch, "f.tif", floats, std::vector<float>{2.0f, 0.5f, -1.0f});
  EXPECT_EQ(Pixel<float>(ReadPicture(deep, PixelDepth::k32), 0, 0), (PixelF{1.0f, 2.0f, 0.5f, -1.0f}));
  EXPECT_EQ(Pixel<uint8_t>(ReadPicture(deep, PixelDepth::k8), 0, 0), (Pixel8{255, 255, 128, 0}));
}

TEST(ImageFile, GreyWithAndWithoutAlpha) {
  const Scratch scratch;
  const std::string grey =
      scratch.Write("g.png", test::TinyPng(2, 1, 8, 0, "", std::string("\0\x40\xC0", 3)));
  EXPECT_EQ(Pixel<uint8_t>(ReadPicture(grey, PixelDepth::k8), 0, 0), (Pixel8{255, 0x40, 0x40, 0x40}));
  EXPECT_EQ(Pixel<uint8_t>(ReadPicture(grey, PixelDepth::k8), 1, 0), (Pixel8{255, 0xC0, 0xC0, 0xC0}));
  const std::string alpha =
      scratch.Write("ga.png", test::TinyPng(1, 1, 8, 4, "", std::string("\0\x60\x20", 3)));
  EXPECT_EQ(Pixel<uint8_t>(ReadPicture(alpha, PixelDepth::k8), 0, 0), (Pixel8{0x20, 0x60, 0x60, 0x60}));
}

TEST(ImageFile, PalettesAndFewBits) {
  const Scratch scratch;
  const std::string palette = test::PngChunk("PLTE", std::string("\xFF\x00\x00\x00\xFF\x00", 6));
  const std::string colors =
      scratch.Write("p.png", test::TinyPng(2, 1, 8, 3, palette, std::string("\0\1\0", 3)));
  EXPECT_EQ(Pixel<uint8_t>(ReadPicture(colors, PixelDepth::k8), 0, 0), (Pixel8{255, 0, 255, 0}));
  EXPECT_EQ(Pixel<uint8_t>(ReadPicture(colors, PixelDepth::k8), 1, 0), (Pixel8{255, 255, 0, 0}));
  const std::string opacities = palette + test::PngChunk("tRNS", std::string("\x80\x00", 2));
  const std::string clear =
      scratch.Write("t.png", test::TinyPng(2, 1, 8, 3, opacities, std::string("\0\1\0", 3)));
  EXPECT_EQ(Pixel<uint8_t>(ReadPicture(clear, PixelDepth::k8), 0, 0), (Pixel8{0, 0, 255, 0}));
  EXPECT_EQ(Pixel<uint8_t>(ReadPicture(clear, PixelDepth::k8), 1, 0), (Pixel8{128, 255, 0, 0}));
  const std::string bits = scratch.Write("b.png", test::TinyPng(2, 1, 1, 0, "", std::string("\0\x40", 2)));
  EXPECT_EQ(Pixel<uint8_t>(ReadPicture(bits, PixelDepth::k8), 0, 0), (Pixel8{255, 0, 0, 0}));
  EXPECT_EQ(Pixel<uint8_t>(ReadPicture(bits, PixelDepth::k8), 1, 0), (Pixel8{255, 255, 255, 255}));
}

TEST(ImageFile, JpegIsOpaqueAndNear) {
  const Scratch scratch;
  OIIO::ImageSpec spec(16, 16, 3, OIIO::TypeDesc::UINT8);
  std::vector<uint8_t> pixels;
  for (int i = 0; i < 256; ++i) pixels.insert(pixels.end(), {200, 100, 50});
  const Picture picture = ReadPicture(WriteWith(scratch, "x.jpg", spec, pixels), PixelDepth::k8);
  const Pixel8 pixel = Pixel<uint8_t>(picture, 8, 8);
  EXPECT_EQ(pixel[0], 255);
  EXPECT_NEAR(pixel[1], 200, 3);
  EXPECT_NEAR(pixel[2], 100, 3);
  EXPECT_NEAR(pixel[3], 50, 3);
}

TEST(ImageFile, AFlatJpegIsExact) {
  const Scratch scratch;
  const Picture picture = ReadPicture(scratch.Write("x.jpg", test::TinyJpeg()), PixelDepth::k8);
  ASSERT_EQ(picture.width, 8);
  for (size_t i = 0; i < picture.pixels.size(); ++i)
    EXPECT_EQ(std::to_integer<int>(picture.pixels[i]), i % 4 == 0 ? 255 : 200) << i;
}

TEST(ImageFile, ImpossibleSizesAreRefusedBeforeReading) {
  const Scratch scratch;
  const std::string huge = scratch.Write("h.png", test::TinyPng(40000, 40000, 8, 2, "", "x"));
  const std::string failure = FailureOf([&] { ReadPicture(huge, PixelDepth::k8); });
  EXPECT_EQ(failure,
            "3 " + huge + ": 40000 x 40000 pixels; a layer is 1 x 1 to 30000 x 30000: crop or scale it");
  EXPECT_EQ(FailureOf([&] { ReadPictureSize(huge); }), failure);
  const std::string empty = scratch.Write("e.png", test::TinyPng(0, 0, 8, 2, "", "x"));
  EXPECT_EQ(FailureOf([&] { ReadPicture(empty, PixelDepth::k8); }).rfind("3 " + empty + ": 0 x 0 pixels", 0),
            0u);
}

TEST(ImageFile, DamagedAndForeignFilesAreRefused) {
  const Scratch scratch;
  const std::string whole =
      test::SavePicture(scratch, "x.png", test::RandomPicture(64, 64, PixelDepth::k8, 3));
  const std::string cut = scratch.Write("cut.png", test::ReadText(whole).substr(0, 5000));
  EXPECT_NE(FailureOf([&] { ReadPicture(cut, PixelDepth::k8); }).find("damaged or cut off"),
            std::string::npos);
  const std::string text = scratch.Write("text.png", "this is no picture");
  EXPECT_NE(FailureOf([&] { ReadPicture(text, PixelDepth::k8); }).find("not a picture"), std::string::npos);
  EXPECT_NE(
      FailureOf([&] { ReadPicture(scratch.Path("no.png"), PixelDepth::k8); }).find("there is no such file"),
      std::string::npos);
}

TEST(ImageFile, APngIsRefusedWhereverItIsCutOrChanged) {
  const Scratch scratch;
  const std::string whole =
      test::ReadText(test::SavePicture(scratch, "x.png", test::RandomPicture(5, 4, PixelDepth::k8, 3)));
  for (size_t i = 0; i < whole.size(); ++i) {
    const std::string cut = scratch.Write("y.png", whole.substr(0, i));
    EXPECT_NE(FailureOf([&] { ReadPicture(cut, PixelDepth::k8); }), "") << i;
    std::string changed = whole;
    changed[i] = static_cast<char>(changed[i] ^ 0x10);
    EXPECT_NE(FailureOf([&] { ReadPicture(scratch.Write("y.png", changed), PixelDepth::k8); }), "") << i;
  }
}

TEST(ImageFile, OutputFormatsGoByTheEnding) {
  EXPECT_EQ(FormatForName("a/b.png"), OutputFormat::kPng);
  EXPECT_EQ(FormatForName("b.exr"), OutputFormat::kExr);
  EXPECT_EQ(FormatForName("b.npy"), OutputFormat::kNpy);
  EXPECT_EQ(FailureOf([] { FormatForName("b.gif"); }).substr(0, 2), "2 ");
}

TEST(ReducePicture, RoundsSidesUp) {
  for (const int32_t divisor : {2, 3, 4}) {
    const Picture reduced = ReducePicture(MakePicture(7, 9, PixelDepth::k8), divisor, divisor);
    EXPECT_EQ(reduced.width, (7 + divisor - 1) / divisor);
    EXPECT_EQ(reduced.height, (9 + divisor - 1) / divisor);
  }
  EXPECT_EQ(ReducePicture(MakePicture(1, 1, PixelDepth::k16), 4, 4).width, 1);
}

TEST(ReducePicture, AveragesBlocksAndWeighsColourByAlpha) {
  Picture picture = MakePicture(3, 1, PixelDepth::k8);
  const uint8_t pixels[12] = {255, 100, 0, 0, 0, 255, 255, 255, 255, 9, 8, 7};
  std::memcpy(picture.pixels.data(), pixels, sizeof(pixels));
  const Picture reduced = ReducePicture(picture, 2, 2);
  EXPECT_EQ(Pixel<uint8_t>(reduced, 0, 0), (Pixel8{128, 100, 0, 0}));
  EXPECT_EQ(Pixel<uint8_t>(reduced, 1, 0), (Pixel8{255, 9, 8, 7}));
}

TEST(ReducePicture, FlatPicturesStayFlatAtEveryDepth) {
  for (const PixelDepth depth : {PixelDepth::k8, PixelDepth::k16, PixelDepth::k32}) {
    const Picture flat = ConvertDepth(test::FlatPicture8(10, 7, 200, 10, 90, 250), depth);
    for (const int32_t divisor : {2, 3, 4}) {
      const Picture reduced = ReducePicture(flat, divisor, divisor);
      for (size_t at = 0; at < reduced.pixels.size(); at += PixelBytes(depth))
        ASSERT_EQ(0, std::memcmp(&reduced.pixels[at], flat.pixels.data(), PixelBytes(depth)));
    }
  }
}

TEST(ConvertDepth, AWiderDepthAndBackIsExact) {
  const Picture codes = test::RandomPicture(40, 40, PixelDepth::k8, 9);
  EXPECT_EQ(ConvertDepth(ConvertDepth(codes, PixelDepth::k16), PixelDepth::k8).pixels, codes.pixels);
  EXPECT_EQ(ConvertDepth(ConvertDepth(codes, PixelDepth::k32), PixelDepth::k8).pixels, codes.pixels);
  const Picture deep = test::RandomPicture(40, 40, PixelDepth::k16, 9);
  EXPECT_EQ(ConvertDepth(ConvertDepth(deep, PixelDepth::k32), PixelDepth::k16).pixels, deep.pixels);
}

}  // namespace
}  // namespace vantle::io
