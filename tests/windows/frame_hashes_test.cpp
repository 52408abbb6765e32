// One picture on every machine: each system's build must give the sums in the list, which was written once.
#include "tests/windows/varied_frames.h"

#include <fstream>
#include <gtest/gtest.h>
#include <set>
#include <vector>

namespace vantle::host {
namespace {

std::vector<std::string> ExpectedLines() {
  std::ifstream file(FRAME_HASHES, std::ios::binary);
  std::vector<std::string> lines;
  for (std::string line; std::getline(file, line);) lines.push_back(line);
  return lines;
}

TEST(FrameHashes, AreThoseOfEveryOtherMachine) {
  const LoadedModule loaded = LoadModule(VANTLE_MODULE);
  ASSERT_TRUE(loaded.module) << loaded.message;
  const OpenedEffect opened = OpenEffect(*loaded.module, {});
  ASSERT_TRUE(opened.effect) << opened.result.message;
  const std::vector<std::string> expected = ExpectedLines();
  ASSERT_EQ(expected.size(), static_cast<size_t>(kVariedFrames));
  for (int number = 0; number < kVariedFrames; ++number)
    EXPECT_EQ(RenderedLine(*opened.effect, number), expected[static_cast<size_t>(number)]);
  EXPECT_TRUE(CloseEffect(*opened.effect).problems.empty());
}

// A list of empty pictures would compare well everywhere.
TEST(FrameHashes, TellPicturesApart) {
  std::set<std::string> sums;
  for (const std::string& line : ExpectedLines()) {
    EXPECT_EQ(line.find("error"), std::string::npos) << line;
    sums.insert(line.substr(line.size() - 16));
  }
  EXPECT_EQ(sums.size(), static_cast<size_t>(kVariedFrames));
}

}  // namespace
}  // namespace vantle::host
