// Cameras, nulls, parents, keyframes, expressions and custom layers as scene files tell them.
#include "host/composition/placement.h"
#include "host/scene/scene_change.h"
#include "host/scene/scene_composition.h"
#include "host/scene/scene_json.h"
#include "tests/cli/scratch.h"
#include "tests/cli/with_effect.h"

#include <filesystem>
#include <gtest/gtest.h>
#include <memory>

namespace vantle {
namespace {

using composition::Numbers;
using test::FailureOf;
using test::Scratch;

struct Scenes : test::WithEffect {
  std::string Write(const std::string& layers, const std::string& effectText = R"({"layer": "grey"})") {
    return scratch.Write("scene.json",
                         R"({"composition": {"width": 64, "height": 40, "frame_rate": 24, "frames": 48},
      "layers": [)" + layers +
                             R"({"name": "grey", "solid": [0.5, 0.5, 0.5], "width": 20, "height": 10}],
      "effect": )" + effectText +
                             "}");
  }
  /// Without the folder of the scene.
  std::string Refusal(const std::string& layers, const std::string& effectText = R"({"layer": "grey"})") {
    const std::string path = Write(layers, effectText);
    std::string text = FailureOf([&] {
      const scene::Scene scene = scene::ReadScene(path);
      scene::PreparedScene ready;
      scene::PrepareScene(scene, {}, *effect, {}, &ready, &warnings);
    });
    const size_t at = text.find(path);
    return at == std::string::npos ? text : text.erase(at, path.size() + 2);
  }
  scene::PreparedScene& Prepare(const std::string& layers,
                                const std::string& effectText = R"({"layer": "grey"})",
                                const std::vector<std::string>& overrides = {}) {
    read = scene::ReadScene(Write(layers, effectText));
    std::vector<scene::Parameter> parameters;
    for (const std::string& text : overrides)
      parameters.push_back(scene::ParseAssignment(text, read.composition.frameRate));
    prepared = std::make_unique<scene::PreparedScene>();
    scene::PrepareScene(read, parameters, *effect, {}, prepared.get(), &warnings);
    return *prepared;
  }
  composition::Layer LayerNamed(const std::string& name) {
    return *composition::FindLayer(std::as_const(*prepared->composition), name);
  }
  host::FrameRequest Request(int32_t frame) {
    return scene::RequestFrame(*prepared, frame, std::make_shared<scene::CheckoutFailure>());
  }
  double Number(int32_t frame, int parameter) {
    return std::get<double>(Request(frame).values.at(parameter));
  }

  Scratch scratch;
  scene::Scene read;
  std::unique_ptr<scene::PreparedScene> prepared;
  std::vector<std::string> warnings;
};

TEST_F(Scenes, CamerasHaveOneNodeOrTwo) {
  Prepare(R"({"name": "one", "camera": {}},
             {"name": "two", "camera": {"zoom": 80, "depth_of_field": true, "focus_distance": 70, "aperture": 6},
              "transform": {"point_of_interest": [1, 2, 3], "position": [4, 5, -6], "orientation": [7, 8, 9],
                            "x_rotation": 1, "y_rotation": 2, "z_rotation": 3}},)");
  const composition::Layer one = LayerNamed("one"), two = LayerNamed("two");
  EXPECT_FALSE(one.twoNodes);
  EXPECT_TRUE(two.twoNodes);
  EXPECT_NEAR(one.streams[composition::kZoom].keys[0].value[0], 64 * 50.0 / 36.0, 1e-9);
  EXPECT_EQ(two.streams[composition::kZoom].keys[0].value[0], 80);
  EXPECT_EQ(two.streams[composition::kDepthOfField].keys[0].value[0], 1);
  EXPECT_EQ(two.streams[composition::kFocusDistance].keys[0].value[0], 70);
  EXPECT_EQ(two.streams[composition::kAperture].keys[0].value[0], 6);
  EXPECT_EQ(two.streams[composition::kAnchorPoint].keys[0].value, (Numbers{1, 2, 3}));
  EXPECT_EQ(two.streams[composition::kPosition].keys[0].value, (Numbers{4, 5, -6}));
  EXPECT_EQ(two.streams[composition::kOrientation].keys[0].value, (Numbers{7, 8, 9}));
  EXPECT_EQ(two.streams[composition::kRotationY].keys[0].value[0], 2);
  EXPECT_EQ(composition::ActiveCamera(*prepared->composition)->name, "one") << "the topmost";
}

TEST_F(Scenes, ACameraThatIsNotToldWhereFocusesOnItsImagePlane) {
  Prepare(R"({"name": "camera", "camera": {"zoom": 123}},)");
  EXPECT_EQ(LayerNamed("camera").streams[composition::kFocusDistance].keys[0].value[0], 123);
}

TEST_F(Scenes, NullsMoveAndHaveParents) {
  Prepare(R"({"name": "child", "null": true, "three_d": true, "parent": "father",
              "transform": {"position": {"keyframes": [{"frame": 0, "value": [0, 0, 0]},
                                                       {"time": 1, "value": [24, 12, 6], "hold": true},
                                                       {"frame": 36, "value": [0, 0, 0]}]},
                            "scale": [50, 60]}},
             {"name": "father", "null": true, "transform": {"opacity": {"expression": "time"}}},)");
  const composition::Layer child = LayerNamed("child");
  EXPECT_TRUE(child.threeD);
  EXPECT_EQ(child.kind, composition::LayerKind::kNull);
  EXPECT_EQ(child.parent, LayerNamed("father").id);
  const composition::Property& position = child.streams[composition::kPosition];
  EXPECT_EQ(KeyedValue(position, 0.5), (Numbers{12, 6, 3}));
  EXPECT_EQ(KeyedValue(position, 1.4), (Numbers{24, 12, 6}));
  EXPECT_EQ(KeyedValue(position, 1.5), (Numbers{0, 0, 0}));
  EXPECT_EQ(child.streams[composition::kScale].keys[0].value, (Numbers{50, 60, 100}));
  const composition::Property opacity = LayerNamed("father").streams[composition::kOpacity];
  EXPECT_EQ(opacity.keys[0].value[0], 100) << "a new layer's value stands behind the expression";
  EXPECT_TRUE(opacity.expression.on);
}

