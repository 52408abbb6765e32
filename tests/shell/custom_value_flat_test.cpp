// The form that projects store: sizes, flattening and restoring.
#include "tests/shell/custom_value_fixture.h"

#include <cstring>
#include <gtest/gtest.h>
#include <random>
#include <utility>
#include <vector>

namespace vantle::test {
namespace {

TEST_F(CustomValues, FlatSizeFollowsTheHandle) {
  const char bytes[300] = {};
  const std::pair<size_t, A_u_long> cases[] = {{140, 140}, {268, 268}, {139, 268},
                                               {141, 268}, {0, 268},   {300, 268}};
  for (const auto& [size, expected] : cases) {
    A_u_long flat = 0;
    PF_ArbParamsExtra extra{};
    extra.u.flat_size_func_params = {nullptr, Keep(host.NewHandle(bytes, size)), &flat};
    EXPECT_EQ(Call(&host, PF_Arbitrary_FLAT_SIZE_FUNC, &extra), PF_Err_NONE);
    EXPECT_EQ(flat, expected);
  }
  A_u_long flat = 0;
  PF_ArbParamsExtra extra{};
  extra.u.flat_size_func_params = {TagToRefcon(kGradientTag), nullptr, &flat};
  EXPECT_EQ(Call(&host, PF_Arbitrary_FLAT_SIZE_FUNC, &extra), PF_Err_NONE);
  EXPECT_EQ(flat, 268u);
}

TEST_F(CustomValues, FlattenWritesTheRecordOrNothing) {
  std::mt19937 random(3);
  const ColorGradient gradient = RandomGradient(&random);
  const PF_Handle value = Keep(HandleOf(&host, gradient));
  for (const A_u_long size : {0u, 1u, 139u, 140u, 141u, 268u}) {
    std::vector<char> flat(size, '#');
    PF_ArbParamsExtra extra{};
    extra.u.flatten_func_params = {nullptr, value, size, flat.data()};
    EXPECT_EQ(Call(&host, PF_Arbitrary_FLATTEN_FUNC, &extra), PF_Err_NONE);
    std::vector<char> expected(size, '#');
    if (size >= 140) std::memcpy(expected.data(), &gradient, sizeof(gradient));
    EXPECT_EQ(flat, expected);
  }
  EXPECT_EQ(host.Imbalance(), "");
}

TEST_F(CustomValues, FlattenOfNoneOrOfTooLittleOrUnlockableWritesNothing) {
  const char bytes[200] = {};
  const PF_Handle odd = Keep(host.NewHandle(bytes, sizeof(bytes)));
  const PF_Handle good = Keep(host.NewHandle(bytes, 140));
  const std::vector<char> untouched(268, '#');
  const PF_Handle values[] = {nullptr, odd, good};
  for (const PF_Handle value : values) {
    host.lockCalls = 0;
    host.failLockAt = value == good ? 1 : 0;
    std::vector<char> flat = untouched;
    PF_ArbParamsExtra extra{};
    extra.u.flatten_func_params = {nullptr, value, 268, flat.data()};
    EXPECT_EQ(Call(&host, PF_Arbitrary_FLATTEN_FUNC, &extra), PF_Err_NONE);
    EXPECT_EQ(flat, untouched);
  }
}

TEST_F(CustomValues, UnflattenTellsTheKindsApartByLength) {
  std::vector<char> bytes(600);
  for (size_t i = 0; i < bytes.size(); ++i) bytes[i] = static_cast<char>(i);
  for (A_u_long size = 0; size <= 600; ++size) {
    const std::vector<char> flat(bytes.begin(), bytes.begin() + static_cast<std::ptrdiff_t>(size));
    PF_ArbitraryH value = nullptr;
    EXPECT_EQ(Unflatten(flat.data(), size, &value), PF_Err_NONE);
    const size_t expected = size == 140 ? 140 : size >= 268 ? 268 : 0;
    if (expected == 0) {
      EXPECT_EQ(value, nullptr) << size;
      continue;
    }
    ASSERT_NE(Keep(value), nullptr) << size;
    EXPECT_EQ(Bytes(value),
              std::vector<char>(bytes.begin(), bytes.begin() + static_cast<std::ptrdiff_t>(expected)));
  }
  EXPECT_EQ(host.Imbalance(), "");
}

TEST_F(CustomValues, UnflattenWithoutMemoryOrBytesRestoresNothingSilently) {
  const char bytes[268] = {};
  PF_ArbitraryH value = nullptr;
  host.failHandleAt = 1;
  EXPECT_EQ(Unflatten(bytes, 268, &value), PF_Err_NONE);
  EXPECT_EQ(value, nullptr);
  host.failLockAt = 1;
  EXPECT_EQ(Unflatten(bytes, 268, &value), PF_Err_NONE);
  EXPECT_EQ(value, nullptr);
  EXPECT_EQ(Unflatten(nullptr, 268, &value), PF_Err_NONE);
  EXPECT_EQ(value, nullptr);
}

TEST_F(CustomValues, FlattenAndUnflattenRoundTripAnything) {
  std::mt19937 random(4);
  for (int round = 0; round < 50; ++round) {
    std::vector<char> bytes(round % 2 == 0 ? 140 : 268);
    for (char& byte : bytes) byte = static_cast<char>(random());
    const PF_Handle value = Keep(host.NewHandle(bytes.data(), bytes.size()));
    std::vector<char> flat(bytes.size());
    PF_ArbParamsExtra extra{};
    extra.u.flatten_func_params = {nullptr, value, static_cast<A_u_long>(flat.size()), flat.data()};
    EXPECT_EQ(Call(&host, PF_Arbitrary_FLATTEN_FUNC, &extra), PF_Err_NONE);
    PF_ArbitraryH back = nullptr;
    EXPECT_EQ(Unflatten(flat.data(), static_cast<A_u_long>(flat.size()), &back), PF_Err_NONE);
    EXPECT_EQ(Bytes(Keep(back)), bytes);
    EXPECT_EQ(Compare(value, back), PF_ArbCompare_EQUAL);
  }
}

}  // namespace
}  // namespace vantle::test
