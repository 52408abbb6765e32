// What the library exports, and what the host passes to it.
#pragma once

#include "host_api/basic_types.h"
#include "host_api/call_records.h"
#include "host_api/pf_suites.h"

extern "C" {

typedef A_Err (*PF_PluginDataCB)(PF_PluginDataPtr inPtr, const A_u_char* inNamePtr,
                                 const A_u_char* inMatchNamePtr, const A_u_char* inCategoryPtr,
                                 const A_u_char* inEntryPointNamePtr, A_long inkind, A_long inApiVersionMajor,
                                 A_long inApiVersionMinor, A_long inReservedInfo);

typedef PF_Err (*PluginDataEntryProc)(PF_PluginDataPtr inPtr, PF_PluginDataCB inPluginDataCallBackPtr,
                                      SPBasicSuite* inSPBasicSuitePtr, const char* inHostName,
                                      const char* inHostVersion);
typedef PF_Err (*EffectMainProc)(PF_Cmd cmd, PF_InData* in_data, PF_OutData* out_data, PF_ParamDef* params[],
                                 PF_LayerDef* output, void* extra);

}  // extern "C"
