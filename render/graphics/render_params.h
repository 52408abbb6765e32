// The frame-wide values that the compute shader reads.
#pragma once

#include <cstddef>
#include <cstdint>

namespace vantle {

/// The shader's constant buffer, field for field. All values are 32-bit integers.
struct RenderParamsCB {
  int32_t g_width;         ///< pixels of the output
  int32_t g_height;        ///< rows of the output
  int32_t g_numParticles;  ///< records in the particle list
  int32_t g_partShape;     ///< ShapeId
  int32_t g_blendMode;     ///< BlendId
  int32_t g_roundCap;      ///< 1 for round line ends
  int32_t g_tilesX;        ///< columns of tiles
  int32_t g_tilesY;        ///< rows of tiles
  int32_t g_tileSize;      ///< edge of a tile, pixels
  int32_t g_useTiles;      ///< 1 to walk the tile lists, 0 to walk all particles
};
static_assert(sizeof(RenderParamsCB) == 40);
static_assert(offsetof(RenderParamsCB, g_width) == 0 && offsetof(RenderParamsCB, g_height) == 4);
static_assert(offsetof(RenderParamsCB, g_numParticles) == 8 && offsetof(RenderParamsCB, g_partShape) == 12);
static_assert(offsetof(RenderParamsCB, g_blendMode) == 16 && offsetof(RenderParamsCB, g_roundCap) == 20);
static_assert(offsetof(RenderParamsCB, g_tilesX) == 24 && offsetof(RenderParamsCB, g_tilesY) == 28);
static_assert(offsetof(RenderParamsCB, g_tileSize) == 32 && offsetof(RenderParamsCB, g_useTiles) == 36);

}  // namespace vantle
