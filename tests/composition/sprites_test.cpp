// Which frames of the custom layer the effect asks for and shows. Each frame is one flat colour that tells
// its time, and sprites are not filtered: the numbers can be read off the rendered pixels.
#include "host_api/aegp_suites.h"
#include "tests/composition/effect_frames.h"

#include <cmath>
#include <functional>
#include <gtest/gtest.h>
#include <set>

namespace vantle::host {
namespace {

/// The choices of "Time Type", as the panel lists them.
enum TimeChoice : A_long { kCurrent = 1, kPlayOnce, kLoop, kStretch, kStill, kRandomPlayOnce, kRandomLoop };

using Times = std::set<A_long>;

std::shared_ptr<const World> FlatSprite(A_long time, int depth) {
  auto world = std::make_shared<World>(MakeWorld(3, 3, depth));
  const auto red = static_cast<float>(time % 16) / 15.0F, green = static_cast<float>(time / 16 % 16) / 15.0F,
             blue = static_cast<float>(time / 256 % 16) / 15.0F;
  for (int i = 0; i < 9; ++i) WritePixel(*world, i % 3, i / 3, {1.0F, red, green, blue});
  return world;
}

/// The times that the opaque pixels tell.
Times ShownTimes(const World& world) {
  Times times;
  for (int i = 0; i < world.width * world.height; ++i) {
    const PF_PixelFloat p = ReadPixel(world, i % world.width, i / world.width);
    if (p.alpha < 0.999F) continue;
    const auto digit = [](float channel) { return static_cast<A_long>(std::lround(channel * 15)); };
    times.insert(digit(p.red) + 16 * digit(p.green) + 256 * digit(p.blue));
  }
  return times;
}

struct Outcome {
  Times asked;     ///< all checkouts
  Times given;     ///< those that got pixels
  Times shown;     ///< those in the picture
  long count = 0;  ///< checkouts of sprites that got pixels
};

struct Sprites : testing::Test {
  void SetUp() override { Open({}); }
  void TearDown() override { EXPECT_EQ(AllLines(CloseEffect(*opened.effect).problems), ""); }

  void Open(const HostOptions& options) {
    if (opened.effect != nullptr) CloseEffect(*opened.effect);
    opened = OpenReal(options);
    ASSERT_NE(opened.effect, nullptr);
    request = RealFrame(*opened.effect, 48, 40, 8);
    request.time = {0, 1, 24, 60};
    request.values = {{kTransformParam, 0.0}, {kDensityParam, 200.0},  {kShapeParam, A_long{9}},
                      {kSizeParam, 3.0},      {kThicknessAParam, 0.0}, {kViewAngleParam, 0.0},
                      {kOpacityParam, 100.0}};
    request.composition = CompositionAround(request, 16);
  }

  Outcome Render(TimeChoice choice, A_long time, const std::function<bool(A_long)>& has = nullptr,
                 PF_Err withoutPixels = PF_Err_NONE) {
    Outcome outcome;
    request.values[kTimeTypeParam] = A_long{choice};
    request.time.current = time;
    const LayerProvider others = LayersOf(*opened.effect, {}, request.input);
    request.layers = [&](int param, A_long t, A_long step, A_u_long scale) -> LayerFrame {
      if (param != kSpriteLayerParam) return others(param, t, step, scale);
      EXPECT_EQ(step, request.time.step);
      EXPECT_EQ(scale, request.time.scale);
      outcome.asked.insert(t);
      if (has && !has(t)) return {withoutPixels, nullptr};
      outcome.given.insert(t);
      ++outcome.count;
      return {PF_Err_NONE, FlatSprite(t, request.depth)};
    };
    outcome.shown = ShownTimes(RenderClean(*opened.effect, request));
    return outcome;
  }

