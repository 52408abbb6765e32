#include "host/engine/module.h"

#include "host/engine/effect.h"

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>

namespace vantle::host {
namespace {

TEST(LoadModule, NamesAFileThatIsNotThere) {
  const LoadedModule loaded = LoadModule("no/such/module.so");
  EXPECT_FALSE(loaded.module.has_value());
  EXPECT_EQ(loaded.failure, ModuleFailure::kNotFound);
  EXPECT_EQ(loaded.message, "module not found: no/such/module.so");
}

TEST(LoadModule, RefusesAFileThatIsNoLibrary) {
  const auto path = std::filesystem::temp_directory_path() / "vantle_no_library.so";
  std::ofstream(path) << "just a text\n";
  const LoadedModule loaded = LoadModule(path.string());
  std::filesystem::remove(path);
  EXPECT_EQ(loaded.failure, ModuleFailure::kNotLoadable);
  EXPECT_EQ(loaded.message.find("module not loadable: " + path.string()), 0U);
  EXPECT_EQ(loaded.message.find('\n'), std::string::npos);
}

TEST(LoadModule, NamesTheMissingEntryPoint) {
  const LoadedModule without = LoadModule(MODULE_WITHOUT_ENTRIES);
  EXPECT_EQ(without.failure, ModuleFailure::kNoRegistrationEntry);
  EXPECT_NE(without.message.find("PluginDataEntryFunction"), std::string::npos);
  const LoadedModule half = LoadModule(MODULE_WITHOUT_EFFECT);
  EXPECT_EQ(half.failure, ModuleFailure::kNoEffectEntry);
  EXPECT_NE(half.message.find("EffectMain"), std::string::npos);
}

TEST(LoadModule, TakesAPathWithoutAFolderLiterally) {
  const auto folder = std::filesystem::path(MISBEHAVING_MODULE).parent_path();
  const auto before = std::filesystem::current_path();
  std::filesystem::current_path(folder);
  LoadedModule loaded = LoadModule(std::filesystem::path(MISBEHAVING_MODULE).filename().string());
  std::filesystem::current_path(before);
  ASSERT_TRUE(loaded.module.has_value()) << loaded.message;
  UnloadModule(*loaded.module);
}

TEST(RegisterModule, NotesWhatTheEffectHandsOver) {
  LoadedModule loaded = LoadModule(MISBEHAVING_MODULE);
  ASSERT_TRUE(loaded.module.has_value()) << loaded.message;
  const Registration registration = RegisterModule(*loaded.module, nullptr);
  EXPECT_EQ(registration.name, "Misbehaving");
  EXPECT_EQ(registration.matchName, "Test_Misbehaving");
  EXPECT_EQ(registration.category, "Test");
  EXPECT_EQ(registration.entryPoint, "EffectMain");
  EXPECT_EQ(registration.kind, kPluginKindEffect);
  EXPECT_EQ(registration.apiMajor, 13);
  EXPECT_EQ(registration.apiMinor, 28);
  EXPECT_EQ(registration.reservedInfo, 8);
  EXPECT_EQ(registration.calls, 1);
  UnloadModule(*loaded.module);
  EXPECT_EQ(loaded.module->effectMain, nullptr);
}

PF_Err RegisterNothing(PF_PluginDataPtr, PF_PluginDataCB, SPBasicSuite*, const char*, const char*) {
  return PF_Err_NONE;
}

PF_Err RegisterGeneralPlugin(PF_PluginDataPtr token, PF_PluginDataCB callback, SPBasicSuite*, const char*,
                             const char*) {
  const auto text = [](const char* string) { return reinterpret_cast<const A_u_char*>(string); };
  return callback(token, text("General"), text("g"), text("c"), text("Main"), FourLetterCode("AEgx"), 13, 28,
                  8);
}

PF_Err NeverCalled(PF_Cmd, PF_InData*, PF_OutData*, PF_ParamDef*[], PF_LayerDef*, void*) {
  ADD_FAILURE() << "a command reached a module that is no effect";
  return PF_Err_NONE;
}

TEST(OpenEffect, RefusesModulesThatRegisterNoEffect) {
  const OpenedEffect nothing = OpenEffect(MakeLinkedModule(RegisterNothing, NeverCalled), {});
  EXPECT_EQ(nothing.effect, nullptr);
  EXPECT_EQ(nothing.result.message, "the module registered no effect");
  const OpenedEffect general = OpenEffect(MakeLinkedModule(RegisterGeneralPlugin, NeverCalled), {});
  EXPECT_EQ(general.effect, nullptr);
  EXPECT_EQ(general.result.message, "the module registered \"General\", which is no effect");
}

}  // namespace
}  // namespace vantle::host
