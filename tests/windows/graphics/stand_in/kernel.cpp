// The compute shader, as a loop over pixels.
#include "render/accumulate.h"
#include "render/graphics/render_params.h"
#include "tests/windows/graphics/stand_in/objects.h"

namespace vantle::standin {

namespace {

/// Element of a buffer; zeros beyond its end, as shaders read them.
template <class Element>
Element At(const Object& buffer, std::int64_t index) {
  Element element{};
  const std::int64_t at = index * std::int64_t{sizeof(Element)};
  if (at >= 0 && at + std::int64_t{sizeof(Element)} <= static_cast<std::int64_t>(buffer.bytes.size()))
    std::memcpy(&element, buffer.bytes.data() + at, sizeof(Element));
  return element;
}

struct Range {
  std::int32_t first, end;
};

Range ParticlesAt(const RenderParamsCB& p, const Object& offsets, std::int32_t x, std::int32_t y) {
  if (p.g_useTiles == 0) return {0, p.g_numParticles};
  const std::int32_t tile = y / p.g_tileSize * p.g_tilesX + x / p.g_tileSize;
  return {At<std::int32_t>(offsets, tile), At<std::int32_t>(offsets, tile + 1)};
}

}  // namespace

void RunKernel(const std::int32_t* params, const Object& particles, const Object& offsets,
               const Object& indices, Object* output) {
  RenderParamsCB p{};
  std::memcpy(&p, params, sizeof(p));
  for (std::int32_t y = 0; y < p.g_height; ++y) {
    for (std::int32_t x = 0; x < p.g_width; ++x) {
      const Range range = ParticlesAt(p, offsets, x, y);
      float r = 0.0f;
      float g = 0.0f;
      float b = 0.0f;
      float a = 0.0f;
      for (std::int32_t i = range.first; i < range.end; ++i) {
        const std::int32_t index = p.g_useTiles == 0 ? i : At<std::int32_t>(indices, i);
        kernel::accumParticle(static_cast<float>(x), static_cast<float>(y),
                              At<kernel::Particle>(particles, index), p.g_partShape, p.g_blendMode,
                              p.g_roundCap != 0, r, g, b, a);
      }
      const float pixel[4] = {a, r, g, b};
      const std::size_t at =
          (static_cast<std::size_t>(y) * static_cast<std::size_t>(p.g_width) + static_cast<std::size_t>(x)) *
          sizeof(pixel);
      std::memcpy(output->bytes.data() + at, pixel, sizeof(pixel));
    }
  }
}

}  // namespace vantle::standin
