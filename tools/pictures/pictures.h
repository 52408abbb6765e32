// The pictures that the examples start from and end in, drawn by formula.
#pragma once

#include "tools/pictures/canvas.h"

namespace pictures {

Canvas DrawFlower(int width, int height);
Canvas DrawButterfly(int width, int height);

Canvas DrawKnot(int width, int height);
Canvas DrawStar(int width, int height);

/// A moon lit from `sunAngle` radians to the right of the viewer: 0 is full, pi/2 half.
Canvas DrawMoon(int side, float sunAngle);

/// A sun with twelve rays, turned by `turn` of a full turn.
Canvas DrawSun(int side, float turn);

/// An evening sky that fills the frame.
Canvas DrawDusk(int width, int height);

}  // namespace pictures
