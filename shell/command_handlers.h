// The handlers of the commands. They return host errors, and may raise one by throwing it as a PF_Err.
#pragma once

#include "host_api/call_records.h"
#include "host_api/commands.h"

namespace vantle {

/// Writes the about text into the return message. Throws PF_Err_BAD_CALLBACK_PARAM when the host cannot
/// format text. Does nothing in Premiere Pro.
PF_Err ShowAbout(const PF_InData* in_data, PF_OutData* out_data);

/// Declares version and flags, and registers for the general plug-in services where the host has them.
PF_Err SetUpGlobally(const PF_InData* in_data, PF_OutData* out_data);

/// Gives back what lives between the global set-up and now.
PF_Err SetDownGlobally();

/// The id that the general plug-in services know the effect by; 0 without them.
AEGP_PluginID GeneralPluginId();

/// Declares the parameters and the custom controls; the error of the first failing call ends it.
PF_Err SetUpParameters(const PF_InData* in_data, PF_OutData* out_data);

/// Renders one frame into `output`. Failing host calls are absorbed. Throws std::bad_alloc, with everything
/// checked in.
PF_Err RenderFrame(const PF_InData* in_data, PF_ParamDef* const* params, const PF_LayerDef* output);

}  // namespace vantle
