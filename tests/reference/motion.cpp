#include "tests/reference/motion.h"

#include "base/elementary.h"
#include "base/numeric.h"
#include "tests/reference/custom_curves.h"
#include "tests/reference/particle_color.h"
#include "tests/reference/particle_path.h"
#include "tests/reference/random_streams.h"

#include <algorithm>
#include <bit>
#include <cmath>

namespace vantle::reference {
namespace {

const float kRadians = std::bit_cast<float>(0x3C8EFA36u);

float CentreX(const FrameSettings& s) {
  return static_cast<float>(s.fullWidth) * 0.5f;
}

float CentreY(const FrameSettings& s) {
  return static_cast<float>(s.fullHeight) * 0.5f;
}

float LargerSide(const FrameSettings& s) {
  return static_cast<float>(std::max(s.fullWidth, s.fullHeight));
}

// A point of a layer on its plane in the world; `depth` is -0.5..0.5 of the plane's thickness.
Vec3 OnPlane(const Point& point, float depth, const PlaneSettings& plane, const Rotation& r,
             const FrameSettings& s) {
  const float cx = CentreX(s);
  const float cy = CentreY(s);
  const float local[3] = {(point.x - cx) * plane.scale[0], (point.y - cy) * plane.scale[1],
                          depth * plane.thickness};
  const auto turned = [&](int i) {
    return r.row[i][0] * local[0] + r.row[i][1] * local[1] + r.row[i][2] * local[2];
  };
  return {turned(0) + (cx + plane.position[0]), turned(1) + (cy + plane.position[1]),
          turned(2) + plane.position[2]};
}

// The way between a start and a partner that does not exist.
Vec3 Jitter(uint32_t key, const FrameSettings& s) {
  const float theta = Angle(key, kSaltJitterAzimuth);
  const float w = DirectionZ(key, kSaltJitterZ);
  const float r = std::sqrt(std::max(0.0f, 1.0f - w * w));
  const float rho = JitterRadius(key, kSaltJitterRadius) * (LargerSide(s) / 4.0f);
  return {rho * (Cos(theta) * r), rho * (Sin(theta) * r), rho * w};
}

Vec3 Sum(const Vec3& a, const Vec3& b) {
  return {a.x + b.x, a.y + b.y, a.z + b.z};
}

// The particle's own progress: the frame's, delayed by a channel of one of its points.
float ProgressOf(const Point& emitter, const Point* target, float t, const FrameSettings& s) {
  const float stagger = std::min(std::fabs(s.stagger), 1.0f);
  if (stagger <= 0.001f) return t;

  // Alpha is always the emitting point's.
  const Point& colored = s.staggerFrom == 2 && target != nullptr ? *target : emitter;
  float c = ChannelOf(colored.r, colored.g, colored.b, emitter.alpha, s.staggerBy);
  if (s.stagger < 0.0f) c = 1.0f - c;

  const float delay = stagger * c;
  if (1.0f - stagger >= 0.001f) return Clamp((t - delay) / (1.0f - stagger), 0.0f, 1.0f);
  return t < delay ? 0.0f : 1.0f;
}

// Particles fade in and out while the solid layers are shown at both ends.
float EndFade(float t, const FrameSettings& s) {
  const float fade = std::min(s.fade, 0.5f);
  if (!s.showSolids || !(fade > 0.001f)) return 1.0f;
  if (t < fade) return t / fade;
  if (t > 1.0f - fade) return (1.0f - t) / fade;
  return 1.0f;
}

void SetLooks(WorldParticle& particle, uint32_t key, float t, float p, const FrameSettings& s) {
  const float opacity = (1.0f - Unit(key, kSaltOpacity) * s.opacityVariation) * s.opacity *
                        CurveAt(s.opacityOverLife, p) * EndFade(t, s);
  particle.opacity = Clamp(opacity, 0.0f, 1.0f);

  const float base = std::max((Signed(key, kSaltSize) * s.sizeVariation + 1.0f) * s.size, 0.5f);
  particle.size = std::max(base * CurveAt(s.scaleOverLife, p), 0.5f);
  particle.lineWidth =
      std::max((Signed(key, kSaltLineWidth) * s.lineWidthVariation + 1.0f) * s.lineWidth, 0.5f);

  const uint32_t salts[3] = {kSaltRotationX, kSaltRotationY, kSaltRotationZ};
  for (int a = 0; a < 3; ++a) {
    particle.rotation[a] = Signed(key, salts[a]) * s.rotationVariation[a] + s.rotation[a] + p * s.spin[a];
  }
  particle.random = Unit(key, kSaltRecord);
}

}  // namespace

Rotation RotationOf(float x, float y, float z) {
  const float sx = Sin(x), cx = Cos(x);
  const float sy = Sin(y), cy = Cos(y);
  const float sz = Sin(z), cz = Cos(z);
  return {{{cz * cy, cz * sy * sx - sz * cx, cz * sy * cx + sz * sx},
           {sz * cy, sz * sy * sx + cz * cx, sz * sy * cx - cz * sx},
           {-sy, cy * sx, cy * cx}}};
}

MotionFrame MotionFrameOf(const FrameSettings& s) {
  const auto rotationOf = [](const PlaneSettings& plane) {
    return RotationOf(plane.rotation[0] * kRadians, plane.rotation[1] * kRadians,
                      plane.rotation[2] * kRadians);
  };
  const float swirl = s.swirlAngle * kRadians;
  return {s, rotationOf(s.planeA), rotationOf(s.planeB), swirl, Sin(-swirl), Cos(-swirl)};
}

// With B alone a particle ends where it was picked and starts on a shell around it.
Ends PickEnds(const ParticleKeys& keys, const Layers& layers) {
  const bool hasA = !layers.a.points.empty();
  const bool hasB = !layers.b.points.empty();
  const Point* emitter = &Pick(hasA ? layers.a : layers.b, keys.emitterPick);
  const Point* target = nullptr;
  if (hasB) target = hasA ? &Pick(layers.b, keys.targetPick) : emitter;
  return {emitter, target, hasA};
}

WorldParticle SimulateOne(const ParticleKeys& keys, const Ends& ends, const MotionFrame& frame) {
  const FrameSettings& s = frame.settings;
  const float t = Clamp(s.transform, 0.0f, 1.0f);

  // Place the ends on the planes.
  Path path;
  const float depth = Unit(keys.key, kSaltThickness) - 0.5f;
  const bool hasB = ends.target != nullptr;
  if (ends.startsOnA) path.start = OnPlane(*ends.emitter, depth, s.planeA, frame.planeA, s);
  if (hasB) path.end = OnPlane(*ends.target, depth, s.planeB, frame.planeB, s);
  if (!hasB) path.end = Sum(path.start, Jitter(keys.key, s));
  if (!ends.startsOnA) path.start = Sum(path.end, Jitter(keys.key, s));
  path.key = keys.key;
  path.centreX = CentreX(s);
  path.centreY = CentreY(s);
  path.largerSide = LargerSide(s);
  path.swirl = frame.swirl;
  path.bentEnd = path.end;
  if (path.swirl != 0.0f) path.bentEnd = Turned(path.end, frame.unswirlSine, frame.unswirlCosine, path);

  const float p = ProgressOf(*ends.emitter, ends.target, t, s);
  WorldParticle particle;
  particle.position = PositionAt(path, p, s);
  if (s.autoOrient) particle.direction = DirectionAt(path, p, s);
  particle.color = ColorOf(*ends.emitter, ends.target, keys.key, p, s);
  SetLooks(particle, keys.key, t, p, s);
  if (s.shape == SHAPE_CURVE_LINE || s.shape == SHAPE_CURVED_ARROW) {
    particle.trail = TrailBehind(path, p, t, particle.size, s);
  }
  return particle;
}

}  // namespace vantle::reference
