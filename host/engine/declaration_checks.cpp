// What hosts silently trip over in a declaration.
#include "host/engine/effect.h"
#include "host_api/commands.h"

#include <algorithm>
#include <set>

namespace vantle::host {
namespace {

using Lines = std::vector<std::string>;

std::string Label(const EffectInstance& effect, std::size_t index) {
  return "parameter " + std::to_string(index) + " \"" + effect.params[index].name + "\"";
}

template <typename Number>
bool Ordered(Number validMin, Number validMax, Number sliderMin, Number sliderMax, Number initial) {
  return validMin <= sliderMin && sliderMin <= sliderMax && sliderMax <= validMax && validMin <= initial &&
         initial <= validMax;
}

std::string CheckPopup(const DeclaredParam& param) {
  const PF_PopupDef& popup = param.def.u.pd;
  const auto bars = std::count(param.choices.begin(), param.choices.end(), '|');
  if (param.choices.empty() || popup.num_choices != bars + 1) {
    return " announces " + std::to_string(popup.num_choices) + " choices, its text holds " +
           std::to_string(param.choices.empty() ? 0 : bars + 1);
  }
  return popup.dephault < 1 || popup.dephault > popup.num_choices ? " has a default that is no choice" : "";
}

std::string CheckOne(const DeclaredParam& param) {
  const PF_ParamDefUnion& u = param.def.u;
  switch (param.def.param_type) {
    case PF_Param_FLOAT_SLIDER:
      return Ordered(u.fs_d.valid_min, u.fs_d.valid_max, u.fs_d.slider_min, u.fs_d.slider_max,
                     u.fs_d.dephault)
                 ? ""
                 : " has ranges that do not hold each other or the default";
    case PF_Param_SLIDER:
      return Ordered(u.sd.valid_min, u.sd.valid_max, u.sd.slider_min, u.sd.slider_max, u.sd.dephault)
                 ? ""
                 : " has ranges that do not hold each other or the default";
    case PF_Param_POPUP:
      return CheckPopup(param);
    case PF_Param_ARBITRARY_DATA:
      return u.arb_d.dephault == nullptr ? " has no default value" : "";
    default:
      return "";
  }
}

void CheckIds(const EffectInstance& effect, Lines& lines) {
  std::set<A_long> ids;
  for (std::size_t i = 1; i < effect.params.size(); ++i) {
    const A_long id = effect.params[i].def.uu.id;
    if (!ids.insert(id).second) {
      lines.push_back(Label(effect, i) + " has id " + std::to_string(id) + " like another one");
    }
  }
}

void CheckGroups(const EffectInstance& effect, Lines& lines) {
  int depth = 0;
  for (std::size_t i = 1; i < effect.params.size(); ++i) {
    const PF_ParamType type = effect.params[i].def.param_type;
    depth += (type == PF_Param_GROUP_START ? 1 : 0) - (type == PF_Param_GROUP_END ? 1 : 0);
    if (depth < 0) {
      lines.push_back(Label(effect, i) + " closes a group that was not opened");
      depth = 0;
    }
  }
  if (depth > 0) {
    lines.push_back(std::to_string(depth) + " groups are never closed");
  }
}

void CheckCustomUi(const EffectInstance& effect, Lines& lines) {
  const bool declared = (effect.outFlags & PF_OutFlag_CUSTOM_UI) != 0;
  const bool controls =
      std::any_of(effect.params.begin(), effect.params.end(),
                  [](const DeclaredParam& param) { return (param.def.ui_flags & PF_PUI_CONTROL) != 0; });
  if (declared != (effect.registeredUis > 0)) {
    lines.push_back(declared ? "custom controls declared in the flags, but never registered"
                             : "custom controls registered, but not declared in the flags");
  } else if (controls && !declared) {
    lines.push_back("parameters with controls of their own, but none declared in the flags");
  }
  if (effect.registeredUis > 1) {
    lines.push_back("custom controls registered " + std::to_string(effect.registeredUis) + " times");
  }
}

}  // namespace

std::vector<std::string> CheckDeclaration(const EffectInstance& effect, A_long announcedParams) {
  Lines lines;
  const auto added = static_cast<A_long>(effect.params.size());
  if (announcedParams != added) {
    lines.push_back("num_params is " + std::to_string(announcedParams) + ", but " +
                    std::to_string(added - 1) + " parameters were added to the input layer");
  }
  for (std::size_t i = 1; i < effect.params.size(); ++i) {
    const std::string problem = CheckOne(effect.params[i]);
    if (!problem.empty()) {
      lines.push_back(Label(effect, i) + problem);
    }
  }
  CheckIds(effect, lines);
  CheckGroups(effect, lines);
  CheckCustomUi(effect, lines);
  return lines;
}

}  // namespace vantle::host
