// Where a layer that is shown as a solid image on its plane appears in the output.
#pragma once

#include "particles/frame_settings.h"

#include <cstdint>

namespace vantle {

/// A perspective map from output pixels to the layer's texels, and the box of output pixels it concerns.
struct SolidPlacement {
  /// Row-major homography: (U, V, W) = toLayer * (x, y, 1), texel position (U / W, V / W). Output pixel (x,
  /// y) is taken at (x, y), and texel k stands at position k.
  double toLayer[9];
  int32_t x0, x1, y0, y1;  ///< output pixels that can lie on the layer, both ends included
};

/// Places a layer of `width` x `height` texels, centred on the output, on its plane and projects it as the
/// particles are projected. False when it covers nothing that can be drawn: a corner that is not finite, less
/// than a hundredth of a square pixel, seen from its edge, or outside the output.
bool PlaceSolidLayer(const FrameSettings& settings, const CameraData& camera, const PlaneSettings& plane,
                     int32_t width, int32_t height, SolidPlacement* placement);

/// How strongly the two solid layers show at this moment of the transition.
struct SolidWeights {
  float a = 0.0f;
  float b = 0.0f;
};

/// Both 0 while the solids are switched off or the fade is too short to be seen (0.001 or less).
SolidWeights WeighSolids(const FrameSettings& settings);

}  // namespace vantle
