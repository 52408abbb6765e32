// The whole effect where Direct3D works: which frames it draws, and what arrives in the host's world.
#include "tests/windows/graphics/road_fixture.h"

namespace vantle::host {
namespace {

TEST_F(Road, DrawsEveryShapeAndModeOnceQuantised) {
  for (const int number : GraphicsNumbers()) {
    SCOPED_TRACE(number);
    ExpectGraphics(Frame(number));
  }
  EXPECT_EQ(TheGraphics().devices, 2) << "the probe's and the one that stays";
  EXPECT_EQ(TheCompiler().compilations, 1);
  EXPECT_EQ(TakeDebugTexts(), Texts{kStarted});
}

// Otherwise a picture could not tell which road it came by.
TEST_F(Road, TheTwoRoadsDifferInIntegersAlone) {
  for (const int number : kFrameOfDepth) {
    const FrameRequest request = Frame(number);
    const bool same =
        PixelsOf(Rendered(*processor.effect, request)) == GraphicsPixels(*processor.effect, request);
    EXPECT_EQ(same, request.depth == 32) << number;
  }
}

TEST_F(Road, TrailsAndSpritesNeverTouchDirect3D) {
  for (const int number : {5, 7, 8, 32, 34, 35}) {
    SCOPED_TRACE(number);
    ExpectProcessor(Frame(number));
  }
  EXPECT_EQ(TheGraphics().devices, 0);
  EXPECT_EQ(TheGraphics().dispatches, 0);
  EXPECT_EQ(TakeDebugTexts(), Texts{});
}

TEST_F(Road, AFrameWithoutParticlesIsTransparent) {
  for (const int number : kFrameOfDepth) {
    FrameRequest request = Frame(number);
    request.input = std::make_shared<const World>(MakeWorld(request.width, request.height, request.depth));
    request.layers = [](int, A_long, A_long, A_u_long) { return LayerFrame{}; };
    const std::vector<std::uint8_t> pixels = PixelsOf(Rendered(*shipped.effect, request));
    EXPECT_EQ(pixels, std::vector<std::uint8_t>(pixels.size()));
    EXPECT_EQ(TheGraphics().seen.particles, 1u);
  }
  EXPECT_EQ(TheGraphics().dispatches, 3);
}

TEST_F(Road, AWorldWithoutPixelsAsksForNothing) {
  for (const auto& [width, height] : {std::pair{0, 64}, {96, 0}, {0, 0}}) {
    FrameRequest request = Frame(0);
    request.width = width;
    request.height = height;
    EXPECT_TRUE(PixelsOf(Rendered(*shipped.effect, request)).empty());
  }
  EXPECT_EQ(TheGraphics().devices, 0);
}

// However the host's rows lie; what is between them stays, which the host looks after.
TEST_F(Road, FillsRowsOfEveryLayout) {
  for (const RowLayout rows : {RowLayout::kTight, RowLayout::kOddPadding, RowLayout::kNegative,
                               RowLayout::kPixelAligned, RowLayout::kByteAligned}) {
    Close();
    HostOptions options;
    options.rows = rows;
    options.soilOutput = true;
    Open(options);
    for (const int number : kFrameOfDepth) {
      SCOPED_TRACE(testing::Message() << "layout " << static_cast<int>(rows) << ", frame " << number);
      TheGraphics().rowPitch = 5000;
      ExpectGraphics(Frame(number));
    }
  }
}

// The list of indices never has just one entry, whatever is on the screen.
TEST_F(Road, ASingleVisibleParticleIsDrawn) {
  FrameRequest request = Frame(0);
  constexpr int kDensity = 19;
  int drawn = 0;
  for (const double density : {1.0, 2.0, 3.0, 5.0}) {
    request.values[kDensity] = density;
    ExpectGraphics(request);
    EXPECT_GE(TheGraphics().seen.indices, 2u);
    for (const std::uint8_t code : PixelsOf(Rendered(*shipped.effect, request))) drawn += code != 0 ? 1 : 0;
  }
  EXPECT_GT(drawn, 0);
}

TEST_F(Road, SolidLayersGoOverIt) {
  int compared = 0;
  for (const int number : GraphicsNumbers()) {
    const FrameRequest request = VariedFrame(*processor.effect, number);
    if (request.depth != 32) continue;
    ++compared;
    EXPECT_EQ(PixelsOf(Rendered(*shipped.effect, request)), PixelsOf(Rendered(*processor.effect, request)));
  }
  EXPECT_EQ(TheGraphics().dispatches, compared);
  EXPECT_GT(compared, 10);
}

}  // namespace
}  // namespace vantle::host
