#include "host/cli/parameter_report.h"

#include "host/engine/custom_values.h"
#include "host/io/json_file.h"
#include "host/scene/parameter_lookup.h"
#include "host_api/commands.h"
#include "particles/custom_values.h"

#include <cstdio>
#include <cstring>
#include <string_view>

namespace vantle::cli {
namespace {

using host::DeclaredParam;
using io::Json;

struct FlagName {
  A_long flag;
  const char* name;
};

constexpr FlagName kOutFlags[] = {
    {PF_OutFlag_KEEP_RESOURCE_OPEN, "KEEP_RESOURCE_OPEN"},
    {PF_OutFlag_WIDE_TIME_INPUT, "WIDE_TIME_INPUT"},
    {PF_OutFlag_NON_PARAM_VARY, "NON_PARAM_VARY"},
    {PF_OutFlag_SEQUENCE_DATA_NEEDS_FLATTENING, "SEQUENCE_DATA_NEEDS_FLATTENING"},
    {PF_OutFlag_I_DO_DIALOG, "I_DO_DIALOG"},
    {PF_OutFlag_USE_OUTPUT_EXTENT, "USE_OUTPUT_EXTENT"},
    {PF_OutFlag_DISPLAY_ERROR_MESSAGE, "DISPLAY_ERROR_MESSAGE"},
    {PF_OutFlag_I_EXPAND_BUFFER, "I_EXPAND_BUFFER"},
    {PF_OutFlag_PIX_INDEPENDENT, "PIX_INDEPENDENT"},
    {PF_OutFlag_CUSTOM_UI, "CUSTOM_UI"},
    {PF_OutFlag_DEEP_COLOR_AWARE, "DEEP_COLOR_AWARE"},
    {PF_OutFlag_SEND_UPDATE_PARAMS_UI, "SEND_UPDATE_PARAMS_UI"},
};

constexpr FlagName kOutFlags2[] = {
    {PF_OutFlag2_SUPPORTS_QUERY_DYNAMIC_FLAGS, "SUPPORTS_QUERY_DYNAMIC_FLAGS"},
    {PF_OutFlag2_I_USE_3D_CAMERA, "I_USE_3D_CAMERA"},
    {PF_OutFlag2_I_USE_3D_LIGHTS, "I_USE_3D_LIGHTS"},
    {PF_OutFlag2_SUPPORTS_SMART_RENDER, "SUPPORTS_SMART_RENDER"},
    {PF_OutFlag2_FLOAT_COLOR_AWARE, "FLOAT_COLOR_AWARE"},
    {PF_OutFlag2_AUTOMATIC_WIDE_TIME_INPUT, "AUTOMATIC_WIDE_TIME_INPUT"},
    {PF_OutFlag2_DEPENDS_ON_UNREFERENCED_MASKS, "DEPENDS_ON_UNREFERENCED_MASKS"},
    {PF_OutFlag2_SUPPORTS_GET_FLATTENED_SEQUENCE_DATA, "SUPPORTS_GET_FLATTENED_SEQUENCE_DATA"},
    {PF_OutFlag2_SUPPORTS_GPU_RENDER_F32, "SUPPORTS_GPU_RENDER_F32"},
    {PF_OutFlag2_SUPPORTS_THREADED_RENDERING, "SUPPORTS_THREADED_RENDERING"},
    {PF_OutFlag2_MUTABLE_RENDER_SEQUENCE_DATA_SLOWER, "MUTABLE_RENDER_SEQUENCE_DATA_SLOWER"},
};

constexpr FlagName kParamFlags[] = {
    {PF_ParamFlag_CANNOT_TIME_VARY, "CANNOT_TIME_VARY"},
    {PF_ParamFlag_CANNOT_INTERP, "CANNOT_INTERP"},
    {PF_ParamFlag_COLLAPSE_TWIRLY, "COLLAPSE_TWIRLY"},
    {PF_ParamFlag_SUPERVISE, "SUPERVISE"},
    {PF_ParamFlag_USE_VALUE_FOR_OLD_PROJECTS, "USE_VALUE_FOR_OLD_PROJECTS"},
    {PF_ParamFlag_EXCLUDE_FROM_HAVE_INPUTS_CHANGED, "EXCLUDE_FROM_HAVE_INPUTS_CHANGED"},
    {PF_ParamFlag_SKIP_REVEAL_WHEN_UNHIDDEN, "SKIP_REVEAL_WHEN_UNHIDDEN"},
};

constexpr FlagName kUiFlags[] = {
    {PF_PUI_TOPIC, "TOPIC"},
    {PF_PUI_CONTROL, "CONTROL"},
    {PF_PUI_STD_CONTROL_ONLY, "STD_CONTROL_ONLY"},
    {PF_PUI_NO_ECW_UI, "NO_ECW_UI"},
    {PF_PUI_ECW_SEPARATOR, "ECW_SEPARATOR"},
    {PF_PUI_DISABLED, "DISABLED"},
    {PF_PUI_DONT_ERASE_TOPIC, "DONT_ERASE_TOPIC"},
    {PF_PUI_DONT_ERASE_CONTROL, "DONT_ERASE_CONTROL"},
    {PF_PUI_RADIO_BUTTON, "RADIO_BUTTON"},
    {PF_PUI_INVISIBLE, "INVISIBLE"},
};

// Names of the bits that are set; bits without a name stand as hexadecimal numbers.
template <size_t count>
Json NamesOfFlags(A_long flags, const FlagName (&names)[count]) {
  Json list = Json::array();
  auto rest = static_cast<A_u_long>(flags);
  for (const FlagName& entry : names) {
    if ((rest & static_cast<A_u_long>(entry.flag)) == 0) continue;
    list.push_back(entry.name);
    rest &= ~static_cast<A_u_long>(entry.flag);
  }
  char text[16];
  std::snprintf(text, sizeof(text), "0x%x", rest);
  if (rest != 0) list.push_back(text);
  return list;
}

std::string FourLetters(A_long code) {
  std::string text;
  for (int shift = 24; shift >= 0; shift -= 8)
    text += static_cast<char>((static_cast<A_u_long>(code) >> shift) & 0xFF);
  return text;
}

std::string VersionText(A_u_long packed) {
  static constexpr const char* kStages[] = {"development", "alpha", "beta", "release"};
  const A_u_long major = (packed >> 19 & 7) | (packed >> 26 & 15) << 3;
  return std::to_string(major) + "." + std::to_string(packed >> 15 & 15) + "." +
         std::to_string(packed >> 11 & 15) + " " + kStages[packed >> 9 & 3] + " " +
         std::to_string(packed & 511);
}

Json CustomDefault(const std::vector<std::uint8_t>& bytes) {
  if (bytes.size() == sizeof(ColorGradient)) {
    ColorGradient gradient;
    std::memcpy(&gradient, bytes.data(), sizeof(gradient));
    Json stops = Json::array();
    for (int32_t i = 0; i < gradient.count && i < kMaxGradientStops && i >= 0; ++i) {
      const GradientStop& stop = gradient.stops[i];
      stops.push_back({io::ShortestDecimal(stop.position), io::ShortestDecimal(stop.r),
                       io::ShortestDecimal(stop.g), io::ShortestDecimal(stop.b)});
    }
    return stops;
  }
  if (bytes.size() != sizeof(LifeCurve)) return nullptr;
  LifeCurve curve;
  std::memcpy(&curve, bytes.data(), sizeof(curve));
  Json points = Json::array();
  for (int32_t i = 0; i < curve.count && i < kMaxCurvePoints && i >= 0; ++i)
    points.push_back({io::ShortestDecimal(curve.x[i]), io::ShortestDecimal(curve.y[i])});
  return {{"max", io::ShortestDecimal(curve.maximum)}, {"points", points}};
}

void AddSlider(const PF_FloatSliderDef& slider, Json* entry) {
  (*entry)["default"] = io::ShortestDecimal(slider.dephault);
  (*entry)["value"] = slider.value;
  (*entry)["valid_range"] = {io::ShortestDecimal(slider.valid_min), io::ShortestDecimal(slider.valid_max)};
  (*entry)["slider_range"] = {io::ShortestDecimal(slider.slider_min), io::ShortestDecimal(slider.slider_max)};
  (*entry)["precision"] = slider.precision;
  (*entry)["percent"] = (slider.display_flags & PF_ValueDisplayFlag_PERCENT) != 0;
  (*entry)["display_flags"] = slider.display_flags;
  (*entry)["curve_tolerance"] = io::ShortestDecimal(slider.curve_tolerance);
}

void AddTyped(const DeclaredParam& param, Json* entry) {
  switch (param.def.param_type) {
    case PF_Param_FLOAT_SLIDER:
      AddSlider(param.def.u.fs_d, entry);
      break;
    case PF_Param_ANGLE:
      (*entry)["default"] = param.def.u.ad.dephault / 65536.0;
      (*entry)["value"] = param.def.u.ad.value / 65536.0;
      break;
    case PF_Param_CHECKBOX:
      (*entry)["default"] = param.def.u.bd.dephault != 0;
      (*entry)["value"] = param.def.u.bd.value;
      (*entry)["label"] = param.choices;
      break;
    case PF_Param_POPUP:
      (*entry)["default"] = param.def.u.pd.dephault;
      (*entry)["value"] = param.def.u.pd.value;
      (*entry)["num_choices"] = param.def.u.pd.num_choices;
      (*entry)["choices"] = scene::SplitChoices(param.choices);
      break;
    case PF_Param_LAYER:
      (*entry)["default"] = param.def.u.ld.dephault == PF_LayerDefault_MYSELF ? "own layer" : "none";
      break;
    case PF_Param_ARBITRARY_DATA:
      (*entry)["default"] = CustomDefault(param.defaultBytes);
      (*entry)["arbitrary_id"] = param.def.u.arb_d.id;
      (*entry)["refcon"] = reinterpret_cast<std::uintptr_t>(param.def.u.arb_d.refconPV);
      (*entry)["bytes"] = param.defaultBytes.size();
      break;
    case PF_Param_BUTTON:
      (*entry)["label"] = param.choices;
      break;
    default:
      break;
  }
}

Json ParameterEntry(const std::vector<DeclaredParam>& params, const std::vector<std::string>& groups,
                    size_t i) {
  const DeclaredParam& param = params[i];
  Json entry;
  entry["index"] = i;
  entry["id"] = param.def.uu.id;
  entry["name"] = param.name;
  entry["group"] = groups[i];
  entry["type"] = scene::TypeName(param.def.param_type);
  AddTyped(param, &entry);
  entry["flags"] = NamesOfFlags(param.def.flags, kParamFlags);
  entry["ui_flags"] = NamesOfFlags(param.def.ui_flags, kUiFlags);
  entry["control_size"] = {param.def.ui_width, param.def.ui_height};
  return entry;
}

std::string NumberText(double value) {
  char text[32];
  std::snprintf(text, sizeof(text), "%.7g", value);
  return text;
}

std::string RangeText(const Json& range) {
  return NumberText(range[0].get<double>()) + ".." + NumberText(range[1].get<double>());
}

std::string DefaultText(const Json& entry) {
  if (!entry.contains("default")) return "";
  if (entry.contains("text")) return entry["text"].get<std::string>();
  const Json& value = entry["default"];
  if (value.is_boolean()) return value.get<bool>() ? "on" : "off";
  if (entry.contains("choices")) {
    const size_t choice = value.get<size_t>();
    return choice >= 1 && choice <= entry["choices"].size() ? entry["choices"][choice - 1].get<std::string>()
                                                            : "?";
  }
  if (value.is_number()) return NumberText(value.get<double>()) + (entry.value("percent", false) ? " %" : "");
  if (value.is_string()) return value.get<std::string>();
  return value.is_array()    ? std::to_string(value.size()) + " stops"
         : value.is_object() ? std::to_string(value["points"].size()) + " points"
                             : "none";
}

std::string NotesText(const Json& entry) {
  std::string text;
  if (entry.contains("slider_range") && entry["slider_range"] != entry["valid_range"])
    text = "slider " + RangeText(entry["slider_range"]);
  if (entry.contains("choices"))
    for (const Json& choice : entry["choices"])
      text += (text.empty() ? "" : " | ") + choice.get<std::string>();
  for (const Json& flag : entry["flags"]) text += (text.empty() ? "" : ", ") + flag.get<std::string>();
  return text;
}

void AppendRow(const Json& entry, std::string* text) {
  const std::string type = entry["type"].get<std::string>();
  if (type == "group end") return;
  char row[512];
  const std::string name =
      (entry["group"].get<std::string>().empty() ? "" : "  ") + entry["name"].get<std::string>();
  std::snprintf(row, sizeof(row), "%4d  %-24s %-13s %-13s %-16s %s", entry["index"].get<int>(), name.c_str(),
                type.c_str(), DefaultText(entry).c_str(),
                entry.contains("valid_range") ? RangeText(entry["valid_range"]).c_str() : "",
                NotesText(entry).c_str());
  std::string_view line(row);
  while (line.ends_with(' ')) line.remove_suffix(1);
  text->append(line);
  *text += '\n';
}

// Texts of hosts end their lines with a carriage return.
std::string InLines(const std::string& text, const std::string& lineBreak) {
  std::string lines;
  for (const char c : text) lines += c == '\r' || c == '\n' ? lineBreak : std::string(1, c);
  return lines;
}

// What the effect prints of its custom values' defaults, as hosts show it beside the parameter.
void AddValueTexts(host::EffectInstance& effect, Json* entries) {
  for (Json& entry : *entries) {
    const int index = entry["index"].get<int>();
    const DeclaredParam& param = effect.params[static_cast<size_t>(index)];
    if (param.def.param_type != PF_Param_ARBITRARY_DATA || param.defaultBytes.empty()) continue;
    const host::CustomText printed = host::PrintCustomValue(effect, index, param.defaultBytes);
    if (printed.error == PF_Err_NONE) entry["text"] = printed.text;
  }
}

std::string FlagsText(const Json& names) {
  std::string text;
  for (const Json& name : names) text += (text.empty() ? "" : ", ") + name.get<std::string>();
  return text;
}

}  // namespace

Json EffectReport(host::EffectInstance& effect, const std::string& about) {
  const host::Registration& r = effect.registration;
  Json report;
  report["module"] = effect.module.path;
  report["registration"] = {{"name", r.name},
                            {"match_name", r.matchName},
                            {"category", r.category},
                            {"entry_point", r.entryPoint},
                            {"kind", FourLetters(r.kind)},
                            {"api_version", {r.apiMajor, r.apiMinor}},
                            {"reserved_info", r.reservedInfo}};
  report["version"] = effect.version;
  report["version_text"] = VersionText(effect.version);
  report["out_flags"] = static_cast<A_u_long>(effect.outFlags);
  report["out_flags_names"] = NamesOfFlags(effect.outFlags, kOutFlags);
  report["out_flags2"] = static_cast<A_u_long>(effect.outFlags2);
  report["out_flags2_names"] = NamesOfFlags(effect.outFlags2, kOutFlags2);
  report["about"] = about;
  report["custom_ui_events"] = effect.customUi.events;
  report["parameters"] = Json::array();
  const std::vector<std::string> groups = scene::GroupNames(effect.params);
  for (size_t i = 1; i < effect.params.size(); ++i)
    report["parameters"].push_back(ParameterEntry(effect.params, groups, i));
  AddValueTexts(effect, &report["parameters"]);
  return report;
}

std::string EffectTable(host::EffectInstance& effect, const std::string& about) {
  const Json report = EffectReport(effect, about);
  const Json& r = report["registration"];
  char head[1024];
  std::snprintf(head, sizeof(head),
                "%s (%s), category %s, %s, host interface %d.%d, entry point %s\n"
                "version    %s (0x%x)\n"
                "out flags  0x%x  %s\n"
                "           0x%x  %s\n",
                r["name"].get<std::string>().c_str(), r["match_name"].get<std::string>().c_str(),
                r["category"].get<std::string>().c_str(), r["kind"].get<std::string>().c_str(),
                effect.registration.apiMajor, effect.registration.apiMinor,
                r["entry_point"].get<std::string>().c_str(),
                report["version_text"].get<std::string>().c_str(), effect.version,
                report["out_flags"].get<A_u_long>(), FlagsText(report["out_flags_names"]).c_str(),
                report["out_flags2"].get<A_u_long>(), FlagsText(report["out_flags2_names"]).c_str());
  std::string text = head;
  if (!about.empty()) text += "about      " + InLines(about, "\n           ") + "\n";
  text += "\n  id  name                     type          default       range            notes\n";
  for (const Json& entry : report["parameters"]) AppendRow(entry, &text);
  return text;
}

}  // namespace vantle::cli
