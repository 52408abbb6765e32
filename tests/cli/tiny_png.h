// PNG files made by hand, for kinds that our library does not write: palettes, few bits, impossible sizes.
#pragma once

#include <cstdint>
#include <string>

namespace vantle::test {

inline std::string BigEndian(uint32_t v) {
  std::string bytes;
  for (int shift = 24; shift >= 0; shift -= 8) bytes += static_cast<char>(v >> shift & 0xFF);
  return bytes;
}

inline std::string PngChunk(const std::string& type, const std::string& data) {
  uint32_t crc = 0xFFFFFFFFu;
  for (const char c : type + data) {
    crc ^= static_cast<uint8_t>(c);
    for (int bit = 0; bit < 8; ++bit) crc = crc >> 1 ^ (0xEDB88320u & (0u - (crc & 1)));
  }
  return BigEndian(static_cast<uint32_t>(data.size())) + type + data + BigEndian(~crc);
}

/// `rows` are the unpacked scanlines, each with its filter byte in front; `extra` are chunks before the data.
inline std::string TinyPng(uint32_t width, uint32_t height, char bits, char colorType,
                           const std::string& extra, const std::string& rows) {
  uint32_t a = 1, b = 0;
  for (const char c : rows) {
    a = (a + static_cast<uint8_t>(c)) % 65521;
    b = (b + a) % 65521;
  }
  const auto size = static_cast<uint16_t>(rows.size());
  std::string deflated = "\x78\x01\x01";
  deflated += static_cast<char>(size & 0xFF);
  deflated += static_cast<char>(size >> 8);
  deflated += static_cast<char>(~size & 0xFF);
  deflated += static_cast<char>(~size >> 8 & 0xFF);
  deflated += rows + BigEndian(b << 16 | a);
  const std::string header = BigEndian(width) + BigEndian(height) + bits + colorType + std::string(3, '\0');
  return "\x89PNG\r\n\x1a\n" + PngChunk("IHDR", header) + extra + PngChunk("IDAT", deflated) +
         PngChunk("IEND", "");
}

}  // namespace vantle::test
