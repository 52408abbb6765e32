#include "host/cli/commands.h"
#include "host/cli/session.h"
#include "host/engine/frame_request.h"
#include "host/io/failure.h"
#include "host/io/files.h"
#include "host/io/npy.h"
#include "host/scene/frame_json.h"
#include "host/scene/layer_store.h"

namespace vantle::cli {

const Command& FrameCommand() {
  static const Command command = [] {
    Command made{
        "frame",
        "Renders one exact frame, for tests and bug reports: FRAME.json holds just what a host\n"
        "hands over, nothing is scaled, clamped or guessed, and the output world is written as it is.",
        "FRAME.json -o OUT.npy [options]",
        "FRAME.json",
        1,
        R"(FRAME.json (every key is explained in docs/frame.md)
  { "width": 64, "height": 36, "depth": 8,
    "time": {"current": 0, "step": 1, "scale": 30, "total": 60},
    "downsample": {"x": [1, 1], "y": [1, 1]},
    "input": "a.npy", "layers": {"2": "a.npy", "3": "b.npy"},
    "custom_layer": null, "camera": null,
    "params": {"4": 50.0, "29": 2} }

Exit codes: 0 done, 2 usage, 3 unreadable input, 4 module not loadable, 5 the effect returned
an error, 6 output not writable.
)",
        {{"-o", "output", "OUT.npy", "Output",
          "array to write, (height, width, 4) in alpha, red, green,\nblue order; - for standard output"}}};
    for (const Option& option : ModuleOptions()) made.options.push_back(option);
    made.options.push_back(
        {nullptr, "threads", "N", "Running", "threads of the effect's own loops (default: all)"});
    made.options.push_back({"-h", "help", nullptr, "Running", "show this text"});
    return made;
  }();
  return command;
}

int RunFrame(const Arguments& arguments) {
  if (arguments.positionals.empty())
    throw io::Failure(io::kUsage, "FRAME.json is missing: vantle frame FRAME.json -o OUT.npy");
  const std::string output = ValueOf(arguments, "output");
  if (output.empty()) throw io::Failure(io::kUsage, "-o is missing: vantle frame FRAME.json -o OUT.npy");
  if (output != "-" && !output.ends_with(".npy"))
    throw io::Failure(io::kUsage, output + ": a frame is written as .npy");
  SetLoopThreads(IntegerOf(arguments, "threads", MachineThreads(), 1, 1024));
  io::RequireReadable(arguments.positionals[0]);

  const std::unique_ptr<host::EffectInstance> effect = OpenSession(arguments);
  host::World world;
  try {
    const host::FrameRequest request = scene::ReadFrameRequest(arguments.positionals[0], *effect);
    RequireSuccess(host::RenderFrame(*effect, request, &world));
  } catch (...) {
    host::CloseEffect(*effect);
    throw;
  }
  CloseSession(*effect);
  io::CreateFoldersFor(output);
  io::WriteFileAtomically(output, io::EncodeNpy(scene::ViewOf(world)));
  return 0;
}

}  // namespace vantle::cli