TEST_F(Scenes, PicturesLieInTheMiddle) {
  Prepare("");
  const composition::Layer grey = LayerNamed("grey");
  EXPECT_EQ(grey.streams[composition::kAnchorPoint].keys[0].value, (Numbers{10, 5, 0}));
  EXPECT_EQ(grey.streams[composition::kPosition].keys[0].value, (Numbers{32, 20, 0}));
  EXPECT_EQ(grey.source->width, 20);
  EXPECT_EQ(static_cast<double>(grey.source->duration) / grey.source->scale, 2.0);
  EXPECT_EQ(prepared->composition->effectLayer, grey.id);
  EXPECT_EQ(prepared->composition->chosenLayers, (std::map<int, int32_t>{{2, grey.id}}));
}

TEST_F(Scenes, ExpressionsDriveParameters) {
  Prepare(R"({"name": "n", "null": true, "transform": {"opacity": {"keyframes": [{"frame": 0, "value": 0},
                                                                               {"frame": 24, "value": 48}]}}},)",
          R"({"layer": "grey", "parameters": {
                "A Position X": {"expression": "thisComp.layer('n').transform.opacity + value"},
                "A Position Y": {"value": 5, "expression": "value * time"},
                "A Position Z": {"keyframes": [{"frame": 0, "value": 0}, {"frame": 10, "value": 100}],
                                 "expression": "-value"},
                "A Scale X": {"value": 70, "expression": "1", "expression_on": false},
                "A Scale Y": {"value": 70, "expression": "-50"},
                "A Rotation X": {"expression": "90"},
                "Shape": {"expression": "3.9"},
                "Round Cap": {"expression": "-5"}}})");
  EXPECT_EQ(Number(12, 67), 24);
  EXPECT_EQ(Number(12, 68), 2.5);
  EXPECT_EQ(Number(5, 69), -50);
  EXPECT_EQ(Number(5, 73), 70) << "switched off";
  EXPECT_EQ(Number(5, 74), 0) << "held to the range";
  EXPECT_EQ(std::get<A_long>(Request(0).values.at(70)), 90 * 65536);
  EXPECT_EQ(std::get<A_long>(Request(0).values.at(29)), 3);
  EXPECT_EQ(std::get<A_long>(Request(0).values.at(32)), 0);
  EXPECT_TRUE(composition::DrainReports(*prepared->reports).empty());
}

TEST_F(Scenes, ValuesOfTheCommandLineGoBeforeExpressions) {
  Prepare("", R"({"layer": "grey", "parameters": {"A Position X": {"expression": "7"}}})",
          {"A Position X=3"});
  EXPECT_EQ(Number(0, 67), 3);
}

TEST_F(Scenes, WhatFailsIsReportedBeforeAnythingIsRendered) {
  Prepare(R"({"name": "unused", "null": true, "transform": {"opacity": {"expression": "foo"}}},)",
          R"({"layer": "grey", "parameters": {"A Position X": {"value": 8, "expression": "\nbar"}}})");
  scene::CheckExpressions(*prepared, 0);
  EXPECT_EQ(Number(0, 67), 8);
  EXPECT_EQ(
      composition::DrainReports(*prepared->reports),
      (std::vector<std::string>{"expression of layer \"grey\", \"A Position X\", line 2: ReferenceError: "
                                "identifier 'bar' undefined; its value without the expression is used",
                                "expression of layer \"unused\", \"Opacity\", line 1: ReferenceError: "
                                "identifier 'foo' undefined; its value without the expression is used"}));
}

