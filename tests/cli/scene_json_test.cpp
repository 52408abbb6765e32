#include "host/scene/scene_json.h"

#include "tests/cli/scratch.h"

#include <gtest/gtest.h>

namespace vantle::scene {
namespace {

using test::FailureOf;
using test::Scratch;

constexpr const char* kScene = R"({
  "composition": {"width": 640, "height": 360, "frame_rate": "30000/1001", "duration": 2.002},
  "layers": [
    {"name": "one", "file": "pictures/a.png"},
    {"name": "two", "sequence": "b.####.exr", "frame_rate": 12.5, "start": -0.5, "first": 3, "last": 9},
    {"name": "three", "solid": [0.25, 0.5, 1], "width": 10}
  ],
  "effect": {"layer": "one", "b": "two", "custom": "three", "parameters": {
    "Transform": {"keyframes": [{"frame": 0, "value": 0}, {"time": 1.001, "value": 100, "hold": true}]},
    "Shape": "Square", "Round Cap": false,
    "Color Gradient": [[0, 1, 1, 1], [1, 0, 0, 0]],
    "Scale over Life": {"max": 2, "points": [[0, 1], [1, 0.5]]}
  }}
})";

TEST(SceneJson, ReadsAWholeScene) {
  const Scratch scratch;
  const Scene scene = ReadScene(scratch.Write("s.json", kScene));
  EXPECT_EQ(scene.composition.width, 640);
  EXPECT_EQ(scene.composition.height, 360);
  EXPECT_EQ(scene.composition.frameRate.numerator, 30000);
  EXPECT_EQ(scene.composition.frameRate.denominator, 1001);
  EXPECT_EQ(scene.composition.frames, 60);
  ASSERT_EQ(scene.layers.size(), 3u);
  const std::filesystem::path file = std::get<StillSource>(scene.layers[0].source).file;
  EXPECT_TRUE(file == scratch.folder / "pictures/a.png") << file.string();
  const auto& sequence = std::get<SequenceSource>(scene.layers[1].source);
  EXPECT_EQ(sequence.pattern, scratch.Path("b.####.exr"));
  EXPECT_EQ(sequence.frameRate.numerator, 25);
  EXPECT_EQ(sequence.frameRate.denominator, 2);
  EXPECT_EQ(sequence.start, -0.5);
  EXPECT_EQ(sequence.firstFrame, 3);
  EXPECT_EQ(sequence.lastFrame, 9);
  const auto& solid = std::get<SolidSource>(scene.layers[2].source);
  EXPECT_EQ(solid.color, (std::array<double, 4>{0.25, 0.5, 1.0, 1.0}));
  EXPECT_EQ(solid.width, 10);
  EXPECT_EQ(solid.height, 360);
  EXPECT_EQ(scene.effect.layer, 0);
  EXPECT_TRUE(scene.effect.sourceIsOwnLayer);
  EXPECT_EQ(scene.effect.target, 1);
  EXPECT_EQ(scene.effect.custom, 2);
  ASSERT_EQ(scene.effect.parameters.size(), 5u);
  const Parameter& transform = scene.effect.parameters[0];
  EXPECT_EQ(transform.name, "Transform");
  EXPECT_NEAR(transform.keys[1].frame, 30.0, 1e-9);
  EXPECT_TRUE(transform.keys[1].hold);
  EXPECT_EQ(std::get<std::string>(scene.effect.parameters[1].keys[0].value), "Square");
  EXPECT_EQ(std::get<double>(scene.effect.parameters[2].keys[0].value), 0.0);
  EXPECT_EQ(std::get<GradientValue>(scene.effect.parameters[3].keys[0].value).stops.size(), 2u);
  EXPECT_EQ(std::get<CurveValue>(scene.effect.parameters[4].keys[0].value).maximum, 2.0);
}

TEST(SceneJson, SourceLayerIsOwnNamedOrNone) {
  const Scratch scratch;
  const auto read = [&](const std::string& a) {
    return ReadScene(scratch.Write(
        "s.json", R"({"composition":{"width":1,"height":1,"frame_rate":30,"frames":1},"layers":[)"
                  R"({"name":"x","solid":[0,0,0]},{"name":"y","solid":[0,0,0]}],"effect":{"layer":"x")" +
                      a + "}}"));
  };
  EXPECT_TRUE(read("").effect.sourceIsOwnLayer);
  EXPECT_FALSE(read(R"(,"a":null)").effect.sourceIsOwnLayer);
  EXPECT_EQ(read(R"(,"a":null)").effect.source, std::nullopt);
  EXPECT_EQ(read(R"(,"a":"y")").effect.source, 1);
}

