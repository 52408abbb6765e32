// Pictures with memory of their own, laid out as awkwardly as hosts do.
#pragma once

#include "base/image_view.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace vantle::reference {

/// How a picture lies in memory.
struct Layout {
  int32_t width = 0;
  int32_t height = 0;
  PixelDepth depth = PixelDepth::k8;
  int32_t padding = 0;    ///< bytes between a row's end and the next row's start
  int32_t lead = 0;       ///< bytes before the first row in memory, to spoil the alignment
  bool bottomUp = false;  ///< the last row first in memory
};

/// Memory is filled with a pattern, so that writes beyond the rows show.
struct Picture {
  Layout layout;
  std::vector<std::byte> memory;
};

Picture MakePicture(const Layout& layout);

/// Data is null when the picture has no pixels.
ImageView ViewOf(const Picture& picture);
MutableImage MutableOf(Picture& picture);

/// The channels of a pixel, alpha first, as floats where full is 1.
struct Channels {
  float c[4];
};
Channels PixelAt(const Picture& picture, int32_t x, int32_t y);
void SetPixel(Picture& picture, int32_t x, int32_t y, const Channels& channels);

/// Sum of one channel over all pixels.
double SumOf(const Picture& picture, int channel);

/// The first difference between two pictures of one layout, or nothing when they are equal byte for byte, the
/// memory between the rows included. NaNs of any kind are equal.
std::string FirstDifference(const Picture& a, const Picture& b);

/// Writes the colours, weighted by alpha, as a binary PPM. `b` may be null; then the absolute difference of
/// the two is written, stretched to be seen.
void WritePpm(const std::string& path, const Picture& a, const Picture* b);

}  // namespace vantle::reference
