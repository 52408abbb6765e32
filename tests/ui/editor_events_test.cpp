// Events as a host sends them. Gradient control 200 x 40 and curve control 200 x 140, both at (0, 0): the
// mouse meets the stop at 0.5 at (100, 30), and the first point of a curve at half its range at (4, 61).
#include "ui/editor_events.h"

#include "particles/custom_values.h"
#include "tests/ui/fake_drawbot.h"

#include <cstring>
#include <gtest/gtest.h>

namespace vantle::test {
namespace {

struct EditorEvents : testing::Test {
  EditorEvents() {
    MakeDefaultGradient(&gradient);
    MakeDefaultLifeCurve(&scale, 2.0f);
    MakeDefaultLifeCurve(&opacity, 1.0f);
    host.SetValue(kColorGradientControl, gradient);
    host.SetValue(kScaleOverLifeControl, scale);
    host.SetValue(kOpacityOverLifeControl, opacity);
  }

  // A fresh click, as the host sends it.
  PF_Err Click(int index, int x, int y, A_long clicks = 1, PF_Modifiers modifiers = PF_Mod_NONE) {
    host.extra.u.do_click = {};
    host.extra.u.do_click.continue_refcon[0] = 77;
    host.extra.u.do_click.num_clicks = clicks;
    host.extra.u.do_click.modifiers = modifiers;
    return SendMouse(PF_Event_DO_CLICK, index, x, y);
  }

  // Keeps the words that the event before left.
  PF_Err Drag(int index, int x, int y, bool last = false) {
    host.extra.u.do_click.last_time = last ? 1 : 0;
    host.extra.u.do_click.send_drag = 0;
    return SendMouse(PF_Event_DRAG, index, x, y);
  }

  PF_Err SendMouse(PF_EventType type, int index, int x, int y) {
    host.extra.effect_win.current_frame = {0, 0, 200, index == kColorGradientControl ? 40 : 140};
    host.extra.u.do_click.screen_point = {x, y};
    return host.Send(type, index);
  }

  bool Handled() const { return host.extra.evt_out_flags == PF_EO_HANDLED_EVENT; }
  bool SendsDrag() const { return host.extra.u.do_click.send_drag != 0; }
  A_intptr_t DragWord() const { return host.extra.u.do_click.continue_refcon[0]; }
  bool Changed(int index) { return host.Param(index).uu.change_flags == PF_ChangeFlag_CHANGED_VALUE; }
  ColorGradient Gradient() { return host.Value<ColorGradient>(kColorGradientControl); }
  LifeCurve Scale() { return host.Value<LifeCurve>(kScaleOverLifeControl); }

  void ExpectUntouched() {
    EXPECT_EQ(host.extra.evt_out_flags, PF_EO_NONE);
    for (const int index : {kColorGradientControl, kScaleOverLifeControl, kOpacityOverLifeControl}) {
      EXPECT_EQ(host.Param(index).uu.id, index) << "the change flag shares its place with the id";
    }
    EXPECT_EQ(host.outData.out_flags, 0);
    EXPECT_EQ(host.Imbalance(), "");
  }

