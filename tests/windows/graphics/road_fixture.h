// The shipped module on the stand-ins, with the processor-only effect beside it.
#pragma once

#include "tests/windows/graphics/debug_text.h"
#include "tests/windows/graphics/graphics_frames.h"
#include "tests/windows/graphics/stand_ins.h"

#include <gtest/gtest.h>

namespace vantle::host {

using test::FirstFault;
using test::kStarted;
using test::NoDeviceText;
using test::NoShaderText;
using test::TakeDebugTexts;
using test::Texts;
using test::TheCompiler;
using test::TheGraphics;

class Road : public testing::Test {
 protected:
  void SetUp() override {
    test::ResetStandIns();
    processor = OpenProcessorOnly();
    Open();
  }

  void TearDown() override {
    Close();
    EXPECT_TRUE(CloseEffect(*processor.effect).problems.empty());
  }

  void Open(const HostOptions& options = {}) { shipped = OpenShipped(options); }

  /// Sets the module down, after which nothing of Direct3D may be left.
  void Close() {
    if (shipped.effect == nullptr) return;
    for (const std::string& problem : CloseEffect(*shipped.effect).problems) ADD_FAILURE() << problem;
    shipped.effect.reset();
    EXPECT_EQ(TheGraphics().live, 0);
    EXPECT_EQ(TheCompiler().live, 0);
    EXPECT_EQ(TheGraphics().maps, TheGraphics().unmaps);
    EXPECT_EQ(FirstFault(), "");
    if (TheGraphics().devices > 0) {
      EXPECT_EQ(TheGraphics().lastDeviceRelease, 0u);
    }
  }

  /// For either effect, and for the module again when it was closed meanwhile.
  FrameRequest Frame(int number) const { return ParticlesAlone(*processor.effect, number); }

  /// The module's picture is the one that the processor draws.
  void ExpectProcessor(const FrameRequest& request) {
    EXPECT_EQ(PixelsOf(Rendered(*shipped.effect, request)), PixelsOf(Rendered(*processor.effect, request)));
  }

  /// The module's picture is the one that the graphics path draws, and that is what drew it.
  void ExpectGraphics(const FrameRequest& request) {
    const int dispatches = TheGraphics().dispatches;
    EXPECT_EQ(PixelsOf(Rendered(*shipped.effect, request)), GraphicsPixels(*processor.effect, request));
    EXPECT_EQ(TheGraphics().dispatches, dispatches + 1);
  }

  OpenedEffect processor;
  OpenedEffect shipped;
};

/// Frames of 8, 16 and 32 bits; the first two look different on the two roads.
inline constexpr int kFrameOfDepth[] = {0, 2, 4};

}  // namespace vantle::host
