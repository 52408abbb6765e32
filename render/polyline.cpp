#include "render/polyline.h"

#include "render/kernel_math.h"

#include <algorithm>
#include <limits>

namespace vantle {

namespace {

/// t = (AP.AB) / (|AB|^2 + 1e-12) clamped to 0..1; the squared distance to A + t AB. The root is taken once,
/// of the minimum: it is monotone, so the result is the same.
void LowerToSegment(const Polyline& line, int32_t i, const float* px, float py, float* squared) {
  const Vec2 a = line.points[i];
  const Vec2 ab = line.step[i];
  for (int32_t lane = 0; lane < kPolylineLanes; ++lane) {
    const float apx = px[lane] - a.x;
    const float apy = py - a.y;
    const float t = kernel::clamp((apx * ab.x + apy * ab.y) / line.lengthSquared[i], 0.0f, 1.0f);
    const float dx = px[lane] - (a.x + t * ab.x);
    const float dy = py - (a.y + t * ab.y);
    squared[lane] = kernel::min(squared[lane], dx * dx + dy * dy);
  }
}

/// |AP x AB| / len where 0 <= AP.AB / len <= len. A segment without length has no strip: the guarded formula
/// alone would call every pixel near it.
void LowerToStrip(const Polyline& line, int32_t i, const float* px, float py, float* distances) {
  const Vec2 a = line.points[i];
  const Vec2 ab = line.step[i];
  if (ab.x == 0.0f && ab.y == 0.0f) return;
  const float length = line.length[i];
  for (int32_t lane = 0; lane < kPolylineLanes; ++lane) {
    const float apx = px[lane] - a.x;
    const float apy = py - a.y;
    const float along = (apx * ab.x + apy * ab.y) / length;
    const float across = kernel::abs(apx * ab.y - apy * ab.x) / length;
    const bool beside = along >= 0.0f && along <= length;
    distances[lane] = beside ? kernel::min(distances[lane], across) : distances[lane];
  }
}

/// |p - Pk|, but not before the first point, for the joint next to it, nor beyond the last.
void LowerToJoint(const Polyline& line, int32_t k, const float* px, float py, float* distances) {
  const Vec2 joint = line.points[k];
  const Vec2 first = line.points[0];
  const Vec2 firstStep = line.step[0];
  const float firstLength = line.length[0];
  const int32_t end = line.count - 1;
  const Vec2 last = line.points[end];
  const Vec2 lastStep = line.step[end - 1];
  const float lastLength = line.length[end - 1];
  const bool nextToFirst = k == 1;
  const bool nextToLast = k == end - 1;
  for (int32_t lane = 0; lane < kPolylineLanes; ++lane) {
    const float fromFirst = ((px[lane] - first.x) * firstStep.x + (py - first.y) * firstStep.y) / firstLength;
    const float pastLast = ((px[lane] - last.x) * lastStep.x + (py - last.y) * lastStep.y) / lastLength;
    const bool filled = !(nextToFirst && !(fromFirst >= 0.0f)) && !(nextToLast && pastLast > 0.0f);
    const float dx = px[lane] - joint.x;
    const float dy = py - joint.y;
    const float d = kernel::sqrt(dx * dx + dy * dy);
    distances[lane] = filled ? kernel::min(distances[lane], d) : distances[lane];
  }
}

/// Whether the box of two points, widened, meets the rectangle. True where a coordinate is NaN.
bool Meets(Vec2 a, Vec2 b, float reach, const PixelRect& rect) {
  const bool apart = std::max(a.x, b.x) + reach < static_cast<float>(rect.x0) ||
                     std::min(a.x, b.x) - reach > static_cast<float>(rect.x1) ||
                     std::max(a.y, b.y) + reach < static_cast<float>(rect.y0) ||
                     std::min(a.y, b.y) - reach > static_cast<float>(rect.y1);
  return !apart;
}

}  // namespace

// The 1e-12 that guards the division makes a segment of next to no length longer than it is: the pixels
// beside it, in its own measure, then lie anywhere, and at no distance. Such a segment is never out of reach.
void PreparePolyline(const Vec2* points, int32_t count, Polyline* line) {
  line->count = std::clamp(count, 0, kMaxTrailPoints);
  std::copy(points, points + line->count, line->points);
  for (int32_t i = 0; i + 1 < line->count; ++i) {
    const Vec2 step{points[i + 1].x - points[i].x, points[i + 1].y - points[i].y};
    line->step[i] = step;
    line->lengthSquared[i] = step.x * step.x + step.y * step.y + 1e-12f;
    line->length[i] = kernel::sqrt(line->lengthSquared[i]);
    line->spreads[i] = !(line->lengthSquared[i] > 1e-6f);
  }
}

void AllPieces(const Polyline& line, NearPieces* near) {
  near->segmentCount = 0;
  near->jointCount = 0;
  for (int32_t i = 0; i + 1 < line.count; ++i) near->segments[near->segmentCount++] = static_cast<uint8_t>(i);
  for (int32_t k = 1; k + 1 < line.count; ++k) near->joints[near->jointCount++] = static_cast<uint8_t>(k);
}

void PiecesNear(const Polyline& line, const PixelRect& rect, float reach, const NearPieces& from,
                NearPieces* near) {
  int32_t segments = 0;
  for (int32_t n = 0; n < from.segmentCount; ++n) {
    const uint8_t i = from.segments[n];
    near->segments[segments] = i;
    const bool keep = line.spreads[i] || Meets(line.points[i], line.points[i + 1], reach, rect);
    segments += static_cast<int32_t>(keep);
  }
  int32_t joints = 0;
  for (int32_t n = 0; n < from.jointCount; ++n) {
    const uint8_t k = from.joints[n];
    near->joints[joints] = k;
    joints += static_cast<int32_t>(Meets(line.points[k], line.points[k], reach, rect));
  }
  near->segmentCount = segments;
  near->jointCount = joints;
}

void PolylineDistances(const Polyline& line, const NearPieces& near, bool roundCap, int32_t x, int32_t y,
                       float* distances) {
  float px[kPolylineLanes];
  for (int32_t lane = 0; lane < kPolylineLanes; ++lane) px[lane] = static_cast<float>(x + lane);
  const float py = static_cast<float>(y);

  if (roundCap && line.count >= 2) {
    std::fill_n(distances, kPolylineLanes, std::numeric_limits<float>::infinity());
    for (int32_t n = 0; n < near.segmentCount; ++n) {
      LowerToSegment(line, near.segments[n], px, py, distances);
    }
    for (int32_t lane = 0; lane < kPolylineLanes; ++lane) distances[lane] = kernel::sqrt(distances[lane]);
    return;
  }
  std::fill_n(distances, kPolylineLanes, kFarDistance);
  for (int32_t n = 0; n < near.segmentCount; ++n) LowerToStrip(line, near.segments[n], px, py, distances);
  for (int32_t n = 0; n < near.jointCount; ++n) LowerToJoint(line, near.joints[n], px, py, distances);
}

}  // namespace vantle
