#include "host/io/files.h"

#include "host/io/failure.h"
#include "host/io/file_system.h"

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <system_error>

namespace vantle::io {
namespace {

namespace fs = std::filesystem;

std::string Reason(int error) {
  return std::generic_category().message(error);
}

[[noreturn]] void CannotRead(const std::string& path, const std::string& why) {
  throw Failure(kUnreadableInput, path + ": " + why);
}

const char* AdviceFor(int error) {
  switch (error) {
    case ENOSPC:
#ifdef EDQUOT  // not every system knows quotas
    case EDQUOT:
#endif
    case EFBIG:
      return ": free some space or choose another folder with -o";
    case EACCES:
    case EPERM:
    case EROFS:
      return ": choose a folder you may write to with -o";
    case ENOTDIR:
    case EISDIR:
      return ": choose another name with -o";
    default:
      return ": check the path given with -o";
  }
}

[[noreturn]] void CannotWrite(const std::string& path, int error) {
  throw Failure(kOutputNotWritable, path + ": cannot be written, " + Reason(error) + AdviceFor(error));
}

bool IsSpecialFile(const std::string& path) {
  std::error_code ignored;
  const fs::file_status status = fs::status(path, ignored);
  return fs::is_character_file(status) || fs::is_fifo(status);
}

void WriteInPlace(const std::string& path, const std::vector<std::byte>& bytes) {
  const int error = WriteInto(path, bytes);
  if (error != 0) CannotWrite(path == "-" ? "standard output" : path, error);
}

}  // namespace

void RequireReadable(const std::string& path) {
  std::error_code error;
  const fs::file_status status = fs::status(path, error);
  if (status.type() == fs::file_type::not_found) CannotRead(path, "there is no such file: check the path");
  if (fs::is_directory(status)) CannotRead(path, "is a folder, not a file: name a file in it");
  const int refusal = MayRead(path);
  if (refusal != 0) CannotRead(path, "cannot be opened, " + Reason(refusal) + ": check its permissions");
}

std::vector<std::byte> ReadWholeFile(const std::string& path) {
  RequireReadable(path);
  std::FILE* file = std::fopen(path.c_str(), "rb");
  if (file == nullptr) CannotRead(path, "cannot be opened, " + Reason(errno) + ": check its permissions");
  std::vector<std::byte> bytes;
  size_t got = 1;
  while (got > 0) {
    const size_t had = bytes.size();
    bytes.resize(had + (had < (size_t{1} << 16) ? size_t{1} << 16 : had));
    got = std::fread(bytes.data() + had, 1, bytes.size() - had, file);
    bytes.resize(had + got);
  }
  const bool failed = std::ferror(file) != 0;
  std::fclose(file);
  if (failed) CannotRead(path, "cannot be read to its end: check the disk");
  return bytes;
}

void WriteFileAtomically(const std::string& path, const std::vector<std::byte>& bytes) {
  if (path == "-" || IsSpecialFile(path)) return WriteInPlace(path, bytes);
  const fs::path target(path);
  const std::string temporary = (target.parent_path() / (std::string(".") + target.filename().string() + "." +
                                                         std::to_string(ProcessNumber()) + ".part"))
                                    .string();
  int error = WriteNewFile(temporary, bytes);
  if (error == 0) error = ReplaceFile(temporary, path);
  if (error == 0) return;
  RemoveFile(temporary);
  CannotWrite(path, error);
}

void CreateFoldersFor(const std::string& path) {
  const fs::path folder = fs::path(path).parent_path();
  if (folder.empty() || IsSpecialFile(path)) return;
  std::error_code error;
  fs::create_directories(folder, error);
  if (error) CannotWrite(folder.string(), error.value());
  const int refusal = MayWrite(folder.string());
  if (refusal != 0) CannotWrite(folder.string(), refusal);
}

std::string ResolveBeside(const std::string& file, const std::string& path) {
  const fs::path given(path);
  if (given.is_absolute()) return path;
  return (fs::path(file).parent_path() / given).lexically_normal().string();
}

}  // namespace vantle::io
