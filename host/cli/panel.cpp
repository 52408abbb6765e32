#include "host/panel/panel.h"

#include "host/cli/commands.h"
#include "host/cli/session.h"
#include "host/io/failure.h"
#include "host/io/files.h"
#include "host/io/image_file.h"
#include "host/panel/scene_save.h"
#include "host/panel/script_player.h"
#include "host/scene/scene_json.h"

#include <charconv>
#include <cstdio>
#include <cstring>
#include <filesystem>

namespace vantle::cli {
namespace {

struct PanelRequest {
  std::string scene;
  std::string picture;
  std::string record;
  std::string events;
  std::string save;
  bool overwrite = false;
  bool steps = false;
  panel::PanelOptions options;
};

double ReadScale(const Arguments& arguments) {
  const std::string text = ValueOf(arguments, "scale", "1");
  double scale = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), scale);
  if (error != std::errc() || end != text.data() + text.size() || !(scale >= 0.25) || scale > 8)
    throw io::Failure(io::kUsage, "--scale takes a number from 0.25 to 8, found \"" + text + "\"");
  return scale;
}

PanelRequest ReadRequest(const Arguments& arguments) {
  if (arguments.positionals.empty())
    throw io::Failure(io::kUsage, "SCENE.json is missing: vantle panel SCENE.json -o panel.png");
  PanelRequest request;
  request.scene = arguments.positionals[0];
  request.picture = ValueOf(arguments, "output");
  request.record = ValueOf(arguments, "record");
  request.events = ValueOf(arguments, "events");
  request.save = ValueOf(arguments, "save");
  request.overwrite = Has(arguments, "overwrite");
  request.steps = Has(arguments, "steps");
  request.options.scale = ReadScale(arguments);
  request.options.frame = IntegerOf(arguments, "frame", 0, -1'000'000, 1'000'000);
  if (request.picture.empty() && request.record.empty() && request.save.empty() && !request.steps)
    throw io::Failure(io::kUsage, "nothing to do: give -o, --record, --save or --steps");
  if (!request.picture.empty()) io::FormatForName(request.picture);
  for (const std::string& file : {request.picture, request.record, request.save})
    if (!request.overwrite && !file.empty() && file != "-" && std::filesystem::exists(file))
      throw io::Failure(io::kOutputNotWritable, file + ": exists already; -y overwrites it");
  return request;
}

// An error that the script's own picker answer asked for is part of the play.
void CheckAction(const panel::Action& action, const panel::ActionResult& result,
                 const std::vector<host::DeclaredParam>& params) {
  const std::string what = action.place + ": " + panel::DescribeAction(action, params) + ": ";
  for (const std::string& note : result.notes) PrintWarning(what + note);
  if (result.error == PF_Err_NONE) return;
  const std::string error =
      what + "the effect failed, " + DescribeError(PF_Cmd_EVENT, result.error, result.message);
  if (!action.picker || action.picker->error != result.error) throw io::Failure(io::kEffectError, error);
  PrintWarning(error + ", as the script's colour picker did");
}

void PlayScript(panel::Panel& shown, const PanelRequest& request) {
  if (request.events.empty()) return;
  for (const panel::Action& action :
       panel::ReadMouseScript(request.events, shown.effect->params, shown.layout))
    CheckAction(action, panel::PlayAction(shown, action), shown.effect->params);
}

std::string StepsText(const panel::Panel& shown) {
  std::string text;
  for (size_t i = 0; i < shown.steps.size(); ++i) {
    const panel::UndoStep& step = shown.steps[i];
    text += (i < shown.applied ? "" : "(undone) ") + std::to_string(i + 1) + "  " +
            shown.effect->params[static_cast<size_t>(step.param)].name + "  " + step.event + "  " +
            step.textBefore + " -> " + step.textAfter + "\n";
  }
  return text.empty() ? "no steps\n" : text;
}

std::vector<std::byte> BytesOf(const std::string& text) {
  std::vector<std::byte> bytes(text.size());
  if (!text.empty()) std::memcpy(bytes.data(), text.data(), text.size());
  return bytes;
}

