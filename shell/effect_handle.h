// The host's handle of this very effect, held for one scope.
#pragma once

#include "host_api/aegp_suites.h"
#include "shell/command_handlers.h"
#include "shell/suites.h"

namespace vantle {

/// Taken from the host and given back at the end of the scope at the latest. A host without the suite that
/// takes handles back leaves us with it: there is nobody to give it to.
class EffectHandle {
 public:
  EffectHandle(const PF_InData* in_data, const AEGP_PFInterfaceSuite1& host) : in_data_(in_data) {
    if (host.AEGP_GetNewEffectForEffect(GeneralPluginId(), in_data->effect_ref, &handle_) != A_Err_NONE) {
      handle_ = nullptr;
    }
  }
  ~EffectHandle() { GiveBack(); }
  EffectHandle(const EffectHandle&) = delete;
  EffectHandle& operator=(const EffectHandle&) = delete;

  /// Null when the host gave none.
  AEGP_EffectRefH get() const { return handle_; }

  /// False when the host does not take handles back.
  bool GiveBack() {
    if (handle_ == nullptr) return true;
    const ScopedSuite<AEGP_EffectSuite4> effects(in_data_, kAEGP_EffectSuite4Name, kAEGP_EffectSuite4Version);
    if (effects) effects->AEGP_DisposeEffect(handle_);
    handle_ = nullptr;
    return static_cast<bool>(effects);
  }

 private:
  const PF_InData* in_data_;
  AEGP_EffectRefH handle_ = nullptr;
};

}  // namespace vantle
