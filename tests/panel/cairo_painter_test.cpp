// What Cairo makes of a draw list, pixel by pixel where the answer is known.
#include "host/drawing/cairo_painter.h"

#include <array>
#include <cstring>
#include <gtest/gtest.h>

namespace vantle::host {
namespace {

constexpr DRAWBOT_ColorRGBA kRed{1, 0, 0, 1}, kGreen{0, 1, 0, 1}, kHalfWhite{1, 1, 1, 0.5f};
constexpr DRAWBOT_Rect32 kAll{0, 0, 20, 20};
constexpr std::uint32_t kRedPixel = 0xFFFF0000, kGreenPixel = 0xFF00FF00;

struct Canvas {
  CairoSurface surface = MakeCairoSurface(20, 20);
  Cairo cairo{cairo_create(surface.get())};

  void Paint(const DrawList& list, const DRAWBOT_Rect32& clip = kAll) {
    PaintDrawList(cairo.get(), list, clip);
  }
  std::uint32_t At(int x, int y) {
    cairo_surface_flush(surface.get());
    std::uint32_t argb = 0;
    std::memcpy(&argb,
                cairo_image_surface_get_data(surface.get()) +
                    std::ptrdiff_t{cairo_image_surface_get_stride(surface.get())} * y + x * 4,
                4);
    return argb;
  }
  int Painted() {
    int count = 0;
    for (int i = 0; i < 400; ++i) count += At(i % 20, i / 20) != 0 ? 1 : 0;
    return count;
  }
};

DrawPath RectPath(float left, float top, float width, float height) {
  return {{PathVerb::kRect, {left, top, width, height}}};
}

TEST(CairoPainter, ARectangleFillsItsPixelsAndNoOthers) {
  Canvas canvas;
  canvas.Paint({PaintRectOp{kRed, {3, 4, 5, 6}}});
  EXPECT_EQ(canvas.Painted(), 30);
  EXPECT_EQ(canvas.At(3, 4), kRedPixel);
  EXPECT_EQ(canvas.At(7, 9), kRedPixel);
  EXPECT_EQ(canvas.At(8, 9), 0u);
}

TEST(CairoPainter, TheOldPictureStaysUnderTheNew) {
  Canvas canvas;
  canvas.Paint({PaintRectOp{kRed, {0, 0, 4, 4}}});
  canvas.Paint({PaintRectOp{kGreen, {2, 0, 4, 4}}});
  EXPECT_EQ(canvas.At(1, 1), kRedPixel);
  EXPECT_EQ(canvas.At(2, 1), kGreenPixel);
  canvas.Paint({PaintRectOp{kHalfWhite, {0, 0, 1, 1}}});
  EXPECT_NEAR(static_cast<double>(canvas.At(0, 0) >> 8 & 255), 127.5, 1.0);
}

TEST(CairoPainter, NothingIsPaintedOutsideOfTheClip) {
  Canvas canvas;
  canvas.Paint({PaintRectOp{kRed, {-5, -5, 100, 100}}}, {4, 4, 3, 2});
  EXPECT_EQ(canvas.Painted(), 6);
  canvas.Paint({ClipOp{{0, 0, 1, 1}}, PaintRectOp{kGreen, {-5, -5, 100, 100}}});
  EXPECT_EQ(canvas.Painted(), 7);
}

TEST(CairoPainter, AListLeavesClipAndTransformAsTheyWere) {
  Canvas canvas;
  const DRAWBOT_MatrixF32 moved{{{1, 0, 0}, {0, 1, 0}, {10, 0, 1}}};
  canvas.Paint({PushStateOp{}, ClipOp{{0, 0, 1, 1}}, TransformOp{moved}});
  canvas.Paint({PaintRectOp{kRed, {0, 0, 20, 20}}});
  EXPECT_EQ(canvas.Painted(), 400);
}

TEST(CairoPainter, TransformsMoveByTheirLastRow) {
  Canvas canvas;
  const DRAWBOT_MatrixF32 twiceAndMoved{{{2, 0, 0}, {0, 2, 0}, {10, 4, 1}}};
  canvas.Paint({PushStateOp{}, TransformOp{twiceAndMoved}, PaintRectOp{kRed, {1, 1, 1, 1}}, PopStateOp{},
                PaintRectOp{kGreen, {0, 0, 1, 1}}});
  EXPECT_EQ(canvas.At(12, 6), kRedPixel);
  EXPECT_EQ(canvas.At(13, 7), kRedPixel);
  EXPECT_EQ(canvas.At(14, 6), 0u);
  EXPECT_EQ(canvas.At(0, 0), kGreenPixel);
}

TEST(CairoPainter, FillRulesDifferWhereAShapeCoversItselfTwice) {
  for (const bool evenOdd : {false, true}) {
    Canvas canvas;
    DrawPath path = RectPath(0, 0, 10, 10);
    path.push_back({PathVerb::kRect, {2, 2, 4, 4}});
    canvas.Paint({FillPathOp{kRed, path, evenOdd}});
    EXPECT_EQ(canvas.At(3, 3), evenOdd ? 0u : kRedPixel);
    EXPECT_EQ(canvas.At(8, 8), kRedPixel);
  }
}

TEST(CairoPainter, AStrokeThroughPixelCentresIsSharp) {
  Canvas canvas;
  canvas.Paint({StrokePathOp{kRed, 1, {{PathVerb::kMove, {2, 5.5f}}, {PathVerb::kLine, {12, 5.5f}}}}});
  EXPECT_EQ(canvas.Painted(), 10);
  EXPECT_EQ(canvas.At(2, 5), kRedPixel);
}

TEST(CairoPainter, AHairlineIsOnePixelOfTheScreenWide) {
  for (const double scale : {1.0, 2.0}) {
    Canvas canvas;
    cairo_scale(canvas.cairo.get(), scale, scale);
    const auto y = static_cast<float>(6.5 / scale), end = static_cast<float>(12 / scale);
    canvas.Paint({StrokePathOp{kRed, 0.005f, {{PathVerb::kMove, {0, y}}, {PathVerb::kLine, {end, y}}}}});
    EXPECT_EQ(canvas.Painted(), 12);
    EXPECT_EQ(canvas.At(3, 6), kRedPixel);
  }
}

TEST(CairoPainter, ArcsRunClockwiseFromThreeOClock) {
  Canvas canvas;
  // A quarter from the right to the bottom, closed over the centre.
  canvas.Paint(
      {FillPathOp{kRed,
                  {{PathVerb::kMove, {10, 10}}, {PathVerb::kArc, {10, 10, 8, 0, 90}}, {PathVerb::kClose, {}}},
                  false}});
  EXPECT_EQ(canvas.At(13, 13), kRedPixel);
  EXPECT_EQ(canvas.At(13, 6), 0u);
  EXPECT_EQ(canvas.At(6, 13), 0u);
}

TEST(CairoPainter, TextStandsOnItsOriginAndIsAligned) {
  const auto columns = [](DRAWBOT_TextAlignment alignment) {
    Canvas canvas;
    canvas.Paint({DrawStringOp{kRed, 11, u"H", {10, 15}, alignment, kDRAWBOT_TextTruncation_None, 0}});
    int low = 20, high = -1;
    for (int i = 0; i < 400; ++i) {
      if (canvas.At(i % 20, i / 20) == 0) continue;
      low = std::min(low, i % 20);
      high = std::max(high, i % 20);
      EXPECT_LE(i / 20, 15);
    }
    return std::pair(low, high);
  };
  const auto [leftLow, leftHigh] = columns(kDRAWBOT_TextAlignment_Left);
  const auto [rightLow, rightHigh] = columns(kDRAWBOT_TextAlignment_Right);
  const auto [midLow, midHigh] = columns(kDRAWBOT_TextAlignment_Center);
  EXPECT_GE(leftLow, 10);
  EXPECT_LT(rightHigh, 10);
  EXPECT_LT(midLow, 10);
  EXPECT_GE(midHigh, 10);
}

TEST(CairoPainter, TruncatedTextFitsItsWidth) {
  Canvas canvas;
  SelectHostFont(canvas.cairo.get(), 11);
  const std::u16string text = u"a rather long label";
  const double whole = TextWidth(canvas.cairo.get(), ToUtf8(text));
  EXPECT_EQ(TruncateText(canvas.cairo.get(), text, whole + 1, true), ToUtf8(text));
  for (double width = 0; width < whole; width += 7) {
    const std::string cut = TruncateText(canvas.cairo.get(), text, width, true);
    EXPECT_LE(TextWidth(canvas.cairo.get(), cut), width);
    EXPECT_LT(cut.size(), text.size() + 3);
  }
}

TEST(CairoPainter, Utf16BecomesUtf8) {
  EXPECT_EQ(ToUtf8(u"a\u00e9\u20ac"), "a\xC3\xA9\xE2\x82\xAC");
  EXPECT_EQ(ToUtf8(u"\xD83D\xDE00"), "\xF0\x9F\x98\x80");
  EXPECT_EQ(ToUtf8(std::u16string{0xD83D, u'x', 0xDE00}), "?x?");
}

TEST(CairoPainter, PicturesOfAllLayoutsGiveTheSamePixel) {
  // Red 200, green 100, blue 50, alpha 128 straight; premultiplied 100, 50, 25.
  struct Sample {
    DRAWBOT_PixelLayout layout;
    std::array<std::uint8_t, 4> bytes;
    std::uint32_t argb;
  };
  const Sample samples[] = {{kDRAWBOT_PixelLayout_24RGB, {200, 100, 50, 0}, 0xFFC86432},
                            {kDRAWBOT_PixelLayout_24BGR, {50, 100, 200, 0}, 0xFFC86432},
                            {kDRAWBOT_PixelLayout_32RGB, {9, 200, 100, 50}, 0xFFC86432},
                            {kDRAWBOT_PixelLayout_32BGR, {50, 100, 200, 9}, 0xFFC86432},
                            {kDRAWBOT_PixelLayout_32ARGB_Straight, {128, 200, 100, 50}, 0x80643219},
                            {kDRAWBOT_PixelLayout_32ARGB_Premul, {128, 100, 50, 25}, 0x80643219},
                            {kDRAWBOT_PixelLayout_32BGRA_Straight, {50, 100, 200, 128}, 0x80643219},
                            {kDRAWBOT_PixelLayout_32BGRA_Premul, {25, 50, 100, 128}, 0x80643219}};
  for (const Sample& sample : samples) {
    Canvas canvas;
    DrawImage image{1, 1, 4, sample.layout, {sample.bytes.begin(), sample.bytes.end()}};
    canvas.Paint({DrawImageOp{std::make_shared<DrawImage>(image), {6, 7}, 1}});
    EXPECT_EQ(canvas.At(6, 7), sample.argb) << sample.layout;
    EXPECT_EQ(canvas.Painted(), 1);
  }
}

TEST(CairoPainter, WithoutAntiAliasingEdgesAreWhole) {
  Canvas canvas;
  canvas.Paint({AntiAliasOp{kDRAWBOT_AntiAliasPolicy_None},
                FillPathOp{kRed, {{PathVerb::kArc, {10, 10, 7, 0, 360}}}, false}});
  for (int i = 0; i < 400; ++i) {
    const std::uint32_t argb = canvas.At(i % 20, i / 20);
    EXPECT_TRUE(argb == 0 || argb == kRedPixel);
  }
}

TEST(CairoPainter, AnEmptyPictureIsNoPicture) {
  EXPECT_EQ(MakeCairoSurface(0, 5), nullptr);
  EXPECT_EQ(MakeCairoSurface(5, -1), nullptr);
}

}  // namespace
}  // namespace vantle::host
