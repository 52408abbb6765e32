#include "tests/panel/real_panel.h"

#include "host/engine/module.h"
#include "host_api/commands.h"

namespace vantle::panel {

std::unique_ptr<host::EffectInstance> OpenVantle() {
  static const host::LoadedModule loaded = host::LoadModule(VANTLE_MODULE);
  if (!loaded.module) {
    ADD_FAILURE() << loaded.message;
    return nullptr;
  }
  host::OpenedEffect opened = host::OpenEffect(*loaded.module, host::HostOptions());
  if (opened.effect == nullptr) ADD_FAILURE() << opened.result.message;
  return std::move(opened.effect);
}

std::string SceneText(const std::string& parameters) {
  return R"({ "composition": { "width": 64, "height": 36, "frame_rate": 25, "frames": 10 },
  "layers": [ { "name": "one", "solid": [1, 0, 0] }, { "name": "two", "solid": [0, 0, 1] } ],
  "effect": { "layer": "one", "b": "two", "parameters": )" +
         parameters + " } }\n";
}

RealPanel::RealPanel(const std::string& parameters, const PanelOptions& options)
    : file(scratch.Write("scene.json", SceneText(parameters))), scene(scene::ReadScene(file)) {
  OpenPanel(scene, *effect, options, &panel, &warnings);
}

RealPanel::~RealPanel() {
  ClosePanel(panel);
  const host::CommandResult closed = host::CloseEffect(*effect);
  EXPECT_EQ(closed.error, PF_Err_NONE);
  for (const std::string& problem : closed.problems) ADD_FAILURE() << problem;
  for (const host::Item item : {host::Item::kSuite, host::Item::kLock, host::Item::kDrawing}) {
    const host::ItemCount count = host::Total(effect->ledger, item);
    EXPECT_EQ(count.taken, count.given) << host::ItemName(item);
    EXPECT_GT(count.taken, 0) << host::ItemName(item);
  }
}

ActionResult RealPanel::Play(const std::string& event) {
  const std::string path = scratch.Write("events.json", "{ \"events\": [ " + event + " ] }");
  return PlayAction(panel, ReadMouseScript(path, effect->params, panel.layout).at(0));
}

DrawnControl DrawAt(host::EffectInstance& effect, int param, const Rect& frame,
                    const host::FrameRequest& request) {
  host::DrawingSession session;
  PF_EventExtra extra{};
  extra.contextH = host::ContextOf(session);
  extra.e_type = PF_Event_DRAW;
  extra.effect_win.index = param;
  extra.effect_win.area = PF_EA_CONTROL;
  extra.effect_win.current_frame = {frame.left, frame.top, frame.left + frame.width,
                                    frame.top + frame.height};
  const host::DrawingScope scope(session);
  host::BeginEvent(session, true, {frame.left, frame.top, frame.width, frame.height});
  DrawnControl drawn;
  drawn.result = host::SendFrameCommand(effect, PF_Cmd_EVENT, request, nullptr, &extra);
  host::EndEvent(session);
  drawn.handled = extra.evt_out_flags == PF_EO_HANDLED_EVENT;
  drawn.calls = session.calls;
  drawn.list = session.list;
  return drawn;
}

ColorGradient EightStops() {
  ColorGradient gradient{};
  gradient.tag = 1;
  gradient.count = 8;
  gradient.selected = 2;
  for (int i = 0; i < 8; ++i) {
    const float t = static_cast<float>(i) / 7.0f;
    gradient.stops[i] = {t, i % 2 == 0 ? 1.0f : 0.1f, t, 1.0f - t};
  }
  return gradient;
}

LifeCurve FivePoints() {
  LifeCurve curve{};
  curve.tag = 2;
  curve.maximum = 2.0f;
  curve.count = 5;
  const float x[] = {0.0f, 0.2f, 0.45f, 0.8f, 1.0f}, y[] = {0.1f, 1.9f, 0.3f, 1.2f, 0.0f};
  for (int i = 0; i < 5; ++i) {
    curve.x[i] = x[i];
    curve.y[i] = y[i];
  }
  return curve;
}

}  // namespace vantle::panel
