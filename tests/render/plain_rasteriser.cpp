#include "tests/render/plain_rasteriser.h"

#include "render/coverage.h"
#include "render/pixel_rect.h"
#include "render/transfer.h"

#include <algorithm>
#include <cmath>

namespace vantle::test {

namespace {

float RoundDistance(float px, float py, const std::vector<Vec2>& points) {
  float d = INFINITY;
  for (size_t i = 1; i < points.size(); ++i) {
    d = std::min(d, kernel::sdSegment(px, py, points[i - 1].x, points[i - 1].y, points[i].x, points[i].y));
  }
  return d;
}

float Along(float px, float py, Vec2 from, Vec2 a, Vec2 b) {
  const float dx = b.x - a.x;
  const float dy = b.y - a.y;
  return ((px - from.x) * dx + (py - from.y) * dy) / std::sqrt(dx * dx + dy * dy + 1e-12f);
}

float FlatDistance(float px, float py, const std::vector<Vec2>& points) {
  const size_t n = points.size();
  float d = 1e9f;
  for (size_t i = 1; i < n; ++i) {
    const Vec2 a = points[i - 1];
    const Vec2 ab{points[i].x - a.x, points[i].y - a.y};
    const float len = std::sqrt(ab.x * ab.x + ab.y * ab.y + 1e-12f);
    const float along = Along(px, py, a, a, points[i]);
    const float cross = (px - a.x) * ab.y - (py - a.y) * ab.x;
    const bool hasLength = ab.x != 0.0f || ab.y != 0.0f;
    if (hasLength && along >= 0.0f && along <= len) d = std::min(d, std::fabs(cross) / len);
  }
  for (size_t k = 1; k + 1 < n; ++k) {
    if (k == 1 && !(Along(px, py, points[0], points[0], points[1]) >= 0.0f)) continue;
    if (k == n - 2 && Along(px, py, points[n - 1], points[n - 2], points[n - 1]) > 0.0f) continue;
    const float dx = px - points[k].x;
    const float dy = py - points[k].y;
    d = std::min(d, std::sqrt(dx * dx + dy * dy));
  }
  return d;
}

float HeadCoverage(float px, float py, float size, float halfLW, float blurW,
                   const std::vector<Vec2>& points) {
  if (points.size() < 2) return 0.0f;
  const float headLen = std::max(size * 0.15f, halfLW * 3.0f);
  const Vec2 p0 = points[0];
  const float dx = p0.x - points[1].x;
  const float dy = p0.y - points[1].y;
  if (dx == 0.0f && dy == 0.0f) return 0.0f;
  const float len = std::sqrt(dx * dx + dy * dy + 1e-12f);
  const Vec2 dir{dx / len, dy / len};
  const float d =
      kernel::sdArrow(px, py, p0.x - dir.x * headLen * 0.1f, p0.y - dir.y * headLen * 0.1f,
                      p0.x + dir.x * headLen, p0.y + dir.y * headLen, halfLW, headLen, halfLW * 2.5f);
  return kernel::clamp(0.5f - d / blurW, 0.0f, 1.0f);
}

kernel::Particle ToKernel(const ProjectedParticle& p) {
  return {p.sx, p.sy, p.size, p.lineWidth, p.r, p.g, p.b, p.alpha, p.rotX, p.rotY, p.rotZ, p.cocRadius};
}

std::vector<Vec2> TrailOf(const Scene& scene, const ProjectedParticle& p) {
  if (p.curvePoints >= scene.trails.counts.size()) return {};
  const Vec2* first = scene.trails.points.data() + p.curvePoints * static_cast<size_t>(kMaxTrailPoints);
  return {first, first + scene.trails.counts[p.curvePoints]};
}

template <class CoverageAt>
void Fill(const Scene& scene, const Canvas& canvas, const ProjectedParticle& p, const Edges& edges,
          const CoverageAt& coverageAt) {
  const MutableImage& image = canvas.image();
  const PixelRect rect = CutToBand(edges, {image.width, 0, image.height - 1});
  for (int32_t y = rect.y0; y <= rect.y1; ++y) {
    for (int32_t x = rect.x0; x <= rect.x1; ++x) {
      const float coverage = coverageAt(static_cast<float>(x), static_cast<float>(y));
      if (!(coverage > 0.001f)) continue;
      FloatPixel d = canvas.Pixel(x, y);
      kernel::blendPixel(p.r, p.g, p.b, p.alpha * coverage, d.r, d.g, d.b, d.a, scene.settings.transferMode);
      canvas.Set(x, y, d);
    }
  }
}

void DrawPlainShape(const Scene& scene, const Canvas& canvas, const ProjectedParticle& p) {
  const int32_t shape = scene.settings.shape;
  const kernel::ShapeFrame f = kernel::prepareShape(ToKernel(p));
  const bool line = shape == SHAPE_LINE || shape == SHAPE_ARROW;
  if (!line && kernel::isEdgeOn(f)) return;
  Fill(scene, canvas, p, ShapeEdges(f, shape), [&](float px, float py) {
    return kernel::computeCoverage(px, py, f, shape, scene.settings.roundCap);
  });
}

void DrawPlainCurve(const Scene& scene, const Canvas& canvas, const ProjectedParticle& p) {
  const int32_t shape = scene.settings.shape;
  const std::vector<Vec2> points = TrailOf(scene, p);
  if (points.empty()) return;
  const float halfLW = p.lineWidth * 0.5f;
  const float margin =
      shape == SHAPE_CURVED_ARROW ? halfLW * 2.5f + p.cocRadius + 2.0f : halfLW + p.cocRadius + 1.0f;
  const Edges edges = TrailEdges(points.data(), static_cast<int32_t>(points.size()), margin);
  Fill(scene, canvas, p, edges, [&](float px, float py) {
    return PlainCurveCoverage(px, py, p, points, shape, scene.settings.roundCap);
  });
}

}  // namespace

float PlainCurveCoverage(float px, float py, const ProjectedParticle& p, const std::vector<Vec2>& points,
                         int32_t shape, bool roundCap) {
  const float halfLW = p.lineWidth * 0.5f;
  const float blurW = std::max(1.0f, 2.0f * p.cocRadius);
  const float d = points.size() < 2 ? 1e9f
                  : roundCap        ? RoundDistance(px, py, points)
                                    : FlatDistance(px, py, points);
  const float body = kernel::clamp((halfLW - d) / blurW + 0.5f, 0.0f, 1.0f);
  if (shape != SHAPE_CURVED_ARROW) return body;
  return std::max(HeadCoverage(px, py, p.size, halfLW, blurW, points), body);
}

void DrawPlainly(const Scene& scene, const Canvas& canvas) {
  const MutableImage& image = canvas.image();
  const size_t bytes = static_cast<size_t>(image.width) * PixelBytes(image.depth);
  for (int32_t y = 0; y < image.height; ++y) std::memset(Row(image, y), 0, bytes);
  for (const ProjectedParticle& p : scene.particles) {
    const int32_t shape = scene.settings.shape;
    if (shape == SHAPE_CURVE_LINE || shape == SHAPE_CURVED_ARROW) {
      DrawPlainCurve(scene, canvas, p);
    } else if (shape >= SHAPE_POINT && shape <= SHAPE_ARROW) {
      DrawPlainShape(scene, canvas, p);
    }
  }
}

}  // namespace vantle::test
