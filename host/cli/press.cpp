#include "host/cli/commands.h"
#include "host/cli/session.h"
#include "host/io/failure.h"
#include "host/io/files.h"
#include "host/scene/parameter_lookup.h"
#include "host/scene/scene_change.h"
#include "host/scene/scene_composition.h"
#include "host/scene/scene_frame.h"
#include "host/scene/scene_json.h"

#include <cstdio>
#include <filesystem>

namespace vantle::cli {
namespace {

constexpr const char* kDetails = R"(Examples
  vantle press scene.json "A/B Control Nulls" -o with_nulls.json

Exit codes: 0 done, 2 usage, 3 unreadable input, 4 module not loadable, 5 the effect returned
an error, 6 output not writable.
)";

struct PressRequest {
  std::string scene;
  std::string button;
  std::string output;
};

PressRequest ReadRequest(const Arguments& arguments) {
  if (arguments.positionals.size() != 2)
    throw io::Failure(io::kUsage,
                      "name a scene and a button: vantle press SCENE.json \"A/B Control Nulls\" -o NEW.json");
  PressRequest request{arguments.positionals[0], arguments.positionals[1], ValueOf(arguments, "output")};
  if (request.output.empty()) throw io::Failure(io::kUsage, "-o is missing: say where the new scene goes");
  std::error_code ignored;
  if (!Has(arguments, "overwrite") && std::filesystem::exists(request.output, ignored))
    throw io::Failure(io::kOutputNotWritable, request.output + ": exists already; -y overwrites");
  return request;
}

int FindButton(const std::vector<host::DeclaredParam>& params, const std::string& name) {
  std::string buttons;
  for (size_t i = 1; i < params.size(); ++i) {
    if (params[i].def.param_type != PF_Param_BUTTON) continue;
    if (params[i].name == name || std::to_string(i) == name) return static_cast<int>(i);
    buttons += (buttons.empty() ? "\"" : ", \"") + params[i].name + "\"";
  }
  throw io::Failure(io::kUsage, "there is no button named \"" + name + "\"" +
                                    (buttons.empty() ? "" : "; there is " + buttons));
}

/// Sends the press; the composition as it was before.
composition::Composition Press(scene::PreparedScene& prepared, int button) {
  const composition::Composition before = *prepared.composition;
  const auto failure = std::make_shared<scene::CheckoutFailure>();
  const host::FrameRequest request = scene::RequestFrame(prepared, 0, failure);
  PF_UserChangedParamExtra change{};
  change.param_index = button;
  RequireSuccess(
      host::SendFrameCommand(*prepared.effect, PF_Cmd_USER_CHANGED_PARAM, request, nullptr, &change));
  return before;
}

std::string PressScene(const PressRequest& request, host::EffectInstance& effect) {
  io::Json document = io::ReadJsonFile(request.scene);
  const scene::Scene scene = scene::ReadScene(request.scene);
  scene::PreparedScene prepared;
  std::vector<std::string> warnings;
  scene::PrepareScene(scene, {}, effect, {}, &prepared, &warnings);
  for (const std::string& warning : warnings) PrintWarning(warning);
  const composition::Composition before = Press(prepared, FindButton(effect.params, request.button));

  for (const std::string& change : prepared.composition->changes) std::printf("%s\n", change.c_str());
  if (prepared.composition->changes.empty())
    PrintWarning("pressing \"" + request.button + "\" changed nothing");
  scene::WriteChanges(before, *prepared.composition, effect, scene.composition.frameRate, &document);
  scene::MovePaths(request.scene, request.output, &document);
  scene::CheckExpressions(prepared, 0);
  for (const std::string& line : composition::DrainReports(*prepared.reports)) PrintWarning(line);
  return scene::TidyText(document);
}

}  // namespace

const Command& PressCommand() {
  static const Command command = [] {
    Command made{
        "press",
        "Presses a button of the effect and writes the scene as it is afterwards: with the layers\n"
        "that the effect created and the expressions that it set. Prints what was changed, in order.",
        "SCENE.json BUTTON -o NEW.json [options]",
        "SCENE.json BUTTON",
        2,
        kDetails,
        {{"-o", "output", "NEW.json", "Output", "scene to write"},
         {"-y", "overwrite", nullptr, "Output", "overwrite a scene that exists"}}};
    for (const Option& option : ModuleOptions()) made.options.push_back(option);
    made.options.push_back({"-h", "help", nullptr, "Running", "show this text"});
    return made;
  }();
  return command;
}

int RunPress(const Arguments& arguments) {
  const PressRequest request = ReadRequest(arguments);
  const std::unique_ptr<host::EffectInstance> effect = OpenSession(arguments);
  std::string text;
  try {
    text = PressScene(request, *effect);
  } catch (...) {
    host::CloseEffect(*effect);
    throw;
  }
  CloseSession(*effect);
  io::CreateFoldersFor(request.output);
  const auto* bytes = reinterpret_cast<const std::byte*>(text.data());
  io::WriteFileAtomically(request.output, {bytes, bytes + text.size()});
  return io::kDone;
}

}  // namespace vantle::cli
