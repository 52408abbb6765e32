// What reading and writing files needs of the operating system. Functions return 0 or the error number.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace vantle::io {

/// Creates or empties the file and writes it through to the disk: a full disk may only show then.
int WriteNewFile(const std::string& path, const std::vector<std::byte>& bytes);

/// Writes into what is there, a device or a pipe; "-" is standard output.
int WriteInto(const std::string& path, const std::vector<std::byte>& bytes);

/// Gives `from` the name `to`, in place of what had it.
int ReplaceFile(const std::string& from, const std::string& to);

int RemoveFile(const std::string& path);

/// Whether this user may read the file, or write into the folder.
int MayRead(const std::string& path);
int MayWrite(const std::string& folder);

/// A number that no other running program has.
long ProcessNumber();

}  // namespace vantle::io
