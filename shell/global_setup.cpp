#include "host_api/aegp_suites.h"
#include "render/graphics/gpu_renderer.h"
#include "shell/command_handlers.h"
#include "shell/identity.h"
#include "shell/module_pin.h"
#include "shell/suites.h"

#include <atomic>

namespace vantle {
namespace {

// The one thing that outlives a command: written while nothing else runs, read by any render thread.
std::atomic<AEGP_PluginID> generalPluginId{0};

// Without the service, or when it refuses, the effect lives without camera streams and control layers.
AEGP_PluginID Register(const PF_InData* in_data) {
  const ScopedSuite<AEGP_UtilitySuite6> utility(in_data, kAEGP_UtilitySuite6Name, kAEGP_UtilitySuite6Version);
  if (!utility || utility->AEGP_RegisterWithAEGP == nullptr) return 0;
  AEGP_PluginID id = 0;
  return utility->AEGP_RegisterWithAEGP(nullptr, kDisplayName, &id) == A_Err_NONE ? id : 0;
}

}  // namespace

PF_Err SetUpGlobally(const PF_InData* in_data, PF_OutData* out_data) {
  PinModule();
  if (out_data != nullptr) {
    out_data->my_version = kEffectVersion;
    out_data->out_flags = kOutFlags;
    out_data->out_flags2 = kOutFlags2;
  }
  generalPluginId = IsPremierePro(in_data) ? 0 : Register(in_data);
  return PF_Err_NONE;
}

PF_Err SetDownGlobally() {
  ReleaseGpu();
  generalPluginId = 0;
  return PF_Err_NONE;
}

AEGP_PluginID GeneralPluginId() {
  return generalPluginId;
}

}  // namespace vantle
