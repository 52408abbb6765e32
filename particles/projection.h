// From the world to the screen: the simple perspective about the frame's centre, or the composition's camera.
#pragma once

#include "base/matrix.h"
#include "base/vec.h"
#include "particles/appearance.h"
#include "particles/frame_settings.h"
#include "particles/projected_particle.h"

namespace vantle {

/// A frame's view.
struct ViewProjection {
  bool hasCamera = false;

  // Simple view.
  bool orthographic = true;
  float focal = 0.0f;  ///< distance of the eye, pixels
  float centreX = 0.0f, centreY = 0.0f;

  // Camera.
  double m[16] = {};  ///< world to camera, column-major
  double imagePlaneDistance = 0.0;
  double cameraCentreX = 0.0, cameraCentreY = 0.0;
  bool depthOfField = false;
  float focusDistance = 0.0f, aperture = 0.0f, zoom = 0.0f;

  bool faceCamera = false;
  bool autoOrient = false;
};

ViewProjection MakeViewProjection(const FrameSettings& settings, const CameraData& camera);

/// A point on the screen.
struct ScreenPoint {
  float x, y;   ///< full-resolution pixels
  float scale;  ///< of lengths at this depth
  float depth;  ///< world z, or camera depth
};

/// Nearest camera depth of particles, and the depth that points nearer are taken to have.
inline constexpr double kNearestDepth = 0.1;

/// Projects a point. With a camera, depths under `nearest` are taken as `nearest`.
ScreenPoint ProjectPoint(const ViewProjection& view, const Vec3& point, double nearest = kNearestDepth);

/// Projected particles before they are gathered into records; the fields are those of ProjectedParticle.
struct alignas(64) RecordLanes {
  float sx[kLanes], sy[kLanes], size[kLanes], lineWidth[kLanes];
  float r[kLanes], g[kLanes], b[kLanes], alpha[kLanes];
  float rotX[kLanes], rotY[kLanes], rotZ[kLanes], cocRadius[kLanes];
  float depth[kLanes], random[kLanes];
};

/// Projects lanes 0..count-1 and writes those to be drawn to `out`, which has room for all, one behind the
/// other and with their index in `curvePoints`; returns how many they are. Not drawn is what is too near,
/// too small, too transparent, or not finite.
int32_t ProjectParticles(const ViewProjection& view, const VectorLanes& positions,
                         const VectorLanes& directions, const AppearanceLanes& appearance,
                         const int32_t* indices, int32_t count, ProjectedParticle* out);

}  // namespace vantle
