// Distances to strokes: segments, arrows and the trails of curved shapes.
#pragma once

#include "base/vec.h"
#include "tests/reference/shape_coverage.h"

#include <vector>

namespace vantle::reference {

/// What is nowhere near.
inline constexpr float kFarAway = 1e9f;

/// Distance to the closest point of the segment.
float RoundSegmentDistance(const Vec2& p, const Vec2& a, const Vec2& b);

/// Distance to the line through a and b beside the segment, far away beyond its ends. Everything lies on a
/// segment without length, as the guard against division by zero has it.
float ButtSegmentDistance(const Vec2& p, const Vec2& a, const Vec2& b);

/// Signed distance, inside negative, to an arrow from a to b: a shaft, then a head that narrows to b.
float ArrowDistance(const Vec2& p, const Vec2& a, const Vec2& b, float shaftHalf, float headLength,
                    float headHalf);

/// The bounding box of a curve of at least one point, widened on every side.
Region BoundsOf(const std::vector<Vec2>& curve, float margin);

}  // namespace vantle::reference
