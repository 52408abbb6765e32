#include "particles/solid_plane.h"

#include "base/numeric.h"
#include "particles/planes.h"
#include "particles/projection.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace vantle {
namespace {

struct Corner {
  double x, y;
};

// The layer's corners on the output: left top, right top, left bottom, right bottom.
struct Quad {
  Corner corners[4];
};

Corner ProjectCorner(const ViewProjection& view, const PlaneTransform& plane, float x, float y, float fx,
                     float fy) {
  const Vec3 world = MapToPlane(plane, x / fx, y / fy, 0.0f);
  const ScreenPoint point = ProjectPoint(view, world, kNearestDepth);
  return {static_cast<double>(point.x * fx), static_cast<double>(point.y * fy)};
}

Quad ProjectCorners(const FrameSettings& settings, const CameraData& camera, const PlaneSettings& controls,
                    int32_t width, int32_t height) {
  const float cx = static_cast<float>(settings.fullWidth) * 0.5f;
  const float cy = static_cast<float>(settings.fullHeight) * 0.5f;
  const PlaneTransform plane = MakePlaneTransform(controls, cx, cy);
  const ViewProjection view = MakeViewProjection(settings, camera);
  const float fx = UsableDownsample(settings.downsampleX);
  const float fy = UsableDownsample(settings.downsampleY);
  const float w = static_cast<float>(width);
  const float h = static_cast<float>(height);
  const float left = (static_cast<float>(settings.outputWidth) - w) / 2.0f;
  const float top = (static_cast<float>(settings.outputHeight) - h) / 2.0f;
  return {{ProjectCorner(view, plane, left, top, fx, fy), ProjectCorner(view, plane, left + w, top, fx, fy),
           ProjectCorner(view, plane, left, top + h, fx, fy),
           ProjectCorner(view, plane, left + w, top + h, fx, fy)}};
}

bool IsFinite(const Quad& quad) {
  return std::all_of(std::begin(quad.corners), std::end(quad.corners),
                     [](const Corner& c) { return std::isfinite(c.x) && std::isfinite(c.y); });
}

// By the diagonals' cross product; the sign, which says which side is seen, does not matter.
double Area(const Quad& quad) {
  const Corner* c = quad.corners;
  return std::fabs((c[3].x - c[0].x) * (c[2].y - c[1].y) - (c[3].y - c[0].y) * (c[2].x - c[1].x)) * 0.5;
}

using Row9 = double[9];

// Gaussian elimination with row exchange; the last column is the right side. False for a singular system.
bool Solve(Row9 (&rows)[8], double (&solution)[8]) {
  for (int i = 0; i < 8; ++i) {
    int best = i;
    for (int r = i + 1; r < 8; ++r) {
      if (std::fabs(rows[r][i]) > std::fabs(rows[best][i])) best = r;
    }
    if (!(std::fabs(rows[best][i]) > 1e-12)) return false;
    std::swap(rows[i], rows[best]);
    for (int r = i + 1; r < 8; ++r) {
      const double factor = rows[r][i] / rows[i][i];
      for (int c = i; c < 9; ++c) rows[r][c] -= factor * rows[i][c];
    }
  }
  for (int i = 7; i >= 0; --i) {
    double rest = rows[i][8];
    for (int c = i + 1; c < 8; ++c) rest -= rows[i][c] * solution[c];
    solution[i] = rest / rows[i][i];
  }
  return true;
}

// The homography that takes the unit square to the quadrilateral, its last element 1. The unit square rather
// than the layer's own size keeps the system's numbers of one magnitude.
bool SquareToQuad(const Quad& quad, double (&matrix)[9]) {
  constexpr Corner kSquare[4] = {{0, 0}, {1, 0}, {0, 1}, {1, 1}};
  Row9 rows[8] = {};
  for (int i = 0; i < 4; ++i) {
    const auto [x, y] = kSquare[i];
    const auto [u, v] = quad.corners[i];
    const Row9 forU = {x, y, 1, 0, 0, 0, -u * x, -u * y, u};
    const Row9 forV = {0, 0, 0, x, y, 1, -v * x, -v * y, v};
    std::copy(std::begin(forU), std::end(forU), rows[2 * i]);
    std::copy(std::begin(forV), std::end(forV), rows[2 * i + 1]);
  }
  double solution[8];
  if (!Solve(rows, solution)) return false;
  std::copy(std::begin(solution), std::end(solution), matrix);
  matrix[8] = 1.0;
  return true;
}

// The adjugate, which is the inverse up to a factor that the perspective division takes out.
void Invert(const double (&m)[9], double (&out)[9]) {
  out[0] = m[4] * m[8] - m[5] * m[7];
  out[1] = m[2] * m[7] - m[1] * m[8];
  out[2] = m[1] * m[5] - m[2] * m[4];
  out[3] = m[5] * m[6] - m[3] * m[8];
  out[4] = m[0] * m[8] - m[2] * m[6];
  out[5] = m[2] * m[3] - m[0] * m[5];
  out[6] = m[3] * m[7] - m[4] * m[6];
  out[7] = m[1] * m[6] - m[0] * m[7];
  out[8] = m[0] * m[4] - m[1] * m[3];
}

// Whether the map keeps the whole square on one side of its horizon. Corners that were behind the camera can
// bend the quadrilateral inwards; the square's picture then goes through infinity and lies outside of it.
bool IsConvex(const double (&toQuad)[9]) {
  const double right = toQuad[6] + 1.0;
  const double below = toQuad[7] + 1.0;
  return right > 0.0 && below > 0.0 && toQuad[6] + toQuad[7] + 1.0 > 0.0;
}

// The output, cut to the box of a convex quadrilateral. False when nothing is left.
bool SetBox(const Quad& quad, bool convex, const FrameSettings& settings, SolidPlacement* placement) {
  placement->x0 = placement->y0 = 0;
  placement->x1 = settings.outputWidth - 1;
  placement->y1 = settings.outputHeight - 1;
  if (convex) {
    const Corner* c = quad.corners;
    const auto [left, right] = std::minmax({c[0].x, c[1].x, c[2].x, c[3].x});
    const auto [top, bottom] = std::minmax({c[0].y, c[1].y, c[2].y, c[3].y});
    placement->x0 = std::max(placement->x0, TruncToInt(std::floor(left)));
    placement->x1 = std::min(placement->x1, TruncToInt(std::ceil(right)));
    placement->y0 = std::max(placement->y0, TruncToInt(std::floor(top)));
    placement->y1 = std::min(placement->y1, TruncToInt(std::ceil(bottom)));
  }
  return placement->x0 <= placement->x1 && placement->y0 <= placement->y1;
}

}  // namespace

