// Where layers and cameras come to stand, against matrices written out by hand.
#include "host/composition/placement.h"

#include "base/matrix.h"

#include <cmath>
#include <cstring>
#include <gtest/gtest.h>
#include <numbers>
#include <random>

namespace vantle::composition {
namespace {

constexpr double kTiny = 1e-12;

Composition Small() {
  Composition composition;
  composition.width = 400;
  composition.height = 200;
  return composition;
}

Layer Null3D(const Composition& composition) {
  Layer layer = MakeLayer(composition, LayerKind::kNull, "null");
  layer.threeD = true;
  layer.streams[kPosition] = Constant({});
  return layer;
}

Matrix WorldOf(const Composition& composition, int32_t id) {
  Evaluation evaluation;
  evaluation.composition = &composition;
  return LayerToWorld(evaluation, *FindLayer(composition, id));
}

CameraView ViewOf(const Composition& composition, int32_t id) {
  Evaluation evaluation;
  evaluation.composition = &composition;
  return ViewOfCamera(evaluation, *FindLayer(composition, id));
}

void ExpectMatrix(const Matrix& found, const Matrix& expected, double tolerance = kTiny) {
  for (size_t row = 0; row < 4; ++row)
    for (size_t column = 0; column < 4; ++column)
      EXPECT_NEAR(found[row][column], expected[row][column], tolerance)
          << "row " << row << ", column " << column;
}

void ExpectPoint(const Numbers& found, const Numbers& expected, double tolerance = 1e-9) {
  for (size_t i = 0; i < 3; ++i) EXPECT_NEAR(found[i], expected[i], tolerance) << "coordinate " << i;
}

TEST(Placement, ATranslationStandsInTheLastRow) {
  Composition composition = Small();
  Layer layer = Null3D(composition);
  layer.streams[kPosition] = Constant({3, -4, 5});
  const int32_t id = AddOnTop(composition, layer);
  ExpectMatrix(WorldOf(composition, id), {{{1, 0, 0, 0}, {0, 1, 0, 0}, {0, 0, 1, 0}, {3, -4, 5, 1}}}, 0.0);
}

TEST(Placement, PositiveAnglesTurnXToYYToZAndZToX) {
  const auto turned = [](Stream stream, const Numbers& point) {
    Composition composition = Small();
    Layer layer = Null3D(composition);
    layer.streams[static_cast<size_t>(stream)] = Constant({90, 0, 0});
    return Apply(WorldOf(composition, AddOnTop(composition, layer)), point);
  };
  EXPECT_EQ(turned(kRotationZ, {1, 0, 0}), (Numbers{0, 1, 0})) << "clockwise on the screen, y being down";
  EXPECT_EQ(turned(kRotationX, {0, 1, 0}), (Numbers{0, 0, 1})) << "the lower edge goes away";
  EXPECT_EQ(turned(kRotationY, {0, 0, 1}), (Numbers{1, 0, 0})) << "the right edge comes nearer";
}

TEST(Placement, TheSingleAnglesTurnZFirst) {
  Composition composition = Small();
  Layer layer = Null3D(composition);
  layer.streams[kRotationZ] = Constant({90, 0, 0});
  layer.streams[kRotationX] = Constant({90, 0, 0});
  // (1,0,0) turns about z to (0,1,0), that about x to (0,0,1).
  ExpectPoint(Apply(WorldOf(composition, AddOnTop(composition, layer)), {1, 0, 0}), {0, 0, 1}, 0.0);
}

TEST(Placement, OrientationComesAfterTheSingleAngles) {
  Composition composition = Small();
  Layer layer = Null3D(composition);
  layer.streams[kRotationX] = Constant({90, 0, 0});
  layer.streams[kOrientation] = Constant({0, 90, 0});
  // (0,1,0) turns about x to (0,0,1), that about y to (1,0,0).
  ExpectPoint(Apply(WorldOf(composition, AddOnTop(composition, layer)), {0, 1, 0}), {1, 0, 0}, 0.0);
}

TEST(Placement, OrientationTurnsZBeforeX) {
  Composition composition = Small();
  Layer layer = Null3D(composition);
  layer.streams[kOrientation] = Constant({90, 0, 90});
  ExpectPoint(Apply(WorldOf(composition, AddOnTop(composition, layer)), {1, 0, 0}), {0, 0, 1}, 0.0);
}

TEST(Placement, AnchorPointThenScaleThenTurnThenPosition) {
  Composition composition = Small();
  Layer layer = Null3D(composition);
  layer.streams[kAnchorPoint] = Constant({10, 20, 0});
  layer.streams[kScale] = Constant({200, 50, 100});
  layer.streams[kRotationZ] = Constant({90, 0, 0});
  layer.streams[kPosition] = Constant({100, 100, 7});
  // (13, 24) - (10, 20) = (3, 4); scaled (6, 2); turned (-2, 6); moved (98, 106).
  ExpectPoint(Apply(WorldOf(composition, AddOnTop(composition, layer)), {13, 24, 0}), {98, 106, 7});
}

TEST(Placement, LayersOutOfSpaceHaveTwoDimensions) {
  Composition composition = Small();
  Layer layer = Null3D(composition);
  layer.threeD = false;
  layer.streams[kPosition] = Constant({1, 2, 3});
  layer.streams[kRotationX] = Constant({45, 0, 0});
  layer.streams[kRotationY] = Constant({45, 0, 0});
  layer.streams[kOrientation] = Constant({1, 2, 3});
  layer.streams[kScale] = Constant({100, 100, 300});
  ExpectMatrix(WorldOf(composition, AddOnTop(composition, layer)), Translation({1, 2, 0}), 0.0);
}

TEST(Placement, ParentsMoveTurnAndScaleTheirChildren) {
  Composition composition = Small();
  Layer parent = Null3D(composition);
  parent.streams[kPosition] = Constant({50, 60, 70});
  parent.streams[kScale] = Constant({200, 200, 200});
  parent.streams[kRotationZ] = Constant({90, 0, 0});
  Layer child = Null3D(composition);
  child.streams[kPosition] = Constant({10, 0, 5});
  child.parent = AddOnTop(composition, parent);
  const int32_t childId = AddOnTop(composition, child);
  // The child's origin (10, 0, 5): scaled (20, 0, 10), turned (0, 20, 10), moved (50, 80, 80).
  ExpectPoint(Apply(WorldOf(composition, childId), {0, 0, 0}), {50, 80, 80});
  Layer grandchild = Null3D(composition);
  grandchild.streams[kPosition] = Constant({1, 0, 0});
  grandchild.parent = childId;
  ExpectPoint(Apply(WorldOf(composition, AddOnTop(composition, grandchild)), {0, 0, 0}), {50, 82, 80});
}

TEST(Placement, AParentThatIsGoneOrInARingEndsTheChain) {
  Composition composition = Small();
  Layer layer = Null3D(composition);
  layer.streams[kPosition] = Constant({1, 0, 0});
  layer.parent = 77;
  const int32_t id = AddOnTop(composition, layer);
  ExpectMatrix(WorldOf(composition, id), Translation({1, 0, 0}), 0.0);
  Layer other = Null3D(composition);
  other.parent = id;
  FindLayer(composition, id)->parent = AddOnTop(composition, other);
  ExpectMatrix(WorldOf(composition, id), Translation({1, 0, 0}), 0.0);
}

TEST(Camera, ANewOneSeesThePlaneAtZeroInItsOwnSize) {
  Composition composition = Small();
  const int32_t id = AddOnTop(composition, MakeLayer(composition, LayerKind::kCamera, "camera"));
  const CameraView view = ViewOf(composition, id);
  EXPECT_NEAR(view.zoom, 400 * 50.0 / 36.0, kTiny);
  ExpectMatrix(view.toWorld, Translation({200, 100, -view.zoom}), 0.0);
  // Image plane coordinates of a point on z = 0 are the point itself.
  const Numbers seen = Apply(Translation({-200, -100, view.zoom}), {37, 151, 0});
  EXPECT_DOUBLE_EQ(seen[0] * view.zoom / seen[2] + 200, 37);
  EXPECT_DOUBLE_EQ(seen[1] * view.zoom / seen[2] + 100, 151);
}

TEST(Camera, TwoNodesLookAtThePointOfInterest) {
  std::mt19937 random(5);
  std::uniform_real_distribution<double> any(-500, 500);
  for (int i = 0; i < 300; ++i) {
    Composition composition = Small();
    Layer camera = MakeLayer(composition, LayerKind::kCamera, "camera");
    camera.twoNodes = true;
    const Numbers from{any(random), any(random), any(random)}, to{any(random), any(random), any(random)};
    camera.streams[kPosition] = Constant(from);
    camera.streams[kAnchorPoint] = Constant(to);
    const Matrix world = ViewOf(composition, AddOnTop(composition, camera)).toWorld;
    const double distance = std::hypot(to[0] - from[0], to[1] - from[1], to[2] - from[2]);
    ExpectPoint(Apply(world, {0, 0, distance}), to);
    EXPECT_NEAR(world[0][1], 0.0, kTiny) << "x stays level";
    EXPECT_GE(world[1][1], 0.0) << "y stays downwards";
  }
}

TEST(Camera, LooksStraightUpAndDownAndAtItself) {
  Composition composition = Small();
  Layer camera = MakeLayer(composition, LayerKind::kCamera, "camera");
  camera.twoNodes = true;
  camera.streams[kPosition] = Constant({0, 0, 0});
  camera.streams[kAnchorPoint] = Constant({0, 10, 0});
  const int32_t down = AddOnTop(composition, camera);
  ExpectPoint(Apply(ViewOf(composition, down).toWorld, {0, 0, 1}), {0, 1, 0}, 0.0);
  camera.streams[kAnchorPoint] = Constant({0, -10, 0});
  const int32_t up = AddOnTop(composition, camera);
  ExpectPoint(Apply(ViewOf(composition, up).toWorld, {0, 0, 1}), {0, -1, 0}, 0.0);
  camera.streams[kAnchorPoint] = Constant({0, 0, 0});
  ExpectMatrix(ViewOf(composition, AddOnTop(composition, camera)).toWorld, Identity(), 0.0);
}

TEST(Camera, TurnsAreTakenAfterLookingAtThePoint) {
  Composition composition = Small();
  Layer camera = MakeLayer(composition, LayerKind::kCamera, "camera");
  camera.twoNodes = true;
  camera.streams[kPosition] = Constant({0, 0, 0});
  camera.streams[kAnchorPoint] = Constant({10, 0, 0});
  camera.streams[kRotationZ] = Constant({90, 0, 0});
  const Matrix world = ViewOf(composition, AddOnTop(composition, camera)).toWorld;
  ExpectPoint(Apply(world, {0, 0, 1}), {1, 0, 0}, 0.0);
  ExpectPoint(Apply(world, {1, 0, 0}), {0, 1, 0}, 0.0);
}

TEST(Camera, OneNodeIgnoresThePointOfInterest) {
  Composition composition = Small();
  Layer camera = MakeLayer(composition, LayerKind::kCamera, "camera");
  camera.streams[kAnchorPoint] = Constant({1000, 0, 0});
  camera.streams[kRotationY] = Constant({30, 0, 0});
  const Matrix world = ViewOf(composition, AddOnTop(composition, camera)).toWorld;
  const double turn = std::numbers::pi / 6;
  ExpectMatrix(Multiply(world, Translation({-200, -100, 400 * 50.0 / 36.0})),
               {{{std::cos(turn), 0, -std::sin(turn), 0},
                 {0, 1, 0, 0},
                 {std::sin(turn), 0, std::cos(turn), 0},
                 {0, 0, 0, 1}}},
               1e-9);
}

TEST(Camera, StaysRigidUnderScaledParents) {
  Composition composition = Small();
  Layer parent = Null3D(composition);
  parent.streams[kScale] = Constant({300, 50, 120});
  parent.streams[kRotationZ] = Constant({20, 0, 0});
  Layer camera = MakeLayer(composition, LayerKind::kCamera, "camera");
  camera.streams[kPosition] = Constant({10, 10, 10});
  camera.streams[kRotationY] = Constant({35, 0, 0});
  camera.streams[kRotationX] = Constant({-15, 0, 0});
  camera.parent = AddOnTop(composition, parent);
  const Matrix world = ViewOf(composition, AddOnTop(composition, camera)).toWorld;
  Matrix turned = world;
  turned[3] = {0, 0, 0, 1};
  Matrix transposed{};
  for (size_t i = 0; i < 4; ++i)
    for (size_t k = 0; k < 4; ++k) transposed[i][k] = turned[k][i];
  ExpectMatrix(Multiply(turned, transposed), Identity(), 1e-12);
  const double handed = turned[0][0] * (turned[1][1] * turned[2][2] - turned[1][2] * turned[2][1]) -
                        turned[0][1] * (turned[1][0] * turned[2][2] - turned[1][2] * turned[2][0]) +
                        turned[0][2] * (turned[1][0] * turned[2][1] - turned[1][1] * turned[2][0]);
  EXPECT_NEAR(handed, 1.0, 1e-12) << "not mirrored";
  EXPECT_NEAR(world[3][2], 12.0, 1e-9) << "the position is the parent's";
}

TEST(Camera, TheInverseIsWhatTheEffectProjectsWith) {
  Composition composition = Small();
  Layer camera = MakeLayer(composition, LayerKind::kCamera, "camera");
  camera.streams[kOrientation] = Constant({10, 20, 30});
  const Matrix world = ViewOf(composition, AddOnTop(composition, camera)).toWorld;
  double numbers[16];
  std::memcpy(numbers, world.data(), sizeof numbers);
  double inverse[16];
  InvertMatrix4(numbers, inverse);
  Matrix view{};
  std::memcpy(view.data(), inverse, sizeof inverse);
  ExpectMatrix(Multiply(world, view), Identity(), 1e-9);
}

TEST(Camera, TheTopmostCounts) {
  Composition composition = Small();
  EXPECT_EQ(ActiveCamera(composition), nullptr);
  AddOnTop(composition, MakeLayer(composition, LayerKind::kCamera, "lower"));
  AddOnTop(composition, MakeLayer(composition, LayerKind::kCamera, "upper"));
  AddOnTop(composition, MakeLayer(composition, LayerKind::kNull, "null"));
  EXPECT_EQ(ActiveCamera(composition)->name, "upper");
}

}  // namespace
}  // namespace vantle::composition
