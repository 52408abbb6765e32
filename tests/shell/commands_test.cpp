// Registration, routing of commands, and what surrounds them: the guard, suites, global set-up, about text.
#include "host_api/entry_points.h"
#include "shell/command_handlers.h"
#include "shell/dispatch.h"
#include "shell/guard.h"
#include "shell/identity.h"
#include "shell/registration.h"
#include "shell/suites.h"
#include "tests/shell/fake_host.h"

#include <cstring>
#include <gtest/gtest.h>
#include <new>
#include <stdexcept>
#include <string>

namespace vantle::test {
namespace {

PF_Err Send(FakeHost* host, PF_Cmd command) {
  return DispatchCommand(command, &host->in, &host->out, nullptr, nullptr, nullptr);
}

struct Registration {
  int calls = 0;
  std::string text;
  PF_PluginDataPtr plugin = nullptr;
};
Registration registration;

A_Err Record(PF_PluginDataPtr plugin, const A_u_char* name, const A_u_char* match, const A_u_char* category,
             const A_u_char* entry, A_long kind, A_long major, A_long minor, A_long reserved) {
  const auto text = [](const A_u_char* bytes) { return std::string(reinterpret_cast<const char*>(bytes)); };
  ++registration.calls;
  registration.plugin = plugin;
  registration.text = text(name) + "|" + text(match) + "|" + text(category) + "|" + text(entry) + "|" +
                      std::to_string(kind) + "|" + std::to_string(major) + "|" + std::to_string(minor) + "|" +
                      std::to_string(reserved);
  return 42;
}

TEST(Registration, PassesTheIdentityOnceAndReturnsTheCallbacksResult) {
  registration = {};
  int token = 0;
  const auto plugin = reinterpret_cast<PF_PluginDataPtr>(&token);
  EXPECT_EQ(RegisterEffect(plugin, Record), 42);
  EXPECT_EQ(registration.calls, 1);
  EXPECT_EQ(registration.plugin, plugin);
  EXPECT_EQ(registration.text, "Vantle|Orlan_Vantle|Simulation|EffectMain|1699105620|13|28|8");
}

TEST(Registration, WithoutACallbackIsAnError) {
  EXPECT_EQ(RegisterEffect(nullptr, nullptr), PF_Err_BAD_CALLBACK_PARAM);
}

TEST(Guard, IntegersAreHostErrorsAndAllElseIsDamage) {
  EXPECT_EQ(Guarded([] { return PF_Err{3}; }), 3);
  EXPECT_EQ(Guarded([]() -> PF_Err { throw PF_Err{516}; }), 516);
  EXPECT_EQ(Guarded([]() -> PF_Err { throw std::bad_alloc(); }), 512);
  EXPECT_EQ(Guarded([]() -> PF_Err { throw std::runtime_error("x"); }), 512);
  EXPECT_EQ(Guarded([]() -> PF_Err { throw "text"; }), 512);
  EXPECT_EQ(Guarded([]() -> PF_Err { throw 1.5; }), 512);
}

TEST(GlobalSetup, DeclaresVersionAndFlags) {
  FakeHost host;
  EXPECT_EQ(Send(&host, PF_Cmd_GLOBAL_SETUP), PF_Err_NONE);
  EXPECT_EQ(host.out.my_version, 0x90001u);
  EXPECT_EQ(host.out.out_flags, 0x06008004);
  EXPECT_EQ(host.out.out_flags2, 0x08080002);
  EXPECT_EQ(GeneralPluginId(), 4711);
  EXPECT_EQ(host.Imbalance(), "");
  EXPECT_EQ(Send(&host, PF_Cmd_GLOBAL_SETDOWN), PF_Err_NONE);
  EXPECT_EQ(GeneralPluginId(), 0);
}

TEST(GlobalSetup, TwiceAndSetDownWithoutSetUp) {
  FakeHost host;
  EXPECT_EQ(Send(&host, PF_Cmd_GLOBAL_SETDOWN), PF_Err_NONE);
  EXPECT_EQ(Send(&host, PF_Cmd_GLOBAL_SETUP), PF_Err_NONE);
  host.nextPluginId = 12;
  EXPECT_EQ(Send(&host, PF_Cmd_GLOBAL_SETUP), PF_Err_NONE);
  EXPECT_EQ(GeneralPluginId(), 12);
  EXPECT_EQ(Send(&host, PF_Cmd_GLOBAL_SETDOWN), PF_Err_NONE);
  EXPECT_EQ(Send(&host, PF_Cmd_GLOBAL_SETDOWN), PF_Err_NONE);
  EXPECT_EQ(host.Imbalance(), "");
}

TEST(GlobalSetup, WithoutTheUtilitySuiteOnlyRegistrationIsSkipped) {
  for (const SuiteFault fault : {SuiteFault::kMissing, SuiteFault::kNullTable, SuiteFault::kErrorWithTable,
                                 SuiteFault::kErrorWithGarbage}) {
    FakeHost host;
    host.suiteFaults["AEGP Utility Suite"] = fault;
    EXPECT_EQ(Send(&host, PF_Cmd_GLOBAL_SETUP), PF_Err_NONE);
    EXPECT_EQ(host.out.my_version, 0x90001u);
    EXPECT_EQ(GeneralPluginId(), 0);
    EXPECT_EQ(host.Imbalance(), "");
  }
}

TEST(GlobalSetup, ARefusedRegistrationLeavesNoId) {
  FakeHost host;
  host.failingCalls.insert("AEGP_RegisterWithAEGP");
  EXPECT_EQ(Send(&host, PF_Cmd_GLOBAL_SETUP), PF_Err_NONE);
  EXPECT_EQ(GeneralPluginId(), 0);
  EXPECT_EQ(host.Imbalance(), "");
}

TEST(GlobalSetup, PremiereProIsNotAskedForServices) {
  FakeHost host;
  host.in.appl_id = kApplPremierePro;
  EXPECT_EQ(Send(&host, PF_Cmd_GLOBAL_SETUP), PF_Err_NONE);
  EXPECT_EQ(host.out.out_flags2, 0x08080002);
  EXPECT_EQ(GeneralPluginId(), 0);
  EXPECT_TRUE(host.suites.empty());
}

TEST(About, NamesTheVersion) {
  FakeHost host;
  EXPECT_EQ(Send(&host, PF_Cmd_ABOUT), PF_Err_NONE);
  EXPECT_STREQ(host.out.return_msg,
               "Vantle v1.2\rLayer-driven particle system. Brightness controls emission.");
  EXPECT_EQ(host.Imbalance(), "");
}

TEST(About, WithoutTheTextSuiteIsAnError) {
  for (const SuiteFault fault : {SuiteFault::kMissing, SuiteFault::kNullTable, SuiteFault::kErrorWithTable,
                                 SuiteFault::kErrorWithGarbage}) {
    FakeHost host;
    host.suiteFaults["PF ANSI Suite"] = fault;
    EXPECT_EQ(Send(&host, PF_Cmd_ABOUT), PF_Err_BAD_CALLBACK_PARAM);
    EXPECT_STREQ(host.out.return_msg, "");
    EXPECT_EQ(host.Imbalance(), "");
  }
}

TEST(About, IsSilentInPremierePro) {
  FakeHost host;
  host.in.appl_id = kApplPremierePro;
  EXPECT_EQ(Send(&host, PF_Cmd_ABOUT), PF_Err_NONE);
  EXPECT_STREQ(host.out.return_msg, "");
}

TEST(Suites, AHostWithoutABasicSuiteHasNone) {
  FakeHost host;
  host.in.pica_basicP = nullptr;
  EXPECT_EQ(Send(&host, PF_Cmd_ABOUT), PF_Err_BAD_CALLBACK_PARAM);
  EXPECT_EQ(Send(&host, PF_Cmd_GLOBAL_SETUP), PF_Err_NONE);
  SPBasicSuite empty{};
  host.in.pica_basicP = &empty;
  EXPECT_EQ(Send(&host, PF_Cmd_ABOUT), PF_Err_BAD_CALLBACK_PARAM);
}

// Commands that keep nothing: whatever comes after them sees the records as they were.
TEST(Dispatch, UnhandledCommandsTouchNothing) {
  FakeHost host;
  for (PF_Cmd command = -3; command <= 60; ++command) {
    const bool handled = command == PF_Cmd_ABOUT || command == PF_Cmd_GLOBAL_SETUP ||
                         command == PF_Cmd_PARAMS_SETUP || command == PF_Cmd_GLOBAL_SETDOWN;
    if (handled) continue;
    PF_OutData before;
    std::memcpy(&before, &host.out, sizeof(before));
    EXPECT_EQ(Send(&host, command), PF_Err_NONE) << command;
    EXPECT_EQ(std::memcmp(&before, &host.out, sizeof(before)), 0) << command;
  }
  EXPECT_TRUE(host.events.empty());
  EXPECT_EQ(host.Imbalance(), "");
}

TEST(Dispatch, AllCommandsInOddOrdersWithNothingButNulls) {
  for (int stride : {1, 3, 7, 11, 40}) {
    for (int i = 0; i <= 40; ++i) {
      const PF_Cmd command = (i * stride) % 41;
      const PF_Err error = DispatchCommand(command, nullptr, nullptr, nullptr, nullptr, nullptr);
      const PF_Err expected = command == PF_Cmd_PARAMS_SETUP ? PF_Err_BAD_CALLBACK_PARAM : PF_Err_NONE;
      EXPECT_EQ(error, expected) << command;
    }
  }
}

TEST(Dispatch, AllCommandsInOddOrdersKeepTheBalance) {
  for (int stride : {1, 5, 9, 17, 40}) {
    FakeHost host;
    FakeWorld output(PixelDepth::k8, 8, 8);
    PF_ParamDef** params = host.Params();
    for (int i = 0; i <= 40; ++i) {
      const PF_Cmd command = (i * stride) % 41;
      EXPECT_EQ(DispatchCommand(command, &host.in, &host.out, params, &output.def, nullptr), PF_Err_NONE)
          << command;
    }
    EXPECT_EQ(host.Imbalance(), "");
  }
}

TEST(Dispatch, AChangedParameterWithoutExtraOrOfAnotherIndexIsIgnored) {
  FakeHost host;
  EXPECT_EQ(Send(&host, PF_Cmd_USER_CHANGED_PARAM), PF_Err_NONE);
  for (PF_ParamIndex index : {-1, 0, 28, 85, 87, 1000}) {
    PF_UserChangedParamExtra extra{index};
    EXPECT_EQ(DispatchCommand(PF_Cmd_USER_CHANGED_PARAM, &host.in, &host.out, nullptr, nullptr, &extra),
              PF_Err_NONE);
  }
  EXPECT_TRUE(host.suites.empty());
}

}  // namespace
}  // namespace vantle::test
