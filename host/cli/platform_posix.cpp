#include "host/cli/platform.h"

#include <atomic>
#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sys/resource.h>
#include <sys/utsname.h>
#include <system_error>
#include <unistd.h>

namespace vantle::cli {
namespace {

std::atomic<bool> interrupted{false};
static_assert(std::atomic<bool>::is_always_lock_free, "a signal handler may touch nothing else");

void NoteInterrupt(int) {
  interrupted.store(true);
}

}  // namespace

std::string ProgramFolder() {
  std::error_code error;
  const std::filesystem::path program = std::filesystem::read_symlink("/proc/self/exe", error);
  return error ? "." : program.parent_path().string();
}

const char* ModuleFileName() {
  return "vantle.so";
}

void SurviveFileLimits() {
  std::signal(SIGXFSZ, SIG_IGN);
}

void CatchInterrupts() {
  struct sigaction action = {};
  action.sa_handler = NoteInterrupt;
  sigemptyset(&action.sa_mask);
  action.sa_flags = static_cast<int>(SA_RESETHAND | SA_RESTART);
  sigaction(SIGINT, &action, nullptr);
  sigaction(SIGTERM, &action, nullptr);
}

bool WasInterrupted() {
  return interrupted.load();
}

bool ErrorsGoToTerminal() {
  return isatty(STDERR_FILENO) == 1;
}

int64_t PeakMemory() {
  struct rusage usage = {};
  getrusage(RUSAGE_SELF, &usage);
  return int64_t{usage.ru_maxrss} * 1024;
}

int64_t MachineMemory() {
  return int64_t{sysconf(_SC_PHYS_PAGES)} * sysconf(_SC_PAGESIZE);
}

std::string ProcessorName() {
  std::ifstream file("/proc/cpuinfo");
  for (std::string line; std::getline(file, line);) {
    const size_t colon = line.find(": ");
    if (line.starts_with("model name") && colon != std::string::npos) return line.substr(colon + 2);
  }
  return "unknown processor";
}

void EndProgram(int code) {
  std::exit(code);
}

std::string SystemName() {
  struct utsname name = {};
  if (uname(&name) != 0) return "unknown system";
  return std::string(name.sysname) + " " + name.release + " " + name.machine;
}

}  // namespace vantle::cli
