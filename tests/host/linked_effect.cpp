#include "tests/host/linked_effect.h"

#include "tests/host/misbehaving_effect.h"

#include <cstring>
#include <gtest/gtest.h>

namespace vantle::host {
namespace {

Commands& CurrentCommands() {
  static Commands commands;
  return commands;
}

PF_Err RegisterLinked(PF_PluginDataPtr token, PF_PluginDataCB callback, SPBasicSuite*, const char*,
                      const char*) {
  const auto text = [](const char* string) { return reinterpret_cast<const A_u_char*>(string); };
  return callback(token, text("Linked"), text("Test_Linked"), text("Test"), text("EffectMain"),
                  kPluginKindEffect, 13, 28, 8);
}

PF_Err RunLinked(PF_Cmd command, PF_InData* in, PF_OutData* out, PF_ParamDef* params[], PF_LayerDef* output,
                 void* extra) {
  if (command == PF_Cmd_GLOBAL_SETUP) {
    out->my_version = 1;
  }
  return CurrentCommands()(command, in, out, params, output, extra);
}

}  // namespace

Module ModuleOf(Commands commands) {
  CurrentCommands() = std::move(commands);
  return MakeLinkedModule(RegisterLinked, RunLinked);
}

PF_ParamDef Param(A_long id, PF_ParamType type, const char* name) {
  PF_ParamDef def{};
  def.uu.id = id;
  def.param_type = type;
  std::strncpy(def.name, name, sizeof def.name - 1);
  return def;
}

OpenedEffect OpenMisbehaving(const HostOptions& options) {
  static const LoadedModule loaded = LoadModule(MISBEHAVING_MODULE);
  if (!loaded.module.has_value()) {
    ADD_FAILURE() << loaded.message;
    return {};
  }
  return OpenEffect(*loaded.module, options);
}

FrameRequest SmallFrame(A_long misdeed) {
  FrameRequest request;
  request.width = 5;
  request.height = 4;
  request.input = std::make_shared<const World>(MakeWorld(5, 4, 8));
  request.values[kMisdeedParam] = misdeed;
  request.camera.emplace();
  return request;
}

std::string Joined(const std::vector<std::string>& lines) {
  std::string all;
  for (const std::string& line : lines) {
    all += line + "\n";
  }
  return all;
}

}  // namespace vantle::host
