#include "host/engine/handles.h"

#include <cstring>
#include <gtest/gtest.h>

namespace vantle::host {
namespace {

TEST(Handles, HaveExactSizes) {
  HandlePool pool;
  for (const A_u_longlong size : {0ULL, 1ULL, 140ULL, 268ULL, 100000ULL}) {
    HandleProblem problem;
    const PF_Handle handle = NewHandle(pool, size, HandleOwner::kEffect, nullptr);
    ASSERT_NE(handle, nullptr);
    EXPECT_EQ(HandleSize(pool, handle, problem), size);
    EXPECT_EQ(HandleBytes(pool, handle).size(), size);
    EXPECT_EQ(problem, "");
  }
}

TEST(Handles, GiveTheDataThroughOneDereference) {
  HandlePool pool;
  HandleProblem problem;
  const PF_Handle handle = NewHandleFrom(pool, {1, 2, 3});
  void* data = LockHandle(pool, handle, problem);
  EXPECT_EQ(data, *handle);
  const std::vector<std::uint8_t> expected = {1, 2, 3};
  EXPECT_EQ(HandleBytes(pool, handle), expected);
  EXPECT_EQ(std::memcmp(data, expected.data(), 3), 0);
}

TEST(Handles, AreNotHandedOutForSizesThatNoMachineHas) {
  HandlePool pool;
  EXPECT_EQ(NewHandle(pool, ~0ULL, HandleOwner::kEffect, nullptr), nullptr);
  HandleProblem problem;
  const PF_Handle handle = NewHandleFrom(pool, {5});
  EXPECT_FALSE(ResizeHandle(pool, handle, ~0ULL - 3, problem));
  EXPECT_EQ(HandleBytes(pool, handle), std::vector<std::uint8_t>{5});
}

TEST(Handles, CountLocks) {
  HandlePool pool;
  HandleProblem problem;
  const PF_Handle handle = NewHandleFrom(pool, {1});
  LockHandle(pool, handle, problem);
  LockHandle(pool, handle, problem);
  EXPECT_EQ(HandleLocks(pool, handle), 2);
  UnlockHandle(pool, handle, problem);
  UnlockHandle(pool, handle, problem);
  EXPECT_EQ(problem, "");
  UnlockHandle(pool, handle, problem);
  EXPECT_EQ(problem, "unlocked a handle that was not locked");
  EXPECT_EQ(HandleLocks(pool, handle), 0);
}

TEST(Handles, TellLateUsesFromWildOnes) {
  HandlePool pool;
  const PF_Handle handle = NewHandleFrom(pool, {1});
  HandleProblem problem;
  DisposeHandle(pool, handle, problem);
  ASSERT_EQ(problem, "");
  EXPECT_EQ(LockHandle(pool, handle, problem), nullptr);
  EXPECT_EQ(problem, "locked a handle that was disposed");
  DisposeHandle(pool, handle, problem);
  EXPECT_EQ(problem, "disposed a handle that was disposed");
  void* wild = nullptr;
  EXPECT_EQ(HandleSize(pool, &wild, problem), 0U);
  EXPECT_EQ(problem, "asked the size of a handle that this host never made");
  UnlockHandle(pool, nullptr, problem);
  EXPECT_EQ(problem, "unlocked a null handle");
}

TEST(Handles, NoticeDisposalUnderALock) {
  HandlePool pool;
  HandleProblem problem;
  const PF_Handle handle = NewHandleFrom(pool, {1});
  LockHandle(pool, handle, problem);
  EXPECT_FALSE(ResizeHandle(pool, handle, 4, problem));
  EXPECT_EQ(problem, "resized a handle that was locked");
  DisposeHandle(pool, handle, problem);
  EXPECT_EQ(problem, "disposed a handle that was still locked");
  EXPECT_FALSE(IsLiveHandle(pool, handle));
}

TEST(Handles, NoticeWritesPastTheEndOnce) {
  HandlePool pool;
  HandleProblem problem;
  const PF_Handle handle = NewHandleFrom(pool, {1, 2});
  static_cast<std::uint8_t*>(*handle)[2] = 9;
  UnlockHandle(pool, handle, problem);
  problem.clear();
  HandleSize(pool, handle, problem);
  EXPECT_EQ(problem, "");
  static_cast<std::uint8_t*>(*handle)[33] = 9;
  HandleSize(pool, handle, problem);
  EXPECT_EQ(problem, "wrote past the end of a handle of 2 bytes");
}

TEST(Handles, KeepTheirBytesWhenResized) {
  HandlePool pool;
  HandleProblem problem;
  const PF_Handle handle = NewHandleFrom(pool, {1, 2, 3, 4});
  EXPECT_TRUE(ResizeHandle(pool, handle, 2, problem));
  EXPECT_EQ(HandleBytes(pool, handle), (std::vector<std::uint8_t>{1, 2}));
  EXPECT_TRUE(ResizeHandle(pool, handle, 3, problem));
  EXPECT_EQ(HandleBytes(pool, handle)[1], 2);
  EXPECT_EQ(HandleSize(pool, handle, problem), 3U);
}

TEST(Handles, LeaksBelongToWhoeverMadeThem) {
  HandlePool pool;
  const int mine = 0;
  const int others = 0;
  NewHandle(pool, 12, HandleOwner::kEffect, &mine);
  NewHandle(pool, 13, HandleOwner::kEffect, &others);
  NewHandle(pool, 14, HandleOwner::kHost, &mine);
  const PF_Handle handedOver = NewHandle(pool, 15, HandleOwner::kEffect, &mine);
  HandleProblem problem;
  SetHandleOwner(pool, handedOver, HandleOwner::kHost, nullptr, problem);
  EXPECT_EQ(FindLeaks(pool, &mine), std::vector<std::string>{"handle of 12 bytes never disposed"});
  EXPECT_EQ(FindLeaks(pool, nullptr), std::vector<std::string>{"handle of 13 bytes never disposed"});
  EXPECT_TRUE(FindLeaks(pool, nullptr).empty());
}

TEST(Handles, ForgetOldDisposalsWithoutConfusingThem) {
  HandlePool pool;
  HandleProblem problem;
  for (int i = 0; i < 10000; ++i) {
    DisposeHandle(pool, NewHandle(pool, 8, HandleOwner::kEffect, nullptr), problem);
    ASSERT_EQ(problem, "");
  }
  EXPECT_LE(pool.disposed.size(), 5000U);
  EXPECT_TRUE(pool.live.empty());
}

}  // namespace
}  // namespace vantle::host
