// Where a solid layer appears, against projections worked out here in double precision.

#include "particles/solid_plane.h"

#include "tests/particles/test_frames.h"

#include <algorithm>
#include <cmath>
#include <gtest/gtest.h>
#include <limits>
#include <random>

namespace vantle {
namespace {

constexpr double kRadian = 3.14159265358979323846 / 180.0;
constexpr float kNan = std::numeric_limits<float>::quiet_NaN();
constexpr float kInf = std::numeric_limits<float>::infinity();

struct Place {
  double x, y;
};

/// The texel position of an output position.
Place ToTexel(const SolidPlacement& p, double x, double y) {
  const double* m = p.toLayer;
  const double w = m[6] * x + m[7] * y + m[8];
  return {(m[0] * x + m[1] * y + m[2]) / w, (m[3] * x + m[4] * y + m[5]) / w};
}

void ExpectAt(const Place& found, double x, double y, double tolerance) {
  EXPECT_NEAR(found.x, x, tolerance);
  EXPECT_NEAR(found.y, y, tolerance);
}

/// A frame of `width` x `height` output pixels at 1/divisor of the full resolution, seen without perspective.
FrameSettings Frame(int32_t width, int32_t height, int32_t divisor = 1) {
  FrameSettings s = testing::PlainSettings(width, height);
  s.fullWidth = width * divisor;
  s.fullHeight = height * divisor;
  s.downsampleX = s.downsampleY = 1.0f / static_cast<float>(divisor);
  s.viewAngle = 0.0f;
  s.showSolids = true;
  return s;
}

PlaneSettings AtRest() {
  return {{0, 0, 0}, {0, 0, 0}, {1, 1}, 100};
}

/// A camera in front of the frame's centre, at the distance from which the frame fills its picture.
CameraData StandardCamera(const FrameSettings& s, double distance) {
  CameraData camera;
  camera.hasCamera = true;
  camera.imagePlaneDistance = distance;
  camera.cameraCentre[0] = static_cast<float>(s.fullWidth) * 0.5f;
  camera.cameraCentre[1] = static_cast<float>(s.fullHeight) * 0.5f;
  camera.viewMatrix[12] = -s.fullWidth * 0.5;
  camera.viewMatrix[13] = -s.fullHeight * 0.5;
  camera.viewMatrix[14] = distance;
  return camera;
}

TEST(SolidPlane, AtRestTexelsLieOnPixelsAtEveryResolution) {
  std::mt19937 random(7);
  const auto upTo = [&](uint32_t most) { return static_cast<int32_t>(1 + random() % most); };
  for (int round = 0; round < 4000; ++round) {
    FrameSettings s = Frame(upTo(2500), upTo(2500), 1 + round % 4);
    s.viewAngle = round % 3 == 0 ? 0.0f : 40.0f;
    const bool sameSize = round % 5 == 0;
    const int32_t width = sameSize ? s.outputWidth : upTo(2500);
    const int32_t height = sameSize ? s.outputHeight : upTo(2500);
    const CameraData camera = round % 2 == 0 ? CameraData{} : StandardCamera(s, 1777.777);
    SolidPlacement p;
    ASSERT_TRUE(PlaceSolidLayer(s, camera, AtRest(), width, height, &p));

    const double left = (s.outputWidth - width) / 2.0, top = (s.outputHeight - height) / 2.0;
    EXPECT_EQ(p.x0, std::max(0.0, std::floor(left)));
    EXPECT_EQ(p.x1, std::min(s.outputWidth - 1.0, std::ceil(left + width)));
    EXPECT_EQ(p.y0, std::max(0.0, std::floor(top)));
    EXPECT_EQ(p.y1, std::min(s.outputHeight - 1.0, std::ceil(top + height)));
    const int32_t x = upTo(static_cast<uint32_t>(s.outputWidth)) - 1;
    const int32_t y = upTo(static_cast<uint32_t>(s.outputHeight)) - 1;
    ExpectAt(ToTexel(p, x, y), x - left, y - top, 1e-9);
  }
}

TEST(SolidPlane, MovesByFullPixelsWhateverTheResolution) {
  for (const int32_t divisor : {1, 2, 4}) {
    PlaneSettings plane = AtRest();
    plane.position[0] = 8;
    plane.position[1] = -12;
    SolidPlacement p;
    ASSERT_TRUE(PlaceSolidLayer(Frame(60, 40, divisor), {}, plane, 60, 40, &p));
    ExpectAt(ToTexel(p, 30, 20), 30 - 8.0 / divisor, 20 + 12.0 / divisor, 1e-9);
  }
}

TEST(SolidPlane, ScalesAboutTheFramesCentre) {
  PlaneSettings plane = AtRest();
  plane.scale[0] = 0.5f;
  plane.scale[1] = 2.0f;
  SolidPlacement p;
  ASSERT_TRUE(PlaceSolidLayer(Frame(60, 40), {}, plane, 60, 40, &p));
  ExpectAt(ToTexel(p, 30, 20), 30, 20, 1e-9);
  ExpectAt(ToTexel(p, 15, 0), 0, 10, 1e-9);
  ExpectAt(ToTexel(p, 45, 39), 60, 29.5, 1e-9);
  EXPECT_EQ(p.x0, 15);
  EXPECT_EQ(p.x1, 45);
  EXPECT_EQ(p.y0, 0);
  EXPECT_EQ(p.y1, 39);
}

TEST(SolidPlane, AQuarterTurnPutsTheRightEdgeBelow) {
  PlaneSettings plane = AtRest();
  plane.rotation[2] = 90;
  SolidPlacement p;
  ASSERT_TRUE(PlaceSolidLayer(Frame(40, 40), {}, plane, 40, 40, &p));
  ExpectAt(ToTexel(p, 20, 40), 40, 20, 1e-4);
  ExpectAt(ToTexel(p, 0, 20), 20, 40, 1e-4);
}

/// The point (x, y) of a frame-filling layer, turned about the frame's upright axis, then pushed away.
struct Turned {
  double x, y, z;
};
Turned TurnAboutY(double x, double y, double width, double degrees, double depth) {
  const double lx = x - width / 2;
  return {width / 2 + std::cos(degrees * kRadian) * lx, y, depth - std::sin(degrees * kRadian) * lx};
}

TEST(SolidPlane, IsSeenInPerspective) {
  for (const int32_t divisor : {1, 3}) {
    FrameSettings s = Frame(90, 60, divisor);
    s.viewAngle = 40;
    PlaneSettings plane = AtRest();
    plane.rotation[1] = 50;
    plane.position[2] = 70;
    SolidPlacement p;
    ASSERT_TRUE(PlaceSolidLayer(s, {}, plane, 90, 60, &p));

    const double width = s.fullWidth, height = s.fullHeight;
    const double focal = width / 2 / std::tan(20 * kRadian);
    for (int i = 0; i <= 6; ++i) {
      for (int j = 0; j <= 4; ++j) {
        const double u = 15.0 * i, v = 15.0 * j;
        const Turned w = TurnAboutY(u * divisor, v * divisor, width, 50, 70);
        const double k = focal / (focal + w.z);
        const double x = (w.x - width / 2) * k + width / 2, y = (w.y - height / 2) * k + height / 2;
        ExpectAt(ToTexel(p, x / divisor, y / divisor), u, v, 1e-3);
      }
    }
  }
}

TEST(SolidPlane, IsSeenByTheCameraThroughItsImagePlane) {
  const FrameSettings s = Frame(90, 60);
  CameraData camera = StandardCamera(s, 200);
  camera.imagePlaneDistance = 150;  // not what the distance to the frame suggests
  camera.zoom = 9999;
  PlaneSettings plane = AtRest();
  plane.rotation[1] = -35;
  SolidPlacement p;
  ASSERT_TRUE(PlaceSolidLayer(s, camera, plane, 90, 60, &p));
  for (const double u : {0.0, 20.0, 45.0, 90.0}) {
    for (const double v : {0.0, 30.0, 60.0}) {
      const Turned w = TurnAboutY(u, v, 90, -35, 200);
      ExpectAt(ToTexel(p, (w.x - 45) * 150 / w.z + 45, (w.y - 30) * 150 / w.z + 30), u, v, 1e-3);
    }
  }
}

TEST(SolidPlane, CornersBehindTheCameraAreHeldInFrontOfIt) {
  const FrameSettings s = Frame(90, 60);
  CameraData camera = StandardCamera(s, 20);
  PlaneSettings plane = AtRest();
  plane.rotation[1] = 80;
  SolidPlacement p;
  ASSERT_TRUE(PlaceSolidLayer(s, camera, plane, 90, 60, &p));
  const Turned near = TurnAboutY(90, 0, 90, 80, 20);
  ASSERT_LT(near.z, 0);
  const double k = 20 / 0.1;
  const Place corner = ToTexel(p, (near.x - 45) * k + 45, (near.y - 30) * k + 30);
  ExpectAt(corner, 90, 0, 0.1);
}

// A corner behind the camera, held in front of it, bends the quadrilateral inwards: its picture then goes
// through infinity, and pixels far from all four corners may lie on the layer.
TEST(SolidPlane, PixelsOutsideOfABentQuadrilateralMayLieOnTheLayer) {
  const FrameSettings s = Frame(90, 60);
  PlaneSettings plane = AtRest();
  plane.rotation[0] = 60;
  plane.rotation[1] = -60;
  plane.position[0] = -40;
  plane.position[1] = 40;
  SolidPlacement p;
  ASSERT_TRUE(PlaceSolidLayer(s, StandardCamera(s, 20), plane, 90, 60, &p));
  int outside = 0;
  for (int y = 0; y < 60; ++y) {
    for (int x = 0; x < 90; ++x) {
      const Place texel = ToTexel(p, x, y);
      const bool onLayer = texel.x >= 0 && texel.x < 90 && texel.y >= 0 && texel.y < 60;
      if (!onLayer) continue;
      EXPECT_TRUE(x >= p.x0 && x <= p.x1 && y >= p.y0 && y <= p.y1) << x << ", " << y;
      outside += x > 47 ? 1 : 0;
    }
  }
  EXPECT_GT(outside, 100) << "to the right of all corners, the rightmost of which is at 47";
}

TEST(SolidPlane, SeenFromItsEdgeIsNotDrawn) {
  for (const float viewAngle : {0.0f, 40.0f}) {
    for (const int axis : {0, 1}) {
      FrameSettings s = Frame(60, 40);
      s.viewAngle = viewAngle;
      PlaneSettings plane = AtRest();
      plane.rotation[axis] = 90;
      SolidPlacement p;
      EXPECT_FALSE(PlaceSolidLayer(s, {}, plane, 60, 40, &p));
      EXPECT_FALSE(PlaceSolidLayer(s, StandardCamera(s, 100), plane, 60, 40, &p));
      plane.rotation[axis] = 80;
      EXPECT_TRUE(PlaceSolidLayer(s, {}, plane, 60, 40, &p));
    }
  }
}

TEST(SolidPlane, BelowAHundredthOfAPixelIsNotDrawn) {
  PlaneSettings plane = AtRest();
  SolidPlacement p;
  plane.scale[0] = plane.scale[1] = 0.00999f;
  EXPECT_FALSE(PlaceSolidLayer(Frame(20, 20), {}, plane, 10, 10, &p));
  plane.scale[0] = plane.scale[1] = 0.01001f;
  EXPECT_TRUE(PlaceSolidLayer(Frame(20, 20), {}, plane, 10, 10, &p));
  plane.scale[0] = 0;
  EXPECT_FALSE(PlaceSolidLayer(Frame(20, 20), {}, plane, 10, 10, &p));
}

TEST(SolidPlane, OutsideTheOutputOrWithoutSizeIsNotDrawn) {
  SolidPlacement p;
  for (const int axis : {0, 1}) {
    for (const float far : {-100.0f, 100.0f}) {
      PlaneSettings plane = AtRest();
      plane.position[axis] = far;
      EXPECT_FALSE(PlaceSolidLayer(Frame(20, 20), {}, plane, 10, 10, &p));
    }
  }
  EXPECT_FALSE(PlaceSolidLayer(Frame(20, 20), {}, AtRest(), 0, 10, &p));
  EXPECT_FALSE(PlaceSolidLayer(Frame(20, 20), {}, AtRest(), 10, -1, &p));
}

TEST(SolidPlane, FactorsOfNothingCountAsFullResolution) {
  FrameSettings s = Frame(60, 40);
  s.downsampleX = 0.001f;
  s.downsampleY = -2.0f;
  SolidPlacement p;
  ASSERT_TRUE(PlaceSolidLayer(s, {}, AtRest(), 60, 40, &p));
  ExpectAt(ToTexel(p, 7, 9), 7, 9, 1e-9);
}

TEST(SolidPlane, AnythingStoredGivesAFinitePlacementInsideTheOutputOrNone) {
  std::mt19937 random(11);
  const float odd[] = {kNan, kInf, -kInf, 3e38f, -3e38f, 1e-38f, 0.0f, -0.0f, 30000.0f, -1.0f, 90.0f, 179.9f};
  const auto value = [&] { return odd[random() % std::size(odd)]; };
  int placed = 0;
  for (int round = 0; round < 200000; ++round) {
    FrameSettings s = Frame(60, 40);
    PlaneSettings plane = AtRest();
    CameraData camera = round % 2 == 0 ? CameraData{} : StandardCamera(s, 100);
    float* const targets[] = {&plane.position[0], &plane.position[1], &plane.position[2], &plane.rotation[0],
                              &plane.rotation[1], &plane.rotation[2], &plane.scale[0],    &plane.scale[1],
                              &s.viewAngle,       &s.downsampleX,     &s.downsampleY};
    for (int changes = 0; changes < 3; ++changes) *targets[random() % std::size(targets)] = value();
    if (round % 4 == 1) camera.viewMatrix[random() % 16] = static_cast<double>(value());
    SolidPlacement p;
    if (!PlaceSolidLayer(s, camera, plane, 50, 30, &p)) continue;
    ++placed;
    for (const double m : p.toLayer) ASSERT_TRUE(std::isfinite(m));
    ASSERT_TRUE(p.x0 >= 0 && p.x0 <= p.x1 && p.x1 < 60 && p.y0 >= 0 && p.y0 <= p.y1 && p.y1 < 40);
  }
  EXPECT_GT(placed, 10000);
}

// ---- Weights ----

SolidWeights WeightsAt(float transform, float fade) {
  FrameSettings s = Frame(60, 40);
  s.transform = transform;
  s.fade = fade;
  return WeighSolids(s);
}

void ExpectWeights(const SolidWeights& w, float a, float b) {
  EXPECT_FLOAT_EQ(w.a, a);
  EXPECT_FLOAT_EQ(w.b, b);
}

TEST(SolidWeights, FallAndRiseOverTheFade) {
  ExpectWeights(WeightsAt(0.25f, 0.5f), 0.5f, 0.0f);
  ExpectWeights(WeightsAt(0.75f, 0.5f), 0.0f, 0.5f);
  ExpectWeights(WeightsAt(0.0f, 0.2f), 1.0f, 0.0f);
  ExpectWeights(WeightsAt(0.05f, 0.2f), 0.75f, 0.0f);
  ExpectWeights(WeightsAt(0.5f, 0.2f), 0.0f, 0.0f);
  ExpectWeights(WeightsAt(1.0f, 0.2f), 0.0f, 1.0f);
}

TEST(SolidWeights, AreNothingAtTheEndsOfTheFadeItself) {
  ExpectWeights(WeightsAt(0.25f, 0.25f), 0.0f, 0.0f);
  ExpectWeights(WeightsAt(0.75f, 0.25f), 0.0f, 0.0f);
  ExpectWeights(WeightsAt(0.5f, 0.5f), 0.0f, 0.0f);
}

TEST(SolidWeights, HoldTheFadeToAHalfAndTheTransformToItsRange) {
  ExpectWeights(WeightsAt(0.25f, 0.9f), 0.5f, 0.0f);
  ExpectWeights(WeightsAt(-3.0f, 0.2f), 1.0f, 0.0f);
  ExpectWeights(WeightsAt(7.0f, 0.2f), 0.0f, 1.0f);
  ExpectWeights(WeightsAt(kNan, 0.2f), 1.0f, 0.0f);
}

TEST(SolidWeights, AreNothingWithoutAVisibleFadeOrSwitchedOff) {
  ExpectWeights(WeightsAt(0.0f, 0.001f), 0.0f, 0.0f);
  ExpectWeights(WeightsAt(0.0f, 0.0011f), 1.0f, 0.0f);
  ExpectWeights(WeightsAt(0.0f, -1.0f), 0.0f, 0.0f);
  ExpectWeights(WeightsAt(0.0f, kNan), 0.0f, 0.0f);
  FrameSettings off = Frame(60, 40);
  off.showSolids = false;
  off.transform = 0.0f;
  off.fade = 0.5f;
  ExpectWeights(WeighSolids(off), 0.0f, 0.0f);
}

}  // namespace
}  // namespace vantle
