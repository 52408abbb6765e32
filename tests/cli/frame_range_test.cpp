#include "host/io/frame_range.h"

#include "tests/cli/scratch.h"

#include <gtest/gtest.h>

namespace vantle::io {
namespace {

using test::FailureOf;
using Frames = std::vector<int32_t>;

TEST(FrameRange, SingleFramesRangesStepsAndLists) {
  EXPECT_EQ(ParseFrameRange("7"), (Frames{7}));
  EXPECT_EQ(ParseFrameRange("1-4"), (Frames{1, 2, 3, 4}));
  EXPECT_EQ(ParseFrameRange("1-10x3"), (Frames{1, 4, 7, 10}));
  EXPECT_EQ(ParseFrameRange("1-9x3"), (Frames{1, 4, 7}));
  EXPECT_EQ(ParseFrameRange("1,5,9-12"), (Frames{1, 5, 9, 10, 11, 12}));
}

TEST(FrameRange, NegativeFrames) {
  EXPECT_EQ(ParseFrameRange("-5--1"), (Frames{-5, -4, -3, -2, -1}));
  EXPECT_EQ(ParseFrameRange("-2-2x2"), (Frames{-2, 0, 2}));
  EXPECT_EQ(ParseFrameRange("-3"), (Frames{-3}));
}

TEST(FrameRange, BackwardsAndRepeated) {
  EXPECT_EQ(ParseFrameRange("5-1x2"), (Frames{5, 3, 1}));
  EXPECT_EQ(ParseFrameRange("1-3,2,3-4"), (Frames{1, 2, 3, 4}));
}

TEST(FrameRange, AColonIsRefusedWithAHint) {
  const std::string failure = FailureOf([] { ParseFrameRange("0:10"); });
  EXPECT_EQ(failure.substr(0, 2), "2 ");
  EXPECT_NE(failure.find("did you mean 0-10?"), std::string::npos) << failure;
}

TEST(FrameRange, NonsenseIsRefusedAsUsage) {
  for (const char* text : {"", "a", "1-", "1-2x", "1-2x0", "1-2x-1", "1,,2", "1,", "1-2-3", "1.5", "1x2",
                           "99999999", "1-2000000", "--5", " 1", "1 ", "9999999999999"}) {
    const std::string failure = FailureOf([&] { ParseFrameRange(text); });
    EXPECT_EQ(failure.substr(0, 2), "2 ") << "\"" << text << "\"";
    EXPECT_NE(failure.find(std::string("\"") + text + "\""), std::string::npos) << failure;
  }
}

TEST(NamePattern, PercentAndHashesAreTheSame) {
  EXPECT_EQ(NameOfFrame(ParseNamePattern("out/f.%04d.png"), 7), "out/f.0007.png");
  EXPECT_EQ(NameOfFrame(ParseNamePattern("out/f.####.png"), 7), "out/f.0007.png");
  EXPECT_EQ(NameOfFrame(ParseNamePattern("f%d.exr"), 12345), "f12345.exr");
  EXPECT_EQ(NameOfFrame(ParseNamePattern("f%3d.exr"), 7), "f  7.exr");
  EXPECT_EQ(NameOfFrame(ParseNamePattern("100%%.%02d.png"), 3), "100%.03.png");
  EXPECT_EQ(NameOfFrame(ParseNamePattern("f.%04d.png"), -5), "f.-005.png");
  EXPECT_EQ(NameOfFrame(ParseNamePattern("plain.png"), 9), "plain.png");
  EXPECT_FALSE(ParseNamePattern("plain.png").hasNumber);
}

TEST(NamePattern, OtherConversionsAndTwoPlacesAreRefused) {
  for (const char* text :
       {"%s.png", "%04x.png", "f%", "%d.%d.png", "##.%d.png", "#.#.png", "%-4d.png", "%999d.png"})
    EXPECT_EQ(FailureOf([&] { ParseNamePattern(text); }).substr(0, 2), "2 ") << text;
}

TEST(NamePattern, FindsTheNumbersThatAreThere) {
  const test::Scratch scratch;
  for (const char* name : {"s.0003.png", "s.0001.png", "s.12345.png", "s.-002.png", "s.5.png", "s.00006.png",
                           "s.x.png", "t.0007.png", "s.0008.jpg", "s.0009.png.part"})
    scratch.Write(name, "");
  EXPECT_EQ(FindSequence(ParseNamePattern(scratch.Path("s.%04d.png"))), (Frames{-2, 1, 3, 12345}));
  EXPECT_EQ(FindSequence(ParseNamePattern(scratch.Path("none.%04d.png"))), Frames{});
  EXPECT_EQ(FindSequence(ParseNamePattern(scratch.Path("nowhere/s.%04d.png"))), Frames{});
}

}  // namespace
}  // namespace vantle::io
