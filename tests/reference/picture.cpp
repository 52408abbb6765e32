#include "tests/reference/picture.h"

#include "tests/reference/pixel_codec.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstring>
#include <fstream>
#include <sstream>

namespace vantle::reference {
namespace {

size_t RowSize(const Layout& l) {
  return static_cast<size_t>(l.width) * BytesPerPixel(l.depth);
}

int64_t Stride(const Layout& l) {
  return static_cast<int64_t>(RowSize(l)) + l.padding;
}

// Byte offset of row y in memory.
size_t RowOffset(const Layout& l, int32_t y) {
  const int64_t row = l.bottomUp ? l.height - 1 - y : y;
  return static_cast<size_t>(l.lead + row * Stride(l));
}

const std::byte* At(const Picture& p, int32_t x, int32_t y) {
  return p.memory.data() + RowOffset(p.layout, y) + static_cast<size_t>(x) * BytesPerPixel(p.layout.depth);
}

template <class Image, class Data>
Image Describe(const Layout& l, Data* memory) {
  if (l.width <= 0 || l.height <= 0) return {};
  return {memory + RowOffset(l, 0), l.bottomUp ? -Stride(l) : Stride(l), l.width, l.height, l.depth};
}

bool SamePixel(const Picture& a, const Picture& b, int32_t x, int32_t y) {
  if (std::memcmp(At(a, x, y), At(b, x, y), BytesPerPixel(a.layout.depth)) == 0) return true;
  if (a.layout.depth != PixelDepth::k32) return false;
  float ca[4];
  float cb[4];
  std::memcpy(ca, At(a, x, y), sizeof(ca));
  std::memcpy(cb, At(b, x, y), sizeof(cb));
  for (int c = 0; c < 4; ++c) {
    const bool bothNan = std::isnan(ca[c]) && std::isnan(cb[c]);
    if (!bothNan && std::memcmp(&ca[c], &cb[c], sizeof(float)) != 0) return false;
  }
  return true;
}

std::string Describe(const Picture& p, int32_t x, int32_t y) {
  const Pixel codes = ReadCodes(At(p, x, y), p.layout.depth);
  std::ostringstream text;
  text.precision(9);
  text << "(" << codes.a << ", " << codes.r << ", " << codes.g << ", " << codes.b << ")";
  return text.str();
}

// Whether the bytes outside the rows are equal.
bool SameMargins(const Picture& a, const Picture& b) {
  std::vector<std::byte> ma = a.memory;
  std::vector<std::byte> mb = b.memory;
  for (int32_t y = 0; y < a.layout.height; ++y) {
    std::memset(ma.data() + RowOffset(a.layout, y), 0, RowSize(a.layout));
    std::memset(mb.data() + RowOffset(a.layout, y), 0, RowSize(a.layout));
  }
  return ma == mb;
}

}  // namespace

Picture MakePicture(const Layout& layout) {
  Picture picture;
  picture.layout = layout;
  if (layout.width <= 0 || layout.height <= 0) return picture;
  const size_t rows = static_cast<size_t>(Stride(layout)) * static_cast<size_t>(layout.height);
  picture.memory.resize(static_cast<size_t>(layout.lead) + rows);
  for (size_t i = 0; i < picture.memory.size(); ++i) {
    picture.memory[i] = static_cast<std::byte>((i * 31 + 7) & 0xFF);
  }
  return picture;
}

ImageView ViewOf(const Picture& picture) {
  return Describe<ImageView>(picture.layout, picture.memory.data());
}

MutableImage MutableOf(Picture& picture) {
  return Describe<MutableImage>(picture.layout, picture.memory.data());
}

Channels PixelAt(const Picture& picture, int32_t x, int32_t y) {
  const Pixel p = ReadPixel(At(picture, x, y), picture.layout.depth);
  return {{p.a, p.r, p.g, p.b}};
}

void SetPixel(Picture& picture, int32_t x, int32_t y, const Channels& v) {
  const Layout& l = picture.layout;
  std::byte* at = picture.memory.data() + RowOffset(l, y) + static_cast<size_t>(x) * BytesPerPixel(l.depth);
  WritePixel(at, l.depth, {v.c[0], v.c[1], v.c[2], v.c[3]});
}

double SumOf(const Picture& picture, int channel) {
  double sum = 0.0;
  for (int32_t y = 0; y < picture.layout.height; ++y) {
    for (int32_t x = 0; x < picture.layout.width; ++x) {
      sum += static_cast<double>(PixelAt(picture, x, y).c[channel]);
    }
  }
  return sum;
}

std::string FirstDifference(const Picture& a, const Picture& b) {
  for (int32_t y = 0; y < a.layout.height; ++y) {
    for (int32_t x = 0; x < a.layout.width; ++x) {
      if (SamePixel(a, b, x, y)) continue;
      return "pixel (" + std::to_string(x) + ", " + std::to_string(y) + "): " + Describe(a, x, y) +
             " against " + Describe(b, x, y);
    }
  }
  return SameMargins(a, b) ? "" : "bytes outside of the rows";
}

void WritePpm(const std::string& path, const Picture& a, const Picture* b) {
  std::ofstream file(path, std::ios::binary);
  file << "P6\n" << a.layout.width << " " << a.layout.height << "\n255\n";
  const auto shown = [](const Channels& v, int c) { return v.c[c] * v.c[0] * 255.0f; };
  for (int32_t y = 0; y < a.layout.height; ++y) {
    for (int32_t x = 0; x < a.layout.width; ++x) {
      std::array<char, 3> rgb;
      for (int c = 1; c < 4; ++c) {
        float v = shown(PixelAt(a, x, y), c);
        if (b != nullptr) v = std::fabs(v - shown(PixelAt(*b, x, y), c)) * 64.0f;
        const int code = v > 0.0f ? static_cast<int>(std::min(v, 255.0f)) : 0;
        rgb[static_cast<size_t>(c - 1)] = static_cast<char>(code);
      }
      file.write(rgb.data(), 3);
    }
  }
}

}  // namespace vantle::reference
