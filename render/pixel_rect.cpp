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

/// Radius in the shape's plane beyond which the coverage is 0. A triangle's blurred tip, at 60 degrees,
/// reaches twice as far as a straight edge's blur.
float PlaneRadius(const kernel::ShapeFrame& f, int32_t shape) {
  switch (shape) {
    case SHAPE_POINT:
      return 1.0f + 0.5f * f.blurW;
    case SHAPE_SOFT_CIRCLE:
      return f.r + f.cocRadius;
    case SHAPE_TRIANGLE:
      return f.r + f.blurW;
    default:
      return f.r + 0.5f * f.blurW;
  }
}

int32_t FirstPixel(float edge) {
  const int32_t pixel = TruncToInt(edge);
  return static_cast<float>(pixel) < edge && pixel < INT32_MAX ? pixel + 1 : pixel;
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

PixelRect TightenToPlaneShape(const PixelRect& rect, const kernel::ShapeFrame& f, int32_t shape) {
  if (!(f.r > 0.0f)) return rect;
  const float radius = PlaneRadius(f, shape);
  const float xx = std::fabs(f.cy * f.cz);
  const float xy = std::fabs(f.cx * f.sz);
  const float yx = std::fabs(f.cy * f.sz);
  const float yy = std::fabs(f.cx * f.cz);

  // A square's box is turned with it; a disc's shadow is an ellipse.
  const bool box = shape == SHAPE_SQUARE;
  const float reachX = radius * (box ? xx + xy : std::sqrt(xx * xx + xy * xy));
  const float reachY = radius * (box ? yx + yy : std::sqrt(yx * yx + yy * yy));

  // The slack is far above what rounding can move an edge, and far below a pixel for usual sizes.
  const float slackX = 0.02f + 1e-4f * reachX;
  const float slackY = 0.02f + 1e-4f * reachY;
  return {std::max(rect.x0, FirstPixel(f.sx - reachX - slackX)),
          std::min(rect.x1, TruncToInt(f.sx + reachX + slackX)),
          std::max(rect.y0, FirstPixel(f.sy - reachY - slackY)),
          std::min(rect.y1, TruncToInt(f.sy + reachY + slackY))};
}

}  // namespace vantle
