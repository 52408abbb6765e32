#include "tests/reference/projection.h"

#include "base/elementary.h"

#include <algorithm>
#include <cmath>

namespace vantle::reference {
namespace {

constexpr double kDegrees = 57.29578;

void Carry(const WorldParticle& w, float k, ProjectedParticle& p) {
  p.size = w.size * k;
  p.lineWidth = w.lineWidth * k;
  p.alpha = w.opacity;
  p.r = w.color.r;
  p.g = w.color.g;
  p.b = w.color.b;
  p.rotX = w.rotation[0];
  p.rotY = w.rotation[1];
  p.rotZ = w.rotation[2];
  p.random = w.random;
  p.spriteFrame = -1;
}

// ---- Without a camera: a perspective about the centre of the frame ----

// Scale of what lies at depth z.
float SimpleScale(float z, const View& view) {
  if (view.settings.viewAngle < 0.5f) return 1.0f;
  const float f = view.focal;
  return f / std::max(f + z, 0.05f * f);
}

Vec2 SimpleScreen(const Vec3& v, const View& view) {
  const FrameSettings& s = view.settings;
  const float k = SimpleScale(v.z, view);
  const float cx = static_cast<float>(s.fullWidth) * 0.5f;
  const float cy = static_cast<float>(s.fullHeight) * 0.5f;
  return {(v.x - cx) * k + cx, (v.y - cy) * k + cy};
}

Particle ProjectSimply(const WorldParticle& w, const View& view) {
  const FrameSettings& s = view.settings;
  Particle result;
  ProjectedParticle& p = result.projected;
  Carry(w, SimpleScale(w.position.z, view), p);
  const Vec2 screen = SimpleScreen(w.position, view);
  p.sx = screen.x;
  p.sy = screen.y;
  p.depth = w.position.z;
  if (s.autoOrient && w.direction.x * w.direction.x + w.direction.y * w.direction.y > 0.0001f) {
    p.rotZ = Atan2(w.direction.y, w.direction.x) * static_cast<float>(kDegrees);
  }
  for (const Vec3& point : w.trail) result.curvePoints.push_back(SimpleScreen(point, view));
  return result;
}

// ---- With the composition's camera ----

// One row of the view matrix applied to a vector, with or without the translation.
double ViewRow(const CameraData& c, int row, const Vec3& v) {
  const double* m = c.viewMatrix + row;
  return m[0] * static_cast<double>(v.x) + m[4] * static_cast<double>(v.y) + m[8] * static_cast<double>(v.z);
}

double ViewPoint(const CameraData& c, int row, const Vec3& v) {
  return ViewRow(c, row, v) + c.viewMatrix[12 + row];
}

Vec2 CameraScreen(const Vec3& v, double depth, const CameraData& c) {
  const double k = c.imagePlaneDistance / depth;
  return {static_cast<float>(k * ViewPoint(c, 0, v) + static_cast<double>(c.cameraCentre[0])),
          static_cast<float>(k * ViewPoint(c, 1, v) + static_cast<double>(c.cameraCentre[1]))};
}

// The particle's rotation seen in the camera's frame, taken apart into angles about x, y and z again.
void ResolveRotation(const CameraData& c, ProjectedParticle& p) {
  const float radians = 0.017453292f;
  const Rotation r = RotationOf(p.rotX * radians, p.rotY * radians, p.rotZ * radians);
  const double* m = c.viewMatrix;
  const auto turned = [&](int i, int j) {
    return static_cast<double>(r.row[i][0]) * m[j] + static_cast<double>(r.row[i][1]) * m[4 + j] +
           static_cast<double>(r.row[i][2]) * m[8 + j];
  };
  const double down = turned(2, 0);
  const bool gimbalLock = std::fabs(down) >= 0.9999;
  const double x = gimbalLock ? Atan2(-turned(1, 2), turned(1, 1)) : Atan2(turned(2, 1), turned(2, 2));
  const double z = gimbalLock ? 0.0 : Atan2(turned(1, 0), turned(0, 0));
  p.rotX = static_cast<float>(x * kDegrees);
  p.rotY = static_cast<float>(Asin(std::clamp(-down, -1.0, 1.0)) * kDegrees);
  p.rotZ = static_cast<float>(z * kDegrees);
}

void OrientAlong(const Vec3& direction, const CameraData& c, ProjectedParticle& p) {
  const double dx = ViewRow(c, 0, direction);
  const double dy = ViewRow(c, 1, direction);
  if (dx * dx + dy * dy > 0.0001) {
    p.rotZ = static_cast<float>(Atan2(dy, dx) * kDegrees);
  }
}

float BlurRadius(float zc, const FrameSettings& s, const CameraData& c) {
  const float f = c.focusDistance;
  if (!s.depthOfField || !c.cameraDepthOfField) return 0.0f;
  if (!(f > 1.0f) || !(c.aperture > 0.0f) || !(c.zoom > 0.0f)) return 0.0f;
  return std::fabs(zc - f) * c.aperture * c.zoom / (f * zc) * 0.5f;
}

std::optional<Particle> ProjectThroughCamera(const WorldParticle& w, const FrameSettings& s,
                                             const CameraData& c) {
  const double zc = ViewPoint(c, 2, w.position);
  if (zc < 0.1) return std::nullopt;

  Particle result;
  ProjectedParticle& p = result.projected;
  Carry(w, static_cast<float>(c.imagePlaneDistance / zc), p);
  const Vec2 screen = CameraScreen(w.position, zc, c);
  p.sx = screen.x;
  p.sy = screen.y;
  p.depth = static_cast<float>(zc);
  p.cocRadius = BlurRadius(p.depth, s, c);

  if (s.faceCamera) {
    p.rotX = 0.0f;
    p.rotY = 0.0f;
  } else {
    ResolveRotation(c, p);
  }
  if (s.autoOrient) OrientAlong(w.direction, c, p);
  for (const Vec3& point : w.trail) {
    result.curvePoints.push_back(CameraScreen(point, std::max(ViewPoint(c, 2, point), 0.1), c));
  }
  return result;
}

bool Visible(const ProjectedParticle& p) {
  const bool finite =
      std::isfinite(p.sx) && std::isfinite(p.sy) && std::isfinite(p.depth) && std::isfinite(p.size);
  return finite && p.size > 0.1f && p.alpha > 0.001f;
}

}  // namespace

View ViewOfFrame(const FrameSettings& s, const CameraData& camera) {
  const float side = static_cast<float>(std::max(s.fullWidth, s.fullHeight));
  return {s, camera, side * 0.5f / Tan(s.viewAngle * 0.008726647f)};
}

std::optional<Particle> Project(const WorldParticle& particle, const View& view) {
  std::optional<Particle> result = view.camera.hasCamera
                                       ? ProjectThroughCamera(particle, view.settings, view.camera)
                                       : ProjectSimply(particle, view);
  if (result && !Visible(result->projected)) result.reset();
  return result;
}

}  // namespace vantle::reference
