// How much memory a frame takes beside the worlds, which are the host's: an editor renders many frames at
// once, next to much else.
#include "tests/shell/scene.h"

#include <atomic>
#include <cstdlib>
#include <gtest/gtest.h>
#include <malloc.h>
#include <new>

namespace {

std::atomic<bool> armed{false};
std::atomic<int64_t> held{0};
std::atomic<int64_t> peak{0};

int64_t SizeOf(void* block) {
  return static_cast<int64_t>(malloc_usable_size(block));
}

void* Counted(void* block) {
  if (block == nullptr) throw std::bad_alloc();
  if (!armed || vantle::test::InsideHost()) return block;
  const int64_t now = held += SizeOf(block);
  int64_t before = peak;
  while (now > before && !peak.compare_exchange_weak(before, now)) {
  }
  return block;
}

void Release(void* block) {
  if (block != nullptr && armed && !vantle::test::InsideHost()) held -= SizeOf(block);
  std::free(block);
}

void* AllocateAligned(std::size_t size, std::align_val_t alignment) {
  const std::size_t unit = static_cast<std::size_t>(alignment);
  const std::size_t whole = (size + unit - 1) / unit * unit;
  return Counted(std::aligned_alloc(unit, whole > 0 ? whole : unit));
}

}  // namespace

void* operator new(std::size_t size) {
  return Counted(std::malloc(size > 0 ? size : 1));
}
void* operator new[](std::size_t size) {
  return Counted(std::malloc(size > 0 ? size : 1));
}
void* operator new(std::size_t size, std::align_val_t alignment) {
  return AllocateAligned(size, alignment);
}
void* operator new[](std::size_t size, std::align_val_t alignment) {
  return AllocateAligned(size, alignment);
}
void operator delete(void* block) noexcept {
  Release(block);
}
void operator delete[](void* block) noexcept {
  Release(block);
}
void operator delete(void* block, std::size_t) noexcept {
  Release(block);
}
void operator delete[](void* block, std::size_t) noexcept {
  Release(block);
}
void operator delete(void* block, std::align_val_t) noexcept {
  Release(block);
}
void operator delete[](void* block, std::align_val_t) noexcept {
  Release(block);
}
void operator delete(void* block, std::size_t, std::align_val_t) noexcept {
  Release(block);
}
void operator delete[](void* block, std::size_t, std::align_val_t) noexcept {
  Release(block);
}

namespace vantle::test {
namespace {

struct FrameMemory {
  double peakMegabytes;
  int64_t leftBytes;
};

FrameMemory MemoryOfFrame(Scene* scene) {
  held = peak = 0;
  armed = true;
  const PF_Err error = scene->Render();
  armed = false;
  EXPECT_EQ(error, PF_Err_NONE);
  return {static_cast<double>(peak) / 1e6, held};
}

/// Two layers and an output of full size, and the effect's defaults half-way between the layers.
struct FullScene {
  explicit FullScene(PixelDepth depth) {
    scene.host.depth = depth;
    scene.a = Picture(depth, 1920, 1080, 0.2f);
    scene.b = Picture(depth, 1920, 1080, 0.7f);
    scene.output = FakeWorld(depth, 1920, 1080);
    Set(kParamScatter, 0);
    Set(kParamTurbulenceAmount, 0);
    Set(kParamTransform, 50);
    Set(kParamDensity, 20000);
  }
  void Set(ParamId id, double value) { scene.host.Value(id).u.fs_d.value = value; }
  void Choose(ParamId id, A_long choice) { scene.host.Value(id).u.pd.value = choice; }
  void MakeHeavy() {
    Set(kParamDensity, 200000);
    Set(kParamSize, 10);
    Set(kParamTurbulenceAmount, 10);
    Choose(kParamShape, 1);
  }

  Scene scene;
};

class FrameMemoryAtDepth : public ::testing::TestWithParam<PixelDepth> {
 protected:
  void Expect(const char* name, FullScene* frame, double limit) {
    const FrameMemory memory = MemoryOfFrame(&frame->scene);
    EXPECT_TRUE(IsDrawn(frame->scene.output.Pixels()));
    EXPECT_LT(memory.peakMegabytes, limit);
    EXPECT_EQ(memory.leftBytes, 0);
    RecordProperty(name, std::to_string(memory.peakMegabytes));
  }
};

TEST_P(FrameMemoryAtDepth, DefaultFrameStaysUnder64Megabytes) {
  FullScene frame(GetParam());
  Expect("default", &frame, 64.0);
}

TEST_P(FrameMemoryAtDepth, HeavyFrameStaysUnder96Megabytes) {
  FullScene frame(GetParam());
  frame.MakeHeavy();
  Expect("heavy", &frame, 96.0);
}

TEST_P(FrameMemoryAtDepth, TwoHundredThousandTrailsStayUnder128Megabytes) {
  constexpr A_long kCurveLine = 6;
  FullScene frame(GetParam());
  frame.MakeHeavy();
  frame.Choose(kParamShape, kCurveLine);
  frame.Set(kParamSize, 2);
  Expect("trails", &frame, 128.0);
}

INSTANTIATE_TEST_SUITE_P(Depths, FrameMemoryAtDepth, ::testing::Values(PixelDepth::k8, PixelDepth::k32));

/// All shapes but sprites, whose pictures are the host's.
TEST(FrameMemory, DoesNotGrowOverAThousandFrames) {
  Scene scene;
  constexpr int kFrames = 1000;
  double first = 0.0;
  for (int i = 0; i < kFrames; ++i) {
    scene.host.Value(kParamShape).u.pd.value = 1 + i % 8;
    scene.host.events.clear();
    const FrameMemory memory = MemoryOfFrame(&scene);
    ASSERT_EQ(memory.leftBytes, 0) << "frame " << i;
    if (i < 8) first = std::max(first, memory.peakMegabytes);
    ASSERT_LE(memory.peakMegabytes, first + 0.01) << "frame " << i;
  }
}

}  // namespace
}  // namespace vantle::test