  FakeHost host;
  ColorGradient gradient;
  LifeCurve scale;
  LifeCurve opacity;
};

TEST_F(EditorEvents, OtherAreasParametersAndKindsAreLeftAlone) {
  host.extra.effect_win.current_frame = {0, 0, 200, 40};
  host.extra.u.do_click.screen_point = {100, 30};
  for (const PF_EventType type : std::initializer_list<PF_EventType>{
           PF_Event_NONE, PF_Event_NEW_CONTEXT, PF_Event_ACTIVATE, PF_Event_DEACTIVATE,
           PF_Event_CLOSE_CONTEXT, PF_Event_IDLE, PF_Event_KEYDOWN_OBSOLETE, PF_Event_ADJUST_CURSOR,
           PF_Event_KEYDOWN, PF_Event_MOUSE_EXITED, 99}) {
    EXPECT_EQ(host.Send(type, kColorGradientControl), PF_Err_NONE);
    ExpectUntouched();
  }
  for (const int index : {-1, 0, 27, 29, 35, 37, 39, 41, 87, 88, 1000000}) {
    for (const PF_EventType type : {PF_Event_DO_CLICK, PF_Event_DRAG, PF_Event_DRAW}) {
      EXPECT_EQ(host.Send(type, index), PF_Err_NONE);
      ExpectUntouched();
    }
  }
  host.extra.e_type = PF_Event_DO_CLICK;
  host.extra.effect_win.index = kColorGradientControl;
  for (const PF_EffectArea area : {PF_EA_NONE, PF_EA_PARAM_TITLE}) {
    host.extra.effect_win.area = area;
    EXPECT_EQ(HandleEvent(&host.inData, &host.outData, host.paramPointers.data(), nullptr, &host.extra),
              PF_Err_NONE);
    ExpectUntouched();
  }
  EXPECT_TRUE(host.calls.empty());
}

TEST_F(EditorEvents, MissingRecordsAreSafe) {
  PF_ParamDef** const params = host.paramPointers.data();
  host.extra.e_type = PF_Event_DO_CLICK;
  host.extra.effect_win.area = PF_EA_CONTROL;
  host.extra.effect_win.index = kColorGradientControl;
  EXPECT_EQ(HandleEvent(nullptr, &host.outData, params, nullptr, &host.extra), PF_Err_NONE);
  EXPECT_EQ(HandleEvent(&host.inData, &host.outData, nullptr, nullptr, &host.extra), PF_Err_NONE);
  EXPECT_EQ(HandleEvent(&host.inData, &host.outData, params, nullptr, nullptr), PF_Err_NONE);
  host.paramPointers[static_cast<size_t>(kColorGradientControl)] = nullptr;
  EXPECT_EQ(HandleEvent(&host.inData, &host.outData, params, nullptr, &host.extra), PF_Err_NONE);
  ExpectUntouched();
}

TEST_F(EditorEvents, AnErrorWithoutOutDataIsStillReturned) {
  host.hiddenSuite = "DRAWBOT Draw Suite";
  host.extra.effect_win.area = PF_EA_CONTROL;
  host.extra.effect_win.index = kColorGradientControl;
  host.extra.e_type = PF_Event_DRAW;
  EXPECT_EQ(HandleEvent(&host.inData, nullptr, host.paramPointers.data(), nullptr, &host.extra),
            PF_Err_BAD_CALLBACK_PARAM);
}

TEST_F(EditorEvents, AnAbsentValueIsLeftAlone) {
  host.Param(kColorGradientControl).u.arb_d.value = nullptr;
  host.Param(kScaleOverLifeControl).u.arb_d.value = nullptr;
  for (const int index : {kColorGradientControl, kScaleOverLifeControl}) {
    for (const PF_EventType type : {PF_Event_DO_CLICK, PF_Event_DRAG, PF_Event_DRAW}) {
      EXPECT_EQ(SendMouse(type, index, 100, 30), PF_Err_NONE);
      ExpectUntouched();
    }
  }
  EXPECT_TRUE(host.calls.empty());
}

TEST_F(EditorEvents, AValueThatCannotBeLockedIsLeftAlone) {
  for (const int index : {kColorGradientControl, kScaleOverLifeControl}) {
    for (const PF_EventType type : {PF_Event_DO_CLICK, PF_Event_DRAG, PF_Event_DRAW}) {
      host.extra.u.do_click = {};
      host.HandleOf(host.Param(index).u.arb_d.value).locksBeforeNull = 0;
      EXPECT_EQ(SendMouse(type, index, 100, 30), PF_Err_NONE);
      ExpectUntouched();
    }
  }
}

TEST_F(EditorEvents, AValueThatCannotBeLockedForWritingStaysAsItWas) {
  for (const PF_EventType type : {PF_Event_DO_CLICK, PF_Event_DRAG}) {
    host.extra.u.do_click = {};
    FakeHandle& handle = host.HandleOf(host.Param(kColorGradientControl).u.arb_d.value);
    handle.locksBeforeNull = handle.lockCount + 1;
    EXPECT_EQ(SendMouse(type, kColorGradientControl, 60, 10), PF_Err_NONE);
    ExpectUntouched();
    const ColorGradient now = Gradient();
    EXPECT_EQ(std::memcmp(&now, &gradient, sizeof(now)), 0);
    EXPECT_FALSE(SendsDrag());
  }
}

TEST_F(EditorEvents, ARecordOfTheOtherKindIsLeftAlone) {
  host.SetValue(kColorGradientControl, scale);
  host.SetValue(kScaleOverLifeControl, gradient);
  for (const int index : {kColorGradientControl, kScaleOverLifeControl}) {
    for (const PF_EventType type : {PF_Event_DO_CLICK, PF_Event_DRAG, PF_Event_DRAW}) {
      host.extra.u.do_click = {};
      EXPECT_EQ(SendMouse(type, index, 180, 130), PF_Err_NONE);
      EXPECT_EQ(SendMouse(type, index, 60, 10), PF_Err_NONE);
      ExpectUntouched();
    }
  }
}

TEST_F(EditorEvents, AddingAStopCommitsSelectsAndDrags) {
  EXPECT_EQ(Click(kColorGradientControl, 60, 10), PF_Err_NONE);
  EXPECT_TRUE(Handled());
  EXPECT_TRUE(Changed(kColorGradientControl));
  EXPECT_TRUE(SendsDrag());
  EXPECT_EQ(DragWord(), 1);
  EXPECT_EQ(Gradient().count, 4);
  EXPECT_EQ(Gradient().selected, 1);
  EXPECT_EQ(host.Imbalance(), "");
}

TEST_F(EditorEvents, AClickOnNothingIsLeftToTheHost) {
  EXPECT_EQ(Click(kColorGradientControl, 60, 30), PF_Err_NONE);
  ExpectUntouched();
  EXPECT_FALSE(SendsDrag());
  EXPECT_EQ(DragWord(), 77);
  const ColorGradient now = Gradient();
  EXPECT_EQ(std::memcmp(&now, &gradient, sizeof(now)), 0);
}

TEST_F(EditorEvents, ADragFollowsTheStopPastItsNeighbour) {
  Click(kColorGradientControl, 4, 30);
  EXPECT_EQ(DragWord(), 0);
  EXPECT_EQ(Drag(kColorGradientControl, 150, 30), PF_Err_NONE);
  EXPECT_TRUE(Handled());
  EXPECT_TRUE(SendsDrag());
  EXPECT_EQ(DragWord(), 1);
  EXPECT_EQ(Gradient().selected, 1);
  EXPECT_EQ(Drag(kColorGradientControl, 0, 30, true), PF_Err_NONE);
  EXPECT_FALSE(SendsDrag());
  EXPECT_EQ(DragWord(), 0);
  EXPECT_EQ(Gradient().selected, 0);
  EXPECT_EQ(Gradient().stops[0].position, 0.0f);
  EXPECT_EQ(host.Imbalance(), "");
}

TEST_F(EditorEvents, ADragWithoutAStopIsLeftAlone) {
  for (const A_intptr_t word : {A_intptr_t{-1}, A_intptr_t{3}, A_intptr_t{1} << 40}) {
    host.extra.u.do_click.continue_refcon[0] = word;
    EXPECT_EQ(Drag(kColorGradientControl, 60, 10), PF_Err_NONE);
    EXPECT_EQ(Drag(kScaleOverLifeControl, 60, 10), PF_Err_NONE);
    ExpectUntouched();
  }
}

TEST_F(EditorEvents, ADragAfterADeletionFindsNothing) {
  EXPECT_EQ(Click(kColorGradientControl, 100, 30, 1, PF_Mod_CMD_CTRL_KEY | PF_Mod_SHIFT_KEY), PF_Err_NONE);
  EXPECT_EQ(Gradient().count, 2);
  EXPECT_FALSE(SendsDrag());
  const ColorGradient before = Gradient();
  Drag(kColorGradientControl, 60, 10);
  EXPECT_FALSE(Handled());
  const ColorGradient after = Gradient();
  EXPECT_EQ(std::memcmp(&before, &after, sizeof(after)), 0);
}

TEST_F(EditorEvents, ADragIntoAReplacedValueIsCheckedAgain) {
  Click(kColorGradientControl, 196, 30);
  EXPECT_EQ(DragWord(), 2);
  gradient.count = 2;
  host.SetValue(kColorGradientControl, gradient);
  Drag(kColorGradientControl, 60, 10);
  EXPECT_FALSE(Handled());
  const ColorGradient now = Gradient();
  EXPECT_EQ(std::memcmp(&now, &gradient, sizeof(now)), 0);
}

TEST_F(EditorEvents, AClickThatComesWithTheDragUnderWayContinuesIt) {
  Click(kColorGradientControl, 100, 30);
  EXPECT_TRUE(SendsDrag());
  SendMouse(PF_Event_DO_CLICK, kColorGradientControl, 52, 10);
  EXPECT_TRUE(Handled());
  EXPECT_EQ(Gradient().count, 3);
  EXPECT_EQ(Gradient().stops[1].position, (52.0f - 4.5f) / 192.0f);
}

// ---- Recolouring ----

TEST_F(EditorEvents, ADoubleClickRecoloursTheStop) {
  host.pickerAnswers = {{.red = 0.25f, .green = 0.5f, .blue = 0.75f}};
  EXPECT_EQ(Click(kColorGradientControl, 100, 30, 2), PF_Err_NONE);
  EXPECT_TRUE(Handled());
  EXPECT_TRUE(Changed(kColorGradientControl));
  EXPECT_FALSE(SendsDrag());
  EXPECT_EQ(Gradient().selected, 1);
  EXPECT_EQ(Gradient().stops[1].r, 0.25f);
  EXPECT_EQ(Gradient().stops[1].g, 0.5f);
  EXPECT_EQ(Gradient().stops[1].b, 0.75f);
  EXPECT_EQ(Gradient().stops[1].position, 0.5f);
  EXPECT_EQ(host.pickerTitles, std::vector<std::string>{"Pick Stop Color"});
  EXPECT_EQ(host.pickerSamples[0].red, 0.0f);
  EXPECT_EQ(host.pickerSamples[0].green, 1.0f);
  EXPECT_EQ(host.pickerSamples[0].blue, 1.0f);
  EXPECT_EQ(host.Imbalance(), "");
}

TEST_F(EditorEvents, ACancelledPickerIsNoErrorAndTheSelectionStands) {
  host.pickerAnswers = {{.error = PF_Interrupt_CANCEL}};
  EXPECT_EQ(Click(kColorGradientControl, 100, 30, 2), PF_Err_NONE);
  EXPECT_TRUE(Handled());
  EXPECT_TRUE(Changed(kColorGradientControl));
  EXPECT_EQ(Gradient().selected, 1);
  EXPECT_EQ(std::memcmp(Gradient().stops, gradient.stops, sizeof(gradient.stops)), 0);
  EXPECT_EQ(host.outData.out_flags, 0);
  EXPECT_EQ(host.Imbalance(), "");
}

TEST_F(EditorEvents, AFailingPickerIsAnError) {
  host.pickerAnswers = {{.error = PF_Err_INTERNAL_STRUCT_DAMAGED}};
  EXPECT_EQ(Click(kColorGradientControl, 100, 30, 2), PF_Err_INTERNAL_STRUCT_DAMAGED);
  EXPECT_EQ(Gradient().selected, 1);
  EXPECT_EQ(host.Imbalance(), "");
}

TEST_F(EditorEvents, WithoutAPickerTheErrorIsReported) {
  host.hiddenSuite = "PF AE App Suite";
  EXPECT_EQ(Click(kColorGradientControl, 100, 30, 2), PF_Err_BAD_CALLBACK_PARAM);
  EXPECT_STREQ(host.outData.return_msg, "Not able to acquire AEFX Suite.");
  EXPECT_EQ(host.outData.out_flags, PF_OutFlag_DISPLAY_ERROR_MESSAGE);
  EXPECT_TRUE(Changed(kColorGradientControl));
  EXPECT_EQ(Gradient().selected, 1);
  EXPECT_EQ(host.Imbalance(), "");
}

TEST_F(EditorEvents, AStopThatIsGoneAfterThePickerIsNotColoured) {
  gradient.count = 1;
  host.pickerAnswers = {{.red = 0.25f, .meanwhile = [&] { host.SetValue(kColorGradientControl, gradient); }}};
  EXPECT_EQ(Click(kColorGradientControl, 100, 30, 2), PF_Err_NONE);
  const ColorGradient now = Gradient();
  EXPECT_EQ(std::memcmp(&now, &gradient, sizeof(now)), 0);
}

TEST_F(EditorEvents, AValueThatIsGoneAfterThePickerIsSafe) {
  host.pickerAnswers = {{.meanwhile = [&] { host.Param(kColorGradientControl).u.arb_d.value = nullptr; }}};
  EXPECT_EQ(Click(kColorGradientControl, 100, 30, 2), PF_Err_NONE);
  EXPECT_EQ(host.Imbalance(), "");
}

TEST_F(EditorEvents, ABasicSuiteThatIsGoneAfterThePickerIsReported) {
  host.pickerAnswers = {{.red = 0.25f, .meanwhile = [&] { host.inData.pica_basicP = nullptr; }}};
  EXPECT_EQ(Click(kColorGradientControl, 100, 30, 2), PF_Err_BAD_CALLBACK_PARAM);
  EXPECT_STREQ(host.outData.return_msg, "Not able to release AEFX Suite.");
}

// ---- Curves ----

TEST_F(EditorEvents, EachCurveControlEditsItsOwnValue) {
  EXPECT_EQ(Click(kOpacityOverLifeControl, 100, 61), PF_Err_NONE);
  EXPECT_TRUE(Changed(kOpacityOverLifeControl));
  EXPECT_EQ(host.Param(kScaleOverLifeControl).uu.id, kScaleOverLifeControl);
  EXPECT_EQ(host.Value<LifeCurve>(kOpacityOverLifeControl).count, 3);
  EXPECT_EQ(host.Value<LifeCurve>(kOpacityOverLifeControl).y[1], 0.5f);
  EXPECT_EQ(Scale().count, 2);

  Click(kScaleOverLifeControl, 100, 4);
  EXPECT_EQ(Scale().count, 3);
  EXPECT_EQ(Scale().y[1], 2.0f);
  EXPECT_EQ(DragWord(), 1);
}

TEST_F(EditorEvents, GrabbingAPointChangesNothingUntilItMoves) {
  EXPECT_EQ(Click(kScaleOverLifeControl, 4, 61), PF_Err_NONE);
  EXPECT_TRUE(Handled());
  EXPECT_TRUE(SendsDrag());
  EXPECT_EQ(DragWord(), 0);
  EXPECT_EQ(host.Param(kScaleOverLifeControl).uu.id, kScaleOverLifeControl);

  EXPECT_EQ(Drag(kScaleOverLifeControl, 100, 118, true), PF_Err_NONE);
  EXPECT_TRUE(Changed(kScaleOverLifeControl));
  EXPECT_EQ(Scale().x[0], 0.0f);
  EXPECT_EQ(Scale().y[0], 0.0f);
}

TEST_F(EditorEvents, ResetRestoresTheCurve) {
  Click(kScaleOverLifeControl, 100, 4);
  Click(kScaleOverLifeControl, 180, 128);
  EXPECT_TRUE(Handled());
  EXPECT_FALSE(SendsDrag());
  const LifeCurve now = Scale();
  EXPECT_EQ(std::memcmp(&now, &scale, sizeof(now)), 0);
}

TEST_F(EditorEvents, ABlockOfAnotherSizeIsLeftAlone) {
  for (const size_t size : {size_t{0}, size_t{1}, sizeof(scale) - 1, sizeof(scale) + 1}) {
    host.Param(kScaleOverLifeControl).u.arb_d.value = host.NewHandle(&scale, size, sizeof(scale));
    for (const PF_EventType type : {PF_Event_DO_CLICK, PF_Event_DRAG, PF_Event_DRAW}) {
      host.extra.u.do_click = {};
      EXPECT_EQ(SendMouse(type, kScaleOverLifeControl, 100, 4), PF_Err_NONE);
      ExpectUntouched();
    }
  }
}

}  // namespace
}  // namespace vantle::test
