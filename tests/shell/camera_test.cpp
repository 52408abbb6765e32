// The composition's camera as the projection gets it.
#include "shell/camera_reader.h"
#include "shell/dispatch.h"
#include "tests/shell/fake_host.h"

#include <algorithm>
#include <cmath>
#include <gtest/gtest.h>
#include <limits>
#include <string>

namespace vantle::test {
namespace {

// Row vectors: a camera turned about the vertical axis and moved, as the host hands it over.
FakeCamera TurnedCamera(double degrees, double x, double y, double z) {
  const double angle = degrees * 3.14159265358979323846 / 180.0;
  FakeCamera camera;
  const double rows[4][4] = {{std::cos(angle), 0, -std::sin(angle), 0},
                             {0, 1, 0, 0},
                             {std::sin(angle), 0, std::cos(angle), 0},
                             {x, y, z, 1}};
  std::copy(&rows[0][0], &rows[0][0] + 16, &camera.matrix.mat[0][0]);
  camera.distance = 800;
  camera.width = 101;
  camera.height = 50;
  camera.depthOfField = 1;
  camera.focusDistance = 600;
  camera.aperture = 25;
  camera.zoom = 700;
  return camera;
}

struct Point {
  double x, y, z;
};

Point ToCamera(const CameraData& camera, const Point& p) {
  const double* m = camera.viewMatrix;
  return {m[0] * p.x + m[4] * p.y + m[8] * p.z + m[12], m[1] * p.x + m[5] * p.y + m[9] * p.z + m[13],
          m[2] * p.x + m[6] * p.y + m[10] * p.z + m[14]};
}

class Camera : public ::testing::Test {
 protected:
  Camera() {
    DispatchCommand(PF_Cmd_GLOBAL_SETUP, &host.in, &host.out, nullptr, nullptr, nullptr);
    host.camera = &camera;
    settings.depthOfField = true;
  }
  ~Camera() override {
    DispatchCommand(PF_Cmd_GLOBAL_SETDOWN, &host.in, &host.out, nullptr, nullptr, nullptr);
  }
  CameraData Read() {
    const CameraData data = ReadCamera(host.in, settings);
    EXPECT_EQ(host.Imbalance(), "");
    return data;
  }
  bool WasAsked(const std::string& event) const {
    return std::find(host.events.begin(), host.events.end(), event) != host.events.end();
  }

