#include "host/io/png_check.h"

#include <array>
#include <cstring>

namespace vantle::io {
namespace {

constexpr char kSignature[] = "\x89PNG\r\n\x1a\n";
constexpr size_t kSignatureSize = 8;

// The checksum of the PNG format: CRC-32, reflected, polynomial 0x04C11DB7.
constexpr std::array<uint32_t, 256> MakeCrcTable() {
  std::array<uint32_t, 256> table{};
  for (uint32_t i = 0; i < 256; ++i) {
    uint32_t value = i;
    for (int bit = 0; bit < 8; ++bit) value = value >> 1 ^ (0xEDB88320u & (0u - (value & 1)));
    table[i] = value;
  }
  return table;
}

uint32_t Crc(const std::byte* data, size_t size) {
  static constexpr std::array<uint32_t, 256> kTable = MakeCrcTable();
  uint32_t crc = 0xFFFFFFFFu;
  for (size_t i = 0; i < size; ++i)
    crc = crc >> 8 ^ kTable[(crc ^ std::to_integer<uint32_t>(data[i])) & 0xFF];
  return ~crc;
}

uint32_t BigEndian(const std::byte* at) {
  uint32_t value = 0;
  for (int i = 0; i < 4; ++i) value = value << 8 | std::to_integer<uint32_t>(at[i]);
  return value;
}

}  // namespace

PngCheck CheckPng(const std::vector<std::byte>& file) {
  PngCheck check;
  check.isPng = file.size() >= 4 && std::memcmp(file.data() + 1, kSignature + 1, 3) == 0;
  if (file.size() < kSignatureSize || std::memcmp(file.data(), kSignature, kSignatureSize) != 0) return check;

  // A chunk is its length, a type of four letters, the data, and a checksum over type and data.
  size_t at = kSignatureSize;
  while (file.size() - at >= 12) {
    const size_t length = BigEndian(&file[at]);
    if (length > file.size() - at - 12) return check;
    const std::byte* type = &file[at + 4];
    if (Crc(type, length + 4) != BigEndian(type + 4 + length)) return check;
    if (at == kSignatureSize && std::memcmp(type, "IHDR", 4) == 0 && length == 13) {
      check.width = BigEndian(type + 4);
      check.height = BigEndian(type + 8);
    }
    if (std::memcmp(type, "IEND", 4) == 0) {
      check.isWhole = true;
      return check;
    }
    at += length + 12;
  }
  return check;
}

}  // namespace vantle::io
