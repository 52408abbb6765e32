// An effect, loaded and applied, for the time of one command.
#pragma once

#include "host/cli/arguments.h"
#include "host/engine/effect.h"
#include "host/engine/frame_request.h"

#include <memory>
#include <string>
#include <vector>

namespace vantle::cli {

/// The options that every command with an effect takes.
std::vector<Option> ModuleOptions();

/// The module named by --module, or the one beside the program.
std::string ModulePath(const Arguments& arguments);

/// Loads the module and applies the effect, as the host that --host-id names. What the host found wrong but
/// not fatal is printed. Throws Failure: kModuleNotLoadable, or kEffectError when a set-up command failed.
std::unique_ptr<host::EffectInstance> OpenSession(const Arguments& arguments);

/// Sets the effect down. Throws Failure (kEffectError) that names what it left behind.
void CloseSession(host::EffectInstance& effect);

/// "render, error 512 (\"message\")".
std::string DescribeError(PF_Cmd command, PF_Err error, const std::string& message);

/// Throws Failure unless the command succeeded: kEffectError where the effect failed or misbehaved,
/// kUnreadableInput where the request could not be handed over.
void RequireSuccess(const host::FrameResult& result);

/// One line to standard error, whole even when several threads print.
void PrintLine(const std::string& line);
/// "vantle: warning: ...".
void PrintWarning(const std::string& text);

/// Lets loops of the effect that start from this thread use so many threads.
void SetLoopThreads(int threads);
/// Threads that the machine runs at once.
int MachineThreads();

}  // namespace vantle::cli