  FakeHost host;
  FakeCamera camera = TurnedCamera(90, 300, 20, -50);
  FrameSettings settings{};
};

TEST_F(Camera, AKnownCameraSeesKnownPoints) {
  const CameraData data = Read();
  ASSERT_TRUE(data.hasCamera);
  // The camera's own place is its origin.
  const Point own = ToCamera(data, {300, 20, -50});
  EXPECT_NEAR(own.x, 0, 1e-9);
  EXPECT_NEAR(own.y, 0, 1e-9);
  EXPECT_NEAR(own.z, 0, 1e-9);
  // Its z axis, the third row, points along world x: what stands 100 to the right of it is 100 deep.
  const Point ahead = ToCamera(data, {400, 20, -50});
  EXPECT_NEAR(ahead.x, 0, 1e-9);
  EXPECT_NEAR(ahead.z, 100, 1e-9);
  // Its x axis, the first row, points along minus world z.
  const Point aside = ToCamera(data, {300, 25, -60});
  EXPECT_NEAR(aside.x, 10, 1e-9);
  EXPECT_NEAR(aside.y, 5, 1e-9);
  EXPECT_NEAR(aside.z, 0, 1e-9);
}

TEST_F(Camera, CarriesThePlaneAndTheLens) {
  const CameraData data = Read();
  EXPECT_EQ(data.imagePlaneDistance, 800.0);
  EXPECT_EQ(data.cameraCentre[0], 50.5f);
  EXPECT_EQ(data.cameraCentre[1], 25.0f);
  EXPECT_TRUE(data.cameraDepthOfField);
  EXPECT_EQ(data.focusDistance, 600.0f);
  EXPECT_EQ(data.aperture, 25.0f);
  EXPECT_EQ(data.zoom, 700.0f);
}

TEST_F(Camera, TheLensIsReadOnlyWhenAskedFor) {
  settings.depthOfField = false;
  const CameraData data = Read();
  EXPECT_TRUE(data.hasCamera);
  EXPECT_FALSE(data.cameraDepthOfField);
  EXPECT_EQ(data.zoom, 0.0f);
  EXPECT_FALSE(WasAsked("stream 12"));
}

TEST_F(Camera, ASwitchedOffLensStopsAtTheSwitch) {
  for (const double off : {0.0, 0.5, -1.0, std::nan("")}) {
    host.events.clear();
    camera.depthOfField = off;
    const CameraData data = Read();
    EXPECT_TRUE(data.hasCamera);
    EXPECT_FALSE(data.cameraDepthOfField);
    EXPECT_TRUE(WasAsked("stream 12"));
    EXPECT_FALSE(WasAsked("stream 13"));
  }
}

TEST_F(Camera, WithoutAPluginIdThereIsNoLens) {
  DispatchCommand(PF_Cmd_GLOBAL_SETDOWN, &host.in, &host.out, nullptr, nullptr, nullptr);
  const CameraData data = Read();
  EXPECT_TRUE(data.hasCamera);
  EXPECT_FALSE(data.cameraDepthOfField);
  EXPECT_FALSE(WasAsked("stream 12"));
}

TEST_F(Camera, ACompositionWithoutACameraHasNone) {
  host.camera = nullptr;
  EXPECT_FALSE(Read().hasCamera);
}

TEST_F(Camera, CamerasWithoutAnImageDoNotCount) {
  const auto counts = [this](double distance, short width, short height) {
    camera.distance = distance;
    camera.width = width;
    camera.height = height;
    const CameraData data = Read();
    EXPECT_EQ(data.cameraCentre[0], data.hasCamera ? static_cast<float>(width) / 2.0f : 0.0f);
    return data.hasCamera;
  };
  EXPECT_TRUE(counts(0.001, 1, 1));
  EXPECT_FALSE(counts(0.0, 100, 100));
  EXPECT_FALSE(counts(-5.0, 100, 100));
  EXPECT_FALSE(counts(std::nan(""), 100, 100));
  EXPECT_FALSE(counts(100.0, 0, 100));
  EXPECT_FALSE(counts(100.0, 100, 0));
  EXPECT_FALSE(counts(100.0, -1, 100));
}

TEST_F(Camera, ASingularMatrixGivesTheIdentityView) {
  camera.matrix = A_Matrix4{};
  const CameraData data = Read();
  ASSERT_TRUE(data.hasCamera);
  const Point p = ToCamera(data, {1, 2, 3});
  EXPECT_EQ(p.x, 1.0);
  EXPECT_EQ(p.y, 2.0);
  EXPECT_EQ(p.z, 3.0);
}

TEST_F(Camera, EachFailingCallIsAbsorbed) {
  for (const char* call :
       {"AEGP_ConvertEffectToCompTime", "AEGP_GetEffectCamera", "AEGP_GetEffectCameraMatrix"}) {
    host.failingCalls = {call};
    const CameraData data = Read();
    EXPECT_FALSE(data.hasCamera) << call;
    EXPECT_EQ(data.viewMatrix[0], 1.0);
    EXPECT_EQ(data.viewMatrix[12], 0.0);
  }
  for (const char* call : {"AEGP_GetNewLayerStream", "AEGP_GetNewStreamValue"}) {
    host.failingCalls = {call};
    const CameraData data = Read();
    EXPECT_TRUE(data.hasCamera) << call;
    EXPECT_FALSE(data.cameraDepthOfField);
    EXPECT_EQ(data.focusDistance, 0.0f);
  }
}

TEST_F(Camera, EachMissingSuiteIsAbsorbed) {
  for (const SuiteFault fault : {SuiteFault::kMissing, SuiteFault::kNullTable, SuiteFault::kErrorWithTable,
                                 SuiteFault::kErrorWithGarbage}) {
    host.suiteFaults = {{"AEGP PF Interface Suite", fault}};
    EXPECT_FALSE(Read().hasCamera);
    host.suiteFaults = {{"AEGP Stream Suite", fault}};
    const CameraData data = Read();
    EXPECT_TRUE(data.hasCamera);
    EXPECT_FALSE(data.cameraDepthOfField);
  }
}

TEST_F(Camera, PremiereProIsNotAsked) {
  host.suites.clear();
  host.in.appl_id = kApplPremierePro;
  EXPECT_FALSE(Read().hasCamera);
  EXPECT_TRUE(host.suites.empty());
}

}  // namespace
}  // namespace vantle::test
