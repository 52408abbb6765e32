// Full disks and interrupts, as POSIX systems let a test bring them about.
#include "tests/cli/run_program.h"

#include <cstdlib>
#include <gtest/gtest.h>

namespace vantle {
namespace {

using test::ProgramRun;
using test::RunProgram;
using test::Scratch;

const std::string kOut = "out/f.%04d.png";

TEST(FullDisk, EndsWithOneLineAndLeavesNothingHalfWritten) {
  const Scratch scratch;
  test::MakePictures(scratch);
  const ProgramRun run = RunProgram(scratch,
                                    {"render", "--a", "a.png", "--b", "b.png", "-o", kOut, "--frames", "0-9",
                                     "--size", "400x400", "--quiet"},
                                    2000);
  EXPECT_EQ(run.code, 6) << run.errors;
  EXPECT_NE(run.errors.find("cannot be written, File too large: free some space"), std::string::npos)
      << run.errors;
  EXPECT_EQ(test::FilesInOut(scratch), 0u);
}

TEST(FullDisk, FramesWrittenBeforeStay) {
  const Scratch scratch;
  test::MakePictures(scratch);
  scratch.Write("scene.json", R"({"composition":{"width":300,"height":300,"frame_rate":30,"frames":10},
    "layers":[{"name":"x","file":"a.png"}],"effect":{"layer":"x","a":"x","parameters":{"Density":{"keyframes":[
    {"frame":0,"value":100,"hold":true},{"frame":3,"value":200000}]},"Scatter":200,"Opacity":{"keyframes":[
    {"frame":0,"value":0,"hold":true},{"frame":3,"value":100}]}}}})");
  const ProgramRun run =
      RunProgram(scratch, {"render", "scene.json", "-o", kOut, "--threads", "1", "--quiet"}, 4000);
  EXPECT_EQ(run.code, 1) << run.errors;
  EXPECT_EQ(test::FilesInOut(scratch), 3u);
}

TEST(Interrupt, EndsTheRunningFramesAndLeavesWholeOnes) {
  const Scratch scratch;
  test::MakePictures(scratch);
  const std::vector<std::string> words = {"render", "--a", "a.png",    "--b",   "b.png",
                                          "-o",     kOut,  "--frames", "0-4999"};
  const pid_t child = test::StartProgram(scratch.folder.string(), words);
  for (int wait = 0; wait < 60000 && test::FilesInOut(scratch) < 3; ++wait) usleep(1000);
  kill(child, SIGINT);
  EXPECT_EQ(test::EndProgram(child), 130);
  EXPECT_NE(test::ReadText(scratch.Path("err.txt")).find("--resume"), std::string::npos);
  const size_t frames = test::FilesInOut(scratch);
  EXPECT_GE(frames, 3u);
  EXPECT_LT(frames, 5000u);
  for (const auto& entry : std::filesystem::directory_iterator(scratch.folder / "out")) {
    EXPECT_EQ(entry.path().extension(), ".png") << entry.path();
    EXPECT_EQ(io::ReadPicture(entry.path().string(), PixelDepth::k8).width, 40);
  }
}

TEST(FullDisk, AFrameThatDoesNotFitLeavesNoFile) {
  const Scratch scratch;
  test::SavePicture(scratch, "a.npy", test::RandomPicture(40, 24, PixelDepth::k8, 1));
  scratch.Write("frame.json", R"({"width":48,"height":32,"depth":8,"input":"a.npy",
    "time":{"current":10,"step":1,"scale":30,"total":60},"params":{"4":50.0}})");
  const ProgramRun full = RunProgram(scratch, {"frame", "frame.json", "-o", "y.npy"}, 1000);
  EXPECT_EQ(full.code, 6) << full.errors;
  EXPECT_FALSE(std::filesystem::exists(scratch.Path("y.npy")));
  EXPECT_EQ(RunProgram(scratch, {"frame", "frame.json", "-o", "y.npy"}).code, 0) << "with room it fits";
}

TEST(Output, AFullStandardOutputIsReported) {
  const Scratch scratch;
  const std::string command =
      std::string(VANTLE_PROGRAM) + " info --json > /dev/full 2> " + scratch.Path("e.txt");
  const int status = std::system(command.c_str());
  EXPECT_EQ(WEXITSTATUS(status), 6);
  EXPECT_NE(test::ReadText(scratch.Path("e.txt")).find("standard output cannot be written"),
            std::string::npos);
}

}  // namespace
}  // namespace vantle
