// Memory blocks that the host owns, reached through its handle callbacks only.
#pragma once

#include "host_api/call_records.h"

#include <cstddef>
#include <cstdint>
#include <cstring>

namespace vantle {

/// The host's handle callbacks, or null.
inline const PF_UtilCallbacks* HandleCallbacks(const PF_InData* in_data) {
  return in_data != nullptr ? in_data->utils : nullptr;
}

/// Bytes in a handle; 0 when it is absent or the host cannot tell.
inline uint64_t HandleSize(const PF_InData* in_data, PF_Handle handle) {
  const PF_UtilCallbacks* host = HandleCallbacks(in_data);
  if (handle == nullptr || host == nullptr || host->host_get_handle_size == nullptr) return 0;
  return host->host_get_handle_size(handle);
}

inline void DisposeHandle(const PF_InData* in_data, PF_Handle handle) {
  const PF_UtilCallbacks* host = HandleCallbacks(in_data);
  if (handle == nullptr || host == nullptr || host->host_dispose_handle == nullptr) return;
  host->host_dispose_handle(handle);
}

/// A handle's block, locked for one scope. The address is null when the handle is absent or cannot be locked;
/// it is aligned to nothing in particular.
class ScopedHandleLock {
 public:
  ScopedHandleLock(const PF_InData* in_data, PF_Handle handle)
      : host_(HandleCallbacks(in_data)), handle_(handle) {
    if (handle_ != nullptr && host_ != nullptr && host_->host_lock_handle != nullptr) {
      data_ = host_->host_lock_handle(handle_);
    }
  }
  ~ScopedHandleLock() {
    if (data_ != nullptr && host_->host_unlock_handle != nullptr) host_->host_unlock_handle(handle_);
  }
  ScopedHandleLock(const ScopedHandleLock&) = delete;
  ScopedHandleLock& operator=(const ScopedHandleLock&) = delete;

  void* data() const { return data_; }

 private:
  const PF_UtilCallbacks* host_;
  PF_Handle handle_;
  void* data_ = nullptr;
};

/// A new handle of exactly `size` bytes that holds a copy of `bytes`; null when the host gives none or cannot
/// lock it, since a block that was never filled must not reach a project.
inline PF_Handle NewHandle(const PF_InData* in_data, const void* bytes, size_t size) {
  const PF_UtilCallbacks* host = HandleCallbacks(in_data);
  if (host == nullptr || host->host_new_handle == nullptr) return nullptr;
  const PF_Handle handle = host->host_new_handle(size);
  if (handle == nullptr) return nullptr;
  {
    const ScopedHandleLock lock(in_data, handle);
    if (lock.data() != nullptr) {
      std::memcpy(lock.data(), bytes, size);
      return handle;
    }
  }
  DisposeHandle(in_data, handle);
  return nullptr;
}

/// Copies a stored record out of its handle. False, with `record` untouched, when the handle is absent, holds
/// another number of bytes or cannot be locked.
template <class Record>
bool CopyFromHandle(const PF_InData* in_data, PF_Handle handle, Record* record) {
  if (HandleSize(in_data, handle) != sizeof(Record)) return false;
  const ScopedHandleLock lock(in_data, handle);
  if (lock.data() == nullptr) return false;
  std::memcpy(record, lock.data(), sizeof(Record));
  return true;
}

}  // namespace vantle
