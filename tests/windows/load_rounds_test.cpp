// Hosts may free the library between renders; worker threads of its parallel loops must survive that.
#include "tests/windows/varied_frames.h"

#include <gtest/gtest.h>
#include <thread>
#include <vector>
#include <windows.h>

namespace vantle::host {
namespace {

void LoadRenderFree(std::string* line) {
  LoadedModule loaded = LoadModule(VANTLE_MODULE);
  ASSERT_TRUE(loaded.module) << loaded.message;
  {
    const OpenedEffect opened = OpenEffect(*loaded.module, {});
    ASSERT_TRUE(opened.effect) << opened.result.message;
    *line = RenderedLine(*opened.effect, 3);
    EXPECT_TRUE(CloseEffect(*opened.effect).problems.empty());
  }
  UnloadModule(*loaded.module);
}

TEST(LoadRounds, AHundredGiveTheSamePicture) {
  std::string first;
  LoadRenderFree(&first);
  EXPECT_EQ(first.find("error"), std::string::npos) << first;
  for (int round = 1; round < 100; ++round) {
    std::string line;
    LoadRenderFree(&line);
    EXPECT_EQ(line, first) << round;
  }
}

// Hosts load every library in their folders to see what registers, and free it again. A copy under another
// name is a library of its own to the system, which nothing has set up.
TEST(LoadRounds, LoadingAndRegisteringDoesNotHoldTheLibrary) {
  const char* const copy = "registered_only.aex";
  ASSERT_NE(CopyFileA(VANTLE_MODULE, copy, FALSE), 0);
  for (int round = 0; round < 100; ++round) {
    LoadedModule loaded = LoadModule(copy);
    ASSERT_TRUE(loaded.module) << loaded.message;
    EXPECT_EQ(RegisterModule(*loaded.module, nullptr).calls, 1);
    UnloadModule(*loaded.module);
    ASSERT_EQ(GetModuleHandleA(copy), nullptr) << "round " << round;
  }
  std::string line;
  LoadRenderFree(&line);
  EXPECT_EQ(line.find("error"), std::string::npos) << line;
  EXPECT_NE(DeleteFileA(copy), 0);
}

TEST(LoadRounds, LibraryStaysOnceItWasSetUp) {
  LoadedModule loaded = LoadModule(VANTLE_MODULE);
  ASSERT_TRUE(loaded.module) << loaded.message;
  const OpenedEffect opened = OpenEffect(*loaded.module, {});
  ASSERT_TRUE(opened.effect);
  EXPECT_TRUE(CloseEffect(*opened.effect).problems.empty());
  for (int i = 0; i < 200; ++i) FreeLibrary(static_cast<HMODULE>(loaded.module->library));
  EXPECT_NE(GetModuleHandleW(L"Vantle.aex"), nullptr);
}

// Host threads come and go; each leaves workers of the loops behind.
TEST(LoadRounds, EightThreadsRenderAtOnce) {
  LoadedModule loaded = LoadModule(VANTLE_MODULE);
  ASSERT_TRUE(loaded.module) << loaded.message;
  const OpenedEffect opened = OpenEffect(*loaded.module, {});
  ASSERT_TRUE(opened.effect);
  std::vector<std::string> lines(8);
  std::vector<std::thread> threads;
  for (std::string& line : lines)
    threads.emplace_back([&line, &opened] { line = RenderedLine(*opened.effect, 11); });
  for (std::thread& thread : threads) thread.join();
  const std::string alone = RenderedLine(*opened.effect, 11);
  EXPECT_EQ(alone.find("error"), std::string::npos) << alone;
  for (const std::string& line : lines) EXPECT_EQ(line, alone);
  EXPECT_TRUE(CloseEffect(*opened.effect).problems.empty());
}

}  // namespace
}  // namespace vantle::host
