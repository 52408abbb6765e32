// How one particle is laid over a pixel.
#pragma once

#include "tests/reference/pixel_codec.h"

#include <cstdint>

namespace vantle::reference {

/// The transfer mode's result for one channel.
float Transfer(float source, float destination, int32_t mode);

/// Lays `source` (its `a` is opacity times coverage) over `destination`, both straight colour. False, with
/// nothing changed, where the source is too transparent to count.
bool BlendOver(const Pixel& source, Pixel& destination, int32_t mode);

}  // namespace vantle::reference
