#include "tests/reference/reference_renderer.h"

#include "base/numeric.h"
#include "tests/reference/layer_points.h"
#include "tests/reference/motion.h"
#include "tests/reference/pixel_blend.h"
#include "tests/reference/pixel_codec.h"
#include "tests/reference/projection.h"
#include "tests/reference/random_streams.h"
#include "tests/reference/shape_coverage.h"
#include "tests/reference/sprite.h"

#include <algorithm>
#include <cmath>
#include <cstring>

namespace vantle::reference {
namespace {

void ScaleForPreview(const FrameSettings& s, Particle& particle) {
  if (!(s.downsampleX < 0.999f || s.downsampleY < 0.999f)) return;
  const float smaller = std::min(s.downsampleX, s.downsampleY);
  ProjectedParticle& p = particle.projected;
  p.sx *= s.downsampleX;
  p.sy *= s.downsampleY;
  p.size *= smaller;
  p.lineWidth *= smaller;
  p.cocRadius *= smaller;
  for (Vec2& point : particle.curvePoints) {
    point.x *= s.downsampleX;
    point.y *= s.downsampleY;
  }
}

// Whole pixels, both ends included; empty when an end lies before its start.
struct PixelRect {
  int32_t x0, x1, y0, y1;
};

PixelRect PixelsOf(const Region& r, const MutableImage& output) {
  if (std::isnan(r.left) || std::isnan(r.right) || std::isnan(r.top) || std::isnan(r.bottom)) {
    return {0, -1, 0, -1};
  }
  return {std::max(0, TruncToInt(r.left)), std::min(output.width - 1, TruncToInt(r.right)),
          std::max(0, TruncToInt(r.top)), std::min(output.height - 1, TruncToInt(r.bottom))};
}

void Clear(const MutableImage& output) {
  const size_t bytes = static_cast<size_t>(std::max(output.width, 0)) * BytesPerPixel(output.depth);
  for (int32_t y = 0; y < output.height; ++y) std::memset(Row(output, y), 0, bytes);
}

// Calls sourceAt(x, y) for every pixel of the rectangle and lays what it gives over the pixel.
template <PixelDepth kDepth, class SourceAt>
void LayAtDepth(const PixelRect& rect, const MutableImage& output, int32_t mode, const SourceAt& sourceAt) {
  for (int32_t y = rect.y0; y <= rect.y1; ++y) {
    for (int32_t x = rect.x0; x <= rect.x1; ++x) {
      const Pixel source = sourceAt(static_cast<float>(x), static_cast<float>(y));
      if (IsFaint(source)) continue;
      std::byte* at = Row(output, y) + static_cast<size_t>(x) * BytesPerPixel(kDepth);
      Pixel pixel = ReadPixel(at, kDepth);
      BlendOver(source, pixel, mode);
      WritePixel(at, kDepth, pixel);
    }
  }
}

template <class SourceAt>
void Lay(const PixelRect& rect, const MutableImage& output, int32_t mode, const SourceAt& sourceAt) {
  switch (output.depth) {
    case PixelDepth::k8:
      return LayAtDepth<PixelDepth::k8>(rect, output, mode, sourceAt);
    case PixelDepth::k16:
      return LayAtDepth<PixelDepth::k16>(rect, output, mode, sourceAt);
    case PixelDepth::k32:
      return LayAtDepth<PixelDepth::k32>(rect, output, mode, sourceAt);
  }
}

// Plain code, too, settles before its loops what is the same for all pixels: the shape here, the depth above.
template <int32_t kShape>
void LayShape(const Stamp& stamp, const FrameSettings& s, const MutableImage& output) {
  const ProjectedParticle& p = stamp.particle;
  Lay(PixelsOf(RegionOf(stamp), output), output, s.transferMode, [&](float x, float y) {
    const float coverage = CoverageAt(stamp, kShape, x, y);
    return coverage > 0.001f ? Pixel{p.alpha * coverage, p.r, p.g, p.b} : Pixel{};
  });
}

bool IsCurve(int32_t shape) {
  return shape == SHAPE_CURVE_LINE || shape == SHAPE_CURVED_ARROW;
}

void DrawShape(const Particle& particle, const FrameSettings& s, const MutableImage& output) {
  const ProjectedParticle& p = particle.projected;
  if (s.shape < SHAPE_POINT || s.shape > SHAPE_LAYER) return;
  if (IsCurve(s.shape) && particle.curvePoints.empty()) return;

  const Stamp stamp = StampOf(p, particle.curvePoints, s.shape, s.roundCap);
  if (s.shape <= SHAPE_SQUARE && EdgeOn(stamp.tilt)) return;
  switch (s.shape) {
    case SHAPE_CIRCLE:
      return LayShape<SHAPE_CIRCLE>(stamp, s, output);
    case SHAPE_SOFT_CIRCLE:
      return LayShape<SHAPE_SOFT_CIRCLE>(stamp, s, output);
    case SHAPE_TRIANGLE:
      return LayShape<SHAPE_TRIANGLE>(stamp, s, output);
    case SHAPE_SQUARE:
      return LayShape<SHAPE_SQUARE>(stamp, s, output);
    case SHAPE_LINE:
      return LayShape<SHAPE_LINE>(stamp, s, output);
    case SHAPE_CURVE_LINE:
      return LayShape<SHAPE_CURVE_LINE>(stamp, s, output);
    case SHAPE_ARROW:
      return LayShape<SHAPE_ARROW>(stamp, s, output);
    case SHAPE_CURVED_ARROW:
      return LayShape<SHAPE_CURVED_ARROW>(stamp, s, output);
    default:
      return LayShape<SHAPE_POINT>(stamp, s, output);
  }
}

void DrawSprite(const Particle& particle, const FrameInput& frame, const MutableImage& output) {
  const ProjectedParticle& p = particle.projected;
  const ImageView* sprite = SpriteOf(p, frame.sprites);
  if (sprite == nullptr) return;
  const SpriteStamp stamp = SpriteStampOf(p, *sprite);
  if (EdgeOn(stamp.tilt)) return;
  const PixelRect rect = PixelsOf(SpriteRegion(stamp), output);
  Lay(rect, output, frame.settings.transferMode, [&](float x, float y) {
    Pixel source = SpriteAt(stamp, x, y);
    source.a = source.a > 0.001f ? source.a * p.alpha : 0.0f;
    return source;
  });
}

}  // namespace

Layers LayersOf(const FrameInput& frame) {
  const FrameSettings& s = frame.settings;
  const Variation variationA = {s.variationA, s.variationABy};
  const Variation variationB = {s.variationB, s.variationBBy};
  Layers layers;
  layers.a = PointsOf(frame.layerA, s, variationA, true);
  if (layers.a.points.empty()) layers.a = PointsOf(frame.input, s, variationA, false);
  layers.b = PointsOf(frame.layerB, s, variationB, true);
  return layers;
}

std::vector<Particle> Simulate(const FrameInput& frame) {
  const FrameSettings& s = frame.settings;
  const Layers layers = LayersOf(frame);
  std::vector<Particle> particles;
  if (layers.a.points.empty() && layers.b.points.empty()) return particles;

  const MotionFrame motion = MotionFrameOf(s);
  const View view = ViewOfFrame(s, frame.camera);
  const int32_t count = std::clamp(s.density, 1, 200000);
  particles.reserve(static_cast<size_t>(count));
  for (int32_t i = 0; i < count; ++i) {
    const ParticleKeys keys = KeysOf(s.seed, static_cast<uint32_t>(i));
    const WorldParticle world = SimulateOne(keys, PickEnds(keys, layers), motion);
    std::optional<Particle> particle = Project(world, view);
    if (!particle) continue;
    particle->index = i;
    particles.push_back(std::move(*particle));
  }

  std::stable_sort(particles.begin(), particles.end(), [](const Particle& a, const Particle& b) {
    return a.projected.depth > b.projected.depth;
  });
  for (Particle& particle : particles) ScaleForPreview(s, particle);
  return particles;
}

void Rasterise(const FrameInput& frame, const std::vector<Particle>& particles, const MutableImage& output) {
  Clear(output);
  for (const Particle& particle : particles) {
    if (frame.settings.shape == SHAPE_LAYER) {
      DrawSprite(particle, frame, output);
    } else {
      DrawShape(particle, frame.settings, output);
    }
  }
}

void Render(const FrameInput& frame, const MutableImage& output) {
  Rasterise(frame, Simulate(frame), output);
}

}  // namespace vantle::reference
