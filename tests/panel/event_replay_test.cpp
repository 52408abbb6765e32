// The events that a mouse script becomes, as the effect gets them: the real effect behind a spy.
#include "host/engine/module.h"
#include "host_api/commands.h"
#include "tests/panel/real_panel.h"

#include <functional>
#include <utility>

namespace vantle::panel {
namespace {

/// An event of the mouse before the effect saw it.
struct SeenEvent {
  PF_EventType type;
  PF_EffectWindowInfo window;
  PF_ContextH context;
  PF_EventUnion u;
};

EffectMainProc realMain = nullptr;
std::vector<SeenEvent> seen;
/// What the spy makes of an event that the effect has answered.
std::function<PF_Err(PF_EventExtra&, PF_Err)> afterwards;

bool IsOfTheMouse(PF_EventType type) {
  return type == PF_Event_ADJUST_CURSOR || type == PF_Event_DO_CLICK || type == PF_Event_DRAG;
}

PF_Err Spy(PF_Cmd command, PF_InData* in, PF_OutData* out, PF_ParamDef* params[], PF_LayerDef* output,
           void* extra) {
  auto* event = static_cast<PF_EventExtra*>(extra);
  const bool watched = command == PF_Cmd_EVENT && IsOfTheMouse(event->e_type);
  if (watched) seen.push_back({event->e_type, event->effect_win, event->contextH, event->u});
  const PF_Err error = realMain(command, in, out, params, output, extra);
  return watched && afterwards ? afterwards(*event, error) : error;
}

std::unique_ptr<host::EffectInstance> OpenSpied() {
  const host::LoadedModule loaded = host::LoadModule(VANTLE_MODULE);
  realMain = loaded.module->effectMain;
  return std::move(host::OpenEffect(host::MakeLinkedModule(loaded.module->registerEffect, Spy), {}).effect);
}

struct EventReplay : testing::Test {
  EventReplay() {
    OpenPanel(scene, *effect, {}, &panel, &warnings);
    seen.clear();
    afterwards = nullptr;
  }
  ~EventReplay() override {
    afterwards = nullptr;
    ClosePanel(panel);
    EXPECT_TRUE(host::CloseEffect(*effect).problems.empty());
  }

  ActionResult Play(const std::string& event) {
    const std::string path = scratch.Write("events.json", "{ \"events\": [ " + event + " ] }");
    return PlayAction(panel, ReadMouseScript(path, effect->params, panel.layout).at(0));
  }
  const Rect& Frame() { return FindRow(panel.layout, kGradient)->frame; }

  void ExpectMouseAt(const PF_Point& point, int x, int y) {
    EXPECT_EQ(point.h, Frame().left + x);
    EXPECT_EQ(point.v, Frame().top + y);
  }
  std::vector<PF_EventType> Types() {
    std::vector<PF_EventType> types;
    for (const SeenEvent& event : seen) types.push_back(event.type);
    return types;
  }

