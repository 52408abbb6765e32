#include "host/cli/program.h"

#include "host/cli/commands.h"
#include "host/cli/platform.h"
#include "host/cli/session.h"
#include "host/io/failure.h"
#include "host/io/nearest.h"
#include "host/io/picture_codec.h"

#include <cstdio>
#include <exception>
#include <new>

namespace vantle::cli {
namespace {

struct Entry {
  const Command& (*command)();
  int (*run)(const Arguments&);
};

constexpr Entry kCommands[] = {{RenderCommand, RunRender}, {FrameCommand, RunFrame}, {InfoCommand, RunInfo},
                               {SheetCommand, RunSheet},   {PanelCommand, RunPanel}, {PressCommand, RunPress},
                               {BenchCommand, RunBench}};

std::string ProgramHelp() {
  return R"(Usage: vantle COMMAND ...

Renders Vantle, a particle effect that turns one picture into another, without a host.

Commands
  render                     render frames of a scene, or of two pictures
  frame                      render one exact frame from what a host hands over
  info                       show what the effect declares: flags and parameters
  sheet                      put pictures on one sheet
  panel                      show the effect's controls as a picture, and edit them
  press                      press a button of the effect and write the changed scene
  bench                      measure whole frames

Options
  -h, --help                 show this text; after a command, that command's help
      --version              show the version

Exit codes
  0                          done
  1                          some frames were written, others failed
  2                          the command line is wrong
  3                          an input cannot be read or is not valid
  4                          the effect's module cannot be loaded
  5                          the effect returned an error
  6                          an output cannot be written
  130                        interrupted, after the running frames

Examples
  vantle render --a one.png --b two.png -o out/f.%04d.png --frames 0-59
  vantle render scene.json -o out/f.####.exr --depth 32 --set "Transform=50"
)";
}

void Print(const std::string& text) {
  std::fwrite(text.data(), 1, text.size(), stdout);
}

void PrepareLibraries() {
  SurviveFileLimits();
  io::PreparePictureCodec();
}

int Dispatch(const std::vector<std::string>& words) {
  if (words.empty()) throw io::Failure(io::kUsage, "a command is missing; see vantle --help");
  if (words[0] == "--help" || words[0] == "-h" || words[0] == "help") {
    Print(ProgramHelp());
    return 0;
  }
  if (words[0] == "--version") {
    Print("vantle " VANTLE_VERSION "\n");
    return 0;
  }
  std::vector<std::string> names;
  for (const Entry& entry : kCommands) {
    const Command& command = entry.command();
    names.push_back(command.name);
    if (words[0] != command.name) continue;
    for (const std::string& word : words) {
      if (word == "--") break;
      if (word != "--help" && word != "-h") continue;
      Print(HelpText(command));
      return 0;
    }
    PrepareLibraries();
    return entry.run(ParseArguments(command, {words.begin() + 1, words.end()}));
  }
  const std::vector<std::string> near = io::NearestNames(words[0], names, 1);
  throw io::Failure(io::kUsage, "unknown command \"" + words[0] + "\"" +
                                    (near.empty() ? "" : ", did you mean \"" + near[0] + "\"?") +
                                    "; see vantle --help");
}

}  // namespace

int RunProgram(const std::vector<std::string>& words) {
  try {
    const int code = Dispatch(words);
    if (std::fflush(stdout) == 0 && std::ferror(stdout) == 0) return code;
    throw io::Failure(io::kOutputNotWritable, "standard output cannot be written: check where it goes");
  } catch (const io::Failure& failure) {
    PrintLine(std::string("vantle: ") + failure.what());
    return failure.code;
  } catch (const std::bad_alloc&) {
    PrintLine("vantle: there is not enough memory for this frame: lower --resolution, --depth or --threads");
    return io::kUnreadableInput;
  } catch (const std::exception& error) {
    PrintLine(std::string("vantle: ") + error.what());
    return io::kUnreadableInput;
  }
}

}  // namespace vantle::cli
