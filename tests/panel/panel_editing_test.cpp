// The mouse in the panel, through DO_CLICK and DRAG, and what the host keeps of it.
#include "host/scene/scene_frame.h"
#include "host_api/commands.h"
#include "tests/panel/real_panel.h"

#include <algorithm>

namespace vantle::panel {
namespace {

const char* const kAddStop = R"({ "control": "Color Gradient", "click": [148, 14] })";

TEST(PanelEditing, AClickInTheBarAddsAStopAndTheReleaseDragsIt) {
  RealPanel real;
  const ActionResult result = real.Play(kAddStop);
  EXPECT_TRUE(result.handled);
  EXPECT_EQ(result.drags, 1);  // the release, from the same place
  EXPECT_EQ(real.Gradient().count, 4);
  EXPECT_EQ(real.Gradient().selected, 2);
  EXPECT_FLOAT_EQ(real.Gradient().stops[2].position, (148.0f - 4.5f) / 192.0f);
  ASSERT_EQ(real.panel.steps.size(), 2u);
  EXPECT_EQ(real.panel.steps[0].event, "click at 148,14");
  EXPECT_EQ(real.panel.steps[0].textBefore, "0%,50%,100%");
  EXPECT_EQ(real.panel.steps[0].textAfter, "0%,50%,75%,100%");
  EXPECT_EQ(real.panel.steps[1].event, "drag to 148,14");
}

TEST(PanelEditing, AStopIsDraggedPastItsNeighbour) {
  RealPanel real;
  const ActionResult result =
      real.Play(R"({ "control": "Color Gradient", "drag": [[100, 30], [120, 30], [196, -50], [20, 90]] })");
  EXPECT_EQ(result.drags, 3);
  EXPECT_EQ(real.Gradient().selected, 1);
  EXPECT_FLOAT_EQ(real.Gradient().stops[1].position, (20.0f - 4.5f) / 192.0f);
  EXPECT_EQ(real.Gradient().stops[1].r, 0.0f);  // the cyan one
  EXPECT_EQ(real.panel.steps.size(), 4u);
  real.Play(R"({ "control": "Color Gradient", "drag": [[20, 30], [3, 30]] })");
  EXPECT_EQ(real.Gradient().stops[0].position, 0.0f);
}

TEST(PanelEditing, ADoubleClickRecoloursWithTheScriptsColour) {
  RealPanel real;
  const ActionResult result =
      real.Play(R"({ "control": "Color Gradient", "double_click": [100, 30], "picker": [0.25, 0.5, 0.75] })");
  EXPECT_EQ(result.error, PF_Err_NONE);
  EXPECT_TRUE(result.notes.empty());
  const auto shown = std::find(real.panel.record.begin(), real.panel.record.end(),
                               "colour picker \"Pick Stop Color\" from 0 1 1 1: 0.25 0.5 0.75");
  EXPECT_NE(shown, real.panel.record.end());
  EXPECT_EQ(real.Gradient().stops[1].r, 0.25f);
  EXPECT_EQ(real.Gradient().stops[1].b, 0.75f);
  EXPECT_EQ(real.Gradient().selected, 1);
}

TEST(PanelEditing, ACancelledPickerLeavesTheColourAndNoError) {
  RealPanel real;
  const ActionResult result =
      real.Play(R"({ "control": "Color Gradient", "double_click": [100, 30], "picker": "cancel" })");
  EXPECT_EQ(result.error, PF_Err_NONE);
  EXPECT_EQ(real.Gradient().stops[1].r, 0.0f);
  EXPECT_EQ(real.Gradient().selected, 1);
}

TEST(PanelEditing, AFailingPickersErrorComesOut) {
  RealPanel real;
  const ActionResult result =
      real.Play(R"({ "control": "Color Gradient", "double_click": [100, 30], "picker": { "error": 512 } })");
  EXPECT_EQ(result.error, 512);
  EXPECT_EQ(real.Gradient().stops[1].r, 0.0f);
}

TEST(PanelEditing, APickerWithoutAnAnswerAndAnAnswerWithoutAPickerAreTold) {
  RealPanel real;
  const ActionResult none = real.Play(R"({ "control": "Color Gradient", "double_click": [100, 30] })");
  ASSERT_EQ(none.notes.size(), 1u);
  EXPECT_EQ(none.notes[0], "the colour picker opened and was cancelled: give a \"picker\" answer");
  const ActionResult unused =
      real.Play(R"({ "control": "Color Gradient", "click": [100, 30], "picker": [1, 1, 1] })");
  ASSERT_EQ(unused.notes.size(), 1u);
  EXPECT_EQ(unused.notes[0], "the colour picker did not open");
}

TEST(PanelEditing, CtrlDeletesAndAsksForNoDrag) {
  RealPanel real;
  const ActionResult result =
      real.Play(R"({ "control": "Color Gradient", "drag": [[100, 30], [150, 30]], "modifiers": ["ctrl"] })");
  EXPECT_EQ(result.drags, 0);
  EXPECT_EQ(result.notes.at(0), "the effect did not ask for a drag");
  EXPECT_EQ(real.Gradient().count, 2);
  EXPECT_EQ(real.panel.steps.size(), 1u);
}

TEST(PanelEditing, AClickOnNothingIsNoStep) {
  RealPanel real;
  const ActionResult result = real.Play(R"({ "control": "Color Gradient", "click": [52, 36] })");
  EXPECT_FALSE(result.handled);
  EXPECT_TRUE(real.panel.steps.empty());
}

TEST(PanelEditing, CurvePointsAreAddedDraggedAndReset) {
  RealPanel real;
  real.Play(R"({ "control": "Scale over Life", "drag": [[100, 50], [120, 61]] })");
  LifeCurve curve = real.Value<LifeCurve>(kScaleCurve);
  ASSERT_EQ(curve.count, 3);
  EXPECT_FLOAT_EQ(curve.x[1], 116.0f / 192.0f);
  EXPECT_FLOAT_EQ(curve.y[1], 1.0f);
  real.Play(R"({ "control": "Scale over Life", "drag": [[5, 60], [190, 4]] })");
  curve = real.Value<LifeCurve>(kScaleCurve);
  EXPECT_EQ(curve.x[0], 0.0f);
  EXPECT_EQ(curve.y[0], 2.0f);
  real.Play(R"({ "control": "Scale over Life", "click": [154, 120] })");
  curve = real.Value<LifeCurve>(kScaleCurve);
  EXPECT_EQ(curve.count, 2);
  EXPECT_EQ(curve.maximum, 2.0f);
  EXPECT_EQ(curve.y[0], 1.0f);
}

TEST(PanelEditing, UndoAndRedoWalkTheSteps) {
  RealPanel real;
  const ValueBytes before = CurrentValue(real.panel, kGradient);
  real.Play(kAddStop);
  real.Play(R"({ "control": "Scale over Life", "click": [100, 50] })");
  const ValueBytes after = CurrentValue(real.panel, kGradient);
  EXPECT_EQ(real.panel.applied, 4u);
  EXPECT_TRUE(real.Play(R"({ "undo": 3 })").notes.empty());
  EXPECT_EQ(real.Gradient().count, 4);
  EXPECT_EQ(real.Value<LifeCurve>(kScaleCurve).count, 2);
  EXPECT_EQ(real.Play(R"({ "undo": 5 })").notes.at(0), "only 1 steps were there");
  EXPECT_EQ(CurrentValue(real.panel, kGradient), before);
  EXPECT_EQ(real.panel.content.texts[kGradient], "0%,50%,100%");
  real.Play(R"({ "redo": 2 })");
  EXPECT_EQ(CurrentValue(real.panel, kGradient), after);
  // A new step forgets those that were taken back.
  real.Play(kAddStop);
  EXPECT_EQ(real.panel.steps.size(), real.panel.applied);
  EXPECT_EQ(real.Play(R"({ "redo": 1 })").notes.at(0), "only 0 steps were there");
}

TEST(PanelEditing, EachChangeIsFollowedByADrawOfItsControl) {
  RealPanel real;
  const size_t opened = real.panel.record.size();
  real.Play(R"({ "control": "Color Gradient", "drag": [[100, 30], [110, 30], [120, 30]] })");
  std::vector<std::string> events;
  for (size_t i = opened; i < real.panel.record.size(); ++i)
    if (real.panel.record[i][0] == '#') events.push_back(real.panel.record[i].substr(0, 23));
  const std::vector<std::string> expected = {"# cursor",
                                             "# click at 100,30",
                                             "# draw Color Gradient i",
                                             "# drag to 110,30",
                                             "# draw Color Gradient i",
                                             "# drag to 120,30",
                                             "# draw Color Gradient i"};
  EXPECT_EQ(events, expected);
}

TEST(PanelEditing, KeyframesAreShownAtTheFrame) {
  const std::string keys = R"({ "Opacity over Life": { "keyframes": [
      { "frame": 0, "value": { "max": 1, "points": [[0, 0], [1, 0]] } },
      { "frame": 8, "value": { "max": 1, "points": [[0, 1], [1, 1]] } } ] }, "Size": 7 })";
  PanelOptions options;
  options.frame = 2;
  RealPanel real(keys, options);
  EXPECT_EQ(real.panel.content.texts[kOpacityCurve], "25,25");
  EXPECT_EQ(real.panel.content.animated.count(kOpacityCurve), 1u);
  EXPECT_EQ(real.panel.content.animated.size(), 1u);
}

