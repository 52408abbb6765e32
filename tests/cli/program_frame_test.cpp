// One exact frame from what a host hands over.
#include "tests/cli/run_program.h"

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

namespace vantle {
namespace {

using nlohmann::json;
using test::ProgramRun;
using test::RunProgram;
using test::Scratch;

json FrameJson(int depth) {
  return {{"width", 48},
          {"height", 32},
          {"depth", depth},
          {"time", {{"current", 10}, {"step", 1}, {"scale", 30}, {"total", 60}}},
          {"downsample", {{"x", {1, 1}}, {"y", {1, 1}}}},
          {"input", "a.npy"},
          {"layers", {{"2", "a.npy"}, {"3", "b.npy"}}},
          {"custom_layer", nullptr},
          {"camera", nullptr},
          {"params", {{"4", 50.0}, {"19", 3000}, {"13", 90.0}, {"32", 1}}},
          {"gradient", {{0.0, 1.0, 0.0, 0.0}, {1.0, 0.0, 0.0, 1.0}}},
          {"scale_curve", {{"max", 2}, {"points", {{0, 1}, {1, 1.5}}}}},
          {"opacity_curve", {{"max", 1}, {"points", {{0, 1}, {1, 0.5}}}}}};
}

PixelDepth DepthOf(int bits) {
  return bits == 8 ? PixelDepth::k8 : bits == 16 ? PixelDepth::k16 : PixelDepth::k32;
}

struct FrameFolder {
  Scratch scratch;
  explicit FrameFolder(int depth) {
    test::SavePicture(scratch, "a.npy", test::RandomPicture(40, 24, DepthOf(depth), 1));
    test::SavePicture(scratch, "b.npy", test::RandomPicture(48, 32, DepthOf(depth), 2));
  }
  ProgramRun Run(const json& frame, const std::vector<std::string>& more = {}) const {
    scratch.Write("frame.json", frame.dump());
    std::vector<std::string> words = {"frame", "frame.json", "-o", "x.npy"};
    words.insert(words.end(), more.begin(), more.end());
    return RunProgram(scratch, words);
  }
  /// A sum over the array that was written, 0 when none was.
  size_t Render(const json& frame, const std::vector<std::string>& more = {}) const {
    std::filesystem::remove(scratch.Path("x.npy"));
    const ProgramRun run = Run(frame, more);
    EXPECT_EQ(run.code, 0) << run.errors;
    EXPECT_EQ(run.errors, "");
    return test::SumOf(test::ReadText(scratch.Path("x.npy")));
  }
};

class FrameDepth : public testing::TestWithParam<int> {};

TEST_P(FrameDepth, IsTheSameInEveryRunAndOnAnyNumberOfThreads) {
  const FrameFolder folder(GetParam());
  const json frame = FrameJson(GetParam());
  const size_t first = folder.Render(frame);
  const io::Picture picture = io::ReadNpy(folder.scratch.Path("x.npy"));
  EXPECT_EQ(picture.width, 48);
  EXPECT_EQ(picture.height, 32);
  EXPECT_EQ(picture.depth, DepthOf(GetParam()));
  EXPECT_NE(picture.pixels, io::MakePicture(48, 32, picture.depth).pixels) << "nothing was drawn";
  EXPECT_EQ(folder.Render(frame), first);
  for (const char* threads : {"1", "2", "3", "8"})
    EXPECT_EQ(folder.Render(frame, {"--threads", threads}), first);
}

INSTANTIATE_TEST_SUITE_P(Depths, FrameDepth, testing::Values(8, 16, 32));

TEST(Frame, WhatIsAbsentKeepsItsDefault) {
  const FrameFolder folder(8);
  json frame = FrameJson(8);
  for (const char* key :
       {"downsample", "custom_layer", "camera", "params", "gradient", "scale_curve", "opacity_curve"})
    frame.erase(key);
  const size_t bare = folder.Render(frame);
  frame["params"] = {{"4", 0.0}, {"19", 20000}, {"29", 2}, {"32", 1}, {"38", 80}};
  frame["downsample"] = {{"x", {1, 1}}, {"y", {1, 1}}};
  frame["custom_layer"] = nullptr;
  frame["camera"] = nullptr;
  EXPECT_EQ(folder.Render(frame), bare);
}

TEST(Frame, AMissingSourceIsTheOwnLayerAndNullIsNone) {
  const FrameFolder folder(8);
  json frame = FrameJson(8);
  frame["input"] = "b.npy";
  frame["params"]["4"] = 0;
  frame["layers"] = {{"2", "b.npy"}};
  const size_t own = folder.Render(frame);
  frame["layers"] = json::object();
  EXPECT_EQ(folder.Render(frame), own);
  frame.erase("layers");
  EXPECT_EQ(folder.Render(frame), own);
  frame["layers"] = {{"2", "a.npy"}};
  EXPECT_NE(folder.Render(frame), own);
}

TEST(Frame, EveryValueReachesTheEffect) {
  const FrameFolder folder(8);
  const json frame = FrameJson(8);
  const size_t base = folder.Render(frame);
  const auto differs = [&](const char* pointer, const json& value) {
    json changed = frame;
    changed[json::json_pointer(pointer)] = value;
    return folder.Render(changed) != base;
  };
  EXPECT_TRUE(differs("/params/4", 51.0));
  EXPECT_TRUE(differs("/params/13", -90.0));
  EXPECT_TRUE(differs("/params/29", 4));
  EXPECT_TRUE(differs("/layers/3", nullptr));
  EXPECT_TRUE(differs("/downsample/x", json({1, 2})));
  EXPECT_TRUE(differs("/scale_curve/points/0/1", 1.75));
  EXPECT_TRUE(differs("/opacity_curve/points/0/1", 0.25));
  EXPECT_TRUE(differs("/camera", {{"matrix", {1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 0, 0, -40, 1}},
                                  {"distance", 50},
                                  {"plane_width", 48},
                                  {"plane_height", 32},
                                  {"depth_of_field", false},
                                  {"focus_distance", 40},
                                  {"aperture", 5},
                                  {"zoom", 50}}));
  json solid = frame;
  solid["params"]["35"] = 3;
  const size_t overLife = folder.Render(solid);
  solid["gradient"] = {{0.0, 0.0, 1.0, 0.0}};
  EXPECT_NE(folder.Render(solid), overLife);
}

TEST(Frame, TheCustomLayerGivesTheLastFrameNotAboveTheTime) {
  const FrameFolder folder(8);
  for (const char* name : {"s0.npy", "s1.npy"})
    test::SavePicture(folder.scratch, name, test::FlatPicture8(5, 5, 255, name[1] == '0' ? 255 : 0, 255, 0));
  json frame = FrameJson(8);
  frame["params"]["29"] = 9;
  frame["params"]["26"] = 8;
  frame["params"]["35"] = 1;
  const auto at = [&](int time, const json& frames) {
    frame["time"]["current"] = time;
    frame["custom_layer"] = {{"frames", frames}, {"duration", 60}};
    return folder.Render(frame);
  };
  const json first = {{"time", 5}, {"file", "s0.npy"}}, second = {{"time", 9}, {"file", "s1.npy"}};
  const size_t none = at(10, json::array());
  EXPECT_NE(at(10, json::array({first})), none);
  EXPECT_NE(at(10, json::array({second})), at(10, json::array({first})));
  EXPECT_EQ(at(10, json::array({first, second})), at(10, json::array({second})));
  EXPECT_EQ(at(10, json::array({second, first})), at(10, json::array({first})))
      << "the last listed one counts, not the latest";
  EXPECT_EQ(at(8, json::array({first, second})), at(8, json::array({first})));
  EXPECT_EQ(at(4, json::array({first, second})), at(4, json::array()));
}

TEST(Frame, ValuesOutsideOfTheirRangeAreHandedOverAsTheyAre) {
  const FrameFolder folder(8);
  json frame = FrameJson(8);
  frame["params"]["38"] = 100;
  const size_t full = folder.Render(frame);
  frame["params"]["26"] = 250.0;
  EXPECT_NE(folder.Render(frame), full);
  frame["time"] = {{"current", -5}, {"step", 0}, {"scale", 0}, {"total", 0}};
  EXPECT_EQ(folder.Run(frame).code, 0);
}

TEST(Frame, GoesToStandardOutputToo) {
  const FrameFolder folder(8);
  const size_t file = folder.Render(FrameJson(8));
  const ProgramRun run = RunProgram(folder.scratch, {"frame", "frame.json", "-o", "-"});
  EXPECT_EQ(run.code, 0);
  EXPECT_EQ(test::SumOf(run.output), file);
}

TEST(Frame, MistakesAreNamedByTheirPlace) {
  const FrameFolder folder(8);
  test::SavePicture(folder.scratch, "deep.npy", test::RandomPicture(4, 4, PixelDepth::k16, 1));
  const struct {
    const char* pointer;
    json value;
    const char* message;
  } cases[] = {
      {"/widht", 3, "frame.json: unknown key \"widht\"; did you mean \"width\"?"},
      {"/width", 0, "width: expected a whole number from 1 to 30000, found 0"},
      {"/height", 40000, "height: expected a whole number from 1 to 30000, found 40000"},
      {"/width", "48", "width: expected a whole number from 1 to 30000, found \"48\""},
      {"/depth", 12, "depth: expected 8, 16 or 32, found 12"},
      {"/time/start", 3, "time: unknown key \"start\""},
      {"/time/scale", -1, "time.scale: expected a whole number from 0"},
      {"/input", "none.npy", "none.npy: there is no such file"},
      {"/input", "deep.npy", "is 16 bits deep, the frame 8"},
      {"/layers/4", "a.npy", "layers: unknown key \"4\""},
      {"/params/88", 1, "params: unknown key \"88\"; parameters go by their ids, \"1\" to \"87\""},
      {"/params/Opacity", 1, "params: unknown key \"Opacity\""},
      {"/params/29", 1.5, "params.29: expected a whole number"},
      {"/params/38", "much", "params.38: expected a number, found \"much\""},
      {"/params/36", 1, "params.36: is a custom value: it goes into \"gradient\""},
      {"/params/2", 1, "params.2: is a layer"},
      {"/params/1", 1, "params.1: is a group and takes no value"},
      {"/downsample/x", json({1}), "downsample.x: expected a fraction"},
      {"/camera", {{"matrix", {1, 2}}}, "camera.matrix: expected a list of 16 numbers"},
      {"/custom_layer", {{"frames", json::array()}}, "custom_layer: the key \"duration\" is missing"},
      {"/gradient", {{0, 1, 1}}, "gradient[0]: expected a stop"},
      {"/scale_curve", {{"points", json::array()}}, "scale_curve: the key \"max\" is missing"}};
  for (const auto& entry : cases) {
    json frame = FrameJson(8);
    frame[json::json_pointer(entry.pointer)] = entry.value;
    const ProgramRun run = folder.Run(frame);
    EXPECT_EQ(run.code, 3) << run.errors;
    EXPECT_NE(run.errors.find(entry.message), std::string::npos) << run.errors;
    EXPECT_EQ(std::count(run.errors.begin(), run.errors.end(), '\n'), 1) << run.errors;
    EXPECT_FALSE(std::filesystem::exists(folder.scratch.Path("x.npy")));
  }
}

TEST(Frame, RequiredKeysAreMissed) {
  const FrameFolder folder(8);
  for (const char* key : {"width", "height", "depth", "time", "input"}) {
    json frame = FrameJson(8);
    frame.erase(key);
    const ProgramRun run = folder.Run(frame);
    EXPECT_EQ(run.code, 3);
    EXPECT_NE(run.errors.find(std::string("the key \"") + key + "\" is missing"), std::string::npos)
        << run.errors;
  }
}

TEST(Frame, AnUnwritableOutputIsReported) {
  const FrameFolder folder(8);
  folder.Render(FrameJson(8));
  EXPECT_EQ(RunProgram(folder.scratch, {"frame", "frame.json", "-o", "/proc/no/x.npy"}).code, 6);
}

}  // namespace
}  // namespace vantle
