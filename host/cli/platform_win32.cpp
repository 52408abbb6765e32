#include "host/cli/platform.h"

#include <atomic>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <io.h>
#include <iostream>
#include <windows.h>
// Needs the types of the header above it.
#include <psapi.h>

namespace vantle::cli {
namespace {

std::atomic<bool> interrupted{false};

// The system forgets a handler once it was called, so that a second request ends the program.
void NoteInterrupt(int) {
  interrupted.store(true);
}

std::string RegistryText(const char* key, const char* name) {
  char text[256] = "";
  DWORD size = sizeof(text);
  const LSTATUS status = RegGetValueA(HKEY_LOCAL_MACHINE, key, name, RRF_RT_REG_SZ, nullptr, text, &size);
  return status == ERROR_SUCCESS ? text : "";
}

}  // namespace

std::string ProgramFolder() {
  std::wstring path(32768, L'\0');
  const DWORD length = GetModuleFileNameW(nullptr, path.data(), static_cast<DWORD>(path.size()));
  if (length == 0 || length == path.size()) return ".";
  path.resize(length);
  return std::filesystem::path(path).parent_path().string();
}

const char* ModuleFileName() {
  return "Vantle.aex";
}

// Here such a write fails by itself.
void SurviveFileLimits() {}

void CatchInterrupts() {
  std::signal(SIGINT, NoteInterrupt);
  std::signal(SIGTERM, NoteInterrupt);
}

bool WasInterrupted() {
  return interrupted.load();
}

bool ErrorsGoToTerminal() {
  return _isatty(_fileno(stderr)) != 0;
}

int64_t PeakMemory() {
  PROCESS_MEMORY_COUNTERS counters{};
  counters.cb = sizeof(counters);
  if (K32GetProcessMemoryInfo(GetCurrentProcess(), &counters, sizeof(counters)) == 0) return 0;
  return static_cast<int64_t>(counters.PeakWorkingSetSize);
}

int64_t MachineMemory() {
  MEMORYSTATUSEX status{};
  status.dwLength = sizeof(status);
  if (GlobalMemoryStatusEx(&status) == 0) return 0;
  return static_cast<int64_t>(status.ullTotalPhys);
}

std::string ProcessorName() {
  const std::string name =
      RegistryText("HARDWARE\\DESCRIPTION\\System\\CentralProcessor\\0", "ProcessorNameString");
  return name.empty() ? "unknown processor" : name;
}

// Without the runtimes' clean-up: the OpenMP runtime's may wait for good for a lock that one of its workers
// holds.
void EndProgram(int code) {
  std::cout.flush();
  std::cerr.flush();
  std::fflush(nullptr);
  std::_Exit(code);
}

std::string SystemName() {
  const char* key = "SOFTWARE\\Microsoft\\Windows NT\\CurrentVersion";
  const std::string build = RegistryText(key, "CurrentBuildNumber");
  return "Windows" + (build.empty() ? std::string() : " build " + build);
}

}  // namespace vantle::cli
