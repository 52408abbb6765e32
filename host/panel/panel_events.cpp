// Events of the panel's controls, and what a host does after them.
#include "host/engine/custom_values.h"
#include "host/engine/not_offered.h"
#include "host/io/failure.h"
#include "host/panel/panel.h"
#include "host_api/commands.h"

#include <utility>

namespace vantle::panel {
namespace {

struct EventCallbackTable {
  static constexpr const char* kName = "the event callbacks";
};

[[noreturn]] void Fail(const Panel& panel, int param, const std::string& what) {
  const std::string name =
      param > 0 ? " of \"" + panel.effect->params[static_cast<size_t>(param)].name + "\"" : "";
  throw io::Failure(io::kEffectError, what + name);
}

std::string AllOf(const std::vector<std::string>& lines) {
  std::string all;
  for (const std::string& line : lines) all += (all.empty() ? "" : "; ") + line;
  return all;
}

PF_UnionableRect ToHost(const Rect& rect) {
  return {rect.left, rect.top, rect.left + rect.width, rect.top + rect.height};
}

void FillWindow(Panel& panel, int param, PF_EventExtra& extra) {
  extra.contextH = host::ContextOf(panel.drawing);
  extra.cbs = host::MakeUnofferedTable<EventCallbackTable, PF_EventCallbacks>();
  extra.cbs.refcon = nullptr;
  extra.evt_out_flags = PF_EO_NONE;
  const PanelRow* row = FindRow(panel.layout, param);
  if (row == nullptr) return;
  extra.effect_win.index = param;
  extra.effect_win.area = PF_EA_CONTROL;
  extra.effect_win.current_frame = ToHost(row->frame);
  extra.effect_win.param_title_frame = ToHost(row->row);
}

DRAWBOT_Rect32 ClipOf(const Panel& panel, int param) {
  const PanelRow* row = FindRow(panel.layout, param);
  return row == nullptr
             ? DRAWBOT_Rect32{}
             : DRAWBOT_Rect32{row->frame.left, row->frame.top, row->frame.width, row->frame.height};
}

/// Sends the event alone; `changed` are the values that the effect marked.
EventAnswer SendAlone(Panel& panel, int param, const std::string& event, PF_EventExtra& extra,
                      std::map<int, host::CustomBytes>* changed) {
  FillWindow(panel, param, extra);
  const bool draws = extra.e_type == PF_Event_DRAW;
  const host::DrawingScope scope(panel.drawing);
  host::BeginEvent(panel.drawing, draws, ClipOf(panel, param));
  const host::FrameResult result =
      host::SendFrameCommand(*panel.effect, PF_Cmd_EVENT, panel.request, nullptr, &extra, changed);
  host::EndEvent(panel.drawing);
  panel.record.push_back("# " + event);
  panel.record.insert(panel.record.end(), panel.drawing.calls.begin(), panel.drawing.calls.end());
  if (!result.problems.empty())
    Fail(panel, param, "the effect misbehaved: " + AllOf(result.problems) + "; at " + event);
  return {result.error, result.message, (extra.evt_out_flags & PF_EO_HANDLED_EVENT) != 0, false};
}

void SendPlainCommand(Panel& panel, int param, PF_Cmd command, void* extra, const char* name) {
  const host::DrawingScope scope(panel.drawing);
  host::BeginEvent(panel.drawing, false, {});
  const host::FrameResult result =
      host::SendFrameCommand(*panel.effect, command, panel.request, nullptr, extra);
  host::EndEvent(panel.drawing);
  if (result.error != PF_Err_NONE)
    Fail(panel, param,
         std::string("the effect failed at ") + name + ", error " + std::to_string(result.error));
  if (!result.problems.empty()) Fail(panel, param, "the effect misbehaved: " + AllOf(result.problems));
}

/// What hosts send after a value changed.
void TellChange(Panel& panel, int param) {
  const host::EffectInstance& effect = *panel.effect;
  if ((effect.params[static_cast<size_t>(param)].def.flags & PF_ParamFlag_SUPERVISE) != 0) {
    PF_UserChangedParamExtra extra{param};
    SendPlainCommand(panel, param, PF_Cmd_USER_CHANGED_PARAM, &extra, "a changed parameter");
  }
  if ((effect.outFlags & PF_OutFlag_SEND_UPDATE_PARAMS_UI) != 0)
    SendPlainCommand(panel, param, PF_Cmd_UPDATE_PARAMS_UI, nullptr, "an update of the panel");
}

std::string PrintedText(Panel& panel, int param, const ValueBytes& bytes) {
  const host::CustomText text = host::PrintCustomValue(*panel.effect, param, bytes);
  if (text.error != PF_Err_NONE)
    Fail(panel, param, "the effect failed at printing a value, error " + std::to_string(text.error));
  if (!text.problems.empty()) Fail(panel, param, "the effect misbehaved: " + AllOf(text.problems));
  return text.text;
}

/// Puts a value in force and shows it.
void SetValue(Panel& panel, int param, const ValueBytes& bytes) {
  panel.request.values[param] = host::CustomBytes{bytes};
  panel.content.texts[param] = PrintedText(panel, param, bytes);
  TellChange(panel, param);
  PaintRow(panel.cairo.get(), panel.effect->params, *FindRow(panel.layout, param), panel.content);
  DrawControl(panel, param);
}

void AddStep(Panel& panel, int param, const std::string& event, const ValueBytes& after) {
  panel.steps.resize(panel.applied);
  UndoStep step{param, event, CurrentValue(panel, param), after, panel.content.texts[param], {}};
  SetValue(panel, param, after);
  step.textAfter = panel.content.texts[param];
  panel.steps.push_back(std::move(step));
  panel.applied = panel.steps.size();
}

}  // namespace

EventAnswer SendEvent(Panel& panel, int param, const std::string& event, PF_EventExtra& extra) {
  std::map<int, host::CustomBytes> changed;
  EventAnswer answer = SendAlone(panel, param, event, extra, &changed);
  if (!answer.handled) return answer;
  for (const auto& [index, value] : changed) {
    if (FindRow(panel.layout, index) == nullptr || !value.bytes.has_value()) continue;
    AddStep(panel, index, event, *value.bytes);
    answer.changed = true;
  }
  return answer;
}

void DrawControl(Panel& panel, int param) {
  const PanelRow& row = *FindRow(panel.layout, param);
  const host::DeclaredParam& declared = panel.effect->params[static_cast<size_t>(param)];
  PF_EventExtra extra{};
  extra.e_type = PF_Event_DRAW;
  extra.u.draw.update_rect = ToHost(row.frame);
  extra.u.draw.depth = 32;
  // The flag asks to keep what the control showed; the effect draws over it.
  if ((declared.def.ui_flags & PF_PUI_DONT_ERASE_CONTROL) == 0) PaintGround(panel.cairo.get(), row.frame);
  const std::string place = std::to_string(row.frame.left) + " " + std::to_string(row.frame.top) + " " +
                            std::to_string(row.frame.width) + " " + std::to_string(row.frame.height);
  const EventAnswer answer =
      SendAlone(panel, param, "draw " + declared.name + " in " + place, extra, nullptr);
  host::PaintDrawList(panel.cairo.get(), panel.drawing.list, ClipOf(panel, param));
  if (answer.error != PF_Err_NONE)
    Fail(panel, param,
         "the effect failed at drawing the control, error " + std::to_string(answer.error) +
             (answer.message.empty() ? "" : " (\"" + answer.message + "\")"));
}

const ValueBytes& CurrentValue(const Panel& panel, int param) {
  const auto found = panel.request.values.find(param);
  if (found != panel.request.values.end()) {
    const auto& custom = std::get<host::CustomBytes>(found->second);
    if (custom.bytes.has_value()) return *custom.bytes;
  }
  return panel.effect->params[static_cast<size_t>(param)].defaultBytes;
}

size_t Undo(Panel& panel, size_t count) {
  size_t done = 0;
  for (; done < count && panel.applied > 0; ++done) {
    const UndoStep step = panel.steps[--panel.applied];
    SetValue(panel, step.param, step.before);
  }
  return done;
}

size_t Redo(Panel& panel, size_t count) {
  size_t done = 0;
  for (; done < count && panel.applied < panel.steps.size(); ++done) {
    const UndoStep step = panel.steps[panel.applied++];
    SetValue(panel, step.param, step.after);
  }
  return done;
}

}  // namespace vantle::panel
