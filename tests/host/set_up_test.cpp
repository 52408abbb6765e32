#include "host/engine/custom_values.h"
#include "tests/host/linked_effect.h"
#include "tests/host/misbehaving_effect.h"

#include <gtest/gtest.h>

namespace vantle::host {
namespace {

/// Opens an effect whose parameters are those given; num_params follows unless it is told otherwise.
OpenedEffect OpenWith(std::vector<PF_ParamDef> params, PF_OutFlags flags = 0, A_long announced = -1) {
  return OpenEffect(ModuleOf([=](PF_Cmd command, PF_InData* in, PF_OutData* out, PF_ParamDef**, PF_LayerDef*,
                                 void*) mutable -> PF_Err {
                      if (command == PF_Cmd_GLOBAL_SETUP) {
                        out->out_flags = flags;
                      } else if (command == PF_Cmd_PARAMS_SETUP) {
                        for (PF_ParamDef& def : params) {
                          in->inter.add_param(in->effect_ref, -1, &def);
                        }
                        out->num_params = announced >= 0 ? announced : static_cast<A_long>(params.size()) + 1;
                      }
                      return PF_Err_NONE;
                    }),
                    {});
}

PF_ParamDef Slider(A_long id, float validMin, float sliderMin, float initial, float sliderMax,
                   float validMax) {
  PF_ParamDef def = Param(id, PF_Param_FLOAT_SLIDER, "Slider");
  def.u.fs_d.valid_min = validMin;
  def.u.fs_d.valid_max = validMax;
  def.u.fs_d.slider_min = sliderMin;
  def.u.fs_d.slider_max = sliderMax;
  def.u.fs_d.dephault = initial;
  return def;
}

PF_ParamDef Popup(A_long id, const char* choices, A_short count, A_short initial) {
  PF_ParamDef def = Param(id, PF_Param_POPUP, "Popup");
  def.u.pd.num_choices = count;
  def.u.pd.dephault = initial;
  def.u.pd.u.namesptr = choices;
  return def;
}

TEST(Declaration, IsKeptAsItWasMade) {
  std::string choices = "One|Two";
  PF_ParamDef button = Param(3, PF_Param_BUTTON, "Button");
  button.u.button_d.u.namesptr = "Press";
  OpenedEffect opened = OpenWith({Slider(1, -5, 0, 1, 2, 9), Popup(2, choices.c_str(), 2, 2), button});
  ASSERT_NE(opened.effect, nullptr);
  EXPECT_EQ(Joined(opened.result.problems), "");
  choices = "overwritten";
  const auto& params = opened.effect->params;
  ASSERT_EQ(params.size(), 4U);
  EXPECT_EQ(params[0].def.param_type, PF_Param_LAYER);
  EXPECT_EQ(params[1].name, "Slider");
  EXPECT_EQ(params[1].def.u.fs_d.valid_max, 9.0F);
  EXPECT_EQ(params[2].choices, "One|Two");
  EXPECT_EQ(params[2].def.u.pd.u.namesptr, nullptr);
  EXPECT_EQ(params[3].choices, "Press");
}

TEST(Declaration, ChecksCountsAndRanges) {
  const auto problems = [](const OpenedEffect& opened) { return Joined(opened.result.problems); };
  EXPECT_EQ(problems(OpenWith({Slider(1, 0, 0, 0, 1, 1)}, 0, 1)),
            "num_params is 1, but 1 parameters were added to the input layer\n");
  EXPECT_EQ(problems(OpenWith({Slider(1, 0, 0, 2, 1, 1)})),
            "parameter 1 \"Slider\" has ranges that do not hold each other or the default\n");
  EXPECT_EQ(problems(OpenWith({Slider(1, 0, -1, 0, 1, 1)})),
            "parameter 1 \"Slider\" has ranges that do not hold each other or the default\n");
  EXPECT_EQ(problems(OpenWith({Popup(1, "a|b", 3, 1)})),
            "parameter 1 \"Popup\" announces 3 choices, its text holds 2\n");
  EXPECT_EQ(problems(OpenWith({Popup(1, nullptr, 1, 1)})),
            "parameter 1 \"Popup\" announces 1 choices, its text holds 0\n");
  EXPECT_EQ(problems(OpenWith({Popup(1, "a|b", 2, 3)})),
            "parameter 1 \"Popup\" has a default that is no choice\n");
}

TEST(Declaration, ChecksIdsGroupsAndCustomControls) {
  const auto problems = [](const OpenedEffect& opened) { return Joined(opened.result.problems); };
  EXPECT_EQ(problems(OpenWith({Slider(7, 0, 0, 0, 1, 1), Slider(7, 0, 0, 0, 1, 1)})),
            "parameter 2 \"Slider\" has id 7 like another one\n");
  EXPECT_EQ(problems(OpenWith({Param(1, PF_Param_GROUP_START, "g")})), "1 groups are never closed\n");
  EXPECT_EQ(problems(OpenWith({Param(1, PF_Param_GROUP_END, "")})),
            "parameter 1 \"\" closes a group that was not opened\n");
  EXPECT_EQ(problems(OpenWith({}, PF_OutFlag_CUSTOM_UI)),
            "custom controls declared in the flags, but never registered\n");
}

/// Commands in the order in which they came.
std::vector<PF_Cmd> log;

Commands Logging(PF_Cmd failing) {
  log.clear();
  return [=](PF_Cmd command, PF_InData*, PF_OutData* out, PF_ParamDef**, PF_LayerDef*, void*) -> PF_Err {
    log.push_back(command);
    out->num_params = command == PF_Cmd_PARAMS_SETUP ? 1 : out->num_params;
    return command == failing ? PF_Err_INTERNAL_STRUCT_DAMAGED : PF_Err_NONE;
  };
}

TEST(Life, SendsTheCommandsInOrder) {
  OpenedEffect opened = OpenEffect(ModuleOf(Logging(-1)), {});
  ASSERT_NE(opened.effect, nullptr);
  FrameRequest request;
  request.width = request.height = 2;
  EXPECT_TRUE(Succeeded(RenderFrame(*opened.effect, request, nullptr)));
  SaveAndReload(*opened.effect);
  CloseEffect(*opened.effect);
  CloseEffect(*opened.effect);
  const std::vector<PF_Cmd> expected = {
      PF_Cmd_GLOBAL_SETUP,     PF_Cmd_PARAMS_SETUP,  PF_Cmd_SEQUENCE_SETUP,   PF_Cmd_FRAME_SETUP,
      PF_Cmd_RENDER,           PF_Cmd_FRAME_SETDOWN, PF_Cmd_SEQUENCE_FLATTEN, PF_Cmd_SEQUENCE_RESETUP,
      PF_Cmd_SEQUENCE_SETDOWN, PF_Cmd_GLOBAL_SETDOWN};
  EXPECT_EQ(log, expected);
}

TEST(Life, SetsDownWhatWasBegun) {
  OpenedEffect opened = OpenEffect(ModuleOf(Logging(PF_Cmd_GLOBAL_SETUP)), {});
  EXPECT_EQ(opened.effect, nullptr);
  EXPECT_EQ(opened.result.command, PF_Cmd_GLOBAL_SETUP);
  EXPECT_EQ(log, std::vector<PF_Cmd>{PF_Cmd_GLOBAL_SETUP});

  opened = OpenEffect(ModuleOf(Logging(PF_Cmd_PARAMS_SETUP)), {});
  EXPECT_EQ(opened.effect, nullptr);
  EXPECT_EQ(opened.result.error, PF_Err_INTERNAL_STRUCT_DAMAGED);
  EXPECT_EQ(opened.result.command, PF_Cmd_PARAMS_SETUP);
  const std::vector<PF_Cmd> expected = {PF_Cmd_GLOBAL_SETUP, PF_Cmd_PARAMS_SETUP, PF_Cmd_GLOBAL_SETDOWN};
  EXPECT_EQ(log, expected);
}

TEST(Life, AFailedFrameSetUpSkipsTheRender) {
  OpenedEffect opened = OpenEffect(ModuleOf(Logging(PF_Cmd_FRAME_SETUP)), {});
  ASSERT_NE(opened.effect, nullptr);
  log.clear();
  FrameRequest request;
  request.width = request.height = 2;
  const FrameResult result = RenderFrame(*opened.effect, request, nullptr);
  EXPECT_EQ(result.error, PF_Err_INTERNAL_STRUCT_DAMAGED);
  EXPECT_EQ(result.failedCommand, PF_Cmd_FRAME_SETUP);
  const std::vector<PF_Cmd> expected = {PF_Cmd_FRAME_SETUP, PF_Cmd_FRAME_SETDOWN};
  EXPECT_EQ(log, expected);
}

TEST(Life, MessagesAreClearedBetweenCommands) {
  OpenedEffect opened = OpenEffect(
      ModuleOf([](PF_Cmd command, PF_InData*, PF_OutData* out, PF_ParamDef**, PF_LayerDef*, void*) -> PF_Err {
        out->num_params = 1;
        if (command == PF_Cmd_ABOUT && out->return_msg[0] == '\0') {
          out->return_msg[0] = 'A';
          out->out_flags |= PF_OutFlag_DISPLAY_ERROR_MESSAGE;
        }
        return PF_Err_NONE;
      }),
      {});
  ASSERT_NE(opened.effect, nullptr);
  for (int i = 0; i < 2; ++i) {
    const CommandResult about = AskAbout(*opened.effect);
    EXPECT_EQ(about.message, "A");
    EXPECT_TRUE(about.showsMessage);
  }
  EXPECT_EQ(SendCommand(*opened.effect, PF_Cmd_DO_DIALOG).message, "");
}

TEST(CustomValues, GoThroughTheEffectsCallbacks) {
  OpenedEffect opened = OpenMisbehaving();
  ASSERT_NE(opened.effect, nullptr);
  EffectInstance& effect = *opened.effect;
  const std::vector<std::uint8_t> initial(kCustomBytes, 7);
  const std::vector<std::uint8_t> other(kCustomBytes, 9);
  EXPECT_EQ(effect.params[kCustomParam].defaultBytes, initial);
  EXPECT_EQ(NewCustomValue(effect, kCustomParam).bytes, initial);
  EXPECT_EQ(CopyCustomValue(effect, kCustomParam, other).bytes, other);
  EXPECT_EQ(InterpolateCustomValue(effect, kCustomParam, initial, other, 0.25).bytes, initial);
  EXPECT_EQ(InterpolateCustomValue(effect, kCustomParam, initial, other, 0.75).bytes, other);
  const CustomResult flat = FlattenCustomValue(effect, kCustomParam, other);
  EXPECT_EQ(flat.bytes, other);
  EXPECT_EQ(UnflattenCustomValue(effect, kCustomParam, flat.bytes).bytes, other);
  EXPECT_FALSE(UnflattenCustomValue(effect, kCustomParam, {1, 2, 3}).present);
  EXPECT_EQ(CompareCustomValues(effect, kCustomParam, other, other).order, PF_ArbCompare_EQUAL);
  EXPECT_EQ(CompareCustomValues(effect, kCustomParam, other, initial).order, PF_ArbCompare_NOT_EQUAL);
  const CustomText text = PrintCustomValue(effect, kCustomParam, other);
  EXPECT_EQ(text.text, "text") << "a text that fills its buffer";
  EXPECT_EQ(Joined(text.problems) + Joined(flat.problems), "");
  EXPECT_EQ(NewCustomValue(effect, kNumberParam).error, PF_Err_INVALID_INDEX);
  EXPECT_EQ(NewCustomValue(effect, 99).error, PF_Err_INVALID_INDEX);
  EXPECT_EQ(Joined(CloseEffect(effect).problems), "");
}

TEST(CustomValues, LocksThatStayAreReported) {
  OpenedEffect opened = OpenMisbehaving();
  ASSERT_NE(opened.effect, nullptr);
  const CustomResult scanned = ScanCustomValue(*opened.effect, kCustomParam, "8");
  EXPECT_EQ(scanned.bytes, std::vector<std::uint8_t>(kCustomBytes, 7));
  EXPECT_NE(Joined(scanned.problems).find("lock of a handle taken 2 times, given back 1"), std::string::npos)
      << Joined(scanned.problems);
}

}  // namespace
}  // namespace vantle::host
