// Curve lines and curved arrows. The distance to a trail is dear, so the trail's pieces are narrowed down,
// for groups of rows and then for small blocks, to those that can cover a pixel there.
#include "render/draw_particle.h"
#include "render/polyline.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace vantle {

namespace {

constexpr int32_t kTile = 8;
static_assert(kTile * kTile <= kBlockCoverages && kTile == kPolylineLanes);

/// What a curve's coverage depends on.
struct Curve {
  Polyline line;
  bool roundCap;
  float halfLW;
  float blurW;
  bool hasHead;
  Vec2 base, tip;
  float headLen, headHalfW;
};

/// The head stands on P0 and points away from P1; its base lies a tenth of its length back on the trail.
/// Where the two are one point the head has no direction, and is left out.
void PrepareHead(float size, Curve* c) {
  c->headLen = kernel::max(size * 0.15f, c->halfLW * 3.0f);
  c->headHalfW = c->halfLW * 2.5f;
  c->hasHead = c->line.count >= 2 && !(c->line.step[0].x == 0.0f && c->line.step[0].y == 0.0f);
  if (!c->hasHead) return;
  const Vec2 p0 = c->line.points[0];
  const Vec2 p1 = c->line.points[1];
  const float dx = p0.x - p1.x;
  const float dy = p0.y - p1.y;
  const float length = kernel::sqrt(dx * dx + dy * dy + 1e-12f);
  const Vec2 dir{dx / length, dy / length};
  c->tip = {p0.x + dir.x * c->headLen, p0.y + dir.y * c->headLen};
  c->base = {p0.x - dir.x * c->headLen * 0.1f, p0.y - dir.y * c->headLen * 0.1f};
}

/// Coverages of kTile pixels of a row: the larger of the body's clamp((halfLW - d) / blurW + 0.5, 0, 1) and
/// the head's clamp(0.5 - d / blurW, 0, 1).
void CoverTileRow(const Curve& c, const NearPieces& near, int32_t x, int32_t y, float* coverage) {
  float distances[kTile];
  PolylineDistances(c.line, near, c.roundCap, x, y, distances);
  for (int32_t i = 0; i < kTile; ++i) {
    coverage[i] = kernel::clamp((c.halfLW - distances[i]) / c.blurW + 0.5f, 0.0f, 1.0f);
  }
  if (!c.hasHead) return;
  const float py = static_cast<float>(y);
  for (int32_t i = 0; i < kTile; ++i) {
    const float px = static_cast<float>(x + i);
    const float d =
        kernel::sdArrow(px, py, c.base.x, c.base.y, c.tip.x, c.tip.y, c.halfLW, c.headLen, c.headHalfW);
    coverage[i] = kernel::max(kernel::clamp(0.5f - d / c.blurW, 0.0f, 1.0f), coverage[i]);
  }
}

void CoverTile(const Curve& c, const NearPieces& near, const PixelBlock& block, float* coverage) {
  for (int32_t row = 0; row < block.rows; ++row) {
    float tileRow[kTile];
    CoverTileRow(c, near, block.x, block.y + row, tileRow);
    for (int32_t i = 0; i < block.stride; ++i) {
      const bool inside = block.x + i >= block.first && block.x + i <= block.last;
      coverage[row * block.stride + i] = inside ? tileRow[i] : 0.0f;
    }
  }
}

/// Distance at which nothing is covered any more, with slack for rounding, which grows with the coordinates.
/// Infinite where that comes near the distance that stands for "nowhere".
float CurveReach(const Curve& c) {
  float largest = 0.0f;
  for (int32_t i = 0; i < c.line.count; ++i) {
    largest = std::max({largest, std::fabs(c.line.points[i].x), std::fabs(c.line.points[i].y)});
  }
  const float reach = c.halfLW + 0.5f * c.blurW;
  const float slack = 0.05f + 1e-3f * std::fabs(reach) + 1e-5f * largest;
  const float total = reach + slack;
  return total < 1e8f ? total : std::numeric_limits<float>::infinity();
}

/// Whether the head may cover a pixel of the rectangle. A head of next to no length is longer in its own
/// measure, by the 1e-12 that guards the division, than on the screen, and lies anywhere.
bool HeadNear(const Curve& c, float reach, const PixelRect& rect) {
  if (!c.hasHead) return false;
  const float headX = c.tip.x - c.base.x;
  const float headY = c.tip.y - c.base.y;
  if (headX * headX + headY * headY < 1e-8f) return true;
  const float around = reach + c.headHalfW + c.headLen * 1.2f;  // the base lies 1.1 lengths behind the tip
  const bool apart =
      c.tip.x + around < static_cast<float>(rect.x0) || c.tip.x - around > static_cast<float>(rect.x1) ||
      c.tip.y + around < static_cast<float>(rect.y0) || c.tip.y - around > static_cast<float>(rect.y1);
  return !apart;
}

void DrawRows(const RasterFrame& frame, const Curve& curve, float reach, const NearPieces& all,
              const BlendSource& source, const PixelRect& rows) {
  NearPieces inRows;
  PiecesNear(curve.line, rows, reach, all, &inRows);
  ForEachBlock(rows, frame, kTile, kTile, [&](const PixelBlock& block) {
    const PixelRect tile{block.x, block.x + kTile - 1, block.y, block.y + block.rows - 1};
    NearPieces near;
    PiecesNear(curve.line, tile, reach, inRows, &near);
    const bool needed =
        near.segmentCount + near.jointCount > 0 || HeadNear(curve, reach, tile) || !std::isfinite(reach);
    if (!needed) return;
    float coverage[kTile * (kTile + 1)] = {};
    CoverTile(curve, near, block, coverage);
    BlendBlockOver(frame, source, block, coverage);
  });
}

/// The particle's trail in the pool; no points where the pool has no such slot.
int32_t FindTrail(const CurvePointPool& pool, uint32_t slot, const Vec2** points) {
  const size_t start = static_cast<size_t>(slot) * kMaxTrailPoints;
  if (slot >= pool.counts.size() || start >= pool.points.size()) return 0;
  *points = pool.points.data() + start;
  const size_t held = std::min(pool.points.size() - start, static_cast<size_t>(kMaxTrailPoints));
  return std::min(static_cast<int32_t>(pool.counts[slot]), static_cast<int32_t>(held));
}

}  // namespace

