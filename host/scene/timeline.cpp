#include "host/scene/timeline.h"

#include "host/engine/custom_values.h"
#include "host/io/failure.h"
#include "host/io/json_file.h"
#include "host/io/nearest.h"
#include "host/scene/parameter_lookup.h"
#include "host/scene/scene_json.h"
#include "particles/custom_values.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <limits>

namespace vantle::scene {
namespace {

using host::DeclaredParam;

[[noreturn]] void Refuse(const Parameter& parameter, const std::string& why) {
  throw io::Failure(io::kUnreadableInput, parameter.place + ": " + why);
}

std::string NumberText(double value) {
  char text[32];
  std::snprintf(text, sizeof(text), "%.9g", value);
  return text;
}

std::string Describe(const Value& value) {
  if (const auto* number = std::get_if<double>(&value)) return NumberText(*number);
  if (const auto* text = std::get_if<std::string>(&value)) return "\"" + *text + "\"";
  if (const auto* flattened = std::get_if<FlattenedValue>(&value))
    return std::to_string(flattened->bytes.size()) + " bytes of a custom value";
  return std::holds_alternative<GradientValue>(value) ? "a gradient" : "a curve";
}

double ChoiceNumber(const Parameter& parameter, const DeclaredParam& param, const std::string& text) {
  const std::vector<std::string> choices = SplitChoices(param.choices);
  std::string all;
  for (size_t i = 0; i < choices.size(); ++i) {
    if (choices[i].size() == text.size() && io::EditDistance(choices[i], text) == 0)
      return static_cast<double>(i + 1);
    all += (i ? ", " : "") + choices[i];
  }
  Refuse(parameter, "\"" + text + "\" is no choice of \"" + param.name + "\"; there are: " + all);
}

double NumberFor(const Parameter& parameter, const DeclaredParam& param, const Value& value) {
  const auto* text = std::get_if<std::string>(&value);
  if (text && param.def.param_type == PF_Param_POPUP) return ChoiceNumber(parameter, param, *text);
  if (text && param.def.param_type == PF_Param_CHECKBOX) {
    if (*text == "on" || *text == "true") return 1.0;
    if (*text == "off" || *text == "false") return 0.0;
  }
  if (const auto* number = std::get_if<double>(&value)) return *number;
  const A_long type = param.def.param_type;
  Refuse(parameter, "\"" + param.name + "\" takes " +
                        (type == PF_Param_POPUP      ? "the name or the number of a choice"
                         : type == PF_Param_CHECKBOX ? "true or false"
                         : type == PF_Param_ANGLE    ? "a number of degrees"
                                                     : "a number") +
                        ", found " + Describe(value));
}

void HoldToRange(const Parameter& parameter, const DeclaredParam& param, BoundParameter* bound,
                 std::vector<std::string>* warnings) {
  const Range range = ValidRange(param);
  const bool whole = bound->type == PF_Param_POPUP || bound->type == PF_Param_CHECKBOX;
  bool warned = false;
  for (BoundKey& key : bound->keys) {
    if (whole && key.number != std::floor(key.number))
      Refuse(parameter, "\"" + param.name + "\" takes a whole number, found " + NumberText(key.number));
    const double held = std::clamp(key.number, range.lowest, range.highest);
    if (held != key.number && !warned)
      warnings->push_back(parameter.place + ": " + NumberText(key.number) +
                          " lies outside of the range of \"" + param.name + "\", " +
                          NumberText(range.lowest) + " to " + NumberText(range.highest) +
                          ", and is held to " + NumberText(held));
    warned = warned || held != key.number;
    key.number = held;
  }
}

BoundKey BindKey(const Parameter& parameter, const DeclaredParam& param, const Key& key) {
  BoundKey bound;
  bound.frame = key.frame;
  bound.hold = key.hold;
  if (param.def.param_type != PF_Param_ARBITRARY_DATA) {
    bound.number = NumberFor(parameter, param, key.value);
  } else if (!CustomValueBytes(param, key.value, &bound.bytes)) {
    const bool gradient = param.defaultBytes.size() == sizeof(ColorGradient);
    Refuse(parameter, "\"" + param.name + "\" takes " +
                          (gradient ? "a gradient [[position, red, green, blue], ...]"
                                    : "a curve {\"max\": .., \"points\": [[x, y], ...]}") +
                          ", found " + Describe(key.value));
  }
  return bound;
}

void CheckTakesValue(const Parameter& parameter, const DeclaredParam& param) {
  if (TakesValue(param)) return;
  if (param.def.param_type == PF_Param_LAYER)
    Refuse(parameter,
           "\"" + param.name + "\" is a layer: name it in \"effect\" as \"a\", \"b\" or \"custom\"");
  Refuse(parameter, "\"" + param.name + "\" is a " + TypeName(param.def.param_type) + " and takes no value");
}

host::ParamValue Handed(const BoundParameter& parameter, const BoundKey& key) {
  switch (parameter.type) {
    case PF_Param_FLOAT_SLIDER:
      return key.number;
    case PF_Param_ANGLE:
      return FixedDegrees(key.number);
    case PF_Param_ARBITRARY_DATA:
      return host::CustomBytes{key.bytes};
    default:
      return static_cast<A_long>(key.number);
  }
}

}  // namespace

Range ValidRange(const DeclaredParam& param) {
  switch (param.def.param_type) {
    case PF_Param_FLOAT_SLIDER:
      return {static_cast<double>(param.def.u.fs_d.valid_min),
              static_cast<double>(param.def.u.fs_d.valid_max)};
    case PF_Param_POPUP:
      return {1.0, static_cast<double>(param.def.u.pd.num_choices)};
    case PF_Param_CHECKBOX:
      return {0.0, 1.0};
    default:
      return {-32767.0, 32767.0};  // what 16.16 fixed point holds
  }
}

A_long FixedDegrees(double degrees) {
  const double scaled = std::floor(degrees * 65536.0 + 0.5);
  constexpr double kLowest = std::numeric_limits<A_long>::min(),
                   kHighest = std::numeric_limits<A_long>::max();
  return static_cast<A_long>(std::clamp(scaled, kLowest, kHighest));
}

BoundParameter BindParameter(const std::vector<DeclaredParam>& params, const Parameter& parameter,
                             std::vector<std::string>* warnings) {
  const LookupResult found = FindParameter(params, parameter.name);
  if (found.index == 0) Refuse(parameter, found.problem);
  const DeclaredParam& param = params[static_cast<size_t>(found.index)];
  CheckTakesValue(parameter, param);
  BoundParameter bound{found.index, param.def.param_type, {}};
  for (const Key& key : parameter.keys) bound.keys.push_back(BindKey(parameter, param, key));
  if (bound.type != PF_Param_ARBITRARY_DATA) HoldToRange(parameter, param, &bound, warnings);
  return bound;
}

Parameter ParseAssignment(const std::string& text, FrameRate rate) {
  const size_t equals = text.find('=');
  if (equals == std::string::npos || equals == 0)
    throw io::Failure(io::kUsage, "--set \"" + text + "\": write --set \"Name=value\"");
  Parameter parameter{text.substr(0, equals), "--set \"" + text + "\"", {}};
  const std::string value = text.substr(equals + 1);
  io::Json json;
  if (!io::ParseJsonText(value, &json)) {
    parameter.keys = {Key{0.0, value, false}};
    return parameter;
  }
  try {
    parameter.keys = ReadKeys({&json, parameter.place, ""}, rate);
  } catch (const io::Failure& failure) {
    throw io::Failure(io::kUsage, failure.what());
  }
  return parameter;
}

host::ParamValue ValueAt(host::EffectInstance& effect, const BoundParameter& parameter, double frame) {
  const std::vector<BoundKey>& keys = parameter.keys;
  size_t next = 0;
  while (next < keys.size() && keys[next].frame <= frame) ++next;
  if (next == 0) return Handed(parameter, keys.front());
  const BoundKey& left = keys[next - 1];
  const bool steps = parameter.type == PF_Param_POPUP || parameter.type == PF_Param_CHECKBOX;
  if (next == keys.size() || left.hold || steps || left.frame == frame) return Handed(parameter, left);

  const BoundKey& right = keys[next];
  const double fraction = (frame - left.frame) / (right.frame - left.frame);
  if (parameter.type != PF_Param_ARBITRARY_DATA)
    return Handed(parameter, {frame, left.number + (right.number - left.number) * fraction, {}, false});
  host::CustomResult between =
      host::InterpolateCustomValue(effect, parameter.index, left.bytes, right.bytes, fraction);
  if (between.error != PF_Err_NONE || !between.present)
    throw io::Failure(io::kEffectError, "the effect cannot interpolate \"" +
                                            effect.params[static_cast<size_t>(parameter.index)].name +
                                            "\", error " + std::to_string(between.error));
  return host::CustomBytes{std::move(between.bytes)};
}

}  // namespace vantle::scene
