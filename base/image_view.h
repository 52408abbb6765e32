// A picture in somebody else's memory, as hosts hand it over: four channels in the order alpha, red, green,
// blue, straight colour.
#pragma once

#include <cstddef>
#include <cstdint>

namespace vantle {

enum class PixelDepth { k8, k16, k32 };

/// A read-only picture. `data` is null when there is none. Row y starts at data + y * rowBytes; rowBytes is
/// signed, may hold padding and need not be a multiple of the pixel's alignment; data is aligned to nothing
/// in particular, so pixels are read and written through memcpy.
struct ImageView {
  const std::byte* data = nullptr;
  int64_t rowBytes = 0;
  int32_t width = 0;
  int32_t height = 0;
  PixelDepth depth = PixelDepth::k8;
};

/// The same, to be written.
struct MutableImage {
  std::byte* data = nullptr;
  int64_t rowBytes = 0;
  int32_t width = 0;
  int32_t height = 0;
  PixelDepth depth = PixelDepth::k8;
};

/// Whether there is at least one pixel.
inline bool HasPixels(const ImageView& image) {
  return image.data != nullptr && image.width > 0 && image.height > 0;
}

inline const std::byte* Row(const ImageView& image, int32_t y) {
  return image.data + image.rowBytes * y;
}
inline std::byte* Row(const MutableImage& image, int32_t y) {
  return image.data + image.rowBytes * y;
}

}  // namespace vantle
