// Reading and writing the records behind the parameters of custom controls.
#pragma once

#include "host_api/call_records.h"
#include "ui/host_handles.h"

#include <cstring>

namespace vantle {

/// Copies the value of a custom parameter. False, and nothing copied, when the handle is absent, cannot be
/// locked or holds a record of the other kind.
template <class Record>
bool ReadValue(const PF_InData* in_data, const PF_ParamDef& param, Record* record) {
  return CopyFromHandle(in_data, param.u.arb_d.value, record);
}

/// Writes the value back, in place, and marks it changed, which makes the host record an undo step and
/// render. False, and nothing done, as above.
template <class Record>
bool CommitValue(const PF_InData* in_data, PF_ParamDef* param, const Record& record) {
  const PF_Handle handle = param->u.arb_d.value;
  if (HandleSize(in_data, handle) != sizeof(Record)) return false;
  const ScopedHandleLock lock(in_data, handle);
  if (lock.data() == nullptr) return false;
  std::memcpy(lock.data(), &record, sizeof(Record));
  param->uu.change_flags = PF_ChangeFlag_CHANGED_VALUE;
  return true;
}

}  // namespace vantle
