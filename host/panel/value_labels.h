// Values as a panel writes them.
#pragma once

#include "host/engine/effect.h"
#include "host/engine/frame_request.h"

#include <string>

namespace vantle::panel {

/// A number with the declared decimals and " %" behind a percentage; whole turns and degrees of an angle,
/// "1x+30.0°"; the name of a choice; "On" or "Off"; "" for kinds without a value of their own. Without
/// `value` the declared default is meant.
std::string ValueLabel(const host::DeclaredParam& param, const host::ParamValue* value);

/// Where a slider's knob stands, 0 at its left end to 1; or an angle in degrees; or 0 and 1 of a check box.
double GaugePosition(const host::DeclaredParam& param, const host::ParamValue* value);

}  // namespace vantle::panel
