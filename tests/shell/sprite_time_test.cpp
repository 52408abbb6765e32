// Which moment of the custom layer a particle shows, and how the frames are borrowed.

#include "shell/sprite_frames.h"
#include "tests/shell/fake_host.h"

#include <gtest/gtest.h>
#include <immintrin.h>
#include <optional>
#include <string>
#include <vector>

namespace vantle::test {
namespace {

/// The settings' numbers of the popup's choices.
enum TimeNumber : int32_t {
  kCurrent = 1,
  kPlayOnce = 3,
  kLoop = 4,
  kStretch = 5,
  kStill = 6,
  kRandomPlayOnce = 7,
  kRandomLoop = 8
};

struct Clock {
  A_long current = 0;
  A_long step = 0;
  A_u_long scale = 24;
};

/// The time of a sprite of 100 ticks; nothing for a hidden one.
std::optional<A_long> TimeAt(int32_t type, const Clock& clock, float random = 0.0f, A_long duration = 100) {
  PF_InData in{};
  in.current_time = clock.current;
  in.time_step = clock.step;
  in.time_scale = clock.scale;
  FrameSettings settings{};
  settings.timeType = type;
  if (clock.scale != 0) {
    settings.timeSeconds = static_cast<float>(clock.current) / static_cast<float>(clock.scale);
  }
  A_long time = -12345;
  if (!SpriteTime(settings, in, duration, random, &time)) return std::nullopt;
  return time;
}

TEST(SpriteTime, CurrentIsTheFramesOwn) {
  for (const A_long current : {0, 7, 99, 100, 5000, -1, -5000}) {
    EXPECT_EQ(TimeAt(kCurrent, {current}, 0.7f), current);
  }
}

TEST(SpriteTime, NumbersWithoutAChoiceAreTheCurrentTime) {
  for (const int32_t type : {0, 2, 9, -1}) EXPECT_EQ(TimeAt(type, {123}), 123);
}

TEST(SpriteTime, PlayOnceRunsFromZeroToTheLastTick) {
  EXPECT_EQ(TimeAt(kPlayOnce, {0}), 0);
  EXPECT_EQ(TimeAt(kPlayOnce, {99}), 99);
  EXPECT_EQ(TimeAt(kPlayOnce, {100}), std::nullopt);
  EXPECT_EQ(TimeAt(kPlayOnce, {-1}), std::nullopt);
}

TEST(SpriteTime, LoopWrapsForwardsAndBackwards) {
  EXPECT_EQ(TimeAt(kLoop, {99}), 99);
  EXPECT_EQ(TimeAt(kLoop, {100}), 0);
  EXPECT_EQ(TimeAt(kLoop, {250}), 50);
  EXPECT_EQ(TimeAt(kLoop, {-1}), 99);
  EXPECT_EQ(TimeAt(kLoop, {-100}), 0);
  EXPECT_EQ(TimeAt(kLoop, {-101}), 99);
}

TEST(SpriteTime, StretchSpansTheFirstSecond) {
  EXPECT_EQ(TimeAt(kStretch, {0}), 0);
  EXPECT_EQ(TimeAt(kStretch, {6}), 24) << "99 quarters, truncated";
  EXPECT_EQ(TimeAt(kStretch, {12}), 49);
  EXPECT_EQ(TimeAt(kStretch, {24}), 99);
  EXPECT_EQ(TimeAt(kStretch, {240}), 99);
  EXPECT_EQ(TimeAt(kStretch, {-6}), 0);
}

TEST(SpriteTime, StillsAreSharesOfTheLastTick) {
  for (const A_long current : {0, 17, -400}) {
    EXPECT_EQ(TimeAt(kStill, {current}, 0.0f), 0);
    EXPECT_EQ(TimeAt(kStill, {current}, 0.5f), 49);
    EXPECT_EQ(TimeAt(kStill, {current}, 0.999f), 98);
    EXPECT_EQ(TimeAt(kStill, {current}, 1.0f), 99);
  }
}

TEST(SpriteTime, RandomPlayOnceStartsInTheMiddleAndEnds) {
  EXPECT_EQ(TimeAt(kRandomPlayOnce, {0}, 0.5f), 50);
  EXPECT_EQ(TimeAt(kRandomPlayOnce, {49}, 0.5f), 99);
  EXPECT_EQ(TimeAt(kRandomPlayOnce, {50}, 0.5f), std::nullopt);
  EXPECT_EQ(TimeAt(kRandomPlayOnce, {0}, 1.0f), std::nullopt) << "its start is its end";
  EXPECT_EQ(TimeAt(kRandomPlayOnce, {-10}, 0.25f), 15);
  EXPECT_EQ(TimeAt(kRandomPlayOnce, {-1000}, 0.25f), 0) << "before its start it waits at it";
}

TEST(SpriteTime, RandomLoopStartsInTheMiddleAndWraps) {
  EXPECT_EQ(TimeAt(kRandomLoop, {0}, 0.5f), 50);
  EXPECT_EQ(TimeAt(kRandomLoop, {60}, 0.5f), 10);
  EXPECT_EQ(TimeAt(kRandomLoop, {0}, 1.0f), 0);
  EXPECT_EQ(TimeAt(kRandomLoop, {-60}, 0.5f), 90);
}

TEST(SpriteTime, SnapsDownAfterWrappingAndTesting) {
  EXPECT_EQ(TimeAt(kLoop, {107, 5}), 5);
  EXPECT_EQ(TimeAt(kPlayOnce, {99, 30}), 90);
  EXPECT_EQ(TimeAt(kPlayOnce, {100, 30}), std::nullopt) << "snapped first, it would still be shown";
  EXPECT_EQ(TimeAt(kLoop, {-1, 30}), 90) << "snapped first, it would be 70";
  EXPECT_EQ(TimeAt(kStill, {0, 7}, 1.0f), 98);
  EXPECT_EQ(TimeAt(kCurrent, {123, 10}), 120);
  EXPECT_EQ(TimeAt(kCurrent, {-3, 10}), -10) << "down, not towards zero";
  EXPECT_EQ(TimeAt(kCurrent, {-20, 10}), -20);
}

TEST(SpriteTime, DoesNotSnapWithoutAStep) {
  EXPECT_EQ(TimeAt(kLoop, {107, 0}), 7);
  EXPECT_EQ(TimeAt(kLoop, {107, -5}), 7);
}

TEST(SpriteTime, TheAgeIsTheClockItselfOnEveryFrame) {
  // In single precision 24000 / 1001 seconds times the scale falls a tick short on some frames.
  for (A_long frame = 0; frame < 5000; ++frame) {
    const Clock clock{frame * 1001, 1001, 24000};
    EXPECT_EQ(TimeAt(kPlayOnce, clock, 0.0f, 10000000), frame * 1001);
  }
}

TEST(SpriteTime, WithoutAClockEverythingIsJustBorn) {
  EXPECT_EQ(TimeAt(kPlayOnce, {500, 1, 0}), 0);
  EXPECT_EQ(TimeAt(kLoop, {555, 1, 0}), 0);
  EXPECT_EQ(TimeAt(kStretch, {500, 1, 0}), 0);
  EXPECT_EQ(TimeAt(kRandomLoop, {555, 1, 0}, 0.5f), 50);
}

TEST(SpriteTime, OfASpriteOfOneTickIsZero) {
  for (const int32_t type : {kLoop, kStretch, kStill, kRandomLoop}) {
    EXPECT_EQ(TimeAt(type, {77}, 0.9f, 1), 0);
  }
}

TEST(SpriteTime, EndsOfTheTypeAreSafe) {
  for (const A_long current : {INT32_MIN, INT32_MAX}) {
    for (const A_long step : {INT32_MIN, 1, 1000, INT32_MAX}) {
      for (int32_t type = 0; type <= 9; ++type) {
        const std::optional<A_long> time = TimeAt(type, {current, step, 1}, 1.0f, INT32_MAX);
        const bool shown = time && type >= kPlayOnce && type <= kRandomLoop;
        EXPECT_FALSE(shown && *time < 0);
      }
    }
  }
  EXPECT_EQ(TimeAt(kCurrent, {INT32_MIN, 1000}), INT32_MIN) << "nothing lies further down";
}

// ---- Borrowing ----

/// A host whose custom layer has a frame at every time, and the times at which it was asked.
struct SpriteHost {
  FakeHost host;
  FakeWorld sprite{PixelDepth::k8, 3, 3};

