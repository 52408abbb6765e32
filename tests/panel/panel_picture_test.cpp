// The controls as pictures. The lists of calls are the exact check; here is what a person sees.
#include "host/io/image_file.h"
#include "tests/panel/real_panel.h"

#include <array>
#include <cmath>

namespace vantle::panel {
namespace {

struct Rgb {
  int r, g, b;
};

std::ostream& operator<<(std::ostream& out, const Rgb& c) {
  return out << c.r << " " << c.g << " " << c.b;
}

Rgb At(const io::Picture& picture, int x, int y) {
  const std::byte* pixel = io::Row(picture, y) + x * 4;
  return {std::to_integer<int>(pixel[1]), std::to_integer<int>(pixel[2]), std::to_integer<int>(pixel[3])};
}

void ExpectNear(const Rgb& found, const Rgb& expected, int tolerance, const std::string& what) {
  const bool near = std::abs(found.r - expected.r) <= tolerance &&
                    std::abs(found.g - expected.g) <= tolerance &&
                    std::abs(found.b - expected.b) <= tolerance;
  EXPECT_TRUE(near) << what << ": " << found << " instead of " << expected;
}

/// The control's part of the panel's picture.
io::Picture ControlPicture(const RealPanel& real, int param) {
  const io::Picture whole = PanelPicture(real.panel);
  const Rect& frame = FindRow(real.panel.layout, param)->frame;
  const int scale = static_cast<int>(real.panel.options.scale);
  io::Picture part = io::MakePicture(frame.width * scale, frame.height * scale, PixelDepth::k8);
  for (int y = 0; y < part.height; ++y)
    std::memcpy(io::Row(part, y), io::Row(whole, frame.top * scale + y) + frame.left * scale * 4,
                io::RowBytes(part));
  return part;
}

const char* const kEight =
    R"({ "Color Gradient": [[0, 1, 0, 1], [0.14, 0.1, 0.14, 0.86], [0.28, 1, 0.28, 0.7],
    [0.42, 0.1, 0.42, 0.57], [0.57, 1, 0.57, 0.42], [0.71, 0.1, 0.71, 0.28], [0.85, 1, 0.85, 0.14],
    [1, 0.1, 1, 0]],
  "Scale over Life": { "max": 2, "points": [[0, 0.1], [0.2, 1.9], [0.45, 0.3], [0.8, 1.2], [1, 0]] },
  "Opacity over Life": { "max": 1, "points": [[0, 0], [0.5, 1], [1, 0]] } })";

TEST(PanelPicture, TheGradientsPointsAreWhereTheyBelong) {
  RealPanel real;
  // The outline lies on the bar's edges: half of each pixel.
  ExpectNear(At(ControlPicture(real, kGradient), 100, 3), {66, 66, 66}, 1, "outline above the bar");
  real.Play(R"({ "control": "Color Gradient", "click": [100, 30], "modifiers": ["shift"] })");
  const io::Picture picture = ControlPicture(real, kGradient);
  ExpectNear(At(picture, 6, 14), {255, 255, 0}, 2, "start of the bar");
  ExpectNear(At(picture, 194, 14), {255, 102, 179}, 2, "end of the bar");
  ExpectNear(At(picture, 99, 14), {0, 255, 255}, 2, "middle of the bar");
  ExpectNear(At(picture, 100, 30), {0, 255, 255}, 2, "handle of the middle stop");
  ExpectNear(At(picture, 100, 34), {0, 255, 255}, 2, "foot of the handle");
  ExpectNear(At(picture, 60, 30), At(picture, 60, 38), 0, "ground between the handles");
}

// A click selects the middle stop of three.
TEST(PanelPicture, TheSelectedHandleHasAWhiteOutline) {
  RealPanel real;
  const Rgb grey = At(ControlPicture(real, kGradient), 100, 36);
  real.Play(R"({ "control": "Color Gradient", "click": [100, 30] })");
  const Rgb white = At(ControlPicture(real, kGradient), 100, 36);
  EXPECT_GT(white.r, grey.r + 40) << grey << " " << white;
}

