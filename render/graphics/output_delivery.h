// The graphics processor's floats, handed over to the host's world.
#pragma once

#include "base/image_view.h"

namespace vantle {

/// Writes packed pixels of four floats (alpha, red, green, blue; output.width of them a row) into the world's
/// rows. At 8 and 16 bits every channel is limited to 0..1, what is not above 0 becoming 0, multiplied by 255
/// or 32768 and truncated; floats are copied as they are. Bytes between a row's end and the next row's start
/// are not touched. Cannot fail; allocates nothing.
void DeliverPixels(const float* pixels, const MutableImage& output);

}  // namespace vantle
