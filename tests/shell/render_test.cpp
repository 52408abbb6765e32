// Whole frames through the command interface.
#include "base/parallel.h"
#include "base/pixels.h"
#include "shell/layer_checkout.h"
#include "tests/shell/scene.h"

#include <cstring>
#include <gtest/gtest.h>
#include <immintrin.h>
#include <limits>
#include <string>
#include <thread>

namespace vantle::test {
namespace {

using Bytes = std::vector<std::byte>;
using Events = std::vector<std::string>;

constexpr SuiteFault kFaults[] = {SuiteFault::kMissing, SuiteFault::kNullTable, SuiteFault::kErrorWithTable,
                                  SuiteFault::kErrorWithGarbage};

TEST(Render, DrawsAtEveryDepthAndNowhereElse) {
  for (const PixelDepth depth : {PixelDepth::k8, PixelDepth::k16, PixelDepth::k32}) {
    Scene scene(depth);
    const Bytes pixels = Rendered(&scene);
    EXPECT_TRUE(IsDrawn(pixels));
    EXPECT_EQ(scene.output.Codes(0, 0), (std::vector<double>{0, 0, 0, 0}))
        << "the corner shows the old output";
    EXPECT_TRUE(scene.output.GuardsIntact());
    EXPECT_TRUE(scene.a.GuardsIntact() && scene.b.GuardsIntact());
    EXPECT_EQ(scene.host.Imbalance(), "");
  }
}

TEST(Render, RowsMayBePaddedUnalignedOrBottomUp) {
  for (const PixelDepth depth : {PixelDepth::k8, PixelDepth::k16, PixelDepth::k32}) {
    Scene plain(depth, 0);
    const Bytes expected = Rendered(&plain);
    for (const int32_t padding : {1, 3, 7, 64}) {
      for (const bool bottomUp : {false, true}) {
        Scene scene(depth, padding, bottomUp);
        EXPECT_TRUE(SameBytes(Rendered(&scene), expected)) << padding << bottomUp;
        EXPECT_TRUE(scene.output.GuardsIntact());
      }
    }
  }
}

TEST(Render, LayersAreGivenBackInTheOrderTheyWereTaken) {
  Scene scene;
  scene.Render();
  EXPECT_EQ(scene.host.events, (Events{"out 2", "out 3", "in 2", "in 3"}));
}

TEST(LayerCheckouts, AnEmptyLayerMayBeGivenBackAtOnce) {
  Scene scene;
  FakeHost& host = scene.host;
  host.layers.erase(kParamTargetLayerB);
  {
    LayerCheckouts layers(host.in, 2);
    EXPECT_TRUE(HasPixels(layers.CheckOut(kParamSourceLayerA, 0, PixelDepth::k8)));
    layers.GiveBackEmpty();
    EXPECT_FALSE(HasPixels(layers.CheckOut(kParamTargetLayerB, 0, PixelDepth::k8)));
    layers.GiveBackEmpty();
    layers.GiveBackEmpty();
    EXPECT_TRUE(HasPixels(layers.CheckOut(kParamSourceLayerA, 0, PixelDepth::k8)));
    EXPECT_FALSE(HasPixels(layers.CheckOut(kParamSourceLayerA, 0, PixelDepth::k8))) << "no room";
    layers.GiveBackEmpty();
    EXPECT_EQ(host.events, (Events{"out 2", "out 3", "in 3", "out 2"}));
  }
  EXPECT_EQ(host.Imbalance(), "");
}

TEST(LayerCheckouts, AFailedCheckoutLeavesNothingToGiveBack) {
  Scene scene;
  scene.host.failCheckoutAt = 1;
  {
    LayerCheckouts layers(scene.host.in, 1);
    EXPECT_FALSE(HasPixels(layers.CheckOut(kParamSourceLayerA, 0, PixelDepth::k8)));
    layers.GiveBackEmpty();
    EXPECT_TRUE(HasPixels(layers.CheckOut(kParamSourceLayerA, 0, PixelDepth::k8)));
  }
  EXPECT_EQ(scene.host.events, (Events{"out 2", "in 2"}));
}

TEST(Render, TheInputStandsInForAMissingSource) {
  Scene scene;
  scene.host.layers.erase(kParamSourceLayerA);
  const Bytes none = Rendered(&scene);
  EXPECT_EQ(scene.host.events, (Events{"out 2", "out 3", "in 2", "in 3"})) << "none is a successful checkout";
  // As large as the output, the input lies where a source layer with its pixels would.
  Scene given;
  given.host.layers[kParamSourceLayerA] = &given.input;
  EXPECT_TRUE(SameBytes(none, Rendered(&given)));
  Scene transparent;
  transparent.a.Fill(0, 1, 1, 1);
  EXPECT_TRUE(SameBytes(none, Rendered(&transparent)));
}

TEST(Render, AFailingCheckoutIsNoneAndIsNotCheckedIn) {
  Scene noSource;
  noSource.host.layers.erase(kParamSourceLayerA);
  Scene first;
  first.host.failCheckoutAt = 1;
  EXPECT_TRUE(SameBytes(Rendered(&first), Rendered(&noSource)));
  EXPECT_EQ(first.host.events, (Events{"out 3", "in 3"}));

  Scene noTarget;
  noTarget.host.layers.erase(kParamTargetLayerB);
  Scene second;
  second.host.failCheckoutAt = 2;
  EXPECT_TRUE(SameBytes(Rendered(&second), Rendered(&noTarget)));
  EXPECT_EQ(second.host.events, (Events{"out 2", "in 2"}));
}

TEST(Render, WithoutAnyPixelsTheFrameIsCleared) {
  Scene scene;
  scene.host.layers.clear();
  scene.host.Value(kParamInput).u.ld = PF_LayerDef{};
  EXPECT_EQ(scene.Render(), PF_Err_NONE);
  EXPECT_FALSE(IsDrawn(scene.output.Pixels()));
  EXPECT_TRUE(scene.output.GuardsIntact());
}

TEST(Render, OnlyATargetDrawsParticlesThatGather) {
  Scene scene;
  scene.host.layers.erase(kParamSourceLayerA);
  scene.host.Value(kParamInput).u.ld = PF_LayerDef{};
  EXPECT_TRUE(IsDrawn(Rendered(&scene)));
}

TEST(Render, AllShapesAndModesAtAllDepths) {
  for (const PixelDepth depth : {PixelDepth::k8, PixelDepth::k16, PixelDepth::k32}) {
    for (int32_t shape = 1; shape <= 9; ++shape) {
      for (int32_t mode = 1; mode <= 8; ++mode) {
        Scene scene(depth);
        scene.host.Value(kParamShape).u.pd.value = shape;
        scene.host.Value(kParamTransferMode).u.pd.value = mode;
        EXPECT_EQ(scene.Render(), PF_Err_NONE);
        EXPECT_TRUE(scene.output.GuardsIntact()) << shape << ' ' << mode;
        EXPECT_EQ(scene.host.Imbalance(), "");
      }
    }
  }
}

TEST(Render, HostileOutputsAreLeftAlone) {
  Scene scene;
  const Bytes before = scene.output.Pixels();
  const PF_LayerDef good = scene.output.def;
  std::vector<PF_LayerDef> worlds(9, good);
  worlds[0].data = nullptr;
  worlds[1].width = 0;
  worlds[2].width = -48;
  worlds[3].height = 0;
  worlds[4].height = INT32_MIN;
  worlds[5].rowbytes = 48 * 4 - 1;
  worlds[6].rowbytes = -(48 * 4 - 1);
  worlds[7].rowbytes = 0;
  worlds[8].width = 30001;
  for (const PF_LayerDef& world : worlds) EXPECT_EQ(scene.Render(world), PF_Err_NONE);
  PF_LayerDef tall = good;
  tall.height = 40000;
  EXPECT_EQ(scene.Render(tall), PF_Err_NONE);
  EXPECT_TRUE(SameBytes(scene.output.Pixels(), before));
  EXPECT_TRUE(scene.output.GuardsIntact());
  EXPECT_EQ(scene.host.Imbalance(), "");
}

TEST(Render, HostileLayersCountAsNone) {
  Scene none;
  none.host.layers.clear();
  none.host.Value(kParamInput).u.ld = PF_LayerDef{};
  const Bytes expected = Rendered(&none);
  for (int kind = 0; kind < 6; ++kind) {
    Scene scene;
    for (PF_LayerDef* world : {&scene.a.def, &scene.b.def, &scene.host.Value(kParamInput).u.ld}) {
      if (kind == 0) world->data = nullptr;
      if (kind == 1) world->width = -1;
      if (kind == 2) world->height = 0;
      if (kind == 3) world->rowbytes = world->width * 4 - 1;
      if (kind == 4) world->width = 30001;
      if (kind == 5) world->rowbytes = 1;
    }
    EXPECT_TRUE(SameBytes(Rendered(&scene), expected)) << kind;
  }
}

TEST(Render, WithoutTheWorldSuiteAFrameCountsAs8Bit) {
  for (const SuiteFault fault : kFaults) {
    Scene expected;
    Scene scene;
    scene.host.suiteFaults["PF World Suite"] = fault;
    EXPECT_TRUE(SameBytes(Rendered(&scene), Rendered(&expected)));
  }
  Scene failing;
  failing.host.formatFails = true;
  Scene expected;
  EXPECT_TRUE(SameBytes(Rendered(&failing), Rendered(&expected)));
}

TEST(Render, AnUntoldDeeperWorldIsNotLeftByItsRows) {
  for (const PixelDepth depth : {PixelDepth::k16, PixelDepth::k32}) {
    for (const bool bottomUp : {false, true}) {
      Scene scene(depth, 12, bottomUp);
      scene.host.suiteFaults["PF World Suite"] = SuiteFault::kMissing;
      const Bytes before = scene.output.Pixels();
      EXPECT_EQ(scene.Render(), PF_Err_NONE);
      EXPECT_TRUE(scene.output.GuardsIntact());
      // An 8-bit view of the row ends where its width in 8-bit pixels does.
      const Bytes after = scene.output.Pixels();
      const size_t row = 48 * PixelBytes(depth);
      for (size_t i = 0; i < after.size(); ++i) {
        if (i % row >= 48 * 4) {
          ASSERT_EQ(after[i], before[i]) << i;
        }
      }
      EXPECT_NE(after, before);
    }
  }
}

TEST(Render, EachSuiteMayBeMissingInEachWay) {
  FakeCamera camera;
  for (int i = 0; i < 4; ++i) camera.matrix.mat[i][i] = 1.0;
  camera.matrix.mat[3][2] = -60;
  camera.distance = 60;
  camera.width = 48;
  camera.height = 32;
  for (const char* suite :
       {"PF World Suite", "AEGP PF Interface Suite", "AEGP Stream Suite", "AEGP Utility Suite"}) {
    for (const SuiteFault fault : kFaults) {
      Scene scene;
      scene.host.camera = &camera;
      scene.host.Value(kParamDepthOfField).u.bd.value = 1;
      scene.host.suiteFaults[suite] = fault;
      DispatchCommand(PF_Cmd_GLOBAL_SETUP, &scene.host.in, &scene.host.out, nullptr, nullptr, nullptr);
      EXPECT_TRUE(IsDrawn(Rendered(&scene))) << suite;
      EXPECT_EQ(scene.host.Imbalance(), "");
    }
  }
  FakeHost host;
  DispatchCommand(PF_Cmd_GLOBAL_SETDOWN, &host.in, &host.out, nullptr, nullptr, nullptr);
}

TEST(Render, TheCompositionsCameraIsUsedOutsidePremierePro) {
  FakeCamera camera;
  for (int i = 0; i < 4; ++i) camera.matrix.mat[i][i] = 1.0;
  camera.matrix.mat[3][0] = 30;
  camera.matrix.mat[3][2] = -90;
  camera.distance = 60;
  camera.width = 48;
  camera.height = 32;
  Scene without;
  const Bytes plain = Rendered(&without);
  Scene with;
  with.host.camera = &camera;
  EXPECT_NE(Rendered(&with), plain);
  Scene premiere;
  premiere.host.camera = &camera;
  premiere.host.in.appl_id = kApplPremierePro;
  EXPECT_TRUE(SameBytes(Rendered(&premiere), plain));
}

TEST(Render, NullsAnywhere) {
  Scene scene;
  PF_LayerDef world = scene.output.def;
  FakeHost& host = scene.host;
  EXPECT_EQ(DispatchCommand(PF_Cmd_RENDER, nullptr, &host.out, scene.params, &world, nullptr), PF_Err_NONE);
  EXPECT_EQ(DispatchCommand(PF_Cmd_RENDER, &host.in, nullptr, scene.params, nullptr, nullptr), PF_Err_NONE);
  EXPECT_TRUE(host.events.empty());
  EXPECT_EQ(DispatchCommand(PF_Cmd_RENDER, &host.in, nullptr, nullptr, &world, nullptr), PF_Err_NONE);
  EXPECT_TRUE(IsDrawn(scene.output.Pixels())) << "without parameters the defaults draw";

  PF_ParamDef* nulls[88] = {};
  scene.params = nulls;
  EXPECT_EQ(scene.Render(), PF_Err_NONE);
  host.in.inter.checkout_param = nullptr;
  host.in.inter.checkin_param = nullptr;
  host.in.pica_basicP = nullptr;
  host.in.utils = nullptr;
  EXPECT_EQ(scene.Render(), PF_Err_NONE);
  EXPECT_FALSE(IsDrawn(scene.output.Pixels()));
}

TEST(Render, OddClocksAndSizes) {
  const int32_t extremes[] = {0, -1, 1, INT32_MIN, INT32_MAX};
  for (const int32_t time : extremes) {
    for (const int32_t step : extremes) {
      for (const uint32_t scale : {0u, 1u, 4294967295u}) {
        Scene scene;
        scene.host.SetTime(time, step, scale);
        EXPECT_EQ(scene.Render(), PF_Err_NONE);
      }
    }
  }
  for (const PF_RationalScale ratio :
       {PF_RationalScale{1, 0}, {0, 1}, {-1, 2}, {1, 4294967295u}, {INT32_MAX, 1}, {1, 3}}) {
    Scene scene;
    scene.host.in.downsample_x = ratio;
    scene.host.in.downsample_y = {ratio.num, 1};
    EXPECT_EQ(scene.Render(), PF_Err_NONE);
    EXPECT_TRUE(scene.output.GuardsIntact());
  }
}

TEST(Render, HostileSlidersNeverLeaveTheRows) {
  const double hostile[] = {std::numeric_limits<double>::quiet_NaN(),
                            std::numeric_limits<double>::infinity(),
                            -std::numeric_limits<double>::infinity(),
                            1e300,
                            -1e300,
                            1e30,
                            -1e30};
  for (int id = 1; id <= kParameterCount; ++id) {
    for (const double value : hostile) {
      Scene scene;
      PF_ParamDef& def = scene.host.Value(static_cast<ParamId>(id));
      if (def.param_type != PF_Param_FLOAT_SLIDER) break;
      if (id == kParamDensity && value > 0) continue;  // a full frame's worth of particles, for nothing new
      def.u.fs_d.value = value;
      EXPECT_EQ(scene.Render(), PF_Err_NONE) << id;
      EXPECT_TRUE(scene.output.GuardsIntact()) << id;
    }
  }
}

TEST(Render, ReducedResolutionHalvesThePicture) {
  Scene scene;
  scene.host.in.downsample_x = {1, 2};
  scene.host.in.downsample_y = {1, 2};
  EXPECT_TRUE(IsDrawn(Rendered(&scene)));
}

TEST(Render, AHostMayCallAgainFromInsideACheckout) {
  Scene plain;
  const Bytes expected = Rendered(&plain);
  Scene scene;
  FakeWorld nested(PixelDepth::k8, 48, 32);
  bool inside = false;
  scene.host.onCheckout = [&] {
    if (inside) return;
    inside = true;
    EXPECT_EQ(scene.Render(nested.def), PF_Err_NONE);
    inside = false;
  };
  EXPECT_TRUE(SameBytes(Rendered(&scene), expected));
  EXPECT_TRUE(SameBytes(nested.Pixels(), expected));
  EXPECT_EQ(scene.host.Imbalance(), "");
}

TEST(Render, ThrowingHostsAreContained) {
  Scene scene;
  scene.host.onCheckout = [] { throw PF_Err{PF_Interrupt_CANCEL}; };
  EXPECT_EQ(scene.Render(), PF_Interrupt_CANCEL);
}

// Flush-to-zero, denormals-are-zero, and each rounding mode.
TEST(Render, TheCallersFloatingPointSettingsDoNotShow) {
  Scene plain(PixelDepth::k32);
  const Bytes expected = Rendered(&plain);
  const unsigned own = _mm_getcsr();
  for (const unsigned settings : {0x8000u, 0x0040u, 0x2000u, 0x4000u, 0x6000u, 0x8040u | 0x4000u}) {
    Scene scene(PixelDepth::k32);
    _mm_setcsr(0x1F80u | settings);
    const Bytes pixels = Rendered(&scene);
    const unsigned after = _mm_getcsr();
    _mm_setcsr(own);
    EXPECT_TRUE(SameBytes(pixels, expected)) << settings;
    EXPECT_EQ(after & ~0x3Fu, 0x1F80u | settings) << "not restored";
  }
}

TEST(Render, SettingsThatACheckoutLeavesBehindDoNotShow) {
  // At a third of the resolution every stage of a frame computes, the scaling to the preview included.
  const auto reduce = [](Scene* scene) {
    scene->host.in.downsample_x = scene->host.in.downsample_y = {1, 3};
  };
  Scene plain(PixelDepth::k32);
  reduce(&plain);
  const Bytes expected = Rendered(&plain);
  const unsigned own = _mm_getcsr();
  Scene scene(PixelDepth::k32);
  reduce(&scene);
  scene.host.onCheckout = [] { _mm_setcsr(0x1F80u | 0x8040u | 0x4000u); };
  const Bytes pixels = Rendered(&scene);
  const unsigned after = _mm_getcsr();
  _mm_setcsr(own);
  EXPECT_TRUE(SameBytes(pixels, expected));
  EXPECT_EQ(after & ~0x3Fu, own & ~0x3Fu);
}

TEST(Render, FramesOnSeveralThreadsAtOnceAreTheSame) {
  Scene plain(PixelDepth::k16);
  const Bytes expected = Rendered(&plain);
  std::vector<Bytes> results(6);
  std::vector<std::thread> threads;
  for (Bytes& result : results) {
    threads.emplace_back([&result] {
      for (int round = 0; round < 3; ++round) {
        Scene scene(PixelDepth::k16);
        result = Rendered(&scene);
      }
    });
  }
  for (std::thread& thread : threads) thread.join();
  for (const Bytes& result : results) EXPECT_TRUE(SameBytes(result, expected));
}

#ifndef VANTLE_STD_THREADS
TEST(Render, TheNumberOfThreadsDoesNotShow) {
  const int usual = ParallelThreads();
  Scene plain(PixelDepth::k32);
  const Bytes expected = Rendered(&plain);
  for (const int threads : {1, 2, 3, 8}) {
    omp_set_num_threads(threads);
    Scene scene(PixelDepth::k32);
    EXPECT_TRUE(SameBytes(Rendered(&scene), expected)) << threads;
  }
  omp_set_num_threads(usual);
}
#endif

TEST(Render, ArbitraryBytesInCustomValuesAreSurvived) {
  Scene scene;
  for (const int value : {0x00, 0x7F, 0xFF, 0x3F}) {
    for (const ParamId id : {kParamColorGradient, kParamScaleOverLife, kParamOpacityOverLife}) {
      PF_Handle handle = scene.host.Value(id).u.arb_d.value;
      std::memset(*handle, value, scene.host.in.utils->host_get_handle_size(handle));
    }
    for (int32_t mode = 1; mode <= 4; ++mode) {
      scene.host.Value(kParamColorMode).u.pd.value = mode;
      EXPECT_EQ(scene.Render(), PF_Err_NONE);
      EXPECT_TRUE(scene.output.GuardsIntact());
    }
  }
  EXPECT_EQ(scene.host.Imbalance(), "");
}

}  // namespace
}  // namespace vantle::test
