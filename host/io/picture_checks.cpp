#include "host/io/picture_checks.h"

#include "host/io/failure.h"
#include "host/io/files.h"
#include "host/io/picture.h"
#include "host/io/png_check.h"

namespace vantle::io {

void RefusePicture(const std::string& path, const std::string& why) {
  throw Failure(kUnreadableInput, path + ": " + why);
}

void CheckPictureSize(const std::string& path, int width, int height) {
  if (width >= 1 && height >= 1 && width <= kMaxEdge && height <= kMaxEdge) return;
  RefusePicture(path, std::to_string(width) + " x " + std::to_string(height) +
                          " pixels; a layer is 1 x 1 to 30000 x 30000: crop or scale it");
}

void CheckBeforeReading(const std::string& path) {
  const PngCheck png = CheckPng(ReadWholeFile(path));
  if (!png.isPng) return;
  constexpr uint32_t kSane = 0x7FFFFFFF;
  const bool sized = png.isWhole || png.width > 0 || png.height > 0;
  if (sized && png.width <= kSane && png.height <= kSane)
    CheckPictureSize(path, static_cast<int>(png.width), static_cast<int>(png.height));
  if (!png.isWhole) RefusePicture(path, "the picture is damaged or cut off: write it again");
}

}  // namespace vantle::io
