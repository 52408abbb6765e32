// Picks on lanes, for layers summed in float. Included after a lanes_*.h.
//
// All searches go down the tree together, a level at a time, so that the wait for one's node is filled with
// the others' comparisons; and the blocks' additions are repeated across picks, not along them.
#pragma once

#include "particles/emission.h"
#include "particles/emitter_pick.h"
#include "particles/streams_lanes.h"
#include "particles/weights_lanes.h"

#include <cstddef>
#include <cstdint>

namespace vantle {
namespace {

/// The starts of the tree's levels from the sums up; returns their count. Eight levels of sixteen entries
/// each reach beyond any layer.
inline int32_t FindLevels(const Emitter& e, const float** levels) {
  int32_t count = 0;
  levels[count++] = e.sums.data();
  const float* next = e.tree.data();
  for (size_t size = e.sums.size(); size > kSumGroup;) {
    size = (size / kSumGroup + kSumGroup - 1) / kSumGroup * kSumGroup;
    levels[count++] = next;
    next += size;
  }
  return count;
}

/// The first block of each lane whose running sum reaches its r.
inline void FindBlocks(const Emitter& e, const float* r, uint32_t* blocks) {
  const float* levels[8];
  int32_t count = FindLevels(e, levels);
  for (int32_t l = 0; l < kLanes; ++l) blocks[l] = 0;
  while (count > 0) {
    const float* level = levels[--count];
    for (int32_t l = 0; l < kLanes; ++l) {
      blocks[l] = blocks[l] * kSumGroup + CountBelow(level + size_t{blocks[l]} * kSumGroup, r[l]);
    }
  }
}

inline const std::byte* PixelAt(const Emitter& e, int32_t row, int32_t column, int32_t pixelBytes) {
  return e.image.data + e.image.rowBytes * row + int64_t{column} * pixelBytes;
}

inline int32_t BytesOfPixel(PixelDepth depth) {
  return depth == PixelDepth::k8 ? 4 : depth == PixelDepth::k16 ? 8 : 16;
}

/// As the plain pick: nothing of the total gives the first point, a total that is not finite may give the
/// last.
inline void SetShares(const Emitter& e, const uint32_t* keys, PendingPicks* picks) {
  picks->known = 0;
  for (int32_t l = 0; l < kLanes; l += kWidth) {
    const Floats r = ToFloats(LoadInts(keys + l) & SplatInts(0xFFFFFFu)) * kUnitFactor * e.total;
    const Mask plain = AndNot(r <= 0.0f, r <= e.total);
    Store(picks->r + l, Select(plain, r, 0.0f));
    picks->known |= (BitsOf(plain) ^ kAllBits) << l;
    if (BitsOf(plain) == kAllBits) continue;
    const uint32_t first = BitsOf(r <= 0.0f);
    for (int32_t i = 0; i < kWidth; ++i) {
      const int64_t pixel = (first >> i & 1u) != 0 ? e.firstPoint : e.lastPoint;
      picks->row[l + i] = static_cast<int32_t>(pixel / e.image.width);
      picks->column[l + i] = static_cast<int32_t>(pixel % e.image.width);
    }
  }
}

inline void BeginPickLanes(const Emitter& e, const uint32_t* keys, PendingPicks* picks) {
  SetShares(e, keys, picks);
  FindBlocks(e, picks->r, picks->block);
  const uint32_t blocksPerRow = static_cast<uint32_t>(e.blocksPerRow);
  const int32_t pixelBytes = BytesOfPixel(e.image.depth);
  for (int32_t l = 0; l < kLanes; ++l) {
    if ((picks->known >> l & 1u) != 0) continue;
    picks->row[l] = static_cast<int32_t>(picks->block[l] / blocksPerRow);
    picks->column[l] = static_cast<int32_t>(picks->block[l] % blocksPerRow) * kSumGroup;
    const char* at = reinterpret_cast<const char*>(PixelAt(e, picks->row[l], picks->column[l], pixelBytes));
    for (int32_t line = 0; line < pixelBytes; line += 4) _mm_prefetch(at + line * 16, _MM_HINT_T0);
    _mm_prefetch(at + pixelBytes * 16 - 1, _MM_HINT_T0);
  }
}

/// The weights of the lanes' blocks, filled up with zeros.
template <class Format>
inline void WeighBlocks(const Emitter& e, const PendingPicks& picks, float (*weights)[kSumGroup]) {
  const WeightRule rule = MakeWeightRule(e.variation, e.variationBy);
  for (int32_t l = 0; l < kLanes; ++l) {
    const bool known = (picks.known >> l & 1u) != 0;
    const int32_t column = picks.column[l], left = known ? 0 : e.image.width - column;
    const std::byte* at = PixelAt(e, picks.row[l], column, kFormatBytes<Format>);
    if (left >= kSumGroup) {
      WeighFormat<Format>(at, kSumGroup, rule, weights[l]);
      continue;
    }
    for (int32_t i = 0; i < kSumGroup; i += kWidth) Store(weights[l] + i, 0.0f);
    WeighFormat<Format>(at, left, rule, weights[l]);
  }
}

/// Exchanges lanes and pixels.
inline void TransposeBlocks(const float (*weights)[kSumGroup], float (*turned)[kLanes]) {
  for (int32_t l = 0; l < kLanes; l += 4) {
    for (int32_t i = 0; i < kSumGroup; i += 4) {
      __m128 rows[4];
      Transpose4(weights[l] + i, weights[l + 1] + i, weights[l + 2] + i, weights[l + 3] + i, rows);
      for (int32_t k = 0; k < 4; ++k) _mm_storeu_ps(turned[i + k] + l, rows[k]);
    }
  }
}

/// How many pixels of the block stay below r. Pixels that don't emit repeat the sum before them, so they are
/// never the first to reach it.
inline void CountPixelsBelow(const Emitter& e, const PendingPicks& picks, const float (*turned)[kLanes],
                             float* counts) {
  alignas(64) float before[kLanes];
  for (int32_t l = 0; l < kLanes; ++l) before[l] = picks.block[l] > 0 ? e.sums[picks.block[l] - 1] : 0.0f;
  for (int32_t l = 0; l < kLanes; l += kWidth) {
    const Floats r = Load(picks.r + l);
    Floats sum = Load(before + l), below = 0.0f;
    for (int32_t i = 0; i < kSumGroup; ++i) {
      sum = sum + Load(turned[i] + l);
      below = below + Select(sum < r, 1.0f, 0.0f);
    }
    Store(counts + l, below);
  }
}

inline void FinishPickLanes(const Emitter& e, PendingPicks* picks) {
  alignas(64) float weights[kLanes][kSumGroup];
  alignas(64) float turned[kSumGroup][kLanes];
  switch (e.image.depth) {
    case PixelDepth::k8:
      WeighBlocks<Format8>(e, *picks, weights);
      break;
    case PixelDepth::k16:
      WeighBlocks<Format16>(e, *picks, weights);
      break;
    default:
      WeighBlocks<Format32>(e, *picks, weights);
  }
  TransposeBlocks(weights, turned);
  alignas(64) float counts[kLanes];
  CountPixelsBelow(e, *picks, turned, counts);
  for (int32_t l = 0; l < kLanes; ++l) {
    if ((picks->known >> l & 1u) == 0) picks->column[l] += static_cast<int32_t>(counts[l]);
  }
}

}  // namespace
}  // namespace vantle
