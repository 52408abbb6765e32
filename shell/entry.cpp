// The two functions that the library exports.
#include "host_api/entry_points.h"
#include "shell/dispatch.h"
#include "shell/guard.h"
#include "shell/registration.h"

extern "C" {

PF_Err PluginDataEntryFunction(PF_PluginDataPtr inPtr, PF_PluginDataCB inPluginDataCallBackPtr,
                               SPBasicSuite* inSPBasicSuitePtr, const char* inHostName,
                               const char* inHostVersion);

PF_Err EffectMain(PF_Cmd cmd, PF_InData* in_data, PF_OutData* out_data, PF_ParamDef* params[],
                  PF_LayerDef* output, void* extra);

PF_Err PluginDataEntryFunction(PF_PluginDataPtr inPtr, PF_PluginDataCB inPluginDataCallBackPtr,
                               SPBasicSuite* /*inSPBasicSuitePtr*/, const char* /*inHostName*/,
                               const char* /*inHostVersion*/) {
  return vantle::Guarded([&] { return vantle::RegisterEffect(inPtr, inPluginDataCallBackPtr); });
}

PF_Err EffectMain(PF_Cmd cmd, PF_InData* in_data, PF_OutData* out_data, PF_ParamDef* params[],
                  PF_LayerDef* output, void* extra) {
  return vantle::DispatchCommand(cmd, in_data, out_data, params, output, extra);
}

}  // extern "C"
