#include "host/engine/module.h"

#include <filesystem>
#include <windows.h>

namespace vantle::host {
namespace {

LoadedModule Failed(ModuleFailure failure, const std::string& message) {
  return {std::nullopt, failure, message};
}

/// GetProcAddress returns a function of another type; the way through void* keeps compilers quiet.
template <typename Function>
Function FindFunction(HMODULE library, const char* name) {
  return reinterpret_cast<Function>(reinterpret_cast<void*>(GetProcAddress(library, name)));
}

}  // namespace

LoadedModule LoadModule(const std::string& path) {
  std::error_code ignored;
  const std::filesystem::path file = std::filesystem::absolute(path, ignored);
  if (!std::filesystem::exists(file, ignored)) {
    return Failed(ModuleFailure::kNotFound, "module not found: " + path);
  }
  HMODULE library = LoadLibraryW(file.c_str());
  if (library == nullptr) {
    return Failed(ModuleFailure::kNotLoadable,
                  "module not loadable: " + path + ": system error " + std::to_string(GetLastError()));
  }
  Module module{path, library, nullptr, nullptr};
  module.registerEffect = FindFunction<PluginDataEntryProc>(library, kRegistrationEntryName);
  module.effectMain = FindFunction<EffectMainProc>(library, kEffectEntryName);
  const bool registers = module.registerEffect != nullptr;
  if (registers && module.effectMain != nullptr) {
    return {module, ModuleFailure::kNone, ""};
  }
  FreeLibrary(library);
  const std::string missing = registers ? kEffectEntryName : kRegistrationEntryName;
  return Failed(registers ? ModuleFailure::kNoEffectEntry : ModuleFailure::kNoRegistrationEntry,
                "not an effect: " + path + " does not export " + missing);
}

void UnloadModule(Module& module) {
  if (module.library != nullptr) {
    FreeLibrary(static_cast<HMODULE>(module.library));
  }
  module = Module{module.path, nullptr, nullptr, nullptr};
}

}  // namespace vantle::host
