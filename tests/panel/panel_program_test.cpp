// The command as its users run it.
#include "host/cli/program.h"
#include "tests/panel/real_panel.h"

namespace vantle::panel {
namespace {

struct Outcome {
  int code = 0;
  std::string out;
  std::string err;
};

Outcome RunVantle(std::vector<std::string> words) {
  words.insert(words.end(), {"--module", VANTLE_MODULE});
  testing::internal::CaptureStdout();
  testing::internal::CaptureStderr();
  Outcome run;
  run.code = cli::RunProgram(words);
  run.out = testing::internal::GetCapturedStdout();
  run.err = testing::internal::GetCapturedStderr();
  return run;
}

struct PanelProgram : testing::Test {
  test::Scratch scratch;
  std::string scene = scratch.Write("scene.json", SceneText("{}"));
};

TEST_F(PanelProgram, TheExampleIsPlayedShownAndSaved) {
  const std::string folder = PANEL_EXAMPLE_FOLDER;
  const Outcome run = RunVantle({"panel", folder + "/scene.json", "-o", scratch.Path("p.png"), "--record",
                                 scratch.Path("calls.txt"), "--events", folder + "/events.json", "--save",
                                 scratch.Path("new.json"), "--steps"});
  EXPECT_EQ(run.code, 0) << run.err;
  EXPECT_EQ(run.err, "");
  EXPECT_NE(run.out.find("10  Color Gradient  click at 101,32  0%,29%,50%,100% -> 0%,29%,100%\n"),
            std::string::npos)
      << run.out;
  EXPECT_EQ(io::ReadPictureSize(scratch.Path("p.png")).width, kPanelWidth);
  EXPECT_NE(test::ReadText(scratch.Path("calls.txt")).find("# double click at 60,32\ncolour picker"),
            std::string::npos);
  const Outcome render = RunVantle(
      {"render", scratch.Path("new.json"), "-o", scratch.Path("f.%04d.png"), "--frames", "8", "--quiet"});
  EXPECT_EQ(render.code, 0) << render.err;
  const Outcome again = RunVantle({"panel", scratch.Path("new.json"), "--save", scratch.Path("same.json")});
  EXPECT_EQ(again.code, 0) << again.err;
  EXPECT_EQ(test::ReadText(scratch.Path("same.json")), test::ReadText(scratch.Path("new.json")));
}

/// Opaque pixels of a frame: those that are more green than red, and the others.
struct Colours {
  int greener = 0;
  int redder = 0;
};

Colours ColoursOf(const std::string& path) {
  const io::Picture picture = io::ReadPicture(path, PixelDepth::k8);
  Colours colours;
  for (int y = 0; y < picture.height; ++y) {
    const std::byte* row = io::Row(picture, y);
    for (int x = 0; x < picture.width; ++x) {
      const std::byte* pixel = row + x * 4;
      if (std::to_integer<int>(pixel[0]) < 128) continue;
      ++(pixel[2] > pixel[1] ? colours.greener : colours.redder);
    }
  }
  return colours;
}

// From yellow over cyan most of the particles are green; from purple over orange to pink none is.
TEST_F(PanelProgram, RenderedColoursFollowTheSavedScene) {
  const std::string folder = PANEL_EXAMPLE_FOLDER, edited = scratch.Path("new.json");
  ASSERT_EQ(
      RunVantle({"panel", folder + "/scene.json", "--events", folder + "/events.json", "--save", edited})
          .code,
      0);
  Colours colours[2];
  for (const bool after : {false, true}) {
    const std::string frame = scratch.Path(after ? "after.png" : "before.png");
    const Outcome run = RunVantle(
        {"render", after ? edited : folder + "/scene.json", "-o", frame, "--frames", "8", "--quiet"});
    ASSERT_EQ(run.code, 0) << run.err;
    colours[after ? 1 : 0] = ColoursOf(frame);
  }
  EXPECT_GT(colours[0].greener, 1000);
  EXPECT_GT(colours[0].greener, 2 * colours[0].redder);
  EXPECT_GT(colours[1].redder, 1000);
  EXPECT_EQ(colours[1].greener, 0);
}

TEST_F(PanelProgram, MistakesEndWithTheirCodes) {
  EXPECT_EQ(RunVantle({"panel"}).code, 2);
  EXPECT_EQ(RunVantle({"panel", scene}).code, 2);
  EXPECT_EQ(RunVantle({"panel", scene, "-o", scratch.Path("p.gif")}).code, 2);
  EXPECT_EQ(RunVantle({"panel", scene, "-o", scratch.Path("p.png"), "--scale", "0"}).code, 2);
  EXPECT_EQ(RunVantle({"panel", scene, "-o", scratch.Path("p.png"), "--scale", "nan"}).code, 2);
  EXPECT_EQ(RunVantle({"panel", scratch.Path("none.json"), "--steps"}).code, 3);
  EXPECT_EQ(RunVantle({"panel", scene, "--steps", "--events", scratch.Path("none.json")}).code, 3);
  const Outcome exists = RunVantle({"panel", scene, "--save", scene});
  EXPECT_EQ(exists.code, 6);
  EXPECT_EQ(exists.err, "vantle: " + scene + ": exists already; -y overwrites it\n");
  EXPECT_EQ(RunVantle({"panel", scene, "-o", scratch.Path("scene.json/p.png")}).code, 6);
}

TEST_F(PanelProgram, AFailedPickerThatTheScriptAskedForIsAWarning) {
  const std::string events = scratch.Write("e.json", R"({ "events": [
    { "control": "Color Gradient", "double_click": [100, 30], "picker": { "error": 77 } } ] })");
  const Outcome run = RunVantle({"panel", scene, "--steps", "--events", events});
  EXPECT_EQ(run.code, 0);
  EXPECT_EQ(run.err, "vantle: warning: " + events +
                         ": events[0]: double click \"Color Gradient\" at 100,30: the effect failed, event, "
                         "error 77, as the script's colour picker did\n");
}

TEST_F(PanelProgram, PremiereHasNoSuiteToDrawTheControlsWith) {
  const Outcome run = RunVantle({"panel", scene, "--steps", "--host-id", "PrMr"});
  EXPECT_EQ(run.code, 5);
  EXPECT_NE(run.err.find("error 516 (\"Not able to acquire AEFX Suite.\")"), std::string::npos) << run.err;
}

}  // namespace
}  // namespace vantle::panel
