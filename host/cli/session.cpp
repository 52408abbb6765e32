#include "host/cli/session.h"

#include "host/cli/platform.h"
#include "host/engine/module.h"
#include "host/io/failure.h"
#include "host_api/commands.h"

#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <mutex>
#include <thread>

#ifndef VANTLE_STD_THREADS
#include <omp.h>
#endif

namespace vantle::cli {
namespace {

const char* CommandName(PF_Cmd command) {
  switch (command) {
    case PF_Cmd_ABOUT:
      return "about";
    case PF_Cmd_GLOBAL_SETUP:
      return "global set-up";
    case PF_Cmd_GLOBAL_SETDOWN:
      return "global set-down";
    case PF_Cmd_PARAMS_SETUP:
      return "parameter set-up";
    case PF_Cmd_SEQUENCE_SETUP:
      return "sequence set-up";
    case PF_Cmd_SEQUENCE_RESETUP:
      return "sequence set-up";
    case PF_Cmd_SEQUENCE_SETDOWN:
      return "sequence set-down";
    case PF_Cmd_FRAME_SETUP:
      return "frame set-up";
    case PF_Cmd_RENDER:
      return "render";
    case PF_Cmd_FRAME_SETDOWN:
      return "frame set-down";
    case PF_Cmd_EVENT:
      return "event";
    case PF_Cmd_USER_CHANGED_PARAM:
      return "a changed control";
    default:
      return "a command";
  }
}

A_long HostId(const Arguments& arguments) {
  const std::string id = ValueOf(arguments, "host-id", "FXTC");
  if (id == "FXTC") return host::HostOptions().applId;
  if (id == "PrMr") return kApplPremierePro;
  throw io::Failure(io::kUsage, "--host-id takes FXTC or PrMr, found \"" + id + "\"");
}

}  // namespace

std::vector<Option> ModuleOptions() {
  return {{nullptr, "module", "PATH", "Effect", "effect to load (default: the one beside the program)"},
          {nullptr, "host-id", "ID", "Effect",
           "host to play: FXTC (After Effects, the default) or PrMr\n(Premiere Pro: no general plug-in "
           "services)"}};
}

std::string ModulePath(const Arguments& arguments) {
  const std::string beside = (std::filesystem::path(ProgramFolder()) / ModuleFileName()).string();
  return ValueOf(arguments, "module", beside);
}

std::string DescribeError(PF_Cmd command, PF_Err error, const std::string& message) {
  std::string text = std::string(CommandName(command)) + ", error " + std::to_string(error);
  if (!message.empty()) text += " (\"" + message + "\")";
  return text;
}

void RequireSuccess(const host::FrameResult& result) {
  if (host::Succeeded(result)) return;
  if (result.error != PF_Err_NONE)
    throw io::Failure(
        io::kEffectError,
        "the effect failed at " + DescribeError(result.failedCommand, result.error, result.message));
  std::string all;
  for (const std::string& problem : result.problems) all += (all.empty() ? "" : "; ") + problem;
  throw io::Failure(result.refused ? io::kUnreadableInput : io::kEffectError,
                    (result.refused ? "the frame cannot be handed over: " : "the effect misbehaved: ") + all);
}

void PrintLine(const std::string& line) {
  static std::mutex mutex;
  std::string clean = line;
  std::replace(clean.begin(), clean.end(), '\n', ' ');
  const std::lock_guard<std::mutex> lock(mutex);
  std::fprintf(stderr, "%s\n", clean.c_str());
}

void PrintWarning(const std::string& text) {
  PrintLine("vantle: warning: " + text);
}

std::unique_ptr<host::EffectInstance> OpenSession(const Arguments& arguments) {
  const std::string path = ModulePath(arguments);
  host::HostOptions options;
  options.applId = HostId(arguments);
  host::LoadedModule loaded = host::LoadModule(path);
  if (!loaded.module)
    throw io::Failure(io::kModuleNotLoadable, loaded.message + "; name the effect with --module PATH");
  host::OpenedEffect opened = host::OpenEffect(*loaded.module, options);
  if (!opened.effect && opened.result.error == PF_Err_NONE)
    throw io::Failure(io::kModuleNotLoadable,
                      path + ": " + opened.result.message + "; name an effect with --module PATH");
  if (!opened.effect)
    throw io::Failure(io::kEffectError,
                      path + ": the effect failed at " +
                          DescribeError(opened.result.command, opened.result.error, opened.result.message));
  for (const std::string& problem : opened.result.problems) PrintWarning(problem);
  return std::move(opened.effect);
}

void CloseSession(host::EffectInstance& effect) {
  const host::CommandResult result = host::CloseEffect(effect);
  if (result.error != PF_Err_NONE)
    throw io::Failure(io::kEffectError,
                      "the effect failed at " + DescribeError(result.command, result.error, result.message));
  if (result.problems.empty()) return;
  std::string all;
  for (const std::string& problem : result.problems) all += (all.empty() ? "" : "; ") + problem;
  throw io::Failure(io::kEffectError, "the effect did not end cleanly: " + all);
}

void SetLoopThreads([[maybe_unused]] int threads) {
#ifndef VANTLE_STD_THREADS
  omp_set_num_threads(threads);
#endif
}

int MachineThreads() {
  return std::max(1, static_cast<int>(std::thread::hardware_concurrency()));
}

}  // namespace vantle::cli
