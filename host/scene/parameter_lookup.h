// Finding a parameter by what a user calls it.
#pragma once

#include "host/engine/effect.h"

#include <string>
#include <vector>

namespace vantle::scene {

/// Name of the group that each parameter lies in, by index; empty outside of groups. A group's own start
/// counts as outside.
std::vector<std::string> GroupNames(const std::vector<host::DeclaredParam>& params);

/// Whether a user gives this kind of parameter a value: sliders, angles, check boxes, popups, custom values.
bool TakesValue(const host::DeclaredParam& param);

/// What a lookup gave: `index` above 0, or a line that says why not and offers names.
struct LookupResult {
  int index = 0;
  std::string problem;
};

/// By display name, by `group/name`, or by id. Capitals matter only where two names differ in nothing else.
LookupResult FindParameter(const std::vector<host::DeclaredParam>& params, const std::string& name);

/// "slider", "angle", "check box", "popup", "custom value", "layer", "button", "group", "group end".
const char* TypeName(A_long paramType);

/// The texts between the bars.
std::vector<std::string> SplitChoices(const std::string& choices);

}  // namespace vantle::scene
