#include "tests/windows/graphics/graphics_frames.h"

#include "base/pixels.h"

#include <cmath>
#include <filesystem>
#include <gtest/gtest.h>
#include <windows.h>

extern "C" {
PF_Err PluginDataEntryFunction(PF_PluginDataPtr, PF_PluginDataCB, SPBasicSuite*, const char*, const char*);
PF_Err EffectMain(PF_Cmd, PF_InData*, PF_OutData*, PF_ParamDef*[], PF_LayerDef*, void*);
}

namespace vantle::host {

namespace {

constexpr int kShowSolid = 8;

std::byte* PixelAt(World& world, int x, int y) {
  return reinterpret_cast<std::byte*>(WorldRow(world, y)) + x * PixelBytes(world.depth);
}

const std::byte* PixelAt(const World& world, int x, int y) {
  return reinterpret_cast<const std::byte*>(WorldRow(world, y)) + x * PixelBytes(world.depth);
}

FloatPixel Load(const World& world, int x, int y) {
  const std::byte* const at = PixelAt(world, x, y);
  if (world.depth == 8) return LoadPixel<Format8>(at);
  if (world.depth == 16) return LoadPixel<Format16>(at);
  return LoadPixel<Format32>(at);
}

void Store(World& world, int x, int y, const FloatPixel& pixel) {
  std::byte* const at = PixelAt(world, x, y);
  if (world.depth == 8) return StorePixel<Format8>(at, pixel);
  if (world.depth == 16) return StorePixel<Format16>(at, pixel);
  StorePixel<Format32>(at, pixel);
}

World InDepth(const World& world, int depth) {
  World converted = MakeWorld(world.width, world.height, depth);
  for (int y = 0; y < world.height; ++y)
    for (int x = 0; x < world.width; ++x) Store(converted, x, y, Load(world, x, y));
  return converted;
}

std::shared_ptr<const World> SharedInFloats(const std::shared_ptr<const World>& world) {
  return world == nullptr ? nullptr : std::make_shared<const World>(InDepth(*world, 32));
}

/// The module lies beside the program, on every machine that both are carried to.
std::string ModulePath() {
  wchar_t program[4096] = {};
  GetModuleFileNameW(nullptr, program, 4096);
  return std::filesystem::path(program).replace_filename("Vantle.aex").string();
}

OpenedEffect Opened(OpenedEffect opened) {
  EXPECT_TRUE(opened.effect) << opened.result.message;
  EXPECT_TRUE(opened.result.problems.empty());
  return opened;
}

}  // namespace

OpenedEffect OpenShipped(const HostOptions& options) {
  const LoadedModule loaded = LoadModule(ModulePath());
  EXPECT_TRUE(loaded.module) << loaded.message;
  return Opened(OpenEffect(*loaded.module, options));
}

OpenedEffect OpenProcessorOnly(const HostOptions& options) {
  return Opened(OpenEffect(MakeLinkedModule(PluginDataEntryFunction, EffectMain), options));
}

std::vector<int> GraphicsNumbers() {
  constexpr int kShapes = 9;  // in the order of the choices: the sixth, eighth and ninth are the processor's
  std::vector<int> numbers;
  for (int number = 0; number < kVariedFrames; ++number) {
    const int choice = 1 + number % kShapes;
    if (choice != 6 && choice < 8) numbers.push_back(number);
  }
  return numbers;
}

FrameRequest ParticlesAlone(const EffectInstance& effect, int number) {
  FrameRequest request = VariedFrame(effect, number);
  request.values[kShowSolid] = A_long{0};
  return request;
}

FrameRequest InFloats(const FrameRequest& request) {
  FrameRequest floats = request;
  floats.depth = 32;
  floats.input = SharedInFloats(request.input);
  floats.layers = [layers = request.layers](int index, A_long time, A_long step, A_u_long scale) {
    LayerFrame frame = layers(index, time, step, scale);
    frame.world = SharedInFloats(frame.world);
    return frame;
  };
  return floats;
}

World Rendered(EffectInstance& effect, const FrameRequest& request) {
  World output;
  const FrameResult result = RenderFrame(effect, request, &output);
  EXPECT_EQ(result.error, PF_Err_NONE) << result.message;
  for (const std::string& problem : result.problems) ADD_FAILURE() << problem;
  return output;
}

std::vector<std::uint8_t> PixelsOf(const World& world) {
  std::vector<std::uint8_t> pixels;
  for (int y = 0; y < world.height; ++y) {
    const std::uint8_t* const row = WorldRow(world, y);
    pixels.insert(pixels.end(), row, row + world.width * PixelBytes(world.depth));
  }
  return pixels;
}

World Quantised(const World& floats, int depth) {
  return InDepth(floats, depth);
}

std::vector<std::uint8_t> GraphicsPixels(EffectInstance& processor, const FrameRequest& request) {
  return PixelsOf(Quantised(Rendered(processor, InFloats(request)), request.depth));
}

PictureDifference CompareFloats(const World& a, const World& b) {
  PictureDifference difference;
  const auto consider = [&](float channel) {
    const float distance = std::isfinite(channel) ? std::fabs(channel) : INFINITY;
    if (distance > difference.largest) difference.largest = distance;
  };
  for (int y = 0; y < a.height; ++y) {
    for (int x = 0; x < a.width; ++x) {
      const FloatPixel p = Load(a, x, y);
      const FloatPixel q = Load(b, x, y);
      if (p.a != 0.0f) ++difference.drawn;
      if ((p.a != 0.0f) != (q.a != 0.0f)) ++difference.drawnByOne;
      consider(p.a - q.a);
      consider(p.r * p.a - q.r * q.a);
      consider(p.g * p.a - q.g * q.a);
      consider(p.b * p.a - q.b * q.a);
    }
  }
  return difference;
}

}  // namespace vantle::host
