// Picks from layers much larger than the random frames hold: many levels of running sums, long rows and
// columns, and more pixels than a float32 sum can count.

#include "tests/reference/compare.h"
#include "tests/reference/dice.h"
#include "tests/reference/picture.h"
#include "tests/reference/product.h"
#include "tests/reference/random_settings.h"

#include <cstring>
#include <gtest/gtest.h>

namespace vantle::reference {
namespace {

/// An 8-bit layer of which this share emits, in runs, with whole alphas as often as others.
Picture MakeLayer(int32_t width, int32_t height, float share) {
  Picture picture = MakePicture({.width = width, .height = height, .padding = 3});
  const MutableImage image = MutableOf(picture);
  Dice dice{static_cast<uint64_t>(width) * 31 + static_cast<uint64_t>(height)};
  for (int32_t y = 0; y < height; ++y) {
    int32_t alpha = 0;
    for (int32_t x = 0; x < width; ++x) {
      const uint64_t noise = dice.Next();
      if (noise % 32 == 0) alpha = !dice.Chance(share) ? 0 : dice.OneOf({255, dice.Range(3, 255)});
      const uint8_t codes[4] = {static_cast<uint8_t>(alpha), static_cast<uint8_t>(noise >> 8),
                                static_cast<uint8_t>(noise >> 16), static_cast<uint8_t>(noise >> 24)};
      std::memcpy(Row(image, y) + ptrdiff_t{4} * x, codes, sizeof(codes));
    }
  }
  return picture;
}

/// Compares a frame that starts on this layer and ends on its own copy of it.
void ExpectEqualParticles(const Picture& layer, float variation) {
  FrameInput frame;
  frame.settings = DefaultSettings(layer.layout.width, layer.layout.height);
  frame.settings.density = 3000;
  frame.settings.transform = 0.25f;
  frame.settings.variationA = variation;
  frame.layerA = frame.layerB = ViewOf(layer);
  EXPECT_EQ(FirstDifference(Simulate(frame), SimulateWithProduct(frame)), "");
}

TEST(LargeLayers, PickTheSamePoints) {
  for (float share : {1.0f, 0.5f, 0.02f}) {
    const Picture layer = MakeLayer(1501, 999, share);
    ExpectEqualParticles(layer, 0.0f);
    ExpectEqualParticles(layer, -0.7f);
  }
}

TEST(LargeLayers, LongRowsAndColumnsPickTheSamePoints) {
  ExpectEqualParticles(MakeLayer(100003, 1, 0.5f), 0.5f);
  ExpectEqualParticles(MakeLayer(1, 100003, 0.5f), 0.0f);
  ExpectEqualParticles(MakeLayer(17, 9001, 1.0f), 0.0f);
}

// Summed in double. Most pixels emit nothing, which keeps the reference's list short; the sum's kind is
// decided by the pixels.
TEST(LargeLayers, MorePixelsThanAFloatCanCountPickTheSamePoints) {
  ExpectEqualParticles(MakeLayer(4099, 4097, 0.1f), 0.3f);
}

}  // namespace
}  // namespace vantle::reference
