// The panel needs a drawing library; this stands in for it where the program is built without one.
#include "host/cli/commands.h"
#include "host/io/failure.h"

namespace vantle::cli {

const Command& PanelCommand() {
  static const Command command{
      "panel",
      "Shows the effect's controls as a picture. Not part of this build of the program.",
      "SCENE.json -o panel.png",
      "SCENE.json",
      1,
      "Use the program built for Linux to see the panel.\n",
      {{"-h", "help", nullptr, "Effect", "show this text"}}};
  return command;
}

int RunPanel(const Arguments&) {
  throw io::Failure(io::kUsage, "this build of the program cannot draw the panel; the one for Linux can");
}

}  // namespace vantle::cli
