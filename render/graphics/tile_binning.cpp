#include "render/graphics/tile_binning.h"

#include "base/numeric.h"

#include <algorithm>
#include <cmath>

namespace vantle {

namespace {

/// Columns x0..x1 and rows y0..y1 of tiles, both ends included; empty where an end lies before its beginning.
struct TileRange {
  int32_t x0, x1, y0, y1;
};

constexpr TileRange kNoTiles{0, -1, 0, -1};

struct TileSpan {
  int32_t first, last;
};

/// Tiles that the stretch centre - reach .. centre + reach touches, of `tiles` along an axis.
TileSpan SpanOf(float centre, float reach, int32_t tiles) {
  const int32_t begin = TruncToInt(std::floor(centre - reach));
  const int32_t end = TruncToInt(std::ceil(centre + reach));
  if (end < 0) return {0, -1};
  return {std::max(begin / kTileSize, 0), std::min(end / kTileSize, tiles - 1)};
}

TileRange RangeOf(const kernel::Particle& p, int32_t shape, int32_t tilesX, int32_t tilesY) {
  const float reach = TileReach(p, shape);
  if (!std::isfinite(p.size) || !std::isfinite(p.sx) || !std::isfinite(p.sy) || std::isnan(reach)) {
    return kNoTiles;
  }
  const TileSpan x = SpanOf(p.sx, reach, tilesX);
  const TileSpan y = SpanOf(p.sy, reach, tilesY);
  return {x.first, x.last, y.first, y.last};
}

int64_t TilesIn(const TileRange& range) {
  const int64_t columns = int64_t{range.x1} - range.x0 + 1;
  const int64_t rows = int64_t{range.y1} - range.y0 + 1;
  return columns > 0 && rows > 0 ? columns * rows : 0;
}

int64_t CountEntries(const kernel::Particle* particles, size_t count, int32_t shape, int32_t tilesX,
                     int32_t tilesY) {
  int64_t entries = 0;
  for (size_t i = 0; i < count && entries <= kMostViewElements; ++i) {
    entries += TilesIn(RangeOf(particles[i], shape, tilesX, tilesY));
  }
  return entries;
}

template <class Body>
void ForEachTile(const TileRange& range, int32_t tilesX, const Body& body) {
  for (int32_t y = range.y0; y <= range.y1; ++y) {
    for (int32_t x = range.x0; x <= range.x1; ++x) {
      body(static_cast<size_t>(y) * static_cast<size_t>(tilesX) + static_cast<size_t>(x));
    }
  }
}

/// A counting sort: count each tile's particles, sum the counts into beginnings, put the indices in place.
void SortIntoTiles(const Buffer<TileRange>& ranges, TileLists* lists) {
  int32_t* const offsets = lists->offsets.data();
  int32_t* const indices = lists->indices.data();
  const size_t tiles = lists->offsets.size() - 1;
  std::fill(offsets, offsets + tiles + 1, 0);
  for (size_t i = 0; i < ranges.size(); ++i) {
    ForEachTile(ranges[i], lists->tilesX, [&](size_t tile) { ++offsets[tile + 1]; });
  }
  for (size_t tile = 0; tile < tiles; ++tile) offsets[tile + 1] += offsets[tile];

  // Each beginning moves to the tile's end, which is the next tile's beginning: shifted by one, it is back.
  for (size_t i = 0; i < ranges.size(); ++i) {
    ForEachTile(ranges[i], lists->tilesX,
                [&](size_t tile) { indices[offsets[tile]++] = static_cast<int32_t>(i); });
  }
  for (size_t tile = tiles; tile > 0; --tile) offsets[tile] = offsets[tile - 1];
  offsets[0] = 0;
}

}  // namespace

float TileReach(const kernel::Particle& p, int32_t shape) {
  const float reach = p.cocRadius + p.size + p.lineWidth + 3.0f;
  if (kernel::boundsReach(p, shape) <= reach) return reach;
  const kernel::ShapeFrame frame = kernel::prepareShape(p);
  const float bounds = std::max(kernel::boundsExtentX(frame, shape), kernel::boundsExtentY(frame, shape));
  return bounds <= reach ? reach : bounds;
}

bool BinParticles(const kernel::Particle* particles, size_t count, int32_t shape, int32_t width,
                  int32_t height, TileLists* lists) {
  if (width <= 0 || height <= 0) return false;
  if (particles == nullptr) count = 0;
  if (count > static_cast<size_t>(kMostViewElements)) return false;

  // Look whether everything fits, before memory is taken for it.
  const int32_t tilesX = (width - 1) / kTileSize + 1;
  const int32_t tilesY = (height - 1) / kTileSize + 1;
  const int64_t tiles = int64_t{tilesX} * tilesY;
  if (tiles >= kMostViewElements) return false;
  const int64_t entries = CountEntries(particles, count, shape, tilesX, tilesY);
  if (entries > kMostViewElements) return false;

  Buffer<TileRange> ranges(count);
  lists->tilesX = tilesX;
  lists->tilesY = tilesY;
  lists->offsets.Reset(static_cast<size_t>(tiles) + 1);
  lists->indices.Reset(static_cast<size_t>(std::max<int64_t>(entries, 2)));
  for (size_t i = 0; i < count; ++i) ranges[i] = RangeOf(particles[i], shape, tilesX, tilesY);
  SortIntoTiles(ranges, lists);
  std::fill(lists->indices.data() + entries, lists->indices.data() + lists->indices.size(), 0);
  return true;
}

}  // namespace vantle
