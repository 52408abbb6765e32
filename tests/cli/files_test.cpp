#include "host/io/files.h"

#include "tests/cli/scratch.h"

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

namespace vantle::io {
namespace {

using test::FailureOf;
using test::Scratch;

std::vector<std::byte> Bytes(size_t count) {
  return std::vector<std::byte>(count, std::byte{0x5A});
}

size_t FilesIn(const std::filesystem::path& folder) {
  size_t count = 0;
  for ([[maybe_unused]] const auto& entry : std::filesystem::directory_iterator(folder)) ++count;
  return count;
}

TEST(Files, WritesWholeFilesAndLeavesNothingElse) {
  const Scratch scratch;
  WriteFileAtomically(scratch.Path("x.bin"), Bytes(100000));
  EXPECT_EQ(ReadWholeFile(scratch.Path("x.bin")), Bytes(100000));
  WriteFileAtomically(scratch.Path("x.bin"), Bytes(3));
  EXPECT_EQ(ReadWholeFile(scratch.Path("x.bin")), Bytes(3));
  EXPECT_EQ(FilesIn(scratch.folder), 1u);
}

TEST(Files, EmptyFilesAreFiles) {
  const Scratch scratch;
  WriteFileAtomically(scratch.Path("x.bin"), {});
  EXPECT_TRUE(ReadWholeFile(scratch.Path("x.bin")).empty());
}

TEST(Files, AFullDeviceIsReported) {
  const std::string failure = FailureOf([] { WriteFileAtomically("/dev/full", Bytes(10)); });
  EXPECT_EQ(failure.rfind("6 /dev/full: cannot be written, No space left on device", 0), 0u) << failure;
}

TEST(Files, AFailedRenameLeavesNoTemporaryFile) {
  const Scratch scratch;
  std::filesystem::create_directories(scratch.folder / "x.bin" / "inside");
  const std::string failure = FailureOf([&] { WriteFileAtomically(scratch.Path("x.bin"), Bytes(10)); });
  EXPECT_EQ(failure.substr(0, 2), "6 ");
  EXPECT_EQ(FilesIn(scratch.folder), 1u);
}

TEST(Files, MissingFilesAndFoldersAreToldApart) {
  const Scratch scratch;
  EXPECT_NE(FailureOf([&] { ReadWholeFile(scratch.Path("no")); }).find("there is no such file"),
            std::string::npos);
  EXPECT_NE(FailureOf([&] { ReadWholeFile(scratch.folder.string()); }).find("is a folder"),
            std::string::npos);
}

TEST(Files, FilesWithoutPermissionAreReported) {
  if (geteuid() == 0) GTEST_SKIP() << "the superuser may read everything";
  const Scratch scratch;
  const std::string path = scratch.Write("x.bin", "abc");
  chmod(path.c_str(), 0);
  EXPECT_NE(FailureOf([&] { ReadWholeFile(path); }).find("permissions"), std::string::npos);
}

TEST(Files, CreatesTheFoldersOfAName) {
  const Scratch scratch;
  CreateFoldersFor(scratch.Path("a/b/c.png"));
  EXPECT_TRUE(std::filesystem::is_directory(scratch.folder / "a" / "b"));
  CreateFoldersFor("c.png");
  scratch.Write("file", "");
  EXPECT_EQ(FailureOf([&] { CreateFoldersFor(scratch.Path("file/c.png")); }).substr(0, 2), "6 ");
}

TEST(Files, NamesAreRelativeToTheFileThatNamesThem) {
  EXPECT_EQ(ResolveBeside("scenes/one.json", "a.png"), "scenes/a.png");
  EXPECT_EQ(ResolveBeside("scenes/one.json", "../a.png"), "a.png");
  EXPECT_EQ(ResolveBeside("one.json", "a.png"), "a.png");
  EXPECT_EQ(ResolveBeside("scenes/one.json", "/x/a.png"), "/x/a.png");
}

}  // namespace
}  // namespace vantle::io