  test::Scratch scratch;
  scene::Scene scene = scene::ReadScene(scratch.Write("scene.json", SceneText("{}")));
  std::unique_ptr<host::EffectInstance> effect = OpenSpied();
  Panel panel;
  std::vector<std::string> warnings;
};

TEST_F(EventReplay, ADragCarriesTheClicksRecordOn) {
  afterwards = [](PF_EventExtra& event, PF_Err error) {
    if (event.e_type == PF_Event_DO_CLICK) event.u.do_click.continue_refcon[3] = 1234;
    return error;
  };
  Play(R"({ "control": "Color Gradient", "drag": [[100, 30], [120, 31], [-7, 99]],
            "modifiers": ["shift", "alt"] })");
  ASSERT_EQ(Types(), (std::vector<PF_EventType>{PF_Event_ADJUST_CURSOR, PF_Event_DO_CLICK, PF_Event_DRAG,
                                                PF_Event_DRAG}));
  ExpectMouseAt(seen[0].u.adjust_cursor.screen_point, 100, 30);
  EXPECT_EQ(seen[0].u.adjust_cursor.modifiers, PF_Mod_SHIFT_KEY | PF_Mod_OPT_ALT_KEY);
  const std::pair<int, int> places[] = {{100, 30}, {120, 31}, {-7, 99}};
  for (size_t i = 0; i < 3; ++i) {
    const PF_DoClickEventInfo& info = seen[i + 1].u.do_click;
    ExpectMouseAt(info.screen_point, places[i].first, places[i].second);
    EXPECT_EQ(info.num_clicks, 1) << i;
    EXPECT_EQ(info.modifiers, PF_Mod_SHIFT_KEY | PF_Mod_OPT_ALT_KEY) << i;
    EXPECT_EQ(info.last_time, i == 2 ? 1 : 0) << i;
    EXPECT_EQ(info.send_drag, i == 0 ? 0 : 1) << i;
    EXPECT_GT(info.when, i == 0 ? 0u : seen[i].u.do_click.when) << i;
  }
  // Words that mean nothing yet, then those that the effect left: its stop, on the way past the first one.
  for (const A_intptr_t word : seen[1].u.do_click.continue_refcon) EXPECT_TRUE(word < 0 || word > 16);
  EXPECT_EQ(seen[2].u.do_click.continue_refcon[0], 1);
  EXPECT_EQ(seen[2].u.do_click.continue_refcon[3], 1234);
  EXPECT_EQ(seen[3].u.do_click.continue_refcon[3], 1234);
}

TEST_F(EventReplay, EveryEventNamesItsControl) {
  Play(R"({ "control": "Color Gradient", "click": [100, 30] })");
  ASSERT_EQ(seen.size(), 3u);
  for (const SeenEvent& event : seen) {
    EXPECT_EQ(event.window.index, kGradient);
    EXPECT_EQ(event.window.area, PF_EA_CONTROL);
    EXPECT_EQ(event.window.current_frame.left, Frame().left);
    EXPECT_EQ(event.window.current_frame.top, Frame().top);
    EXPECT_EQ(event.window.current_frame.right, Frame().left + 200);
    EXPECT_EQ(event.window.current_frame.bottom, Frame().top + 40);
    EXPECT_EQ(event.context, host::ContextOf(panel.drawing));
  }
}

TEST_F(EventReplay, ADoubleClickIsTwoPressesAndTheFirstOneEndsWithItsRelease) {
  Play(R"({ "control": "Color Gradient", "double_click": [100, 30], "picker": "cancel" })");
  ASSERT_EQ(Types(), (std::vector<PF_EventType>{PF_Event_ADJUST_CURSOR, PF_Event_DO_CLICK, PF_Event_DRAG,
                                                PF_Event_DO_CLICK}));
  EXPECT_EQ(seen[1].u.do_click.num_clicks, 1);
  EXPECT_EQ(seen[2].u.do_click.last_time, 1);
  ExpectMouseAt(seen[2].u.do_click.screen_point, 100, 30);
  EXPECT_EQ(seen[3].u.do_click.num_clicks, 2);
  EXPECT_EQ(seen[3].u.do_click.send_drag, 0);
  EXPECT_GT(seen[3].u.do_click.when, seen[2].u.do_click.when);
}

TEST_F(EventReplay, OnlyTheClickDecidesWhetherDragsFollow) {
  afterwards = [](PF_EventExtra& event, PF_Err error) {
    if (event.e_type == PF_Event_DRAG) event.u.do_click.send_drag = 0;
    return error;
  };
  const ActionResult result =
      Play(R"({ "control": "Color Gradient", "drag": [[100, 30], [110, 30], [120, 30]] })");
  EXPECT_EQ(result.drags, 2);
  const ActionResult none = Play(R"({ "control": "Color Gradient", "drag": [[60, 36], [110, 36]] })");
  EXPECT_EQ(none.drags, 0);
  EXPECT_FALSE(none.handled);
}

TEST_F(EventReplay, AnErrorAtAnyEventEndsTheAction) {
  for (const PF_EventType failing : {PF_Event_ADJUST_CURSOR, PF_Event_DO_CLICK, PF_Event_DRAG}) {
    seen.clear();
    afterwards = [failing](PF_EventExtra& event, PF_Err error) {
      return event.e_type == failing ? PF_Err{99} : error;
    };
    const ActionResult result =
        Play(R"({ "control": "Color Gradient", "drag": [[4, 30], [4, 30], [4, 30]] })");
    EXPECT_EQ(result.error, 99) << failing;
    EXPECT_EQ(seen.back().type, failing);
    EXPECT_EQ(seen.size(), failing == PF_Event_ADJUST_CURSOR ? 1u : failing == PF_Event_DO_CLICK ? 2u : 3u);
  }
}

}  // namespace
}  // namespace vantle::panel
