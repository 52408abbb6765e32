// The command that the host is in: on whose behalf a callback or suite function is called. Suite functions
// get no context of their own, so the running command is kept per thread; nested commands stack.
#pragma once

#include "host/composition/evaluation.h"
#include "host/engine/aegp_objects.h"
#include "host/engine/effect.h"
#include "host/engine/frame_request.h"
#include "host/engine/ledger.h"

#include <cstdint>
#include <list>
#include <memory>
#include <string>
#include <vector>

namespace vantle::host {

/// A world that the effect knows, as it was described to it.
struct KnownWorld {
  const void* data = nullptr;
  int depth = 8;
};

/// One parameter checked out. Identified by `serial`, which travels in the record's unused field, so that an
/// effect may check a copy of the record in.
struct Checkout {
  A_long serial = 0;
  int param = 0;
  A_long time = 0;
  std::shared_ptr<const World> world;
  std::uint64_t sum = 0;
  bool open = true;
};

/// What commands of a frame have besides: parameters as handed over, worlds, checkouts.
struct FrameScope {
  const FrameRequest* request = nullptr;
  LayerProvider layers;
  std::shared_ptr<const World> input;
  World* output = nullptr;
  std::vector<PF_ParamDef> params;
  std::vector<PF_ParamDef*> pointers;
  std::vector<KnownWorld> worlds;
  std::list<World> madeWorlds;
  std::vector<Checkout> checkouts;
  std::uint64_t inputSum = 0;
  PF_Handle frameData = nullptr;
  std::map<double, composition::Evaluation> evaluations;  ///< of the composition, by seconds
};

/// `frame` is null for commands that concern no frame. The address of this record is the effect_ref.
struct CallContext {
  EffectInstance* effect = nullptr;
  Ledger* ledger = nullptr;
  FaultState* faults = nullptr;
  FrameScope* frame = nullptr;
  PF_Cmd command = PF_Cmd_ABOUT;
  AegpObjects aegp;
  long calls = 0;
  long allocations = 0;
};

/// The command running on this thread, or null.
CallContext* CurrentCall();

/// Makes a command the running one of this thread, until the end of the scope.
struct CallScope {
  explicit CallScope(CallContext& context);
  ~CallScope();
  CallScope(const CallScope&) = delete;
  CallScope& operator=(const CallScope&) = delete;

 private:
  CallContext* outer_;
};

PF_ProgPtr EffectRef(CallContext& context);

/// Result of entering a host function. Without `call` it was called from a thread on which no command runs;
/// that is noted, and the function must return an error. `error` is what it is told to fail with, or 0.
struct Entry {
  CallContext* call = nullptr;
  PF_Err error = PF_Err_NONE;
};

/// Every host function begins with this: it counts the call and looks whether a fault is due.
Entry EnterHostCall(const char* function);
/// The same for functions that are given an effect_ref, which must be the running command's.
Entry EnterHostCall(const char* function, PF_ProgPtr effectRef);
/// Counts an allocation; false when it must fail.
bool MayAllocate(CallContext& call);

/// Notes a problem on the running command's books.
void Complain(CallContext& call, const std::string& line);

/// Calls of host functions from threads that run no command, since the last time this was asked.
std::vector<std::string> TakeStrayCalls();

}  // namespace vantle::host
