// Curve lines and curved arrows, in small blocks of pixels; trail_loops.h tells how.
#include "base/numeric.h"
#include "render/draw_particle.h"
#include "render/trail.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <xmmintrin.h>

namespace vantle {

namespace {

static_assert(kTrailTile * kTrailTile <= kBlockCoverages);

/// The head stands on P0 and points away from P1; its base lies a tenth of its length back on the trail.
/// Where the two are one point the head has no direction, and is left out.
void PrepareHead(float size, Trail* t) {
  t->headLen = kernel::max(size * 0.15f, t->halfLW * 3.0f);
  t->headHalfW = t->halfLW * 2.5f;
  t->hasHead = t->count >= 2 && !(t->stepX[0] == 0.0f && t->stepY[0] == 0.0f);
  if (!t->hasHead) return;
  const float dx = t->x[0] - t->x[1];
  const float dy = t->y[0] - t->y[1];
  const float length = kernel::sqrt(dx * dx + dy * dy + 1e-12f);
  const Vec2 dir{dx / length, dy / length};
  t->tip = {t->x[0] + dir.x * t->headLen, t->y[0] + dir.y * t->headLen};
  t->base = {t->x[0] - dir.x * t->headLen * 0.1f, t->y[0] - dir.y * t->headLen * 0.1f};
}

/// Distance at which nothing is covered any more, with slack for rounding, which grows with the coordinates.
/// Infinite where that comes near the distance that stands for "nowhere".
void SetReach(Trail* t) {
  const float reach = t->halfLW + 0.5f * t->blurW;
  const float largest = t->hasHead ? t->largest + std::fabs(t->headLen) : t->largest;
  t->slack = 0.05f + 1e-3f * std::fabs(reach) + 1e-5f * largest;
  const float total = reach + t->slack;
  t->reach = total < 1e8f ? total : std::numeric_limits<float>::infinity();
}

/// Whether the head may cover a pixel of the block that begins at (x, y). A head of next to no length is
/// longer in its own measure, by the 1e-12 that guards the division, than on the screen, and lies anywhere.
bool IsHeadNear(const Trail& t, int32_t x, int32_t y) {
  if (!t.hasHead) return false;
  const float headX = t.tip.x - t.base.x;
  const float headY = t.tip.y - t.base.y;
  if (headX * headX + headY * headY < 1e-8f) return true;
  const float d = kernel::sdSegment(static_cast<float>(x) + kTileMiddle, static_cast<float>(y) + kTileMiddle,
                                    t.base.x, t.base.y, t.tip.x, t.tip.y);
  return !(d > t.reach + std::fabs(t.headHalfW) + std::fabs(t.halfLW) + kTileRadius);
}

/// The particle's trail in the pool; no points where the pool has no such slot.
int32_t FindTrail(const CurvePointPool& pool, uint32_t slot, const Vec2** points) {
  const size_t start = static_cast<size_t>(slot) * kMaxTrailPoints;
  if (slot >= pool.counts.size() || start >= pool.points.size()) return 0;
  *points = pool.points.data() + start;
  const size_t held = std::min(pool.points.size() - start, static_cast<size_t>(kMaxTrailPoints));
  return std::min(static_cast<int32_t>(pool.counts[slot]), static_cast<int32_t>(held));
}

/// How far beyond its points a trail may be drawn.
float MarginOf(const RasterFrame& frame, const ProjectedParticle& p) {
  const float halfLW = p.lineWidth * 0.5f;
  return frame.shape == SHAPE_CURVED_ARROW ? halfLW * 2.5f + p.cocRadius + 2.0f : halfLW + p.cocRadius + 1.0f;
}

}  // namespace

RowSpan RowsOfCurve(const RasterFrame& frame, const ProjectedParticle& particle) {
  const Vec2* points = nullptr;
  const int32_t count = FindTrail(*frame.curvePoints, particle.curvePoints, &points);
  if (count <= 0) return {0, -1};
  float top = points[0].y;
  float bottom = points[0].y;
  for (int32_t i = 1; i < count; ++i) {
    top = std::min(top, points[i].y);
    bottom = std::max(bottom, points[i].y);
  }
  const float margin = MarginOf(frame, particle);
  return {TruncToInt(top - margin), TruncToInt(bottom + margin)};
}

void PrefetchCurve(const RasterFrame& frame, const ProjectedParticle& particle) {
  const size_t start = static_cast<size_t>(particle.curvePoints) * kMaxTrailPoints;
  if (start >= frame.curvePoints->points.size()) return;
  const Vec2* points = frame.curvePoints->points.data() + start;
  _mm_prefetch(reinterpret_cast<const char*>(points), _MM_HINT_T0);
  _mm_prefetch(reinterpret_cast<const char*>(points + 8), _MM_HINT_T0);
}

void DrawCurve(const RasterFrame& frame, const ProjectedParticle& particle, const RowBand& band) {
  const Vec2* points = nullptr;
  const int32_t count = FindTrail(*frame.curvePoints, particle.curvePoints, &points);
  if (count <= 0 || !std::isfinite(particle.size)) return;
  Trail trail;
  frame.kernels.prepareTrail(points, count, &trail);
  const float margin = MarginOf(frame, particle);
  const PixelRect rect =
      CutToBand({trail.left - margin, trail.right + margin, trail.top - margin, trail.bottom + margin}, band);
  if (IsEmpty(rect)) return;

  trail.roundCap = frame.roundCap;
  trail.halfLW = particle.lineWidth * 0.5f;
  trail.blurW = kernel::max(1.0f, 2.0f * particle.cocRadius);
  trail.hasHead = false;
  if (frame.shape == SHAPE_CURVED_ARROW) PrepareHead(particle.size, &trail);
  SetReach(&trail);
  const BlendSource source{particle.r, particle.g, particle.b, particle.alpha};
  ForEachBlock(rect, frame, kTrailTile, kTrailTile, [&](const PixelBlock& block) {
    float coverage[kTrailTile * (kTrailTile + 1)];
    const bool head = IsHeadNear(trail, block.x, block.y);
    if (frame.kernels.coverTrail(trail, head, block, coverage)) {
      BlendBlockOver(frame, source, block, coverage);
    }
  });
}

}  // namespace vantle
