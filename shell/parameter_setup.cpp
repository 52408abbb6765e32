#include "host_api/call_records.h"
#include "host_api/parameters.h"
#include "shell/command_handlers.h"
#include "shell/parameter_table.h"
#include "ui/custom_value_callbacks.h"
#include "ui/host_handles.h"

#include <cstring>

namespace vantle {
namespace {

// The curve tolerance that hosts expect of a plain slider.
constexpr PF_FpShort kCurveTolerance = 0.05f;

PF_ParamFlags HostFlags(uint32_t flags) {
  PF_ParamFlags host = 0;
  if ((flags & kCollapsed) != 0) host |= PF_ParamFlag_COLLAPSE_TWIRLY;
  if ((flags & kSupervised) != 0) host |= PF_ParamFlag_SUPERVISE;
  return host;
}

void DeclareFloatSlider(const ParameterInfo& info, PF_ParamDef* def) {
  PF_FloatSliderDef& slider = def->u.fs_d;
  def->param_type = PF_Param_FLOAT_SLIDER;
  slider.value = info.defaultValue;
  slider.dephault = static_cast<PF_FpShort>(info.defaultValue);
  slider.valid_min = info.valid.min;
  slider.valid_max = info.valid.max;
  slider.slider_min = info.slider.min;
  slider.slider_max = info.slider.max;
  slider.precision = static_cast<A_short>(info.precision);
  slider.display_flags =
      (info.flags & kPercent) != 0 ? PF_ValueDisplayFlag_PERCENT : PF_ValueDisplayFlag_NONE;
  slider.curve_tolerance = kCurveTolerance;
}

void DeclarePopup(const ParameterInfo& info, PF_ParamDef* def) {
  def->param_type = PF_Param_POPUP;
  def->u.pd.value = static_cast<PF_ParamValue>(info.defaultValue);
  def->u.pd.dephault = static_cast<A_short>(info.defaultValue);
  def->u.pd.num_choices = static_cast<A_short>(ChoiceCount(info.text));
  def->u.pd.u.namesptr = info.text;
}

void DeclareCheckBox(const ParameterInfo& info, PF_ParamDef* def) {
  def->param_type = PF_Param_CHECKBOX;
  def->u.bd.value = static_cast<PF_ParamValue>(info.defaultValue);
  def->u.bd.dephault = static_cast<PF_Boolean>(info.defaultValue);
  def->u.bd.u.nameptr = "";
}

void DeclareAngle(const ParameterInfo& info, PF_ParamDef* def) {
  def->param_type = PF_Param_ANGLE;
  def->u.ad.value = static_cast<PF_Fixed>(info.defaultValue) * 65536;
  def->u.ad.dephault = def->u.ad.value;
}

// Hosts may offer no handle; the control is then declared without a default.
void DeclareCustomValue(const PF_InData* in_data, const ParameterInfo& info, PF_ParamDef* def) {
  PF_ArbitraryDef& custom = def->u.arb_d;
  def->param_type = PF_Param_ARBITRARY_DATA;
  def->ui_flags = PF_PUI_CONTROL | PF_PUI_DONT_ERASE_CONTROL;
  def->ui_width = static_cast<A_short>(info.controlWidth);
  def->ui_height = static_cast<A_short>(info.controlHeight);
  custom.id = static_cast<A_short>(info.id);
  custom.dephault = NewDefaultValue(in_data, info.customTag);
  custom.refconPV = TagToRefcon(info.customTag);
}

PF_ParamDef Declaration(const PF_InData* in_data, const ParameterInfo& info) {
  PF_ParamDef def;
  std::memset(&def, 0, sizeof(def));
  def.uu.id = info.id;
  std::strncpy(def.name, info.name, sizeof(def.name) - 1);
  def.flags = HostFlags(info.flags);
  switch (info.type) {
    case ParamType::kLayer:
      def.param_type = PF_Param_LAYER;
      def.u.ld.dephault = info.defaultValue != 0.0 ? PF_LayerDefault_MYSELF : PF_LayerDefault_NONE;
      break;
    case ParamType::kFloatSlider:
      DeclareFloatSlider(info, &def);
      break;
    case ParamType::kAngle:
      DeclareAngle(info, &def);
      break;
    case ParamType::kCheckBox:
      DeclareCheckBox(info, &def);
      break;
    case ParamType::kPopup:
      DeclarePopup(info, &def);
      break;
    case ParamType::kCustomValue:
      DeclareCustomValue(in_data, info, &def);
      break;
    case ParamType::kGroupStart:
      def.param_type = PF_Param_GROUP_START;
      break;
    case ParamType::kGroupEnd:
      def.param_type = PF_Param_GROUP_END;
      break;
    case ParamType::kButton:
      def.param_type = PF_Param_BUTTON;
      def.u.button_d.u.namesptr = info.text;
      break;
  }
  return def;
}

PF_Err Add(const PF_InData* in_data, const ParameterInfo& info) {
  constexpr PF_ParamIndex kAppend = -1;
  PF_ParamDef def = Declaration(in_data, info);
  const PF_Err error = in_data->inter.add_param(in_data->effect_ref, kAppend, &def);
  // A default that the host refused to take is still ours.
  if (error != PF_Err_NONE && info.type == ParamType::kCustomValue) {
    DisposeHandle(in_data, def.u.arb_d.dephault);
  }
  return error;
}

PF_Err RegisterControls(const PF_InData* in_data) {
  if (in_data->inter.register_ui == nullptr) return PF_Err_BAD_CALLBACK_PARAM;
  PF_CustomUIInfo controls;
  std::memset(&controls, 0, sizeof(controls));
  controls.events = PF_CustomEFlag_EFFECT;
  return in_data->inter.register_ui(in_data->effect_ref, &controls);
}

}  // namespace

PF_Err SetUpParameters(const PF_InData* in_data, PF_OutData* out_data) {
  if (in_data == nullptr || in_data->inter.add_param == nullptr) return PF_Err_BAD_CALLBACK_PARAM;
  for (const ParameterInfo& info : kParameters) {
    const PF_Err error = Add(in_data, info);
    if (error != PF_Err_NONE) return error;
  }
  if (out_data != nullptr) out_data->num_params = kParameterCount + 1;
  return RegisterControls(in_data);
}

}  // namespace vantle
