// Expressions that refer to each other, and what is reported.
#include "host/composition/evaluation.h"

#include "host/composition/placement.h"

#include <gtest/gtest.h>
#include <thread>

namespace vantle::composition {
namespace {

struct Evaluations : testing::Test {
  int32_t Add(const std::string& name, double own, const std::string& expression) {
    Layer layer = MakeLayer(composition, LayerKind::kNull, name);
    layer.streams[kOpacity] = Constant({own, 0, 0});
    layer.streams[kOpacity].expression = {expression, !expression.empty()};
    return AddOnTop(composition, layer);
  }

  double Opacity(int32_t id) {
    Evaluation evaluation;
    evaluation.composition = &composition;
    evaluation.reports = &reports;
    return StreamValue(evaluation, *FindLayer(composition, id), kOpacity)[0];
  }

  static std::string Of(const std::string& name) {
    return "thisComp.layer('" + name + "').transform.opacity";
  }

  Composition composition;
  ExpressionReports reports;
};

TEST_F(Evaluations, FollowEachOther) {
  Add("a", 3, "");
  Add("b", 0, Of("a") + " * 2");
  const int32_t c = Add("c", 0, Of("b") + " + " + Of("a"));
  EXPECT_EQ(Opacity(c), 9);
  EXPECT_TRUE(DrainReports(reports).empty());
}

TEST_F(Evaluations, RingsFailWhereverTheyAreEntered) {
  const int32_t a = Add("a", 1, Of("b") + " + 10");
  const int32_t b = Add("b", 2, Of("c") + " + 20");
  const int32_t c = Add("c", 3, "try { " + Of("a") + " } catch (e) { 30 }");
  const int32_t outside = Add("outside", 4, Of("b") + " * 100");
  EXPECT_EQ(Opacity(a), 1);
  EXPECT_EQ(Opacity(b), 2);
  EXPECT_EQ(Opacity(c), 3) << "a handler does not make a ring right";
  EXPECT_EQ(Opacity(outside), 200) << "not on the ring itself";
  const std::vector<std::string> lines = DrainReports(reports);
  ASSERT_EQ(lines.size(), 3U);
  for (const std::string& line : lines) EXPECT_NE(line.find("in a ring"), std::string::npos) << line;
}

TEST_F(Evaluations, OneThatAsksForItselfIsARing) {
  const int32_t a = Add("a", 6, Of("a"));
  EXPECT_EQ(Opacity(a), 6);
  EXPECT_EQ(DrainReports(reports),
            std::vector<std::string>{
                "expression of layer \"a\", \"Opacity\", line 1: Error: the expressions refer to "
                "each other in a ring: layer \"a\", \"Opacity\" -> layer \"a\", \"Opacity\"; its "
                "value without the expression is used"});
}

TEST_F(Evaluations, AskingTwiceRunsOnce) {
  // Without memory this would take 2 to the power of 20 runs.
  Add("0", 1, "");
  int32_t last = 0;
  for (int i = 1; i <= 20; ++i)
    last = Add(std::to_string(i), 0, Of(std::to_string(i - 1)) + " + " + Of(std::to_string(i - 1)));
  EXPECT_EQ(Opacity(last), 1048576);
}

TEST_F(Evaluations, TooDeepChainsEndWithAMessage) {
  Add("0", 1, "");
  int32_t last = 0;
  for (int i = 1; i <= 60; ++i) last = Add(std::to_string(i), 5, Of(std::to_string(i - 1)) + " + 1");
  EXPECT_EQ(Opacity(last), 5 + 24);
  const std::vector<std::string> lines = DrainReports(reports);
  ASSERT_EQ(lines.size(), 1U);
  EXPECT_NE(lines[0].find("refer to each other too deeply"), std::string::npos);
}

// Functions that the engine itself calls keep its stack occupied while they wait for another expression.
TEST_F(Evaluations, WaitingCallsOfAllTogetherHaveALimit) {
  const auto asks = [](int calls, const std::string& of) {
    return "var n = 0; var o = {valueOf: function () { return ++n < " + std::to_string(calls) +
           " ? +o : " + of + " }}; +o";
  };
  for (const int calls : {5, 900}) {
    composition = {};
    Add("0", 3, "2");
    int32_t last = 0;
    for (int i = 1; i < 20; ++i) last = Add(std::to_string(i), 1, asks(calls, Of(std::to_string(i - 1))));
    EXPECT_EQ(Opacity(last), calls == 5 ? 2 : 1);
    const std::vector<std::string> lines = DrainReports(reports);
    if (calls == 5) {
      EXPECT_TRUE(lines.empty());
    } else {
      ASSERT_EQ(lines.size(), 1U);
      EXPECT_NE(
          lines[0].find("layer \"18\", \"Opacity\", line 1: expressions refer to each other too deeply"),
          std::string::npos);
    }
  }
  Add("plain", 4, "");
  const int32_t deep = Add("deep", 1, asks(900, Of("plain")));
  EXPECT_EQ(Opacity(deep), 4) << "values without an expression may be asked from any depth";
}

TEST_F(Evaluations, AllOfAQuestionShareOneBudget) {
  const std::string loop = "for (var i = 0; i < 400000; ++i); ";
  Add("a", 7, loop + "2");
  Add("b", 1, loop + Of("a"));
  const int32_t c = Add("c", 1, loop + Of("b"));
  EXPECT_EQ(Opacity(c), 7) << "the innermost ran out, and who asked for it went on with its own value";
  const std::vector<std::string> lines = DrainReports(reports);
  ASSERT_EQ(lines.size(), 1U);
  EXPECT_NE(lines[0].find("layer \"a\""), std::string::npos);
  EXPECT_NE(lines[0].find("does not end"), std::string::npos);
}

TEST_F(Evaluations, FailuresAreReportedOnce) {
  const int32_t a = Add("a", 1, "\n\nfoo");
  for (int i = 0; i < 3; ++i) EXPECT_EQ(Opacity(a), 1);
  EXPECT_EQ(DrainReports(reports),
            std::vector<std::string>{
                "expression of layer \"a\", \"Opacity\", line 3: ReferenceError: identifier 'foo' "
                "undefined; its value without the expression is used"});
  EXPECT_EQ(Opacity(a), 1);
  EXPECT_TRUE(DrainReports(reports).empty());
}

TEST_F(Evaluations, ParametersOfTheEffectNameLayerAndControl) {
  composition.effectLayer = Add("picture", 100, "");
  composition.effectExpressions[67] = {"foo", true};
  composition.effectExpressions[68] = {"value + 1", true};
  composition.effectExpressions[69] = {"foo", false};
  Evaluation evaluation;
  evaluation.composition = &composition;
  evaluation.reports = &reports;
  EXPECT_EQ(EffectValue(evaluation, 67, "A Position X", 12), 12);
  EXPECT_EQ(EffectValue(evaluation, 68, "A Position Y", 12), 13);
  EXPECT_EQ(EffectValue(evaluation, 69, "A Position Z", 12), 12);
  EXPECT_EQ(EffectValue(evaluation, 70, "A Rotation X", 12), 12);
  EXPECT_EQ(
      DrainReports(reports),
      std::vector<std::string>{"expression of layer \"picture\", \"A Position X\", line 1: ReferenceError: "
                               "identifier 'foo' undefined; its value without the expression is used"});
}

TEST_F(Evaluations, ThreadsMayAskAtOnce) {
  Add("a", 3, "");
  const int32_t b = Add("b", 0, Of("a") + " + foo");
  std::vector<std::thread> threads;
  for (int t = 0; t < 4; ++t)
    threads.emplace_back([&] {
      for (int i = 0; i < 20; ++i) EXPECT_EQ(Opacity(b), 0);
    });
  for (std::thread& thread : threads) thread.join();
  EXPECT_EQ(DrainReports(reports).size(), 1U);
}

TEST_F(Evaluations, ParentsMoveByExpressions) {
  Layer parent = MakeLayer(composition, LayerKind::kNull, "parent");
  parent.threeD = true;
  parent.streams[kPosition].expression = {"[time * 10, 5, 6]", true};
  Layer child = MakeLayer(composition, LayerKind::kNull, "child");
  child.threeD = true;
  child.parent = AddOnTop(composition, parent);
  const int32_t id = AddOnTop(composition, child);
  Evaluation evaluation;
  evaluation.composition = &composition;
  evaluation.seconds = 2.5;
  EXPECT_EQ(Apply(LayerToWorld(evaluation, *FindLayer(composition, id)), {1, 1, 1}), (Numbers{26, 6, 7}));
}

}  // namespace
}  // namespace vantle::composition
