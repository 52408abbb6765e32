// Ids under which effects are known to the general plug-in services.
#pragma once

#include "host/engine/call_context.h"

namespace vantle::host {

/// Whether the id was ever given out to an effect of this process; notes a problem if not.
bool IsPluginId(CallContext& call, AEGP_PluginID id);

}  // namespace vantle::host
