#include "host/engine/declaration.h"

#include <algorithm>

namespace vantle::host {
namespace {

std::string BoundedName(const A_char (&name)[32]) {
  return {std::begin(name), std::find(std::begin(name), std::end(name), '\0')};
}

/// Copies the text out and leaves no pointer into the effect's memory behind.
std::string TakeText(const A_char*& text) {
  std::string copy = text == nullptr ? "" : text;
  text = nullptr;
  return copy;
}

std::string TakeChoices(PF_ParamDef& def) {
  switch (def.param_type) {
    case PF_Param_POPUP:
      return TakeText(def.u.pd.u.namesptr);
    case PF_Param_CHECKBOX:
      return TakeText(def.u.bd.u.nameptr);
    case PF_Param_BUTTON:
      return TakeText(def.u.button_d.u.namesptr);
    default:
      return {};
  }
}

void TakeDefaultValue(CallContext& call, DeclaredParam& param) {
  const PF_ArbitraryH handle = param.def.u.arb_d.dephault;
  if (handle == nullptr) {
    return;
  }
  HandleProblem problem;
  SetHandleOwner(call.effect->handles, handle, HandleOwner::kHost, nullptr, problem);
  if (!problem.empty()) {
    Complain(call, "default of " + param.name + ": " + problem);
    param.def.u.arb_d.dephault = nullptr;
  } else if (HandleLocks(call.effect->handles, handle) != 0) {
    Complain(call, "default of " + param.name + " handed over locked");
  }
  param.defaultBytes = HandleBytes(call.effect->handles, param.def.u.arb_d.dephault);
}

}  // namespace

DeclaredParam InputLayerParam() {
  DeclaredParam param;
  param.def.param_type = PF_Param_LAYER;
  param.def.u.ld.dephault = PF_LayerDefault_MYSELF;
  return param;
}

PF_Err AddParam(PF_ProgPtr effectRef, PF_ParamIndex index, PF_ParamDefPtr def) {
  const Entry entry = EnterHostCall("add_param", effectRef);
  if (entry.call == nullptr || entry.error != PF_Err_NONE) {
    return entry.error;
  }
  EffectInstance& effect = *entry.call->effect;
  if (!effect.declaring || def == nullptr) {
    Complain(*entry.call, "parameter added outside the set-up of parameters, or from nothing");
    return PF_Err_BAD_CALLBACK_PARAM;
  }
  if (index != -1) {
    Complain(*entry.call, "parameter added at position " + std::to_string(index) + " instead of -1");
    return PF_Err_INVALID_INDEX;
  }
  DeclaredParam param;
  param.def = *def;
  param.name = BoundedName(def->name);
  if (param.name.size() == sizeof def->name) {
    Complain(*entry.call, "the name of parameter " + std::to_string(effect.params.size()) + " has no end");
  }
  param.choices = TakeChoices(param.def);
  if (param.def.param_type == PF_Param_ARBITRARY_DATA) {
    TakeDefaultValue(*entry.call, param);
  }
  effect.params.push_back(std::move(param));
  return PF_Err_NONE;
}

PF_Err RegisterUi(PF_ProgPtr effectRef, PF_CustomUIInfo* info) {
  const Entry entry = EnterHostCall("register_ui", effectRef);
  if (entry.call == nullptr || entry.error != PF_Err_NONE) {
    return entry.error;
  }
  EffectInstance& effect = *entry.call->effect;
  if (!effect.declaring || info == nullptr) {
    Complain(*entry.call, "custom controls registered outside the set-up of parameters, or from nothing");
    return PF_Err_BAD_CALLBACK_PARAM;
  }
  effect.customUi = *info;
  ++effect.registeredUis;
  return PF_Err_NONE;
}

}  // namespace vantle::host
