#include "host/io/png_write.h"

#include "host/io/failure.h"

#include <array>
#include <cstdint>
#include <cstring>

namespace vantle::io {
namespace {

using Bytes = std::vector<std::byte>;

constexpr std::byte kFilterUp{2};

void AppendNumber(Bytes* bytes, uint32_t number) {
  for (int shift = 24; shift >= 0; shift -= 8) bytes->push_back(static_cast<std::byte>(number >> shift));
}

constexpr std::array<uint32_t, 256> kCrcTable = [] {
  std::array<uint32_t, 256> table{};
  for (uint32_t n = 0; n < 256; ++n) {
    uint32_t crc = n;
    for (int bit = 0; bit < 8; ++bit) crc = crc >> 1 ^ (0xEDB88320u & (0u - (crc & 1)));
    table[n] = crc;
  }
  return table;
}();

uint32_t Crc(const std::byte* bytes, size_t count) {
  uint32_t crc = ~0u;
  for (size_t i = 0; i < count; ++i)
    crc = kCrcTable[(crc ^ std::to_integer<uint32_t>(bytes[i])) & 0xFF] ^ crc >> 8;
  return ~crc;
}

void AppendChunk(Bytes* file, const char* type, const Bytes& data) {
  AppendNumber(file, static_cast<uint32_t>(data.size()));
  const size_t start = file->size();
  for (int i = 0; i < 4; ++i) file->push_back(static_cast<std::byte>(type[i]));
  file->insert(file->end(), data.begin(), data.end());
  AppendNumber(file, Crc(file->data() + start, file->size() - start));
}

// The file's order of bytes, whatever the machine's is.
void LoadRow(const std::byte* from, int bits, Bytes* row) {
  if (bits == 8) {
    std::memcpy(row->data(), from, row->size());
    return;
  }
  for (size_t i = 0; i < row->size(); i += 2) {
    uint16_t code = 0;
    std::memcpy(&code, from + i, 2);
    (*row)[i] = static_cast<std::byte>(code >> 8);
    (*row)[i + 1] = static_cast<std::byte>(code & 0xFF);
  }
}

}  // namespace

Bytes FilteredPngRows(int width, int height, int bits, const void* rgba) {
  const size_t rowBytes = static_cast<size_t>(width) * 4 * static_cast<size_t>(bits / 8);
  const auto* from = static_cast<const std::byte*>(rgba);
  Bytes rows(static_cast<size_t>(height) * (rowBytes + 1)), above(rowBytes), row(rowBytes);
  std::byte* to = rows.data();
  for (int y = 0; y < height; ++y, from += rowBytes) {
    LoadRow(from, bits, &row);
    *to++ = kFilterUp;
    for (size_t i = 0; i < rowBytes; ++i)
      *to++ = static_cast<std::byte>(std::to_integer<unsigned>(row[i]) - std::to_integer<unsigned>(above[i]));
    above.swap(row);
  }
  return rows;
}

Bytes PngFile(int width, int height, int bits, const Bytes& compressed) {
  if (compressed.size() >= size_t{1} << 31)
    throw Failure(kOutputNotWritable, "a frame this large cannot be encoded as png: use .npy");
  constexpr char kSignature[] = "\x89PNG\r\n\x1a\n";
  constexpr std::byte kRedGreenBlueAlpha{6};
  Bytes file(8), header;
  std::memcpy(file.data(), kSignature, 8);
  AppendNumber(&header, static_cast<uint32_t>(width));
  AppendNumber(&header, static_cast<uint32_t>(height));
  header.push_back(static_cast<std::byte>(bits));
  header.push_back(kRedGreenBlueAlpha);
  header.resize(header.size() + 3);  // the only compression, the only filters, not interlaced
  AppendChunk(&file, "IHDR", header);
  AppendChunk(&file, "IDAT", compressed);
  AppendChunk(&file, "IEND", {});
  return file;
}

}  // namespace vantle::io
