// A small frame to render: two pictures, the effect's own layer, an output, a few hundred particles.
#pragma once

#include "shell/dispatch.h"
#include "tests/shell/fake_host.h"

#include <cmath>
#include <gtest/gtest.h>
#include <vector>

namespace vantle::test {

/// A picture with soft edges and some colour, `phase` telling one from another.
inline FakeWorld Picture(PixelDepth depth, int32_t width, int32_t height, float phase, int32_t padding = 12,
                         bool bottomUp = false) {
  FakeWorld world(depth, width, height, padding, bottomUp);
  for (int32_t y = 0; y < height; ++y) {
    for (int32_t x = 0; x < width; ++x) {
      const float u = static_cast<float>(x) / static_cast<float>(width);
      const float v = static_cast<float>(y) / static_cast<float>(height);
      const float r = std::hypot(u - 0.5f, v - 0.5f);
      world.Set(x, y, r < 0.45f ? 1.0f - r : 0.0f, u, v, phase);
    }
  }
  return world;
}

struct Scene {
  FakeHost host;
  FakeWorld a, b, input, output;
  PF_ParamDef** params;

  explicit Scene(PixelDepth depth = PixelDepth::k8, int32_t padding = 12, bool bottomUp = false)
      : a(Picture(depth, 40, 30, 0.2f, padding, bottomUp)),
        b(Picture(depth, 24, 36, 0.7f, padding, bottomUp)),
        input(Picture(depth, 48, 32, 1.0f, padding, bottomUp)),
        output(depth, 48, 32, padding, bottomUp) {
    host.depth = depth;
    params = host.Params();
    host.layers = {{kParamSourceLayerA, &a}, {kParamTargetLayerB, &b}};
    host.Value(kParamInput).u.ld = input.def;
    host.Value(kParamDensity).u.fs_d.value = 300;
    host.Value(kParamTransform).u.fs_d.value = 40;
    host.Value(kParamScatter).u.fs_d.value = 20;
    host.Value(kParamSwirlAngle).u.ad.value = 45 * 65536;
    host.Value(kParamTurbulenceAmount).u.fs_d.value = 15;
    host.Value(kParamRotationVariationZ).u.fs_d.value = 180;
    output.Fill(0.5f, 0.25f, 0.5f, 0.75f);
  }

  PF_Err Render(const PF_LayerDef& to) {
    const FakeHost::Use use(&host);
    PF_LayerDef world = to;
    return DispatchCommand(PF_Cmd_RENDER, &host.in, &host.out, params, &world, nullptr);
  }
  PF_Err Render() { return Render(output.def); }
};

/// Pixels of the scene after one render, which must succeed.
inline std::vector<std::byte> Rendered(Scene* scene) {
  return scene->Render() == PF_Err_NONE ? scene->output.Pixels() : std::vector<std::byte>{};
}

/// Says where two pictures begin to differ, which is more than their bytes in a row tell.
inline ::testing::AssertionResult SameBytes(const std::vector<std::byte>& a,
                                            const std::vector<std::byte>& b) {
  if (a.size() != b.size())
    return ::testing::AssertionFailure() << a.size() << " and " << b.size() << " bytes";
  size_t different = 0;
  size_t first = 0;
  for (size_t i = a.size(); i-- > 0;) {
    if (a[i] == b[i]) continue;
    ++different;
    first = i;
  }
  if (different == 0) return ::testing::AssertionSuccess();
  return ::testing::AssertionFailure() << different << " of " << a.size() << " bytes differ, first " << first;
}

/// Whether any byte is set.
inline bool IsDrawn(const std::vector<std::byte>& pixels) {
  for (const std::byte byte : pixels) {
    if (byte != std::byte{0}) return true;
  }
  return false;
}

}  // namespace vantle::test
