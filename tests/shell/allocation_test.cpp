// Frames for which memory runs out at every possible moment.
#include "base/parallel.h"
#include "tests/shell/scene.h"

#include <atomic>
#include <cstdlib>
#include <gtest/gtest.h>
#include <new>

namespace {

std::atomic<bool> armed{false};
std::atomic<int> failAt{0};
std::atomic<int> count{0};
std::atomic<int> inParallel{0};

// Counts an allocation of a frame, and says whether it is the one to fail.
bool MustFail() {
  if (!armed || vantle::test::InsideHost()) return false;
#ifndef VANTLE_STD_THREADS
  if (omp_in_parallel() != 0) ++inParallel;
#endif
  return ++count == failAt;
}

void* Allocate(std::size_t size) {
  void* block = MustFail() ? nullptr : std::malloc(size > 0 ? size : 1);
  if (block == nullptr) throw std::bad_alloc();
  return block;
}

void* AllocateAligned(std::size_t size, std::size_t alignment) {
  const std::size_t whole = (size + alignment - 1) / alignment * alignment;
  void* block = MustFail() ? nullptr : std::aligned_alloc(alignment, whole > 0 ? whole : alignment);
  if (block == nullptr) throw std::bad_alloc();
  return block;
}

}  // namespace

void* operator new(std::size_t size) {
  return Allocate(size);
}
void* operator new[](std::size_t size) {
  return Allocate(size);
}
void* operator new(std::size_t size, std::align_val_t alignment) {
  return AllocateAligned(size, static_cast<std::size_t>(alignment));
}
void* operator new[](std::size_t size, std::align_val_t alignment) {
  return AllocateAligned(size, static_cast<std::size_t>(alignment));
}
void operator delete(void* block) noexcept {
  std::free(block);
}
void operator delete[](void* block) noexcept {
  std::free(block);
}
void operator delete(void* block, std::size_t) noexcept {
  std::free(block);
}
void operator delete[](void* block, std::size_t) noexcept {
  std::free(block);
}
void operator delete(void* block, std::align_val_t) noexcept {
  std::free(block);
}
void operator delete[](void* block, std::align_val_t) noexcept {
  std::free(block);
}
void operator delete(void* block, std::size_t, std::align_val_t) noexcept {
  std::free(block);
}
void operator delete[](void* block, std::size_t, std::align_val_t) noexcept {
  std::free(block);
}

namespace vantle::test {
namespace {

PF_Err RenderFailingAt(Scene* scene, int n) {
  failAt = n;
  count = 0;
  armed = true;
  const PF_Err error = scene->Render();
  armed = false;
  return error;
}

class Allocations : public ::testing::TestWithParam<int32_t> {};

TEST_P(Allocations, EachFailingOneIsReportedWithEverythingCheckedIn) {
#ifdef VANTLE_STD_THREADS
  GTEST_SKIP() << "threads that are started for every loop allocate for themselves";
#endif
  inParallel = 0;
  Scene scene;
  // Enough particles for every loop to be split.
  scene.host.Value(kParamDensity).u.fs_d.value = 20000;
  scene.host.Value(kParamShape).u.pd.value = GetParam();
  ASSERT_EQ(RenderFailingAt(&scene, 0), PF_Err_NONE);
  const std::vector<std::byte> expected = scene.output.Pixels();
  const int allocations = count;
  EXPECT_GT(allocations, 0);
  for (int n = 1; n <= allocations; ++n) {
    scene.host.events.clear();
    EXPECT_EQ(RenderFailingAt(&scene, n), PF_Err_INTERNAL_STRUCT_DAMAGED) << n << " of " << allocations;
    EXPECT_EQ(scene.host.Imbalance(), "") << n;
    EXPECT_TRUE(scene.output.GuardsIntact()) << n;
  }
  EXPECT_EQ(inParallel, 0) << "an allocation that fails in a parallel region ends the process";
  ASSERT_EQ(RenderFailingAt(&scene, 0), PF_Err_NONE);
  EXPECT_TRUE(SameBytes(scene.output.Pixels(), expected));
}

// Soft circles, and both kinds of trail.
INSTANTIATE_TEST_SUITE_P(Shapes, Allocations, ::testing::Values(2, 6, 8));

}  // namespace
}  // namespace vantle::test
