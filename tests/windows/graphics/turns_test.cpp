// Several renders on one device, renders inside renders, and a host that sets down too early.
#include "tests/windows/graphics/must_end.h"
#include "tests/windows/graphics/road_fixture.h"

#include <atomic>
#include <chrono>
#include <future>
#include <thread>

namespace vantle::host {
namespace {

using namespace std::chrono_literals;
using test::MustEnd;

class Turns : public Road {
 protected:
  /// Frames of all depths and what the graphics path makes of them. Without cameras, whose streams an effect
  /// that was set down is not shown any more.
  void Prepare(size_t count) {
    const std::vector<int> numbers = GraphicsNumbers();
    for (size_t i = 0; i < count; ++i) {
      requests.push_back(Frame(numbers[i * 5 % numbers.size()]));
      requests.back().camera.reset();
      expected.push_back(GraphicsPixels(*processor.effect, requests.back()));
    }
  }

  std::vector<FrameRequest> requests;
  std::vector<std::vector<std::uint8_t>> expected;
};

TEST_F(Turns, EightThreadsGiveTheFramesOfOne) {
  constexpr size_t kThreads = 8;
  constexpr int kRounds = 6;
  Prepare(kThreads);
  for (size_t i = 0; i < kThreads; ++i)
    EXPECT_EQ(PixelsOf(Rendered(*shipped.effect, requests[i])), expected[i]) << i;
  MustEnd([&] {
    std::vector<std::thread> threads;
    for (size_t t = 0; t < kThreads; ++t) {
      threads.emplace_back([&, t] {
        for (size_t round = 0; round < kRounds; ++round) {
          const size_t i = (t + round) % kThreads;
          EXPECT_EQ(PixelsOf(Rendered(*shipped.effect, requests[i])), expected[i]) << i;
        }
      });
    }
    for (std::thread& thread : threads) thread.join();
  });
  EXPECT_EQ(TheGraphics().dispatches, static_cast<int>(kThreads) * (kRounds + 1));
  EXPECT_EQ(TakeDebugTexts(), Texts{kStarted});
}

// All are there before the first has a device: one of them starts it.
TEST_F(Turns, EightThreadsStartOnce) {
  constexpr size_t kThreads = 8;
  Prepare(kThreads);
  std::atomic<size_t> waiting{0};
  MustEnd([&] {
    std::vector<std::thread> threads;
    for (size_t t = 0; t < kThreads; ++t) {
      threads.emplace_back([&, t] {
        ++waiting;
        while (waiting < kThreads) std::this_thread::yield();
        EXPECT_EQ(PixelsOf(Rendered(*shipped.effect, requests[t])), expected[t]) << t;
      });
    }
    for (std::thread& thread : threads) thread.join();
  });
  EXPECT_EQ(TheGraphics().shaders, 1);
  EXPECT_EQ(TheCompiler().compilations, 1);
  EXPECT_EQ(TakeDebugTexts(), Texts{kStarted});
}

// Hosts render other frames of the same effect while they answer a checkout, on the same thread or another.
// A lock held across the checkout would never be given up.
TEST_F(Turns, CheckoutsMayRenderOtherFrames) {
  Prepare(2);
  int nested = 0;
  FrameRequest outer = requests[0];
  outer.values[8] = A_long{1};  // with solid layers, which are checked out after the particles are drawn
  const std::vector<std::uint8_t> alone = PixelsOf(Rendered(*shipped.effect, outer));
  outer.faults.emplace().insideCheckout = [&] {
    EXPECT_EQ(PixelsOf(Rendered(*shipped.effect, requests[1])), expected[1]);
    std::thread([&] { EXPECT_EQ(PixelsOf(Rendered(*shipped.effect, requests[0])), expected[0]); }).join();
    ++nested;
  };
  MustEnd([&] { EXPECT_EQ(PixelsOf(Rendered(*shipped.effect, outer)), alone); });
  EXPECT_GE(nested, 2);
  EXPECT_EQ(TheGraphics().dispatches, 2 + 2 * nested);
}

// Against all rules, in the middle of a frame.
TEST_F(Turns, ASetDownInsideACheckoutIsSurvived) {
  Prepare(1);
  EXPECT_EQ(PixelsOf(Rendered(*shipped.effect, requests[0])), expected[0]);
  FrameRequest outer = requests[0];
  outer.faults.emplace().insideCheckout = [&] {
    EXPECT_EQ(SendCommand(*shipped.effect, PF_Cmd_GLOBAL_SETDOWN).error, PF_Err_NONE);
    EXPECT_EQ(TheGraphics().live, 0);
  };
  MustEnd([&] { EXPECT_EQ(PixelsOf(Rendered(*shipped.effect, outer)), expected[0]); });
}

struct Meeting {
  std::promise<void> drawing;
  std::shared_future<void> goOn;
};

// The set-down waits for the frame that is being drawn, which then is a whole one.
TEST_F(Turns, ASetDownWaitsForTheFrameOnTheDevice) {
  Prepare(1);
  Meeting meeting;
  std::promise<void> goOn;
  meeting.goOn = goOn.get_future().share();
  TheGraphics().insideMapContext = &meeting;
  TheGraphics().insideMap = [](void* context) {
    static_cast<Meeting*>(context)->drawing.set_value();
    static_cast<Meeting*>(context)->goOn.wait();
  };
  MustEnd([&] {
    std::thread render([&] { EXPECT_EQ(PixelsOf(Rendered(*shipped.effect, requests[0])), expected[0]); });
    meeting.drawing.get_future().wait();
    std::future<PF_Err> setDown = std::async(
        std::launch::async, [&] { return SendCommand(*shipped.effect, PF_Cmd_GLOBAL_SETDOWN).error; });
    EXPECT_EQ(setDown.wait_for(200ms), std::future_status::timeout);
    EXPECT_GT(TheGraphics().live, 0);
    goOn.set_value();
    render.join();
    EXPECT_EQ(setDown.get(), PF_Err_NONE);
  });
  EXPECT_EQ(TheGraphics().live, 0);
  EXPECT_EQ(TheGraphics().lastDeviceRelease, 0u);
  TheGraphics().insideMap = nullptr;
  ExpectGraphics(requests[0]);
}

TEST_F(Turns, SetDownsAndSetUpsWhileFramesRender) {
  constexpr size_t kThreads = 4;
  Prepare(kThreads);
  std::atomic<bool> done{false};
  std::atomic<int> rounds{0};
  MustEnd([&] {
    std::thread host([&] {
      while (!done) {
        EXPECT_EQ(SendCommand(*shipped.effect, PF_Cmd_GLOBAL_SETDOWN).error, PF_Err_NONE);
        EXPECT_EQ(SendCommand(*shipped.effect, PF_Cmd_GLOBAL_SETUP).error, PF_Err_NONE);
        ++rounds;
        std::this_thread::sleep_for(1ms);
      }
    });
    std::vector<std::thread> threads;
    for (size_t t = 0; t < kThreads; ++t) {
      threads.emplace_back([&, t] {
        for (int round = 0; round < 12; ++round)
          EXPECT_EQ(PixelsOf(Rendered(*shipped.effect, requests[t])), expected[t]) << t;
      });
    }
    for (std::thread& thread : threads) thread.join();
    done = true;
    host.join();
  });
  EXPECT_GT(rounds.load(), 3);
  EXPECT_GT(TheGraphics().shaders, 1) << "it was set down in between";
}

}  // namespace
}  // namespace vantle::host
