// The layers themselves at both ends: at rest they are reproduced as they are.
#include "tests/composition/effect_frames.h"

#include <algorithm>
#include <cmath>
#include <gtest/gtest.h>

namespace vantle::host {
namespace {

/// Opaque and restless: neighbours differ in every channel.
std::shared_ptr<const World> Restless(int width, int height, int depth) {
  auto world = std::make_shared<World>(MakeWorld(width, height, depth));
  for (int y = 0; y < height; ++y)
    for (int x = 0; x < width; ++x)
      WritePixel(
          *world, x, y,
          {1.0F, static_cast<float>((x * 37 + y * 11) % 256) / 255.0F,
           static_cast<float>((x * 5 + y * 91) % 256) / 255.0F, static_cast<float>((x * y) % 256) / 255.0F});
  return world;
}

struct Solids : testing::TestWithParam<int> {
  void SetUp() override {
    opened = OpenReal();
    ASSERT_NE(opened.effect, nullptr);
  }
  void TearDown() override { EXPECT_EQ(AllLines(CloseEffect(*opened.effect).problems), ""); }

  /// Solids on, no particles, A at full weight.
  FrameRequest Request(int divisor) {
    const int depth = GetParam();
    FrameRequest request = RealFrame(*opened.effect, 60 / divisor, 36 / divisor, depth);
    request.fullWidth = 60;
    request.fullHeight = 36;
    request.downsampleX = request.downsampleY = {1, static_cast<A_u_long>(divisor)};
    request.input = Restless(60 / divisor, 36 / divisor, depth);
    request.values = {{kShowSolidsParam, A_long{1}}, {kTransformParam, 0.0},  {kOpacityParam, 0.0},
                      {kThicknessAParam, 0.0},       {kThicknessBParam, 0.0}, {kViewAngleParam, 0.0}};
    LayerTable table;
    table.layers[kTargetLayerParam] = Restless(30 / divisor, 18 / divisor, depth);
    request.layers = LayersOf(*opened.effect, table, request.input);
    request.composition = CompositionAround(request, 8);
    request.composition->width = 60;
    request.composition->height = 36;
    return request;
  }

  OpenedEffect opened;
};

INSTANTIATE_TEST_SUITE_P(Depths, Solids, testing::Values(8, 16, 32));

constexpr double kOneCode = 1.001;

TEST_P(Solids, AtRestReproduceTheLayerAtEveryResolution) {
  for (const int divisor : {1, 2, 3}) {
    const FrameRequest request = Request(divisor);
    EXPECT_LE(GreatestDifference(RenderClean(*opened.effect, request), *request.input), kOneCode) << divisor;
  }
}

TEST_P(Solids, AtRestReproduceTheLayerThroughTheStandardCamera) {
  for (const int divisor : {1, 2, 3}) {
    for (const double zoom : {30.0, 60 * 50.0 / 36.0, 500.0}) {
      const FrameRequest request = Request(divisor);
      composition::Layer camera = MakeLayer(*request.composition, composition::LayerKind::kCamera, "camera");
      camera.streams[composition::kZoom] = composition::Constant({zoom, 0, 0});
      camera.streams[composition::kPosition] = composition::Constant({30, 18, -zoom});
      AddOnTop(*request.composition, camera);
      EXPECT_LE(GreatestDifference(RenderClean(*opened.effect, request), *request.input), kOneCode)
          << divisor << ", zoom " << zoom;
    }
  }
}

TEST_P(Solids, TheTargetLiesInTheMiddle) {
  FrameRequest request = Request(1);
  request.values[kTransformParam] = 100.0;
  const World drawn = RenderClean(*opened.effect, request);
  const World target = *Restless(30, 18, GetParam());
  double greatest = 0.0;
  for (int y = 0; y < 36; ++y) {
    for (int x = 0; x < 60; ++x) {
      const bool inside = x >= 15 && x < 45 && y >= 9 && y < 27;
      const PF_PixelFloat found = ReadPixel(drawn, x, y);
      const PF_PixelFloat expected = inside ? ReadPixel(target, x - 15, y - 9) : PF_PixelFloat{};
      greatest = std::max(greatest, std::fabs(static_cast<double>(found.red - expected.red)) * 255.0);
      EXPECT_EQ(found.alpha > 0.99F, inside) << x << ", " << y;
    }
  }
  EXPECT_LE(greatest, kOneCode);
}

TEST_P(Solids, TheWeightsCrossFade) {
  FrameRequest request = Request(1);
  request.values[kFadeParam] = 50.0;
  request.values[kTransformParam] = 25.0;
  const World half = RenderClean(*opened.effect, request);
  EXPECT_NEAR(ReadPixel(half, 2, 2).alpha, 0.5F, 0.01F) << "A half faded, B not yet there";
  request.values[kTransformParam] = 50.0;
  EXPECT_EQ(PixelsDrawn(RenderClean(*opened.effect, request)), 0);
  request.values[kTransformParam] = 100.0;
  request.values[kFadeParam] = 0.0;
  EXPECT_EQ(PixelsDrawn(RenderClean(*opened.effect, request)), 0) << "without a fade there are no solids";
}

TEST_P(Solids, AnEmptySourceIsNotReplacedByTheEffectsOwnLayer) {
  FrameRequest request = Request(1);
  LayerTable table;
  table.layers[kSourceLayerParam] = nullptr;
  request.layers = LayersOf(*opened.effect, table, request.input);
  EXPECT_EQ(PixelsDrawn(RenderClean(*opened.effect, request)), 0);
}

TEST_P(Solids, GoWithTheCameraAndTheNulls) {
  FrameRequest request = Request(1);
  request.values[kScaleAXParam] = 50.0;
  request.values[kScaleAYParam] = 50.0;
  const Centroid rest = CentroidOf(RenderClean(*opened.effect, request));
  EXPECT_NEAR(rest.x, 29.5, 1.0);
  ASSERT_EQ(AllLines(PressNulls(*opened.effect, request).problems), "");
  composition::Layer& null = request.composition->layers[1];
  ASSERT_EQ(null.name, "Vantle A Ctrl");
  null.streams[composition::kScale] = composition::Constant({50, 50, 0});
  null.streams[composition::kPosition] = composition::Constant({40, 18, 0});
  const FrameRequest bound = WithExpressions(*opened.effect, request);
  EXPECT_NEAR(CentroidOf(RenderClean(*opened.effect, bound)).x, rest.x + 10, 0.6);
  const int32_t id = AddCamera(*request.composition, 100.0);
  composition::FindLayer(*request.composition, id)->streams[composition::kPosition] =
      composition::Constant({40, 18, -100});
  EXPECT_NEAR(CentroidOf(RenderClean(*opened.effect, bound)).x, rest.x, 0.6);
}

}  // namespace
}  // namespace vantle::host
