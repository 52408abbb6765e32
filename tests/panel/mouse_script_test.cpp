#include "host/panel/mouse_script.h"

#include "host_api/commands.h"
#include "tests/panel/real_panel.h"

namespace vantle::panel {
namespace {

struct MouseScript : testing::Test {
  test::Scratch scratch;
  std::unique_ptr<host::EffectInstance> effect = OpenVantle();
  PanelLayout layout = LayOutPanel(effect->params);

  std::vector<Action> Read(const std::string& events) {
    return ReadMouseScript(scratch.Write("e.json", events), effect->params, layout);
  }
  /// What is wrong with one event.
  std::string FailureOf(const std::string& event) {
    const std::string text = test::FailureOf([&] { Read("{ \"events\": [ " + event + " ] }"); });
    const size_t at = text.find("e.json: ");
    return at == std::string::npos ? text : text.substr(0, 2) + text.substr(at + 8);
  }
};

TEST_F(MouseScript, AllKindsOfEventsAreRead) {
  const std::vector<Action> actions = Read(R"({ "events": [
    { "control": "Color Gradient", "click": [10, 11], "modifiers": ["ctrl", "shift"] },
    { "control": "Particle/Scale over Life", "drag": [[1, 2], [-5, 300], [7, 8]] },
    { "control": "40", "double_click": [3, 4] },
    { "control": "color gradient", "double_click": [3, 4], "picker": [0.5, 0.25, 2] },
    { "control": "Color Gradient", "double_click": [3, 4], "picker": "cancel" },
    { "control": "Color Gradient", "double_click": [3, 4], "picker": { "error": 512 } },
    { "undo": 3 }, { "redo": 2 } ] })");
  ASSERT_EQ(actions.size(), 8u);
  EXPECT_EQ(actions[0].kind, ActionKind::kClick);
  EXPECT_EQ(actions[0].param, kGradient);
  EXPECT_EQ(actions[0].modifiers, PF_Mod_CMD_CTRL_KEY | PF_Mod_SHIFT_KEY);
  EXPECT_EQ(actions[1].kind, ActionKind::kDrag);
  EXPECT_EQ(actions[1].param, kScaleCurve);
  ASSERT_EQ(actions[1].path.size(), 3u);
  EXPECT_EQ(actions[1].path[1].y, 300);
  EXPECT_EQ(actions[2].param, kOpacityCurve);
  EXPECT_FALSE(actions[2].picker.has_value());
  EXPECT_EQ(actions[3].picker->color.red, 0.5f);
  EXPECT_EQ(actions[3].picker->color.blue, 2.0f);
  EXPECT_EQ(actions[4].picker->error, PF_Interrupt_CANCEL);
  EXPECT_EQ(actions[5].picker->error, 512);
  EXPECT_EQ(actions[6].kind, ActionKind::kUndo);
  EXPECT_EQ(actions[6].count, 3);
  EXPECT_EQ(actions[7].kind, ActionKind::kRedo);
  EXPECT_EQ(DescribeAction(actions[0], effect->params),
            "click \"Color Gradient\" at 10,11 with ctrl with shift");
  EXPECT_EQ(DescribeAction(actions[1], effect->params), "drag \"Scale over Life\" from 1,2 to 7,8");
  EXPECT_EQ(DescribeAction(actions[7], effect->params), "redo 2");
}

TEST_F(MouseScript, MistakesAreNamedWithTheirPlace) {
  const std::pair<const char*, const char*> mistakes[] = {
      {R"({ "control": "Color Gradiant", "click": [1, 2] })",
       "3 events[0].control: there is no parameter named \"Color Gradiant\"; did you mean \"Color "
       "Gradient\"?"},
      {R"({ "control": "Size", "click": [1, 2] })",
       "3 events[0].control: \"Size\" is a control of the host's; the mouse is for those that the effect "
       "draws: "
       "\"Scale over Life\", \"Color Gradient\", \"Opacity over Life\""},
      {R"({ "control": "Color Gradient", "click": [200, 2] })",
       "3 events[0]: the button goes down at 200,2, outside of the control, which is 200 x 40"},
      {R"({ "control": "Color Gradient", "click": [1, 2], "drag": [[1, 2], [3, 4]] })",
       "3 events[0]: an event is one of \"click\", \"double_click\", \"drag\", \"undo\" and \"redo\""},
      {R"({ "control": "Color Gradient", "drag": [[1, 2]] })",
       "3 events[0].drag: expected a list of at least two points [[x, y], ...], found "},
      {R"({ "control": "Color Gradient", "click": [1, 2], "modifiers": ["control"] })",
       "3 events[0].modifiers[0]: expected \"ctrl\", \"shift\", \"alt\" or \"caps\", found "},
      {R"({ "control": "Color Gradient", "click": [1, 2], "picker": "never" })",
       "3 events[0].picker: expected a colour [red, green, blue], \"cancel\" or {\"error\": number}, found "},
      {R"({ "contrl": "Color Gradient", "click": [1, 2] })",
       "3 events[0]: unknown key \"contrl\"; did you mean \"control\"?"},
      {R"({ "undo": 0 })", "3 events[0].undo: expected a whole number from 1 to 100000, found "},
      {R"({ "undo": 1, "click": [1, 2] })", "3 events[0]: unknown key \"click\""}};
  for (const auto& [event, expected] : mistakes)
    EXPECT_EQ(FailureOf(event).substr(0, std::string(expected).size()), expected);
}

}  // namespace
}  // namespace vantle::panel
