// Faults that are provoked on purpose must reach the effect exactly as asked for.
#include "host/engine/suites.h"
#include "tests/host/linked_effect.h"
#include "tests/host/misbehaving_effect.h"

#include <algorithm>
#include <gtest/gtest.h>

namespace vantle::host {
namespace {

/// Opens an effect that runs `render` as its render command.
OpenedEffect OpenRendering(std::function<void(PF_InData*)> render, const HostOptions& options = {}) {
  return OpenEffect(ModuleOf([=](PF_Cmd command, PF_InData* in, PF_OutData* out, PF_ParamDef**, PF_LayerDef*,
                                 void*) -> PF_Err {
                      out->num_params = 1;
                      if (command == PF_Cmd_RENDER) {
                        render(in);
                      }
                      return PF_Err_NONE;
                    }),
                    options);
}

FrameRequest Frame() {
  FrameRequest request;
  request.width = request.height = 1;
  return request;
}

TEST(Faults, SuitesAreHiddenInThreeManners) {
  const int marker = 0;
  const void* seen = nullptr;
  SPErr error = 0;
  OpenedEffect opened = OpenRendering([&](PF_InData* in) {
    seen = &marker;
    error = in->pica_basicP->AcquireSuite(kPF_WorldSuite2Name, 2, &seen);
    if (error == 0 && seen != nullptr) {
      in->pica_basicP->ReleaseSuite(kPF_WorldSuite2Name, 2);
    }
  });
  ASSERT_NE(opened.effect, nullptr);
  const auto render = [&](HiddenManner manner, A_long version) {
    FrameRequest request = Frame();
    request.faults.emplace().hiddenSuites.push_back({kPF_WorldSuite2Name, version, manner});
    EXPECT_TRUE(Succeeded(RenderFrame(*opened.effect, request, nullptr)));
  };
  render(HiddenManner::kErrorAndNull, 0);
  EXPECT_NE(error, 0);
  EXPECT_EQ(seen, nullptr);
  render(HiddenManner::kErrorPointerUntouched, 2);
  EXPECT_NE(error, 0);
  EXPECT_EQ(seen, &marker);
  render(HiddenManner::kSuccessAndNull, 0);
  EXPECT_EQ(error, 0);
  EXPECT_EQ(seen, nullptr);
  render(HiddenManner::kErrorAndNull, 1);
  EXPECT_EQ(error, 0) << "another version was hidden";
  EXPECT_NE(seen, nullptr);
}

std::string Key(const SuiteEntry& suite) {
  return suite.name + " " + std::to_string(suite.version);
}

TEST(Faults, PremiereOffersNoGeneralServices) {
  std::vector<std::string> offered;
  HostOptions options;
  options.applId = kApplPremierePro;
  OpenedEffect opened = OpenRendering(
      [&](PF_InData* in) {
        EXPECT_EQ(in->appl_id, kApplPremierePro);
        for (const SuiteEntry& suite : AllSuites()) {
          const void* functions = nullptr;
          if (in->pica_basicP->AcquireSuite(suite.name.c_str(), suite.version, &functions) == 0) {
            offered.push_back(Key(suite));
            in->pica_basicP->ReleaseSuite(suite.name.c_str(), suite.version);
          }
        }
      },
      options);
  ASSERT_NE(opened.effect, nullptr);
  EXPECT_TRUE(Succeeded(RenderFrame(*opened.effect, Frame(), nullptr)));
  for (const SuiteEntry& suite : AllSuites()) {
    const bool expected = suite.name.find("AEGP") != 0 && suite.inPremiere;
    EXPECT_EQ(std::count(offered.begin(), offered.end(), Key(suite)) > 0, expected) << suite.name;
  }
  for (const char* always : {"PF ANSI Suite 1", "PF Handle Suite 2", "PF World Suite 2"}) {
    EXPECT_EQ(std::count(offered.begin(), offered.end(), always), 1) << always;
  }
}

TEST(Faults, SuitesAreMatchedByNameAndVersion) {
  std::vector<SPErr> errors;
  OpenedEffect opened = OpenRendering([&](PF_InData* in) {
    const void* functions = nullptr;
    errors = {in->pica_basicP->AcquireSuite("PF World Suite", 1, &functions),
              in->pica_basicP->AcquireSuite("pf world suite", 2, &functions),
              in->pica_basicP->AcquireSuite(nullptr, 2, &functions),
              in->pica_basicP->AcquireSuite("PF World Suite", 2, nullptr)};
  });
  ASSERT_NE(opened.effect, nullptr);
  EXPECT_TRUE(Succeeded(RenderFrame(*opened.effect, Frame(), nullptr)));
  for (const SPErr error : errors) {
    EXPECT_NE(error, 0);
  }
}

TEST(Faults, TheNthCallFailsAndNoOther) {
  OpenedEffect opened = OpenMisbehaving();
  ASSERT_NE(opened.effect, nullptr);
  const long calls = RenderFrame(*opened.effect, SmallFrame(kBehave), nullptr).hostCalls;
  ASSERT_EQ(calls, 2) << "one checkout, one check-in";
  for (long n = 1; n <= calls + 1; ++n) {
    FrameRequest request = SmallFrame(kBehave);
    request.faults.emplace().failCall = n;
    const FrameResult result = RenderFrame(*opened.effect, request, nullptr);
    EXPECT_TRUE(result.problems.empty()) << Joined(result.problems);
    EXPECT_EQ(result.hostCalls, n == 1 ? 1 : 2) << "a failed checkout needs no check-in";
  }
}

TEST(Faults, CallsFailByName) {
  std::vector<bool> null;
  OpenedEffect opened = OpenRendering([&](PF_InData* in) {
    null.clear();
    for (int i = 0; i < 4; ++i) {
      const PF_Handle handle = in->utils->host_new_handle(4);
      null.push_back(handle == nullptr);
      if (handle != nullptr) {
        in->utils->host_dispose_handle(handle);
      }
    }
  });
  ASSERT_NE(opened.effect, nullptr);
  FrameRequest request = Frame();
  request.faults.emplace().failCallNamed["host_new_handle"] = 3;
  EXPECT_TRUE(Succeeded(RenderFrame(*opened.effect, request, nullptr)));
  EXPECT_EQ(null, (std::vector<bool>{false, false, true, false}));
  request.faults.emplace().failAllocation = 2;
  const FrameResult result = RenderFrame(*opened.effect, request, nullptr);
  EXPECT_EQ(null, (std::vector<bool>{false, true, false, false}));
  EXPECT_EQ(result.allocations, 4);
}

TEST(Faults, LocksReturnNull) {
  const void* data = &data;
  OpenedEffect opened = OpenRendering([&](PF_InData* in) {
    const PF_Handle handle = in->utils->host_new_handle(4);
    data = in->utils->host_lock_handle(handle);
    in->utils->host_dispose_handle(handle);
  });
  ASSERT_NE(opened.effect, nullptr);
  FrameRequest request = Frame();
  request.faults.emplace().locksReturnNull = true;
  EXPECT_TRUE(Succeeded(RenderFrame(*opened.effect, request, nullptr)));
  EXPECT_EQ(data, nullptr);
}

TEST(Faults, OfTheWholeHostCountFromTheOpeningOn) {
  // Global set-up takes a suite (1), registers (2), releases (3); parameter set-up makes, locks and unlocks a
  // default (4 to 6) and adds four parameters (7 to 10).
  for (long n = 1; n <= 11; ++n) {
    HostOptions options;
    options.faults.failCall = n;
    options.faults.failWith = PF_Err_INVALID_CALLBACK;
    const OpenedEffect opened = OpenMisbehaving(options);
    const bool fails = n >= 7 && n <= 10;
    EXPECT_EQ(opened.effect == nullptr, fails) << n;
    EXPECT_EQ(opened.result.error, fails ? PF_Err_INVALID_CALLBACK : PF_Err_NONE) << n;
    const std::string expected = n == 4 ? "parameter 3 \"Custom\" has no default value\n" : "";
    EXPECT_EQ(Joined(opened.result.problems), expected) << n;
  }
}

TEST(Faults, CheckoutsReenterTheEffect) {
  OpenedEffect opened = OpenMisbehaving();
  ASSERT_NE(opened.effect, nullptr);
  int nested = 0;
  FrameRequest outer = SmallFrame(kBehave);
  outer.values[kNumberParam] = 10.0;
  outer.faults.emplace().insideCheckout = [&] {
    FrameRequest inner = SmallFrame(kBehave);
    inner.values[kNumberParam] = 20.0;
    inner.faults = outer.faults;
    World picture;
    const FrameResult result = RenderFrame(*opened.effect, inner, &picture);
    EXPECT_TRUE(Succeeded(result)) << Joined(result.problems);
    EXPECT_EQ(WorldRow(picture, 0)[0], 20);
    ++nested;
  };
  World picture;
  const FrameResult result = RenderFrame(*opened.effect, outer, &picture);
  EXPECT_TRUE(Succeeded(result)) << Joined(result.problems);
  EXPECT_EQ(WorldRow(picture, 0)[0], 10);
  EXPECT_EQ(nested, 1);
}

}  // namespace
}  // namespace vantle::host
