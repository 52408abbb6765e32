#include "particles/projection.h"

#include "particles/planes.h"
#include "tests/particles/test_frames.h"

#include <cmath>
#include <gtest/gtest.h>
#include <limits>
#include <random>

namespace vantle {
namespace {

using testing::PlainSettings;

constexpr float kRadians = 0.017453292f;

/// One particle to project, with what it looks like.
struct Subject {
  VectorLanes position{}, direction{};
  AppearanceLanes looks{};

  Subject(float x, float y, float z) {
    position.x[0] = x;
    position.y[0] = y;
    position.z[0] = z;
    looks.size[0] = 4.0f;
    looks.lineWidth[0] = 2.0f;
    looks.opacity[0] = 1.0f;
  }
};

bool Project(const FrameSettings& s, const CameraData& camera, const Subject& subject,
             ProjectedParticle* out) {
  const int32_t index = 0;
  return ProjectParticles(MakeViewProjection(s, camera), subject.position, subject.direction, subject.looks,
                          &index, 1, out) == 1;
}

TEST(SimpleView, IsOrthographicBelowHalfADegree) {
  FrameSettings s = PlainSettings(200, 100);
  s.viewAngle = 0.4f;
  ProjectedParticle p;
  ASSERT_TRUE(Project(s, {}, Subject(150, 20, 5000), &p));
  EXPECT_EQ(p.sx, 150.0f);
  EXPECT_EQ(p.sy, 20.0f);
  EXPECT_EQ(p.size, 4.0f);
  EXPECT_EQ(p.depth, 5000.0f);
  EXPECT_EQ(p.cocRadius, 0.0f);
  EXPECT_EQ(p.spriteFrame, -1);
}

TEST(SimpleView, ShrinksAboutTheCentreWithDepth) {
  FrameSettings s = PlainSettings(200, 100);
  s.viewAngle = 90.0f;  // the eye stands half the longer side away: 100
  ProjectedParticle p;
  ASSERT_TRUE(Project(s, {}, Subject(150, 20, 100), &p));
  EXPECT_NEAR(p.sx, 125.0f, 1e-4f);
  EXPECT_NEAR(p.sy, 35.0f, 1e-4f);
  EXPECT_NEAR(p.size, 2.0f, 1e-5f);
  EXPECT_NEAR(p.lineWidth, 1.0f, 1e-5f);
}

TEST(SimpleView, GrowsTwentyTimesAtMost) {
  FrameSettings s = PlainSettings(200, 100);
  s.viewAngle = 90.0f;
  ProjectedParticle p;
  for (const float z : {-95.0f, -100.0f, -1e6f}) {
    ASSERT_TRUE(Project(s, {}, Subject(101, 50, z), &p));
    EXPECT_NEAR(p.size, 80.0f, 1e-2f) << z;
    EXPECT_EQ(p.depth, z);
  }
}

TEST(SimpleView, TurnsAlongTheMotionOnDemand) {
  FrameSettings s = PlainSettings(200, 100);
  Subject subject(10, 10, 0);
  subject.looks.rotX[0] = 11.0f;
  subject.looks.rotZ[0] = 33.0f;
  subject.direction.x[0] = 0.0f;
  subject.direction.y[0] = 2.0f;
  ProjectedParticle p;
  ASSERT_TRUE(Project(s, {}, subject, &p));
  EXPECT_EQ(p.rotX, 11.0f);
  EXPECT_EQ(p.rotZ, 33.0f);
  s.autoOrient = true;
  ASSERT_TRUE(Project(s, {}, subject, &p));
  EXPECT_NEAR(p.rotZ, 90.0f, 1e-4f);
  EXPECT_EQ(p.rotX, 11.0f);
  subject.direction.y[0] = 0.01f;  // its square is not above the limit
  ASSERT_TRUE(Project(s, {}, subject, &p));
  EXPECT_EQ(p.rotZ, 33.0f);
}

TEST(Culling, DropsWhatIsTooSmallTransparentOrNotFinite) {
  const FrameSettings s = PlainSettings(200, 100);
  ProjectedParticle p;
  Subject subject(10, 10, 0);
  subject.looks.size[0] = 0.1f;
  EXPECT_FALSE(Project(s, {}, subject, &p));
  subject.looks.size[0] = 0.11f;
  EXPECT_TRUE(Project(s, {}, subject, &p));
  subject.looks.opacity[0] = 0.001f;
  EXPECT_FALSE(Project(s, {}, subject, &p));
  const float inf = std::numeric_limits<float>::infinity();
  for (const float odd : {inf, -inf, std::nanf("")}) {
    EXPECT_FALSE(Project(s, {}, Subject(odd, 0, 0), &p));
    EXPECT_FALSE(Project(s, {}, Subject(0, odd, 0), &p));
    EXPECT_FALSE(Project(s, {}, Subject(0, 0, odd), &p));
    Subject odder(0, 0, 0);
    odder.looks.size[0] = odd;
    EXPECT_FALSE(Project(s, {}, odder, &p));
    odder.looks.size[0] = 4.0f;
    odder.looks.opacity[0] = odd == inf ? -inf : odd;
    EXPECT_FALSE(Project(s, {}, odder, &p));
  }
}

/// A camera 500 in front of the plane z = 0, looking at (100, 50).
CameraData FrontCamera() {
  CameraData camera;
  camera.hasCamera = true;
  camera.viewMatrix[12] = -100.0;
  camera.viewMatrix[13] = -50.0;
  camera.viewMatrix[14] = 500.0;
  camera.imagePlaneDistance = 500.0;
  camera.cameraCentre[0] = 100.0f;
  camera.cameraCentre[1] = 50.0f;
  return camera;
}

TEST(Camera, ProjectsThroughTheViewMatrix) {
  ProjectedParticle p;
  ASSERT_TRUE(Project(PlainSettings(200, 100), FrontCamera(), Subject(150, 20, 500), &p));
  EXPECT_EQ(p.sx, 125.0f);
  EXPECT_EQ(p.sy, 35.0f);
  EXPECT_EQ(p.size, 2.0f);
  EXPECT_EQ(p.lineWidth, 1.0f);
  EXPECT_EQ(p.depth, 1000.0f);
}

TEST(Camera, ReadsTheMatrixByColumns) {
  CameraData camera = FrontCamera();
  // A quarter turn about z: camera x is world y, camera y is minus world x.
  const double turned[16] = {0, -1, 0, 0, 1, 0, 0, 0, 0, 0, 1, 0, 0, 0, 500, 1};
  std::copy(turned, turned + 16, camera.viewMatrix);
  ProjectedParticle p;
  ASSERT_TRUE(Project(PlainSettings(200, 100), camera, Subject(30, 7, 0), &p));
  EXPECT_EQ(p.sx, 107.0f);
  EXPECT_EQ(p.sy, 20.0f);
}

TEST(Camera, DropsParticlesThatAreTooNear) {
  ProjectedParticle p;
  const FrameSettings s = PlainSettings(200, 100);
  EXPECT_FALSE(Project(s, FrontCamera(), Subject(100, 50, -499.95f), &p));
  EXPECT_FALSE(Project(s, FrontCamera(), Subject(100, 50, -600.0f), &p));
  EXPECT_TRUE(Project(s, FrontCamera(), Subject(100, 50, -499.8f), &p));
}

TEST(Camera, PointsOfTrailsAreHeldInFrontOfIt) {
  const ScreenPoint point =
      ProjectPoint(MakeViewProjection(PlainSettings(200, 100), FrontCamera()), {101, 50, -900});
  EXPECT_FLOAT_EQ(point.x, 100.0f + 5000.0f);
  EXPECT_FLOAT_EQ(point.depth, 0.1f);
}

/// Rotation of a particle with these angles in a frame that turns like `camera`.
ProjectedParticle Turned(float x, float y, float z, const CameraData& camera, bool faceCamera) {
  FrameSettings s = PlainSettings(200, 100);
  s.faceCamera = faceCamera;
  Subject subject(100, 50, 0);
  subject.looks.rotX[0] = x;
  subject.looks.rotY[0] = y;
  subject.looks.rotZ[0] = z;
  ProjectedParticle p;
  EXPECT_TRUE(Project(s, camera, subject, &p));
  return p;
}

TEST(Camera, BillboardsKeepOnlyTheirTurnInThePicture) {
  const ProjectedParticle p = Turned(10, 20, 30, FrontCamera(), true);
  EXPECT_EQ(p.rotX, 0.0f);
  EXPECT_EQ(p.rotY, 0.0f);
  EXPECT_EQ(p.rotZ, 30.0f);
}

TEST(Camera, RotationsComeBackUnchangedFromAnUnturnedView) {
  const ProjectedParticle p = Turned(10, 20, 30, FrontCamera(), false);
  EXPECT_NEAR(p.rotX, 10.0f, 1e-4f);
  EXPECT_NEAR(p.rotY, 20.0f, 1e-4f);
  EXPECT_NEAR(p.rotZ, 30.0f, 1e-4f);
}

TEST(Camera, ResolvedAnglesMakeTheRotationSeenFromTheView) {
  std::mt19937 random(1);
  std::uniform_real_distribution<float> angle(-180.0f, 180.0f), tilt(-1.2f, 1.2f);
  for (int round = 0; round < 300; ++round) {
    const Rotation3 view = MakeRotation(tilt(random) * 0.3f, tilt(random) * 0.3f, tilt(random));
    CameraData camera = FrontCamera();
    for (int row = 0; row < 3; ++row) {
      for (int column = 0; column < 3; ++column) {
        camera.viewMatrix[4 * column + row] = static_cast<double>(view.m[row][column]);
      }
    }
    camera.viewMatrix[12] = camera.viewMatrix[13] = 0.0;
    const float x = angle(random), y = angle(random), z = angle(random);
    const ProjectedParticle p = Turned(x, y, z, camera, false);
    const Rotation3 own = MakeRotation(x * kRadians, y * kRadians, z * kRadians);
    const Rotation3 seen = MakeRotation(p.rotX * kRadians, p.rotY * kRadians, p.rotZ * kRadians);
    for (int i = 0; i < 3; ++i) {
      for (int j = 0; j < 3; ++j) {
        float expected = 0.0f;
        for (int k = 0; k < 3; ++k) expected += own.m[i][k] * view.m[j][k];
        // Near the lock the two outer angles are told apart poorly.
        EXPECT_NEAR(seen.m[i][j], expected, 0.02f) << round;
      }
    }
  }
}

TEST(Camera, LockedRotationsPutEverythingIntoX) {
  const ProjectedParticle p = Turned(25, 90, 0, FrontCamera(), false);
  EXPECT_EQ(p.rotZ, 0.0f);
  EXPECT_NEAR(p.rotY, 90.0f, 1e-2f);
  EXPECT_NEAR(p.rotX, 25.0f, 1e-3f);
}

TEST(Camera, OrientsByTheDirectionItSees) {
  FrameSettings s = PlainSettings(200, 100);
  s.autoOrient = s.faceCamera = true;
  CameraData camera = FrontCamera();
  const double turned[16] = {0, -1, 0, 0, 1, 0, 0, 0, 0, 0, 1, 0, 0, 0, 500, 1};
  std::copy(turned, turned + 16, camera.viewMatrix);
  Subject subject(0, 0, 0);
  subject.direction.x[0] = 3.0f;  // camera: (0, -3)
  ProjectedParticle p;
  ASSERT_TRUE(Project(s, camera, subject, &p));
  EXPECT_NEAR(p.rotZ, -90.0f, 1e-4f);
  subject.direction.x[0] = 0.0f;
  subject.direction.z[0] = 9.0f;  // straight away: no turn
  ASSERT_TRUE(Project(s, camera, subject, &p));
  EXPECT_EQ(p.rotZ, 0.0f);
}

float BlurAt(float z, bool setting, bool layerSwitch, float focus, float aperture, float zoom) {
  FrameSettings s = PlainSettings(200, 100);
  s.depthOfField = setting;
  CameraData camera = FrontCamera();
  camera.cameraDepthOfField = layerSwitch;
  camera.focusDistance = focus;
  camera.aperture = aperture;
  camera.zoom = zoom;
  ProjectedParticle p;
  EXPECT_TRUE(Project(s, camera, Subject(100, 50, z), &p));
  return p.cocRadius;
}

TEST(Camera, BlursAwayFromTheFocus) {
  EXPECT_EQ(BlurAt(500, true, true, 500, 20, 400), 500.0f * 20.0f * 400.0f / (500.0f * 1000.0f) * 0.5f);
  EXPECT_EQ(BlurAt(0, true, true, 500, 20, 400), 0.0f);
  EXPECT_EQ(BlurAt(500, false, true, 500, 20, 400), 0.0f);
  EXPECT_EQ(BlurAt(500, true, false, 500, 20, 400), 0.0f);
  EXPECT_EQ(BlurAt(500, true, true, 1, 20, 400), 0.0f);
  EXPECT_EQ(BlurAt(500, true, true, 500, 0, 400), 0.0f);
  EXPECT_EQ(BlurAt(500, true, true, 500, 20, 0), 0.0f);
}

}  // namespace
}  // namespace vantle