std::string RecordText(const panel::Panel& shown) {
  std::string text;
  for (const std::string& line : shown.record) text += line + "\n";
  return text;
}

struct OutputFile {
  std::string path;
  std::vector<std::byte> bytes;
};

std::vector<OutputFile> MakeOutputs(panel::Panel& shown, const PanelRequest& request) {
  std::vector<OutputFile> files;
  if (!request.picture.empty()) {
    const io::Picture picture = panel::PanelPicture(shown);
    files.push_back(
        {request.picture, io::EncodePicture(io::View(picture), io::FormatForName(request.picture))});
  }
  if (!request.record.empty()) files.push_back({request.record, BytesOf(RecordText(shown))});
  if (!request.save.empty())
    files.push_back({request.save,
                     BytesOf(panel::SceneTextWithEdits(request.scene, request.save, *shown.effect,
                                                       panel::CollectEdits(shown), request.options.frame))});
  return files;
}

}  // namespace

const Command& PanelCommand() {
  static const Command command = [] {
    Command made{
        "panel",
        "Shows the Effect Controls panel as a picture, with the controls that the effect draws itself,\n"
        "plays a script of the mouse in it, and saves the scene with the edited values.",
        "SCENE.json -o panel.png [options]",
        "SCENE.json",
        1,
        R"(A script (docs/panel.md):
  { "events": [
    { "control": "Color Gradient", "click": [150, 14] },
    { "control": "Color Gradient", "drag": [[150, 14], [60, 14]] },
    { "control": "Color Gradient", "double_click": [60, 30], "picker": [1, 0.5, 0] },
    { "control": "Color Gradient", "click": [100, 30], "modifiers": ["ctrl"] },
    { "undo": 1 } ] }

Exit codes: 0 done, 2 usage, 3 unreadable input, 4 module not loadable, 5 the effect returned
an error, 6 output not writable.
)",
        {{"-o", "output", "PANEL.png", "Output", "picture to write (.png or .exr)"},
         {nullptr, "scale", "N", "Output", "pixels per unit, 0.25 to 8 (default: 1)"},
         {nullptr, "record", "CALLS.txt", "Output",
          "write every event and what the effect drew in it, one call\na line; - for standard output"},
         {nullptr, "save", "NEW.json", "Output", "write the scene with the edited values"},
         {nullptr, "steps", nullptr, "Output", "print the steps that can be undone"},
         {"-y", "overwrite", nullptr, "Output", "overwrite files that exist"},
         {nullptr, "events", "SCRIPT.json", "Editing", "play what the mouse does"},
         {nullptr, "frame", "N", "Editing", "frame whose values are shown and edited (default: 0)"}}};
    for (const Option& option : ModuleOptions()) made.options.push_back(option);
    made.options.push_back({"-h", "help", nullptr, "Effect", "show this text"});
    return made;
  }();
  return command;
}

int RunPanel(const Arguments& arguments) {
  const PanelRequest request = ReadRequest(arguments);
  const scene::Scene scene = scene::ReadScene(request.scene);
  const std::unique_ptr<host::EffectInstance> effect = OpenSession(arguments);
  panel::Panel shown;
  std::vector<OutputFile> files;
  try {
    std::vector<std::string> warnings;
    panel::OpenPanel(scene, *effect, request.options, &shown, &warnings);
    for (const std::string& warning : warnings) PrintWarning(warning);
    PlayScript(shown, request);
    files = MakeOutputs(shown, request);
    panel::ClosePanel(shown);
  } catch (...) {
    host::CloseEffect(*effect);
    throw;
  }
  CloseSession(*effect);
  for (const OutputFile& file : files) {
    io::CreateFoldersFor(file.path);
    io::WriteFileAtomically(file.path, file.bytes);
  }
  if (request.steps) {
    const std::string text = StepsText(shown);
    std::fwrite(text.data(), 1, text.size(), stdout);
  }
  return 0;
}

}  // namespace vantle::cli