void DrawCurve(const RasterFrame& frame, const ProjectedParticle& particle, const RowBand& band) {
  const Vec2* points = nullptr;
  const int32_t count = FindTrail(*frame.curvePoints, particle.curvePoints, &points);
  if (count <= 0 || !std::isfinite(particle.size)) return;
  const bool arrow = frame.shape == SHAPE_CURVED_ARROW;
  const float halfLW = particle.lineWidth * 0.5f;
  const float margin = arrow ? halfLW * 2.5f + particle.cocRadius + 2.0f : halfLW + particle.cocRadius + 1.0f;
  const PixelRect rect = CutToBand(TrailEdges(points, count, margin), band);
  if (IsEmpty(rect)) return;

  Curve curve{};
  PreparePolyline(points, count, &curve.line);
  curve.roundCap = frame.roundCap;
  curve.halfLW = halfLW;
  curve.blurW = kernel::max(1.0f, 2.0f * particle.cocRadius);
  if (arrow) PrepareHead(particle.size, &curve);
  const float reach = CurveReach(curve);
  NearPieces all;
  AllPieces(curve.line, &all);
  const BlendSource source{particle.r, particle.g, particle.b, particle.alpha};
  for (int32_t y = rect.y0; y <= rect.y1; y += kTile) {
    DrawRows(frame, curve, reach, all, source, {rect.x0, rect.x1, y, std::min(rect.y1, y + kTile - 1)});
  }
}

}  // namespace vantle
