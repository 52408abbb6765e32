#include "host/engine/module.h"

#include <dlfcn.h>
#include <filesystem>

namespace vantle::host {
namespace {

LoadedModule Failed(ModuleFailure failure, const std::string& message) {
  return {std::nullopt, failure, message};
}

/// A path without a slash would be searched for along the system's library folders.
std::string Literal(const std::string& path) {
  return path.find('/') == std::string::npos ? "./" + path : path;
}

std::string LoaderMessage() {
  const char* message = dlerror();
  return message == nullptr ? "unknown reason" : message;
}

}  // namespace

LoadedModule LoadModule(const std::string& path) {
  std::error_code ignored;
  if (!std::filesystem::exists(path, ignored)) {
    return Failed(ModuleFailure::kNotFound, "module not found: " + path);
  }
  void* library = dlopen(Literal(path).c_str(), RTLD_NOW | RTLD_LOCAL);
  if (library == nullptr) {
    return Failed(ModuleFailure::kNotLoadable, "module not loadable: " + path + ": " + LoaderMessage());
  }
  Module module{path, library, nullptr, nullptr};
  module.registerEffect = reinterpret_cast<PluginDataEntryProc>(dlsym(library, kRegistrationEntryName));
  module.effectMain = reinterpret_cast<EffectMainProc>(dlsym(library, kEffectEntryName));
  const bool registers = module.registerEffect != nullptr;
  if (registers && module.effectMain != nullptr) {
    return {module, ModuleFailure::kNone, ""};
  }
  dlclose(library);
  const std::string missing = registers ? kEffectEntryName : kRegistrationEntryName;
  return Failed(registers ? ModuleFailure::kNoEffectEntry : ModuleFailure::kNoRegistrationEntry,
                "not an effect: " + path + " does not export " + missing);
}

void UnloadModule(Module& module) {
  if (module.library != nullptr) {
    dlclose(module.library);
  }
  module = Module{module.path, nullptr, nullptr, nullptr};
}

}  // namespace vantle::host
