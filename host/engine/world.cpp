#include "host/engine/world.h"

#include <algorithm>
#include <bit>
#include <cstring>
#include <stdexcept>

namespace vantle::host {
namespace {

constexpr std::size_t kGuardBytes = 64;
constexpr std::size_t kRowAlignment = 64;

/// Never 0 and never 255, the two values that stray writes of pixels mostly have.
std::uint8_t GuardByte(std::size_t offset) {
  return static_cast<std::uint8_t>(0x81 + offset % 101);
}

std::size_t PixelRowBytes(const World& world) {
  return static_cast<std::size_t>(world.width) * static_cast<std::size_t>(PixelBytes(world.depth));
}

/// Distance of two rows in memory, without the sign.
std::size_t StrideBytes(std::size_t pixelRow, std::size_t pixel, RowLayout layout) {
  switch (layout) {
    case RowLayout::kTight:
    case RowLayout::kPixelAligned:
      return pixelRow;
    case RowLayout::kOddPadding:
      return pixelRow + 3 * pixel;
    case RowLayout::kByteAligned:
      return pixelRow + 1 + pixel;
    case RowLayout::kPadded:
    case RowLayout::kNegative:
      break;
  }
  return (pixelRow / kRowAlignment + 1) * kRowAlignment;
}

/// How far the first byte of the rows lies behind a multiple of 64.
std::size_t Misalignment(std::size_t pixel, RowLayout layout) {
  if (layout == RowLayout::kPixelAligned) {
    return pixel;
  }
  return layout == RowLayout::kByteAligned ? 1 : 0;
}

/// Offset of the first row in memory, which is the bottom one when the stride is negative.
std::size_t LowestRow(const World& world) {
  return static_cast<std::size_t>(world.rowBytes < 0
                                      ? world.firstRow + std::ptrdiff_t{world.rowBytes} * (world.height - 1)
                                      : world.firstRow);
}

void FillGuards(World& world, std::size_t from, std::size_t to) {
  for (std::size_t i = from; i < to; ++i) {
    world.storage[i] = GuardByte(i);
  }
}

/// Calls visit(from, to, row) for each stretch of guard bytes, in memory order; `row` counts rows in memory
/// order that lie before the stretch.
template <typename Visit>
void ForEachGuard(const World& world, Visit visit) {
  const std::size_t pixelRow = PixelRowBytes(world);
  const auto stride = static_cast<std::size_t>(world.rowBytes < 0 ? -world.rowBytes : world.rowBytes);
  std::size_t at = 0;
  for (int row = 0; pixelRow > 0 && row < world.height; ++row) {
    const std::size_t start = LowestRow(world) + stride * static_cast<std::size_t>(row);
    visit(at, start, row);
    at = start + pixelRow;
  }
  visit(at, world.storage.size(), world.height);
}

void CheckShape(int width, int height, int depth) {
  if (depth != 8 && depth != 16 && depth != 32) {
    throw std::invalid_argument("worlds have 8, 16 or 32 bits, not " + std::to_string(depth));
  }
  if (width < 0 || height < 0 || width > kMaxWorldEdge || height > kMaxWorldEdge) {
    throw std::invalid_argument("worlds have 0 to 30000 columns and rows, not " + std::to_string(width) +
                                " x " + std::to_string(height));
  }
}

std::string GuardName(const World& world, int rowsBefore) {
  if (rowsBefore == 0) {
    return "before the rows";
  }
  if (rowsBefore >= world.height) {
    return "behind the rows";
  }
  const int row = world.rowBytes < 0 ? world.height - rowsBefore : rowsBefore - 1;
  return "in the padding of row " + std::to_string(row);
}

}  // namespace

int PixelBytes(int depth) {
  return depth / 2;
}

World MakeWorld(int width, int height, int depth, RowLayout layout) {
  CheckShape(width, height, depth);
  World world;
  world.width = width;
  world.height = height;
  world.depth = depth;
  world.layout = layout;
  const auto pixel = static_cast<std::size_t>(PixelBytes(depth));
  const std::size_t stride = StrideBytes(PixelRowBytes(world), pixel, layout);
  const std::size_t rows = stride * static_cast<std::size_t>(height);
  world.storage.resize(2 * kGuardBytes + kRowAlignment + rows);

  // The vector's own alignment is not ours to choose, so the rows are placed by address.
  const auto address = std::bit_cast<std::uintptr_t>(world.storage.data() + kGuardBytes);
  const std::size_t start =
      kGuardBytes + (kRowAlignment - address % kRowAlignment) % kRowAlignment + Misalignment(pixel, layout);
  world.rowBytes = static_cast<A_long>(stride);
  world.firstRow = static_cast<std::ptrdiff_t>(start);
  if (layout == RowLayout::kNegative && height > 0) {
    world.firstRow += static_cast<std::ptrdiff_t>(rows - stride);
    world.rowBytes = -world.rowBytes;
  }
  ForEachGuard(world, [&](std::size_t from, std::size_t to, int) { FillGuards(world, from, to); });
  return world;
}

World CopyWorld(const World& world, RowLayout layout) {
  World copy = MakeWorld(world.width, world.height, world.depth, layout);
  CopyPixels(world, copy);
  return copy;
}

void CopyPixels(const World& from, World& to) {
  const std::size_t bytes = PixelRowBytes(from);
  for (int y = 0; bytes > 0 && y < from.height; ++y) {
    std::memcpy(WorldRow(to, y), WorldRow(from, y), bytes);
  }
}

std::uint8_t* WorldRow(World& world, int y) {
  return world.storage.data() + world.firstRow + std::ptrdiff_t{world.rowBytes} * y;
}

const std::uint8_t* WorldRow(const World& world, int y) {
  return world.storage.data() + world.firstRow + std::ptrdiff_t{world.rowBytes} * y;
}

void SoilWorld(World& world) {
  const std::size_t bytes = PixelRowBytes(world);
  for (int y = 0; bytes > 0 && y < world.height; ++y) {
    std::memset(WorldRow(world, y), 0x5b, bytes);
  }
}

PF_LayerDef DescribeWorld(World& world, bool writeable) {
  PF_LayerDef layer{};
  layer.world_flags = (world.depth == 16 ? PF_WorldFlag_DEEP : 0) |
                      (world.depth == 32 ? PF_WorldFlag_RESERVED1 : 0) |
                      (writeable ? PF_WorldFlag_WRITEABLE : 0);
  layer.data = reinterpret_cast<PF_PixelPtr>(WorldRow(world, 0));
  layer.rowbytes = world.rowBytes;
  layer.width = world.width;
  layer.height = world.height;
  layer.extent_hint = {0, 0, world.width, world.height};
  layer.pix_aspect_ratio = {1, 1};
  return layer;
}

PF_LayerDef DescribeReadOnlyWorld(const World& world) {
  return DescribeWorld(const_cast<World&>(world), false);
}

PF_PixelFormat WorldFormat(int depth) {
  switch (depth) {
    case 8:
      return PF_PixelFormat_ARGB32;
    case 16:
      return PF_PixelFormat_ARGB64;
    case 32:
      return PF_PixelFormat_ARGB128;
    default:
      return PF_PixelFormat_INVALID;
  }
}

std::vector<std::string> FindDamage(const World& world) {
  std::vector<std::string> lines;
  ForEachGuard(world, [&](std::size_t from, std::size_t to, int rowsBefore) {
    std::size_t damaged = 0;
    for (std::size_t i = from; i < to; ++i) {
      damaged += world.storage[i] != GuardByte(i) ? 1U : 0U;
    }
    if (damaged > 0) {
      lines.push_back(std::to_string(damaged) + " bytes written " + GuardName(world, rowsBefore));
    }
  });
  return lines;
}

std::uint64_t HashPixels(const World& world) {
  const std::size_t bytes = PixelRowBytes(world);
  std::uint64_t hash = 0xcbf29ce484222325U;
  for (int y = 0; bytes > 0 && y < world.height; ++y) {
    const std::uint8_t* row = WorldRow(world, y);
    for (std::size_t i = 0; i < bytes; i += 4) {
      std::uint32_t word = 0;
      std::memcpy(&word, row + i, sizeof word);
      hash = (hash ^ word) * 0x100000001b3U;
    }
  }
  return hash;
}

}  // namespace vantle::host
