#include "host/scene/parameter_lookup.h"

#include "tests/cli/with_effect.h"

namespace vantle::scene {
namespace {

class ParameterLookup : public test::WithEffect {};

TEST_F(ParameterLookup, EveryUniqueNameFindsItsParameter) {
  for (size_t i = 1; i < effect->params.size(); ++i) {
    const host::DeclaredParam& param = effect->params[i];
    if (!TakesValue(param) || param.name == "Seed") continue;
    EXPECT_EQ(FindParameter(effect->params, param.name).index, static_cast<int>(i)) << param.name;
    EXPECT_EQ(FindParameter(effect->params, std::to_string(i)).index, static_cast<int>(i));
  }
}

TEST_F(ParameterLookup, EveryParameterIsFoundByGroupAndName) {
  const std::vector<std::string> groups = GroupNames(effect->params);
  int found = 0;
  for (size_t i = 1; i < effect->params.size(); ++i) {
    if (!TakesValue(effect->params[i])) continue;
    ASSERT_FALSE(groups[i].empty());
    EXPECT_EQ(FindParameter(effect->params, groups[i] + "/" + effect->params[i].name).index,
              static_cast<int>(i));
    ++found;
  }
  EXPECT_EQ(found, 67);
}

TEST_F(ParameterLookup, ANameUsedTwiceListsBoth) {
  const LookupResult result = FindParameter(effect->params, "Seed");
  EXPECT_EQ(result.index, 0);
  EXPECT_EQ(result.problem,
            "\"Seed\" is the name of several parameters: write \"Vantle/Seed\" or \"Turbulence/Seed\"");
  EXPECT_EQ(FindParameter(effect->params, "Turbulence/Seed").index, 61);
  EXPECT_EQ(FindParameter(effect->params, "Vantle/Seed").index, 5);
}

TEST_F(ParameterLookup, AGroupsNameDoesNotHideAParameter) {
  EXPECT_EQ(FindParameter(effect->params, "Density").index, 19);
  EXPECT_EQ(FindParameter(effect->params, "Density/Density").index, 19);
}

TEST_F(ParameterLookup, CapitalsDoNotMatter) {
  EXPECT_EQ(FindParameter(effect->params, "transfer mode").index, 52);
  EXPECT_EQ(FindParameter(effect->params, "turbulence/SCALE").index, 58);
}

TEST_F(ParameterLookup, UnknownNamesOfferTheNearest) {
  EXPECT_EQ(FindParameter(effect->params, "Trnsform").problem,
            "there is no parameter named \"Trnsform\"; did you mean \"Transform\" or \"Transfer Mode\"?");
  const std::string grouped = FindParameter(effect->params, "Turbulense/Seed").problem;
  EXPECT_NE(grouped.find("did you mean \"Turbulence/Seed\""), std::string::npos) << grouped;
  EXPECT_NE(FindParameter(effect->params, "qqqqqqqqqqqqqqqqqqqq").problem.find("vantle info"),
            std::string::npos);
}

TEST_F(ParameterLookup, IdsOutsideOfTheTableAreRefused) {
  for (const char* id : {"0", "88", "-1", "1000"}) {
    EXPECT_EQ(FindParameter(effect->params, id).index, 0) << id;
    EXPECT_NE(FindParameter(effect->params, id).problem.find("1 to 87"), std::string::npos);
  }
}

TEST(SplitChoices, CutsAtTheBars) {
  EXPECT_EQ(SplitChoices("Curl|fBm|Ridged"), (std::vector<std::string>{"Curl", "fBm", "Ridged"}));
  EXPECT_EQ(SplitChoices("one"), std::vector<std::string>{"one"});
  EXPECT_EQ(SplitChoices("a||b"), (std::vector<std::string>{"a", "", "b"}));
}

}  // namespace
}  // namespace vantle::scene