TEST_F(Scenes, SayWhatIsWrongWithALayer) {
  EXPECT_EQ(Refusal(R"({"name": "x", "null": false},)"), "3 layers[0].null: expected true, found false");
  EXPECT_EQ(Refusal(R"({"name": "x", "null": true, "camera": {}},)"),
            "3 layers[0]: a layer is either a \"file\", a \"sequence\", a \"solid\", a \"null\" or a "
            "\"camera\": keep one");
  EXPECT_EQ(Refusal(R"({"name": "x", "null": true, "parent": "gray"},)"),
            "3 layers[0]: there is no other layer named \"gray\" to be its parent; did you mean \"grey\"?");
  EXPECT_EQ(Refusal(R"({"name": "x", "null": true, "parent": "x"},)"),
            "3 layers[0]: there is no other layer named \"x\" to be its parent");
  EXPECT_EQ(
      Refusal(R"({"name": "x", "null": true, "parent": "y"}, {"name": "y", "null": true, "parent": "x"},)"),
      "3 layers[0]: the parents lead back to the layer itself: break the ring");
  EXPECT_EQ(Refusal(R"({"name": "x", "null": true, "transform": {"position": [1]}},)"),
            "3 layers[0].transform.position: expected a list of two or three numbers, found a list of 1");
  EXPECT_EQ(
      Refusal(
          R"({"name": "x", "null": true, "transform": {"position": {"value": [1, 2], "keyframes": []}}},)"),
      "3 layers[0].transform.position: give either \"value\" or \"keyframes\": keep one");
  EXPECT_EQ(Refusal(R"({"name": "x", "null": true, "transform": {"position": {"keyframes": []}}},)"),
            "3 layers[0].transform.position.keyframes: expected at least one keyframe, found none");
  EXPECT_NE(Refusal(R"({"name": "x", "null": true, "transform": {"zoom": 3}},)").find("unknown key \"zoom\""),
            std::string::npos);
  EXPECT_NE(Refusal(R"({"name": "x", "camera": {}, "transform": {"scale": [1, 2]}},)")
                .find("unknown key \"scale\""),
            std::string::npos);
  EXPECT_NE(Refusal(R"({"name": "x", "null": true, "transform": {"opacity": {"keyframes": [
              {"frame": 2, "value": 1}, {"frame": 1, "value": 1}]}}},)")
                .find("keyframes must ascend"),
            std::string::npos);
}

TEST_F(Scenes, SayWhatIsWrongWithAnExpression) {
  EXPECT_EQ(Refusal("", R"({"layer": "grey", "parameters": {"Color Gradient": {"expression": "1"}}})"),
            "3 effect.parameters.Color Gradient: gradients and curves take no expression: give a value");
  EXPECT_EQ(Refusal("", R"({"layer": "grey", "parameters": {"Size": {"expression": 1}}})"),
            "3 effect.parameters.Size.expression: expected the text of an expression, found 1");
  EXPECT_EQ(
      Refusal(
          "",
          R"({"layer": "grey", "parameters": {"Size": {"value": 1, "keyframes": [], "expression": "1"}}})"),
      "3 effect.parameters.Size: give either \"value\" or \"keyframes\": keep one");
}

TEST_F(Scenes, NullsShareNamesAndPicturesDoNot) {
  Prepare(R"({"name": "n", "null": true, "transform": {"opacity": 1}},
             {"name": "n", "null": true, "transform": {"opacity": 2}}, {"name": "grey", "null": true},)");
  EXPECT_EQ(LayerNamed("n").streams[composition::kOpacity].keys[0].value[0], 1) << "the topmost";
  EXPECT_EQ(read.effect.layer, 3) << "nulls show nothing, so the effect's layer is the picture";
  EXPECT_NE(Refusal(R"({"name": "grey", "solid": [1, 1, 1]},)").find("is used twice"), std::string::npos);
  EXPECT_NE(Refusal(R"({"name": "n", "null": true},)", R"({"layer": "n"})").find("there is no layer named"),
            std::string::npos);
}

