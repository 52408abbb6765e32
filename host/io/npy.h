// Arrays in the .npy format, version 1.0 to 3.0: the exact form of a world, for tests and bug reports.
#pragma once

#include "host/io/picture.h"

#include <string>
#include <vector>

namespace vantle::io {

/// Reads (height, width, 4) in alpha, red, green, blue order: `|u1` for 8 bits, `<u2` for 16 (32768 is full),
/// `<f4` for 32. Codes are taken as they stand. Fortran order, other types and shapes, damaged headers,
/// sizes outside 1..kMaxEdge and files that are too short or too long throw Failure (kUnreadableInput).
Picture ReadNpy(const std::string& path);

/// The file's bytes for a world.
std::vector<std::byte> EncodeNpy(const ImageView& image);

/// `|u1`, `<u2` or `<f4`.
const char* NpyType(PixelDepth depth);

}  // namespace vantle::io
