// Which particles touch which tile of the picture, so that a pixel's thread walks only those.
#pragma once

#include "base/buffer.h"
#include "render/coverage.h"

#include <cstddef>
#include <cstdint>

namespace vantle {

/// Edge of a tile, pixels.
inline constexpr int32_t kTileSize = 32;

/// What a view of a buffer on the graphics processor can hold: elements of a list, pixels of an output.
inline constexpr int64_t kMostViewElements = int64_t{1} << 27;

/// Particles sorted into tiles, row after row of tiles. Those of tile t are indices[offsets[t]] up to, not
/// including, indices[offsets[t + 1]], in the order of the particles, which is the painter's order.
struct TileLists {
  int32_t tilesX = 0;
  int32_t tilesY = 0;
  Buffer<int32_t> offsets;  ///< tilesX * tilesY + 1 entries; the first is 0, the last the number of entries
  Buffer<int32_t> indices;  ///< the entries, filled up with zeros to at least two
};

/// The distance along either axis, in pixels, at which a particle may still touch something:
/// coc + size + lineWidth + 3, or the shape's own bounds where those are wider, as a turned square's are.
float TileReach(const kernel::Particle& particle, int32_t shape);

/// Sorts `count` particles into the tiles of a picture. A particle whose size is not finite, or whose place
/// or reach is NaN, touches nothing. False, with nothing allocated, for a picture without pixels or where a
/// list would outgrow a view. Throws std::bad_alloc.
bool BinParticles(const kernel::Particle* particles, size_t count, int32_t shape, int32_t width,
                  int32_t height, TileLists* lists);

}  // namespace vantle
