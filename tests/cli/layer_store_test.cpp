#include "host/scene/layer_store.h"

#include "tests/cli/scratch.h"

#include <gtest/gtest.h>

namespace vantle::scene {
namespace {

using test::FailureOf;
using test::Scratch;

int RedAt(const WorldPtr& world) {
  return host::WorldRow(*world, 0)[1];
}
int AlphaAt(const WorldPtr& world) {
  return host::WorldRow(*world, 0)[0];
}

// A scene of one layer, opened.
struct OneLayer {
  Scene scene;
  LayerStore store;

  OneLayer(Layer layer, PixelDepth depth, int32_t divisor) {
    scene.layers.push_back(std::move(layer));
    store.depth = depth;
    store.divisor = divisor;
    OpenLayers(scene, {true}, &store);
  }
};

SequenceSource MakeSequence(const Scratch& scratch) {
  for (int i = 3; i <= 6; ++i)
    test::SavePicture(scratch, "s.000" + std::to_string(i) + ".png",
                      test::FlatPicture8(5, 3, 255, static_cast<uint8_t>(i * 10), 0, 0));
  SequenceSource source;
  source.pattern = scratch.Path("s.####.png");
  source.frameRate = {25, 1};
  return source;
}

TEST(LayerStore, AStillShowsTheSameAtAllTimes) {
  const Scratch scratch;
  const std::string file = test::SavePicture(scratch, "a.png", test::FlatPicture8(5, 3, 255, 77, 0, 0));
  OneLayer one({"a", StillSource{file}}, PixelDepth::k8, 2);
  EXPECT_EQ(one.store.layers[0].fullSize.width, 5);
  const WorldPtr world = LayerAt(one.store, 0, -1000, 30);
  EXPECT_EQ(world->width, 3);
  EXPECT_EQ(world->height, 2);
  EXPECT_EQ(world->depth, 8);
  EXPECT_EQ(RedAt(world), 77);
  EXPECT_EQ(LayerAt(one.store, 0, 99999, 30), world);
}

TEST(LayerStore, ASequenceShowsTheRightPictureAndNothingOutside) {
  const Scratch scratch;
  OneLayer one({"s", MakeSequence(scratch)}, PixelDepth::k8, 1);
  for (int frame = 0; frame < 4; ++frame) {
    EXPECT_EQ(RedAt(LayerAt(one.store, 0, frame, 25)), 30 + frame * 10);
    EXPECT_EQ(RedAt(LayerAt(one.store, 0, frame * 1001, 25025)), 30 + frame * 10);
  }
  for (const int64_t outside : {-1, 4, 1000}) {
    const WorldPtr world = LayerAt(one.store, 0, outside, 25);
    EXPECT_EQ(world->width, 5);
    EXPECT_EQ(AlphaAt(world), 0);
  }
}

TEST(LayerStore, ASequenceHasItsOwnRateAndStart) {
  const Scratch scratch;
  SequenceSource source = MakeSequence(scratch);
  source.start = 1.0;
  OneLayer one({"s", source}, PixelDepth::k8, 1);
  EXPECT_EQ(AlphaAt(LayerAt(one.store, 0, 49, 50)), 0);
  EXPECT_EQ(RedAt(LayerAt(one.store, 0, 50, 50)), 30);
  EXPECT_EQ(RedAt(LayerAt(one.store, 0, 51, 50)), 30);
  EXPECT_EQ(RedAt(LayerAt(one.store, 0, 52, 50)), 40);
  EXPECT_EQ(RedAt(LayerAt(one.store, 0, 57, 50)), 60);
  EXPECT_EQ(AlphaAt(LayerAt(one.store, 0, 58, 50)), 0);
}

TEST(LayerStore, EveryFrameOfItsOwnRateIsFoundAtItsOwnTime) {
  const Scratch scratch;
  SequenceSource source = MakeSequence(scratch);
  for (const FrameRate rate :
       {FrameRate{24000, 1001}, FrameRate{30000, 1001}, FrameRate{12, 1}, FrameRate{60, 7}}) {
    source.frameRate = rate;
    OneLayer one({"s", source}, PixelDepth::k8, 1);
    for (int frame = 0; frame < 4; ++frame)
      EXPECT_EQ(RedAt(LayerAt(one.store, 0, int64_t{frame} * rate.denominator,
                              static_cast<uint32_t>(rate.numerator))),
                30 + frame * 10);
  }
}

TEST(LayerStore, FirstAndLastChooseAmongThePictures) {
  const Scratch scratch;
  SequenceSource source = MakeSequence(scratch);
  source.firstFrame = 4;
  source.lastFrame = 5;
  OneLayer one({"s", source}, PixelDepth::k8, 1);
  EXPECT_EQ(RedAt(LayerAt(one.store, 0, 0, 25)), 40);
  EXPECT_EQ(RedAt(LayerAt(one.store, 0, 1, 25)), 50);
  EXPECT_EQ(AlphaAt(LayerAt(one.store, 0, 2, 25)), 0);
}

TEST(LayerStore, AMissingPictureIsReportedWhenItIsNeeded) {
  const Scratch scratch;
  const SequenceSource source = MakeSequence(scratch);
  std::filesystem::remove(scratch.Path("s.0004.png"));
  OneLayer one({"s", source}, PixelDepth::k8, 1);
  EXPECT_EQ(RedAt(LayerAt(one.store, 0, 0, 25)), 30);
  EXPECT_NE(FailureOf([&] { LayerAt(one.store, 0, 1, 25); }).find("s.0004.png: there is no such file"),
            std::string::npos);
}

TEST(LayerStore, PatternsWithoutFilesAreRefused) {
  SequenceSource source;
  source.pattern = "/nowhere/s.####.png";
  EXPECT_NE(FailureOf([&] {
              OneLayer({"s", source}, PixelDepth::k8, 1);
            }).find("no file of that pattern"),
            std::string::npos);
  source.pattern = "plain.png";
  EXPECT_NE(FailureOf([&] {
              OneLayer({"s", source}, PixelDepth::k8, 1);
            }).find("needs a place for the frame number"),
            std::string::npos);
}

TEST(LayerStore, SolidsHaveTheirColourAtEveryDepth) {
  const SolidSource solid{{0.5, 0.25, 1.0, 0.75}, 5, 4};
  OneLayer eight({"x", solid}, PixelDepth::k8, 3), deep({"x", solid}, PixelDepth::k16, 1);
  const WorldPtr world = LayerAt(eight.store, 0, 0, 30);
  EXPECT_EQ(world->width, 2);
  EXPECT_EQ(world->height, 2);
  const std::uint8_t* pixel = host::WorldRow(*world, 1) + 4;
  EXPECT_EQ(pixel[0], 191);
  EXPECT_EQ(pixel[1], 128);
  EXPECT_EQ(pixel[2], 64);
  EXPECT_EQ(pixel[3], 255);
  uint16_t codes[4];
  std::memcpy(codes, host::WorldRow(*LayerAt(deep.store, 0, 0, 30), 0), sizeof(codes));
  EXPECT_EQ(codes[0], 24576);
  EXPECT_EQ(codes[1], 16384);
}

}  // namespace
}  // namespace vantle::scene
