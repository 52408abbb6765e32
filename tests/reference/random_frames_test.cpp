// The product against the reference over seeded random frames: difference 0, on any number of threads and
// with the loops of every instruction level.

#include "tests/reference/compare.h"
#include "tests/reference/product.h"

#include <gtest/gtest.h>

namespace vantle::reference {
namespace {

class RandomFrames : public testing::TestWithParam<int> {
 protected:
  void SetUp() override { SetThreads(GetParam()); }

  static void ExpectEqual(Nature nature, Stage stage, uint64_t firstSeed, uint64_t count) {
    for (uint64_t seed = firstSeed; seed < firstSeed + count; ++seed) {
      const std::string difference = Compare(seed, nature, stage, LevelOf(static_cast<int>(seed % 3)));
      ASSERT_EQ(difference, "");
    }
  }
};

TEST_P(RandomFrames, HaveTheReferencesParticles) {
  ExpectEqual(Nature::kTame, Stage::kParticles, 1000, 150);
}

TEST_P(RandomFrames, DrawRandomParticlesAsTheReference) {
  ExpectEqual(Nature::kTame, Stage::kRaster, 2000, 150);
}

TEST_P(RandomFrames, AreTheReferencesWholeFrames) {
  ExpectEqual(Nature::kTame, Stage::kWholeFrame, 3000, 150);
}

TEST_P(RandomFrames, AreTheReferencesWholeFramesForHostileValues) {
  ExpectEqual(Nature::kHostile, Stage::kWholeFrame, 4000, 150);
}

INSTANTIATE_TEST_SUITE_P(Threads, RandomFrames, testing::Values(1, 2, 3, 8));

}  // namespace
}  // namespace vantle::reference
