#include "ui/drawbot_suites.h"

#include "host_api/commands.h"
#include "host_api/pf_suites.h"

#include <cstddef>
#include <cstring>

namespace vantle {
namespace {

constexpr const char* kNoRecord = "NULL suite pointer passed to AEFX_AcquireDrawbotSuites";
constexpr const char* kNotAcquired = "Not able to acquire AEFX Suite.";
constexpr const char* kNotReleased = "Not able to release AEFX Suite.";

struct SuiteName {
  const char* name;
  A_long version;
};

constexpr std::size_t kDrawbotSuiteCount = 4;

// Acquired and released in this order.
constexpr SuiteName kDrawbotSuiteNames[kDrawbotSuiteCount] = {
    {kDRAWBOT_DrawbotSuite1Name, kDRAWBOT_DrawbotSuite1Version},
    {kDRAWBOT_SupplierSuite1Name, kDRAWBOT_SupplierSuite1Version},
    {kDRAWBOT_SurfaceSuite2Name, kDRAWBOT_SurfaceSuite2Version},
    {kDRAWBOT_PathSuite1Name, kDRAWBOT_PathSuite1Version},
};

const SPBasicSuite* BasicSuite(const PF_InData* in_data) {
  return in_data ? in_data->pica_basicP : nullptr;
}

// The first `count` of the set, in order.
void ReleaseFirst(const PF_InData* in_data, PF_OutData* out_data, std::size_t count) {
  for (std::size_t i = 0; i < count; ++i) {
    ReleaseSuite(in_data, out_data, kDrawbotSuiteNames[i].name, kDrawbotSuiteNames[i].version);
  }
}

}  // namespace

void ReportError(const PF_InData* in_data, PF_OutData* out_data, const char* message) {
  if (!out_data) return;
  out_data->out_flags |= PF_OutFlag_DISPLAY_ERROR_MESSAGE;
  if (in_data && in_data->utils && in_data->utils->ansi.sprintf) {
    in_data->utils->ansi.sprintf(out_data->return_msg, "%s", message);
  } else {
    std::memcpy(out_data->return_msg, message, std::strlen(message) + 1);
  }
}

PF_Err AcquireSuite(const PF_InData* in_data, PF_OutData* out_data, const char* name, A_long version,
                    const void** suite) {
  // Hosts disagree on what a failed acquisition leaves behind: only success together with a pointer counts.
  const SPBasicSuite* const basic = BasicSuite(in_data);
  const void* acquired = nullptr;
  if (!basic || basic->AcquireSuite(name, version, &acquired) != 0) acquired = nullptr;

  *suite = acquired;
  if (acquired) return PF_Err_NONE;
  ReportError(in_data, out_data, kNotAcquired);
  return PF_Err_BAD_CALLBACK_PARAM;
}

PF_Err ReleaseSuite(const PF_InData* in_data, PF_OutData* out_data, const char* name, A_long version) {
  const SPBasicSuite* const basic = BasicSuite(in_data);
  if (!basic) {
    ReportError(in_data, out_data, kNotReleased);
    return PF_Err_BAD_CALLBACK_PARAM;
  }
  basic->ReleaseSuite(name, version);
  return PF_Err_NONE;
}

PF_Err AcquireDrawbotSuites(const PF_InData* in_data, PF_OutData* out_data, DrawbotSuites* suites) {
  if (!suites) {
    ReportError(in_data, out_data, kNoRecord);
    return PF_Err_UNRECOGNIZED_PARAM_TYPE;
  }
  *suites = {};

  const void* acquired[kDrawbotSuiteCount] = {};
  for (std::size_t i = 0; i < kDrawbotSuiteCount; ++i) {
    const SuiteName& suite = kDrawbotSuiteNames[i];
    const PF_Err error = AcquireSuite(in_data, out_data, suite.name, suite.version, &acquired[i]);
    if (error == PF_Err_NONE) continue;
    ReleaseFirst(in_data, out_data, i);
    return error;
  }

  suites->draw = static_cast<const DRAWBOT_DrawbotSuite1*>(acquired[0]);
  suites->supplier = static_cast<const DRAWBOT_SupplierSuite1*>(acquired[1]);
  suites->surface = static_cast<const DRAWBOT_SurfaceSuite2*>(acquired[2]);
  suites->path = static_cast<const DRAWBOT_PathSuite1*>(acquired[3]);
  return PF_Err_NONE;
}

PF_Err ReleaseDrawbotSuites(const PF_InData* in_data, PF_OutData* out_data) {
  ReleaseFirst(in_data, out_data, kDrawbotSuiteCount);
  return PF_Err_NONE;
}

}  // namespace vantle
