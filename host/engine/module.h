// A loaded effect: the two entry points that a host looks up, and what the effect says of itself when it
// registers.
#pragma once

#include "host_api/commands.h"
#include "host_api/entry_points.h"

#include <optional>
#include <string>

namespace vantle::host {

/// Names of the exported entry points.
inline constexpr const char* kRegistrationEntryName = "PluginDataEntryFunction";
inline constexpr const char* kEffectEntryName = "EffectMain";

/// A module ready to be opened. `library` is null when the entry points were linked into this program.
struct Module {
  std::string path;
  void* library = nullptr;
  PluginDataEntryProc registerEffect = nullptr;
  EffectMainProc effectMain = nullptr;
};

enum class ModuleFailure { kNone, kNotFound, kNotLoadable, kNoRegistrationEntry, kNoEffectEntry };

/// The module, or why there is none. `message` is one line that names the file and the culprit.
struct LoadedModule {
  std::optional<Module> module;
  ModuleFailure failure = ModuleFailure::kNone;
  std::string message;
};

/// Loads the library at `path` (relative to the current folder; no search along library paths) and finds
/// both entry points. On failure nothing stays loaded.
LoadedModule LoadModule(const std::string& path);

/// A module made of functions that this program already contains.
Module MakeLinkedModule(PluginDataEntryProc registerEffect, EffectMainProc effectMain);

/// Gives the library back to the system; the entry points must not be called afterwards. Does nothing for a
/// linked module.
void UnloadModule(Module& module);

/// What the effect handed to the registration callback. `calls` counts the calls of the callback; a
/// well-behaved effect makes one.
struct Registration {
  std::string name;
  std::string matchName;
  std::string category;
  std::string entryPoint;
  A_long kind = 0;
  A_long apiMajor = 0;
  A_long apiMinor = 0;
  A_long reservedInfo = 0;
  int calls = 0;
  PF_Err result = PF_Err_NONE;
};

/// Calls the registration entry with `basicSuite` (may be null).
Registration RegisterModule(const Module& module, SPBasicSuite* basicSuite);

}  // namespace vantle::host
