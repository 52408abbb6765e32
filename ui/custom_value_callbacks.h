// The host's questions about the three custom values: it stores, copies, compares, blends and prints them,
// and knows nothing of what is in them.
#pragma once

#include "host_api/arbitrary_data.h"
#include "host_api/call_records.h"
#include "host_api/commands.h"
#include "ui/custom_value_kinds.h"

#include <cstdint>

namespace vantle {

/// Answers one callback. Returns PF_Err_OUT_OF_MEMORY when the host has no memory for a new value, else
/// success, also for functions that it does not know. Values, buffers and places for results may be absent,
/// and values may be of any size and content: nothing outside their bytes is read or written.
PF_Err HandleCustomValue(const PF_InData* in_data, PF_ArbParamsExtra* extra);

/// A new handle that holds the default of the value that a tag stands for; null without memory.
PF_Handle NewDefaultValue(const PF_InData* in_data, uint32_t tag);

/// A tag as the host carries it, and back.
inline void* TagToRefcon(uint32_t tag) {
  return reinterpret_cast<void*>(static_cast<uintptr_t>(tag));
}
inline uint32_t RefconToTag(const void* refcon) {
  return static_cast<uint32_t>(reinterpret_cast<uintptr_t>(refcon));
}

}  // namespace vantle
