// Projection on lanes. Included after a lanes_*.h.
#pragma once

#include "particles/elementary_lanes.h"
#include "particles/motion_lanes.h"
#include "particles/projection.h"

#include <bit>
#include <cstdint>
#include <limits>

namespace vantle {
namespace {

struct ScreenLanes {
  Floats x, y, scale, depth;
  Mask farEnough;
};

inline ScreenLanes ProjectSimplyOf(const ViewProjection& v, const PlaceLanes& p) {
  Floats k = 1.0f;
  if (!v.orthographic) k = v.focal / Max(v.focal + p.z, 0.05f * v.focal);
  return {(p.x - v.centreX) * k + v.centreX, (p.y - v.centreY) * k + v.centreY, k, p.z, AllLanes()};
}

inline ScreenLanes ProjectByCameraOf(const ViewProjection& v, const PlaceLanes& p) {
  const Doubles x = ToDoubles(p.x), y = ToDoubles(p.y), z = ToDoubles(p.z);
  const Doubles depth = v.m[2] * x + v.m[6] * y + v.m[10] * z + v.m[14];
  const Doubles k = v.imagePlaneDistance / depth;
  const Doubles sx = k * (v.m[0] * x + v.m[4] * y + v.m[8] * z + v.m[12]) + v.cameraCentreX;
  const Doubles sy = k * (v.m[1] * x + v.m[5] * y + v.m[9] * z + v.m[13]) + v.cameraCentreY;
  const Mask tooNear = MaskOf(depth < kNearestDepth);
  return {ToFloats(sx), ToFloats(sy), ToFloats(k), ToFloats(depth), AndNot(tooNear, AllLanes())};
}

inline Mask IsFiniteOf(Floats v) {
  constexpr float kLargest = std::numeric_limits<float>::max();
  return Abs(v) <= kLargest;
}

inline Floats BlurRadii(const ViewProjection& v, Floats depth) {
  if (!v.depthOfField) return 0.0f;
  return Abs(depth - v.focusDistance) * v.aperture * v.zoom / (v.focusDistance * depth) * 0.5f;
}

/// Turned along the motion by the simple view, where there is one.
inline Floats OrientSimplyOf(const VectorLanes& directions, int32_t l, Floats rotZ) {
  const Floats x = Load(directions.x + l), y = Load(directions.y + l);
  const Mask moves = 0.0001f < x * x + y * y;
  return Select(moves, Atan2Of(y, x) * 57.29578f, rotZ);
}

/// Fills the records but for the rotation seen by a camera, and returns a bit for every visible lane.
inline uint32_t ProjectLanes(const ViewProjection& view, const VectorLanes& positions,
                             const VectorLanes& directions, const AppearanceLanes& a, RecordLanes* out) {
  uint32_t visible = 0;
  for (int32_t l = 0; l < kLanes; l += kWidth) {
    const PlaceLanes place = LoadPlace(positions, l);
    const ScreenLanes screen = view.hasCamera ? ProjectByCameraOf(view, place) : ProjectSimplyOf(view, place);
    const Floats size = Load(a.size + l) * screen.scale, alpha = Load(a.opacity + l);
    Mask shown = And(And(0.1f < size, 0.001f < alpha), screen.farEnough);
    shown = And(shown, And(And(IsFiniteOf(size), IsFiniteOf(screen.depth)),
                           And(IsFiniteOf(screen.x), IsFiniteOf(screen.y))));
    visible |= BitsOf(shown) << l;

    Store(out->sx + l, screen.x);
    Store(out->sy + l, screen.y);
    Store(out->size + l, size);
    Store(out->lineWidth + l, Load(a.lineWidth + l) * screen.scale);
    Store(out->r + l, Load(a.r + l));
    Store(out->g + l, Load(a.g + l));
    Store(out->b + l, Load(a.b + l));
    Store(out->alpha + l, alpha);
    const bool orientsSimply = view.autoOrient && !view.hasCamera;
    const Floats rotZ = Load(a.rotZ + l);
    Store(out->rotX + l, Load(a.rotX + l));
    Store(out->rotY + l, Load(a.rotY + l));
    Store(out->rotZ + l, orientsSimply ? OrientSimplyOf(directions, l, rotZ) : rotZ);
    Store(out->cocRadius + l, view.hasCamera ? BlurRadii(view, screen.depth) : 0.0f);
    Store(out->depth + l, screen.depth);
    Store(out->random + l, Load(a.random + l));
  }
  return visible;
}

/// Writes lanes 0..count-1 of the records that `visible` names one behind the other and returns how many
/// those are. What is not visible is overwritten by the next.
inline int32_t StoreRecords(const RecordLanes& records, const int32_t* indices, uint32_t visible,
                            int32_t count, ProjectedParticle* out) {
  const RecordLanes& r = records;
  int32_t kept = 0;
  for (int32_t from = 0; from < count; from += 4) {
    __m128 place[4], color[4], turn[4], rest[4];
    Transpose4(r.sx + from, r.sy + from, r.size + from, r.lineWidth + from, place);
    Transpose4(r.r + from, r.g + from, r.b + from, r.alpha + from, color);
    Transpose4(r.rotX + from, r.rotY + from, r.rotZ + from, r.cocRadius + from, turn);
    Transpose4(r.depth + from, r.random + from, r.random + from, r.random + from, rest);
    const int32_t end = count - from < 4 ? count - from : 4;
    for (int32_t l = 0; l < end; ++l) {
      ProjectedParticle* p = out + kept;
      _mm_storeu_ps(&p->sx, place[l]);
      _mm_storeu_ps(&p->r, color[l]);
      _mm_storeu_ps(&p->rotX, turn[l]);
      _mm_storeu_ps(&p->depth, rest[l]);
      p->spriteFrame = -1;
      p->curvePoints = static_cast<uint32_t>(indices[from + l]);
      kept += static_cast<int32_t>(visible >> (from + l) & 1u);
    }
  }
  return kept;
}

}  // namespace
}  // namespace vantle
