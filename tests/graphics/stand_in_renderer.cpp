#include "tests/graphics/stand_in_renderer.h"

#include "render/accumulate.h"

#include <cstring>

namespace vantle {

namespace test {

StandInRenderer& TheStandIn() {
  static StandInRenderer renderer;
  return renderer;
}

namespace {

/// One thread of the kernel.
void DrawPixel(const GpuFrame& frame, int32_t x, int32_t y, std::byte* to) {
  const RenderParamsCB& p = frame.params;
  const int32_t tile = y / p.g_tileSize * p.g_tilesX + x / p.g_tileSize;
  float r = 0.0f;
  float g = 0.0f;
  float b = 0.0f;
  float a = 0.0f;
  for (int32_t i = frame.tileOffsets[tile]; i < frame.tileOffsets[tile + 1]; ++i) {
    kernel::accumParticle(static_cast<float>(x), static_cast<float>(y), frame.particles[frame.tileIndices[i]],
                          p.g_partShape, p.g_blendMode, p.g_roundCap != 0, r, g, b, a);
  }
  const float pixel[4] = {a, r, g, b};
  std::memcpy(to, pixel, sizeof(pixel));
}

}  // namespace
}  // namespace test

bool IsGpuUsable() {
  return true;
}

bool InitGpu() {
  return true;
}

bool RenderGpu(std::byte* destination, int64_t rowBytes, const GpuFrame& frame) {
  test::StandInRenderer& renderer = test::TheStandIn();
  ++renderer.renders;
  renderer.params = frame.params;
  renderer.numTileIndices = frame.numTileIndices;
  if (renderer.fails) return false;
  for (int32_t y = 0; y < frame.params.g_height; ++y) {
    for (int32_t x = 0; x < frame.params.g_width; ++x) {
      test::DrawPixel(frame, x, y, destination + rowBytes * y + int64_t{16} * x);
    }
  }
  return true;
}

void GpuDebugPrint(const char* /*format*/, ...) {}

void ReleaseGpu() {}

}  // namespace vantle
