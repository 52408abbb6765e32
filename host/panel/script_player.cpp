#include "host/panel/script_player.h"

#include "host_api/commands.h"

#include <algorithm>

namespace vantle::panel {
namespace {

// Hosts do not promise what the words hold before the effect writes them.
constexpr A_intptr_t kStaleWord = -0x5ca1ab1e;
constexpr A_u_long kEventTicks = 16;

/// One hold of the mouse button.
struct Press {
  Panel& panel;
  const Action& action;
  ActionResult& result;
  A_u_long when;
};

PF_Point OnPanel(const Press& press, const Point& point) {
  const Rect& frame = FindRow(press.panel.layout, press.action.param)->frame;
  PF_Point at{};
  at.h = frame.left + point.x;
  at.v = frame.top + point.y;
  return at;
}

/// False when the action ends with this answer.
bool GoesOn(const Press& press, const EventAnswer& answer) {
  if (answer.error == PF_Err_NONE) return true;
  press.result.error = answer.error;
  press.result.message = answer.message;
  return false;
}

/// Sends `extra` with the mouse at a point; false when the action ends there.
bool SendAt(const Press& press, PF_EventExtra& extra, const Point& point, const std::string& what) {
  extra.u.do_click.screen_point = OnPanel(press, point);
  press.panel.drawing.mouse = extra.u.do_click.screen_point;
  const std::string event = what + " " + std::to_string(point.x) + "," + std::to_string(point.y);
  const EventAnswer answer = SendEvent(press.panel, press.action.param, event, extra);
  press.result.handled = press.result.handled || answer.handled;
  return GoesOn(press, answer);
}

/// The mouse over the control, before it clicks; false when the action ends there.
bool Hover(const Press& press) {
  PF_EventExtra extra{};
  extra.e_type = PF_Event_ADJUST_CURSOR;
  extra.u.adjust_cursor.screen_point = OnPanel(press, press.action.path.front());
  extra.u.adjust_cursor.modifiers = press.action.modifiers;
  return GoesOn(press, SendEvent(press.panel, press.action.param, "cursor", extra));
}

/// The drag's events continue the record of the click. Where the button comes up without having moved, the
/// last event comes from the same place.
bool SendDrags(const Press& press, const PF_DoClickEventInfo& click) {
  PF_EventExtra extra{};
  extra.e_type = PF_Event_DRAG;
  extra.u.do_click = click;
  const std::vector<Point>& path = press.action.path;
  for (size_t i = std::min<size_t>(1, path.size() - 1); i < path.size(); ++i) {
    extra.u.do_click.when += kEventTicks;
    extra.u.do_click.last_time = i + 1 == path.size() ? 1 : 0;
    ++press.result.drags;
    if (!SendAt(press, extra, path[i], "drag to")) return false;
  }
  return true;
}

bool SendPress(const Press& press, A_long clicks) {
  PF_EventExtra extra{};
  extra.e_type = PF_Event_DO_CLICK;
  PF_DoClickEventInfo& click = extra.u.do_click;
  click.when = press.when;
  click.num_clicks = clicks;
  click.modifiers = press.action.modifiers;
  std::fill(std::begin(click.continue_refcon), std::end(click.continue_refcon), kStaleWord);
  if (!SendAt(press, extra, press.action.path.front(), clicks > 1 ? "double click at" : "click at"))
    return false;
  if (click.send_drag != 0) return SendDrags(press, click);
  if (press.action.kind == ActionKind::kDrag)
    press.result.notes.emplace_back("the effect did not ask for a drag");
  return true;
}

void PlayPresses(const Press& press) {
  const bool twice = press.action.kind == ActionKind::kDoubleClick;
  if (Hover(press) && SendPress(press, 1) && twice)
    SendPress({press.panel, press.action, press.result, press.when + 200}, 2);
}

}  // namespace

ActionResult PlayAction(Panel& panel, const Action& action) {
  ActionResult result;
  result.firstStep = panel.applied;
  int asked = 0;
  panel.drawing.picker = [&](const std::string&, const PF_PixelFloat&) {
    ++asked;
    return action.picker.value_or(host::PickerReply{PF_Interrupt_CANCEL, {}});
  };
  if (action.kind == ActionKind::kUndo || action.kind == ActionKind::kRedo) {
    const auto wanted = static_cast<size_t>(action.count);
    const size_t done = action.kind == ActionKind::kUndo ? Undo(panel, wanted) : Redo(panel, wanted);
    if (done < wanted) result.notes.push_back("only " + std::to_string(done) + " steps were there");
  } else {
    PlayPresses({panel, action, result, 1000});
  }
  panel.drawing.picker = nullptr;
  if (asked > 0 && !action.picker)
    result.notes.emplace_back("the colour picker opened and was cancelled: give a \"picker\" answer");
  if (asked == 0 && action.picker) result.notes.emplace_back("the colour picker did not open");
  result.lastStep = panel.applied;
  return result;
}

}  // namespace vantle::panel
