// Bands of rows over threads. Each band takes the particles in painter's order and is drawn by the same
// serial loop, so its bytes do not depend on who draws it; and a band's rows stay in the cache from the
// clearing to the last particle.
#include "render/rasteriser.h"

#include "base/parallel.h"
#include "base/pixels.h"
#include "render/draw_particle.h"

#include <algorithm>
#include <cmath>
#include <cstring>

namespace vantle {

namespace {

constexpr int64_t kBandBytes = 1 << 20;

void ClearRows(const MutableImage& output, const RowBand& band) {
  const size_t bytes = static_cast<size_t>(output.width) * PixelBytes(output.depth);
  for (int32_t y = band.first; y <= band.last; ++y) std::memset(Row(output, y), 0, bytes);
}

/// Whether the particle may touch the band; cheap, and true when in doubt. A curve's place is its trail's.
bool MayTouchBand(const ProjectedParticle& p, bool isCurve, float firstRow, float lastRow) {
  const float reach = VerticalReach(p);
  const bool apart = (p.sy + reach < firstRow) | (p.sy - reach > lastRow);
  return isCurve | !apart;
}

/// Draws the particles that touch the band. They are looked up some at a time, without a branch for each,
/// into a list of hits.
void DrawBand(const RasterFrame& frame, const ProjectedParticle* particles, size_t count,
              const RowBand& band) {
  ClearRows(frame.output, band);
  if (frame.draw == nullptr) return;
  const bool isCurve = frame.draw == DrawCurve;
  const float firstRow = static_cast<float>(band.first);
  const float lastRow = static_cast<float>(band.last);
  constexpr size_t kBatch = 256;
  for (size_t start = 0; start < count; start += kBatch) {
    const size_t end = std::min(count, start + kBatch);
    const ProjectedParticle* hits[kBatch];
    size_t hitCount = 0;
    for (size_t i = start; i < end; ++i) {
      hits[hitCount] = particles + i;
      hitCount += static_cast<size_t>(MayTouchBand(particles[i], isCurve, firstRow, lastRow));
    }
    for (size_t i = 0; i < hitCount; ++i) frame.draw(frame, *hits[i], band);
  }
}

/// Mean height of a particle in rows, from a sample; held to 1..1000.
float MeanHeight(const ProjectedParticle* particles, size_t count) {
  const size_t step = std::max<size_t>(1, count / 64);
  float sum = 0.0f;
  float samples = 0.0f;
  for (size_t i = 0; i < count; i += step) {
    const float height = 2.0f * VerticalReach(particles[i]);
    sum += height < 1000.0f ? height : 1000.0f;
    samples += 1.0f;
  }
  return std::max(1.0f, sum / std::max(samples, 1.0f));
}

/// Rows of a band: what fits the cache, but not so few that most particles are met in several bands.
int32_t RowsOfBand(const MutableImage& output, float particleHeight) {
  const int64_t rowBytes =
      static_cast<int64_t>(output.width) * static_cast<int64_t>(PixelBytes(output.depth));
  const int64_t cached = std::max<int64_t>(8, kBandBytes / rowBytes);
  const int64_t least = static_cast<int64_t>(4.0f * particleHeight);
  return static_cast<int32_t>(std::min<int64_t>(output.height, std::max(cached, least)));
}

/// Rough nanoseconds of the frame on one thread. Below what starting threads costs they are not started.
bool IsWorthThreads(const MutableImage& output, size_t count, float particleHeight) {
  const float pixels = static_cast<float>(output.width) * static_cast<float>(output.height);
  const float clearing = pixels * static_cast<float>(PixelBytes(output.depth)) * 0.05f;
  const float drawing = static_cast<float>(count) * std::min(particleHeight * particleHeight, pixels);
  return clearing + drawing > 100000.0f;
}

}  // namespace

void RenderParticlesAtLevel(InstructionLevel level, const MutableImage& output,
                            const ProjectedParticle* particles, size_t count,
                            const CurvePointPool& curvePoints, const FrameSettings& settings,
                            const ImageView* sprites, size_t spriteCount) {
  if (output.data == nullptr || output.width <= 0 || output.height <= 0) return;
  if (particles == nullptr) count = 0;
  const RasterFrame frame = MakeRasterFrame(level, output, curvePoints, settings, sprites, spriteCount);
  const float particleHeight = MeanHeight(particles, count);
  const int64_t threads = IsWorthThreads(output, count, particleHeight) ? ParallelThreads() : 1;

  // A few bands a thread even out where the particles lie.
  const int64_t rows = std::clamp<int64_t>(RowsOfBand(output, particleHeight), 1,
                                           std::max<int64_t>(1, output.height / threads));
  const int64_t bands = (output.height + rows - 1) / rows;
  ParallelRanges(threads, 1, [&](int64_t begin, int64_t end) {
    for (int64_t t = begin; t < end; ++t) {
      for (int64_t band = t; band < bands; band += threads) {
        const int64_t first = band * rows;
        const int64_t last = std::min<int64_t>(output.height, first + rows) - 1;
        DrawBand(frame, particles, count,
                 {output.width, static_cast<int32_t>(first), static_cast<int32_t>(last)});
      }
    }
  });
}

void RenderParticlesCpu(const MutableImage& output, const ProjectedParticle* particles, size_t count,
                        const CurvePointPool& curvePoints, const FrameSettings& settings,
                        const ImageView* sprites, size_t spriteCount) {
  RenderParticlesAtLevel(CurrentInstructionLevel(), output, particles, count, curvePoints, settings, sprites,
                         spriteCount);
}

}  // namespace vantle
