// Checkout and check-in of parameters, the callbacks of frames.
#pragma once

#include "host/engine/call_context.h"

namespace vantle::host {

/// Fills `param` with type and value at that time; for a layer, with its pixels, or zeros when there are
/// none.
PF_Err CheckoutParam(PF_ProgPtr effectRef, PF_ParamIndex index, A_long time, A_long step, A_u_long scale,
                     PF_ParamDef* param);

/// Takes a checked-out record, or a copy of it, back; its layer's fields are zeroed.
PF_Err CheckinParam(PF_ProgPtr effectRef, PF_ParamDef* param);

}  // namespace vantle::host