TEST(PanelPicture, TheCurvesPointsAreWhereTheyBelong) {
  RealPanel real(R"({ "Scale over Life": { "max": 2, "points": [[0, 1], [0.5, 1], [1, 1]] } })");
  const io::Picture picture = ControlPicture(real, kScaleCurve);
  ExpectNear(At(picture, 2, 130), {38, 38, 38}, 1, "background");
  ExpectNear(At(picture, 52, 20), {64, 64, 64}, 1, "grid line, upright");
  ExpectNear(At(picture, 120, 4), {102, 102, 102}, 1, "outline of the plot");
  ExpectNear(At(picture, 120, 110), {54, 99, 99}, 2, "area under the curve");
  ExpectNear(At(picture, 100, 59), {102, 204, 128}, 3, "disc of the inner point");
  ExpectNear(At(picture, 5, 59), {77, 179, 179}, 3, "disc of the first point");
  ExpectNear(At(picture, 158, 134), {61, 61, 61}, 2, "face of the button");
  ExpectNear(At(picture, 154, 130), {119, 119, 119}, 3, "outline of the button");
  bool label = false;
  for (int x = 158; x < 196; ++x) label = label || At(picture, x, 128).r > 120;
  EXPECT_TRUE(label) << "label of the button";
}

TEST(PanelPicture, MovedHandlesLeaveTheirOldPicture) {
  RealPanel real;
  const Rgb ground = At(ControlPicture(real, kGradient), 140, 32);
  real.Play(R"({ "control": "Color Gradient", "drag": [[100, 30], [140, 30], [60, 30]] })");
  const io::Picture picture = ControlPicture(real, kGradient);
  ExpectNear(At(picture, 140, 32), {0, 255, 255}, 2, "where the handle was");
  ExpectNear(At(picture, 60, 32), {0, 255, 255}, 2, "where the handle is");
  EXPECT_NE(ground.g, 255);
}

TEST(PanelPicture, NothingIsDrawnAroundTheControls) {
  RealPanel real(kEight);
  const io::Picture whole = PanelPicture(real.panel);
  for (const int param : kCustomControls) {
    const Rect& frame = FindRow(real.panel.layout, param)->frame;
    for (int y = frame.top; y < frame.top + frame.height; ++y) {
      ExpectNear(At(whole, frame.left - 1, y), {30, 30, 30}, 0, "left of the control");
      ExpectNear(At(whole, frame.left + frame.width, y), {30, 30, 30}, 0, "right of the control");
    }
  }
}

/// A stored picture must be nearly the same: fonts and versions of Cairo differ a little.
void ExpectStored(const io::Picture& picture, const std::string& name) {
  const std::string found = testing::TempDir() + "/" + name;
  io::WriteFileAtomically(found, io::EncodePicture(io::View(picture), io::OutputFormat::kPng));
  io::Picture stored;
  ASSERT_NO_THROW(stored = io::ReadPicture(std::string(PANEL_PICTURES_FOLDER) + "/" + name, PixelDepth::k8))
      << "drawn: " << found;
  ASSERT_EQ(stored.width, picture.width);
  ASSERT_EQ(stored.height, picture.height);
  double sum = 0;
  int far = 0;
  for (size_t i = 0; i < picture.pixels.size(); ++i) {
    const int difference =
        std::abs(std::to_integer<int>(picture.pixels[i]) - std::to_integer<int>(stored.pixels[i]));
    sum += difference;
    far += difference > 48 ? 1 : 0;
  }
  const auto count = static_cast<double>(picture.pixels.size());
  EXPECT_LT(sum / count, 1.0) << "drawn: " << found;
  EXPECT_LT(far / count, 0.015) << "drawn: " << found;
}

TEST(PanelPicture, ControlsLookAsStored) {
  for (const int scale : {1, 2}) {
    PanelOptions options;
    options.scale = scale;
    const std::string suffix = scale == 1 ? ".png" : "_2x.png";
    RealPanel plain("{}", options), edited(kEight, options);
    ExpectStored(ControlPicture(plain, kGradient), "gradient_default" + suffix);
    ExpectStored(ControlPicture(plain, kScaleCurve), "curve_default" + suffix);
    ExpectStored(ControlPicture(edited, kGradient), "gradient_eight" + suffix);
    ExpectStored(ControlPicture(edited, kScaleCurve), "curve_five" + suffix);
    ExpectStored(ControlPicture(edited, kOpacityCurve), "curve_hill" + suffix);
  }
}

TEST(PanelPicture, ScalesGiveTheirSizesAndBadOnesAreRefused) {
  PanelOptions options;
  options.scale = 1.5;
  RealPanel real("{}", options);
  const io::Picture picture = PanelPicture(real.panel);
  EXPECT_EQ(picture.width, static_cast<int>(std::ceil(real.panel.layout.width * 1.5)));
  for (int i = 0; i < picture.width; ++i) EXPECT_EQ(io::Row(picture, 0)[i * 4], std::byte{255});
  options.scale = 100;
  Panel tooLarge;
  EXPECT_EQ(test::FailureOf([&] { OpenPanel(real.scene, *real.effect, options, &tooLarge, &real.warnings); }),
            "2 the panel would be too large or too small a picture: choose another --scale");
}

}  // namespace
}  // namespace vantle::panel