  OpenedEffect opened;
  FrameRequest request;
};

Times Range(A_long first, A_long last) {
  Times times;
  for (A_long t = first; t <= last; ++t) times.insert(t);
  return times;
}

TEST_F(Sprites, CurrentTimeShowsTheFrameOfTheMoment) {
  for (const A_long time : {0, 5, 15, 16, 47}) {
    const Outcome outcome = Render(kCurrent, time);
    EXPECT_EQ(outcome.asked, Times{time});
    EXPECT_EQ(outcome.shown, Times{time}) << "also beyond the layer's end: the host decides what is there";
    EXPECT_EQ(outcome.count, 1) << "one checkout serves all";
  }
}

TEST_F(Sprites, PlayOnceEndsWithTheLayer) {
  for (const A_long time : {0, 7, 15}) EXPECT_EQ(Render(kPlayOnce, time).shown, Times{time});
  for (const A_long time : {-1, 16, 40}) {
    const Outcome outcome = Render(kPlayOnce, time);
    EXPECT_TRUE(outcome.asked.empty());
    EXPECT_TRUE(outcome.shown.empty());
  }
}

TEST_F(Sprites, LoopWrapsAtTheLayersDuration) {
  for (const A_long time : {0, 15, 16, 37, -1, -17})
    EXPECT_EQ(Render(kLoop, time).shown, Times{((time % 16) + 16) % 16}) << time;
}

TEST_F(Sprites, StretchSpreadsTheLayerOverASecond) {
  EXPECT_EQ(Render(kStretch, 0).shown, Times{0});
  EXPECT_EQ(Render(kStretch, 12).shown, Times{7});
  EXPECT_EQ(Render(kStretch, 24).shown, Times{15});
  EXPECT_EQ(Render(kStretch, 40).shown, Times{15});
  EXPECT_EQ(Render(kStretch, -5).shown, Times{0});
}

TEST_F(Sprites, RandomStillsStayWhatTheyAre) {
  const Outcome outcome = Render(kStill, 0);
  EXPECT_EQ(outcome.asked, Range(0, 14)) << "200 particles meet every frame but the one at the very end";
  EXPECT_EQ(Render(kStill, 33).asked, outcome.asked);
}

TEST_F(Sprites, RandomPlayOnceRunsOutOneByOne) {
  EXPECT_EQ(Render(kRandomPlayOnce, 0).asked, Range(0, 15));
  EXPECT_EQ(Render(kRandomPlayOnce, 10).asked, Range(10, 15));
  EXPECT_EQ(Render(kRandomPlayOnce, 16).asked, Times{});
  EXPECT_EQ(Render(kRandomPlayOnce, -8).asked, Range(0, 7)) << "none before the layer's start";
}

TEST_F(Sprites, RandomLoopNeverEnds) {
  for (const A_long time : {0, 10, 100, -100})
    EXPECT_EQ(Render(kRandomLoop, time).asked, Range(0, 15)) << time;
}

TEST_F(Sprites, TimesSnapToTheFramesOfTheComposition) {
  request.time.step = 5;
  EXPECT_EQ(Render(kStill, 0).asked, (Times{0, 5, 10}));
  EXPECT_EQ(Render(kLoop, 23).asked, Times{5}) << "wrapped to 7, then snapped";
  EXPECT_EQ(Render(kPlayOnce, 14).asked, Times{10});
  request.time.step = 0;
  EXPECT_EQ(Render(kLoop, 23).asked, Times{7});
  request.time.step = -5;
  EXPECT_EQ(Render(kLoop, 23).asked, Times{7});
}

TEST_F(Sprites, ShowTheSameAtEveryDepth) {
  for (const int depth : {16, 32}) {
    request.depth = depth;
    request.input = ColorfulLayer(48, 40, depth);
    EXPECT_EQ(Render(kLoop, 20).shown, Times{4}) << depth;
  }
}

TEST_F(Sprites, NoMoreThan200AreHeld) {
  request.values[kDensityParam] = 3000.0;
  request.composition->layers.back().source->duration = 1000;
  request.time.scale = 24;
  const Outcome outcome = Render(kStill, 0);
  EXPECT_EQ(outcome.count, 200);
  EXPECT_EQ(outcome.asked.size(), 200U) << "nothing beyond them is even asked for";
  for (const A_long time : outcome.shown) EXPECT_EQ(outcome.given.count(time), 1U) << time;
  EXPECT_GT(outcome.shown.size(), 20U);
}

TEST_F(Sprites, FailedOnesAreNeitherHeldNorCounted) {
  request.values[kDensityParam] = 3000.0;
  request.composition->layers.back().source->duration = 1000;
  for (const PF_Err error : {PF_Err_NONE, PF_Err_OUT_OF_MEMORY}) {
    const Outcome outcome = Render(
        kStill, 0, [](A_long time) { return time % 2 == 0; }, error);
    EXPECT_EQ(outcome.count, 200);
    EXPECT_GT(outcome.asked.size(), 300U);
    for (const A_long time : outcome.shown) EXPECT_EQ(time % 2, 0);
  }
}

TEST_F(Sprites, ParticlesWithoutAFrameAreNotDrawn) {
  for (const PF_Err error : {PF_Err_NONE, PF_Err_INTERNAL_STRUCT_DAMAGED}) {
    const Outcome outcome = Render(
        kStill, 0, [](A_long time) { return time < 3; }, error);
    EXPECT_EQ(outcome.given, Range(0, 2));
    for (const A_long time : outcome.shown) EXPECT_LT(time, 3);
    EXPECT_TRUE(Render(
                    kCurrent, 5, [](A_long) { return false; }, error)
                    .shown.empty());
  }
}

TEST_F(Sprites, TheDurationIsTheSourceItems) {
  request.composition->layers.back().source = composition::SourceItem{3, 3, 1, 3};
  EXPECT_EQ(Render(kLoop, 20).asked, Times{4}) << "a third of a second is 8 ticks of 24";
  request.composition->layers.back().source = composition::SourceItem{3, 3, 0, 1};
  EXPECT_EQ(Render(kLoop, 20).asked, Times{0}) << "never less than one tick";
  request.composition->layers.back().source.reset();
  EXPECT_EQ(Render(kLoop, 70).asked, Times{10}) << "without an item, the composition's 60 ticks";
}

TEST_F(Sprites, WithoutAChosenLayerTheCompositionsDurationCounts) {
  request.composition->chosenLayers.clear();
  EXPECT_EQ(Render(kLoop, 70).asked, Times{10});
}

TEST_F(Sprites, WithoutTheSuitesTheCompositionsDurationCounts) {
  for (const char* suite :
       {kAEGP_PFInterfaceSuite1Name, kAEGP_StreamSuite6Name, kAEGP_LayerSuite9Name, kAEGP_ItemSuite9Name}) {
    request.faults.emplace();
    request.faults->hiddenSuites.push_back({suite, 0, HiddenManner::kErrorAndNull});
    EXPECT_EQ(Render(kLoop, 20).asked, Times{20}) << suite;
    EXPECT_EQ(Render(kLoop, 70).asked, Times{10}) << suite;
  }
}

TEST_F(Sprites, InPremiereProTheCompositionsDurationCounts) {
  HostOptions options;
  options.applId = kApplPremierePro;
  Open(options);
  EXPECT_EQ(Render(kLoop, 20).shown, Times{20});
  EXPECT_EQ(Render(kLoop, 70).shown, Times{10});
  EXPECT_EQ(Total(opened.effect->ledger, Item::kStream).taken, 0);
}

TEST_F(Sprites, OtherShapesAskForNone) {
  request.values[kShapeParam] = A_long{1};
  EXPECT_TRUE(Render(kStill, 0).asked.empty());
}

}  // namespace
}  // namespace vantle::host
