#include "tools/pictures/canvas.h"

#include <OpenImageIO/imageio.h>
#include <cstdint>

namespace pictures {

Canvas NewCanvas(int width, int height) {
  const size_t count =
      static_cast<size_t>(width * kOversampling) * static_cast<size_t>(height * kOversampling);
  return {width, height, std::vector<Paint>(count)};
}

namespace {

void LayCells(Canvas& canvas, Point centre, float reach, bool inside,
              const std::function<Paint(Point)>& brush) {
  const int columns = canvas.width * kOversampling, rows = canvas.height * kOversampling;
  const auto cell = [](float position) { return static_cast<int>(std::floor(position * kOversampling)); };
  const int left = std::max(cell(centre.x - reach), 0), right = std::min(cell(centre.x + reach), columns - 1);
  const int top = std::max(cell(centre.y - reach), 0), bottom = std::min(cell(centre.y + reach), rows - 1);
#pragma omp parallel for schedule(dynamic, 16)
  for (int row = top; row <= bottom; ++row) {
    for (int column = left; column <= right; ++column) {
      const Paint paint = brush({(static_cast<float>(column) + 0.5f) / kOversampling,
                                 (static_cast<float>(row) + 0.5f) / kOversampling});
      Paint& under =
          canvas.cells[static_cast<size_t>(row) * static_cast<size_t>(columns) + static_cast<size_t>(column)];
      const float a = Clamp01(paint.a), over = a * (inside ? under.a : 1);
      under = {paint.r * over + under.r * (1 - a), paint.g * over + under.g * (1 - a),
               paint.b * over + under.b * (1 - a), over + under.a * (1 - a)};
    }
  }
}

// The mean of the cells of one pixel, back to straight colour.
Paint Resolve(const Canvas& canvas, int x, int y) {
  Paint sum;
  for (int j = 0; j < kOversampling; ++j) {
    for (int i = 0; i < kOversampling; ++i) {
      const size_t row = static_cast<size_t>(y * kOversampling + j);
      const size_t column = static_cast<size_t>(x * kOversampling + i);
      const Paint& cell = canvas.cells[row * static_cast<size_t>(canvas.width * kOversampling) + column];
      sum = {sum.r + cell.r, sum.g + cell.g, sum.b + cell.b, sum.a + cell.a};
    }
  }
  const float k = sum.a > 0 ? 1 / sum.a : 0;
  return {sum.r * k, sum.g * k, sum.b * k, sum.a / (kOversampling * kOversampling)};
}

}  // namespace

void Lay(Canvas& canvas, Point centre, float reach, const std::function<Paint(Point)>& brush) {
  LayCells(canvas, centre, reach, false, brush);
}

void LayInside(Canvas& canvas, Point centre, float reach, const std::function<Paint(Point)>& brush) {
  LayCells(canvas, centre, reach, true, brush);
}

bool Save(const Canvas& canvas, const std::string& path, int bits) {
  // Codes are rounded here; what lies under a fully transparent pixel is zero and packs well.
  const float full = bits == 8 ? 255.0f : 65535.0f;
  std::vector<uint16_t> codes;
  codes.reserve(static_cast<size_t>(canvas.width) * static_cast<size_t>(canvas.height) * 4);
  for (int y = 0; y < canvas.height; ++y) {
    for (int x = 0; x < canvas.width; ++x) {
      const Paint paint = Resolve(canvas, x, y);
      const bool visible = paint.a * full >= 0.5f;
      for (const float channel : {paint.r, paint.g, paint.b, paint.a})
        codes.push_back(visible ? static_cast<uint16_t>(Clamp01(channel) * full + 0.5f) : uint16_t{0});
    }
  }
  if (bits == 8)
    for (uint16_t& code : codes) code = static_cast<uint16_t>(code * 257);

  const auto file = OIIO::ImageOutput::create(path);
  if (!file) return false;
  OIIO::ImageSpec spec(canvas.width, canvas.height, 4,
                       bits == 8 ? OIIO::TypeDesc::UINT8 : OIIO::TypeDesc::UINT16);
  spec.attribute("oiio:UnassociatedAlpha", 1);
  spec.attribute("png:compressionLevel", 9);
  return file->open(path, spec) && file->write_image(OIIO::TypeDesc::UINT16, codes.data()) && file->close();
}

Paint Hex(unsigned colour) {
  const auto part = [colour](unsigned shift) {
    return static_cast<float>((colour >> shift) & 255u) / 255.0f;
  };
  return {part(16), part(8), part(0), 1};
}

Paint Ramp(const std::vector<Paint>& stops, float t) {
  const float position = Clamp01(t) * static_cast<float>(stops.size() - 1);
  const size_t index = std::min(static_cast<size_t>(position), stops.size() - 2);
  return Mix(stops[index], stops[index + 1], position - static_cast<float>(index));
}

float Chance(int i, int salt) {
  uint32_t h = static_cast<uint32_t>(i) * 0x9E3779B1u + static_cast<uint32_t>(salt) * 0x85EBCA77u;
  h = (h ^ (h >> 16)) * 0x045D9F3Bu;
  h = (h ^ (h >> 16)) * 0x045D9F3Bu;
  return static_cast<float>((h ^ (h >> 16)) & 0xFFFFFFu) / 16777215.0f;
}

}  // namespace pictures
