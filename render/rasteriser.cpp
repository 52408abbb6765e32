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

/// A thread's share of the picture: bands number first, first + step, ... of `count`.
struct Share {
  int64_t first, step, count;
  int64_t rows;  ///< of a band
};

template <class Body>
void ForEachBand(const MutableImage& output, const Share& share, const Body& body) {
  for (int64_t band = share.first; band < share.count; band += share.step) {
    const int64_t first = band * share.rows;
    const int64_t last = std::min<int64_t>(output.height, first + share.rows) - 1;
    body(RowBand{output.width, static_cast<int32_t>(first), static_cast<int32_t>(last)});
  }
}

/// Whether the particle may touch the band; cheap, and true when in doubt.
bool MayTouchBand(const ProjectedParticle& p, float firstRow, float lastRow) {
  const float reach = VerticalReach(p);
  const bool apart = (p.sy + reach < firstRow) | (p.sy - reach > lastRow);
  return !apart;
}

/// Draws the particles for which mayTouch(i) holds, 0 <= i < count. They are looked up some at a time,
/// without a branch for each, into a list of hits. Trails lie anywhere, and are asked for ahead of time.
template <bool kAreCurves, class MayTouch>
void DrawHits(const RasterFrame& frame, const ProjectedParticle* particles, size_t count, const RowBand& band,
              const MayTouch& mayTouch) {
  constexpr size_t kBatch = 256, kAhead = 4;
  for (size_t start = 0; start < count; start += kBatch) {
    const size_t end = std::min(count, start + kBatch);
    const ProjectedParticle* hits[kBatch];
    size_t hitCount = 0;
    for (size_t i = start; i < end; ++i) {
      hits[hitCount] = particles + i;
      hitCount += static_cast<size_t>(mayTouch(i));
    }
    for (size_t i = 0; i < hitCount; ++i) {
      if (kAreCurves) PrefetchCurve(frame, *hits[std::min(i + kAhead, hitCount - 1)]);
      frame.draw(frame, *hits[i], band);
    }
  }
}

void DrawBand(const RasterFrame& frame, const ProjectedParticle* particles, size_t count,
              const RowBand& band) {
  const float firstRow = static_cast<float>(band.first);
  const float lastRow = static_cast<float>(band.last);
  DrawHits<false>(frame, particles, count, band,
                  [&](size_t i) { return MayTouchBand(particles[i], firstRow, lastRow); });
}

/// Rows first..last, cut to what 16 bits hold; the greatest stands for all beyond it as well.
struct ShortSpan {
  int16_t first, last;
};

ShortSpan ShortSpanOf(const RowSpan& span) {
  return {static_cast<int16_t>(std::clamp<int32_t>(span.first, INT16_MIN, INT16_MAX)),
          static_cast<int16_t>(std::clamp<int32_t>(span.last, INT16_MIN, INT16_MAX))};
}

bool MayTouchBand(ShortSpan span, const RowBand& band) {
  return (span.first <= band.last) & ((span.last >= band.first) | (span.last == INT16_MAX));
}

/// A curve's place is its trail's, whose points are too many to be looked through for every band: the rows of
/// as many curves as the stack has room for are found once, and then drawn into all bands. Clears the bands
/// first.
void DrawCurves(const RasterFrame& frame, const ProjectedParticle* particles, size_t count,
                const Share& share) {
  constexpr size_t kSome = 32768, kAhead = 8;
  ShortSpan spans[kSome];
  size_t start = 0;
  do {
    const ProjectedParticle* some = particles + start;
    const size_t size = std::min(count - start, kSome);
    for (size_t i = 0; i < size; ++i) {
      PrefetchCurve(frame, some[std::min(i + kAhead, size - 1)]);
      spans[i] = ShortSpanOf(RowsOfCurve(frame, some[i]));
    }
    ForEachBand(frame.output, share, [&](const RowBand& band) {
      if (start == 0) ClearRows(frame.output, band);
      DrawHits<true>(frame, some, size, band, [&](size_t i) { return MayTouchBand(spans[i], band); });
    });
    start += kSome;
  } while (start < count);
}

void DrawShare(const RasterFrame& frame, const ProjectedParticle* particles, size_t count,
               const Share& share) {
  if (frame.draw == DrawCurve) return DrawCurves(frame, particles, count, share);
  ForEachBand(frame.output, share, [&](const RowBand& band) {
    ClearRows(frame.output, band);
    if (frame.draw != nullptr) DrawBand(frame, particles, count, band);
  });
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
    for (int64_t t = begin; t < end; ++t) DrawShare(frame, particles, count, {t, threads, bands, rows});
  });
}

void RenderParticlesCpu(const MutableImage& output, const ProjectedParticle* particles, size_t count,
                        const CurvePointPool& curvePoints, const FrameSettings& settings,
                        const ImageView* sprites, size_t spriteCount) {
  RenderParticlesAtLevel(CurrentInstructionLevel(), output, particles, count, curvePoints, settings, sprites,
                         spriteCount);
}

}  // namespace vantle
