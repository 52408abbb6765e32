// Acquiring and releasing the host's suites, with one way of telling the user when that fails.
#pragma once

#include "host_api/call_records.h"
#include "host_api/drawbot.h"

namespace vantle {

/// The four suites with which the host lets an effect draw its controls.
struct DrawbotSuites {
  const DRAWBOT_DrawbotSuite1* draw = nullptr;
  const DRAWBOT_SupplierSuite1* supplier = nullptr;
  const DRAWBOT_SurfaceSuite2* surface = nullptr;
  const DRAWBOT_PathSuite1* path = nullptr;
};

/// Has the host show `message` after the command.
void ReportError(const PF_InData* in_data, PF_OutData* out_data, const char* message);

/// Fills `suite`. PF_Err_BAD_CALLBACK_PARAM, reported and `suite` null, when the host does not have it.
PF_Err AcquireSuite(const PF_InData* in_data, PF_OutData* out_data, const char* name, A_long version,
                    const void** suite);

/// PF_Err_BAD_CALLBACK_PARAM, reported, when there is nothing to release it with.
PF_Err ReleaseSuite(const PF_InData* in_data, PF_OutData* out_data, const char* name, A_long version);

/// All four or none: what was acquired before a failing one is given back, and the record is empty then.
/// Errors are reported: PF_Err_UNRECOGNIZED_PARAM_TYPE without a record, else PF_Err_BAD_CALLBACK_PARAM.
PF_Err AcquireDrawbotSuites(const PF_InData* in_data, PF_OutData* out_data, DrawbotSuites* suites);

/// Releases all four. Always success; failures are reported.
PF_Err ReleaseDrawbotSuites(const PF_InData* in_data, PF_OutData* out_data);

}  // namespace vantle
