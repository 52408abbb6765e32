// How much of a pixel a particle covers. These are the formulas of every renderer, in plain expressions that
// a shading language understands as well. All arithmetic is in float32, in the written order, with true
// divisions: results must be the same bits wherever they are computed. A pixel is taken at its column and
// row, without a half-pixel offset.
#pragma once

#include "particles/frame_settings.h"
#include "render/kernel_math.h"

namespace vantle::kernel {

/// A particle as the formulas see it; the graphics processor reads this very record.
struct Particle {
  float sx, sy;            ///< centre, pixels
  float size;              ///< radius of round shapes, length of lines; pixels
  float lineWidth;         ///< full stroke width, pixels
  float r, g, b;           ///< straight colour
  float alpha;             ///< opacity 0..1
  float rotX, rotY, rotZ;  ///< degrees
  float cocRadius;         ///< blur radius, pixels
};
static_assert(sizeof(Particle) == 48);

/// What of a particle's geometry is the same for all its pixels.
struct ShapeFrame {
  float sx, sy;     ///< centre
  float r;          ///< size
  float cocRadius;  ///< blur radius
  float blurW;      ///< width of the soft edge, at least a pixel
  float halfLW;     ///< half the stroke
  float cx, cy;     ///< cosines of the tilts
  float cz, sz;     ///< cosine and sine of the spin
  float ax, ay;     ///< where a line starts
  float bx, by;     ///< where it ends
};

/// blurW = max(1, 2 coc); the line runs from centre - e to centre + e, e = (cz, sz) r / 2.
inline ShapeFrame placeShape(const Particle& p, float cx, float cy, float cz, float sz) {
  ShapeFrame f;
  f.sx = p.sx;
  f.sy = p.sy;
  f.r = p.size;
  f.cocRadius = p.cocRadius;
  f.blurW = max(1.0f, 2.0f * p.cocRadius);
  f.halfLW = p.lineWidth * 0.5f;
  f.cx = cx;
  f.cy = cy;
  f.cz = cz;
  f.sz = sz;
  const float ex = cz * p.size * 0.5f;
  const float ey = sz * p.size * 0.5f;
  f.ax = p.sx - ex;
  f.ay = p.sy - ey;
  f.bx = p.sx + ex;
  f.by = p.sy + ey;
  return f;
}

/// Cosines of the two tilts, cosine and sine of the spin. Degrees become radians by 0.017453292.
inline ShapeFrame prepareShape(const Particle& p) {
  const float cx = cos(p.rotX * 0.017453292f);
  const float cy = cos(p.rotY * 0.017453292f);
  const float cz = cos(p.rotZ * 0.017453292f);
  const float sz = sin(p.rotZ * 0.017453292f);
  return placeShape(p, cx, cy, cz, sz);
}

/// `sdSegment`: distance to the closest point A + t AB of a segment, t = clamp(AP.AB / (|AB|^2 + 1e-12), 0,
/// 1).
template <class Real>
inline Real sdSegment(Real px, Real py, float ax, float ay, float bx, float by) {
  const float abx = bx - ax;
  const float aby = by - ay;
  const Real t = clamp(((px - ax) * abx + (py - ay) * aby) / (abx * abx + aby * aby + 1e-12f), 0.0f, 1.0f);
  const Real dx = px - (ax + t * abx);
  const Real dy = py - (ay + t * aby);
  return sqrt(dx * dx + dy * dy);
}

/// `sdSegmentSquare`: distance to the line through A and B, |AP x AB| / len, where the foot lies between A
/// and B, 0 <= AP.AB / len <= len; 1e9 elsewhere, and everywhere when A and B are one point.
/// len = sqrt(|AB|^2 + 1e-12).
template <class Real>
inline Real sdSegmentSquare(Real px, Real py, float ax, float ay, float bx, float by) {
  const float abx = bx - ax;
  const float aby = by - ay;
  const Real apx = px - ax;
  const Real apy = py - ay;
  const float len = sqrt(abx * abx + aby * aby + 1e-12f);
  const Real along = (apx * abx + apy * aby) / len;
  const Real across = abs(apx * aby - apy * abx) / len;
  const float end = abx == 0.0f && aby == 0.0f ? -1.0f : len;
  return select(either(along > end, along < 0.0f), 1e9f, across);
}

/// `sdArrow`: |perp| - halfLW along the shaft, 0 <= along <= shaftEnd = len - headLen; beside the head
/// |perp| - headHalfW (1 - (along - shaftEnd) / headLen), up to the tip B; 1e9 elsewhere.
template <class Real>
inline Real sdArrow(Real px, Real py, float ax, float ay, float bx, float by, float halfLW, float headLen,
                    float headHalfW) {
  const float abx = bx - ax;
  const float aby = by - ay;
  const Real apx = px - ax;
  const Real apy = py - ay;
  const float len = sqrt(abx * abx + aby * aby + 1e-12f);
  const float ux = abx / len;
  const float uy = aby / len;
  const Real along = apx * ux + apy * uy;
  const Real perp = abs(apx * -uy + apy * ux);
  const float shaftEnd = len - headLen;
  const Real shaft = perp - halfLW;
  const Real head = perp - headHalfW * (1.0f - (along - shaftEnd) / headLen);
  const Real beyond = select(both(along > shaftEnd, along <= len), head, 1e9f);
  return select(both(along >= 0.0f, along <= shaftEnd), shaft, beyond);
}

/// clamp((halfLW - d) / blurW + 0.5, 0, 1), d the distance to the segment with round or with flat ends. A
/// line of no length is a dot with round ends and nothing with flat ones, where the 1e-12 would let it cover
/// all.
template <class Real>
inline Real lineCoverage(Real px, Real py, const ShapeFrame& f, bool roundCap) {
  const Real d =
      roundCap ? sdSegment(px, py, f.ax, f.ay, f.bx, f.by) : sdSegmentSquare(px, py, f.ax, f.ay, f.bx, f.by);
  const Real c = clamp((f.halfLW - d) / f.blurW + 0.5f, 0.0f, 1.0f);
  const bool empty = !roundCap && f.ax == f.bx && f.ay == f.by;
  return select(empty, 0.0f, c);
}

/// clamp(-d / blurW + 0.5, 0, 1) for an arrow whose head is 0.35 r long and 2.5 strokes wide.
template <class Real>
inline Real arrowCoverage(Real px, Real py, const ShapeFrame& f) {
  const Real d = sdArrow(px, py, f.ax, f.ay, f.bx, f.by, f.halfLW, f.r * 0.35f, f.halfLW * 2.5f);
  return clamp(-d / f.blurW + 0.5f, 0.0f, 1.0f);
}

/// clamp((radius - |l|) / blurW + 0.5, 0, 1).
template <class Real>
inline Real discCoverage(Real lx, Real ly, float radius, float blurW) {
  const Real dist = sqrt(lx * lx + ly * ly);
  return clamp((radius - dist) / blurW + 0.5f, 0.0f, 1.0f);
}

/// A cone: 1 - |l| / effR up to effR = r + coc, where it is 0, and 0 beyond. A cone of no size covers
/// nothing: its tip is beyond.
template <class Real>
inline Real softCircleCoverage(Real lx, Real ly, float r, float cocRadius) {
  const float effR = r + cocRadius;
  const Real dist = sqrt(lx * lx + ly * ly);
  return select(dist < effR, 1.0f - dist / effR, 0.0f);
}

/// Three half-planes of the triangle with circumradius r, t = l / r: ty + 0.5, +-0.866 tx - 0.5 ty + 0.5;
/// clamp(their minimum * r / blurW + 0.5, 0, 1). It points down. A triangle of no size covers nothing.
template <class Real>
inline Real triangleCoverage(Real lx, Real ly, float r, float blurW) {
  const Real tx = lx / r;
  const Real ty = ly / r;
  const Real dBot = ty + 0.5f;
  const Real dLeft = 0.866f * tx - 0.5f * ty + 0.5f;
  const Real dRight = -0.866f * tx - 0.5f * ty + 0.5f;
  const Real c = clamp(min(min(dBot, dLeft), dRight) * r / blurW + 0.5f, 0.0f, 1.0f);
  return select(r == 0.0f, 0.0f, c);
}

/// clamp(min(r - |lx|, r - |ly|) / blurW + 0.5, 0, 1).
template <class Real>
inline Real squareCoverage(Real lx, Real ly, float r, float blurW) {
  return clamp(min(r - abs(lx), r - abs(ly)) / blurW + 0.5f, 0.0f, 1.0f);
}

/// Coverage at (lx, ly) of the shape's own plane; 0 for an id that is no plane shape.
template <class Real>
inline Real planeCoverage(Real lx, Real ly, const ShapeFrame& f, int shape) {
  if (shape == SHAPE_POINT) return discCoverage(lx, ly, 1.0f, f.blurW);
  if (shape == SHAPE_CIRCLE) return discCoverage(lx, ly, f.r, f.blurW);
  if (shape == SHAPE_SOFT_CIRCLE) return softCircleCoverage(lx, ly, f.r, f.cocRadius);
  if (shape == SHAPE_TRIANGLE) return triangleCoverage(lx, ly, f.r, f.blurW);
  if (shape == SHAPE_SQUARE) return squareCoverage(lx, ly, f.r, f.blurW);
  return 0.0f;
}

/// Whether the plane is seen from its edge, where the shape vanishes: |cos| of a tilt below 0.05.
inline bool isEdgeOn(const ShapeFrame& f) {
  return abs(f.cx) < 0.05f || abs(f.cy) < 0.05f;
}

/// The pixel in the shape's plane: turned back by the spin, then stretched by the tilts,
/// lx = (dx cz + dy sz) / cy, ly = (-dx sz + dy cz) / cx.
template <class Real>
inline Real localX(Real dx, Real dy, const ShapeFrame& f) {
  return (dx * f.cz + dy * f.sz) / f.cy;
}
template <class Real>
inline Real localY(Real dx, Real dy, const ShapeFrame& f) {
  return (-dx * f.sz + dy * f.cz) / f.cx;
}

/// `computeCoverage`: share 0..1 of the pixel that the particle covers.
template <class Real>
inline Real computeCoverage(Real px, Real py, const ShapeFrame& f, int shape, bool roundCap) {
  if (shape == SHAPE_LINE) return lineCoverage(px, py, f, roundCap);
  if (shape == SHAPE_ARROW) return arrowCoverage(px, py, f);
  if (isEdgeOn(f)) return 0.0f;
  const Real dx = px - f.sx;
  const Real dy = py - f.sy;
  return planeCoverage(localX(dx, dy, f), localY(dx, dy, f), f, shape);
}

/// Half the box of a turned and tilted plane shape: r (|cy cz| + |cx sz|) + coc + 1, and with sines and
/// cosines exchanged.
inline float planeExtentX(const ShapeFrame& f) {
  return f.r * (abs(f.cy * f.cz) + abs(f.cx * f.sz)) + f.cocRadius + 1.0f;
}
inline float planeExtentY(const ShapeFrame& f) {
  return f.r * (abs(f.cy * f.sz) + abs(f.cx * f.cz)) + f.cocRadius + 1.0f;
}

/// Half the square box of a line or an arrow: max(|ex|, |ey|) + w + coc + 2, w half the stroke, or half the
/// width of an arrow's head.
inline float lineExtent(const ShapeFrame& f, int shape) {
  const float ex = abs(f.cz * f.r * 0.5f);
  const float ey = abs(f.sz * f.r * 0.5f);
  const float w = shape == SHAPE_ARROW ? f.halfLW * 2.5f : f.halfLW;
  return max(ex, ey) + w + f.cocRadius + 2.0f;
}

/// Half the box outside of which no pixel is touched. Plane shapes: their extents and coc + 1 more, the width
/// that a blurred tip needs.
inline float boundsExtentX(const ShapeFrame& f, int shape) {
  if (shape == SHAPE_LINE || shape == SHAPE_ARROW) return lineExtent(f, shape);
  return planeExtentX(f) + f.cocRadius + 1.0f;
}
inline float boundsExtentY(const ShapeFrame& f, int shape) {
  if (shape == SHAPE_LINE || shape == SHAPE_ARROW) return lineExtent(f, shape);
  return planeExtentY(f) + f.cocRadius + 1.0f;
}

/// `inBounds`: the cheap test ahead of the coverage.
inline bool inBounds(float px, float py, const ShapeFrame& f, int shape) {
  return abs(px - f.sx) <= boundsExtentX(f, shape) && abs(py - f.sy) <= boundsExtentY(f, shape);
}

/// At least the box's half, whatever the rotation, with a pixel to spare for rounding; no sine is needed. A
/// turned square reaches 1.41422 of its size.
inline float boundsReach(const Particle& p, int shape) {
  const float blur = 2.0f * abs(p.cocRadius) + 3.0f;
  if (shape == SHAPE_LINE || shape == SHAPE_ARROW)
    return 0.5f * abs(p.size) + 1.25f * abs(p.lineWidth) + blur;
  return 1.41422f * abs(p.size) + blur;
}

}  // namespace vantle::kernel
