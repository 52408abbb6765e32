// The button that creates the control nulls, and what they do to the planes.
#include "host/composition/evaluation.h"
#include "tests/composition/effect_frames.h"

#include <gtest/gtest.h>

namespace vantle::host {
namespace {

struct Nulls : testing::Test {
  void SetUp() override {
    opened = OpenReal();
    ASSERT_NE(opened.effect, nullptr);
    request = RealFrame(*opened.effect, 64, 40, 8);
    request.composition = CompositionAround(request, 8);
  }
  void TearDown() override { EXPECT_EQ(AllLines(CloseEffect(*opened.effect).problems), ""); }

  void Press() {
    const FrameResult result = PressNulls(*opened.effect, request);
    EXPECT_EQ(result.error, PF_Err_NONE);
    EXPECT_EQ(AllLines(result.problems), "");
  }
  double Value(int parameter) {
    composition::Evaluation evaluation;
    evaluation.composition = request.composition.get();
    return composition::EffectValue(evaluation, parameter, "", 12345.0);
  }
  composition::Layer& Null(const std::string& name) {
    const composition::Layer* found = composition::FindLayer(std::as_const(*request.composition), name);
    return *composition::FindLayer(*request.composition, found->id);
  }
  World Render() { return RenderClean(*opened.effect, WithExpressions(*opened.effect, request)); }

