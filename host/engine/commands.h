// The records of one command, and the call itself.
#pragma once

#include "host/engine/call_context.h"
#include "host_api/call_records.h"

#include <string>

namespace vantle::host {

struct CommandRecords {
  PF_InData in{};
  PF_OutData out{};
};

/// Records as hosts fill them: what holds for every command, and clock and sizes when `request` is given.
CommandRecords MakeRecords(CallContext& context, const FrameRequest* request);

/// Calls the effect with `context` as the running command. An exception that comes out counts as error 512
/// and as a problem.
PF_Err CallEffect(CallContext& context, PF_Cmd command, CommandRecords& records, PF_ParamDef** params,
                  PF_LayerDef* output, void* extra);

/// The text in return_msg, which is cleared; a text without its zero is a problem.
std::string TakeMessage(CallContext& context, PF_OutData& out);

/// A command's number by its usual name, "RENDER".
std::string CommandName(PF_Cmd command);

}  // namespace vantle::host
