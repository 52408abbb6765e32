// What a user does in the panel, from a file:
//   { "events": [ { "control": "Color Gradient", "drag": [[60, 14], [120, 14]], "modifiers": ["ctrl"] }, ...
//   ] }
#pragma once

#include "host/drawing/drawing_session.h"
#include "host/engine/effect.h"
#include "host/panel/panel_layout.h"

#include <optional>
#include <string>
#include <vector>

namespace vantle::panel {

enum class ActionKind { kClick, kDoubleClick, kDrag, kUndo, kRedo };

struct Point {
  int x = 0;
  int y = 0;
};

/// `path` holds where the button goes down, where the mouse moves, and where it comes up, relative to the
/// control's left and top; one point for clicks. `count` of kUndo and kRedo.
struct Action {
  std::string place;  ///< where it was written, for messages
  ActionKind kind = ActionKind::kClick;
  int param = 0;
  std::vector<Point> path;
  PF_Modifiers modifiers = PF_Mod_NONE;
  std::optional<host::PickerReply> picker;
  int count = 1;
};

/// Reads a script for a panel. Throws Failure (kUnreadableInput) for an unknown key, control or modifier, a
/// control that is not the effect's own, and a button that goes down outside of the control.
std::vector<Action> ReadMouseScript(const std::string& path, const std::vector<host::DeclaredParam>& params,
                                    const PanelLayout& layout);

/// "drag \"Color Gradient\" from 60,14 to 120,14 with ctrl".
std::string DescribeAction(const Action& action, const std::vector<host::DeclaredParam>& params);

}  // namespace vantle::panel
