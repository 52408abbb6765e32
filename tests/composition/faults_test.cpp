// A host that fails everywhere: whole renders and presses, with every suite missing and every call failing in
// its turn. Frames still render, the press ends with success or with the one error it may give, and whatever
// was taken is given back.
#include "host/engine/suites.h"
#include "tests/composition/effect_frames.h"

#include <gtest/gtest.h>

namespace vantle::host {
namespace {

constexpr HiddenManner kManners[] = {HiddenManner::kErrorAndNull, HiddenManner::kErrorPointerUntouched,
                                     HiddenManner::kSuccessAndNull};

/// A frame that makes the effect ask for all that it can: camera with depth of field, sprites with their
/// duration, solids.
FrameRequest Demanding(const EffectInstance& effect) {
  FrameRequest request = RealFrame(effect, 16, 12, 8);
  request.time = {10, 1, 24, 48};
  request.values[kTransformParam] = 5.0;
  request.values[kDensityParam] = 60.0;
  request.values[kShapeParam] = A_long{9};
  request.values[kTimeTypeParam] = A_long{5};
  request.values[kDepthOfFieldParam] = A_long{1};
  request.values[kShowSolidsParam] = A_long{1};
  LayerTable table;
  table.frameScale = 24;
  table.layers[kTargetLayerParam] = ColorfulLayer(8, 8, 8);
  for (int i = 0; i < 8; ++i) table.frames[kSpriteLayerParam].push_back({i, ColorfulLayer(4, 4, 8)});
  request.layers = LayersOf(effect, table, request.input);
  request.composition = CompositionAround(request, 8);
  const int32_t id = AddCamera(*request.composition, 40.0);
  composition::Layer& camera = *composition::FindLayer(*request.composition, id);
  camera.streams[composition::kDepthOfField] = composition::Constant({1, 0, 0});
  camera.streams[composition::kAperture] = composition::Constant({5, 0, 0});
  request.faults.emplace();
  return request;
}

/// Without the suite that takes effect references back there is nobody to give one to.
bool IsExempt(const std::string& line, bool effectSuiteMissing) {
  return effectSuiteMissing && line.find("effect reference taken") == 0;
}

/// How often the exemption was used.
long ExpectBalanced(const FrameResult& result, bool effectSuiteMissing, const std::string& what) {
  long exempt = 0;
  for (const std::string& line : result.problems) {
    EXPECT_TRUE(IsExempt(line, effectSuiteMissing)) << what << ": " << line;
    ++exempt;
  }
  return exempt;
}

struct Faults : testing::Test {
  void SetUp() override {
    opened = OpenReal();
    ASSERT_NE(opened.effect, nullptr);
  }
  void TearDown() override { EXPECT_EQ(AllLines(CloseEffect(*opened.effect).problems), ""); }
  OpenedEffect opened;
};

struct Pressed {
  FrameResult result;
  composition::Composition composition;
};

Pressed PressWith(EffectInstance& effect, const HostFaults& faults) {
  FrameRequest request = RealFrame(effect, 16, 12, 8);
  request.composition = CompositionAround(request, 8);
  request.faults = faults;
  Pressed pressed;
  pressed.result = PressNulls(effect, request);
  pressed.composition = *request.composition;
  return pressed;
}

TEST_F(Faults, TheDemandingFrameAsksForEverything) {
  const FrameRequest request = Demanding(*opened.effect);
  const FrameResult whole = RenderFrame(*opened.effect, request, nullptr);
  EXPECT_TRUE(Succeeded(whole)) << AllLines(whole.problems);
  const Ledger& ledger = opened.effect->ledger;
  EXPECT_EQ(Total(ledger, Item::kStream).taken, 5) << "four of the camera, one of the chosen layer";
  EXPECT_EQ(Total(ledger, Item::kStreamValue).taken, 5);
  EXPECT_EQ(Total(ledger, Item::kEffectRef).taken, 1);
  EXPECT_GT(Total(ledger, Item::kCheckout).taken, 8) << "A, B, sprites, and the solid A";
}

TEST_F(Faults, FramesRenderWithEverySuiteMissing) {
  for (const SuiteEntry& suite : AllSuites()) {
    for (const HiddenManner manner : kManners) {
      FrameRequest request = Demanding(*opened.effect);
      request.faults->hiddenSuites.push_back({suite.name, suite.version, manner});
      World output;
      const FrameResult result = RenderFrame(*opened.effect, request, &output);
      EXPECT_EQ(result.error, PF_Err_NONE) << suite.name;
      ExpectBalanced(result, suite.name == kAEGP_EffectSuite4Name, suite.name);
      EXPECT_GT(PixelsDrawn(output), 0) << suite.name;
    }
  }
}

TEST_F(Faults, FramesRenderWithEveryCallFailing) {
  FrameRequest request = Demanding(*opened.effect);
  const long calls = RenderFrame(*opened.effect, request, nullptr).hostCalls;
  ASSERT_GT(calls, 50);
  long kept = 0;
  for (long n = 1; n <= calls; ++n) {
    request.faults->failCall = n;
    World output;
    const FrameResult result = RenderFrame(*opened.effect, request, &output);
    EXPECT_EQ(result.error, PF_Err_NONE) << n;
    EXPECT_GT(PixelsDrawn(output), 0) << n;
    kept += ExpectBalanced(result, true, "call " + std::to_string(n));
  }
  EXPECT_EQ(kept, 1) << "only where the suite that takes effect references back is refused";
}

TEST_F(Faults, FramesTakeNoMemoryFromTheHost) {
  EXPECT_EQ(RenderFrame(*opened.effect, Demanding(*opened.effect), nullptr).allocations, 0);
}

TEST_F(Faults, PressesEndWithTheirErrorWhereASuiteIsMissing) {
  for (const SuiteEntry& suite : AllSuites()) {
    const bool required = suite.name == kAEGP_PFInterfaceSuite1Name || suite.name == kAEGP_LayerSuite9Name ||
                          suite.name == kAEGP_CompSuite11Name || suite.name == kAEGP_StreamSuite6Name ||
                          suite.name == kAEGP_ItemSuite9Name;
    const bool takesBack = suite.name == kAEGP_EffectSuite4Name;
    for (const HiddenManner manner : kManners) {
      HostFaults faults;
      faults.hiddenSuites.push_back({suite.name, suite.version, manner});
      const Pressed pressed = PressWith(*opened.effect, faults);
      EXPECT_EQ(pressed.result.error, required || takesBack ? PF_Err_BAD_CALLBACK_PARAM : PF_Err_NONE)
          << suite.name;
      EXPECT_EQ(pressed.composition.layers.size(), required ? 2U : 4U) << suite.name;
      ExpectBalanced(pressed.result, takesBack, suite.name);
    }
  }
}

TEST_F(Faults, PressesSurviveEveryCallFailing) {
  const long calls = PressWith(*opened.effect, {}).result.hostCalls;
  ASSERT_GT(calls, 90) << "eighteen bindings of four calls, and more";
  long refused = 0, quiet = 0, complete = 0, kept = 0;
  for (long n = 1; n <= calls; ++n) {
    HostFaults faults;
    faults.failCall = n;
    const Pressed pressed = PressWith(*opened.effect, faults);
    const PF_Err error = pressed.result.error;
    EXPECT_TRUE(error == PF_Err_NONE || error == PF_Err_BAD_CALLBACK_PARAM) << n << ": " << error;
    kept += ExpectBalanced(pressed.result, true, "call " + std::to_string(n));
    refused += error != PF_Err_NONE ? 1 : 0;
    quiet += error == PF_Err_NONE && pressed.composition.layers.size() == 2 ? 1 : 0;
    complete += pressed.composition.layers.size() == 4 ? 1 : 0;
  }
  EXPECT_EQ(kept, 1) << "only where the suite that takes effect references back is refused";
  EXPECT_EQ(refused, 6) << "five suites at the start and the one at the end";
  EXPECT_EQ(quiet, 3) << "no layer, no composition, no effect reference";
  EXPECT_EQ(complete, calls - 5 - 3 - 2) << "all others but the two creations of nulls";
}

TEST_F(Faults, ANullThatCannotBeCreatedIsSkippedAndTheOtherMade) {
  for (const long n : {1L, 2L}) {
    HostFaults faults;
    faults.failCallNamed["AEGP_CreateNullInComp"] = n;
    const Pressed pressed = PressWith(*opened.effect, faults);
    EXPECT_EQ(pressed.result.error, PF_Err_NONE);
    ASSERT_EQ(pressed.composition.layers.size(), 3U);
    EXPECT_EQ(pressed.composition.layers[0].name, n == 1 ? "Vantle B Ctrl" : "Vantle A Ctrl");
    EXPECT_EQ(pressed.composition.effectExpressions.size(), 9U);
  }
}

TEST_F(Faults, AStreamThatCannotBeHadIsSkippedAndTheOthersBound) {
  for (long n = 1; n <= 18; ++n) {
    HostFaults faults;
    faults.failCallNamed["AEGP_GetNewEffectStreamByIndex"] = n;
    const Pressed pressed = PressWith(*opened.effect, faults);
    EXPECT_EQ(pressed.result.error, PF_Err_NONE);
    EXPECT_EQ(pressed.composition.effectExpressions.size(), 17U);
    EXPECT_EQ(pressed.composition.effectExpressions.count(static_cast<int>(66 + n)), 0U);
  }
}

TEST_F(Faults, APositionThatCannotBeSetLeavesTheNullWhereItIs) {
  for (const char* function : {"AEGP_GetNewLayerStream", "AEGP_SetStreamValue"}) {
    HostFaults faults;
    faults.failCallNamed[function] = 1;
    const Pressed pressed = PressWith(*opened.effect, faults);
    EXPECT_EQ(pressed.result.error, PF_Err_NONE);
    EXPECT_EQ(pressed.composition.effectExpressions.size(), 18U);
  }
}

TEST_F(Faults, DimensionsThatFailPutTheNullsAtTheCorner) {
  HostFaults faults;
  faults.failCallNamed["AEGP_GetItemDimensions"] = 1;
  const Pressed pressed = PressWith(*opened.effect, faults);
  EXPECT_EQ(pressed.composition.layers[0].streams[composition::kPosition].keys[0].value,
            (composition::Numbers{}));
}

}  // namespace
}  // namespace vantle::host
