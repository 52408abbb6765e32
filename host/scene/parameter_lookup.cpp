#include "host/scene/parameter_lookup.h"

#include "host/io/nearest.h"

#include <algorithm>
#include <charconv>

namespace vantle::scene {
namespace {

using host::DeclaredParam;

// What a person has to write to mean this parameter and no other.
std::string FullName(const std::vector<DeclaredParam>& params, const std::vector<std::string>& groups,
                     size_t index) {
  return groups[index].empty() ? params[index].name : groups[index] + "/" + params[index].name;
}

bool SameName(const std::string& a, const std::string& b) {
  return a.size() == b.size() && io::EditDistance(a, b) == 0;
}

std::string Quoted(const std::vector<std::string>& names) {
  std::string text;
  for (size_t i = 0; i < names.size(); ++i)
    text += (i == 0 ? "\"" : i + 1 == names.size() ? " or \"" : ", \"") + names[i] + "\"";
  return text;
}

LookupResult FindById(const std::vector<DeclaredParam>& params, const std::string& name) {
  int index = 0;
  const auto [end, error] = std::from_chars(name.data(), name.data() + name.size(), index);
  if (error != std::errc() || end != name.data() + name.size()) return {};
  if (index >= 1 && static_cast<size_t>(index) < params.size()) return {index, {}};
  return {0, "there is no parameter with the id " + name + "; ids run from 1 to " +
                 std::to_string(params.size() - 1)};
}

LookupResult Unknown(const std::vector<DeclaredParam>& params, const std::vector<std::string>& groups,
                     const std::string& name) {
  std::vector<std::string> known;
  const bool withGroup = name.find('/') != std::string::npos;
  for (size_t i = 1; i < params.size(); ++i)
    if (TakesValue(params[i])) known.push_back(withGroup ? FullName(params, groups, i) : params[i].name);
  const std::vector<std::string> near = io::NearestNames(name, known, 3);
  if (near.empty())
    return {0, "there is no parameter named \"" + name + "\"; \"vantle info\" lists them all"};
  return {0, "there is no parameter named \"" + name + "\"; did you mean " + Quoted(near) + "?"};
}

}  // namespace

bool TakesValue(const DeclaredParam& param) {
  switch (param.def.param_type) {
    case PF_Param_FLOAT_SLIDER:
    case PF_Param_ANGLE:
    case PF_Param_CHECKBOX:
    case PF_Param_POPUP:
    case PF_Param_ARBITRARY_DATA:
      return true;
    default:
      return false;
  }
}

const char* TypeName(A_long paramType) {
  switch (paramType) {
    case PF_Param_LAYER:
      return "layer";
    case PF_Param_ANGLE:
      return "angle";
    case PF_Param_CHECKBOX:
      return "check box";
    case PF_Param_POPUP:
      return "popup";
    case PF_Param_FLOAT_SLIDER:
      return "slider";
    case PF_Param_ARBITRARY_DATA:
      return "custom value";
    case PF_Param_GROUP_START:
      return "group";
    case PF_Param_GROUP_END:
      return "group end";
    case PF_Param_BUTTON:
      return "button";
    default:
      return "other";
  }
}

std::vector<std::string> GroupNames(const std::vector<DeclaredParam>& params) {
  std::vector<std::string> groups(params.size());
  std::vector<std::string> open;
  for (size_t i = 0; i < params.size(); ++i) {
    if (params[i].def.param_type == PF_Param_GROUP_END && !open.empty()) open.pop_back();
    if (!open.empty()) groups[i] = open.back();
    if (params[i].def.param_type == PF_Param_GROUP_START) open.push_back(params[i].name);
  }
  return groups;
}

std::vector<std::string> SplitChoices(const std::string& choices) {
  std::vector<std::string> list;
  for (size_t at = 0;;) {
    const size_t bar = choices.find('|', at);
    list.push_back(choices.substr(at, bar - at));
    if (bar == std::string::npos) return list;
    at = bar + 1;
  }
}

LookupResult FindParameter(const std::vector<DeclaredParam>& params, const std::string& name) {
  if (const LookupResult byId = FindById(params, name); byId.index > 0 || !byId.problem.empty()) return byId;
  const std::vector<std::string> groups = GroupNames(params);

  // Exact spelling first, then any capitals; layers and buttons only where no value carries the name.
  for (const bool exact : {true, false}) {
    for (const bool values : {true, false}) {
      std::vector<size_t> found;
      for (size_t i = 1; i < params.size(); ++i) {
        if (params[i].name.empty() || TakesValue(params[i]) != values) continue;
        const std::string full = FullName(params, groups, i);
        if (exact ? params[i].name == name || full == name
                  : SameName(params[i].name, name) || SameName(full, name))
          found.push_back(i);
      }
      if (found.size() == 1) return {static_cast<int>(found[0]), {}};
      if (found.empty()) continue;
      std::vector<std::string> names;
      for (const size_t i : found) names.push_back(FullName(params, groups, i));
      return {0, "\"" + name + "\" is the name of several parameters: write " + Quoted(names)};
    }
  }
  return Unknown(params, groups, name);
}

}  // namespace vantle::scene