TEST_F(Scenes, ACustomLayerShowsTheRightPictureAtAnyTime) {
  // Pictures 3 to 7 at 12 a second from half a second on; the composition runs at 24.
  for (int n = 3; n <= 7; ++n)
    test::SavePicture(scratch, "s." + std::to_string(n) + ".png",
                      test::FlatPicture8(2, 2, 255, static_cast<uint8_t>(n), 0, 0));
  Prepare(R"({"name": "sprite", "sequence": "s.#.png", "frame_rate": 12, "start": 0.5},)",
          R"({"layer": "grey", "custom": "sprite"})");
  const host::FrameRequest request = Request(0);
  const auto shown = [&](A_long time, A_u_long scale) -> int {
    const host::LayerFrame frame = request.layers(scene::kCustomLayerParam, time, 1, scale);
    EXPECT_EQ(frame.error, PF_Err_NONE);
    const PF_PixelFloat pixel = host::ReadPixel(*frame.world, 0, 0);
    return pixel.alpha == 0 ? 0 : static_cast<int>(pixel.red * 255 + 0.5F);
  };
  EXPECT_EQ(shown(11, 24), 0) << "transparent before its start";
  EXPECT_EQ(shown(-100, 24), 0);
  EXPECT_EQ(shown(12, 24), 3);
  EXPECT_EQ(shown(13, 24), 3);
  EXPECT_EQ(shown(14, 24), 4);
  EXPECT_EQ(shown(583, 1000), 3);
  EXPECT_EQ(shown(584, 1000), 4);
  EXPECT_EQ(shown(21, 24), 7);
  EXPECT_EQ(shown(22, 24), 0) << "and after its end";
  EXPECT_EQ(shown(2147483647, 24), 0);
  const composition::SourceItem item = *LayerNamed("sprite").source;
  EXPECT_EQ(item.duration, 5);
  EXPECT_EQ(item.scale, 12U);
  EXPECT_EQ(prepared->composition->chosenLayers.at(33), LayerNamed("sprite").id);
}

TEST_F(Scenes, ChangesAreWrittenIntoTheDocument) {
  const std::string path = Write(R"({"name": "old", "null": true},)",
                                 R"({"layer": "grey", "parameters": {"67": 12, "a position z":
                                    {"keyframes": [{"frame": 0, "value": 1}]}, "Size": 3}})");
  io::Json document = io::ReadJsonFile(path);
  read = scene::ReadScene(path);
  prepared = std::make_unique<scene::PreparedScene>();
  scene::PrepareScene(read, {}, *effect, {}, prepared.get(), &warnings);
  const composition::Composition before = *prepared->composition;
  composition::Composition after = before;
  composition::Layer null = MakeLayer(after, composition::LayerKind::kNull, "new \"one\"");
  null.threeD = true;
  null.streams[composition::kRotationX] = composition::Constant({1.5, 0, 0});
  null.streams[composition::kOpacity].keys = {{0.0, {1, 0, 0}, false}, {0.5, {2, 0, 0}, true}};
  AddOnTop(after, null);
  for (const int index : {67, 69, 73, 5}) after.effectExpressions[index] = {"a", true};
  after.effectExpressions[74] = {"off", false};
  scene::WriteChanges(before, after, *effect, read.composition.frameRate, &document);
  EXPECT_EQ(document["layers"].size(), 3U);
  EXPECT_EQ(
      document["layers"][0].dump(),
      R"({"name":"new \"one\"","null":true,"three_d":true,"transform":{"position":[32,20,0],"x_rotation":1.5,)"
      R"("opacity":{"keyframes":[{"frame":0,"value":1},{"frame":12,"value":2,"hold":true}]}}})");
  EXPECT_EQ(document["effect"]["parameters"].dump(),
            R"({"67":{"value":12,"expression":"a"},"a position z":{"keyframes":[{"frame":0,"value":1}],)"
            R"("expression":"a"},"Size":3,"Vantle/Seed":{"expression":"a"},"A Scale X":{"expression":"a"},)"
            R"("A Scale Y":{"expression":"off","expression_on":false}})");
  scratch.Write("again.json", scene::TidyText(document));
  const scene::Scene again = scene::ReadScene(scratch.Path("again.json"));
  EXPECT_EQ(again.layers.size(), 3U);
  EXPECT_EQ(io::ReadJsonFile(scratch.Path("again.json")), document);
}

TEST_F(Scenes, PathsFollowTheScene) {
  const std::string whole = std::filesystem::absolute("b.png").generic_string();
  io::Json document = io::Json::parse(R"({"layers": [{"file": "pictures/a.png"}, {"sequence": "../s.#.png"},
                                          {"file": ")" +
                                      whole + R"("}, {"null": true}]})");
  const io::Json same = document;
  scene::MovePaths("here/scene.json", "here/other.json", &document);
  EXPECT_EQ(document, same);
  scene::MovePaths("here/scene.json", "there/deep/scene.json", &document);
  EXPECT_EQ(document["layers"].dump(),
            R"([{"file":"../../here/pictures/a.png"},{"sequence":"../../s.#.png"},{"file":")" + whole +
                R"("},{"null":true}])");
}

}  // namespace
}  // namespace vantle
