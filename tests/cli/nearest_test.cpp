#include "host/io/nearest.h"

#include <gtest/gtest.h>

namespace vantle::io {
namespace {

using Names = std::vector<std::string>;

TEST(Nearest, DistancesCountEdits) {
  EXPECT_EQ(EditDistance("", ""), 0u);
  EXPECT_EQ(EditDistance("abc", ""), 3u);
  EXPECT_EQ(EditDistance("kitten", "sitting"), 3u);
  EXPECT_EQ(EditDistance("Transform", "TRANSFORM"), 0u);
  EXPECT_EQ(EditDistance("Trasnform", "Transform"), 1u);
}

TEST(Nearest, OffersTheNearestFirst) {
  const Names known = {"Transform", "Transfer Mode", "Opacity", "Opacity Variation", "Seed"};
  EXPECT_EQ(NearestNames("Trnsform", known, 3), (Names{"Transform", "Transfer Mode"}));
  EXPECT_EQ(NearestNames("opacty", known, 1), (Names{"Opacity"}));
}

TEST(Nearest, APartOfANameIsNear) {
  EXPECT_EQ(NearestNames("Variation", {"Seed", "Opacity Variation"}, 3), (Names{"Opacity Variation"}));
}

TEST(Nearest, OffersNothingForNonsense) {
  EXPECT_EQ(NearestNames("qqqqqqqqqqqqqqqqq", {"Transform", "Seed"}, 3), Names{});
}

}  // namespace
}  // namespace vantle::io
