// A layer drawn as a flat image on its plane.
#pragma once

#include "base/image_view.h"
#include "particles/solid_plane.h"

namespace vantle {

/// Lays `layer`, which has the output's depth, over the output where `placement` puts it, `opacity` (0..1)
/// strong. Draws nothing at 0.001 or less. Every pixel outside the layer is left as it is; the result does
/// not depend on the number of threads.
void DrawSolidLayer(const MutableImage& output, const ImageView& layer, const SolidPlacement& placement,
                    float opacity);

}  // namespace vantle
