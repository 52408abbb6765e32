// The graphics path's own functions, linked into the test, on the stand-ins.
#pragma once

#include "render/graphics/gpu_renderer.h"
#include "tests/graphics/kernel_scenes.h"
#include "tests/windows/graphics/debug_text.h"
#include "tests/windows/graphics/stand_ins.h"

#include <gtest/gtest.h>

namespace vantle::test {

/// Begins without a device, and looks at the end whether everything was given back as it must be.
class Renderer : public testing::Test {
 protected:
  void SetUp() override {
    ReleaseGpu();
    ResetStandIns();
  }

  void TearDown() override {
    const bool started = TheGraphics().shaders > 0;
    ReleaseGpu();
    EXPECT_EQ(TheGraphics().live, 0);
    EXPECT_EQ(TheCompiler().live, 0);
    EXPECT_EQ(FirstFault(), "");
    EXPECT_EQ(TheGraphics().maps, TheGraphics().unmaps);
    if (started) {
      EXPECT_EQ(TheGraphics().lastDeviceRelease, 0u);
    }
  }
};

/// What the device, its context and the shader are.
inline constexpr int kLasting = 3;

/// What a scene gives to the renderer; it points into `input`.
inline GpuFrame FrameOf(const KernelInput& input) {
  return {input.params, input.particles.data(), input.lists.offsets.data(), input.lists.indices.data(),
          input.lists.indices.size()};
}

inline KernelScene SmallScene() {
  return MakeKernelScene(SHAPE_CIRCLE, BLEND_SCREEN, false, {70, 41}, 3);
}

/// Packed pixels of a render; empty when it failed.
inline std::vector<float> Render(const KernelScene& scene, const GpuFrame& frame) {
  const auto width = static_cast<size_t>(scene.size.width);
  std::vector<float> pixels(width * static_cast<size_t>(scene.size.height) * 4, -1.0f);
  const auto rowBytes = static_cast<int64_t>(width * 4 * sizeof(float));
  if (!RenderGpu(reinterpret_cast<std::byte*>(pixels.data()), rowBytes, frame)) return {};
  return pixels;
}

}  // namespace vantle::test
