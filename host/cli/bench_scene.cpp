#include "host/cli/bench_scene.h"

#include "host/engine/effect.h"

#include <cstdint>

namespace vantle::cli {
namespace {

constexpr int kWidth = 1920;
constexpr int kHeight = 1080;

constexpr A_long kCurveLine = 6, kCurvedArrow = 8, kLayerShape = 9;  // as the popup "Shape" counts
constexpr int kCustomLayer = 33;
constexpr double kEyeDistance = 1500.0;

// An opaque picture with soft bands and fine grain, so that neighbouring pixels differ.
std::shared_ptr<const host::World> MakeLayer(uint32_t seed, int width = kWidth, int height = kHeight) {
  auto world = std::make_shared<host::World>(host::MakeWorld(width, height, 8));
  uint32_t state = seed;
  for (int y = 0; y < height; ++y) {
    std::uint8_t* row = host::WorldRow(*world, y);
    for (int x = 0; x < width; ++x, row += 4) {
      state = state * 1664525u + 1013904223u;
      const uint32_t grain = state >> 28;
      row[0] = 255;
      row[1] = static_cast<std::uint8_t>(static_cast<uint32_t>(x * 239 / width) + grain);
      row[2] = static_cast<std::uint8_t>(static_cast<uint32_t>(y * 239 / height) + grain);
      row[3] = static_cast<std::uint8_t>((static_cast<uint32_t>(x + y) * seed >> 2 & 127) + grain);
    }
  }
  return world;
}

PlaneSettings RestingPlane() {
  return {{0, 0, 0}, {0, 0, 0}, {1, 1}, 100};
}

// The parameters' defaults, as the effect converts them.
FrameSettings DefaultSettings() {
  FrameSettings s{};
  s.transform = 0.5f;
  s.fade = 0.15f;
  s.staggerBy = s.staggerFrom = s.variationABy = s.variationBBy = 1;
  s.density = 20000;
  s.planeA = s.planeB = RestingPlane();
  s.viewAngle = 40.0f;
  s.turbulenceType = 1;
  s.turbulenceScale = 5.0f;
  s.turbulenceSpeed = 0.5f;
  s.turbulenceZDepth = 0.5f;
  s.size = 4.0f;
  s.sizeVariation = 0.2f;
  s.shape = SHAPE_SOFT_CIRCLE;
  s.lineWidth = 2.0f;
  s.roundCap = true;
  s.timeType = 1;
  s.colorMode = 2;
  s.opacity = 0.8f;
  MakeDefaultGradient(&s.colorGradient);
  MakeDefaultLifeCurve(&s.opacityOverLife, 1.0f);
  MakeDefaultLifeCurve(&s.scaleOverLife, 2.0f);
  s.transferMode = BLEND_NORMAL;
  s.frameRate = 30.0f;
  s.timeSeconds = 1.0f;
  s.outputWidth = s.fullWidth = kWidth;
  s.outputHeight = s.fullHeight = kHeight;
  s.downsampleX = s.downsampleY = 1.0f;
  return s;
}

host::FrameRequest MakeRequest(const host::EffectInstance& effect, const BenchScene& scene) {
  host::FrameRequest request;
  request.width = request.fullWidth = kWidth;
  request.height = request.fullHeight = kHeight;
  request.time = {30, 1, 30, 60};
  request.input = scene.layerA;
  host::LayerTable table;
  table.layers = {{2, scene.layerA}, {3, scene.layerB}, {kCustomLayer, scene.sprite}};
  request.layers = host::LayersOf(effect, table, scene.layerA);
  request.values[4] = 50.0;  // Transform
  if (scene.sprite != nullptr) request.sourceDurations[kCustomLayer] = {1, 30};
  return request;
}

BenchScene WithShape(const BenchScene& base, const char* name, const char* title, A_long choice, float size) {
  BenchScene scene = base;
  scene.name = name;
  scene.title = title;
  scene.request.values[26] = static_cast<double>(size);  // Size
  scene.request.values[29] = choice;                     // Shape
  scene.settings.size = size;
  scene.settings.shape = choice + 1;
  return scene;
}

BenchScene WithSprites(const host::EffectInstance& effect, const BenchScene& base, const char* name,
                       const char* title) {
  BenchScene scene = WithShape(base, name, title, kLayerShape, 10.0f);
  scene.sprite = MakeLayer(5, 64, 64);
  const std::map<int, host::ParamValue> values = scene.request.values;
  scene.request = MakeRequest(effect, scene);
  scene.request.values = values;
  return scene;
}

// A camera straight before the frame whose focus is so near that particles blur by some three pixels.
void PutOutOfFocus(BenchScene* scene) {
  constexpr double kFocus = 1000.0, kAperture = 12.0;
  host::FrameCamera& camera = scene->request.camera.emplace();
  for (int i = 0; i < 4; ++i) camera.matrix.mat[i][i] = 1.0;
  camera.matrix.mat[3][0] = kWidth / 2.0;
  camera.matrix.mat[3][1] = kHeight / 2.0;
  camera.matrix.mat[3][2] = -kEyeDistance;
  camera.distance = camera.zoom = kEyeDistance;
  camera.planeWidth = kWidth;
  camera.planeHeight = kHeight;
  camera.depthOfField = true;
  camera.focusDistance = kFocus;
  camera.aperture = kAperture;
  scene->request.values[64] = A_long{1};  // Depth of Field

  CameraData& seen = scene->camera;
  seen.hasCamera = seen.cameraDepthOfField = scene->settings.depthOfField = true;
  seen.viewMatrix[12] = -kWidth / 2.0;
  seen.viewMatrix[13] = -kHeight / 2.0;
  seen.viewMatrix[14] = seen.imagePlaneDistance = kEyeDistance;
  seen.cameraCentre[0] = kWidth / 2.0f;
  seen.cameraCentre[1] = kHeight / 2.0f;
  seen.focusDistance = static_cast<float>(kFocus);
  seen.aperture = static_cast<float>(kAperture);
  seen.zoom = static_cast<float>(kEyeDistance);
}

}  // namespace

std::vector<BenchScene> MakeBenchScenes(const host::EffectInstance& effect) {
  BenchScene base{"default",    "default frame: 20,000 soft circles of size 4",
                  {},           DefaultSettings(),
                  MakeLayer(3), MakeLayer(7),
                  nullptr,      {}};
  base.request = MakeRequest(effect, base);

  BenchScene heavy = base;
  heavy.name = "heavy";
  heavy.title = "heavy frame: 200,000 circles of size 10, curl turbulence 10 %";
  heavy.request.values[19] = 200000.0;   // Density
  heavy.request.values[26] = 10.0;       // Size
  heavy.request.values[29] = A_long{1};  // Shape: Circle
  heavy.request.values[55] = A_long{1};  // Type: Curl
  heavy.request.values[56] = 10.0;       // Amount
  heavy.settings.density = 200000;
  heavy.settings.size = 10.0f;
  heavy.settings.shape = SHAPE_CIRCLE;
  heavy.settings.turbulenceAmount = 0.1f;

  const BenchScene curves = WithShape(base, "curves", "20,000 curve lines of size 6", kCurveLine, 6.0f);
  const BenchScene arrows = WithShape(base, "arrows", "20,000 curved arrows of size 6", kCurvedArrow, 6.0f);
  const BenchScene sprites = WithSprites(effect, base, "sprites", "20,000 sprites of size 10");
  BenchScene blurred = sprites;
  blurred.name = "blurred-sprites";
  blurred.title = "20,000 sprites of size 10, out of focus by about 3 pixels";
  PutOutOfFocus(&blurred);
  return {base, heavy, curves, arrows, sprites, blurred};
}

}  // namespace vantle::cli
