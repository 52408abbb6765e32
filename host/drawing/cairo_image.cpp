// Pictures that effects hand over, in any of the layouts that hosts take.
#include "host/drawing/cairo_painter.h"

#include <cstring>

namespace vantle::host {
namespace {

/// Where a layout keeps its channels; alpha -1 for pictures without.
struct ChannelOrder {
  int bytes, alpha, red, green, blue;
  bool premultiplied;
};

ChannelOrder OrderOf(DRAWBOT_PixelLayout layout) {
  switch (layout) {
    case kDRAWBOT_PixelLayout_24RGB:
      return {3, -1, 0, 1, 2, false};
    case kDRAWBOT_PixelLayout_24BGR:
      return {3, -1, 2, 1, 0, false};
    case kDRAWBOT_PixelLayout_32RGB:
      return {4, -1, 1, 2, 3, false};
    case kDRAWBOT_PixelLayout_32BGR:
      return {4, -1, 2, 1, 0, false};
    case kDRAWBOT_PixelLayout_32ARGB_Straight:
      return {4, 0, 1, 2, 3, false};
    case kDRAWBOT_PixelLayout_32ARGB_Premul:
      return {4, 0, 1, 2, 3, true};
    case kDRAWBOT_PixelLayout_32BGRA_Straight:
      return {4, 3, 2, 1, 0, false};
    default:
      return {4, 3, 2, 1, 0, true};
  }
}

std::uint32_t ToArgb(const std::uint8_t* pixel, const ChannelOrder& order) {
  const std::uint32_t alpha = order.alpha < 0 ? 255u : std::uint32_t{pixel[order.alpha]};
  const auto channel = [&](int at) {
    const std::uint32_t code = pixel[at];
    const std::uint32_t scaled = order.premultiplied ? code : (code * alpha + 127) / 255;
    return scaled < alpha ? scaled : alpha;
  };
  return alpha << 24 | channel(order.red) << 16 | channel(order.green) << 8 | channel(order.blue);
}

}  // namespace

CairoSurface ToCairoSurface(const DrawImage& image) {
  CairoSurface surface = MakeCairoSurface(image.width, image.height);
  if (surface == nullptr) return surface;
  const ChannelOrder order = OrderOf(image.layout);
  unsigned char* rows = cairo_image_surface_get_data(surface.get());
  const std::ptrdiff_t stride = cairo_image_surface_get_stride(surface.get());
  for (int y = 0; y < image.height; ++y) {
    const std::uint8_t* from = image.bytes.data() + std::ptrdiff_t{image.rowBytes} * y;
    for (int x = 0; x < image.width; ++x) {
      const std::uint32_t argb = ToArgb(from + std::ptrdiff_t{x} * order.bytes, order);
      std::memcpy(rows + stride * y + std::ptrdiff_t{x} * 4, &argb, sizeof argb);
    }
  }
  cairo_surface_mark_dirty(surface.get());
  return surface;
}

}  // namespace vantle::host
