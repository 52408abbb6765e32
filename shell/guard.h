// The wall between our exceptions and the host, which knows error numbers only.
#pragma once

#include "host_api/commands.h"

namespace vantle {

/// Runs a handler and returns its result. A host error raised as an integer is returned as it is; whatever
/// else is thrown, running out of memory among it, becomes PF_Err_INTERNAL_STRUCT_DAMAGED.
template <class Handler>
PF_Err Guarded(const Handler& handler) noexcept {
  try {
    return handler();
  } catch (const PF_Err error) {
    return error;
  } catch (...) {
    return PF_Err_INTERNAL_STRUCT_DAMAGED;
  }
}

}  // namespace vantle
