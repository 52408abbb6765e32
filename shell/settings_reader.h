// From the host's parameter array to the frame's settings.
#pragma once

#include "host_api/call_records.h"
#include "particles/frame_settings.h"

namespace vantle {

/// Reads every parameter of the frame, its clock and its sizes. Cannot fail: a parameter that the host does
/// not hand over counts as its default. `params` may be null or hold nulls.
FrameSettings ReadFrameSettings(const PF_InData& in_data, PF_ParamDef* const* params,
                                const PF_LayerDef& output);

}  // namespace vantle
