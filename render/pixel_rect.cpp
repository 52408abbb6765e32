#include "render/pixel_rect.h"

#include "base/numeric.h"

#include <algorithm>
#include <cmath>

namespace vantle {

namespace {

Edges LineEdges(const kernel::ShapeFrame& f, float halfWidth, float margin) {
  return {std::min(f.ax, f.bx) - halfWidth - f.cocRadius - margin,
          std::max(f.ax, f.bx) + halfWidth + f.cocRadius + margin,
          std::min(f.ay, f.by) - halfWidth - f.cocRadius - margin,
          std::max(f.ay, f.by) + halfWidth + f.cocRadius + margin};
}

Edges PlaneEdges(const kernel::ShapeFrame& f) {
  const float reachX = kernel::planeExtentX(f) + f.cocRadius + 1.0f;
  const float reachY = kernel::planeExtentY(f) + f.cocRadius + 1.0f;
  return {f.sx - reachX, f.sx + reachX, f.sy - reachY, f.sy + reachY};
}

/// Radius in the shape's plane beyond which the coverage is 0.
float PlaneRadius(const kernel::ShapeFrame& f, int32_t shape) {
  switch (shape) {
    case SHAPE_POINT:
      return 1.0f + 0.5f * f.blurW;
    case SHAPE_SOFT_CIRCLE:
      return f.r + f.cocRadius;
    default:
      return f.r + 0.5f * f.blurW;
  }
}

int32_t FirstPixel(float edge) {
  const int32_t pixel = TruncToInt(edge);
  return static_cast<float>(pixel) < edge && pixel < INT32_MAX ? pixel + 1 : pixel;
}

/// `rect` without what lies outside of the edges. The slack is far above what rounding can move an edge, and
/// far below a pixel for usual sizes.
PixelRect TightenToEdges(const PixelRect& rect, const Edges& e) {
  const float slackX = 0.02f + 1e-4f * (e.right - e.left);
  const float slackY = 0.02f + 1e-4f * (e.bottom - e.top);
  return {std::max(rect.x0, FirstPixel(e.left - slackX)), std::min(rect.x1, TruncToInt(e.right + slackX)),
          std::max(rect.y0, FirstPixel(e.top - slackY)), std::min(rect.y1, TruncToInt(e.bottom + slackY))};
}

PixelRect TightenToReach(const PixelRect& rect, const kernel::ShapeFrame& f, float reachX, float reachY) {
  return TightenToEdges(rect, {f.sx - reachX, f.sx + reachX, f.sy - reachY, f.sy + reachY});
}

/// A triangle's three tips, as far out as its blur moves them: at 60 degrees twice as far as a straight edge.
PixelRect TightenToTriangle(const PixelRect& rect, const kernel::ShapeFrame& f) {
  const float radius = f.r + f.blurW;
  if (!(radius < 1e18f)) return rect;
  const Vec2 tips[3] = {
      {0.0f, radius}, {-0.8662f * radius, -0.5f * radius}, {0.8662f * radius, -0.5f * radius}};
  Edges e{f.sx, f.sx, f.sy, f.sy};
  for (const Vec2& tip : tips) {
    const float x = f.sx + (tip.x * f.cy * f.cz - tip.y * f.cx * f.sz);
    const float y = f.sy + (tip.x * f.cy * f.sz + tip.y * f.cx * f.cz);
    e = {std::min(e.left, x), std::max(e.right, x), std::min(e.top, y), std::max(e.bottom, y)};
  }
  return TightenToEdges(rect, e);
}

}  // namespace

PixelRect CutToBand(const Edges& e, const RowBand& band) {
  if (std::isnan(e.left) || std::isnan(e.right) || std::isnan(e.top) || std::isnan(e.bottom)) {
    return {0, -1, 0, -1};
  }
  return {std::max(0, TruncToInt(e.left)), std::min(band.width - 1, TruncToInt(e.right)),
          std::max(band.first, TruncToInt(e.top)), std::min(band.last, TruncToInt(e.bottom))};
}

Edges ShapeEdges(const kernel::ShapeFrame& frame, int32_t shape) {
  if (shape == SHAPE_LINE) return LineEdges(frame, frame.halfLW, 1.0f);
  if (shape == SHAPE_ARROW) return LineEdges(frame, frame.halfLW * 2.5f, 2.0f);
  return PlaneEdges(frame);
}

Edges TrailEdges(const Vec2* points, int32_t count, float margin) {
  Edges e{points[0].x, points[0].x, points[0].y, points[0].y};
  for (int32_t i = 1; i < count; ++i) {
    e.left = std::min(e.left, points[i].x);
    e.right = std::max(e.right, points[i].x);
    e.top = std::min(e.top, points[i].y);
    e.bottom = std::max(e.bottom, points[i].y);
  }
  return {e.left - margin, e.right + margin, e.top - margin, e.bottom + margin};
}

PixelRect TightenToLine(const PixelRect& rect, const kernel::ShapeFrame& f, int32_t shape, bool roundCap) {
  if (!(f.r > 1.0f && f.halfLW >= 0.0f)) return rect;
  const float stepX = std::fabs(f.bx - f.ax);
  const float stepY = std::fabs(f.by - f.ay);
  const float length = std::sqrt(stepX * stepX + stepY * stepY);
  const float aside = (shape == SHAPE_ARROW ? f.halfLW * 2.5f : f.halfLW) + 0.5f * f.blurW;

  // Strokes wider than "far away" cover what lies beyond their ends, and lengths whose squares leave the
  // floats' range have no direction: nothing is told about either.
  if (!(aside < 1e8f && length > 0.0f && length < 1e18f)) return rect;

  const bool isRound = shape == SHAPE_LINE && roundCap;
  const float reachX = isRound ? aside : aside * stepY / length;
  const float reachY = isRound ? aside : aside * stepX / length;
  return TightenToEdges(rect, {std::min(f.ax, f.bx) - reachX, std::max(f.ax, f.bx) + reachX,
                               std::min(f.ay, f.by) - reachY, std::max(f.ay, f.by) + reachY});
}

PixelRect TightenToBox(const PixelRect& rect, const kernel::ShapeFrame& f, float halfX, float halfY) {
  if (!(halfX > 0.0f && halfY > 0.0f)) return rect;
  return TightenToReach(rect, f, std::fabs(f.cy * f.cz) * halfX + std::fabs(f.cx * f.sz) * halfY,
                        std::fabs(f.cy * f.sz) * halfX + std::fabs(f.cx * f.cz) * halfY);
}

PixelRect TightenToPlaneShape(const PixelRect& rect, const kernel::ShapeFrame& f, int32_t shape) {
  if (!(f.r > 0.0f)) return rect;
  if (shape == SHAPE_TRIANGLE) return TightenToTriangle(rect, f);
  const float radius = PlaneRadius(f, shape);
  const float xx = std::fabs(f.cy * f.cz);
  const float xy = std::fabs(f.cx * f.sz);
  const float yx = std::fabs(f.cy * f.sz);
  const float yy = std::fabs(f.cx * f.cz);

  // A square's box is turned with it; a disc's shadow is an ellipse.
  const bool box = shape == SHAPE_SQUARE;
  const float reachX = radius * (box ? xx + xy : std::sqrt(xx * xx + xy * xy));
  const float reachY = radius * (box ? yx + yy : std::sqrt(yx * yx + yy * yy));

  return TightenToReach(rect, f, reachX, reachY);
}

}  // namespace vantle
