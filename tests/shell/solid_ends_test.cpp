// The layers themselves at both ends of the way: what a frame asks the host for, and what it shows.

#include "tests/shell/scene.h"

#include <gtest/gtest.h>
#include <immintrin.h>
#include <string>
#include <vector>

namespace vantle::test {
namespace {

using Events = std::vector<std::string>;

/// The particles' own checkouts, before those of the solids.
const Events kParticles = {"out 2", "out 3", "in 2", "in 3"};

Events With(Events events, const Events& more) {
  events.insert(events.end(), more.begin(), more.end());
  return events;
}

struct SolidScene : Scene {
  SolidScene(double transform, double fade) {
    host.Value(kParamShowSolids).u.bd.value = 1;
    host.Value(kParamTransform).u.fs_d.value = transform;
    host.Value(kParamFade).u.fs_d.value = fade;
  }
};

Events EventsAt(double transform, double fade) {
  SolidScene scene(transform, fade);
  EXPECT_EQ(scene.Render(), PF_Err_NONE);
  EXPECT_EQ(scene.host.Imbalance(), "");
  EXPECT_TRUE(scene.output.GuardsIntact());
  return scene.host.events;
}

TEST(SolidEnds, OnlyAVisibleLayerIsCheckedOut) {
  EXPECT_EQ(EventsAt(0, 20), With(kParticles, {"out 2", "in 2"}));
  EXPECT_EQ(EventsAt(100, 20), With(kParticles, {"out 3", "in 3"}));
  EXPECT_EQ(EventsAt(50, 20), kParticles);
  EXPECT_EQ(EventsAt(0, 0.1), kParticles) << "a fade of a thousandth shows no solids";
  EXPECT_EQ(EventsAt(49.96, 50), kParticles) << "a weight of less than a thousandth";
}

TEST(SolidEnds, AreDrawnWithoutAnyParticles) {
  // Too faint to emit, not too faint to be seen.
  SolidScene scene(0, 20);
  scene.a.Fill(2.0f / 255.0f, 1, 1, 1);
  scene.input.Fill(0, 0, 0, 0);
  scene.host.layers.erase(kParamTargetLayerB);
  ASSERT_EQ(scene.Render(), PF_Err_NONE);
  EXPECT_EQ(scene.output.Codes(24, 16), (std::vector<double>{2, 255, 255, 255}));
  EXPECT_EQ(scene.output.Codes(3, 16), (std::vector<double>{0, 0, 0, 0})) << "beside the layer";
}

TEST(SolidEnds, TheInputDoesNotStandInForTheSource) {
  SolidScene with(0, 20), without(0, 20);
  with.host.layers.erase(kParamSourceLayerA);
  without.host.layers.erase(kParamSourceLayerA);
  without.host.Value(kParamShowSolids).u.bd.value = 0;
  // At the very start of the way the fade hides every particle.
  EXPECT_FALSE(IsDrawn(Rendered(&with)));
  EXPECT_TRUE(IsDrawn(Rendered(&without)));
}

TEST(SolidEnds, AFailingCheckoutDrawsNoSolid) {
  SolidScene scene(0, 20);
  scene.host.failCheckoutAt = 3;
  EXPECT_FALSE(IsDrawn(Rendered(&scene)));
  EXPECT_EQ(scene.host.events, kParticles);
  EXPECT_EQ(scene.host.Imbalance(), "");
}

TEST(SolidEnds, SettingsThatACheckoutLeavesBehindDoNotShow) {
  const auto turn = [](SolidScene* scene) {
    scene->host.Value(kParamARotationY).u.ad.value = 33 * 65536;
    scene->host.Value(kParamARotationX).u.ad.value = 21 * 65536;
    scene->host.in.downsample_x = scene->host.in.downsample_y = {1, 3};
  };
  SolidScene plain(5, 20), scene(5, 20);
  turn(&plain);
  turn(&scene);
  const std::vector<std::byte> expected = Rendered(&plain);
  const unsigned own = _mm_getcsr();
  scene.host.onCheckout = [] { _mm_setcsr(0x1F80u | 0x8040u | 0x4000u); };
  const std::vector<std::byte> pixels = Rendered(&scene);
  _mm_setcsr(own);
  EXPECT_TRUE(SameBytes(pixels, expected));
}

}  // namespace
}  // namespace vantle::test
