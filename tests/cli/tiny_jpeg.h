// A JPEG file made by hand, which every decoder must read alike.
#pragma once

#include <string>

namespace vantle::test {

inline std::string JpegSegment(char marker, const std::string& data) {
  const auto size = static_cast<char>(data.size() + 2);
  return std::string("\xFF", 1) + marker + '\0' + size + data;
}

/// 8 x 8 grey pixels, all 200: a mean of 72 above 128 is a first coefficient of 8 * 72, in steps of 8 that is
/// 72, seven bits long; no other coefficients. Each code table has one code, the bit 0.
inline std::string TinyJpeg() {
  const std::string one = std::string("\1", 1) + std::string(15, '\0');
  return "\xFF\xD8" + JpegSegment('\xDB', '\0' + std::string(64, '\x08')) +
         JpegSegment('\xC0', std::string("\x08\0\x08\0\x08\1\1\x11\0", 9)) +
         JpegSegment('\xC4', '\0' + one + '\x07') + JpegSegment('\xC4', '\x10' + one + '\0') +
         JpegSegment('\xDA', std::string("\1\1\0\0\x3F\0", 6)) +
         "\x48\x7F\xFF\xD9";  // 0, then 72 as 1001000, then 0, then padding
}

}  // namespace vantle::test
