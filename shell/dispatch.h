// Where every command of the host arrives.
#pragma once

#include "host_api/call_records.h"
#include "host_api/commands.h"

namespace vantle {

/// Hands a command to its handler and returns a host error, 0 for success. Commands that the effect does not
/// handle succeed without touching anything. Any pointer may be null. Nothing is ever thrown.
PF_Err DispatchCommand(PF_Cmd command, PF_InData* in_data, PF_OutData* out_data, PF_ParamDef* params[],
                       PF_LayerDef* output, void* extra) noexcept;

}  // namespace vantle
