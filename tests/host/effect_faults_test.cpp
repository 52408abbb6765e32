// The shipped effect while its host fails: nothing leaks, nothing stays checked out, frames still render.
#include "host/engine/suites.h"
#include "tests/host/real_effect.h"

#include <gtest/gtest.h>

namespace vantle::host {
namespace {

/// A frame that makes the effect ask its host for as much as it can: camera with depth of field, sprites.
FrameRequest DemandingFrame(const EffectInstance& effect) {
  FrameRequest request = RealFrame(effect, 16, 12, 8);
  request.values[kShapeParam] = A_long{9};
  request.values[kTimeTypeParam] = A_long{5};
  request.values[kDepthOfFieldParam] = A_long{1};
  request.sourceDurations[kSpriteLayerParam] = {40, 24};
  LayerTable table;
  table.frameScale = 24;
  for (int i = 0; i < 8; ++i) {
    table.frames[kSpriteLayerParam].push_back({5 * i, ColorfulLayer(4, 4, 8)});
  }
  request.layers = LayersOf(effect, table, request.input);
  FrameCamera& camera = request.camera.emplace();
  for (int i = 0; i < 4; ++i) {
    camera.matrix.mat[i][i] = 1;
  }
  camera.matrix.mat[3][2] = -40;
  camera.distance = 40;
  camera.planeWidth = 16;
  camera.planeHeight = 12;
  camera.depthOfField = true;
  camera.focusDistance = 30;
  camera.aperture = 5;
  camera.zoom = 40;
  return request;
}

/// Without the suite that takes effect references back there is nobody to give one to.
bool IsExempt(const FrameRequest& request, const std::string& line) {
  bool hidden = false;
  for (const HiddenSuite& suite : request.faults->hiddenSuites) {
    hidden = hidden || suite.name == kAEGP_EffectSuite4Name;
  }
  const bool acquisitionFails = request.faults->failCall != 0;
  return (hidden || acquisitionFails) && line.find("effect reference taken") == 0;
}

void ExpectClean(const FrameRequest& request, const FrameResult& result, const std::string& what) {
  EXPECT_EQ(result.error, PF_Err_NONE) << what;
  for (const std::string& line : result.problems) {
    EXPECT_TRUE(IsExempt(request, line)) << what << ": " << line;
  }
}

TEST(RealEffectFaults, EverySuiteMissingInEveryManner) {
  for (const SuiteEntry& suite : AllSuites()) {
    for (const HiddenManner manner :
         {HiddenManner::kErrorAndNull, HiddenManner::kErrorPointerUntouched, HiddenManner::kSuccessAndNull}) {
      HostOptions options;
      options.faults.hiddenSuites.push_back({suite.name, suite.version, manner});
      OpenedEffect opened = OpenReal(options);
      ASSERT_NE(opened.effect, nullptr) << suite.name;
      EXPECT_EQ(AllLines(opened.result.problems), "") << suite.name;
      FrameRequest request = DemandingFrame(*opened.effect);
      request.faults = options.faults;
      ExpectClean(request, RenderFrame(*opened.effect, request, nullptr), suite.name);
      const CommandResult about = AskAbout(*opened.effect);
      EXPECT_EQ(about.error,
                suite.name == kPF_ANSICallbacksSuite1Name ? PF_Err_BAD_CALLBACK_PARAM : PF_Err_NONE);
      EXPECT_EQ(AllLines(CloseEffect(*opened.effect).problems), "") << suite.name;
    }
  }
}

TEST(RealEffectFaults, EveryCallOfAFrameFailing) {
  OpenedEffect opened = OpenReal();
  ASSERT_NE(opened.effect, nullptr);
  FrameRequest request = DemandingFrame(*opened.effect);
  request.faults.emplace();
  const FrameResult whole = RenderFrame(*opened.effect, request, nullptr);
  ExpectClean(request, whole, "no fault");
  ASSERT_GT(whole.hostCalls, 20);
  EXPECT_GE(Total(opened.effect->ledger, Item::kStreamValue).taken, 4) << "the frame asks too little";
  for (long n = 1; n <= whole.hostCalls; ++n) {
    request.faults->failCall = n;
    World output;
    ExpectClean(request, RenderFrame(*opened.effect, request, &output), "call " + std::to_string(n));
  }
  EXPECT_EQ(AllLines(CloseEffect(*opened.effect).problems), "");
}

TEST(RealEffectFaults, EveryCallOfTheSetUpFailing) {
  // Parameters of the table come after the few calls of global set-up; past the last call nothing fails.
  int refused = 0;
  for (long n = 1; n <= 130; ++n) {
    HostOptions options;
    options.faults.failCall = n;
    options.faults.failWith = PF_Err_INVALID_CALLBACK;
    OpenedEffect opened = OpenReal(options);
    if (opened.effect == nullptr) {
      ++refused;
      EXPECT_EQ(opened.result.error, PF_Err_INVALID_CALLBACK) << n;
      EXPECT_EQ(opened.result.command, PF_Cmd_PARAMS_SETUP) << n;
      EXPECT_EQ(AllLines(opened.result.problems), "") << n;
    } else {
      EXPECT_EQ(AllLines(CloseEffect(*opened.effect).problems), "") << n;
    }
  }
  EXPECT_EQ(refused, 88) << "87 parameters and the custom controls";
}

TEST(RealEffectFaults, DefaultsWithoutMemoryAreLeftOut) {
  for (long n = 1; n <= 3; ++n) {
    HostOptions options;
    options.faults.failAllocation = n;
    OpenedEffect opened = OpenReal(options);
    ASSERT_NE(opened.effect, nullptr) << n;
    ASSERT_EQ(opened.result.problems.size(), 1U) << AllLines(opened.result.problems);
    EXPECT_NE(opened.result.problems[0].find("has no default value"), std::string::npos);
    EXPECT_GT(PixelsDrawn(RenderClean(*opened.effect, RealFrame(*opened.effect, 16, 16, 8))), 0);
    EXPECT_EQ(AllLines(CloseEffect(*opened.effect).problems), "");
  }
}

TEST(RealEffectFaults, LocksThatReturnNull) {
  HostOptions options;
  options.faults.locksReturnNull = true;
  OpenedEffect opened = OpenReal(options);
  ASSERT_NE(opened.effect, nullptr);
  EXPECT_GT(PixelsDrawn(RenderClean(*opened.effect, RealFrame(*opened.effect, 16, 16, 8))), 0);
  for (const int param : {kScaleOverLifeParam, kGradientParam}) {
    const std::vector<std::uint8_t> value(140, 1);
    EXPECT_EQ(AllLines(CopyCustomValue(*opened.effect, param, value).problems), "");
    EXPECT_EQ(AllLines(FlattenCustomValue(*opened.effect, param, value).problems), "");
    EXPECT_EQ(AllLines(PrintCustomValue(*opened.effect, param, value).problems), "");
    EXPECT_EQ(CompareCustomValues(*opened.effect, param, value, value).order, PF_ArbCompare_NOT_EQUAL);
  }
  EXPECT_EQ(AllLines(CloseEffect(*opened.effect).problems), "");
}

TEST(RealEffectFaults, ACopyThatCannotBeLockedStaysTheDefault) {
  OpenedEffect opened = OpenReal();
  ASSERT_NE(opened.effect, nullptr);
  EffectInstance& effect = *opened.effect;
  const std::vector<std::uint8_t> value(140, 1);
  for (long n = 2; n <= 3; ++n) {
    effect.faults.named.clear();
    effect.faults.faults.failCallNamed["host_lock_handle"] = n;
    const CustomResult copy = CopyCustomValue(effect, kGradientParam, value);
    EXPECT_EQ(copy.error, PF_Err_NONE);
    EXPECT_EQ(copy.bytes, effect.params[kGradientParam].defaultBytes);
    EXPECT_EQ(AllLines(copy.problems), "");
  }
}

TEST(RealEffectFaults, CallbacksWithoutMemory) {
  OpenedEffect opened = OpenReal();
  ASSERT_NE(opened.effect, nullptr);
  EffectInstance& effect = *opened.effect;
  const std::vector<std::uint8_t> value = effect.params[kGradientParam].defaultBytes;
  const auto exhaust = [&] { effect.faults.faults.failAllocation = effect.faults.allocations + 1; };
  exhaust();
  EXPECT_EQ(NewCustomValue(effect, kGradientParam).error, PF_Err_OUT_OF_MEMORY);
  exhaust();
  EXPECT_EQ(CopyCustomValue(effect, kGradientParam, value).error, PF_Err_OUT_OF_MEMORY);
  exhaust();
  EXPECT_EQ(InterpolateCustomValue(effect, kGradientParam, value, value, 0.5).error, PF_Err_OUT_OF_MEMORY);
  exhaust();
  EXPECT_EQ(ScanCustomValue(effect, kGradientParam, "x").error, PF_Err_OUT_OF_MEMORY);
  EXPECT_EQ(AllLines(CloseEffect(effect).problems), "");
}

}  // namespace
}  // namespace vantle::host
