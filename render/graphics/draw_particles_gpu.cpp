#include "render/graphics/draw_particles_gpu.h"

#include "render/graphics/gpu_renderer.h"
#include "render/graphics/output_delivery.h"
#include "render/graphics/tile_binning.h"

#include <algorithm>
#include <cstring>

namespace vantle {

namespace {

/// The first twelve floats of a projected particle are the kernel's record.
Buffer<kernel::Particle> PackParticles(const ProjectedParticle* particles, size_t count) {
  Buffer<kernel::Particle> packed(count);
  for (size_t i = 0; i < count; ++i) std::memcpy(&packed[i], particles + i, sizeof(kernel::Particle));
  return packed;
}

GpuFrame MakeGpuFrame(const MutableImage& output, const Buffer<kernel::Particle>& particles,
                      const TileLists& lists, const FrameSettings& settings) {
  return {.params = {.g_width = output.width,
                     .g_height = output.height,
                     .g_numParticles = static_cast<int32_t>(particles.size()),
                     .g_partShape = settings.shape,
                     .g_blendMode = settings.transferMode,
                     .g_roundCap = settings.roundCap ? 1 : 0,
                     .g_tilesX = lists.tilesX,
                     .g_tilesY = lists.tilesY,
                     .g_tileSize = kTileSize,
                     .g_useTiles = 1},
          .particles = particles.data(),
          .tileOffsets = lists.offsets.data(),
          .tileIndices = lists.indices.data(),
          .numTileIndices = lists.indices.size()};
}

/// By way of floats, since the kernel knows no other pixels.
bool RenderToIntegers(const MutableImage& output, const GpuFrame& frame) {
  constexpr size_t kChannels = 4;
  const size_t rowFloats = static_cast<size_t>(output.width) * kChannels;
  Buffer<float> pixels(rowFloats * static_cast<size_t>(output.height));
  std::fill(pixels.data(), pixels.data() + pixels.size(), 0.0f);
  const int64_t rowBytes = static_cast<int64_t>(rowFloats * sizeof(float));
  if (!RenderGpu(reinterpret_cast<std::byte*>(pixels.data()), rowBytes, frame)) return false;
  DeliverPixels(pixels.data(), output);
  return true;
}

}  // namespace

bool DrawParticlesGpu(const MutableImage& output, const ProjectedParticle* particles, size_t count,
                      const FrameSettings& settings) {
  if (output.data == nullptr || output.width <= 0 || output.height <= 0) return false;
  if (!IsGpuShape(settings.shape)) return false;
  if (int64_t{output.width} * output.height > kMostViewElements) return false;
  if (particles == nullptr) count = 0;
  if (count > static_cast<size_t>(kMostViewElements)) return false;

  const Buffer<kernel::Particle> packed = PackParticles(particles, count);
  TileLists lists;
  if (!BinParticles(packed.data(), count, settings.shape, output.width, output.height, &lists)) return false;
  const GpuFrame frame = MakeGpuFrame(output, packed, lists, settings);
  if (output.depth == PixelDepth::k32) return RenderGpu(output.data, output.rowBytes, frame);
  return RenderToIntegers(output, frame);
}

}  // namespace vantle
