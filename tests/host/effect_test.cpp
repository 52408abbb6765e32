// The shipped effect in the hands of a host that checks its manners.
#include "tests/host/real_effect.h"

#include <gtest/gtest.h>

namespace vantle::host {
namespace {

TEST(RealEffect, IntroducesItself) {
  OpenedEffect opened = OpenReal();
  ASSERT_NE(opened.effect, nullptr) << opened.result.message;
  EXPECT_EQ(AllLines(opened.result.problems), "");
  const EffectInstance& effect = *opened.effect;
  EXPECT_EQ(effect.registration.name, "Vantle");
  EXPECT_EQ(effect.registration.matchName, "Orlan_Vantle");
  EXPECT_EQ(effect.registration.category, "Simulation");
  EXPECT_EQ(effect.registration.calls, 1);
  EXPECT_EQ(effect.version, 0x90001U);
  EXPECT_EQ(effect.outFlags, 0x06008004);
  EXPECT_EQ(effect.outFlags2, 0x08080002);
  EXPECT_EQ(effect.params.size(), 88U);
  EXPECT_EQ(effect.registeredUis, 1);
  EXPECT_EQ(effect.customUi.events, PF_CustomEFlag_EFFECT);
  EXPECT_EQ(effect.aegpRegistrations, std::vector<std::string>{"Vantle"});
  EXPECT_EQ(effect.params[kScaleOverLifeParam].defaultBytes.size(), 268U);
  EXPECT_EQ(effect.params[kGradientParam].defaultBytes.size(), 140U);
  EXPECT_EQ(AskAbout(*opened.effect).message,
            "Vantle v1.2\rLayer-driven particle system. Brightness controls emission.");
  EXPECT_EQ(AllLines(SaveAndReload(*opened.effect).problems), "");
  EXPECT_EQ(AllLines(CloseEffect(*opened.effect).problems), "");
}

TEST(RealEffect, IsOpenedAgainAndAgain) {
  for (int i = 0; i < 20; ++i) {
    OpenedEffect opened = OpenReal();
    ASSERT_NE(opened.effect, nullptr);
    EXPECT_GT(PixelsDrawn(RenderClean(*opened.effect, RealFrame(*opened.effect, 24, 16, 8))), 0);
    EXPECT_EQ(AllLines(CloseEffect(*opened.effect).problems), "");
  }
}

TEST(RealEffect, RegistersNothingInPremiere) {
  HostOptions options;
  options.applId = kApplPremierePro;
  OpenedEffect opened = OpenReal(options);
  ASSERT_NE(opened.effect, nullptr);
  EXPECT_TRUE(opened.effect->aegpRegistrations.empty());
  EXPECT_EQ(AskAbout(*opened.effect).message, "");
  EXPECT_GT(PixelsDrawn(RenderClean(*opened.effect, RealFrame(*opened.effect, 24, 16, 8))), 0);
  EXPECT_EQ(AllLines(CloseEffect(*opened.effect).problems), "");
}

TEST(RealEffect, DrawsTheSamePictureInRowsOfEveryLayout) {
  for (const int depth : {8, 16, 32}) {
    OpenedEffect plain = OpenReal();
    ASSERT_NE(plain.effect, nullptr);
    const World expected = RenderClean(*plain.effect, RealFrame(*plain.effect, 33, 21, depth));
    EXPECT_GT(PixelsDrawn(expected), 50);
    for (const RowLayout rows : {RowLayout::kTight, RowLayout::kOddPadding, RowLayout::kNegative,
                                 RowLayout::kPixelAligned, RowLayout::kByteAligned}) {
      HostOptions options;
      options.rows = rows;
      options.soilOutput = true;
      options.checkReadOnly = true;
      OpenedEffect opened = OpenReal(options);
      ASSERT_NE(opened.effect, nullptr);
      const World output = RenderClean(*opened.effect, RealFrame(*opened.effect, 33, 21, depth));
      EXPECT_EQ(HashPixels(output), HashPixels(expected))
          << "depth " << depth << ", layout " << static_cast<int>(rows);
    }
  }
}

TEST(RealEffect, TakesOutputsThatAreNotClear) {
  HostOptions options;
  options.soilOutput = true;
  OpenedEffect soiled = OpenReal(options);
  OpenedEffect clean = OpenReal();
  ASSERT_NE(soiled.effect, nullptr);
  ASSERT_NE(clean.effect, nullptr);
  FrameRequest request = RealFrame(*clean.effect, 20, 20, 8);
  EXPECT_EQ(HashPixels(RenderClean(*soiled.effect, request)),
            HashPixels(RenderClean(*clean.effect, request)));
}

TEST(RealEffect, LooksThroughTheCamera) {
  OpenedEffect opened = OpenReal();
  ASSERT_NE(opened.effect, nullptr);
  FrameRequest request = RealFrame(*opened.effect, 40, 30, 8);
  const std::uint64_t without = HashPixels(RenderClean(*opened.effect, request));

  // A camera 50 pixels before the centre of the picture, looking along z.
  FrameCamera& camera = request.camera.emplace();
  for (int i = 0; i < 4; ++i) {
    camera.matrix.mat[i][i] = 1;
  }
  camera.matrix.mat[3][0] = 20;
  camera.matrix.mat[3][1] = 15;
  camera.matrix.mat[3][2] = -50;
  camera.distance = 50;
  camera.planeWidth = 40;
  camera.planeHeight = 30;
  const std::uint64_t with = HashPixels(RenderClean(*opened.effect, request));
  EXPECT_NE(with, without);

  // Depth of field needs the camera's switch and the effect's own.
  camera.depthOfField = true;
  camera.focusDistance = 20;
  camera.aperture = 10;
  camera.zoom = 50;
  EXPECT_EQ(HashPixels(RenderClean(*opened.effect, request)), with);
  request.values[kDepthOfFieldParam] = A_long{1};
  EXPECT_NE(HashPixels(RenderClean(*opened.effect, request)), with);
}

TEST(RealEffect, ReadsCustomValues) {
  OpenedEffect opened = OpenReal();
  ASSERT_NE(opened.effect, nullptr);
  FrameRequest request = RealFrame(*opened.effect, 24, 24, 8);
  const std::uint64_t initial = HashPixels(RenderClean(*opened.effect, request));

  // An opacity of 0 over the whole life hides every particle.
  std::vector<std::uint8_t> flat = opened.effect->params[kOpacityOverLifeParam].defaultBytes;
  std::fill(flat.begin() + 76, flat.begin() + 84, std::uint8_t{0});
  request.values[kOpacityOverLifeParam] = CustomBytes{flat};
  EXPECT_EQ(PixelsDrawn(RenderClean(*opened.effect, request)), 0);

  // No value at all means the default.
  request.values[kOpacityOverLifeParam] = CustomBytes{};
  EXPECT_EQ(HashPixels(RenderClean(*opened.effect, request)), initial);
}

TEST(RealEffect, TakesValuesOfAnySizeAndContent) {
  OpenedEffect opened = OpenReal();
  ASSERT_NE(opened.effect, nullptr);
  for (const std::size_t size : {0U, 1U, 139U, 140U, 141U, 267U, 268U, 400U}) {
    for (const std::uint8_t fill : {std::uint8_t{0}, std::uint8_t{0x7f}, std::uint8_t{0xff}}) {
      FrameRequest request = RealFrame(*opened.effect, 12, 12, 8);
      request.values[kColorModeParam] = A_long{3};
      for (const int param : {kScaleOverLifeParam, kGradientParam, kOpacityOverLifeParam}) {
        request.values[param] = CustomBytes{std::vector<std::uint8_t>(size, fill)};
      }
      RenderClean(*opened.effect, request);
    }
  }
}

TEST(RealEffect, AnswersEveryCommandWithoutData) {
  OpenedEffect opened = OpenReal();
  ASSERT_NE(opened.effect, nullptr);
  for (PF_Cmd command = 0; command <= 40; ++command) {
    if (command == PF_Cmd_GLOBAL_SETUP || command == PF_Cmd_GLOBAL_SETDOWN ||
        command == PF_Cmd_PARAMS_SETUP) {
      continue;
    }
    const CommandResult result = SendCommand(*opened.effect, command);
    EXPECT_EQ(AllLines(result.problems), "") << command;
  }
  EXPECT_EQ(AllLines(CloseEffect(*opened.effect).problems), "");
}

TEST(RealEffect, CustomValuesRoundTrip) {
  OpenedEffect opened = OpenReal();
  ASSERT_NE(opened.effect, nullptr);
  EffectInstance& effect = *opened.effect;
  for (const int param : {kScaleOverLifeParam, kGradientParam, kOpacityOverLifeParam}) {
    const std::vector<std::uint8_t> value = NewCustomValue(effect, param).bytes;
    EXPECT_EQ(value, effect.params[static_cast<std::size_t>(param)].defaultBytes);
    EXPECT_EQ(CopyCustomValue(effect, param, value).bytes, value);
    const CustomResult flat = FlattenCustomValue(effect, param, value);
    EXPECT_EQ(AllLines(flat.problems), "");
    EXPECT_EQ(UnflattenCustomValue(effect, param, flat.bytes).bytes, value);
    EXPECT_EQ(InterpolateCustomValue(effect, param, value, value, 0.5).bytes, value);
    EXPECT_EQ(ScanCustomValue(effect, param, "anything").bytes, value);
    EXPECT_EQ(CompareCustomValues(effect, param, value, value).order, PF_ArbCompare_EQUAL);
    const CustomText text = PrintCustomValue(effect, param, value);
    EXPECT_EQ(text.text, param == kGradientParam ? "0%,50%,100%" : "100,100");
    EXPECT_EQ(AllLines(text.problems), "");
  }
  EXPECT_EQ(AllLines(CloseEffect(effect).problems), "");
}

}  // namespace
}  // namespace vantle::host
