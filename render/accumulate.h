// One particle at one pixel, from the bounds to the blend: the loop body of the graphics processor and the
// measure for the row loops of the processor.
#pragma once

#include "render/coverage.h"
#include "render/transfer.h"

namespace vantle::kernel {

/// `accumParticle`: inside the bounds, where the coverage is above 0.001, lays the particle over the pixel
/// with its opacity times the coverage. Pixels beyond the reach are turned away before any sine is computed.
inline void accumParticle(float px, float py, const Particle& p, int shape, int mode, bool roundCap,
                          float& dstR, float& dstG, float& dstB, float& dstA) {
  const float reach = boundsReach(p, shape);
  if (abs(px - p.sx) > reach || abs(py - p.sy) > reach) return;
  const ShapeFrame f = prepareShape(p);
  if (!inBounds(px, py, f, shape)) return;
  const float coverage = computeCoverage(px, py, f, shape, roundCap);
  if (coverage > 0.001f) blendPixel(p.r, p.g, p.b, p.alpha * coverage, dstR, dstG, dstB, dstA, mode);
}

}  // namespace vantle::kernel
