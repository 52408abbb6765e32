// The random frames themselves: they must reach everything and show something, or their comparison proves
// little.

#include "tests/reference/random_scene.h"

#include <array>
#include <cstring>
#include <gtest/gtest.h>

namespace vantle::reference {
namespace {

constexpr uint64_t kSeeds = 600;

TEST(RandomScenes, ReachEveryShapeModeDepthAndLayout) {
  std::array<int, 11> shapes{};
  std::array<int, 10> modes{};
  std::array<int, 3> depths{};
  int cameras = 0, previews = 0, blurs = 0, bottomUp = 0, noA = 0, noB = 0;
  for (uint64_t seed = 0; seed < kSeeds; ++seed) {
    const Scene scene = RandomScene(seed, Nature::kTame);
    const FrameSettings& s = scene.frame.settings;
    ++shapes[static_cast<size_t>(s.shape)];
    ++modes[static_cast<size_t>(s.transferMode)];
    ++depths[static_cast<size_t>(scene.output.depth)];
    cameras += scene.frame.camera.hasCamera ? 1 : 0;
    previews += s.downsampleX < 0.999f ? 1 : 0;
    blurs += scene.frame.camera.hasCamera && s.depthOfField ? 1 : 0;
    bottomUp += scene.output.bottomUp ? 1 : 0;
    noA += HasPixels(scene.frame.layerA) ? 0 : 1;
    noB += HasPixels(scene.frame.layerB) ? 0 : 1;
  }
  for (size_t shape = 1; shape < shapes.size(); ++shape) EXPECT_GT(shapes[shape], 20) << shape;
  for (size_t mode = 0; mode < modes.size(); ++mode) EXPECT_GT(modes[mode], 20) << mode;
  for (int count : depths) EXPECT_GT(count, 60);
  for (int count : {cameras, previews, blurs, bottomUp, noA, noB}) EXPECT_GT(count, 20);
}

TEST(RandomScenes, MostlyShowSomething) {
  uint64_t particles = 0;
  int blank = 0;
  for (uint64_t seed = 0; seed < kSeeds; ++seed) {
    const Scene scene = RandomScene(seed, Nature::kTame);
    Picture picture = MakePicture(scene.output);
    const std::vector<Particle> list = Simulate(scene.frame);
    particles += list.size();
    Rasterise(scene.frame, list, MutableOf(picture));
    if (scene.frame.settings.shape != SHAPE_LAYER && SumOf(picture, 0) == 0.0) ++blank;
  }
  EXPECT_GT(particles / kSeeds, 50u);
  EXPECT_LT(blank, static_cast<int>(kSeeds / 4));
}

TEST(RandomScenes, AreTheSameForTheSameSeed) {
  const Scene first = RandomScene(7, Nature::kHostile);
  const Scene second = RandomScene(7, Nature::kHostile);
  EXPECT_EQ(std::memcmp(&first.frame.settings, &second.frame.settings, sizeof(FrameSettings)), 0);
  ASSERT_EQ(first.pictures.size(), second.pictures.size());
  for (size_t i = 0; i < first.pictures.size(); ++i) {
    EXPECT_EQ(first.pictures[i]->memory, second.pictures[i]->memory);
  }
}

}  // namespace
}  // namespace vantle::reference
