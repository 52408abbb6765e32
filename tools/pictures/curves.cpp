#include "tools/pictures/curves.h"

namespace pictures {
namespace {

constexpr int kSegments = 24;

Point BezierAt(Point start, const Arc& arc, float t) {
  const float s = 1 - t;
  return start * (s * s * s) + arc.control1 * (3 * s * s * t) + arc.control2 * (3 * s * t * t) +
         arc.end * (t * t * t);
}

float SegmentDistance(Point a, Point b, Point point, float* t) {
  const Point ab = b - a, ap = point - a;
  *t = Clamp01((ap.x * ab.x + ap.y * ab.y) / (ab.x * ab.x + ab.y * ab.y + 1e-12f));
  return Length(ap - ab * *t);
}

}  // namespace

Polyline Flatten(Point start, const std::vector<Arc>& arcs) {
  Polyline line{start};
  for (const Arc& arc : arcs) {
    const Point from = line.back();
    for (int i = 1; i <= kSegments; ++i)
      line.push_back(BezierAt(from, arc, static_cast<float>(i) / kSegments));
  }
  return line;
}

Polyline Placed(const Polyline& line, float sx, float sy, Point offset) {
  Polyline placed;
  for (const Point point : line) placed.push_back({point.x * sx + offset.x, point.y * sy + offset.y});
  return placed;
}

float DistanceTo(const Polyline& line, Point point, float* along) {
  float best = 1e9f;
  for (size_t i = 0; i + 1 < line.size(); ++i) {
    float t = 0;
    const float distance = SegmentDistance(line[i], line[i + 1], point, &t);
    if (distance >= best) continue;
    best = distance;
    if (along) *along = (static_cast<float>(i) + t) / static_cast<float>(line.size() - 1);
  }
  return best;
}

float DepthIn(const Polyline& outline, Point point) {
  // Even-odd rule: a ray to the right crosses the outline an odd number of times from inside.
  bool inside = false;
  float best = 1e9f;
  for (size_t i = 0; i < outline.size(); ++i) {
    const Point a = outline[i], b = outline[(i + 1) % outline.size()];
    float t = 0;
    best = std::min(best, SegmentDistance(a, b, point, &t));
    if ((a.y > point.y) != (b.y > point.y) && point.x < a.x + (b.x - a.x) * (point.y - a.y) / (b.y - a.y))
      inside = !inside;
  }
  return inside ? best : -best;
}

}  // namespace pictures
