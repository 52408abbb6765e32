// What is checked of every picture file, whichever library decodes it.
#pragma once

#include <string>

namespace vantle::io {

/// Throws Failure (kUnreadableInput): `path` and why.
[[noreturn]] void RefusePicture(const std::string& path, const std::string& why);

/// Refuses a picture with a side outside 1..kMaxEdge.
void CheckPictureSize(const std::string& path, int width, int height);

/// Refuses files that cannot be read, and PNG files that are cut off, damaged or of an impossible size.
void CheckBeforeReading(const std::string& path);

}  // namespace vantle::io
