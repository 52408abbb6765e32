#include "host/io/file_system.h"

#include <cerrno>
#include <cstdio>
#include <fcntl.h>
#include <unistd.h>

namespace vantle::io {
namespace {

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

}  // namespace

int WriteNewFile(const std::string& path, const std::vector<std::byte>& bytes) {
  const int descriptor = ::open(path.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0666);
  if (descriptor < 0) return errno;
  int error = WriteAll(descriptor, bytes);
  if (error == 0 && ::fsync(descriptor) != 0 && errno != EINVAL) error = errno;
  if (::close(descriptor) != 0 && error == 0) error = errno;
  return error;
}

int WriteInto(const std::string& path, const std::vector<std::byte>& bytes) {
  const int descriptor = path == "-" ? ::dup(STDOUT_FILENO) : ::open(path.c_str(), O_WRONLY | O_CLOEXEC);
  if (descriptor < 0) return errno;
  int error = WriteAll(descriptor, bytes);
  if (::close(descriptor) != 0 && error == 0) error = errno;
  return error;
}

int ReplaceFile(const std::string& from, const std::string& to) {
  return std::rename(from.c_str(), to.c_str()) == 0 ? 0 : errno;
}

int RemoveFile(const std::string& path) {
  return ::unlink(path.c_str()) == 0 ? 0 : errno;
}

int MayRead(const std::string& path) {
  return ::access(path.c_str(), R_OK) == 0 ? 0 : errno;
}

int MayWrite(const std::string& folder) {
  return ::access(folder.c_str(), W_OK) == 0 ? 0 : errno;
}

long ProcessNumber() {
  return ::getpid();
}

}  // namespace vantle::io
