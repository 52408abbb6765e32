// The composition's camera, asked of the host.
#pragma once

#include "host_api/call_records.h"
#include "particles/frame_settings.h"

namespace vantle {

/// The camera at the frame's time. Without one, in Premiere Pro and when any call fails there is none. The
/// depth-of-field controls are read only when the settings ask for them.
CameraData ReadCamera(const PF_InData& in_data, const FrameSettings& settings);

}  // namespace vantle