  SpriteHost() {
    sprite.Fill(1, 1, 1, 1);
    host.layers = {{kParamCustomLayer, &sprite}};
    host.in.total_time = 1000;
    host.SetTime(0, 1, 24);
  }
};

ParticleList ParticlesOf(const std::vector<float>& randoms) {
  ParticleList list;
  list.count = randoms.size();
  list.particles.Reset(randoms.size());
  for (size_t i = 0; i < randoms.size(); ++i) {
    list.particles[i] = {};
    list.particles[i].random = randoms[i];
  }
  return list;
}

FrameSettings Stills() {
  FrameSettings settings{};
  settings.timeType = kStill;
  return settings;
}

/// A random number whose still lies at `time` of 1000 ticks.
float RandomAt(int time) {
  return (static_cast<float>(time) + 0.5f) / 999.0f;
}

TEST(SpriteFrames, AreHeldOnceForEachTimeInTheOrderOfTheParticles) {
  SpriteHost scene;
  ParticleList list = ParticlesOf({RandomAt(500), RandomAt(20), RandomAt(500), RandomAt(700)});
  {
    SpriteFrames frames(scene.host.in, PixelDepth::k8);
    frames.Assign(Stills(), &list);
    EXPECT_EQ(frames.count(), 3U);
  }
  const int32_t expected[] = {0, 1, 0, 2};
  for (size_t i = 0; i < 4; ++i) EXPECT_EQ(list.particles[i].spriteFrame, expected[i]);
  EXPECT_EQ(scene.host.events,
            (std::vector<std::string>{"out 33", "out 33", "out 33", "in 33", "in 33", "in 33"}));
  EXPECT_EQ(scene.host.Imbalance(), "");
}

TEST(SpriteFrames, BeyondTwoHundredTheNextLaterHeldTimeServes) {
  SpriteHost scene;
  std::vector<float> randoms;
  // Held: 4, 0, 12, 8, ... so that the order of borrowing is not the order of time.
  for (int i = 0; i < kMaxSpriteFrames; ++i) randoms.push_back(RandomAt(4 * (i ^ 1)));
  for (const int time : {5, 8, 793, 796, 797, 998}) randoms.push_back(RandomAt(time));
  ParticleList list = ParticlesOf(randoms);
  SpriteFrames frames(scene.host.in, PixelDepth::k8);
  frames.Assign(Stills(), &list);
  EXPECT_EQ(frames.count(), 200U);
  EXPECT_EQ(scene.host.checkoutCalls, 200);

  const ProjectedParticle* late = list.particles.data() + kMaxSpriteFrames;
  EXPECT_EQ(late[0].spriteFrame, 3) << "5 takes 8";
  EXPECT_EQ(late[1].spriteFrame, 3);
  EXPECT_EQ(late[2].spriteFrame, 198) << "793 takes 796";
  EXPECT_EQ(late[3].spriteFrame, 198);
  EXPECT_EQ(late[4].spriteFrame, 198) << "nothing later is held: the last in time, not in order";
  EXPECT_EQ(late[5].spriteFrame, 198);
}

TEST(SpriteFrames, AFailedFrameHidesItsParticleAndIsAskedForAgain) {
  SpriteHost scene;
  scene.host.failCheckoutAt = 1;
  ParticleList list = ParticlesOf({RandomAt(500), RandomAt(500)});
  SpriteFrames frames(scene.host.in, PixelDepth::k8);
  frames.Assign(Stills(), &list);
  EXPECT_EQ(list.particles[0].spriteFrame, -1);
  EXPECT_EQ(list.particles[1].spriteFrame, 0);
}

TEST(SpriteFrames, WithoutALayerAllAreHiddenAndNothingStaysOut) {
  SpriteHost scene;
  scene.host.layers.clear();
  ParticleList list = ParticlesOf(std::vector<float>(300, RandomAt(500)));
  SpriteFrames frames(scene.host.in, PixelDepth::k8);
  frames.Assign(Stills(), &list);
  for (size_t i = 0; i < list.count; ++i) EXPECT_EQ(list.particles[i].spriteFrame, -1);
  EXPECT_EQ(frames.count(), 0U);
  EXPECT_EQ(scene.host.checkouts, 0);
}

TEST(SpriteFrames, PastTheEndNothingIsBorrowed) {
  SpriteHost scene;
  scene.host.SetTime(1000, 1, 24);
  ParticleList list = ParticlesOf({0.0f});
  FrameSettings settings = Stills();
  settings.timeType = kPlayOnce;
  SpriteFrames frames(scene.host.in, PixelDepth::k8);
  frames.Assign(settings, &list);
  EXPECT_EQ(list.particles[0].spriteFrame, -1);
  EXPECT_EQ(scene.host.checkoutCalls, 0);
}

TEST(SpriteDuration, IsTheCompositionsWithoutTheServicesAndAtLeastOne) {
  FakeHost host;
  for (const A_long total : {1000, 1, 0, -5}) {
    host.in.total_time = total;
    EXPECT_EQ(SpriteDuration(host.in), total < 1 ? 1 : total);
  }
}

TEST(LayerCheckouts, SettingsThatTheHostLeavesBehindEndWithItsCall) {
  SpriteHost scene;
  const unsigned own = _mm_getcsr();
  scene.host.onCheckout = [] { _mm_setcsr(0x1F80u | 0x8040u | 0x4000u); };
  LayerCheckouts layers(scene.host.in, 1);
  EXPECT_TRUE(HasPixels(layers.CheckOut(kParamCustomLayer, 0, PixelDepth::k8)));
  const unsigned after = _mm_getcsr();
  _mm_setcsr(own);
  EXPECT_EQ(after & ~0x3Fu, own & ~0x3Fu);
}

}  // namespace
}  // namespace vantle::test
