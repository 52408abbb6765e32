#include "host/panel/value_labels.h"

#include "host/scene/parameter_lookup.h"

#include <algorithm>
#include <cmath>
#include <cstdio>

namespace vantle::panel {
namespace {

std::string Decimals(double value, int places) {
  char text[64];
  std::snprintf(text, sizeof text, "%.*f", std::clamp(places, 0, 8), value);
  // A rounded -0.04 is no negative number to a reader.
  return text[0] == '-' && std::string(text).find_first_not_of("-0.") == std::string::npos ? text + 1 : text;
}

double NumberOf(const host::DeclaredParam& param, const host::ParamValue* value) {
  if (value != nullptr && std::holds_alternative<double>(*value)) return std::get<double>(*value);
  return double{param.def.u.fs_d.dephault};
}

A_long IntegerOf(const host::ParamValue* value, A_long otherwise) {
  return value != nullptr && std::holds_alternative<A_long>(*value) ? std::get<A_long>(*value) : otherwise;
}

double DegreesOf(const host::DeclaredParam& param, const host::ParamValue* value) {
  return IntegerOf(value, param.def.u.ad.dephault) / 65536.0;
}

std::string AngleLabel(double degrees) {
  // Rounded first, so that 359.97 reads as one turn.
  const double tenths = std::floor(std::fabs(degrees) * 10 + 0.5);
  const double turns = std::floor(tenths / 3600);
  const std::string rest = Decimals((tenths - turns * 3600) / 10, 1);
  const bool negative = degrees < 0 && tenths > 0;
  return (negative && turns > 0 ? "-" : "") + Decimals(turns, 0) + "x" + (negative ? "-" : "+") + rest + "°";
}

std::string ChoiceLabel(const host::DeclaredParam& param, A_long choice) {
  const std::vector<std::string> choices = scene::SplitChoices(param.choices);
  return choice >= 1 && static_cast<size_t>(choice) <= choices.size()
             ? choices[static_cast<size_t>(choice) - 1]
             : "?";
}

}  // namespace

std::string ValueLabel(const host::DeclaredParam& param, const host::ParamValue* value) {
  const PF_ParamDefUnion& u = param.def.u;
  switch (param.def.param_type) {
    case PF_Param_FLOAT_SLIDER: {
      const bool percent = (u.fs_d.display_flags & PF_ValueDisplayFlag_PERCENT) != 0;
      return Decimals(NumberOf(param, value), u.fs_d.precision) + (percent ? " %" : "");
    }
    case PF_Param_ANGLE:
      return AngleLabel(DegreesOf(param, value));
    case PF_Param_CHECKBOX:
      return IntegerOf(value, u.bd.dephault) != 0 ? "On" : "Off";
    case PF_Param_POPUP:
      return ChoiceLabel(param, IntegerOf(value, u.pd.dephault));
    default:
      return "";
  }
}

double GaugePosition(const host::DeclaredParam& param, const host::ParamValue* value) {
  const PF_ParamDefUnion& u = param.def.u;
  if (param.def.param_type == PF_Param_ANGLE) return DegreesOf(param, value);
  if (param.def.param_type == PF_Param_CHECKBOX) return IntegerOf(value, u.bd.dephault) != 0 ? 1.0 : 0.0;
  if (param.def.param_type != PF_Param_FLOAT_SLIDER) return 0.0;
  const double low = double{u.fs_d.slider_min}, high = double{u.fs_d.slider_max};
  const double share = high > low ? (NumberOf(param, value) - low) / (high - low) : 0.0;
  return share > 0 ? std::min(share, 1.0) : 0.0;
}

}  // namespace vantle::panel
