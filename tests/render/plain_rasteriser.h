// The rasteriser as one would write it first: one particle after another, one pixel after another, over the
// whole rectangle that the rules give, with every point of a trail looked at for every pixel.
#pragma once

#include "tests/render/canvas.h"

namespace vantle::test {

/// Coverage of a curve's pixel by the definition of the distance to a polyline.
float PlainCurveCoverage(float px, float py, const ProjectedParticle& p, const std::vector<Vec2>& points,
                         int32_t shape, bool roundCap);

/// Draws every shape but sprites.
void DrawPlainly(const Scene& scene, const Canvas& canvas);

}  // namespace vantle::test
