// Events of the controls that the effect draws and edits itself in the Effect Controls panel.
#pragma once

#include "host_api/call_records.h"
#include "host_api/events.h"

namespace vantle {

/// Parameters with a control of our own.
inline constexpr PF_ParamIndex kScaleOverLifeControl = 28;
inline constexpr PF_ParamIndex kColorGradientControl = 36;
inline constexpr PF_ParamIndex kOpacityOverLifeControl = 40;

/// Draws a control, or edits its value with the mouse. Events of other areas, parameters and kinds, and
/// clicks on nothing, are left to the host: success, with PF_EO_HANDLED_EVENT not set. So is any event whose
/// value cannot be read. Nothing outlives the event here: the stop or point being dragged is in
/// `continue_refcon[0]`, the selected stop in the value. Errors are those of the host's suites; an edit made
/// before an error stands.
PF_Err HandleEvent(PF_InData* in_data, PF_OutData* out_data, PF_ParamDef* params[], PF_LayerDef* output,
                   PF_EventExtra* extra);

}  // namespace vantle
