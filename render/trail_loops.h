// The loops of curve lines and curved arrows, generic over the lanes. Included by one file per instruction
// set, which is compiled for it.
//
// The distance to a trail is dear. For each small block of pixels the lanes first run across the trail's
// pieces and tell, by their distances from the block's middle, which of them can matter to any of its pixels;
// then they run across the pixels, with those pieces only. A piece is left out where its distance from every
// pixel of the block is, by more than rounding can move it, beyond the reach of the stroke or above the
// distance of another piece; the coverages come out the same, bit for bit.
#pragma once

#include "render/block_loops.h"
#include "render/coverage.h"
#include "render/lane_pixels.h"
#include "render/row_kernels.h"
#include "render/trail.h"

#include <bit>
#include <limits>

namespace vantle {

/// Groups of lanes that are worked on together, so that a piece is fetched once for all of them.
inline constexpr int32_t kTrailGroup = 4;

/// The trail's pieces that matter, a bit each: segments, and the discs that fill joint k with flat ends.
struct NearPieces {
  uint64_t segments;
  uint64_t joints;
  bool saturated;  ///< every pixel is inside the stroke
};

/// Bits first..last.
template <class L>
inline uint64_t BitRange(int32_t first, int32_t last) {
  return last < first ? 0 : (~uint64_t{0} >> (63 - last + first)) << first;
}

/// Fills in everything that follows from the points.
template <class L>
void PrepareTrail(const Vec2* points, int32_t count, Trail* trail) {
  for (int32_t i = 0; i < count; ++i) {
    trail->x[i] = points[i].x;
    trail->y[i] = points[i].y;
  }
  const int32_t end = (count + L::kCount - 1) / L::kCount * L::kCount + 1;
  for (int32_t i = count; i < end; ++i) {
    trail->x[i] = points[count - 1].x;
    trail->y[i] = points[count - 1].y;
  }

  // The 1e-12 that guards the divisions makes a segment of next to no length longer than it is: the pixels
  // beside it, in its own measure, then lie anywhere, and at no distance.
  L largest = 0.0f;
  L left = points[0].x, right = points[0].x;
  L top = points[0].y, bottom = points[0].y;
  uint64_t spreading = 0;
  for (int32_t i = 0; i < count; i += L::kCount) {
    const L x = LoadLanes<L>(trail->x + i);
    const L y = LoadLanes<L>(trail->y + i);
    const L stepX = LoadLanes<L>(trail->x + i + 1) - x;
    const L stepY = LoadLanes<L>(trail->y + i + 1) - y;
    const L lengthSquared = stepX * stepX + stepY * stepY + 1e-12f;
    StoreLanes(stepX, trail->stepX + i);
    StoreLanes(stepY, trail->stepY + i);
    StoreLanes(lengthSquared, trail->lengthSquared + i);
    StoreLanes(sqrt(lengthSquared), trail->length + i);
    left = min(left, x);
    right = max(right, x);
    top = min(top, y);
    bottom = max(bottom, y);
    largest = max(max(largest, abs(x)), abs(y));
    const uint64_t moves = BitsOf(either(abs(stepX) > 0.0f, abs(stepY) > 0.0f));
    const uint64_t isLong = BitsOf(lengthSquared > 1e-6f);
    if (i < 64) spreading |= (moves & ~isLong) << i;
  }
  trail->count = count;
  trail->left = Least(left);
  trail->right = Greatest(right);
  trail->top = Least(top);
  trail->bottom = Greatest(bottom);
  trail->largest = Greatest(largest);
  trail->spreading = spreading & BitRange<L>(0, count - 2);
}

/// Distance of (x, y) from segments i, i + 1, ...
template <class L>
inline L DistanceFromSegments(const Trail& trail, int32_t i, float x, float y) {
  const L ax = LoadLanes<L>(trail.x + i);
  const L ay = LoadLanes<L>(trail.y + i);
  const L stepX = LoadLanes<L>(trail.stepX + i);
  const L stepY = LoadLanes<L>(trail.stepY + i);
  const L along = ((x - ax) * stepX + (y - ay) * stepY) / LoadLanes<L>(trail.lengthSquared + i);
  const L t = clamp(along, 0.0f, 1.0f);
  const L dx = x - (ax + t * stepX);
  const L dy = y - (ay + t * stepY);
  return sqrt(dx * dx + dy * dy);
}

/// With round ends the nearest segment decides, so that those are left out, too, that lie farther from the
/// block than that one does by more than the block is wide.
template <class L>
NearPieces FindNearSegments(const Trail& trail, float x, float y) {
  const int32_t segments = trail.count - 1;
  float distances[kTrailSlots];
  L least = std::numeric_limits<float>::infinity();
  for (int32_t i = 0; i < segments; i += L::kCount) {
    const L distance = DistanceFromSegments<L>(trail, i, x, y);
    StoreLanes(distance, distances + i);
    least = min(least, distance);
  }
  const float nearest = Least(least);
  const float inStroke = trail.reach + kTileRadius;
  const float decisive = nearest + 2.0f * kTileRadius + trail.slack;
  const bool bounded = inStroke < std::numeric_limits<float>::infinity();
  const float limit = bounded && decisive < inStroke ? decisive : inStroke;
  NearPieces near{0, 0, false};
  for (int32_t i = 0; i < segments; i += L::kCount) {
    near.segments |= uint64_t{BitsOf(LoadLanes<L>(distances + i) <= limit)} << i;
  }
  if (!bounded) near.segments = ~uint64_t{0};
  near.segments &= BitRange<L>(0, segments - 1);
  near.saturated = bounded && nearest + kTileRadius + trail.slack <= trail.halfLW - 0.5f * trail.blurW;
  return near;
}

template <class L>
NearPieces FindNearPieces(const Trail& trail, float x, float y) {
  const float limit = trail.reach + kTileRadius;
  if (!(limit < std::numeric_limits<float>::infinity())) {
    return {BitRange<L>(0, trail.count - 2), BitRange<L>(1, trail.count - 2), false};
  }
  NearPieces near{0, 0, false};
  for (int32_t i = 0; i + 1 < trail.count; i += L::kCount) {
    const L dx = x - LoadLanes<L>(trail.x + i);
    const L dy = y - LoadLanes<L>(trail.y + i);
    near.segments |= uint64_t{BitsOf(DistanceFromSegments<L>(trail, i, x, y) <= limit)} << i;
    near.joints |= uint64_t{BitsOf(sqrt(dx * dx + dy * dy) <= limit)} << i;
  }
  near.segments = (near.segments | trail.spreading) & BitRange<L>(0, trail.count - 2);
  near.joints &= BitRange<L>(1, trail.count - 2);
  return near;
}

/// A group of lanes, one below the other.
template <class L>
struct TrailPixels {
  L px;
  L py[kTrailGroup];
};

/// t = (AP.AB) / (|AB|^2 + 1e-12) clamped to 0..1; the squared distance to A + t AB. The root is taken once,
/// of the minimum: it is monotone, so the result is the same.
template <class L>
inline void LowerToSegment(const Trail& trail, int32_t i, const TrailPixels<L>& p, L* squared) {
  const L ax = trail.x[i], ay = trail.y[i];
  const L stepX = trail.stepX[i], stepY = trail.stepY[i];
  const L lengthSquared = trail.lengthSquared[i];
  const L apx = p.px - ax;
  const L alongX = apx * stepX;
  for (int32_t n = 0; n < kTrailGroup; ++n) {
    const L t = clamp((alongX + (p.py[n] - ay) * stepY) / lengthSquared, 0.0f, 1.0f);
    const L dx = p.px - (ax + t * stepX);
    const L dy = p.py[n] - (ay + t * stepY);
    squared[n] = min(squared[n], dx * dx + dy * dy);
  }
}

/// |AP x AB| / len where 0 <= AP.AB / len <= len. A segment without length has no strip: the guarded formula
/// alone would call every pixel near it.
template <class L>
inline void LowerToStrip(const Trail& trail, int32_t i, const TrailPixels<L>& p, L* distances) {
  if (trail.stepX[i] == 0.0f && trail.stepY[i] == 0.0f) return;
  const L ay = trail.y[i];
  const L stepX = trail.stepX[i], stepY = trail.stepY[i];
  const L length = trail.length[i];
  const L apx = p.px - trail.x[i];
  const L alongX = apx * stepX;
  const L acrossX = apx * stepY;
  for (int32_t n = 0; n < kTrailGroup; ++n) {
    const L apy = p.py[n] - ay;
    const L along = (alongX + apy * stepY) / length;
    const L across = abs(acrossX - apy * stepX) / length;
    const auto beside = both(along >= 0.0f, along <= length);
    distances[n] = select(beside, min(distances[n], across), distances[n]);
  }
}

/// (p - P).AB / len, the place beyond P in the direction of segment i.
template <class L>
inline L PlaceAlong(const Trail& trail, int32_t point, int32_t i, L px, L py) {
  return ((px - trail.x[point]) * trail.stepX[i] + (py - trail.y[point]) * trail.stepY[i]) / trail.length[i];
}

/// |p - Pk| squared, but not before the first point, for the joint next to it, nor beyond the last.
template <class L>
inline void LowerToJoint(const Trail& trail, int32_t k, const TrailPixels<L>& p, L* squared) {
  const L nowhere = std::numeric_limits<float>::infinity();
  const int32_t end = trail.count - 1;
  const L x = trail.x[k], y = trail.y[k];
  const L dx = p.px - x;
  const L dx2 = dx * dx;
  const bool nextToFirst = k == 1;
  const bool nextToLast = k == end - 1;
  for (int32_t n = 0; n < kTrailGroup; ++n) {
    const L dy = p.py[n] - y;
    L d = dx2 + dy * dy;
    if (nextToFirst) d = select(PlaceAlong<L>(trail, 0, 0, p.px, p.py[n]) >= 0.0f, d, nowhere);
    if (nextToLast) d = select(PlaceAlong<L>(trail, end, end - 1, p.px, p.py[n]) > 0.0f, nowhere, d);
    squared[n] = min(squared[n], d);
  }
}

/// With round ends the minimum over the segments of the distance to their closest point.
template <class L>
void RoundDistances(const Trail& trail, const NearPieces& near, const TrailPixels<L>& p, L* distances) {
  L squared[kTrailGroup];
  for (int32_t n = 0; n < kTrailGroup; ++n) squared[n] = std::numeric_limits<float>::infinity();
  for (uint64_t bits = near.segments; bits != 0; bits &= bits - 1) {
    LowerToSegment<L>(trail, std::countr_zero(bits), p, squared);
  }
  for (int32_t n = 0; n < kTrailGroup; ++n) distances[n] = sqrt(squared[n]);
}

/// With flat ends a segment counts beside itself only, and discs fill the joints between segments; 1e9 where
/// there is neither.
template <class L>
void FlatDistances(const Trail& trail, const NearPieces& near, const TrailPixels<L>& p, L* distances) {
  L squared[kTrailGroup];
  for (int32_t n = 0; n < kTrailGroup; ++n) {
    distances[n] = 1e9f;
    squared[n] = std::numeric_limits<float>::infinity();
  }
  for (uint64_t bits = near.segments; bits != 0; bits &= bits - 1) {
    LowerToStrip<L>(trail, std::countr_zero(bits), p, distances);
  }
  if (near.joints == 0) return;
  for (uint64_t bits = near.joints; bits != 0; bits &= bits - 1) {
    LowerToJoint<L>(trail, std::countr_zero(bits), p, squared);
  }
  for (int32_t n = 0; n < kTrailGroup; ++n) distances[n] = min(distances[n], sqrt(squared[n]));
}

/// The larger of the body's clamp((halfLW - d) / blurW + 0.5, 0, 1) and the head's clamp(0.5 - d / blurW, 0,
/// 1).
template <class L>
inline L TrailCoverage(const Trail& trail, bool head, L distance, L px, L py) {
  const L body = clamp((trail.halfLW - distance) / trail.blurW + 0.5f, 0.0f, 1.0f);
  if (!head) return body;
  const L d = kernel::sdArrow(px, py, trail.base.x, trail.base.y, trail.tip.x, trail.tip.y, trail.halfLW,
                              trail.headLen, trail.headHalfW);
  return max(clamp(0.5f - d / trail.blurW, 0.0f, 1.0f), body);
}

template <class L, bool kRoundCap>
void CoverTrailPixels(const Trail& trail, const NearPieces& near, bool head, const PixelBlock& block,
                      float* coverage) {
  for (int32_t row = 0; row < block.rows; row += kTrailGroup * L::kRows) {
    for (int32_t x = 0; x < block.stride; x += L::kColumns) {
      TrailPixels<L> p;
      p.px = L::Columns(block.x + x);
      for (int32_t n = 0; n < kTrailGroup; ++n) p.py[n] = L::Rows(block.y + row + n * L::kRows);
      L distances[kTrailGroup];
      if (kRoundCap) {
        RoundDistances<L>(trail, near, p, distances);
      } else {
        FlatDistances<L>(trail, near, p, distances);
      }
      for (int32_t n = 0; n < kTrailGroup; ++n) {
        const L c = TrailCoverage<L>(trail, head, distances[n], p.px, p.py[n]);
        c.StoreCoverage(coverage + (row + n * L::kRows) * block.stride + x, block.stride);
      }
    }
  }
}

/// A CoverTrailFn.
template <class L, bool kRoundCap>
bool CoverTrail(const Trail& trail, bool head, const PixelBlock& block, float* coverage) {
  const float x = static_cast<float>(block.x) + kTileMiddle;
  const float y = static_cast<float>(block.y) + kTileMiddle;
  const bool isRound = kRoundCap && trail.count >= 2;
  const NearPieces near = isRound ? FindNearSegments<L>(trail, x, y) : FindNearPieces<L>(trail, x, y);
  const bool bounded = trail.reach < std::numeric_limits<float>::infinity();
  if ((near.segments | near.joints) == 0 && !head && bounded) return false;
  if (near.saturated) {
    // With one row more than there are: rows are blended in pairs.
    for (int32_t i = 0; i < (block.rows + 1) * block.stride; ++i) coverage[i] = 1.0f;
  } else if (isRound) {
    CoverTrailPixels<L, true>(trail, near, head, block, coverage);
  } else {
    CoverTrailPixels<L, false>(trail, near, head, block, coverage);
  }
  ClearOutside<L>(block, coverage);
  return true;
}

}  // namespace vantle
