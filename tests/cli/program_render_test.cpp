// Frames of scenes as users render them.
#include "host/io/picture_codec.h"
#include "tests/cli/run_program.h"

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

namespace vantle {
namespace {

using nlohmann::json;
using test::ProgramRun;
using test::RunProgram;
using test::Scratch;

struct RenderFolder {
  Scratch scratch;
  RenderFolder() { test::MakePictures(scratch); }

  ProgramRun Pictures(const std::vector<std::string>& more) const {
    std::vector<std::string> words = {"render", "--a", "a.png", "--b", "b.png"};
    words.insert(words.end(), more.begin(), more.end());
    return RunProgram(scratch, words);
  }
  std::string Bytes(const std::string& name) const { return test::ReadText(scratch.Path(name)); }
  /// A sum over the file's bytes, 0 when there is none.
  size_t Frame(const std::string& name) const { return test::SumOf(Bytes(name)); }
};

TEST(Render, TwoPicturesBecomeNumberedFrames) {
  const RenderFolder folder;
  const ProgramRun run = folder.Pictures({"-o", "out/f.%04d.png", "--frames", "0-4"});
  EXPECT_EQ(run.code, 0) << run.errors;
  EXPECT_EQ(run.output, "");
  EXPECT_EQ(test::FilesInOut(folder.scratch), 5u);
  EXPECT_EQ(io::ReadPictureSize(folder.scratch.Path("out/f.0004.png")).width, 40);
  EXPECT_NE(folder.Frame("out/f.0000.png"), folder.Frame("out/f.0004.png"));
  EXPECT_NE(run.errors.find("frame 4  out/f.0004.png"), std::string::npos) << run.errors;
  EXPECT_NE(run.errors.find("(5/5)"), std::string::npos) << run.errors;
  EXPECT_NE(run.errors.find("5 frames written"), std::string::npos) << run.errors;
}

TEST(Render, TransformRunsFromNothingToFullOverTheRange) {
  const RenderFolder folder;
  ASSERT_EQ(folder.Pictures({"-o", "out/f.%d.npy", "--frames", "-2-2x2"}).code, 0);
  for (const auto& [frame, value] : {std::pair("-2", "0"), std::pair("0", "50"), std::pair("2", "100")}) {
    const std::string out = std::string("out/g.") + frame + ".npy";
    ASSERT_EQ(
        folder.Pictures({"-o", out, "--frames", frame, "--set", std::string("Transform=") + value}).code, 0);
    EXPECT_EQ(folder.Frame(out), folder.Frame(std::string("out/f.") + frame + ".npy")) << frame;
  }
}

TEST(Render, TheBytesDoNotDependOnThreads) {
  const RenderFolder folder;
  for (const char* threads : {"1", "2", "3", "8"})
    ASSERT_EQ(folder
                  .Pictures({"-o", std::string("out/") + threads + ".%d.npy", "--frames", "0-5", "--set",
                             "Turbulence/Amount=20", "--threads", threads})
                  .code,
              0);
  for (const char* threads : {"2", "3", "8"})
    for (int frame = 0; frame < 6; ++frame)
      EXPECT_EQ(folder.Frame(std::string("out/") + threads + "." + std::to_string(frame) + ".npy"),
                folder.Frame("out/1." + std::to_string(frame) + ".npy"));
}

TEST(Render, ASceneGivesTheFrameThatTheHostRecordGives) {
  const RenderFolder folder;
  folder.scratch.Write("scene.json", R"({"composition":{"width":50,"height":30,"frame_rate":25,"duration":2},
    "layers":[{"name":"x","file":"a.png"},{"name":"y","file":"b.png"}],
    "effect":{"layer":"x","b":"y","parameters":{"Density":900,"Shape":"Square","Swirl Angle":30,
    "Transform":{"keyframes":[{"time":0,"value":0},{"time":2,"value":100}]},
    "Scale over Life":{"max":2,"points":[[0,1],[1,1.5]]}}}})");
  ASSERT_EQ(RunProgram(folder.scratch, {"render", "scene.json", "-o", "s.npy", "--frames", "20"}).code, 0);

  test::SavePicture(folder.scratch, "a.npy", io::ReadPicture(folder.scratch.Path("a.png"), PixelDepth::k8));
  test::SavePicture(folder.scratch, "b.npy", io::ReadPicture(folder.scratch.Path("b.png"), PixelDepth::k8));
  folder.scratch.Write("frame.json", R"({"width":50,"height":30,"depth":8,
    "time":{"current":20,"step":1,"scale":25,"total":50},"downsample":{"x":[1,1],"y":[1,1]},
    "input":"a.npy","layers":{"3":"b.npy"},"params":{"19":900,"29":4,"13":30,"4":40},
    "scale_curve":{"max":2,"points":[[0,1],[1,1.5]]}})");
  ASSERT_EQ(RunProgram(folder.scratch, {"frame", "frame.json", "-o", "f.npy"}).code, 0);
  EXPECT_EQ(folder.Frame("s.npy"), folder.Frame("f.npy"));
}

