#include "render/graphics/output_delivery.h"

#include "tests/render/canvas.h"

#include <cmath>
#include <gtest/gtest.h>
#include <limits>

namespace vantle {
namespace {

using test::Canvas;
using test::Layout;

constexpr float kNan = std::numeric_limits<float>::quiet_NaN();
constexpr float kInfinity = std::numeric_limits<float>::infinity();

/// A picture of one pixel.
int32_t Deliver(float value, PixelDepth depth) {
  const Canvas canvas(1, 1, depth);
  const float pixel[4] = {value, 0.0f, 0.0f, 0.0f};
  DeliverPixels(pixel, canvas.image());
  return canvas.Code(0, 0, 0);
}

TEST(OutputDelivery, LimitsAndTruncates) {
  EXPECT_EQ(Deliver(0.0f, PixelDepth::k8), 0);
  EXPECT_EQ(Deliver(1.0f, PixelDepth::k8), 255);
  EXPECT_EQ(Deliver(0.5f, PixelDepth::k8), 127);
  EXPECT_EQ(Deliver(std::nextafter(1.0f, 0.0f), PixelDepth::k8), 254);
  EXPECT_EQ(Deliver(0.0039f, PixelDepth::k8), 0);
  EXPECT_EQ(Deliver(0.5f, PixelDepth::k16), 16384);
  EXPECT_EQ(Deliver(1.0f, PixelDepth::k16), 32768);
  EXPECT_EQ(Deliver(0.00003f, PixelDepth::k16), 0);
}

TEST(OutputDelivery, TakesAnyNumber) {
  for (const PixelDepth depth : {PixelDepth::k8, PixelDepth::k16}) {
    const int32_t full = depth == PixelDepth::k8 ? 255 : 32768;
    EXPECT_EQ(Deliver(-0.5f, depth), 0);
    EXPECT_EQ(Deliver(-kInfinity, depth), 0);
    EXPECT_EQ(Deliver(kNan, depth), 0);
    EXPECT_EQ(Deliver(1.5f, depth), full);
    EXPECT_EQ(Deliver(kInfinity, depth), full);
  }
}

TEST(OutputDelivery, KeepsTheChannelsOrder) {
  const Canvas canvas(1, 1, PixelDepth::k8);
  const float pixel[4] = {1.0f, 0.2f, 0.4f, 0.6f};
  DeliverPixels(pixel, canvas.image());
  EXPECT_EQ(canvas.Code(0, 0, 0), 255);
  EXPECT_EQ(canvas.Code(0, 0, 1), 51);
  EXPECT_EQ(canvas.Code(0, 0, 2), 102);
  EXPECT_EQ(canvas.Code(0, 0, 3), 153);
}

TEST(OutputDelivery, LeavesFloatsAsTheyAre) {
  const Canvas canvas(1, 1, PixelDepth::k32);
  const float pixel[4] = {0.25f, -1.0f, 3.5f, 1.0f};
  DeliverPixels(pixel, canvas.image());
  const FloatPixel p = canvas.Pixel(0, 0);
  EXPECT_EQ(p.a, 0.25f);
  EXPECT_EQ(p.r, -1.0f);
  EXPECT_EQ(p.g, 3.5f);
  EXPECT_EQ(p.b, 1.0f);
}

TEST(OutputDelivery, WritesRowsOfAnyStrideAndNothingElse) {
  constexpr int32_t kWidth = 7;
  constexpr int32_t kHeight = 200;
  std::vector<float> pixels(4 * kWidth * kHeight);
  for (size_t i = 0; i < pixels.size(); ++i) pixels[i] = static_cast<float>(i % 251) / 250.0f;
  for (const PixelDepth depth : test::kDepths) {
    const Canvas packed(kWidth, kHeight, depth);
    DeliverPixels(pixels.data(), packed.image());
    for (const Layout layout : {Layout{5, 3, false}, Layout{16, 1, true}}) {
      const Canvas padded(kWidth, kHeight, depth, layout);
      DeliverPixels(pixels.data(), padded.image());
      EXPECT_EQ(padded.Rows(), packed.Rows());
      EXPECT_TRUE(padded.GuardsIntact());
    }
  }
}

}  // namespace
}  // namespace vantle
