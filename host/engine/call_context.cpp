#include "host/engine/call_context.h"

#include <mutex>

namespace vantle::host {
namespace {

thread_local CallContext* runningCall = nullptr;

Ledger& StrayCalls() {
  static Ledger strays;
  return strays;
}

/// Whether the fault for this call, or for this call of the function's own count, is due.
bool FaultDue(FaultState& state, const char* function) {
  const long number = ++state.calls;
  bool due = number == state.faults.failCall;
  if (!state.faults.failCallNamed.empty()) {
    const std::lock_guard<std::mutex> guard(state.namedMutex);
    const auto wanted = state.faults.failCallNamed.find(function);
    due = due || (wanted != state.faults.failCallNamed.end() && ++state.named[function] == wanted->second);
  }
  return due;
}

}  // namespace

CallContext* CurrentCall() {
  return runningCall;
}

CallScope::CallScope(CallContext& context) : outer_(runningCall) {
  runningCall = &context;
}

CallScope::~CallScope() {
  runningCall = outer_;
}

PF_ProgPtr EffectRef(CallContext& context) {
  return reinterpret_cast<PF_ProgPtr>(&context);
}

Entry EnterHostCall(const char* function) {
  CallContext* call = runningCall;
  if (call == nullptr) {
    NoteProblem(StrayCalls(), std::string(function) + " called on a thread where no command runs");
    return {nullptr, PF_Err_INTERNAL_STRUCT_DAMAGED};
  }
  ++call->calls;
  return {call, FaultDue(*call->faults, function) ? call->faults->faults.failWith : PF_Err_NONE};
}

Entry EnterHostCall(const char* function, PF_ProgPtr effectRef) {
  const Entry entry = EnterHostCall(function);
  if (entry.call != nullptr && effectRef != EffectRef(*entry.call)) {
    Complain(*entry.call, std::string(function) + " called with an effect_ref that is not this command's");
    return {entry.call, PF_Err_BAD_CALLBACK_PARAM};
  }
  return entry;
}

bool MayAllocate(CallContext& call) {
  ++call.allocations;
  return ++call.faults->allocations != call.faults->faults.failAllocation;
}

void Complain(CallContext& call, const std::string& line) {
  NoteProblem(*call.ledger, line);
}

std::vector<std::string> TakeStrayCalls() {
  return DrainProblems(StrayCalls());
}

}  // namespace vantle::host
