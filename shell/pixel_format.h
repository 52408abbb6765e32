// The host's worlds as pictures of ours.
#pragma once

#include "base/image_view.h"
#include "host_api/call_records.h"
#include "host_api/worlds.h"

namespace vantle {

/// Depth of the frame's worlds; 8 bit when the host cannot tell or names a format that is not alpha, red,
/// green, blue.
PixelDepth QueryPixelDepth(const PF_InData& in_data, const PF_LayerDef& output);

/// The world's pixels, none when the world has no data, a size outside 1..30000 or rows that are shorter than
/// its width in that depth.
ImageView ViewWorld(const PF_LayerDef& world, PixelDepth depth);
MutableImage ViewOutput(const PF_LayerDef& world, PixelDepth depth);

}  // namespace vantle
