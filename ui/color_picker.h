// The host's modal colour picker.
#pragma once

#include "host_api/call_records.h"
#include "particles/custom_values.h"

namespace vantle {

/// Asks the user for a colour, starting from `sample`. PF_Interrupt_CANCEL when the user cancels, any other
/// error as the host gives it or as the suite's absence is reported; `picked` is written on success only.
PF_Err PickStopColor(const PF_InData* in_data, PF_OutData* out_data, const Color& sample, Color* picked);

}  // namespace vantle
