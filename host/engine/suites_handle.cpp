// Memory handles. The same six functions are a suite and part of the callbacks.
#include "host/engine/call_context.h"
#include "host/engine/suites.h"

namespace vantle::host {
namespace {

void ComplainIf(CallContext& call, const HandleProblem& problem) {
  if (!problem.empty()) {
    Complain(call, problem);
  }
}

PF_Handle NewHostHandle(A_HandleSize size) {
  const Entry entry = EnterHostCall("host_new_handle");
  if (entry.call == nullptr) {
    return nullptr;
  }
  const bool allowed = MayAllocate(*entry.call) && entry.error == PF_Err_NONE;
  return allowed ? NewHandle(entry.call->effect->handles, size, HandleOwner::kEffect, entry.call->ledger)
                 : nullptr;
}

void* LockHostHandle(PF_Handle handle) {
  const Entry entry = EnterHostCall("host_lock_handle");
  if (entry.call == nullptr || entry.error != PF_Err_NONE || entry.call->faults->faults.locksReturnNull) {
    return nullptr;
  }
  HandleProblem problem;
  void* data = LockHandle(entry.call->effect->handles, handle, problem);
  ComplainIf(*entry.call, problem);
  if (data != nullptr) {
    Take(*entry.call->ledger, Item::kLock, "handle");
  }
  return data;
}

void UnlockHostHandle(PF_Handle handle) {
  const Entry entry = EnterHostCall("host_unlock_handle");
  if (entry.call == nullptr) {
    return;
  }
  HandleProblem problem;
  if (IsLiveHandle(entry.call->effect->handles, handle)) {
    Give(*entry.call->ledger, Item::kLock, "handle");
  }
  UnlockHandle(entry.call->effect->handles, handle, problem);
  ComplainIf(*entry.call, problem);
}

void DisposeHostHandle(PF_Handle handle) {
  const Entry entry = EnterHostCall("host_dispose_handle");
  if (entry.call == nullptr) {
    return;
  }
  HandleProblem problem;
  DisposeHandle(entry.call->effect->handles, handle, problem);
  ComplainIf(*entry.call, problem);
}

A_HandleSize HostHandleSize(PF_Handle handle) {
  const Entry entry = EnterHostCall("host_get_handle_size");
  if (entry.call == nullptr || entry.error != PF_Err_NONE) {
    return 0;
  }
  HandleProblem problem;
  const A_HandleSize size = HandleSize(entry.call->effect->handles, handle, problem);
  ComplainIf(*entry.call, problem);
  return size;
}

PF_Err ResizeHostHandle(A_HandleSize size, PF_Handle* handle) {
  const Entry entry = EnterHostCall("host_resize_handle");
  if (entry.call == nullptr || handle == nullptr) {
    return PF_Err_BAD_CALLBACK_PARAM;
  }
  if (!MayAllocate(*entry.call) || entry.error != PF_Err_NONE) {
    return PF_Err_OUT_OF_MEMORY;
  }
  HandleProblem problem;
  const bool resized = ResizeHandle(entry.call->effect->handles, *handle, size, problem);
  ComplainIf(*entry.call, problem);
  return resized ? PF_Err_NONE : PF_Err_OUT_OF_MEMORY;
}

}  // namespace

PF_HandleSuite1 HandleFunctions() {
  return {NewHostHandle,     LockHostHandle, UnlockHostHandle,
          DisposeHostHandle, HostHandleSize, ResizeHostHandle};
}

void AddHandleSuites(std::vector<SuiteEntry>& suites) {
  static const PF_HandleSuite1 functions = HandleFunctions();
  suites.push_back({kPF_HandleSuite1Name, kPF_HandleSuite1Version, &functions, true});
}

}  // namespace vantle::host
