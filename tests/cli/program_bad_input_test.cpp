// Everything that a user can get wrong: the exit code, one line that names the culprit, nothing half-written.
#include "tests/cli/run_program.h"
#include "tests/cli/tiny_png.h"

#include <algorithm>
#include <gtest/gtest.h>

namespace vantle {
namespace {

using test::ProgramRun;
using test::RunProgram;
using test::Scratch;

constexpr const char* kSmallScene = R"({"composition":{"width":32,"height":20,"frame_rate":30,"frames":2},
 "layers":[{"name":"x","file":"a.png"}],"effect":{"layer":"x","parameters":{"Density":500}}})";

struct Mistake {
  std::vector<std::string> words;
  int code;
  const char* message;  ///< part of the one line
  std::string scene = kSmallScene;
};

class BadInput : public testing::TestWithParam<Mistake> {};

TEST_P(BadInput, EndsWithItsCodeAndOneClearLine) {
  const Scratch scratch;
  test::MakePictures(scratch);
  scratch.Write("scene.json", GetParam().scene);
  scratch.Write("text.png", "no picture");
  scratch.Write("cut.png", test::ReadText(scratch.Path("a.png")).substr(0, 700));
  scratch.Write("huge.png", test::TinyPng(40000, 40000, 8, 2, "", "x"));
  scratch.Write("empty.png", test::TinyPng(0, 0, 8, 2, "", "x"));
  scratch.Write("old.0.png", "a frame that is there");
  scratch.Write("x.npy", "\x93NUMPY");
  const ProgramRun run = RunProgram(scratch, GetParam().words);
  EXPECT_EQ(run.code, GetParam().code) << run.errors;
  EXPECT_NE(run.errors.find(GetParam().message), std::string::npos) << run.errors;
  EXPECT_EQ(run.errors.rfind("vantle: ", 0), 0u) << run.errors;
  EXPECT_EQ(std::count(run.errors.begin(), run.errors.end(), '\n'), 1) << run.errors;
  EXPECT_EQ(run.output, "");
  EXPECT_EQ(test::FilesInOut(scratch), 0u);
  EXPECT_EQ(test::ReadText(scratch.Path("old.0.png")), "a frame that is there");
}

std::string SceneWith(const std::string& from, const std::string& to) {
  std::string scene = kSmallScene;
  return scene.replace(scene.find(from), from.size(), to);
}

const std::string kOut = "out/f.%04d.png";

INSTANTIATE_TEST_SUITE_P(
    Usage, BadInput,
    testing::Values(
        Mistake{{}, 2, "a command is missing"}, Mistake{{"rendr"}, 2, "did you mean \"render\"?"},
        Mistake{{"render"}, 2, "what to render is missing"},
        Mistake{{"render", "scene.json"}, 2, "-o is missing"},
        Mistake{{"render", "scene.json", "-o", kOut, "--fraems", "1"}, 2, "did you mean --frames?"},
        Mistake{{"render", "scene.json", "-o", "out/f.png"}, 2, "need a place for the frame number"},
        Mistake{{"render", "scene.json", "-o", "out/f.%d.gif"}, 2, "must end in .png"},
        Mistake{{"render", "scene.json", "-o", kOut, "--frames", "0:10"}, 2, "did you mean 0-10?"},
        Mistake{{"render", "scene.json", "-o", kOut, "--frames", "ten"}, 2, "\"ten\" is not a number"},
        Mistake{{"render", "scene.json", "-o", kOut, "--depth", "12"}, 2, "--depth takes 8, 16 or 32"},
        Mistake{{"render", "scene.json", "-o", kOut, "--resolution", "2"}, 2, "--resolution takes 1, 1/2"},
        Mistake{{"render", "scene.json", "-o", kOut, "--threads", "0"}, 2, "--threads takes a whole number"},
        Mistake{{"render", "scene.json", "-o", kOut, "-y", "-n"}, 2, "exclude each other"},
        Mistake{{"render", "scene.json", "-o", kOut, "--set", "Opacity"}, 2, "write --set \"Name=value\""},
        Mistake{{"render", "scene.json", "-o", kOut, "--set", "Opacty=3"}, 2, "did you mean \"Opacity\""},
        Mistake{{"render", "scene.json", "-o", kOut, "--set", "Seed=3"},
                2,
                "\"Vantle/Seed\" or \"Turbulence/Seed\""},
        Mistake{{"render", "scene.json", "-o", kOut, "--set", "Shape=Star"},
                2,
                "\"Star\" is no choice of \"Shape\""},
        Mistake{{"render", "scene.json", "--a", "a.png", "-o", kOut}, 2, "make a scene of their own"},
        Mistake{{"render", "scene.json", "-o", kOut, "--host-id", "ABCD"}, 2, "--host-id takes FXTC or PrMr"},
        Mistake{{"frame"}, 2, "FRAME.json is missing"}, Mistake{{"frame", "f.json"}, 2, "-o is missing"},
        Mistake{{"frame", "f.json", "-o", "x.png"}, 2, "a frame is written as .npy"},
        Mistake{{"sheet", "-o", "s.png"}, 2, "pictures are missing"},
        Mistake{{"info", "more"}, 2, "one argument too many"},
        Mistake{{"bench", "--rounds", "no"}, 2, "--rounds takes a whole number"}));

