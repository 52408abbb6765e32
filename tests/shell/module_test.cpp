// The module as a host loads it.
#include "host_api/entry_points.h"
#include "tests/shell/scene.h"

#include <dlfcn.h>
#include <gtest/gtest.h>
#include <string>

namespace vantle::test {
namespace {

struct Module {
  void* library = dlopen(VANTLE_MODULE, RTLD_NOW | RTLD_LOCAL);
  PluginDataEntryProc registerEffect = nullptr;
  EffectMainProc main = nullptr;

  Module() {
    if (library == nullptr) return;
    registerEffect = reinterpret_cast<PluginDataEntryProc>(dlsym(library, "PluginDataEntryFunction"));
    main = reinterpret_cast<EffectMainProc>(dlsym(library, "EffectMain"));
  }
  ~Module() {
    if (library != nullptr) dlclose(library);
  }
  Module(const Module&) = delete;
  Module& operator=(const Module&) = delete;
};

std::string entryPoint;
A_Err Remember(PF_PluginDataPtr, const A_u_char*, const A_u_char*, const A_u_char*, const A_u_char* entry,
               A_long, A_long, A_long, A_long) {
  entryPoint = reinterpret_cast<const char*>(entry);
  return 0;
}

TEST(ModuleFile, NamesTheEntryPointThatItExports) {
  const Module module;
  ASSERT_NE(module.library, nullptr) << dlerror();
  ASSERT_NE(module.registerEffect, nullptr);
  EXPECT_EQ(module.registerEffect(nullptr, Remember, nullptr, "host", "1"), PF_Err_NONE);
  EXPECT_EQ(dlsym(module.library, entryPoint.c_str()), reinterpret_cast<void*>(module.main));
  EXPECT_EQ(module.registerEffect(nullptr, nullptr, nullptr, nullptr, nullptr), PF_Err_BAD_CALLBACK_PARAM);
}

TEST(ModuleFile, LoadsRendersAndUnloadsAHundredTimes) {
  Scene linked;
  linked.host.Value(kParamDensity).u.fs_d.value = 20000;
  const std::vector<std::byte> expected = Rendered(&linked);
  for (int round = 0; round < 100; ++round) {
    const Module module;
    ASSERT_NE(module.library, nullptr) << dlerror();
    ASSERT_NE(module.main, nullptr);
    Scene scene;
    scene.host.Value(kParamDensity).u.fs_d.value = 20000;
    FakeHost& host = scene.host;
    EXPECT_EQ(module.main(PF_Cmd_GLOBAL_SETUP, &host.in, &host.out, nullptr, nullptr, nullptr), PF_Err_NONE);
    EXPECT_EQ(host.out.my_version, 0x90001u);
    EXPECT_EQ(module.main(PF_Cmd_RENDER, &host.in, &host.out, scene.params, &scene.output.def, nullptr),
              PF_Err_NONE);
    EXPECT_TRUE(SameBytes(scene.output.Pixels(), expected));
    EXPECT_EQ(module.main(PF_Cmd_GLOBAL_SETDOWN, &host.in, &host.out, nullptr, nullptr, nullptr),
              PF_Err_NONE);
    EXPECT_EQ(host.Imbalance(), "");
  }
}

}  // namespace
}  // namespace vantle::test
