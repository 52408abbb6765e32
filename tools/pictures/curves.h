// Closed outlines and open strokes made of cubic Bezier arcs, with distances to them.
#pragma once

#include "tools/pictures/canvas.h"

#include <vector>

namespace pictures {

using Polyline = std::vector<Point>;

struct Arc {
  Point control1;
  Point control2;
  Point end;
};

/// The arcs as a chain of short segments, 24 an arc.
Polyline Flatten(Point start, const std::vector<Arc>& arcs);

/// Each point scaled by (sx, sy) and moved.
Polyline Placed(const Polyline& line, float sx, float sy, Point offset);

/// Distance of a point to an open polyline in pixels; `along` is where, 0 at the start, 1 at the end.
float DistanceTo(const Polyline& line, Point point, float* along = nullptr);

/// Distance to a closed outline, positive inside.
float DepthIn(const Polyline& outline, Point point);

}  // namespace pictures