// The saved value is what frames are rendered with.
TEST(PanelEditing, RenderedColoursFollowTheEditedGradient) {
  RealPanel real(R"({ "Color Mode": "Over Life", "Transform": 50, "Size": 8, "Density/Density": 500 })");
  for (const char* at : {"4", "100", "196"})
    real.Play(R"({ "control": "Color Gradient", "double_click": [)" + std::string(at) +
              R"(, 30], "picker": [1, 0, 0] })");
  scene::PreparedScene prepared;
  scene::PrepareScene(real.scene, {}, *real.effect, {}, &prepared, &real.warnings);
  const auto failure = std::make_shared<scene::CheckoutFailure>();
  host::FrameRequest request = scene::RequestFrame(prepared, 0, failure);
  host::World before, after;
  EXPECT_TRUE(host::Succeeded(host::RenderFrame(*real.effect, request, &before)));
  request.values = real.panel.request.values;
  EXPECT_TRUE(host::Succeeded(host::RenderFrame(*real.effect, request, &after)));
  double green = 0, redAfter = 0, otherAfter = 0;
  for (int y = 0; y < after.height; ++y) {
    for (int x = 0; x < after.width; ++x) {
      const PF_PixelFloat pixel = host::ReadPixel(after, x, y);
      green += static_cast<double>(host::ReadPixel(before, x, y).green);
      redAfter += static_cast<double>(pixel.red);
      otherAfter += static_cast<double>(pixel.green + pixel.blue);
    }
  }
  EXPECT_GT(green, 10.0);
  EXPECT_GT(redAfter, 10.0);
  EXPECT_EQ(otherAfter, 0.0);
}

}  // namespace
}  // namespace vantle::panel
