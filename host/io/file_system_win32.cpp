#include "host/io/file_system.h"

#include <cerrno>
#include <cstdio>
#include <fcntl.h>
#include <filesystem>
#include <io.h>
#include <process.h>

namespace vantle::io {
namespace {

constexpr int kReadable = 4;
constexpr int kWritable = 2;

int WriteAll(std::FILE* file, const std::vector<std::byte>& bytes) {
  errno = 0;
  const bool written = std::fwrite(bytes.data(), 1, bytes.size(), file) == bytes.size();
  if (written && std::fflush(file) == 0) return 0;
  return errno != 0 ? errno : EIO;
}

int WriteAndClose(const std::string& path, const char* mode, const std::vector<std::byte>& bytes,
                  bool commit) {
  std::FILE* file = std::fopen(path.c_str(), mode);
  if (file == nullptr) return errno;
  int error = WriteAll(file, bytes);
  if (error == 0 && commit && _commit(_fileno(file)) != 0 && errno != EINVAL) error = errno;
  if (std::fclose(file) != 0 && error == 0) error = errno;
  return error;
}

}  // namespace

int WriteNewFile(const std::string& path, const std::vector<std::byte>& bytes) {
  return WriteAndClose(path, "wb", bytes, true);
}

int WriteInto(const std::string& path, const std::vector<std::byte>& bytes) {
  if (path != "-") return WriteAndClose(path, "wb", bytes, false);
  // Without this the system would put a carriage return before every byte that looks like a line's end.
  _setmode(_fileno(stdout), _O_BINARY);
  return WriteAll(stdout, bytes);
}

int ReplaceFile(const std::string& from, const std::string& to) {
  std::error_code error;
  std::filesystem::rename(from, to, error);
  return error ? error.default_error_condition().value() : 0;
}

int RemoveFile(const std::string& path) {
  return std::remove(path.c_str()) == 0 ? 0 : errno;
}

int MayRead(const std::string& path) {
  return _access(path.c_str(), kReadable) == 0 ? 0 : errno;
}

int MayWrite(const std::string& folder) {
  return _access(folder.c_str(), kWritable) == 0 ? 0 : errno;
}

long ProcessNumber() {
  return _getpid();
}

}  // namespace vantle::io
