// One pixel of any depth to floats and back.
#pragma once

#include "base/image_view.h"

#include <cstddef>

namespace vantle::reference {

/// Straight colour and alpha, 1 is full.
struct Pixel {
  float a = 0.0f;
  float r = 0.0f;
  float g = 0.0f;
  float b = 0.0f;
};

/// Bytes of a pixel.
size_t BytesPerPixel(PixelDepth depth);

/// What one code value is worth: 1/255, 1/32768 or 1.
float CodeScale(PixelDepth depth);

/// The codes as floats, not scaled.
Pixel ReadCodes(const std::byte* at, PixelDepth depth);

/// The codes scaled so that full is 1.
Pixel ReadPixel(const std::byte* at, PixelDepth depth);

/// Whole codes are capped from above and truncated; floats are written as they are.
void WritePixel(std::byte* at, PixelDepth depth, const Pixel& pixel);

}  // namespace vantle::reference