TEST(Render, DepthsAndFormatsAgree) {
  const RenderFolder folder;
  for (const char* depth : {"8", "16", "32"}) {
    const std::string stem = std::string("out/") + depth;
    const int exr = io::CanEncode(io::OutputFormat::kExr) ? 0 : 2;
    for (const auto& [ending, code] : {std::pair(".npy", 0), std::pair(".png", 0), std::pair(".exr", exr)})
      ASSERT_EQ(folder.Pictures({"-o", stem + ending, "--frames", "3", "--depth", depth}).code, code);
    const PixelDepth own = depth[0] == '8'   ? PixelDepth::k8
                           : depth[0] == '1' ? PixelDepth::k16
                                             : PixelDepth::k32;
    const io::Picture raw = io::ReadNpy(folder.scratch.Path(stem + ".npy"));
    EXPECT_EQ(raw.depth, own);
    if (own != PixelDepth::k32) {
      EXPECT_EQ(io::ReadPicture(folder.scratch.Path(stem + ".png"), own).pixels, raw.pixels);
    }
  }
}

TEST(Render, ResolutionsAreRoundedUp) {
  const RenderFolder folder;
  for (const auto& [resolution, width, height] : {std::tuple("1", 40, 24), std::tuple("1/2", 20, 12),
                                                  std::tuple("1/3", 14, 8), std::tuple("1/4", 10, 6)}) {
    ASSERT_EQ(folder.Pictures({"-o", "out/r.npy", "-y", "--frames", "1", "--resolution", resolution}).code,
              0);
    const io::Picture picture = io::ReadNpy(folder.scratch.Path("out/r.npy"));
    EXPECT_EQ(picture.width, width);
    EXPECT_EQ(picture.height, height);
  }
}

TEST(Render, ExistingFramesAreRefusedOverwrittenSkippedOrResumed) {
  const RenderFolder folder;
  const std::vector<std::string> base = {"-o", "out/f.%d.png", "--frames", "0-3", "--quiet"};
  const auto with = [&](const char* option) {
    std::vector<std::string> words = base;
    words.push_back(option);
    return folder.Pictures(words);
  };
  ASSERT_EQ(folder.Pictures(base).code, 0);
  const std::string good = folder.Bytes("out/f.1.png");
  EXPECT_EQ(folder.Pictures(base).code, 6);

  const auto spoil = [&] {
    std::filesystem::remove(folder.scratch.Path("out/f.0.png"));
    folder.scratch.Write("out/f.1.png", good.substr(0, good.size() / 2));
  };
  spoil();
  EXPECT_EQ(with("-n").code, 0);
  EXPECT_EQ(folder.Bytes("out/f.1.png").size(), good.size() / 2) << "skipped although broken";
  EXPECT_EQ(test::FilesInOut(folder.scratch), 4u);
  spoil();
  EXPECT_EQ(with("--resume").code, 0);
  EXPECT_EQ(folder.Frame("out/f.1.png"), test::SumOf(good));
  EXPECT_EQ(test::FilesInOut(folder.scratch), 4u);
  spoil();
  EXPECT_EQ(with("-y").code, 0);
  EXPECT_EQ(folder.Frame("out/f.1.png"), test::SumOf(good));
}

TEST(Render, JsonGoesToStandardOutputAndNothingElseDoes) {
  const RenderFolder folder;
  ASSERT_EQ(folder.Pictures({"-o", "out/f.%d.png", "--frames", "1", "--quiet"}).code, 0);
  const ProgramRun run =
      folder.Pictures({"-o", "out/f.%d.png", "--frames", "0-2", "-n", "--json", "--quiet"});
  EXPECT_EQ(run.errors, "");
  const json report = json::parse(run.output, nullptr, false);
  EXPECT_EQ(report["exit_code"], 0);
  EXPECT_EQ(report["written"], 2);
  EXPECT_EQ(report["skipped"], 1);
  ASSERT_EQ(report["frames"].size(), 3u);
  EXPECT_EQ(report["frames"][1]["status"], "skipped");
  EXPECT_EQ(report["frames"][2]["file"], "out/f.2.png");
  EXPECT_GT(report["frames"][2]["milliseconds"].get<double>(), 0.0);
}

TEST(Render, ClampedValuesWarnAndRender) {
  const RenderFolder folder;
  const ProgramRun run = folder.Pictures({"-o", "x.png", "--frames", "1", "--quiet", "--set", "Opacity=300"});
  EXPECT_EQ(run.code, 0);
  EXPECT_EQ(run.errors,
            "vantle: warning: --set \"Opacity=300\": 300 lies outside of the range of \"Opacity\", 0 to 100, "
            "and is "
            "held to 100\n");
  ASSERT_EQ(folder.Pictures({"-o", "y.png", "--frames", "1", "--quiet", "--set", "Opacity=100"}).code, 0);
  EXPECT_EQ(folder.Frame("x.png"), folder.Frame("y.png"));
}

