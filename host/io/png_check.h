// Whether a PNG file is whole, before the picture library reads it: the library underneath complains on
// standard error by itself, in lines that name no file.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

namespace vantle::io {

struct PngCheck {
  bool isPng = false;    ///< it says so in its first letters, rightly or not
  bool isWhole = false;  ///< every part is there, down to the last, and carries its right checksum
  uint32_t width = 0;    ///< pixels; 0 when the file ends before
  uint32_t height = 0;
};

PngCheck CheckPng(const std::vector<std::byte>& file);

}  // namespace vantle::io
