#include "particles/simulation.h"

#include <algorithm>
#include <bit>
#include <gtest/gtest.h>
#include <limits>
#include <random>
#include <vector>

namespace vantle {
namespace {

ParticleList ListOfDepths(const std::vector<float>& depths) {
  ParticleList list;
  list.particles.Reset(depths.size());
  list.count = depths.size();
  for (size_t i = 0; i < depths.size(); ++i) {
    list.particles[i] = {};
    list.particles[i].depth = depths[i];
    list.particles[i].curvePoints = static_cast<uint32_t>(i);
    list.particles[i].sx = static_cast<float>(i);
  }
  return list;
}

/// Sorts and compares with the library's stable sort.
void ExpectSorted(const std::vector<float>& depths) {
  ParticleList list = ListOfDepths(depths);
  std::vector<uint32_t> order(depths.size());
  for (size_t i = 0; i < order.size(); ++i) order[i] = static_cast<uint32_t>(i);
  std::stable_sort(order.begin(), order.end(), [&](uint32_t a, uint32_t b) { return depths[a] > depths[b]; });
  SortBackToFront(&list);
  ASSERT_EQ(list.count, depths.size());
  for (size_t i = 0; i < order.size(); ++i) {
    ASSERT_EQ(list.particles[i].curvePoints, order[i]) << "place " << i << " of " << order.size();
    ASSERT_EQ(list.particles[i].sx, static_cast<float>(order[i]));
  }
}

TEST(SortBackToFront, IsTheStableOrderForEverySizeOfList) {
  std::mt19937 random(1);
  for (const size_t size : {0u, 1u, 2u, 3u, 47u, 48u, 49u, 255u, 1000u, 4095u, 4096u, 20000u, 200000u}) {
    std::vector<float> wide(size), narrow(size);
    for (size_t i = 0; i < size; ++i) {
      do wide[i] = std::bit_cast<float>(static_cast<uint32_t>(random()));
      while (!(std::fabs(wide[i]) <= std::numeric_limits<float>::max()));
      narrow[i] = static_cast<float>(static_cast<int32_t>(random() % 7u) - 3) * 0.5f;
    }
    ExpectSorted(wide);
    ExpectSorted(narrow);
  }
}

TEST(SortBackToFront, ZerosOfEitherSignAreOneDepth) {
  ExpectSorted({0.0f, -0.0f, 1.0f, -0.0f, 0.0f, -1.0f, 0.0f});
  std::vector<float> many(5000);
  for (size_t i = 0; i < many.size(); ++i) many[i] = i % 3 == 0 ? -0.0f : (i % 3 == 1 ? 0.0f : 1e-45f);
  ExpectSorted(many);
}

TEST(SortBackToFront, LeavesOrderedListsAndTurnsReversedOnes) {
  std::vector<float> falling(5000), rising(5000), flat(5000, 3.0f);
  for (size_t i = 0; i < falling.size(); ++i) {
    falling[i] = -static_cast<float>(i);
    rising[i] = static_cast<float>(i);
  }
  ExpectSorted(falling);
  ExpectSorted(rising);
  ExpectSorted(flat);
}

}  // namespace
}  // namespace vantle
