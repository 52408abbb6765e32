#include "host/cli/bench_scene.h"

#include "host/engine/effect.h"

#include <cstdint>

namespace vantle::cli {
namespace {

constexpr int kWidth = 1920;
constexpr int kHeight = 1080;

// An opaque picture with soft bands and fine grain, so that neighbouring pixels differ.
std::shared_ptr<const host::World> MakeLayer(uint32_t seed) {
  auto world = std::make_shared<host::World>(host::MakeWorld(kWidth, kHeight, 8));
  uint32_t state = seed;
  for (int y = 0; y < kHeight; ++y) {
    std::uint8_t* row = host::WorldRow(*world, y);
    for (int x = 0; x < kWidth; ++x, row += 4) {
      state = state * 1664525u + 1013904223u;
      const uint32_t grain = state >> 28;
      row[0] = 255;
      row[1] = static_cast<std::uint8_t>(static_cast<uint32_t>(x) * 239 / kWidth + grain);
      row[2] = static_cast<std::uint8_t>(static_cast<uint32_t>(y) * 239 / kHeight + grain);
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
  table.layers = {{2, scene.layerA}, {3, scene.layerB}};
  request.layers = host::LayersOf(effect, table, scene.layerA);
  request.values[4] = 50.0;  // Transform
  return request;
}

}  // namespace

std::vector<BenchScene> MakeBenchScenes(const host::EffectInstance& effect) {
  BenchScene base{"default",    "default frame: 20,000 soft circles of size 4",
                  {},           DefaultSettings(),
                  MakeLayer(3), MakeLayer(7)};
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
  return {base, heavy};
}

}  // namespace vantle::cli
