// One frame's calls: what is put on the device, what comes back and where to, and that each failure is
// silent, leaves the destination as it was and spares the next frame.
#include "tests/render/canvas.h"
#include "tests/windows/graphics/renderer_fixture.h"

namespace vantle::test {
namespace {

/// The parameters, three lists with a view each, the output with its view, and the staging buffer.
constexpr int kCreations = 10;

class FrameCalls : public Renderer {};

TEST_F(FrameCalls, DrawTheRasterisersFloats) {
  for (const bool useTiles : {true, false}) {
    const KernelScene scene = SmallScene();
    const KernelInput input = MakeKernelInput(scene, useTiles);
    EXPECT_EQ(Render(scene, FrameOf(input)), DrawOnProcessor(scene));
    EXPECT_EQ(TheGraphics().live, kLasting) << "nothing of the frame stays";
  }
  EXPECT_EQ(TheGraphics().devices, 1);
  EXPECT_EQ(TheGraphics().creations, 2 * kCreations);
  EXPECT_EQ(TakeDebugTexts(), Texts{kStarted});
}

TEST_F(FrameCalls, PutTheWholeFrameOnTheDevice) {
  const KernelScene scene = SmallScene();
  const KernelInput input = MakeKernelInput(scene, true);
  ASSERT_FALSE(Render(scene, FrameOf(input)).empty());
  const standin::SeenDispatch& seen = TheGraphics().seen;
  EXPECT_EQ(std::memcmp(seen.params, &input.params, sizeof(input.params)), 0);
  EXPECT_EQ(seen.params[10], 0);
  EXPECT_EQ(seen.params[11], 0);
  EXPECT_EQ(seen.groups[0], 5u);
  EXPECT_EQ(seen.groups[1], 3u);
  EXPECT_EQ(seen.particles, scene.particles.size());
  EXPECT_EQ(seen.offsets, 3u * 2u + 1u);
  EXPECT_EQ(seen.indices, input.lists.indices.size());
  EXPECT_EQ(seen.pixels, 70u * 41u);
}

TEST_F(FrameCalls, WithoutParticlesBindOneThatCoversNothing) {
  KernelScene scene = SmallScene();
  scene.particles.clear();
  const KernelInput input = MakeKernelInput(scene, true);
  const std::vector<float> transparent(70 * 41 * 4);
  EXPECT_EQ(Render(scene, FrameOf(input)), transparent);
  EXPECT_EQ(TheGraphics().seen.particles, 1u);
  GpuFrame frame = FrameOf(input);
  frame.particles = nullptr;
  EXPECT_EQ(Render(scene, frame), transparent);
  EXPECT_EQ(TheGraphics().seen.particles, 1u);
}

TEST_F(FrameCalls, WithoutListsBindASingleZero) {
  const KernelScene scene = SmallScene();
  const KernelInput input = MakeKernelInput(scene, false);
  GpuFrame frame = FrameOf(input);
  frame.tileOffsets = nullptr;
  frame.tileIndices = nullptr;
  EXPECT_EQ(Render(scene, frame), DrawOnProcessor(scene));
  EXPECT_EQ(TheGraphics().seen.offsets, 1u);
  EXPECT_EQ(TheGraphics().seen.indices, 1u);
  EXPECT_EQ(TheGraphics().seen.firstIndex, 0);
}

TEST_F(FrameCalls, OffsetsStayAtHomeWhenNoTilesAreUsed) {
  const KernelScene scene = SmallScene();
  const KernelInput input = MakeKernelInput(scene, false);
  EXPECT_FALSE(Render(scene, FrameOf(input)).empty());
  EXPECT_EQ(TheGraphics().seen.offsets, 1u);
  EXPECT_EQ(TheGraphics().seen.indices, input.lists.indices.size());
}

// A list of one is uploaded as a 0, whatever it holds; the tile lists therefore never have just one.
TEST_F(FrameCalls, ASingleIndexBecomesZero) {
  const KernelScene scene = SmallScene();
  const KernelInput input = MakeKernelInput(scene, true);
  const int32_t seven = 7;
  GpuFrame frame = FrameOf(input);
  frame.tileIndices = &seven;
  frame.numTileIndices = 1;
  EXPECT_FALSE(Render(scene, frame).empty());
  EXPECT_EQ(TheGraphics().seen.indices, 1u);
  EXPECT_EQ(TheGraphics().seen.firstIndex, 0);
}

// Of two particles only the second is seen, once.
TEST_F(FrameCalls, AListOfOneParticleDrawsThatParticle) {
  KernelScene scene = SmallScene();
  scene.size = {16, 16};
  scene.particles.resize(2);
  for (ProjectedParticle& p : scene.particles) {
    p = {};
    p.size = 5.0f;
    p.alpha = 1.0f;
    p.sx = p.sy = 8.0f;
  }
  scene.particles[0].sx = -900.0f;
  scene.particles[0].r = 1.0f;
  scene.particles[1].g = 1.0f;
  const KernelInput input = MakeKernelInput(scene, true);
  const std::vector<float> pixels = Render(scene, FrameOf(input));
  ASSERT_EQ(pixels, DrawOnProcessor(scene));
  const float* const middle = pixels.data() + 4 * (8 * 16 + 8);
  EXPECT_EQ(middle[1], 0.0f);
  EXPECT_GT(middle[2], 0.5f);
  EXPECT_EQ(TheGraphics().seen.indices, 2u);
}

TEST_F(FrameCalls, FillRowsOfAnyStrideAndNothingElse) {
  const KernelScene scene = SmallScene();
  const KernelInput input = MakeKernelInput(scene, true);
  const std::vector<float> expected = DrawOnProcessor(scene);
  for (const Layout layout : {Layout{0, 0, false}, Layout{16, 0, false}, Layout{7, 3, false},
                              Layout{0, 0, true}, Layout{21, 1, true}}) {
    // The device's own idea of a row's length means nothing for a buffer.
    for (const std::uint32_t pitch : {0u, 70u * 16u, 4096u}) {
      TheGraphics().rowPitch = pitch;
      const Canvas canvas(scene.size.width, scene.size.height, PixelDepth::k32, layout);
      ASSERT_TRUE(RenderGpu(canvas.image().data, canvas.image().rowBytes, FrameOf(input)));
      const std::vector<std::byte> rows = canvas.Rows();
      ASSERT_EQ(rows.size(), expected.size() * sizeof(float));
      EXPECT_EQ(std::memcmp(rows.data(), expected.data(), rows.size()), 0);
      EXPECT_TRUE(canvas.GuardsIntact());
    }
  }
}

/// The render fails without a word, a mark in the destination or an object left behind.
void ExpectSilentFailure(const char* what, int number) {
  const KernelScene scene = SmallScene();
  const KernelInput input = MakeKernelInput(scene, true);
  const Canvas canvas(scene.size.width, scene.size.height, PixelDepth::k32);
  const std::vector<std::byte> before = canvas.Rows();
  EXPECT_FALSE(RenderGpu(canvas.image().data, canvas.image().rowBytes, FrameOf(input))) << what << number;
  EXPECT_EQ(canvas.Rows(), before) << what << number;
  EXPECT_EQ(TheGraphics().live, kLasting) << what << number;
  EXPECT_TRUE(IsGpuUsable()) << what << number;
  EXPECT_EQ(TakeDebugTexts(), Texts{}) << what << number;
}

void ExpectGoodFrame(const char* what, int number) {
  const KernelScene scene = SmallScene();
  const KernelInput input = MakeKernelInput(scene, true);
  EXPECT_EQ(Render(scene, FrameOf(input)), DrawOnProcessor(scene)) << what << number;
  EXPECT_EQ(TakeDebugTexts(), Texts{}) << what << number;
}

TEST_F(FrameCalls, EachBufferAndEachViewMayFail) {
  ASSERT_TRUE(InitGpu());
  TakeDebugTexts();
  for (int number = 1; number <= kCreations; ++number) {
    const int before = TheGraphics().creations;
    TheGraphics().failCreation = number;
    ExpectSilentFailure("creation ", number);
    EXPECT_EQ(TheGraphics().creations, before + number);
    ExpectGoodFrame("after creation ", number);
  }
  EXPECT_EQ(TheGraphics().dispatches, kCreations);
}

TEST_F(FrameCalls, MappingMayFail) {
  ASSERT_TRUE(InitGpu());
  TakeDebugTexts();
  for (const standin::Result code : {standin::kFail, standin::kOutOfMemory, standin::kDeviceRemoved}) {
    TheGraphics().map = code;
    ExpectSilentFailure("map ", code);
    TheGraphics().map = 0;
    ExpectGoodFrame("after map ", code);
  }
}

TEST_F(FrameCalls, ALostDeviceFailsEveryFrameUntilItIsReleased) {
  ASSERT_TRUE(InitGpu());
  TakeDebugTexts();
  // Lost while it draws: the read-back notices first, then every creation.
  TheGraphics().insideMap = [](void*) { TheGraphics().removed = true; };
  ExpectSilentFailure("lost while drawing ", 0);
  TheGraphics().insideMap = nullptr;
  TheGraphics().removed = false;
  for (int frame = 0; frame < 3; ++frame) ExpectSilentFailure("lost, frame ", frame);
  EXPECT_EQ(TheGraphics().devices, 1);

  ReleaseGpu();
  EXPECT_EQ(TheGraphics().lastDeviceRelease, 0u);
  ASSERT_TRUE(InitGpu());
  EXPECT_EQ(TakeDebugTexts(), Texts{kStarted});
  ExpectGoodFrame("new device ", 0);
}

TEST_F(FrameCalls, SizesThatNoBufferHasAreRefusedUntried) {
  const KernelScene scene = SmallScene();
  const KernelInput input = MakeKernelInput(scene, true);
  std::byte pixel{};
  const auto refused = [&](auto change) {
    GpuFrame frame = FrameOf(input);
    change(&frame);
    return !RenderGpu(&pixel, 16, frame);
  };
  const auto kMost = static_cast<size_t>(kMostViewElements);
  EXPECT_TRUE(refused([](GpuFrame* f) { f->params.g_width = 0; }));
  EXPECT_TRUE(refused([](GpuFrame* f) { f->params.g_height = -1; }));
  EXPECT_TRUE(refused([](GpuFrame* f) { f->params.g_width = f->params.g_height = 11586; }));
  EXPECT_TRUE(refused([](GpuFrame* f) { f->params.g_width = INT32_MAX; }));
  EXPECT_TRUE(refused([](GpuFrame* f) { f->params.g_numParticles = INT32_MAX; }));
  EXPECT_TRUE(refused([](GpuFrame* f) { f->params.g_tilesX = f->params.g_tilesY = 11586; }));
  EXPECT_TRUE(refused([](GpuFrame* f) { f->params.g_tilesX = 0; }));
  EXPECT_TRUE(refused([&](GpuFrame* f) { f->numTileIndices = kMost + 1; }));
  EXPECT_TRUE(refused([&](GpuFrame* f) {
    f->numTileIndices = kMost + 1;
    f->params.g_useTiles = 0;
  }));
  EXPECT_FALSE(RenderGpu(nullptr, 16, FrameOf(input)));
  EXPECT_EQ(TheGraphics().creations, 0);
  EXPECT_EQ(TheGraphics().devices, 0);
  EXPECT_EQ(pixel, std::byte{});
}

}  // namespace
}  // namespace vantle::test
