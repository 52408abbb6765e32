// Hosts end while frames render. The system stops every thread but one wherever it is, also between taking a
// lock and giving it back; the library must let the process end all the same.
#include "tests/windows/varied_frames.h"

#include <cstddef>
#include <gtest/gtest.h>
#include <string>
#include <thread>
#include <vector>
#include <windows.h>

namespace vantle::host {
namespace {

// What the started process does. A thread that has rendered takes its workers with it when it ends, and they
// give up what they hold under locks; threads keep coming and going until the process is gone.
TEST(ProcessEnd, DISABLED_RendersAndEnds) {
  const LoadedModule loaded = LoadModule(VANTLE_MODULE);
  if (!loaded.module) ExitProcess(2);
  OpenedEffect opened = OpenEffect(*loaded.module, {});
  if (!opened.effect) ExitProcess(3);
  EffectInstance* const effect = opened.effect.release();
  const auto render = [effect] { RenderedLine(*effect, 3); };
  for (int i = 0; i < 8; ++i)
    std::thread([render] {
      for (;;) std::thread(render).join();
    }).detach();
  if (RenderedLine(*effect, 3).find("error") != std::string::npos) ExitProcess(4);
  std::thread(render).join();
  ExitProcess(0);
}

/// The exit code of this program, started to run the test above; 1000 when it does not end within a
/// minute.
DWORD EndOfAnother() {
  std::vector<char> program(32768);
  GetModuleFileNameA(nullptr, program.data(), static_cast<DWORD>(program.size()));
  std::string line = "\"" + std::string(program.data()) +
                     "\" --gtest_also_run_disabled_tests --gtest_filter=ProcessEnd.DISABLED_RendersAndEnds";
  STARTUPINFOA start{};
  start.cb = sizeof(start);
  PROCESS_INFORMATION process{};
  if (CreateProcessA(program.data(), line.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr, &start,
                     &process) == 0)
    return 1001;
  DWORD code = 1000;
  if (WaitForSingleObject(process.hProcess, 60000) == WAIT_OBJECT_0)
    GetExitCodeProcess(process.hProcess, &code);
  else
    TerminateProcess(process.hProcess, code);
  CloseHandle(process.hThread);
  CloseHandle(process.hProcess);
  return code;
}

TEST(ProcessEnd, ComesWhileFramesRender) {
  for (int round = 0; round < 10; ++round) ASSERT_EQ(EndOfAnother(), 0u) << round;
}

using LibraryEntry = BOOL(WINAPI*)(HINSTANCE, DWORD, LPVOID);

/// What the system calls when the library comes and goes.
LibraryEntry EntryOf(HMODULE library) {
  auto* const start = reinterpret_cast<std::byte*>(library);
  const auto* const dos = reinterpret_cast<const IMAGE_DOS_HEADER*>(start);
  const auto* const headers = reinterpret_cast<const IMAGE_NT_HEADERS*>(start + dos->e_lfanew);
  return reinterpret_cast<LibraryEntry>(
      reinterpret_cast<void*>(start + headers->OptionalHeader.AddressOfEntryPoint));
}

// Told that the process ends, the library keeps its hands off the runtimes, and so can render on. A worker
// that was stopped with one of their locks in its hands cannot be had on demand.
TEST(ProcessEnd, LeavesTheRuntimesAlone) {
  const LoadedModule loaded = LoadModule(VANTLE_MODULE);
  ASSERT_TRUE(loaded.module) << loaded.message;
  const OpenedEffect opened = OpenEffect(*loaded.module, {});
  ASSERT_TRUE(opened.effect) << opened.result.message;
  const std::string before = RenderedLine(*opened.effect, 3);
  const auto library = static_cast<HMODULE>(loaded.module->library);
  // Runtimes that had been ended the first time would say so the second time.
  for (int i = 0; i < 2; ++i) EXPECT_NE(EntryOf(library)(library, DLL_PROCESS_DETACH, library), 0) << i;
  std::string after;
  std::thread([&after, &opened] { after = RenderedLine(*opened.effect, 3); }).join();
  EXPECT_EQ(after, before);
  EXPECT_TRUE(CloseEffect(*opened.effect).problems.empty());
}

}  // namespace
}  // namespace vantle::host
