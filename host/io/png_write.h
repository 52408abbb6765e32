// The frame of a PNG file around data that somebody else compresses.
#pragma once

#include <cstddef>
#include <vector>

namespace vantle::io {

/// Scanlines as PNG wants them before compression, each behind the number of its filter: red, green, blue,
/// alpha of 8 or 16 bits (native order in, big-endian out), every row as the difference to the one above,
/// which suits pictures with large even areas.
std::vector<std::byte> FilteredPngRows(int width, int height, int bits, const void* rgba);

/// A whole file with straight alpha from the zlib stream of its rows. Throws Failure (kOutputNotWritable)
/// when that has 2 gigabytes or more, which no chunk can hold.
std::vector<std::byte> PngFile(int width, int height, int bits, const std::vector<std::byte>& compressed);

}  // namespace vantle::io
