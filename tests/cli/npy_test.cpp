#include "host/io/npy.h"

#include "tests/cli/scratch.h"

#include <gtest/gtest.h>

namespace vantle::io {
namespace {

using test::FailureOf;
using test::Scratch;

std::string Npy(const std::string& header, size_t dataBytes, int version = 1) {
  std::string file = "\x93NUMPY";
  file += static_cast<char>(version);
  file += '\0';
  file += static_cast<char>(header.size() & 0xFF);
  file += static_cast<char>(header.size() >> 8);
  if (version > 1) file += std::string(2, '\0');
  return file + header + std::string(dataBytes, '\x11');
}

TEST(Npy, WhatIsWrittenIsReadBackAtEveryDepth) {
  const Scratch scratch;
  for (const PixelDepth depth : {PixelDepth::k8, PixelDepth::k16, PixelDepth::k32}) {
    const Picture picture = test::RandomPicture(7, 5, depth, 11);
    const Picture again = ReadNpy(test::SavePicture(scratch, "x.npy", picture));
    EXPECT_EQ(again.width, 7);
    EXPECT_EQ(again.height, 5);
    EXPECT_EQ(again.depth, depth);
    EXPECT_EQ(again.pixels, picture.pixels);
  }
}

TEST(Npy, TheHeaderIsTheOneThatNumpyWrites) {
  const Picture picture = MakePicture(3, 2, PixelDepth::k16);
  const std::vector<std::byte> bytes = EncodeNpy(View(picture));
  const std::string text(reinterpret_cast<const char*>(bytes.data()), bytes.size());
  EXPECT_EQ(text.substr(0, 8), std::string("\x93NUMPY\x01\x00", 8));
  EXPECT_NE(text.find("{'descr': '<u2', 'fortran_order': False, 'shape': (2, 3, 4), }"), std::string::npos);
  const size_t start = bytes.size() - picture.pixels.size();
  EXPECT_EQ(start % 64, 0u);
  EXPECT_EQ(text[start - 1], '\n');
}

TEST(Npy, RowsWithPaddingOrUpsideDownComeOutInOrder) {
  const Picture picture = test::RandomPicture(3, 4, PixelDepth::k8, 5);
  ImageView flipped = View(picture);
  flipped.data += flipped.rowBytes * 3;
  flipped.rowBytes = -flipped.rowBytes;
  const std::vector<std::byte> bytes = EncodeNpy(flipped);
  const std::byte* data = bytes.data() + bytes.size() - picture.pixels.size();
  for (int32_t y = 0; y < 4; ++y) EXPECT_EQ(0, std::memcmp(data + 12 * y, Row(picture, 3 - y), 12));
}

TEST(Npy, OtherWritersHeadersAreUnderstood) {
  const Scratch scratch;
  const char* headers[] = {"{'descr': '|u1', 'fortran_order': False, 'shape': (2, 3, 4), }\n",
                           "{\"shape\":(2,3,4,),\"descr\":\"|u1\",\"fortran_order\":False}",
                           "{ 'shape' : ( 2 , 3 , 4 ) , 'fortran_order' : False , 'descr' : '|u1' }   \n"};
  for (const char* header : headers) {
    for (const int version : {1, 2, 3}) {
      const Picture picture = ReadNpy(scratch.Write("x.npy", Npy(header, 24, version)));
      EXPECT_EQ(picture.width, 3) << header;
      EXPECT_EQ(picture.height, 2) << header;
      EXPECT_EQ(picture.pixels, std::vector<std::byte>(24, std::byte{0x11}));
    }
  }
}

struct BadNpy {
  const char* header;
  size_t dataBytes;
  const char* message;
};

class BadNpyTest : public testing::TestWithParam<BadNpy> {};

TEST_P(BadNpyTest, IsRefusedWithAReason) {
  const Scratch scratch;
  const std::string path = scratch.Write("x.npy", Npy(GetParam().header, GetParam().dataBytes));
  const std::string failure = FailureOf([&] { ReadNpy(path); });
  EXPECT_EQ(failure.substr(0, 2), "3 ");
  EXPECT_NE(failure.find(path), std::string::npos) << failure;
  EXPECT_NE(failure.find(GetParam().message), std::string::npos) << failure;
}

INSTANTIATE_TEST_SUITE_P(
    Headers, BadNpyTest,
    testing::Values(
        BadNpy{"{'descr': '|u1', 'fortran_order': True, 'shape': (2, 3, 4), }", 24, "Fortran order"},
        BadNpy{"{'descr': '<f8', 'fortran_order': False, 'shape': (2, 3, 4), }", 192, "\"<f8\""},
        BadNpy{"{'descr': '>u2', 'fortran_order': False, 'shape': (2, 3, 4), }", 48, "\">u2\""},
        BadNpy{"{'descr': '|u1', 'fortran_order': False, 'shape': (2, 3, 3), }", 18, "(2, 3, 3)"},
        BadNpy{"{'descr': '|u1', 'fortran_order': False, 'shape': (24,), }", 24, "(24)"},
        BadNpy{"{'descr': '|u1', 'fortran_order': False, 'shape': (0, 3, 4), }", 0, "3 x 0 pixels"},
        BadNpy{"{'descr': '|u1', 'fortran_order': False, 'shape': (1, 30001, 4), }", 24, "30001 x 1 pixels"},
        BadNpy{"{'descr': '|u1', 'fortran_order': False, 'shape': (2, 3, 4), }", 23, "cut off"},
        BadNpy{"{'descr': '|u1', 'fortran_order': False, 'shape': (2, 3, 4), }", 25, "holds 25 bytes"},
        BadNpy{"{'descr': '|u1', 'fortran_order': False}", 24, "damaged"},
        BadNpy{"{'descr': '|u1', 'fortran_order': Maybe, 'shape': (2, 3, 4)}", 24, "damaged"},
        BadNpy{"{'descr': '|u1', 'fortran_order': False, 'shape': (2, -3, 4)}", 24, "damaged"},
        BadNpy{"{'descr': '|u1', 'fortran_order': False, 'shape': (2, 3, 4)} extra", 24, "damaged"},
        BadNpy{"nonsense", 24, "damaged"}));

TEST(Npy, FilesCutOffAnywhereAreRefused) {
  const Scratch scratch;
  const std::string whole = Npy("{'descr': '|u1', 'fortran_order': False, 'shape': (1, 1, 4), }", 4);
  for (size_t length = 0; length < whole.size(); ++length)
    EXPECT_NE(FailureOf([&] { ReadNpy(scratch.Write("x.npy", whole.substr(0, length))); }), "") << length;
  EXPECT_EQ(FailureOf([&] { ReadNpy(scratch.Write("x.npy", whole)); }), "");
}

}  // namespace
}  // namespace vantle::io
