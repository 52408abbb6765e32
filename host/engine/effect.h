// One applied effect and the commands that frame its life: registration, global set-up, declaration of the
// parameters, the sequence commands, set-down.
#pragma once

#include "host/engine/handles.h"
#include "host/engine/host_options.h"
#include "host/engine/ledger.h"
#include "host/engine/module.h"
#include "host_api/parameters.h"

#include <atomic>
#include <cstdint>
#include <map>
#include <memory>
#include <mutex>
#include <string>
#include <vector>

namespace vantle::host {

/// A parameter as the effect declared it. Texts are copied, so nothing in `def` but the default handle of a
/// custom value points anywhere; `choices` holds a popup's choices, a check box's label or a button's text.
/// Entry 0 is the input layer, which hosts add themselves.
struct DeclaredParam {
  PF_ParamDef def{};
  std::string name;
  std::string choices;
  std::vector<std::uint8_t> defaultBytes;  ///< of a custom value; empty without a default handle
};

/// Counters against which HostFaults are checked.
struct FaultState {
  HostFaults faults;
  std::atomic<long> calls{0};
  std::atomic<long> allocations{0};
  std::mutex namedMutex;
  std::map<std::string, long> named;
};

/// Blocks of memory given out by the basic suite and not given back yet.
struct BlockPool {
  std::mutex mutex;
  std::map<const void*, std::unique_ptr<std::uint8_t[]>> live;
};

/// What a command gave. `problems` are what the host found wrong, one line each.
struct CommandResult {
  PF_Err error = PF_Err_NONE;
  PF_Cmd command = PF_Cmd_ABOUT;
  std::string message;
  bool showsMessage = false;  ///< the effect asked for an error box
  std::vector<std::string> problems;
};

/// Everything the host knows about one applied effect. It stays where it is: frames on other threads and the
/// effect's own handles refer to it.
struct EffectInstance {
  Module module;
  HostOptions options;
  Registration registration;
  A_u_long version = 0;
  PF_OutFlags outFlags = 0;
  PF_OutFlags2 outFlags2 = 0;
  std::vector<DeclaredParam> params;
  PF_CustomUIInfo customUi{};
  int registeredUis = 0;
  std::vector<std::string> aegpRegistrations;  ///< names given to the general plug-in services; ids from 1
  PF_Handle globalData = nullptr;
  PF_Handle sequenceData = nullptr;
  bool declaring = false;  ///< parameters are being declared right now
  bool open = false;
  bool closed = false;

  HandlePool handles;
  Ledger ledger;
  FaultState faults;
  BlockPool blocks;
  std::recursive_mutex turns;  ///< held by frames of an effect that does not declare threaded rendering

  EffectInstance() = default;
  EffectInstance(const EffectInstance&) = delete;
  EffectInstance& operator=(const EffectInstance&) = delete;
};

/// The effect, or the command that failed. When `effect` is null, `result` says why: with `error` 0 it was
/// the host that refused (nothing registered, wrong kind), and `message` names the reason.
struct OpenedEffect {
  std::unique_ptr<EffectInstance> effect;
  CommandResult result;
};

/// Registers the module, then sends global set-up, the declaration of parameters and sequence set-up. When
/// one of them fails, what was begun is set down again. Warnings stay in `result.problems`.
OpenedEffect OpenEffect(const Module& module, const HostOptions& options);

/// Sends sequence and global set-down, gives the default handles back and reports everything the effect left
/// behind in its whole life. A second call does nothing. The module stays loaded.
CommandResult CloseEffect(EffectInstance& effect);

/// Text that the effect answers to the about command, in `message`.
CommandResult AskAbout(EffectInstance& effect);

/// Saves and loads the sequence as a project does: flatten, set-down, set-up from what was flattened.
CommandResult SaveAndReload(EffectInstance& effect);

/// Sends any command that concerns no frame, with null params, output and the given extra.
CommandResult SendCommand(EffectInstance& effect, PF_Cmd command, void* extra = nullptr);

/// Whether the effect declared that its frames may render on several threads at once.
bool RendersOnThreads(const EffectInstance& effect);

/// Checks of the declaration that hosts silently trip over: counts, ids, ranges, defaults, groups, flags.
std::vector<std::string> CheckDeclaration(const EffectInstance& effect, A_long announcedParams);

}  // namespace vantle::host
