// Which host is played, and what is made to go wrong on purpose.
#pragma once

#include "host/engine/world.h"
#include "host_api/commands.h"

#include <functional>
#include <map>
#include <optional>
#include <string>
#include <vector>

namespace vantle::host {

/// What AcquireSuite does for a suite that is not there; real hosts are seen doing each of them.
enum class HiddenManner {
  kErrorAndNull,           ///< an error, the pointer set to null
  kErrorPointerUntouched,  ///< an error, the pointer left as it was
  kSuccessAndNull,         ///< success, the pointer set to null
};

/// `version` 0 means every version.
struct HiddenSuite {
  std::string name;
  A_long version = 0;
  HiddenManner manner = HiddenManner::kErrorAndNull;
};

/// Faults to provoke. Counts start at 1; 0 means never. A function that gives something back (check-in,
/// release, dispose) does its work even when it is told to fail, and then reports the failure. Functions
/// without a result cannot fail and count all the same.
struct HostFaults {
  std::vector<HiddenSuite> hiddenSuites;
  long failCall = 0;                          ///< this call, counted over all callbacks and suite functions
  std::map<std::string, long> failCallNamed;  ///< this call of the function of that name
  long failAllocation = 0;                    ///< this host_new_handle, host_resize_handle or PF_NewWorld
  bool locksReturnNull = false;               ///< host_lock_handle gives null
  PF_Err failWith = PF_Err_INTERNAL_STRUCT_DAMAGED;
  std::function<void()> insideCheckout;  ///< called in every checkout_param, to re-enter the effect
};

/// One host. Faults given here count from the effect's opening on; those of a frame request, from the start
/// of that frame on.
struct HostOptions {
  A_long applId = kApplAfterEffects;  ///< or kApplPremierePro: then none of the general plug-in services
  HostFaults faults;
  std::optional<RowLayout> rows;  ///< worlds whose rows lie otherwise are copied before they are handed over
  bool soilOutput = false;        ///< hand over outputs that were not cleared
  bool checkReadOnly = false;     ///< sum up input and layers, to find an effect that writes into them
};

}  // namespace vantle::host
