#include "particles/emitter_pick.h"

#include "base/pixels.h"
#include "particles/emission_weights.h"
#include "particles/particle_streams.h"
#include "particles/stages.h"

#include <algorithm>
#include <bit>
#include <cstddef>
#include <immintrin.h>

namespace vantle {
namespace {

constexpr int32_t kGroup = kSumGroup;

/// The index, in a group of ascending values, of the first that doesn't lie below r; 16 if all do.
size_t CountBelow(const float* group, float r) {
  const __m128 limit = _mm_set1_ps(r);
  const auto mask = [&](int32_t at) {
    return static_cast<uint32_t>(_mm_movemask_ps(_mm_cmplt_ps(_mm_loadu_ps(group + at), limit))) << at;
  };
  return static_cast<size_t>(std::countr_one(mask(0) | mask(4) | mask(8) | mask(12)));
}

/// Index of the first block whose running sum reaches r.
size_t FindBlock(const Emitter& e, float r) {
  // Where the levels of the tree start; eight of sixteen entries each reach beyond any layer.
  const float* levels[8];
  int32_t count = 0;
  levels[count++] = e.sums.data();
  const float* next = e.tree.data();
  for (size_t size = e.sums.size(); size > kGroup;) {
    size = (size / kGroup + kGroup - 1) / kGroup * kGroup;
    levels[count++] = next;
    next += size;
  }
  size_t at = 0;
  while (count > 0) {
    --count;
    at = at * kGroup + CountBelow(levels[count] + at * kGroup, r);
  }
  return at;
}

/// Repeats the additions of one block and returns how many pixels stay below r.
template <class Sum>
int32_t CountPixelsBelow(const float* weights, int32_t count, Sum sum, float r) {
  int32_t below = 0;
  for (int32_t i = 0; i < count; ++i) {
    sum += static_cast<Sum>(weights[i]);
    below += static_cast<float>(sum) < r ? 1 : 0;
  }
  return below;
}

/// What a random number asks of an emitter: the share of the total, and the block in which it lies.
struct Quest {
  float r;
  int32_t row;
  int32_t column;  ///< -1 when `pixel` is known without looking into a block
  int64_t pixel;
};

Quest BeginPick(const Emitter& e, uint32_t key) {
  const float r = static_cast<float>(static_cast<int32_t>(key & 0xFFFFFFu)) * kUnitFactor * e.total;
  if (r <= 0.0f) return {r, 0, -1, e.firstPoint};
  if (!(r <= e.total)) return {r, 0, -1, e.lastPoint};
  const uint32_t block = static_cast<uint32_t>(FindBlock(e, r));
  const uint32_t blocksPerRow = static_cast<uint32_t>(e.blocksPerRow);
  return {r, static_cast<int32_t>(block / blocksPerRow),
          static_cast<int32_t>(block % blocksPerRow) * e.blockLength, 0};
}

const std::byte* PixelsOf(const Emitter& e, const Quest& q) {
  return Row(e.image, q.row) + static_cast<size_t>(q.column) * PixelBytes(e.image.depth);
}

int64_t FinishPick(const Emitter& e, const Quest& q) {
  if (q.column < 0) return q.pixel;
  // Pixels that don't emit repeat the sum before them, so they are never the first to reach r.
  const int32_t count = std::min(e.blockLength, e.image.width - q.column);
  float weights[256];
  PixelWeights(e.image.depth, PixelsOf(e, q), count, e.variation, e.variationBy, weights);
  const size_t block = static_cast<size_t>(q.row) * static_cast<size_t>(e.blocksPerRow) +
                       static_cast<size_t>(q.column / e.blockLength);
  const int32_t below = e.wideSums.empty()
                            ? CountPixelsBelow(weights, count, block > 0 ? e.sums[block - 1] : 0.0f, q.r)
                            : CountPixelsBelow(weights, count, block > 0 ? e.wideSums[block - 1] : 0.0, q.r);
  return int64_t{q.row} * e.image.width + q.column + below;
}

}  // namespace

int64_t PickPixel(const Emitter& emitter, uint32_t key) {
  return FinishPick(emitter, BeginPick(emitter, key));
}

void BeginPicks(const Emitter& emitter, const uint32_t* keys, PendingPicks* picks) {
  if (emitter.wideSums.empty()) return CurrentStages().beginPicks(emitter, keys, picks);
  picks->known = 0xFFFFu;
  for (int32_t l = 0; l < kLanes; ++l) {
    const int64_t pixel = PickPixel(emitter, keys[l]);
    picks->row[l] = static_cast<int32_t>(pixel / emitter.image.width);
    picks->column[l] = static_cast<int32_t>(pixel % emitter.image.width);
  }
}

void FinishPicks(const Emitter& emitter, PendingPicks* picks) {
  if (emitter.wideSums.empty()) CurrentStages().finishPicks(emitter, picks);
}

void PickPixels(const Emitter& emitter, const uint32_t* keys, int64_t* pixels) {
  PendingPicks picks;
  BeginPicks(emitter, keys, &picks);
  FinishPicks(emitter, &picks);
  for (int32_t l = 0; l < kLanes; ++l) {
    pixels[l] = int64_t{picks.row[l]} * emitter.image.width + picks.column[l];
  }
}

namespace {

EmittingPoint PointAt(const Emitter& e, int32_t row, int32_t column, float downsampleX, float downsampleY) {
  const std::byte* at = Row(e.image, row) + static_cast<size_t>(column) * PixelBytes(e.image.depth);
  const FloatPixel p = LoadPixel(e.image.depth, at);
  return {(static_cast<float>(column) + e.offsetX) / downsampleX,
          (static_cast<float>(row) + e.offsetY) / downsampleY,
          p.r,
          p.g,
          p.b,
          p.a};
}

}  // namespace

void PointsOfPicks(const Emitter& emitter, const PendingPicks& picks, float downsampleX, float downsampleY,
                   EmittingPoint* points) {
  for (int32_t l = 0; l < kLanes; ++l) {
    points[l] = PointAt(emitter, picks.row[l], picks.column[l], downsampleX, downsampleY);
  }
}

EmittingPoint PointOfPixel(const Emitter& e, int64_t pixel, float downsampleX, float downsampleY) {
  return PointAt(e, static_cast<int32_t>(pixel / e.image.width), static_cast<int32_t>(pixel % e.image.width),
                 downsampleX, downsampleY);
}

}  // namespace vantle
