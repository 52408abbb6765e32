// The array of parameters of a frame.
#pragma once

#include "host/engine/call_context.h"

#include <string>

namespace vantle::host {

/// Why the request's values do not fit the declared parameters, or nothing.
std::string CheckValues(const EffectInstance& effect, const FrameRequest& request);

/// Fills frame.params with the declaration and the request's values, or the declared defaults. Custom values
/// get a handle each, locked as hosts lock them.
void BuildParams(EffectInstance& effect, const FrameRequest& request, FrameScope& frame);

/// Takes the handles of custom values back; values that the effect marked as changed go to `changed` (may be
/// null). Lines on handles that are not as they were lent.
std::vector<std::string> TakeParamsBack(EffectInstance& effect, FrameScope& frame,
                                        std::map<int, CustomBytes>* changed);

}  // namespace vantle::host
