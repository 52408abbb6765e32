#include "tests/host/real_effect.h"

#include <gtest/gtest.h>

namespace vantle::host {

OpenedEffect OpenReal(const HostOptions& options) {
  static const LoadedModule loaded = LoadModule(EFFECT_MODULE);
  if (!loaded.module.has_value()) {
    ADD_FAILURE() << loaded.message;
    return {};
  }
  return OpenEffect(*loaded.module, options);
}

std::shared_ptr<const World> ColorfulLayer(int width, int height, int depth) {
  auto world = std::make_shared<World>(MakeWorld(width, height, depth));
  for (int y = 0; y < height; ++y) {
    for (int x = 0; x < width; ++x) {
      const float alpha = x + 1 < width ? 1.0F : 0.0F;
      WritePixel(
          *world, x, y,
          {alpha, static_cast<float>(x) / static_cast<float>(width), (x / 4 + y / 4) % 2 == 0 ? 0.9F : 0.2F,
           static_cast<float>(y) / static_cast<float>(height)});
    }
  }
  return world;
}

FrameRequest RealFrame(const EffectInstance& effect, int width, int height, int depth) {
  FrameRequest request;
  request.width = width;
  request.height = height;
  request.depth = depth;
  request.time = {12, 1, 24, 48};
  request.input = ColorfulLayer(width, height, depth);
  request.values = {{kTransformParam, 50.0}, {kDensityParam, 300.0}};
  LayerTable table;
  table.layers[kTargetLayerParam] = ColorfulLayer(width / 2, height / 2, depth);
  request.layers = LayersOf(effect, table, request.input);
  return request;
}

World RenderClean(EffectInstance& effect, const FrameRequest& request) {
  World output;
  const FrameResult result = RenderFrame(effect, request, &output);
  EXPECT_EQ(result.error, PF_Err_NONE) << result.message;
  EXPECT_EQ(AllLines(result.problems), "");
  return output;
}

int PixelsDrawn(const World& world) {
  int drawn = 0;
  for (int i = 0; i < world.width * world.height; ++i) {
    const PF_PixelFloat pixel = ReadPixel(world, i % world.width, i / world.width);
    drawn += pixel.alpha != 0 || pixel.red != 0 || pixel.green != 0 || pixel.blue != 0 ? 1 : 0;
  }
  return drawn;
}

std::string AllLines(const std::vector<std::string>& lines) {
  std::string all;
  for (const std::string& line : lines) {
    all += line + "\n";
  }
  return all;
}

}  // namespace vantle::host