bool PlaceSolidLayer(const FrameSettings& settings, const CameraData& camera, const PlaneSettings& plane,
                     int32_t width, int32_t height, SolidPlacement* placement) {
  if (width < 1 || height < 1) return false;
  constexpr double kSmallestArea = 0.01;
  const Quad quad = ProjectCorners(settings, camera, plane, width, height);
  if (!IsFinite(quad) || !(Area(quad) >= kSmallestArea)) return false;

  double toQuad[9];
  if (!SquareToQuad(quad, toQuad)) return false;
  if (!SetBox(quad, IsConvex(toQuad), settings, placement)) return false;
  Invert(toQuad, placement->toLayer);
  for (int i = 0; i < 3; ++i) {
    placement->toLayer[i] *= width;
    placement->toLayer[3 + i] *= height;
  }
  return std::all_of(std::begin(placement->toLayer), std::end(placement->toLayer),
                     [](double v) { return std::isfinite(v); });
}

SolidWeights WeighSolids(const FrameSettings& settings) {
  if (!settings.showSolids || !(settings.fade > 0.001f)) return {};
  const float t = Clamp(settings.transform, 0.0f, 1.0f);
  const float fade = std::min(settings.fade, 0.5f);
  SolidWeights weights;
  if (fade > t) weights.a = 1.0f - t / fade;
  if (t > 1.0f - fade) weights.b = (t - (1.0f - fade)) / fade;
  return weights;
}

}  // namespace vantle
