// How the host learns of the effect before it ever runs it.
#pragma once

#include "host_api/entry_points.h"

namespace vantle {

/// Calls `callback` once with the effect's identity and returns its result; PF_Err_BAD_CALLBACK_PARAM
/// without a callback.
PF_Err RegisterEffect(PF_PluginDataPtr plugin, PF_PluginDataCB callback);

}  // namespace vantle