  OpenedEffect opened;
  FrameRequest request;
};

TEST_F(Nulls, ArePutInTheMiddleAndBoundToTheNineControlsOfEachPlane) {
  Press();
  ASSERT_EQ(request.composition->layers.size(), 4U);
  for (const char* name : {"Vantle A Ctrl", "Vantle B Ctrl"}) {
    const composition::Layer& null = Null(name);
    EXPECT_EQ(null.kind, composition::LayerKind::kNull);
    EXPECT_TRUE(null.threeD);
    EXPECT_EQ(null.streams[composition::kPosition].keys[0].value, (composition::Numbers{32, 20, 0}));
  }
  const auto& expressions = request.composition->effectExpressions;
  ASSERT_EQ(expressions.size(), 18U);
  EXPECT_EQ(expressions.begin()->first, 67);
  EXPECT_EQ(expressions.rbegin()->first, 84);
  for (const auto& [index, expression] : expressions) EXPECT_TRUE(expression.on) << index;
  EXPECT_EQ(expressions.at(67).text,
            "thisComp.layer(\"Vantle A Ctrl\").transform.position[0] - thisComp.width/2");
  EXPECT_EQ(expressions.at(84).text, "thisComp.layer(\"Vantle B Ctrl\").transform.scale[2]");
  EXPECT_EQ(request.composition->changes.size(), 2U * (3 + 9 * 2));
}

TEST_F(Nulls, PositionReadsZeroAndThicknessTheScale) {
  Press();
  for (const int first : {67, 76}) {
    EXPECT_EQ(Value(first), 0.0);
    EXPECT_EQ(Value(first + 1), 0.0);
    EXPECT_EQ(Value(first + 2), 0.0);
    EXPECT_EQ(Value(first + 6), 100.0);
    EXPECT_EQ(Value(first + 7), 100.0);
    EXPECT_EQ(Value(first + 8), 100.0) << "the null's Z scale";
  }
  Null("Vantle A Ctrl").streams[composition::kScale] = composition::Constant({90, 80, 70});
  EXPECT_EQ(Value(kThicknessAParam), 70.0);
  EXPECT_EQ(Value(84), 100.0);
}

TEST_F(Nulls, ASecondPressMakesTwoMoreAndTheyAreMeant) {
  Press();
  const int32_t first = Null("Vantle A Ctrl").id;
  Press();
  EXPECT_EQ(request.composition->layers.size(), 6U);
  EXPECT_NE(Null("Vantle A Ctrl").id, first);
  composition::FindLayer(*request.composition, first)->streams[composition::kRotationX] =
      composition::Constant({50, 0, 0});
  EXPECT_EQ(Value(70), 0.0);
  Null("Vantle A Ctrl").streams[composition::kRotationX] = composition::Constant({40, 0, 0});
  EXPECT_EQ(Value(70), 40.0);
}

TEST_F(Nulls, MoveTurnAndScaleTheirPlane) {
  request.values[kTransformParam] = 0.0;
  Press();
  Null("Vantle A Ctrl").streams[composition::kScale] = composition::Constant({50, 50, 0});
  const Centroid rest = CentroidOf(Render());
  ASSERT_GT(rest.weight, 50);
  Null("Vantle A Ctrl").streams[composition::kPosition] = composition::Constant({42, 14, 0});
  const Centroid moved = CentroidOf(Render());
  EXPECT_NEAR(moved.x - rest.x, 10.0, 0.5);
  EXPECT_NEAR(moved.y - rest.y, -6.0, 0.5);
  Null("Vantle A Ctrl").streams[composition::kRotationZ] = composition::Constant({90, 0, 0});
  const World turned = Render();
  int columns = 0, rows = 0;
  for (int y = 0; y < turned.height; ++y) rows += ReadPixel(turned, 42, y).alpha > 0 ? 1 : 0;
  for (int x = 0; x < turned.width; ++x) columns += ReadPixel(turned, x, 14).alpha > 0 ? 1 : 0;
  EXPECT_GT(rows, columns) << "32 wide and 20 high became 20 wide and 32 high, cut at the top";
  const Centroid before = CentroidOf(Render());
  Null("Vantle B Ctrl").streams[composition::kPosition] = composition::Constant({0, 0, 0});
  EXPECT_EQ(CentroidOf(Render()).x, before.x) << "all particles are still on A";
}

TEST_F(Nulls, OnParentsKeepTheirOwnValues) {
  Press();
  composition::Layer parent = MakeLayer(*request.composition, composition::LayerKind::kNull, "parent");
  Null("Vantle A Ctrl").parent = AddOnTop(*request.composition, parent);
  EXPECT_EQ(Value(67), 0.0) << "expressions read the value, not the place";
}

TEST_F(Nulls, WithoutAnItemThePositionIsZero) {
  request.composition->hasItem = false;
  Press();
  EXPECT_EQ(Null("Vantle A Ctrl").streams[composition::kPosition].keys[0].value, (composition::Numbers{}));
  EXPECT_EQ(request.composition->effectExpressions.size(), 18U);
}

TEST_F(Nulls, WithoutALayerNothingHappens) {
  request.composition->effectLayer = 0;
  Press();
  EXPECT_TRUE(request.composition->changes.empty());
}

TEST_F(Nulls, OtherControlsCreateNothing) {
  PF_UserChangedParamExtra change{};
  change.param_index = kTransformParam;
  const FrameResult result =
      SendFrameCommand(*opened.effect, PF_Cmd_USER_CHANGED_PARAM, request, nullptr, &change);
  EXPECT_TRUE(Succeeded(result));
  EXPECT_TRUE(request.composition->changes.empty());
}

TEST_F(Nulls, WithoutACompositionToChangeNothingHappens) {
  request.composition = nullptr;
  const FrameResult result = PressNulls(*opened.effect, request);
  EXPECT_EQ(result.error, PF_Err_NONE);
}

TEST(NullsInPremiere, DoNothing) {
  HostOptions options;
  options.applId = kApplPremierePro;
  OpenedEffect opened = OpenReal(options);
  ASSERT_NE(opened.effect, nullptr);
  FrameRequest request = RealFrame(*opened.effect, 16, 16, 8);
  request.composition = CompositionAround(request, 8);
  EXPECT_TRUE(Succeeded(PressNulls(*opened.effect, request)));
  EXPECT_TRUE(request.composition->changes.empty());
  EXPECT_EQ(AllLines(CloseEffect(*opened.effect).problems), "");
}

}  // namespace
}  // namespace vantle::host
