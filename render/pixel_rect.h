// Which pixels a particle can touch.
#pragma once

#include "particles/projected_particle.h"
#include "render/coverage.h"

#include <cmath>
#include <cstdint>

namespace vantle {

/// Edges of a particle's box in pixels, not yet cut to a picture. May hold anything, NaN included.
struct Edges {
  float left, right, top, bottom;
};

/// Columns x0..x1 and rows y0..y1, both ends included; empty where an end lies before its beginning.
struct PixelRect {
  int32_t x0, x1, y0, y1;
};

inline bool IsEmpty(const PixelRect& rect) {
  return rect.x0 > rect.x1 || rect.y0 > rect.y1;
}

/// The rows first..last of a picture `width` pixels wide.
struct RowBand {
  int32_t width;
  int32_t first, last;
};

/// Edges truncated toward zero, saturating, and cut to the band. An edge that is NaN gives an empty
/// rectangle.
PixelRect CutToBand(const Edges& edges, const RowBand& band);

/// Box of a line, an arrow or a plane shape. It decides what may be drawn.
Edges ShapeEdges(const kernel::ShapeFrame& frame, int32_t shape);

/// Box of a trail, widened on every side. Needs at least one point.
Edges TrailEdges(const Vec2* points, int32_t count, float margin);

/// `rect` without the outer pixels that a plane shape's coverage cannot reach.
PixelRect TightenToPlaneShape(const PixelRect& rect, const kernel::ShapeFrame& frame, int32_t shape);

/// The same for a line or an arrow.
PixelRect TightenToLine(const PixelRect& rect, const kernel::ShapeFrame& frame, int32_t shape, bool roundCap);

/// `rect` without the pixels that lie outside of a box of half-widths `halfX` and `halfY` in the shape's
/// plane; unchanged unless both are above 0.
PixelRect TightenToBox(const PixelRect& rect, const kernel::ShapeFrame& frame, float halfX, float halfY);

/// Rows above and below sy that a particle of any shape but the two curved ones may reach: a cheap upper
/// bound, for skipping. NaN when an input is.
inline float VerticalReach(const ProjectedParticle& p) {
  return 1.5f * std::fabs(p.size) + 1.5f * std::fabs(p.lineWidth) + 2.1f * std::fabs(p.cocRadius) + 4.0f;
}

}  // namespace vantle
