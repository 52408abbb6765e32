// Values that are made anew, and given back.
#include "shell/dispatch.h"
#include "tests/shell/custom_value_fixture.h"

#include <cstring>
#include <gtest/gtest.h>

namespace vantle::test {
namespace {

TEST_F(CustomValues, NewMakesTheDefaultOfItsKind) {
  for (const uint32_t tag : kTags) {
    PF_ArbitraryH value = nullptr;
    EXPECT_EQ(New(tag, &value), PF_Err_NONE);
    ASSERT_NE(Keep(value), nullptr);
    EXPECT_EQ(Bytes(value), DefaultBytes(tag));
  }
  EXPECT_EQ(host.Imbalance(), "");
}

TEST_F(CustomValues, WithoutMemoryNothingIsMadeAndItIsReported) {
  int token = 0;
  const auto before = reinterpret_cast<PF_ArbitraryH>(&token);
  for (const uint32_t tag : kTags) {
    for (const PF_FunctionSelector which :
         {PF_Arbitrary_NEW_FUNC, PF_Arbitrary_SCAN_FUNC, PF_Arbitrary_COPY_FUNC, PF_Arbitrary_INTERP_FUNC}) {
      PF_ArbitraryH value = before;
      PF_ArbParamsExtra extra{};
      switch (which) {
        case PF_Arbitrary_NEW_FUNC:
          extra.u.new_func_params = {TagToRefcon(tag), &value};
          break;
        case PF_Arbitrary_SCAN_FUNC:
          extra.u.scan_func_params = {TagToRefcon(tag), "1,2", 3, &value};
          break;
        case PF_Arbitrary_COPY_FUNC:
          extra.u.copy_func_params = {TagToRefcon(tag), nullptr, &value};
          break;
        default:
          extra.u.interp_func_params = {TagToRefcon(tag), nullptr, nullptr, 0.5, &value};
      }
      host.handleCalls = 0;
      host.failHandleAt = 1;
      EXPECT_EQ(Call(&host, which, &extra), PF_Err_OUT_OF_MEMORY);
      EXPECT_EQ(value, before);
      host.failHandleAt = 0;
      PF_UtilCallbacks* utils = host.in.utils;
      host.in.utils = nullptr;
      EXPECT_EQ(Call(&host, which, &extra), PF_Err_OUT_OF_MEMORY);
      host.in.utils = utils;
      EXPECT_EQ(DispatchCommand(PF_Cmd_ARBITRARY_CALLBACK, nullptr, nullptr, nullptr, nullptr, &extra),
                PF_Err_OUT_OF_MEMORY);
    }
  }
}

TEST_F(CustomValues, AValueThatCannotBeFilledIsNotHandedOut) {
  host.failLockAt = 1;
  PF_ArbitraryH value = nullptr;
  EXPECT_EQ(New(kGradientTag, &value), PF_Err_OUT_OF_MEMORY);
  EXPECT_EQ(value, nullptr);
  EXPECT_EQ(host.HandleCount(), 0u);
}

TEST_F(CustomValues, NoPlaceForTheResultIsNoError) {
  PF_ArbParamsExtra extra{};
  const char flat[300] = {};
  extra.u.new_func_params = {TagToRefcon(kGradientTag), nullptr};
  EXPECT_EQ(Call(&host, PF_Arbitrary_NEW_FUNC, &extra), PF_Err_NONE);
  extra.u.copy_func_params = {nullptr, nullptr, nullptr};
  EXPECT_EQ(Call(&host, PF_Arbitrary_COPY_FUNC, &extra), PF_Err_NONE);
  extra.u.flat_size_func_params = {nullptr, nullptr, nullptr};
  EXPECT_EQ(Call(&host, PF_Arbitrary_FLAT_SIZE_FUNC, &extra), PF_Err_NONE);
  extra.u.flatten_func_params = {nullptr, nullptr, 300, nullptr};
  EXPECT_EQ(Call(&host, PF_Arbitrary_FLATTEN_FUNC, &extra), PF_Err_NONE);
  extra.u.unflatten_func_params = {nullptr, 300, flat, nullptr};
  EXPECT_EQ(Call(&host, PF_Arbitrary_UNFLATTEN_FUNC, &extra), PF_Err_NONE);
  extra.u.interp_func_params = {nullptr, nullptr, nullptr, 0.5, nullptr};
  EXPECT_EQ(Call(&host, PF_Arbitrary_INTERP_FUNC, &extra), PF_Err_NONE);
  extra.u.compare_func_params = {nullptr, nullptr, nullptr, nullptr};
  EXPECT_EQ(Call(&host, PF_Arbitrary_COMPARE_FUNC, &extra), PF_Err_NONE);
  extra.u.print_size_func_params = {nullptr, nullptr, nullptr};
  EXPECT_EQ(Call(&host, PF_Arbitrary_PRINT_SIZE_FUNC, &extra), PF_Err_NONE);
  extra.u.print_func_params = {nullptr, 0, nullptr, 128, nullptr};
  EXPECT_EQ(Call(&host, PF_Arbitrary_PRINT_FUNC, &extra), PF_Err_NONE);
  extra.u.scan_func_params = {nullptr, nullptr, 0, nullptr};
  EXPECT_EQ(Call(&host, PF_Arbitrary_SCAN_FUNC, &extra), PF_Err_NONE);
  extra.u.dispose_func_params = {nullptr, nullptr};
  EXPECT_EQ(Call(&host, PF_Arbitrary_DISPOSE_FUNC, &extra), PF_Err_NONE);
  EXPECT_EQ(host.HandleCount(), 0u);
}

TEST_F(CustomValues, UnknownFunctionsDoNothing) {
  for (const PF_FunctionSelector which : {-1, 11, 12, 1000, INT32_MAX}) {
    PF_ArbParamsExtra extra{};
    std::memset(&extra.u, 0xEE, sizeof(extra.u));
    EXPECT_EQ(Call(&host, which, &extra), PF_Err_NONE);
  }
}

TEST_F(CustomValues, DisposeGivesTheHandleBack) {
  PF_ArbitraryH value = nullptr;
  ASSERT_EQ(New(kScaleCurveTag, &value), PF_Err_NONE);
  PF_ArbParamsExtra extra{};
  extra.u.dispose_func_params = {nullptr, value};
  EXPECT_EQ(Call(&host, PF_Arbitrary_DISPOSE_FUNC, &extra), PF_Err_NONE);
  EXPECT_EQ(host.HandleCount(), 0u);
}

TEST_F(CustomValues, ScanIgnoresItsText) {
  for (const uint32_t tag : kTags) {
    PF_ArbitraryH value = nullptr;
    PF_ArbParamsExtra extra{};
    extra.u.scan_func_params = {TagToRefcon(tag), "0%,12%", 6, &value};
    EXPECT_EQ(Call(&host, PF_Arbitrary_SCAN_FUNC, &extra), PF_Err_NONE);
    EXPECT_EQ(Bytes(Keep(value)), DefaultBytes(tag));
  }
}

}  // namespace
}  // namespace vantle::test
