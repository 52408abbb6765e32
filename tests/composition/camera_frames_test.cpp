// Cameras made of layers, as the effect renders them.
#include "host/composition/placement.h"
#include "tests/composition/effect_frames.h"

#include <cmath>
#include <gtest/gtest.h>
#include <numbers>

namespace vantle::host {
namespace {

struct CameraFrames : testing::Test {
  void SetUp() override {
    opened = OpenReal();
    ASSERT_NE(opened.effect, nullptr);
  }
  void TearDown() override { EXPECT_EQ(AllLines(CloseEffect(*opened.effect).problems), ""); }

  FrameRequest Request(int depth) {
    FrameRequest request = RealFrame(*opened.effect, 64, 40, depth);
    request.values[kShapeParam] = A_long{5};
    request.values[kSizeParam] = 3.0;
    request.values[kThicknessAParam] = request.values[kThicknessBParam] = 0.0;
    request.values[kViewAngleParam] = 0.0;
    request.composition = CompositionAround(request, 8);
    return request;
  }
  World Render(const FrameRequest& request) { return RenderClean(*opened.effect, request); }

  OpenedEffect opened;
};

TEST_F(CameraFrames, TheStandardCameraIsTheOrthographicPlacementAtZero) {
  for (const int depth : {8, 16, 32}) {
    FrameRequest request = Request(depth);
    const World without = Render(request);
    ASSERT_GT(PixelsDrawn(without), 500);
    AddCamera(*request.composition, 100.0);
    EXPECT_LE(GreatestDifference(without, Render(request)), depth == 8 ? 1.0 : 0.05) << depth;
  }
}

TEST_F(CameraFrames, TheStandardCameraIsTheViewAngleOfItsFocalLength) {
  for (const double zoom : {40.0, 64 * 50.0 / 36.0, 400.0}) {
    FrameRequest request = Request(32);
    request.values[kPositionAZParam] = -15.0;
    request.values[kThicknessAParam] = 30.0;
    request.values[kRotationAYParam] = A_long{25 * 65536};
    request.values[kViewAngleParam] = 2.0 * std::atan(32.0 / zoom) * 180.0 / std::numbers::pi;
    const World angle = Render(request);
    AddCamera(*request.composition, zoom);
    EXPECT_LE(GreatestDifference(angle, Render(request)), 0.5) << zoom;
  }
}

TEST_F(CameraFrames, AMatrixGivenByTheRequestGoesBeforeTheLayers) {
  FrameRequest request = Request(8);
  const World without = Render(request);
  FrameCamera given;
  given.matrix = {{{1, 0, 0, 0}, {0, 1, 0, 0}, {0, 0, 1, 0}, {32, 20, -100, 1}}};
  given.distance = 100;
  given.planeWidth = 64;
  given.planeHeight = 40;
  request.camera = given;
  const int32_t id = AddCamera(*request.composition, 10.0);
  composition::FindLayer(*request.composition, id)->streams[composition::kRotationY] =
      composition::Constant({180, 0, 0});
  EXPECT_LE(GreatestDifference(without, Render(request)), 1.0);
  request.camera.reset();
  EXPECT_EQ(PixelsDrawn(Render(request)), 0) << "that camera looks the other way";
}

TEST_F(CameraFrames, KeyframesMoveTheCamera) {
  FrameRequest request = Request(8);
  const int32_t id = AddCamera(*request.composition, 100.0);
  composition::Property& position =
      composition::FindLayer(*request.composition, id)->streams[composition::kPosition];
  position.keys = {{0.0, {32, 20, -100}, false}, {1.0, {52, 20, -100}, false}};
  request.time.current = 0;
  const Centroid start = CentroidOf(Render(request));
  request.time.current = 12;
  EXPECT_NEAR(CentroidOf(Render(request)).x, start.x - 10, 1.5)
      << "half a second later, ten pixels to the right";
}

TEST_F(CameraFrames, ACameraOnAParentGoesWithIt) {
  FrameRequest request = Request(8);
  composition::Composition& composition = *request.composition;
  composition::Layer parent = MakeLayer(composition, composition::LayerKind::kNull, "parent");
  parent.threeD = true;
  parent.streams[composition::kPosition] = composition::Constant({0, 8, 0});
  const int32_t id = AddCamera(composition, 100.0);
  const Centroid before = CentroidOf(Render(request));
  const int32_t parentId = AddOnTop(composition, parent);
  composition::FindLayer(composition, id)->parent = parentId;
  EXPECT_NEAR(CentroidOf(Render(request)).y, before.y - 8, 1.0);
}

TEST_F(CameraFrames, DepthOfFieldBlursWhatIsOutOfFocus) {
  FrameRequest request = Request(32);
  request.values[kDepthOfFieldParam] = A_long{1};
  composition::Composition& composition = *request.composition;
  const int32_t id = AddCamera(composition, 100.0);
  const auto set = [&](composition::Stream stream, double value) {
    composition::FindLayer(composition, id)->streams[static_cast<std::size_t>(stream)] =
        composition::Constant({value, 0, 0});
  };
  const World sharp = Render(request);
  set(composition::kAperture, 20);
  set(composition::kFocusDistance, 100);
  EXPECT_EQ(GreatestDifference(sharp, Render(request)), 0.0) << "the switch is off";
  set(composition::kDepthOfField, 1);
  EXPECT_LE(GreatestDifference(sharp, Render(request)), 1.0) << "everything is in focus";
  set(composition::kFocusDistance, 50);
  EXPECT_GT(GreatestDifference(sharp, Render(request)), 20.0);
  request.values[kDepthOfFieldParam] = A_long{0};
  EXPECT_EQ(GreatestDifference(sharp, Render(request)), 0.0) << "the effect's own switch is off";
}

TEST_F(CameraFrames, AnExpressionOfTheCameraIsApplied) {
  FrameRequest request = Request(8);
  request.reports = std::make_shared<composition::ExpressionReports>();
  const int32_t id = AddCamera(*request.composition, 100.0);
  const Centroid before = CentroidOf(Render(request));
  composition::Property& position =
      composition::FindLayer(*request.composition, id)->streams[composition::kPosition];
  position.expression = {"[value[0] - 6, value[1], value[2]]", true};
  EXPECT_NEAR(CentroidOf(Render(request)).x, before.x + 6, 1.5);
  position.expression.text = "foo";
  EXPECT_EQ(CentroidOf(Render(request)).x, before.x);
  EXPECT_EQ(composition::DrainReports(*request.reports).size(), 1U);
}

TEST_F(CameraFrames, WithoutDistanceThereIsNoCamera) {
  FrameRequest request = Request(8);
  const World without = Render(request);
  const int32_t id = AddCamera(*request.composition, 100.0);
  composition::FindLayer(*request.composition, id)->streams[composition::kZoom] = composition::Constant({});
  EXPECT_EQ(GreatestDifference(without, Render(request)), 0.0);
}

}  // namespace
}  // namespace vantle::host
