#include "host/io/npy.h"

#include "host/io/failure.h"
#include "host/io/files.h"

#include <algorithm>
#include <cctype>
#include <cstring>
#include <string_view>

namespace vantle::io {
namespace {

constexpr char kMagic[] = "\x93NUMPY";
constexpr size_t kMagicSize = 6;

[[noreturn]] void Refuse(const std::string& path, const std::string& why) {
  throw Failure(kUnreadableInput, path + ": " + why);
}

// The header is the text of a Python dictionary. A reader of just the three entries it must hold.
struct Header {
  std::string_view rest;
  std::string descr;
  bool fortranOrder = false;
  std::vector<int64_t> shape;
  int entries = 0;
};

void SkipSpace(Header* h) {
  while (!h->rest.empty() && std::isspace(static_cast<unsigned char>(h->rest.front())))
    h->rest.remove_prefix(1);
}

bool Take(Header* h, std::string_view word) {
  SkipSpace(h);
  if (!h->rest.starts_with(word)) return false;
  h->rest.remove_prefix(word.size());
  return true;
}

bool TakeText(Header* h, std::string* text) {
  SkipSpace(h);
  if (h->rest.empty() || (h->rest.front() != '\'' && h->rest.front() != '"')) return false;
  const size_t end = h->rest.find(h->rest.front(), 1);
  if (end == std::string_view::npos) return false;
  *text = h->rest.substr(1, end - 1);
  h->rest.remove_prefix(end + 1);
  return true;
}

bool TakeCount(Header* h, int64_t* value) {
  SkipSpace(h);
  size_t digits = 0;
  *value = 0;
  while (digits < h->rest.size() && digits < 12 && h->rest[digits] >= '0' && h->rest[digits] <= '9')
    *value = *value * 10 + (h->rest[digits++] - '0');
  h->rest.remove_prefix(digits);
  return digits > 0;
}

bool TakeShape(Header* h) {
  if (!Take(h, "(")) return false;
  while (!Take(h, ")")) {
    int64_t side = 0;
    if (!TakeCount(h, &side) || h->shape.size() == 8) return false;
    h->shape.push_back(side);
    if (!Take(h, ",")) return Take(h, ")");
  }
  return true;
}

bool TakeEntry(Header* h) {
  std::string key;
  if (!TakeText(h, &key) || !Take(h, ":")) return false;
  ++h->entries;
  if (key == "descr") return TakeText(h, &h->descr);
  if (key == "shape") return TakeShape(h);
  if (key != "fortran_order") return false;
  h->fortranOrder = Take(h, "True");
  return h->fortranOrder || Take(h, "False");
}

bool ParseHeader(std::string_view text, Header* h) {
  h->rest = text;
  if (!Take(h, "{")) return false;
  while (!Take(h, "}")) {
    if (!TakeEntry(h)) return false;
    if (!Take(h, ",")) {
      if (!Take(h, "}")) return false;
      break;
    }
  }
  SkipSpace(h);
  return h->rest.empty() && h->entries == 3 && !h->descr.empty();
}

// Length of the header's text and where it begins, or an empty view when the file ends before.
std::string_view HeaderText(const std::vector<std::byte>& file, size_t* dataStart) {
  const auto byteAt = [&](size_t i) { return std::to_integer<size_t>(file[i]); };
  if (file.size() < 10 || std::memcmp(file.data(), kMagic, kMagicSize) != 0) return {};
  const size_t version = byteAt(6);
  if (version < 1 || version > 3) return {};
  const size_t start = version == 1 ? 10 : 12;
  if (file.size() < start) return {};
  size_t length = byteAt(8) | byteAt(9) << 8;
  if (version > 1) length |= byteAt(10) << 16 | byteAt(11) << 24;
  if (length > file.size() - start) return {};
  *dataStart = start + length;
  return {reinterpret_cast<const char*>(file.data()) + start, length};
}

PixelDepth DepthOf(const std::string& path, const std::string& type) {
  if (type == "|u1" || type == "<u1" || type == ">u1") return PixelDepth::k8;
  if (type == "<u2") return PixelDepth::k16;
  if (type == "<f4") return PixelDepth::k32;
  Refuse(path, "the array's type is \"" + type +
                   "\"; a layer is \"|u1\", \"<u2\" (32768 is full) or \"<f4\": convert it with astype");
}

std::string ShapeText(const std::vector<int64_t>& shape) {
  std::string text = "(";
  for (size_t i = 0; i < shape.size(); ++i) text += (i ? ", " : "") + std::to_string(shape[i]);
  return text + ")";
}

void CheckShape(const std::string& path, const std::vector<int64_t>& shape) {
  if (shape.size() != 3 || shape[2] != 4)
    Refuse(path, "the array's shape is " + ShapeText(shape) +
                     "; a layer is (height, width, 4) in alpha, red, green, blue order");
  if (shape[0] < 1 || shape[1] < 1 || shape[0] > kMaxEdge || shape[1] > kMaxEdge)
    Refuse(path, std::to_string(shape[1]) + " x " + std::to_string(shape[0]) +
                     " pixels; a layer is 1 x 1 to 30000 x 30000: crop or scale it");
}

}  // namespace

const char* NpyType(PixelDepth depth) {
  return depth == PixelDepth::k8 ? "|u1" : depth == PixelDepth::k16 ? "<u2" : "<f4";
}

Picture ReadNpy(const std::string& path) {
  const std::vector<std::byte> file = ReadWholeFile(path);
  if (file.size() < kMagicSize || std::memcmp(file.data(), kMagic, kMagicSize) != 0)
    Refuse(path, "not a .npy file: write it with numpy.save");
  size_t start = 0;
  Header header;
  if (!ParseHeader(HeaderText(file, &start), &header))
    Refuse(path, "the .npy header is damaged: write the file again with numpy.save");
  if (header.fortranOrder) Refuse(path, "the array is in Fortran order: save numpy.ascontiguousarray(array)");
  const PixelDepth depth = DepthOf(path, header.descr);
  CheckShape(path, header.shape);

  Picture picture{static_cast<int32_t>(header.shape[1]), static_cast<int32_t>(header.shape[0]), depth, {}};
  const size_t needed = RowBytes(picture) * static_cast<size_t>(picture.height);
  if (file.size() - start != needed)
    Refuse(path, "the file holds " + std::to_string(file.size() - start) + " bytes of pixels where " +
                     ShapeText(header.shape) + " needs " + std::to_string(needed) +
                     ": it was cut off or damaged; write it again");
  picture.pixels.assign(file.begin() + static_cast<std::ptrdiff_t>(start), file.end());
  return picture;
}

std::vector<std::byte> EncodeNpy(const ImageView& image) {
  // The header is padded with spaces so that the data start at a multiple of 64 bytes.
  std::string header = std::string("{'descr': '") + NpyType(image.depth) +
                       "', 'fortran_order': False, 'shape': (" + std::to_string(image.height) + ", " +
                       std::to_string(image.width) + ", 4), }";
  const size_t start = (10 + header.size() + 1 + 63) / 64 * 64;
  header.resize(start - 11, ' ');
  header += '\n';

  const size_t rowBytes = static_cast<size_t>(image.width) * PixelBytes(image.depth);
  std::vector<std::byte> file(start + rowBytes * static_cast<size_t>(image.height));
  std::memcpy(file.data(), kMagic, kMagicSize);
  file[6] = std::byte{1};
  file[8] = static_cast<std::byte>(header.size() & 0xFF);
  file[9] = static_cast<std::byte>(header.size() >> 8);
  std::memcpy(file.data() + 10, header.data(), header.size());
  for (int32_t y = 0; y < image.height; ++y)
    std::memcpy(file.data() + start + rowBytes * static_cast<size_t>(y), Row(image, y), rowBytes);
  return file;
}

}  // namespace vantle::io