struct BadScene {
  const char* find;
  const char* replacement;
  const char* message;
};

class BadSceneTest : public testing::TestWithParam<BadScene> {};

TEST_P(BadSceneTest, NamesPlaceAndExpectation) {
  const Scratch scratch;
  std::string text = kScene;
  const size_t at = text.find(GetParam().find);
  ASSERT_NE(at, std::string::npos);
  text.replace(at, std::string(GetParam().find).size(), GetParam().replacement);
  const std::string path = scratch.Write("s.json", text);
  const std::string failure = FailureOf([&] { ReadScene(path); });
  EXPECT_EQ(failure.rfind("3 " + path + ": ", 0), 0u) << failure;
  EXPECT_NE(failure.find(GetParam().message), std::string::npos) << failure;
  EXPECT_EQ(failure.find('\n'), std::string::npos);
}

INSTANTIATE_TEST_SUITE_P(
    Mistakes, BadSceneTest,
    testing::Values(
        BadScene{"\"width\": 640", "\"width\": 0",
                 "composition.width: expected a whole number from 1 to 30000"},
        BadScene{"\"width\": 640", "\"width\": 40000", "found 40000"},
        BadScene{"\"width\": 640", "\"width\": \"640\"", "found \"640\""},
        BadScene{"\"width\": 640", "\"widht\": 640", "did you mean \"width\"?"},
        BadScene{"\"height\": 360,", "", "the key \"height\" is missing"},
        BadScene{"\"30000/1001\"", "0", "a frame rate above 0"},
        BadScene{"\"30000/1001\"", "\"fast\"", "a frame rate such as 25"},
        BadScene{"\"duration\": 2.002", "\"duration\": -1", "a duration above 0 seconds"},
        BadScene{"\"duration\": 2.002", "\"duration\": 1, \"frames\": 3",
                 "either \"duration\" (seconds) or \"frames\""},
        BadScene{"\"layers\"", "\"layer\"", "unknown key \"layer\"; did you mean \"layers\"?"},
        BadScene{"\"name\": \"two\"", "\"name\": \"one\"", "the name \"one\" is used twice"},
        BadScene{"\"file\": \"pictures/a.png\"", "\"file\": 3",
                 "layers[0].file: expected a picture's path, found 3"},
        BadScene{"\"file\": \"pictures/a.png\"", "\"fiel\": \"a\"",
                 "layers[0]: unknown key \"fiel\"; did you mean \"file\"?"},
        BadScene{", \"file\": \"pictures/a.png\"", "", "what the layer shows is missing"},
        BadScene{"\"file\": \"pictures/a.png\"", "\"file\": \"a\", \"solid\": [1,1,1]", "keep one"},
        BadScene{"[0.25, 0.5, 1]", "[0.25, 0.5]", "expected a colour"},
        BadScene{"\"b\": \"two\"", "\"b\": \"tow\"",
                 "effect.b: there is no layer named \"tow\" in \"layers\"; did you mean \"two\"?"},
        BadScene{"{\"frame\": 0, ", "{\"frame\": 0, \"time\": 0, ", "keyframes[0]: a keyframe has either"},
        BadScene{"\"time\": 1.001", "\"time\": -1", "keyframes must ascend"},
        BadScene{"\"hold\": true", "\"hold\": 1", "expected true or false, found 1"},
        BadScene{"[0, 1, 1, 1]", "[0, 1, 1]", "Color Gradient[0]: expected a stop"},
        BadScene{"\"max\": 2", "\"maximum\": 2", "unknown key \"maximum\""},
        BadScene{"\"Square\"", "null", "parameters.Shape: expected a number"}));

TEST(SceneJson, GradientsAndCurvesHaveLimits) {
  io::Json stops = io::Json::array(), points = io::Json::array();
  for (int i = 0; i < 9; ++i) stops.push_back({i / 8.0, 1, 1, 1});
  for (int i = 0; i < 17; ++i) points.push_back({i / 16.0, 1});
  EXPECT_NE(FailureOf([&] {
              ReadGradient({&stops, "f", "g"});
            }).find("up to 8 stops, found a list of 9"),
            std::string::npos);
  const io::Json curve = {{"max", 1}, {"points", points}};
  EXPECT_NE(FailureOf([&] { ReadCurve({&curve, "f", "c"}); }).find("up to 16 points"), std::string::npos);
}

}  // namespace
}  // namespace vantle::scene
