// The program's press command, and what it wrote rendered again.
#include "tests/cli/run_program.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

namespace vantle {
namespace {

using nlohmann::json;
using test::ProgramRun;
using test::RunProgram;
using test::Scratch;

constexpr const char* kButton = "A/B Control Nulls";

void WriteScene(const Scratch& scratch) {
  test::SavePicture(scratch, "a.png", test::FlatPicture8(32, 20, 255, 255, 255, 255));
  scratch.Write("scene.json", R"({"composition": {"width": 64, "height": 40, "frame_rate": 24, "frames": 2},
    "layers": [{"name": "a", "file": "a.png"}],
    "effect": {"layer": "a", "parameters": {"Transform": 0, "Density/Density": 2000, "View Angle": 0,
      "A Thickness": 0}}})");
}

ProgramRun Press(const Scratch& scratch, const std::string& from, const std::string& to,
                 const std::vector<std::string>& more = {}) {
  std::vector<std::string> words = {"press", from, kButton, "-o", to};
  words.insert(words.end(), more.begin(), more.end());
  return RunProgram(scratch, words);
}

json Read(const Scratch& scratch, const std::string& name) {
  return json::parse(test::ReadText(scratch.Path(name)), nullptr, false);
}

/// Mean column and row of what frame 0 shows.
std::pair<double, double> MiddleOf(const Scratch& scratch, const std::string& scene) {
  const ProgramRun run = RunProgram(scratch, {"render", scene, "-o", "out/f.npy", "--frames", "0", "-y"});
  EXPECT_EQ(run.code, 0) << run.errors;
  const io::Picture picture = io::ReadNpy(scratch.Path("out/f.npy"));
  double x = 0, y = 0, weight = 0;
  for (int32_t row = 0; row < picture.height; ++row) {
    for (int32_t column = 0; column < picture.width; ++column) {
      const size_t at =
          (static_cast<size_t>(row) * static_cast<size_t>(picture.width) + static_cast<size_t>(column)) * 4;
      const double alpha = std::to_integer<int>(picture.pixels[at]);
      x += column * alpha;
      y += row * alpha;
      weight += alpha;
    }
  }
  EXPECT_GT(weight, 1000);
  return {x / weight, y / weight};
}

TEST(Press, WritesASceneWithTwoNullsThatDriveThePlanes) {
  const Scratch scratch;
  WriteScene(scratch);
  const ProgramRun run = Press(scratch, "scene.json", "new.json");
  EXPECT_EQ(run.code, 0);
  EXPECT_EQ(run.errors, "");
  EXPECT_EQ(
      run.output.find("new null \"Vantle A Ctrl\"\nlayer \"Vantle A Ctrl\" into space\n"
                      "value of \"Position\" of layer \"Vantle A Ctrl\"\nexpression of \"A Position X\"\n"),
      0U);
  json scene = Read(scratch, "new.json");
  ASSERT_EQ(scene["layers"].size(), 3U);
  EXPECT_EQ(scene["layers"][1]["name"], "Vantle A Ctrl");
  EXPECT_EQ(scene["effect"]["parameters"]["A Position X"]["expression"],
            "thisComp.layer(\"Vantle A Ctrl\").transform.position[0] - thisComp.width/2");
  scene["layers"][1]["transform"]["scale"] = {100, 100, 0};
  scratch.Write("rest.json", scene.dump());
  const auto rest = MiddleOf(scratch, "rest.json");
  EXPECT_NEAR(rest.first, 31.5, 1.0);
  scene["layers"][1]["transform"]["position"] = {40, 16, 0};
  scratch.Write("moved.json", scene.dump());
  const auto moved = MiddleOf(scratch, "moved.json");
  EXPECT_NEAR(moved.first - rest.first, 8.0, 0.3);
  EXPECT_NEAR(moved.second - rest.second, -4.0, 0.3);
}

TEST(Press, ASecondOneMakesTwoMore) {
  const Scratch scratch;
  WriteScene(scratch);
  EXPECT_EQ(Press(scratch, "scene.json", "one.json").code, 0);
  EXPECT_EQ(Press(scratch, "one.json", "two.json").code, 0);
  const json one = Read(scratch, "one.json"), two = Read(scratch, "two.json");
  EXPECT_EQ(two["layers"].size(), 5U);
  EXPECT_EQ(two["effect"], one["effect"]) << "the expressions were there already";
  EXPECT_NEAR(MiddleOf(scratch, "two.json").first, 31.5, 2.0);
}

TEST(Press, InPremiereProChangesNothingAndSaysSo) {
  const Scratch scratch;
  WriteScene(scratch);
  const ProgramRun run = Press(scratch, "scene.json", "new.json", {"--host-id", "PrMr"});
  EXPECT_EQ(run.code, 0);
  EXPECT_EQ(run.errors, "vantle: warning: pressing \"A/B Control Nulls\" changed nothing\n");
  EXPECT_EQ(Read(scratch, "new.json"), Read(scratch, "scene.json"));
}

TEST(Press, SaysWhatIsWrong) {
  const Scratch scratch;
  WriteScene(scratch);
  const auto failure = [&](const std::vector<std::string>& words) {
    const ProgramRun run = RunProgram(scratch, words);
    return std::to_string(run.code) + " " + run.errors;
  };
  EXPECT_EQ(failure({"press", "scene.json", kButton}),
            "2 vantle: -o is missing: say where the new scene goes\n");
  EXPECT_EQ(
      failure({"press", "scene.json", "-o", "x.json"}),
      "2 vantle: name a scene and a button: vantle press SCENE.json \"A/B Control Nulls\" -o NEW.json\n");
  EXPECT_EQ(failure({"press", "scene.json", "Size", "-o", "x.json"}),
            "2 vantle: there is no button named \"Size\"; there is \"A/B Control Nulls\"\n");
  EXPECT_EQ(failure({"press", "scene.json", kButton, "-o", "scene.json"}),
            "6 vantle: scene.json: exists already; -y overwrites\n");
  EXPECT_EQ(failure({"press", "gone.json", kButton, "-o", "x.json"}).substr(0, 1), "3");
  EXPECT_EQ(failure({"press", "scene.json", kButton, "-o", "a.png/x.json"}).substr(0, 1), "6");
  EXPECT_FALSE(std::filesystem::exists(scratch.Path("x.json")));
}

TEST(Render, ReportsAnExpressionThatFailsOnceAndGoesOn) {
  const Scratch scratch;
  WriteScene(scratch);
  json scene = Read(scratch, "scene.json");
  scene["effect"]["parameters"]["A Position X"] = {{"value", 0}, {"expression", "1 +\nfoo"}};
  scene["effect"]["parameters"]["A Position Y"] = {{"value", 0}, {"expression", "while (1);"}};
  scratch.Write("bad.json", scene.dump());
  const ProgramRun run = RunProgram(scratch, {"render", "bad.json", "-o", "out/f.%d.png", "--quiet"});
  EXPECT_EQ(run.code, 0);
  const std::string first =
      "vantle: warning: expression of layer \"a\", \"A Position X\", line 2: ReferenceError: identifier "
      "'foo' "
      "undefined; its value without the expression is used\n";
  EXPECT_EQ(run.errors.substr(0, first.size()), first);
  const std::string second = run.errors.substr(std::min(first.size(), run.errors.size()));
  EXPECT_EQ(
      second.find("vantle: warning: expression of layer \"a\", \"A Position Y\", line 1: does not end: "),
      0U);
  EXPECT_EQ(std::count(second.begin(), second.end(), '\n'), 1);
  EXPECT_EQ(test::FilesInOut(scratch), 2U);
}

}  // namespace
}  // namespace vantle
