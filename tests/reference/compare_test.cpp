// The comparison itself: the smallest difference must be seen and named.

#include "tests/reference/compare.h"

#include "tests/reference/product.h"

#include <cmath>
#include <gtest/gtest.h>
#include <limits>

namespace vantle::reference {
namespace {

std::vector<Particle> ThreeParticles() {
  std::vector<Particle> particles(3);
  for (size_t i = 0; i < particles.size(); ++i) {
    particles[i].index = static_cast<int32_t>(10 * i);
    particles[i].projected.sx = 1.0f;
    particles[i].curvePoints = {{1.0f, 2.0f}, {3.0f, 4.0f}};
  }
  return particles;
}

TEST(CompareParticles, NamesTheFirstFieldThatDiffersByABit) {
  const std::vector<Particle> particles = ThreeParticles();
  ParticleList list = ListOf(particles);
  EXPECT_EQ(FirstDifference(particles, list), "");
  list.particles[1].sx = std::nextafter(1.0f, 2.0f);
  EXPECT_EQ(FirstDifference(particles, list), "particle 1 of 3 (index 10): sx: 1 expected, 1.00000012 found");
  list.particles[1].sx = 1.0f;
  list.particles[2].rotY = -0.0f;
  EXPECT_EQ(FirstDifference(particles, list), "particle 2 of 3 (index 20): rotY: 0 expected, -0 found");
}

TEST(CompareParticles, ComparesCurvesAndCounts) {
  const std::vector<Particle> particles = ThreeParticles();
  ParticleList list = ListOf(particles);
  list.curvePoints.points[kMaxTrailPoints + 1].y = 5.0f;
  EXPECT_EQ(FirstDifference(particles, list),
            "particle 1 of 3 (index 10): curve point 1 y: 4 expected, 5 found");
  list.curvePoints.counts[0] = 1;
  EXPECT_EQ(FirstDifference(particles, list), "particle 0 of 3 (index 0): 2 curve points expected, 1 found");
  list = ListOf(particles);
  list.count = 2;
  EXPECT_EQ(FirstDifference(particles, list), "3 particles expected, 2 found");
}

TEST(ComparePictures, SeesPixelsAndTheBytesBetweenRows) {
  const Layout layout = {.width = 3, .height = 2, .depth = PixelDepth::k8, .padding = 5, .lead = 2};
  const Picture expected = MakePicture(layout);
  Picture actual = expected;
  EXPECT_EQ(FirstDifference(expected, actual), "");
  actual.memory[2 + 17 + 4] ^= std::byte{1};
  EXPECT_EQ(FirstDifference(expected, actual).rfind("pixel (1, 1): ", 0), 0u);
  actual = expected;
  actual.memory[2 + 12] ^= std::byte{1};
  EXPECT_EQ(FirstDifference(expected, actual), "bytes outside of the rows");
}

TEST(ComparePictures, TakesAnyNanForAnother) {
  const float nan = std::numeric_limits<float>::quiet_NaN();
  Picture expected = MakePicture({.width = 1, .height = 1, .depth = PixelDepth::k32});
  Picture actual = expected;
  SetPixel(expected, 0, 0, {{1.0f, nan, 0.0f, 0.0f}});
  SetPixel(actual, 0, 0, {{1.0f, -nan, 0.0f, 0.0f}});
  EXPECT_EQ(FirstDifference(expected, actual), "");
  SetPixel(actual, 0, 0, {{1.0f, 0.0f, 0.0f, 0.0f}});
  EXPECT_NE(FirstDifference(expected, actual), "");
}

TEST(Pictures, LieInMemoryAsTheirLayoutSays) {
  Picture picture = MakePicture({.width = 2, .height = 3, .padding = 1, .lead = 3, .bottomUp = true});
  SetPixel(picture, 1, 0, {{1.0f, 0.0f, 0.0f, 0.0f}});
  const ImageView view = ViewOf(picture);
  EXPECT_EQ(view.rowBytes, -9);
  EXPECT_EQ(view.data, picture.memory.data() + 3 + 18);
  EXPECT_EQ(view.data[4], std::byte{255});
}

}  // namespace
}  // namespace vantle::reference
