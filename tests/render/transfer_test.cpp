// Transfer modes against a statement of their formulas in double precision.
#include "render/transfer.h"

#include <algorithm>
#include <cmath>
#include <gtest/gtest.h>

namespace vantle::kernel {
namespace {

double Exact(double s, double d, int mode) {
  switch (mode) {
    case BLEND_ADD:
      return d + s;
    case BLEND_SCREEN:
      return 1 - (1 - s) * (1 - d);
    case BLEND_MULTIPLY:
      return s * d;
    case BLEND_OVERLAY:
      return d < 0.5 ? 2 * s * d : 1 - 2 * (1 - s) * (1 - d);
    case BLEND_SOFT_LIGHT:
      return s < 0.5 ? d - (1 - 2 * s) * d * (1 - d) : d + (2 * s - 1) * (std::sqrt(d) - d);
    case BLEND_HARD_LIGHT:
      return s < 0.5 ? 2 * s * d : 1 - 2 * (1 - s) * (1 - d);
    case BLEND_COLOR_BURN:
      return s < 0.001 ? 0 : std::max(0.0, 1 - (1 - d) / s);
    default:
      return s;
  }
}

class TransferMode : public testing::TestWithParam<int> {};

TEST_P(TransferMode, AllPairsOfEightBitValues) {
  const int mode = GetParam();
  for (int s = 0; s < 256; ++s) {
    for (int d = 0; d < 256; ++d) {
      const float source = static_cast<float>(s) / 255.0f;
      const float destination = static_cast<float>(d) / 255.0f;
      const double exact = Exact(double{source}, double{destination}, mode);
      // Color Burn divides by the source, which magnifies the rounding of 1 - d.
      const double tolerance = mode == BLEND_COLOR_BURN ? 2e-7 / std::max(double{source}, 0.001) : 3e-7;
      ASSERT_NEAR(double{blendChannel(source, destination, mode)}, exact, tolerance)
          << "s " << s << ", d " << d;
    }
  }
}

TEST_P(TransferMode, OverATransparentPixelTheParticleShowsItsOwnColour) {
  float r = 0, g = 0, b = 0, a = 0;
  blendPixel(0.8f, 0.4f, 0.0f, 0.5f, r, g, b, a, GetParam());
  EXPECT_EQ(r, 0.8f);
  EXPECT_EQ(g, 0.4f);
  EXPECT_EQ(b, 0.0f);
  EXPECT_EQ(a, 0.5f);
}

TEST_P(TransferMode, OverAnOpaquePixelTheModeFadesInByTheSourceAlpha) {
  const double sources[] = {0.9, 0.3, 0.6};
  const double destinations[] = {0.2, 0.7, 0.5};
  float d[3] = {0.2f, 0.7f, 0.5f};
  float a = 1.0f;
  blendPixel(0.9f, 0.3f, 0.6f, 0.25f, d[0], d[1], d[2], a, GetParam());
  EXPECT_EQ(a, 1.0f);
  for (int i = 0; i < 3; ++i) {
    const double mixed = Exact(sources[i], destinations[i], GetParam());
    EXPECT_NEAR(double{d[i]}, mixed * 0.25 + destinations[i] * 0.75, 1e-6);
  }
}

TEST_P(TransferMode, HalfTransparentDestinationsFadeTheModeIn) {
  float r = 0.25f, g = 0.5f, b = 0.75f, a = 0.5f;
  blendPixel(0.6f, 0.6f, 0.6f, 0.5f, r, g, b, a, GetParam());
  const double mixed = 0.6 + 0.5 * (Exact(0.6, 0.25, GetParam()) - 0.6);
  EXPECT_EQ(a, 0.75f);
  EXPECT_NEAR(double{r}, (mixed * 0.5 + 0.25 * 0.5 * 0.5) / 0.75, 1e-6);
}

INSTANTIATE_TEST_SUITE_P(All, TransferMode, testing::Values(1, 2, 3, 4, 5, 6, 7, 8));

TEST(BlendChannel, UnknownModesAreNormal) {
  for (const int mode : {-5, 0, 9, 77}) EXPECT_EQ(blendChannel(0.3f, 0.9f, mode), 0.3f);
}

TEST(BlendChannel, OverlayAndHardLightAreMirrorImages) {
  for (int s = 0; s < 256; ++s) {
    for (int d = 0; d < 256; ++d) {
      const float a = static_cast<float>(s) / 255.0f;
      const float b = static_cast<float>(d) / 255.0f;
      ASSERT_NEAR(blendChannel(a, b, BLEND_OVERLAY), blendChannel(b, a, BLEND_HARD_LIGHT), 2e-7f);
    }
  }
}

TEST(BlendChannel, ColorBurnOfAlmostNothingIsBlack) {
  EXPECT_EQ(blendChannel(0.0009f, 1.0f, BLEND_COLOR_BURN), 0.0f);
  EXPECT_EQ(blendChannel(0.001f, 1.0f, BLEND_COLOR_BURN), 1.0f);
  EXPECT_EQ(blendChannel(0.5f, 0.2f, BLEND_COLOR_BURN), 0.0f);
}

TEST(BlendChannel, SoftLightOfANegativeDestinationIsANumber) {
  EXPECT_EQ(blendChannel(1.0f, -0.25f, BLEND_SOFT_LIGHT), 0.0f) << "d + (sqrt(0) - d)";
}

TEST(BlendPixel, AddIsNotLimited) {
  float r = 0.9f, g = 0.9f, b = 0.9f, a = 1.0f;
  blendPixel(0.8f, 0.8f, 0.8f, 1.0f, r, g, b, a, BLEND_ADD);
  EXPECT_NEAR(r, 1.7f, 1e-6f);
}

TEST(BlendPixel, BelowAThousandthNothingChanges) {
  float r = 0.1f, g = 0.2f, b = 0.3f, a = 0.4f;
  blendPixel(1.0f, 1.0f, 1.0f, 0.00099f, r, g, b, a, BLEND_NORMAL);
  EXPECT_EQ(r, 0.1f);
  EXPECT_EQ(a, 0.4f);
  blendPixel(1.0f, 1.0f, 1.0f, NAN, r, g, b, a, BLEND_NORMAL);
  EXPECT_EQ(r, 0.1f);
  EXPECT_EQ(a, 0.4f);
}

TEST(BlendPixel, AtAThousandthTheAlphaCountsButNotTheColour) {
  float r = 0.1f, g = 0.2f, b = 0.3f, a = 0.0f;
  blendPixel(1.0f, 1.0f, 1.0f, 0.001f, r, g, b, a, BLEND_NORMAL);
  EXPECT_EQ(r, 0.1f);
  EXPECT_EQ(a, 0.001f);
}

TEST(BlendPixel, NormalIsTheOverOperator) {
  float r = 1.0f, g = 0.0f, b = 0.5f, a = 0.5f;
  blendPixel(0.0f, 1.0f, 0.5f, 0.5f, r, g, b, a, BLEND_NORMAL);
  EXPECT_EQ(a, 0.75f);
  EXPECT_NEAR(r, 1.0f / 3.0f, 1e-6f);
  EXPECT_NEAR(g, 2.0f / 3.0f, 1e-6f);
  EXPECT_NEAR(b, 0.5f, 1e-6f);
}

}  // namespace
}  // namespace vantle::kernel
