#include "host/engine/handles.h"

#include <algorithm>
#include <cstring>
#include <new>

namespace vantle::host {
namespace {

constexpr std::size_t kGuardBytes = 32;
constexpr std::size_t kKeptDisposed = 4096;
constexpr std::uint8_t kFresh = 0xC7;
constexpr std::uint8_t kGuard = 0xE9;
constexpr std::uint8_t kStale = 0xDB;

/// Nothing when the memory cannot be had; sizes that no machine has must not wrap around.
std::unique_ptr<std::uint8_t[]> MakeStorage(A_u_longlong size) {
  if (size > (std::size_t{1} << 40)) {
    return nullptr;
  }
  const auto bytes = static_cast<std::size_t>(size);
  std::unique_ptr<std::uint8_t[]> storage(new (std::nothrow) std::uint8_t[bytes + kGuardBytes]);
  if (storage) {
    std::memset(storage.get(), kFresh, bytes);
    std::memset(storage.get() + bytes, kGuard, kGuardBytes);
  }
  return storage;
}

bool GuardsIntact(const HandleRecord& record) {
  const std::uint8_t* guard = record.storage.get() + record.size;
  return std::all_of(guard, guard + kGuardBytes, [](std::uint8_t byte) { return byte == kGuard; });
}

/// The live record, or null and what is wrong with the handle. The pool is locked by the caller.
HandleRecord* FindRecord(HandlePool& pool, PF_Handle handle, const char* doing, HandleProblem& problem) {
  if (handle == nullptr) {
    problem = std::string(doing) + " a null handle";
    return nullptr;
  }
  const auto found = pool.live.find(handle);
  if (found == pool.live.end()) {
    problem = std::string(doing) + (pool.disposed.count(handle) != 0 ? " a handle that was disposed"
                                                                     : " a handle that this host never made");
    return nullptr;
  }
  HandleRecord* record = found->second.get();
  if (!GuardsIntact(*record)) {
    problem = "wrote past the end of a handle of " + std::to_string(record->size) + " bytes";
    std::memset(record->storage.get() + record->size, kGuard, kGuardBytes);
  }
  return record;
}

void Retire(HandlePool& pool, const void* handle) {
  auto node = pool.live.extract(handle);
  HandleRecord& record = *node.mapped();
  std::memset(record.storage.get(), kStale, static_cast<std::size_t>(record.size));
  record.storage.reset();
  record.data = nullptr;
  pool.disposed.insert(std::move(node));
  pool.disposalOrder.push_back(handle);
  if (pool.disposalOrder.size() > kKeptDisposed) {
    pool.disposed.erase(pool.disposalOrder.front());
    pool.disposalOrder.pop_front();
  }
}

}  // namespace

PF_Handle NewHandle(HandlePool& pool, A_u_longlong size, HandleOwner owner, const void* maker) {
  auto record = std::make_unique<HandleRecord>();
  record->storage = MakeStorage(size);
  if (!record->storage) {
    return nullptr;
  }
  record->data = record->storage.get();
  record->size = size;
  record->owner = owner;
  record->maker = maker;
  const PF_Handle handle = &record->data;
  const std::lock_guard<std::mutex> guard(pool.mutex);
  pool.live.emplace(handle, std::move(record));
  return handle;
}

void* LockHandle(HandlePool& pool, PF_Handle handle, HandleProblem& problem) {
  const std::lock_guard<std::mutex> guard(pool.mutex);
  HandleRecord* record = FindRecord(pool, handle, "locked", problem);
  if (record == nullptr) {
    return nullptr;
  }
  ++record->locks;
  return record->data;
}

void UnlockHandle(HandlePool& pool, PF_Handle handle, HandleProblem& problem) {
  const std::lock_guard<std::mutex> guard(pool.mutex);
  HandleRecord* record = FindRecord(pool, handle, "unlocked", problem);
  if (record == nullptr) {
    return;
  }
  if (record->locks == 0) {
    problem = "unlocked a handle that was not locked";
  } else {
    --record->locks;
  }
}

void DisposeHandle(HandlePool& pool, PF_Handle handle, HandleProblem& problem) {
  const std::lock_guard<std::mutex> guard(pool.mutex);
  const HandleRecord* record = FindRecord(pool, handle, "disposed", problem);
  if (record == nullptr) {
    return;
  }
  if (record->locks != 0) {
    problem = "disposed a handle that was still locked";
  }
  Retire(pool, handle);
}

A_u_longlong HandleSize(HandlePool& pool, PF_Handle handle, HandleProblem& problem) {
  const std::lock_guard<std::mutex> guard(pool.mutex);
  const HandleRecord* record = FindRecord(pool, handle, "asked the size of", problem);
  return record == nullptr ? 0 : record->size;
}

bool ResizeHandle(HandlePool& pool, PF_Handle handle, A_u_longlong size, HandleProblem& problem) {
  const std::lock_guard<std::mutex> guard(pool.mutex);
  HandleRecord* record = FindRecord(pool, handle, "resized", problem);
  if (record == nullptr) {
    return false;
  }
  if (record->locks != 0) {
    problem = "resized a handle that was locked";
    return false;
  }
  auto storage = MakeStorage(size);
  if (!storage) {
    return false;
  }
  std::memcpy(storage.get(), record->storage.get(), static_cast<std::size_t>(std::min(size, record->size)));
  record->storage = std::move(storage);
  record->data = record->storage.get();
  record->size = size;
  return true;
}

void SetHandleOwner(HandlePool& pool, PF_Handle handle, HandleOwner owner, const void* maker,
                    HandleProblem& problem) {
  const std::lock_guard<std::mutex> guard(pool.mutex);
  HandleRecord* record = FindRecord(pool, handle, "handed over", problem);
  if (record != nullptr) {
    record->owner = owner;
    record->maker = maker;
  }
}

PF_Handle NewHandleFrom(HandlePool& pool, const std::vector<std::uint8_t>& bytes) {
  const PF_Handle handle = NewHandle(pool, bytes.size(), HandleOwner::kHost, nullptr);
  if (handle != nullptr && !bytes.empty()) {
    std::memcpy(*handle, bytes.data(), bytes.size());
  }
  return handle;
}

std::vector<std::uint8_t> HandleBytes(HandlePool& pool, PF_Handle handle) {
  const std::lock_guard<std::mutex> guard(pool.mutex);
  const auto found = pool.live.find(handle);
  if (found == pool.live.end()) {
    return {};
  }
  const HandleRecord& record = *found->second;
  return {record.storage.get(), record.storage.get() + record.size};
}

int HandleLocks(HandlePool& pool, PF_Handle handle) {
  const std::lock_guard<std::mutex> guard(pool.mutex);
  const auto found = pool.live.find(handle);
  return found == pool.live.end() ? -1 : found->second->locks;
}

bool IsLiveHandle(HandlePool& pool, PF_Handle handle) {
  const std::lock_guard<std::mutex> guard(pool.mutex);
  return pool.live.count(handle) != 0;
}

std::vector<std::string> FindLeaks(HandlePool& pool, const void* maker) {
  const std::lock_guard<std::mutex> guard(pool.mutex);
  std::vector<std::string> lines;
  for (auto& [address, record] : pool.live) {
    if (record->owner == HandleOwner::kEffect && (maker == nullptr || record->maker == maker)) {
      lines.push_back("handle of " + std::to_string(record->size) + " bytes never disposed");
      record->owner = HandleOwner::kHost;
    }
  }
  std::sort(lines.begin(), lines.end());
  return lines;
}

}  // namespace vantle::host
