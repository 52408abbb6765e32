#include "host/panel/mouse_script.h"

#include "host/io/json_file.h"
#include "host/io/nearest.h"
#include "host/scene/parameter_lookup.h"
#include "host_api/commands.h"

#include <algorithm>

namespace vantle::panel {
namespace {

using io::Node;

struct ModifierName {
  const char* name;
  PF_Modifiers flag;
};
constexpr ModifierName kModifiers[] = {{"ctrl", PF_Mod_CMD_CTRL_KEY},
                                       {"shift", PF_Mod_SHIFT_KEY},
                                       {"alt", PF_Mod_OPT_ALT_KEY},
                                       {"caps", PF_Mod_CAPS_LOCK_KEY}};

constexpr int kFarthest = 100'000;  // a mouse may leave the control, but not the desk

Point ReadPoint(const Node& node) {
  const std::string expected = "a point [x, y] in whole units from the control's left and top";
  const std::vector<Node> numbers = io::Elements(node, expected);
  if (numbers.size() != 2) io::RefuseNode(node, expected);
  return {static_cast<int>(io::ReadInteger(numbers[0], -kFarthest, kFarthest)),
          static_cast<int>(io::ReadInteger(numbers[1], -kFarthest, kFarthest))};
}

std::vector<Point> ReadPath(const Node& node) {
  const std::string expected = "a list of at least two points [[x, y], ...]";
  std::vector<Point> path;
  for (const Node& point : io::Elements(node, expected)) path.push_back(ReadPoint(point));
  if (path.size() < 2) io::RefuseNode(node, expected);
  return path;
}

PF_Modifiers ReadModifiers(const Node& node) {
  PF_Modifiers modifiers = PF_Mod_NONE;
  for (const Node& name : io::Elements(node, "a list of \"ctrl\", \"shift\", \"alt\", \"caps\"")) {
    const std::string text = io::ReadText(name, "\"ctrl\", \"shift\", \"alt\" or \"caps\"");
    const auto* found = std::find_if(std::begin(kModifiers), std::end(kModifiers),
                                     [&](const ModifierName& modifier) { return modifier.name == text; });
    if (found == std::end(kModifiers)) io::RefuseNode(name, "\"ctrl\", \"shift\", \"alt\" or \"caps\"");
    modifiers |= found->flag;
  }
  return modifiers;
}

// A colour, "cancel", or {"error": n}.
host::PickerReply ReadPicker(const Node& node) {
  const std::string expected = "a colour [red, green, blue], \"cancel\" or {\"error\": number}";
  host::PickerReply reply;
  if (node.value->is_string()) {
    if (node.value->get<std::string>() != "cancel") io::RefuseNode(node, expected);
    reply.error = PF_Interrupt_CANCEL;
    return reply;
  }
  if (node.value->is_object()) {
    io::RequireObject(node, {"error"});
    reply.error = static_cast<PF_Err>(io::ReadInteger(io::RequiredMember(node, "error"), 1, 100'000));
    return reply;
  }
  const std::vector<Node> channels = io::Elements(node, expected);
  if (channels.size() != 3) io::RefuseNode(node, expected);
  const auto channel = [&](size_t i) { return static_cast<float>(io::ReadNumber(channels[i])); };
  reply.color = {1.0f, channel(0), channel(1), channel(2)};
  return reply;
}

int FindControl(const Node& node, const std::vector<host::DeclaredParam>& params, const PanelLayout& layout) {
  const std::string name = io::ReadText(node, "the name of a control");
  const scene::LookupResult found = scene::FindParameter(params, name);
  if (found.index == 0) io::FailAt(node, found.problem);
  const PanelRow* row = FindRow(layout, found.index);
  if (row != nullptr && row->frame.width > 0) return found.index;
  std::string own;
  for (const PanelRow& other : layout.rows)
    if (other.frame.width > 0)
      own += (own.empty() ? "\"" : ", \"") + params[static_cast<size_t>(other.param)].name + "\"";
  io::FailAt(node, "\"" + name +
                       "\" is a control of the host's; the mouse is for those that the effect draws: " + own);
}

void CheckInside(const Node& node, const Action& action, const PanelLayout& layout) {
  const Rect& frame = FindRow(layout, action.param)->frame;
  const Point& down = action.path.front();
  if (down.x >= 0 && down.y >= 0 && down.x < frame.width && down.y < frame.height) return;
  io::FailAt(node, "the button goes down at " + std::to_string(down.x) + "," + std::to_string(down.y) +
                       ", outside of the control, which is " + std::to_string(frame.width) + " x " +
                       std::to_string(frame.height));
}

Action ReadUndo(const Node& node, bool redo) {
  io::RequireObject(node, {redo ? "redo" : "undo"});
  Action action;
  action.place = io::Place(node);
  action.kind = redo ? ActionKind::kRedo : ActionKind::kUndo;
  action.count = static_cast<int>(io::ReadInteger(io::Member(node, redo ? "redo" : "undo"), 1, 100'000));
  return action;
}

Action ReadAction(const Node& node, const std::vector<host::DeclaredParam>& params,
                  const PanelLayout& layout) {
  if (node.value == nullptr || !node.value->is_object())
    io::RefuseNode(node, "an event { \"control\": ... }");
  if (node.value->contains("undo")) return ReadUndo(node, false);
  if (node.value->contains("redo")) return ReadUndo(node, true);
  io::RequireObject(node, {"control", "click", "double_click", "drag", "modifiers", "picker"});
  const Node click = io::Member(node, "click"), twice = io::Member(node, "double_click"),
             drag = io::Member(node, "drag");
  if (io::IsPresent(click) + io::IsPresent(twice) + io::IsPresent(drag) != 1)
    io::FailAt(node, "an event is one of \"click\", \"double_click\", \"drag\", \"undo\" and \"redo\"");
  Action action;
  action.place = io::Place(node);
  action.param = FindControl(io::RequiredMember(node, "control"), params, layout);
  action.kind = io::IsPresent(click)   ? ActionKind::kClick
                : io::IsPresent(twice) ? ActionKind::kDoubleClick
                                       : ActionKind::kDrag;
  action.path = io::IsPresent(drag) ? ReadPath(drag)
                                    : std::vector<Point>{ReadPoint(io::IsPresent(click) ? click : twice)};
  if (const Node keys = io::Member(node, "modifiers"); io::IsPresent(keys))
    action.modifiers = ReadModifiers(keys);
  if (const Node picker = io::Member(node, "picker"); io::IsPresent(picker))
    action.picker = ReadPicker(picker);
  CheckInside(node, action, layout);
  return action;
}

std::string PointText(const Point& point) {
  return std::to_string(point.x) + "," + std::to_string(point.y);
}

}  // namespace

std::vector<Action> ReadMouseScript(const std::string& path, const std::vector<host::DeclaredParam>& params,
                                    const PanelLayout& layout) {
  const io::Json document = io::ReadJsonFile(path);
  const Node root{&document, path, ""};
  io::RequireObject(root, {"events"});
  std::vector<Action> actions;
  for (const Node& node : io::Elements(io::RequiredMember(root, "events"), "a list of events"))
    actions.push_back(ReadAction(node, params, layout));
  return actions;
}

std::string DescribeAction(const Action& action, const std::vector<host::DeclaredParam>& params) {
  if (action.kind == ActionKind::kUndo) return "undo " + std::to_string(action.count);
  if (action.kind == ActionKind::kRedo) return "redo " + std::to_string(action.count);
  const char* verb = action.kind == ActionKind::kClick         ? "click "
                     : action.kind == ActionKind::kDoubleClick ? "double click "
                                                               : "drag ";
  std::string text = verb + ("\"" + params[static_cast<size_t>(action.param)].name + "\"");
  text += (action.kind == ActionKind::kDrag ? " from " : " at ") + PointText(action.path.front());
  if (action.kind == ActionKind::kDrag) text += " to " + PointText(action.path.back());
  for (const ModifierName& modifier : kModifiers)
    if ((action.modifiers & modifier.flag) != 0) text += std::string(" with ") + modifier.name;
  return text;
}

}  // namespace vantle::panel