INSTANTIATE_TEST_SUITE_P(
    Inputs, BadInput,
    testing::Values(
        Mistake{{"render", "none.json", "-o", kOut}, 3, "none.json: there is no such file"},
        Mistake{{"render", "a.png", "-o", kOut}, 3, "a.png: is not valid JSON"},
        Mistake{{"render", ".", "-o", kOut}, 3, "is a folder"},
        Mistake{{"render", "--a", "none.png", "-o", kOut}, 3, "none.png: there is no such file"},
        Mistake{{"render", "--a", "text.png", "-o", kOut}, 3, "text.png: is not a picture"},
        Mistake{{"render", "--a", "cut.png", "-o", kOut}, 3, "cut.png: the picture is damaged or cut off"},
        Mistake{{"render", "--a", "huge.png", "-o", kOut}, 3, "huge.png: 40000 x 40000 pixels"},
        Mistake{{"render", "--a", "empty.png", "-o", kOut}, 3, "empty.png: 0 x 0 pixels"},
        Mistake{{"render", "--a", "x.npy", "-o", kOut}, 3, "x.npy: the .npy header is damaged"},
        Mistake{{"render", "scene.json", "-o", kOut},
                3,
                "composition.width: expected a whole number from 1 to 30000",
                SceneWith("\"width\":32", "\"width\":0")},
        Mistake{{"render", "scene.json", "-o", kOut},
                3,
                "found 40000",
                SceneWith("\"height\":20", "\"height\":40000")},
        Mistake{{"render", "scene.json", "-o", kOut},
                3,
                "unknown key \"widht\"; did you mean \"width\"?",
                SceneWith("\"width\"", "\"widht\"")},
        Mistake{{"render", "scene.json", "-o", kOut},
                3,
                "composition.width: expected a whole number",
                SceneWith("\"width\":32", "\"width\":\"wide\"")},
        Mistake{{"render", "scene.json", "-o", kOut},
                3,
                "Densty: there is no parameter named \"Densty\"; did you mean \"Density\"",
                SceneWith("\"Density\"", "\"Densty\"")},
        Mistake{{"render", "scene.json", "-o", kOut},
                3,
                "\"Density\" takes a number, found \"many\"",
                SceneWith("500", "\"many\"")},
        Mistake{{"render", "scene.json", "-o", kOut},
                3,
                "the key \"Density\" is given twice",
                SceneWith("\"Density\":500", "\"Density\":500,\"Density\":600")},
        Mistake{{"render", "scene.json", "-o", kOut},
                3,
                "z.png: there is no such file",
                SceneWith("a.png", "z.png")},
        Mistake{{"frame", "none.json", "-o", "out/x.npy"}, 3, "none.json: there is no such file"},
        Mistake{{"sheet", "none.png", "-o", "out/s.png"}, 3, "none.png: there is no such file"}));

INSTANTIATE_TEST_SUITE_P(
    Modules, BadInput,
    testing::Values(Mistake{{"info", "--module", "none.so"}, 4, "none.so"},
                    Mistake{{"info", "--module", "a.png"}, 4, "a.png"},
                    Mistake{{"render", "scene.json", "-o", kOut, "--module", VANTLE_HALF_MODULE},
                            4,
                            "does not export PluginDataEntryFunction"},
                    Mistake{{"frame", "scene.json", "-o", "out/x.npy", "--module", "none.so"}, 4, "none.so"},
                    Mistake{{"bench", "--module", "none.so"}, 4, "none.so"}));

INSTANTIATE_TEST_SUITE_P(
    Outputs, BadInput,
    testing::Values(
        Mistake{{"render", "scene.json", "-o", "a.png/f.%d.png"}, 6, "a.png: cannot be written"},
        Mistake{{"render", "scene.json", "-o", "/proc/no/f.%d.png"}, 6, "/proc/no: cannot be written"},
        Mistake{{"render", "scene.json", "-o", "old.%d.png"}, 6, "old.0.png: exists already; -y overwrites"},
        Mistake{{"sheet", "a.png", "-o", "old.0.png"}, 6, "old.0.png: exists already"},
        Mistake{{"sheet", "a.png", "-o", "/proc/no/s.png"}, 6, "/proc/no: cannot be written"}));

}  // namespace
}  // namespace vantle
