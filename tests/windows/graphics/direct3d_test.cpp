// The whole effect on the system's Direct3D and the real shader compiler.
#include "tests/windows/graphics/debug_text.h"
#include "tests/windows/graphics/device_releases.h"
#include "tests/windows/graphics/graphics_frames.h"
#include "tests/windows/graphics/must_end.h"

#include <algorithm>
#include <atomic>
#include <cstdio>
#include <gtest/gtest.h>
#include <string>
#include <thread>

namespace vantle::host {
namespace {

using test::MustEnd;
using test::TakeDebugTexts;
using Texts = std::vector<std::string>;

constexpr char kStarted[] = "[Vantle GPU] DirectCompute initialized\n";
constexpr float kTolerance = 1e-4f;

class Direct3D : public testing::Test {
 protected:
  static void SetUpTestSuite() { ASSERT_TRUE(test::WatchDeviceReleases()) << "no Direct3D here"; }

  void SetUp() override {
    TakeDebugTexts();
    test::TakeDeviceReleases();
    processor = OpenProcessorOnly();
    shipped = OpenShipped();
  }

  void TearDown() override {
    Close();
    EXPECT_TRUE(CloseEffect(*processor.effect).problems.empty());
  }

  /// The module gives everything back, and said that it drew by Direct3D.
  void Close() {
    if (shipped.effect == nullptr) return;
    for (const std::string& problem : CloseEffect(*shipped.effect).problems) ADD_FAILURE() << problem;
    shipped.effect.reset();
    EXPECT_EQ(TakeDebugTexts(), Texts{kStarted});
    const test::DeviceReleases releases = test::TakeDeviceReleases();
    EXPECT_EQ(releases.ended, 2) << "the probe's, and the one that drew";
    EXPECT_EQ(releases.latest, 0u) << "references left on the device";
  }

  FrameRequest Frame(int number) const { return ParticlesAlone(*processor.effect, number); }

  /// The module's floats for a frame.
  World Floats(const FrameRequest& request) { return Rendered(*shipped.effect, InFloats(request)); }

  OpenedEffect processor;
  OpenedEffect shipped;
};

TEST_F(Direct3D, DrawsTheProcessorsFloats) {
  PictureDifference worst;
  for (const int number : GraphicsNumbers()) {
    const FrameRequest request = InFloats(Frame(number));
    const PictureDifference difference =
        CompareFloats(Rendered(*processor.effect, request), Rendered(*shipped.effect, request));
    EXPECT_LE(difference.largest, kTolerance) << number;
    EXPECT_EQ(difference.drawnByOne, 0) << number;
    EXPECT_GT(difference.drawn, 100) << number;
    worst.largest = std::max(worst.largest, difference.largest);
    worst.drawn += difference.drawn;
  }
  std::printf("%zu frames through the effect, %d pixels drawn, largest difference %.2g\n",
              GraphicsNumbers().size(), worst.drawn, static_cast<double>(worst.largest));
}

TEST_F(Direct3D, QuantisesTheFloatsOnce) {
  int integers = 0;
  int unlike = 0;
  for (const int number : GraphicsNumbers()) {
    const FrameRequest request = Frame(number);
    if (request.depth == 32) continue;
    const std::vector<std::uint8_t> pixels = PixelsOf(Rendered(*shipped.effect, request));
    EXPECT_EQ(pixels, PixelsOf(Quantised(Floats(request), request.depth))) << number;
    ++integers;
    unlike += pixels != PixelsOf(Rendered(*processor.effect, request)) ? 1 : 0;
  }
  // The processor quantises after every particle, which shows wherever particles overlap.
  EXPECT_EQ(unlike, integers);
  EXPECT_GT(integers, 20);
}

TEST_F(Direct3D, FillsRowsOfEveryLayout) {
  for (const int number : {0, 2, 4}) {
    const FrameRequest request = Frame(number);
    const std::vector<std::uint8_t> expected = PixelsOf(Rendered(*shipped.effect, request));
    for (const RowLayout rows : {RowLayout::kTight, RowLayout::kOddPadding, RowLayout::kNegative,
                                 RowLayout::kPixelAligned, RowLayout::kByteAligned}) {
      shipped.effect->options.rows = rows;
      shipped.effect->options.soilOutput = true;
      EXPECT_EQ(PixelsOf(Rendered(*shipped.effect, request)), expected)
          << "frame " << number << ", layout " << static_cast<int>(rows);
    }
    shipped.effect->options = {};
  }
}

TEST_F(Direct3D, EightThreadsGiveTheFramesOfOne) {
  constexpr size_t kThreads = 8;
  std::vector<FrameRequest> requests;
  std::vector<std::vector<std::uint8_t>> alone;
  const std::vector<int> numbers = GraphicsNumbers();
  for (size_t t = 0; t < kThreads; ++t) {
    requests.push_back(Frame(numbers[5 * t]));
    alone.push_back(PixelsOf(Rendered(*shipped.effect, requests[t])));
  }
  MustEnd([&] {
    std::vector<std::thread> threads;
    for (size_t t = 0; t < kThreads; ++t) {
      threads.emplace_back([&, t] {
        for (size_t round = 0; round < 5; ++round) {
          const size_t i = (t + round) % kThreads;
          EXPECT_EQ(PixelsOf(Rendered(*shipped.effect, requests[i])), alone[i]) << i;
        }
      });
    }
    for (std::thread& thread : threads) thread.join();
  });
}

TEST_F(Direct3D, StartsAfreshAfterASetDown) {
  const FrameRequest request = Frame(0);
  const std::vector<std::uint8_t> first = PixelsOf(Rendered(*shipped.effect, request));
  for (int round = 0; round < 3; ++round) {
    Close();
    shipped = OpenShipped();
    EXPECT_EQ(PixelsOf(Rendered(*shipped.effect, request)), first);
  }
}

// Against all rules; some frames may be drawn by a second device, and none by half a one.
TEST_F(Direct3D, SetDownsWhileFramesRenderAreSurvived) {
  FrameRequest request = Frame(0);
  request.camera.reset();  // its streams are not shown to an effect that was set down
  const std::vector<std::uint8_t> expected = PixelsOf(Rendered(*shipped.effect, request));
  std::atomic<bool> done{false};
  MustEnd([&] {
    std::thread host([&] {
      while (!done) EXPECT_EQ(SendCommand(*shipped.effect, PF_Cmd_GLOBAL_SETDOWN).error, PF_Err_NONE);
    });
    std::vector<std::thread> threads;
    for (int t = 0; t < 3; ++t) {
      threads.emplace_back([&] {
        for (int round = 0; round < 4; ++round)
          EXPECT_EQ(PixelsOf(Rendered(*shipped.effect, request)), expected);
      });
    }
    for (std::thread& thread : threads) thread.join();
    done = true;
    host.join();
  });

  // Whatever was made meanwhile is gone, and the next frame begins like the first.
  EXPECT_EQ(SendCommand(*shipped.effect, PF_Cmd_GLOBAL_SETDOWN).error, PF_Err_NONE);
  EXPECT_EQ(test::TakeDeviceReleases().latest, 0u);
  TakeDebugTexts();
  EXPECT_EQ(PixelsOf(Rendered(*shipped.effect, request)), expected);
}

}  // namespace
}  // namespace vantle::host
