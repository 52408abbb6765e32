// Whole files, read and written so that a reader never meets half of one.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace vantle::io {

/// All bytes of a file. Throws Failure (kUnreadableInput) that says what is wrong with it.
std::vector<std::byte> ReadWholeFile(const std::string& path);

/// Throws Failure (kUnreadableInput) unless `path` is a file that can be opened for reading.
void RequireReadable(const std::string& path);

/// Writes under a temporary name beside `path`, flushes it to the disk and renames it, so that `path` is
/// either complete or as it was before. On failure the temporary file is removed and Failure
/// (kOutputNotWritable) thrown, with the system's reason. "-" writes to standard output.
void WriteFileAtomically(const std::string& path, const std::vector<std::byte>& bytes);

/// Creates the folders that `path` lies in; Failure (kOutputNotWritable) when that cannot be done or nothing
/// may be written there. "-" lies nowhere.
void CreateFoldersFor(const std::string& path);

/// `path`, taken relative to the folder of `file` unless it is absolute.
std::string ResolveBeside(const std::string& file, const std::string& path);

}  // namespace vantle::io
