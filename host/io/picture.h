// A picture of our own: four channels in the order alpha, red, green, blue, rows without padding.
#pragma once

#include "base/image_view.h"
#include "base/pixels.h"

#include <cstddef>
#include <cstdint>
#include <vector>

namespace vantle::io {

/// Hosts hold no larger worlds than this along either side, in pixels.
inline constexpr int32_t kMaxEdge = 30000;

/// Straight (not premultiplied) colour; 16-bit codes run from 0 to 32768.
struct Picture {
  int32_t width = 0;
  int32_t height = 0;
  PixelDepth depth = PixelDepth::k8;
  std::vector<std::byte> pixels;  ///< row after row, width * PixelBytes(depth) bytes each
};

/// Zero-filled, that is transparent black. Both sides must lie in 0..kMaxEdge.
inline Picture MakePicture(int32_t width, int32_t height, PixelDepth depth) {
  Picture picture{width, height, depth, {}};
  picture.pixels.resize(static_cast<size_t>(width) * static_cast<size_t>(height) * PixelBytes(depth));
  return picture;
}

inline size_t RowBytes(const Picture& picture) {
  return static_cast<size_t>(picture.width) * PixelBytes(picture.depth);
}

inline const std::byte* Row(const Picture& picture, int32_t y) {
  return picture.pixels.data() + RowBytes(picture) * static_cast<size_t>(y);
}
inline std::byte* Row(Picture& picture, int32_t y) {
  return picture.pixels.data() + RowBytes(picture) * static_cast<size_t>(y);
}

inline ImageView View(const Picture& picture) {
  return {picture.pixels.data(), static_cast<int64_t>(RowBytes(picture)), picture.width, picture.height,
          picture.depth};
}

}  // namespace vantle::io
