// Pixel worlds that the host owns, with guard bytes around every row.
#pragma once

#include "host_api/worlds.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace vantle::host {

/// How rows lie in memory. Real hosts hand over all of these sooner or later.
enum class RowLayout {
  kPadded,        ///< rows start at multiples of 64 bytes, with padding behind
  kTight,         ///< no padding at all
  kOddPadding,    ///< padded by an odd number of pixels
  kNegative,      ///< the bottom row comes first in memory: the stride is negative
  kPixelAligned,  ///< data aligned to one pixel only
  kByteAligned,   ///< odd stride, data at an odd address
};

/// A picture of 8, 16 (32768 is full) or 32 (float) bits per channel, alpha, red, green, blue. All bytes of
/// `storage` that belong to no row hold a guard pattern.
struct World {
  int width = 0;
  int height = 0;
  int depth = 8;
  RowLayout layout = RowLayout::kPadded;
  A_long rowBytes = 0;
  std::ptrdiff_t firstRow = 0;  ///< offset of the top row in `storage`
  std::vector<std::uint8_t> storage;
};

/// Bytes of one pixel: 4, 8 or 16.
int PixelBytes(int depth);

/// Transparent black, width x height (0 or more; each at most 30000). Throws std::invalid_argument for
/// another depth or size, std::bad_alloc when there is no memory.
World MakeWorld(int width, int height, int depth, RowLayout layout = RowLayout::kPadded);

/// A copy of the pixels with rows laid out as `layout` says.
World CopyWorld(const World& world, RowLayout layout);

/// Overwrites the pixels of `to` by those of `from`; both have the same size and depth.
void CopyPixels(const World& from, World& to);

/// Start of row y (0 at the top). Use memcpy for channels wider than a byte: rows may lie anywhere.
std::uint8_t* WorldRow(World& world, int y);
const std::uint8_t* WorldRow(const World& world, int y);

/// One pixel as floats, full = 1.
PF_PixelFloat ReadPixel(const World& world, int x, int y);
/// Stores the channels multiplied by 255 or 32768 and rounded to nearest, or as they are at 32 bits.
void WritePixel(World& world, int x, int y, const PF_PixelFloat& pixel);

/// Fills all pixels with bytes that are no picture, for effects that forget to clear their output.
void SoilWorld(World& world);

/// The record that effects see. It points into `world`, which must outlive it and not move its storage.
PF_LayerDef DescribeWorld(World& world, bool writeable);
/// As above, for worlds that effects only read.
PF_LayerDef DescribeReadOnlyWorld(const World& world);

/// The format code of a depth.
PF_PixelFormat WorldFormat(int depth);

/// One line per damaged stretch: before the rows, behind them, or in the padding of which row.
std::vector<std::string> FindDamage(const World& world);

/// A 64-bit sum over the pixels, to see whether somebody wrote into a world that was to be read only.
std::uint64_t HashPixels(const World& world);

}  // namespace vantle::host
