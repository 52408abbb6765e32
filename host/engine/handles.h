// Memory handles with exact sizes. Every use is checked: leaks, use and disposal after disposal, locks that
// do not match, writing past the end.
#pragma once

#include "host_api/basic_types.h"

#include <cstddef>
#include <cstdint>
#include <deque>
#include <memory>
#include <mutex>
#include <string>
#include <unordered_map>
#include <vector>

namespace vantle::host {

enum class HandleOwner { kHost, kEffect };

/// `data` stands first: the handle that effects see is this record's address. Behind the data lie guard
/// bytes.
struct HandleRecord {
  void* data = nullptr;
  A_u_longlong size = 0;
  int locks = 0;
  HandleOwner owner = HandleOwner::kHost;
  const void* maker = nullptr;  ///< in whose books it was made
  std::unique_ptr<std::uint8_t[]> storage;
};

/// All handles of an effect. Records of disposed handles are kept a while, so that their addresses are not
/// given out again and late uses are told from wild ones.
struct HandlePool {
  std::mutex mutex;
  std::unordered_map<const void*, std::unique_ptr<HandleRecord>> live;
  std::unordered_map<const void*, std::unique_ptr<HandleRecord>> disposed;
  std::deque<const void*> disposalOrder;
};

/// What went wrong with one use; empty when nothing did.
using HandleProblem = std::string;

/// A new handle of exactly `size` bytes (0 is allowed), filled with a pattern that is no sensible value.
/// Null when memory runs out.
PF_Handle NewHandle(HandlePool& pool, A_u_longlong size, HandleOwner owner, const void* maker);

/// Start of the data, or null with a problem.
void* LockHandle(HandlePool& pool, PF_Handle handle, HandleProblem& problem);
void UnlockHandle(HandlePool& pool, PF_Handle handle, HandleProblem& problem);
void DisposeHandle(HandlePool& pool, PF_Handle handle, HandleProblem& problem);
/// 0 with a problem.
A_u_longlong HandleSize(HandlePool& pool, PF_Handle handle, HandleProblem& problem);
/// Keeps the leading bytes; refused while locked.
bool ResizeHandle(HandlePool& pool, PF_Handle handle, A_u_longlong size, HandleProblem& problem);

/// From now on the host must give the handle back, or the effect, in whose books `maker` stands.
void SetHandleOwner(HandlePool& pool, PF_Handle handle, HandleOwner owner, const void* maker,
                    HandleProblem& problem);

/// The host's own looks at handles: a new one holding `bytes`, the bytes of one (empty when the handle is
/// null or unknown), the number of locks (-1 when unknown).
PF_Handle NewHandleFrom(HandlePool& pool, const std::vector<std::uint8_t>& bytes);
std::vector<std::uint8_t> HandleBytes(HandlePool& pool, PF_Handle handle);
int HandleLocks(HandlePool& pool, PF_Handle handle);

/// Whether it is there and not disposed.
bool IsLiveHandle(HandlePool& pool, PF_Handle handle);

/// Lines on handles that the effect made in the books of `maker` and neither gave back nor handed over; all
/// books when it is null. Those handles are then taken over by the host, so that each is reported once.
std::vector<std::string> FindLeaks(HandlePool& pool, const void* maker);

}  // namespace vantle::host
