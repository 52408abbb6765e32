#include "host/engine/frame_params.h"

namespace vantle::host {
namespace {

bool TakesNumber(PF_ParamType type) {
  return type == PF_Param_FLOAT_SLIDER;
}

bool TakesInteger(PF_ParamType type) {
  return type == PF_Param_ANGLE || type == PF_Param_POPUP || type == PF_Param_CHECKBOX ||
         type == PF_Param_SLIDER || type == PF_Param_FIX_SLIDER;
}

bool Fits(const ParamValue& value, PF_ParamType type) {
  if (std::holds_alternative<double>(value)) {
    return TakesNumber(type);
  }
  return std::holds_alternative<A_long>(value) ? TakesInteger(type) : type == PF_Param_ARBITRARY_DATA;
}

void SetDefault(PF_ParamDef& def) {
  PF_ParamDefUnion& u = def.u;
  switch (def.param_type) {
    case PF_Param_FLOAT_SLIDER:
      u.fs_d.value = double{u.fs_d.dephault};
      break;
    case PF_Param_SLIDER:
      u.sd.value = u.sd.dephault;
      break;
    case PF_Param_FIX_SLIDER:
      u.fd.value = u.fd.dephault;
      break;
    case PF_Param_ANGLE:
      u.ad.value = u.ad.dephault;
      break;
    case PF_Param_CHECKBOX:
      u.bd.value = u.bd.dephault != 0 ? 1 : 0;
      break;
    case PF_Param_POPUP:
      u.pd.value = u.pd.dephault;
      break;
    case PF_Param_COLOR:
      u.cd.value = u.cd.dephault;
      break;
    default:
      break;
  }
}

void SetInteger(PF_ParamDef& def, A_long value) {
  switch (def.param_type) {
    case PF_Param_ANGLE:
      def.u.ad.value = value;
      break;
    case PF_Param_POPUP:
      def.u.pd.value = value;
      break;
    case PF_Param_CHECKBOX:
      def.u.bd.value = value;
      break;
    case PF_Param_SLIDER:
      def.u.sd.value = value;
      break;
    default:
      def.u.fd.value = value;
      break;
  }
}

/// Texts were copied out of the effect's memory at declaration; they point at our copies now.
void SetText(PF_ParamDef& def, const std::string& text) {
  if (def.param_type == PF_Param_POPUP) {
    def.u.pd.u.namesptr = text.c_str();
  } else if (def.param_type == PF_Param_CHECKBOX) {
    def.u.bd.u.nameptr = text.c_str();
  } else if (def.param_type == PF_Param_BUTTON) {
    def.u.button_d.u.namesptr = text.c_str();
  }
}

PF_Handle LendValue(EffectInstance& effect, const std::vector<std::uint8_t>& bytes) {
  const PF_Handle handle = NewHandleFrom(effect.handles, bytes);
  HandleProblem ignored;
  LockHandle(effect.handles, handle, ignored);
  return handle;
}

void SetCustom(EffectInstance& effect, const DeclaredParam& param, const ParamValue* value,
               PF_ParamDef& def) {
  def.u.arb_d.value = nullptr;
  if (value == nullptr) {
    if (def.u.arb_d.dephault != nullptr) {
      def.u.arb_d.value = LendValue(effect, param.defaultBytes);
    }
  } else if (const auto& bytes = std::get<CustomBytes>(*value).bytes; bytes.has_value()) {
    def.u.arb_d.value = LendValue(effect, *bytes);
  }
}

PF_ParamDef BuildParam(EffectInstance& effect, const DeclaredParam& param, const ParamValue* value) {
  PF_ParamDef def = param.def;
  def.uu.change_flags = PF_ChangeFlag_NONE;
  SetDefault(def);
  SetText(def, param.choices);
  if (def.param_type == PF_Param_ARBITRARY_DATA) {
    SetCustom(effect, param, value, def);
  } else if (value != nullptr && std::holds_alternative<double>(*value)) {
    def.u.fs_d.value = std::get<double>(*value);
  } else if (value != nullptr) {
    SetInteger(def, std::get<A_long>(*value));
  }
  return def;
}

}  // namespace

std::string CheckValues(const EffectInstance& effect, const FrameRequest& request) {
  for (const auto& [index, value] : request.values) {
    if (index < 1 || static_cast<std::size_t>(index) >= effect.params.size()) {
      return "there is no parameter " + std::to_string(index);
    }
    const DeclaredParam& param = effect.params[static_cast<std::size_t>(index)];
    if (!Fits(value, param.def.param_type)) {
      return "parameter " + std::to_string(index) + " \"" + param.name + "\" does not take such a value";
    }
  }
  return "";
}

void BuildParams(EffectInstance& effect, const FrameRequest& request, FrameScope& frame) {
  frame.params.clear();
  for (std::size_t i = 0; i < effect.params.size(); ++i) {
    const auto given = request.values.find(static_cast<int>(i));
    frame.params.push_back(
        BuildParam(effect, effect.params[i], given == request.values.end() ? nullptr : &given->second));
  }
  frame.pointers.clear();
  for (PF_ParamDef& def : frame.params) {
    frame.pointers.push_back(&def);
  }
}

std::vector<std::string> TakeParamsBack(EffectInstance& effect, FrameScope& frame,
                                        std::map<int, CustomBytes>* changed) {
  std::vector<std::string> lines;
  for (std::size_t i = 0; i < frame.params.size(); ++i) {
    PF_ParamDef& def = frame.params[i];
    if (def.param_type != PF_Param_ARBITRARY_DATA || def.u.arb_d.value == nullptr) {
      continue;
    }
    const PF_Handle handle = def.u.arb_d.value;
    const std::string name = "value of parameter " + std::to_string(i);
    const int locks = HandleLocks(effect.handles, handle);
    if (locks != 1) {
      lines.push_back(locks < 0 ? name + " was disposed by the effect"
                                : name + " has " + std::to_string(locks) + " locks instead of 1");
    }
    if (changed != nullptr && (def.uu.change_flags & PF_ChangeFlag_CHANGED_VALUE) != 0) {
      (*changed)[static_cast<int>(i)] = {HandleBytes(effect.handles, handle)};
    }
    HandleProblem problem;
    while (HandleLocks(effect.handles, handle) > 0) {
      UnlockHandle(effect.handles, handle, problem);
    }
    if (locks >= 0) {
      DisposeHandle(effect.handles, handle, problem);
    }
    if (!problem.empty()) {
      lines.push_back(name);
      lines.back().append(": ").append(problem);
    }
    def.u.arb_d.value = nullptr;
  }
  return lines;
}

}  // namespace vantle::host
