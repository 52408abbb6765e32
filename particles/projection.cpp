#include "particles/projection.h"

#include "base/elementary_inline.h"
#include "base/numeric.h"
#include "particles/planes.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace vantle {
namespace {

constexpr double kDegrees = 57.29578;

bool IsFinite(float v) {
  return std::fabs(v) <= std::numeric_limits<float>::max();
}

double CameraDepth(const ViewProjection& v, const Vec3& p) {
  const double x = static_cast<double>(p.x), y = static_cast<double>(p.y), z = static_cast<double>(p.z);
  return v.m[2] * x + v.m[6] * y + v.m[10] * z + v.m[14];
}

ScreenPoint ProjectByCamera(const ViewProjection& v, const Vec3& p, double depth) {
  const double x = static_cast<double>(p.x), y = static_cast<double>(p.y), z = static_cast<double>(p.z);
  const double k = v.imagePlaneDistance / depth;
  const double sx = k * (v.m[0] * x + v.m[4] * y + v.m[8] * z + v.m[12]) + v.cameraCentreX;
  const double sy = k * (v.m[1] * x + v.m[5] * y + v.m[9] * z + v.m[13]) + v.cameraCentreY;
  return {static_cast<float>(sx), static_cast<float>(sy), static_cast<float>(k), static_cast<float>(depth)};
}

ScreenPoint ProjectSimply(const ViewProjection& v, const Vec3& p) {
  const float k = v.orthographic ? 1.0f : v.focal / std::max(v.focal + p.z, 0.05f * v.focal);
  return {(p.x - v.centreX) * k + v.centreX, (p.y - v.centreY) * k + v.centreY, k, p.z};
}

// ---- Rotation ----

/// Rotation of a particle that does not face the camera, as angles seen from the camera: those of C = R *
/// V^T, with V the rotation of the view.
void ResolveRotation(const ViewProjection& v, ProjectedParticle* out) {
  const float radians = 0.017453292f;
  const Rotation3 r = MakeRotation(out->rotX * radians, out->rotY * radians, out->rotZ * radians);
  const auto c = [&](int i, int j) {
    return static_cast<double>(r.m[i][0]) * v.m[j] + static_cast<double>(r.m[i][1]) * v.m[4 + j] +
           static_cast<double>(r.m[i][2]) * v.m[8 + j];
  };
  const double c20 = c(2, 0);
  const bool locked = std::fabs(c20) >= 0.9999;
  const double rotX = locked ? Atan2(-c(1, 2), c(1, 1)) : Atan2(c(2, 1), c(2, 2));
  const double rotY = Asin(std::clamp(-c20, -1.0, 1.0));
  const double rotZ = locked ? 0.0 : Atan2(c(1, 0), c(0, 0));
  out->rotX = static_cast<float>(rotX * kDegrees);
  out->rotY = static_cast<float>(rotY * kDegrees);
  out->rotZ = static_cast<float>(rotZ * kDegrees);
}

/// Turns the particle along its motion as the camera sees it, when it moves across the picture at all.
void OrientByCamera(const ViewProjection& v, const Vec3& d, ProjectedParticle* out) {
  const double x = static_cast<double>(d.x), y = static_cast<double>(d.y), z = static_cast<double>(d.z);
  const double dx = v.m[0] * x + v.m[4] * y + v.m[8] * z;
  const double dy = v.m[1] * x + v.m[5] * y + v.m[9] * z;
  if (dx * dx + dy * dy > 0.0001) out->rotZ = static_cast<float>(Atan2(dy, dx) * kDegrees);
}

void OrientSimply(const Vec3& d, ProjectedParticle* out) {
  if (d.x * d.x + d.y * d.y > 0.0001f) out->rotZ = Atan2Inline(d.y, d.x) * 57.29578f;
}

void RotateForCamera(const ViewProjection& v, const Vec3& direction, ProjectedParticle* out) {
  if (v.faceCamera) {
    out->rotX = out->rotY = 0.0f;
  } else {
    ResolveRotation(v, out);
  }
  if (v.autoOrient) OrientByCamera(v, direction, out);
}

float BlurRadius(const ViewProjection& v, float depth) {
  if (!v.depthOfField) return 0.0f;
  return std::fabs(depth - v.focusDistance) * v.aperture * v.zoom / (v.focusDistance * depth) * 0.5f;
}

bool IsVisible(const ProjectedParticle& p) {
  return p.size > 0.1f && p.alpha > 0.001f && IsFinite(p.size) && IsFinite(p.depth) && IsFinite(p.sx) &&
         IsFinite(p.sy);
}

}  // namespace

ViewProjection MakeViewProjection(const FrameSettings& s, const CameraData& camera) {
  ViewProjection v;
  v.hasCamera = camera.hasCamera;
  v.faceCamera = s.faceCamera;
  v.autoOrient = s.autoOrient;

  v.centreX = static_cast<float>(s.fullWidth) * 0.5f;
  v.centreY = static_cast<float>(s.fullHeight) * 0.5f;
  v.orthographic = s.viewAngle < 0.5f;
  const float longer = static_cast<float>(std::max(s.fullWidth, s.fullHeight));
  if (!v.orthographic) v.focal = longer * 0.5f / Tan(s.viewAngle * 0.008726647f);

  std::copy(camera.viewMatrix, camera.viewMatrix + 16, v.m);
  v.imagePlaneDistance = camera.imagePlaneDistance;
  v.cameraCentreX = static_cast<double>(camera.cameraCentre[0]);
  v.cameraCentreY = static_cast<double>(camera.cameraCentre[1]);
  v.depthOfField = s.depthOfField && camera.cameraDepthOfField && camera.focusDistance > 1.0f &&
                   camera.aperture > 0.0f && camera.zoom > 0.0f;
  v.focusDistance = camera.focusDistance;
  v.aperture = camera.aperture;
  v.zoom = camera.zoom;
  return v;
}

ScreenPoint ProjectPoint(const ViewProjection& view, const Vec3& point, double nearest) {
  if (!view.hasCamera) return ProjectSimply(view, point);
  return ProjectByCamera(view, point, std::max(CameraDepth(view, point), nearest));
}

bool ProjectParticle(const ViewProjection& view, const VectorLanes& positions, const VectorLanes& directions,
                     const AppearanceLanes& a, int32_t l, ProjectedParticle* out) {
  const Vec3 position = {positions.x[l], positions.y[l], positions.z[l]};
  ScreenPoint screen;
  if (view.hasCamera) {
    const double depth = CameraDepth(view, position);
    if (depth < kNearestDepth) return false;
    screen = ProjectByCamera(view, position, depth);
  } else {
    screen = ProjectSimply(view, position);
  }

  ProjectedParticle p = {};
  p.sx = screen.x;
  p.sy = screen.y;
  p.depth = screen.depth;
  p.size = a.size[l] * screen.scale;
  p.lineWidth = a.lineWidth[l] * screen.scale;
  p.r = a.r[l];
  p.g = a.g[l];
  p.b = a.b[l];
  p.alpha = a.opacity[l];
  if (!IsVisible(p)) return false;

  p.rotX = a.rotX[l];
  p.rotY = a.rotY[l];
  p.rotZ = a.rotZ[l];
  const Vec3 direction = {directions.x[l], directions.y[l], directions.z[l]};
  if (view.hasCamera) {
    RotateForCamera(view, direction, &p);
    p.cocRadius = BlurRadius(view, p.depth);
  } else if (view.autoOrient) {
    OrientSimply(direction, &p);
  }
  p.random = a.random[l];
  p.spriteFrame = -1;
  *out = p;
  return true;
}

}  // namespace vantle
