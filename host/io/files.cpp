#include "host/io/files.h"

#include "host/io/failure.h"

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <fcntl.h>
#include <filesystem>
#include <system_error>
#include <unistd.h>

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
    case EDQUOT:
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

// Returns 0 or the error number.
int WriteAll(int descriptor, const std::vector<std::byte>& bytes) {
  size_t done = 0;
  while (done < bytes.size()) {
    const ssize_t n = ::write(descriptor, bytes.data() + done, bytes.size() - done);
    if (n < 0 && errno == EINTR) continue;
    if (n <= 0) return n < 0 ? errno : EIO;
    done += static_cast<size_t>(n);
  }
  return 0;
}

// A full disk may only show when the data are flushed, so the flush belongs to the write.
int WriteNewFile(const std::string& path, const std::vector<std::byte>& bytes) {
  const int descriptor = ::open(path.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0666);
  if (descriptor < 0) return errno;
  int error = WriteAll(descriptor, bytes);
  if (error == 0 && ::fsync(descriptor) != 0 && errno != EINVAL) error = errno;
  if (::close(descriptor) != 0 && error == 0) error = errno;
  return error;
}

bool IsSpecialFile(const std::string& path) {
  std::error_code ignored;
  const fs::file_status status = fs::status(path, ignored);
  return fs::is_character_file(status) || fs::is_fifo(status);
}

void WriteInPlace(const std::string& path, const std::vector<std::byte>& bytes) {
  const int descriptor = path == "-" ? ::dup(STDOUT_FILENO) : ::open(path.c_str(), O_WRONLY | O_CLOEXEC);
  if (descriptor < 0) CannotWrite(path, errno);
  int error = WriteAll(descriptor, bytes);
  if (::close(descriptor) != 0 && error == 0) error = errno;
  if (error != 0) CannotWrite(path == "-" ? "standard output" : path, error);
}

}  // namespace

void RequireReadable(const std::string& path) {
  std::error_code error;
  const fs::file_status status = fs::status(path, error);
  if (status.type() == fs::file_type::not_found) CannotRead(path, "there is no such file: check the path");
  if (fs::is_directory(status)) CannotRead(path, "is a folder, not a file: name a file in it");
  if (::access(path.c_str(), R_OK) != 0)
    CannotRead(path, "cannot be opened, " + Reason(errno) + ": check its permissions");
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
                                                         std::to_string(::getpid()) + ".part"))
                                    .string();
  int error = WriteNewFile(temporary, bytes);
  if (error == 0 && std::rename(temporary.c_str(), path.c_str()) != 0) error = errno;
  if (error == 0) return;
  ::unlink(temporary.c_str());
  CannotWrite(path, error);
}

void CreateFoldersFor(const std::string& path) {
  const fs::path folder = fs::path(path).parent_path();
  if (folder.empty() || IsSpecialFile(path)) return;
  std::error_code error;
  fs::create_directories(folder, error);
  if (error) CannotWrite(folder.string(), error.value());
  if (::access(folder.c_str(), W_OK) != 0) CannotWrite(folder.string(), errno);
}

std::string ResolveBeside(const std::string& file, const std::string& path) {
  const fs::path given(path);
  if (given.is_absolute()) return path;
  return (fs::path(file).parent_path() / given).lexically_normal().string();
}

}  // namespace vantle::io
