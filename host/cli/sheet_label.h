// Numbers and names in small letters of our own, so that a sheet looks the same on every machine.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace vantle::cli {

/// Rows of red, green, blue.
struct SheetImage {
  int32_t width = 0;
  int32_t height = 0;
  std::vector<uint8_t> rgb;
};

/// Height of a line of text at scale 1; letters are 5 wide and stand 6 apart.
inline constexpr int32_t kLabelHeight = 7;

/// Width in pixels.
int32_t LabelWidth(const std::string& text, int32_t scale);

/// Draws text with its upper left corner at (x, y), clipped to the image. Digits, letters (all drawn as
/// capitals) and - . _ are known; anything else is a blank.
void DrawLabel(const std::string& text, int32_t x, int32_t y, int32_t scale, uint8_t grey, SheetImage* image);

}  // namespace vantle::cli
