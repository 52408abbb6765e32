// Declaration of parameters, the callbacks of parameter set-up.
#pragma once

#include "host/engine/call_context.h"
#include "host_api/call_records.h"

namespace vantle::host {

/// Appends a parameter. The record and its texts are copied; the default handle of a custom value goes over
/// to the host when the call succeeds.
PF_Err AddParam(PF_ProgPtr effectRef, PF_ParamIndex index, PF_ParamDefPtr def);

/// Notes which events the effect wants.
PF_Err RegisterUi(PF_ProgPtr effectRef, PF_CustomUIInfo* info);

/// The input layer, which is parameter 0 of every effect.
DeclaredParam InputLayerParam();

}  // namespace vantle::host
