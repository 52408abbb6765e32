// Plays what a user does in the panel, event by event as a host sends it.
#pragma once

#include "host/panel/mouse_script.h"
#include "host/panel/panel.h"

#include <string>
#include <vector>

namespace vantle::panel {

/// How one action went.
struct ActionResult {
  size_t firstStep = 0;  ///< number of steps in force before
  size_t lastStep = 0;   ///< and after
  bool handled = false;  ///< the effect took the click
  int drags = 0;         ///< DRAG events that it asked for
  PF_Err error = PF_Err_NONE;
  std::string message;
  std::vector<std::string> notes;  ///< what a person who wrote the script should know
};

/// A press, then DRAG events along the path when the effect asked for them, the last one as the button comes
/// up; two presses for a double click. An error of the effect ends the action and is returned. Throws Failure
/// (kEffectError) as SendEvent does.
ActionResult PlayAction(Panel& panel, const Action& action);

}  // namespace vantle::panel
