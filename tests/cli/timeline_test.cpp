#include "host/scene/timeline.h"

#include "host/engine/custom_values.h"
#include "particles/custom_values.h"
#include "tests/cli/scratch.h"
#include "tests/cli/with_effect.h"

#include <cstring>

namespace vantle::scene {
namespace {

using test::FailureOf;

class TimelineTest : public test::WithEffect {
 protected:
  BoundParameter Bind(const std::string& name, std::vector<Key> keys) {
    return BindParameter(effect->params, {name, "scene.json: " + name, std::move(keys)}, &warnings);
  }
  double Number(const BoundParameter& parameter, double frame) {
    return std::get<double>(ValueAt(*effect, parameter, frame));
  }
  A_long Whole(const BoundParameter& parameter, double frame) {
    return std::get<A_long>(ValueAt(*effect, parameter, frame));
  }
  std::string BindFailure(const std::string& name, const Value& value) {
    return FailureOf([&] { Bind(name, {{0.0, value, false}}); });
  }
  std::vector<std::string> warnings;
};

TEST_F(TimelineTest, SlidersRunLinearlyBetweenKeysAndStandOutside) {
  const BoundParameter p = Bind("Transform", {{10, 0.0, false}, {20, 100.0, false}, {30, 50.0, false}});
  EXPECT_EQ(Number(p, -100), 0.0);
  EXPECT_EQ(Number(p, 10), 0.0);
  EXPECT_EQ(Number(p, 15), 50.0);
  EXPECT_EQ(Number(p, 20), 100.0);
  EXPECT_EQ(Number(p, 25), 75.0);
  EXPECT_EQ(Number(p, 1000), 50.0);
  EXPECT_TRUE(warnings.empty());
}

TEST_F(TimelineTest, AHeldKeyStandsUntilTheNext) {
  const BoundParameter p = Bind("Opacity", {{0, 10.0, true}, {10, 90.0, false}});
  EXPECT_EQ(Number(p, 9.99), 10.0);
  EXPECT_EQ(Number(p, 10), 90.0);
}

TEST_F(TimelineTest, PopupsAndCheckBoxesNeverTakeValuesInBetween) {
  const BoundParameter shape =
      Bind("Shape", {{0, std::string("Circle"), false}, {10, std::string("square"), false}});
  EXPECT_EQ(Whole(shape, 9.0), 1);
  EXPECT_EQ(Whole(shape, 10.0), 4);
  const BoundParameter cap = Bind("Round Cap", {{0, 1.0, false}, {10, 0.0, false}});
  EXPECT_EQ(Whole(cap, 9.0), 1);
  EXPECT_EQ(Whole(cap, 10.0), 0);
}

TEST_F(TimelineTest, AnglesBecomeFixedPointRoundedToNearest) {
  EXPECT_EQ(Whole(Bind("Swirl Angle", {{0, 90.0, false}}), 0), 5898240);
  EXPECT_EQ(Whole(Bind("Swirl Angle", {{0, 0.0, false}, {4, 1.0, false}}), 1), 16384);
  EXPECT_EQ(FixedDegrees(1.0 / 65536.0 / 2.0), 1);
  EXPECT_EQ(FixedDegrees(-1.5 / 65536.0), -1);
  EXPECT_EQ(FixedDegrees(0.49 / 65536.0), 0);
  EXPECT_EQ(FixedDegrees(1e9), 2147483647);
  EXPECT_EQ(FixedDegrees(-1e9), -2147483647 - 1);
}

TEST_F(TimelineTest, ValuesAreHeldToTheValidRangeWithOneWarning) {
  const BoundParameter p = Bind("Opacity", {{0, -20.0, false}, {10, 500.0, false}});
  EXPECT_EQ(Number(p, 0), 0.0);
  EXPECT_EQ(Number(p, 10), 100.0);
  ASSERT_EQ(warnings.size(), 1u);
  EXPECT_EQ(warnings[0],
            "scene.json: Opacity: -20 lies outside of the range of \"Opacity\", 0 to 100, and is held to 0");
  EXPECT_EQ(Number(Bind("Scatter", {{0, 150.0, false}}), 0), 150.0) << "valid beyond its slider";
  EXPECT_EQ(warnings.size(), 1u);
  EXPECT_EQ(Whole(Bind("Shape", {{0, 77.0, false}}), 0), 9);
  EXPECT_EQ(warnings.size(), 2u);
}

TEST_F(TimelineTest, ValuesOfTheWrongKindAreRefused) {
  EXPECT_NE(BindFailure("Opacity", std::string("much")).find("takes a number, found \"much\""),
            std::string::npos);
  EXPECT_NE(
      BindFailure("Shape", std::string("Squre")).find("is no choice of \"Shape\"; there are: Circle, Soft"),
      std::string::npos);
  EXPECT_NE(BindFailure("Shape", 1.5).find("takes a whole number, found 1.5"), std::string::npos);
  EXPECT_NE(BindFailure("Color Gradient", 3.0).find("takes a gradient"), std::string::npos);
  EXPECT_NE(BindFailure("Color Gradient", CurveValue{}).find("found a curve"), std::string::npos);
  EXPECT_NE(BindFailure("Scale over Life", GradientValue{}).find("found a gradient"), std::string::npos);
  EXPECT_NE(BindFailure("Source Layer (A)", 1.0).find("is a layer"), std::string::npos);
  EXPECT_NE(BindFailure("Motion", 1.0).find("is a group and takes no value"), std::string::npos);
  EXPECT_NE(BindFailure("A/B Control Nulls", 1.0).find("is a button"), std::string::npos);
  EXPECT_EQ(BindFailure("Trnsform", 1.0).substr(0, 2), "3 ");
}

TEST_F(TimelineTest, CustomValuesHaveTheirStoredForm) {
  ColorGradient gradient;
  const std::vector<std::uint8_t> bytes = GradientBytes({{{0.0, 1.0, 0.5, 0.0}, {1.0, 0.0, 0.0, 1.0}}});
  ASSERT_EQ(bytes.size(), sizeof(gradient));
  std::memcpy(&gradient, bytes.data(), sizeof(gradient));
  EXPECT_EQ(gradient.tag, 1);
  EXPECT_EQ(gradient.count, 2);
  EXPECT_EQ(gradient.selected, -1);
  EXPECT_EQ(gradient.stops[0].g, 0.5f);
  EXPECT_EQ(gradient.stops[1].position, 1.0f);
  EXPECT_EQ(gradient.stops[2].position, 0.0f);

  LifeCurve curve;
  const std::vector<std::uint8_t> curveBytes = CurveBytes({2.0, {{0.0, 0.5}, {0.25, 1.5}}});
  ASSERT_EQ(curveBytes.size(), sizeof(curve));
  std::memcpy(&curve, curveBytes.data(), sizeof(curve));
  EXPECT_EQ(curve.tag, 2);
  EXPECT_EQ(curve.maximum, 2.0f);
  EXPECT_EQ(curve.count, 2);
  EXPECT_EQ(curve.x[1], 0.25f);
  EXPECT_EQ(curve.y[1], 1.5f);
}

TEST_F(TimelineTest, CustomValuesInBetweenComeFromTheEffect) {
  const BoundParameter p = Bind("Color Gradient", {{0, GradientValue{{{0.0, 0.0, 0.0, 1.0}}}, false},
                                                   {4, GradientValue{{{0.5, 1.0, 0.0, 0.0}}}, false}});
  const auto value = std::get<host::CustomBytes>(ValueAt(*effect, p, 1.0));
  ASSERT_TRUE(value.bytes);
  ColorGradient gradient;
  ASSERT_EQ(value.bytes->size(), sizeof(gradient));
  std::memcpy(&gradient, value.bytes->data(), sizeof(gradient));
  EXPECT_EQ(gradient.count, 1);
  EXPECT_EQ(gradient.stops[0].position, 0.125f);
  EXPECT_EQ(gradient.stops[0].r, 0.25f);
  EXPECT_EQ(gradient.stops[0].b, 0.75f);
  EXPECT_EQ(*std::get<host::CustomBytes>(ValueAt(*effect, p, 9.0)).bytes, p.keys[1].bytes);
}

TEST(ParseAssignment, ValuesAreJsonOrText) {
  const FrameRate rate{25, 1};
  EXPECT_EQ(std::get<double>(ParseAssignment("Opacity=12.5", rate).keys[0].value), 12.5);
  EXPECT_EQ(std::get<double>(ParseAssignment("Round Cap=false", rate).keys[0].value), 0.0);
  EXPECT_EQ(std::get<std::string>(ParseAssignment("Shape=Soft Circle", rate).keys[0].value), "Soft Circle");
  EXPECT_EQ(ParseAssignment("Turbulence/Seed=1", rate).name, "Turbulence/Seed");
  EXPECT_EQ(std::get<GradientValue>(ParseAssignment("36=[[0,1,1,1]]", rate).keys[0].value).stops.size(), 1u);
  const Parameter keyed = ParseAssignment(
      R"(Transform={"keyframes":[{"time":0,"value":0},{"time":2,"value":9,"hold":true}]})", rate);
  ASSERT_EQ(keyed.keys.size(), 2u);
  EXPECT_EQ(keyed.keys[1].frame, 50.0);
  EXPECT_TRUE(keyed.keys[1].hold);
}

TEST(ParseAssignment, MistakesAreUsageErrors) {
  for (const char* text :
       {"Opacity", "=5", "Opacity={\"keyframes\":[]}", "Color Gradient=[[1,2]]", "Opacity=null"})
    EXPECT_EQ(FailureOf([&] { ParseAssignment(text, {30, 1}); }).substr(0, 2), "2 ") << text;
}

}  // namespace
}  // namespace vantle::scene