TEST(Render, AGapInASequenceFailsItsFramesOnly) {
  const RenderFolder folder;
  for (const int i : {0, 1, 3})
    test::SavePicture(folder.scratch, "s." + std::to_string(i) + ".png",
                      test::RandomPicture(9, 9, PixelDepth::k8, 4));
  folder.scratch.Write("scene.json", R"({"composition":{"width":20,"height":20,"frame_rate":30,"frames":4},
    "layers":[{"name":"s","sequence":"s.%d.png"},{"name":"t","file":"a.png"}],
    "effect":{"layer":"t","b":"s","parameters":{"Density":100}}})");
  const ProgramRun run =
      RunProgram(folder.scratch, {"render", "scene.json", "-o", "out/f.%d.png", "--quiet"});
  EXPECT_EQ(run.code, 1);
  EXPECT_EQ(run.errors, "vantle: frame 2: s.2.png: there is no such file: check the path\n");
  EXPECT_EQ(test::FilesInOut(folder.scratch), 3u);
}

TEST(Render, PremiereGetsTheSameFrame) {
  const RenderFolder folder;
  ASSERT_EQ(folder.Pictures({"-o", "x.npy", "--frames", "1"}).code, 0);
  const ProgramRun run = folder.Pictures({"-o", "y.npy", "--frames", "1", "--host-id", "PrMr"});
  EXPECT_EQ(run.code, 0) << run.errors;
  EXPECT_EQ(folder.Frame("x.npy"), folder.Frame("y.npy"));
}

TEST(Render, AModuleGivenByPathIsTheOneThatRenders) {
  const RenderFolder folder;
  EXPECT_EQ(folder.Pictures({"-o", "x.npy", "--frames", "1", "--module", VANTLE_MODULE}).code, 0);
}

TEST(SheetProgram, PutsFramesOnOneSheet) {
  const RenderFolder folder;
  ASSERT_EQ(folder.Pictures({"-o", "out/f.%d.png", "--frames", "0-7", "--quiet"}).code, 0);
  std::vector<std::string> words = {"sheet", "-o", "sheet.png", "--width", "80", "--gap", "4"};
  for (int i = 0; i < 8; ++i) words.push_back("out/f." + std::to_string(i) + ".png");
  EXPECT_EQ(RunProgram(folder.scratch, words).code, 0);
  EXPECT_EQ(io::ReadPictureSize(folder.scratch.Path("sheet.png")).width, 4 * 84 + 4);
}

TEST(BenchProgram, ReportsFramesStagesAndTheMachine) {
  const Scratch scratch;
  const ProgramRun run = RunProgram(scratch, {"bench", "--rounds", "1", "--json", "--threads", "2"});
  ASSERT_EQ(run.code, 0) << run.errors;
  const json report = json::parse(run.output, nullptr, false);
  ASSERT_EQ(report["frames"].size(), 12u);
  EXPECT_EQ(report["frames"][0]["frame"], "default");
  EXPECT_EQ(report["frames"][3]["frame"], "heavy");
  EXPECT_EQ(report["frames"][3]["threads"], 2);
  EXPECT_EQ(report["frames"][11]["frame"], "blurred-sprites");
  for (const json& frame : report["frames"]) EXPECT_GT(frame["min_ms"].get<double>(), 0.0);
  EXPECT_EQ(report["stages_one_thread"][1]["stages"].size(), 4u);
  EXPECT_GT(report["peak_memory_bytes"]["heavy"].get<double>(), 1e6);
  EXPECT_FALSE(report["machine"]["processor"].get<std::string>().empty());
}

TEST(BenchProgram, ComparesFramesAtOnceWithFramesInARow) {
  const Scratch scratch;
  const ProgramRun run =
      RunProgram(scratch, {"bench", "--concurrent", "2", "--rounds", "1", "--json", "--threads", "2"});
  ASSERT_EQ(run.code, 0) << run.errors;
  const json cases = json::parse(run.output, nullptr, false)["concurrent"];
  ASSERT_EQ(cases.size(), 8u) << "two frames, in a row and at once, on one thread and two";
  for (const json& entry : cases) {
    EXPECT_GT(entry["frames_per_second"].get<double>(), 0.0);
    EXPECT_GT(entry["frame_ms"].get<double>(), 0.0);
  }
  EXPECT_EQ(cases[0]["at_once"], 1);
  EXPECT_EQ(cases[7]["at_once"], 2);
  EXPECT_EQ(cases[7]["loop_threads"], 2);
}

}  // namespace
}  // namespace vantle
