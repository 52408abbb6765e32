#include "particles/projection.h"

#include "base/elementary.h"
#include "particles/planes.h"
#include "particles/stages.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstdint>

namespace vantle {
namespace {

constexpr double kDegrees = 57.29578;

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
/// V^T, with V the rotation of the view. `degrees` about x, y and z.
Vec3 ResolveRotation(const ViewProjection& v, const Vec3& degrees) {
  const float radians = 0.017453292f;
  const Rotation3 r = MakeRotation(degrees.x * radians, degrees.y * radians, degrees.z * radians);
  const auto c = [&](int i, int j) {
    return static_cast<double>(r.m[i][0]) * v.m[j] + static_cast<double>(r.m[i][1]) * v.m[4 + j] +
           static_cast<double>(r.m[i][2]) * v.m[8 + j];
  };
  const double c20 = c(2, 0);
  const bool locked = std::fabs(c20) >= 0.9999;
  const double rotX = locked ? Atan2(-c(1, 2), c(1, 1)) : Atan2(c(2, 1), c(2, 2));
  const double rotY = Asin(std::clamp(-c20, -1.0, 1.0));
  const double rotZ = locked ? 0.0 : Atan2(c(1, 0), c(0, 0));
  return {static_cast<float>(rotX * kDegrees), static_cast<float>(rotY * kDegrees),
          static_cast<float>(rotZ * kDegrees)};
}

bool SameBits(const Vec3& a, const Vec3& b) {
  const auto same = [](float u, float w) { return std::bit_cast<uint32_t>(u) == std::bit_cast<uint32_t>(w); };
  return same(a.x, b.x) && same(a.y, b.y) && same(a.z, b.z);
}

/// Puts the rotations seen by the camera in place. Particles without variation and spin share one rotation,
/// which is then worked out once.
void ResolveRotations(const ViewProjection& v, uint32_t visible, RecordLanes* records) {
  Vec3 last, resolved;
  bool known = false;
  for (int32_t l = 0; l < kLanes; ++l) {
    if ((visible >> l & 1u) == 0) continue;
    const Vec3 own = {records->rotX[l], records->rotY[l], records->rotZ[l]};
    if (!known || !SameBits(own, last)) resolved = ResolveRotation(v, own);
    last = own;
    known = true;
    records->rotX[l] = resolved.x;
    records->rotY[l] = resolved.y;
    records->rotZ[l] = resolved.z;
  }
}

/// Turns the particles along their motion as the camera sees it, when they move across the picture at all.
void OrientByCamera(const ViewProjection& v, const VectorLanes& directions, uint32_t visible,
                    RecordLanes* records) {
  for (int32_t l = 0; l < kLanes; ++l) {
    if ((visible >> l & 1u) == 0) continue;
    const double x = static_cast<double>(directions.x[l]), y = static_cast<double>(directions.y[l]),
                 z = static_cast<double>(directions.z[l]);
    const double dx = v.m[0] * x + v.m[4] * y + v.m[8] * z;
    const double dy = v.m[1] * x + v.m[5] * y + v.m[9] * z;
    if (dx * dx + dy * dy > 0.0001) records->rotZ[l] = static_cast<float>(Atan2(dy, dx) * kDegrees);
  }
}

void RotateForCamera(const ViewProjection& v, const VectorLanes& directions, uint32_t visible,
                     RecordLanes* records) {
  if (v.faceCamera) {
    std::fill(records->rotX, records->rotX + kLanes, 0.0f);
    std::fill(records->rotY, records->rotY + kLanes, 0.0f);
  } else {
    ResolveRotations(v, visible, records);
  }
  if (v.autoOrient) OrientByCamera(v, directions, visible, records);
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

int32_t ProjectParticles(const ViewProjection& view, const VectorLanes& positions,
                         const VectorLanes& directions, const AppearanceLanes& appearance,
                         const int32_t* indices, int32_t count, ProjectedParticle* out) {
  const ParticleStages& stages = CurrentStages();
  RecordLanes records;
  const uint32_t visible = stages.project(view, positions, directions, appearance, &records);
  if (view.hasCamera) RotateForCamera(view, directions, visible, &records);
  return stages.storeRecords(records, indices, visible, count, out);
}

}  // namespace vantle
