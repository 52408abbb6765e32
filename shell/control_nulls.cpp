#include "shell/control_nulls.h"

#include "host_api/aegp_suites.h"
#include "shell/command_handlers.h"
#include "shell/effect_handle.h"
#include "shell/parameter_ids.h"
#include "shell/suites.h"

#include <array>
#include <string>
#include <string_view>

namespace vantle {
namespace {

constexpr int kBoundControls = 9;

// A null layer and the first of the nine controls it drives; the others follow it in the parameter list.
struct ControlNull {
  std::string_view name;
  PF_ParamIndex firstControl;
};

constexpr ControlNull kControlNulls[] = {{"Vantle A Ctrl", kParamAPositionX},
                                         {"Vantle B Ctrl", kParamBPositionX}};

// What of the null each control follows. Planes are placed from the composition's centre, nulls from its
// corner; the null's depth scale stands in for the plane's thickness.
constexpr std::array<std::string_view, kBoundControls> kSuffixes = {
    ".transform.position[0] - thisComp.width/2",
    ".transform.position[1] - thisComp.height/2",
    ".transform.position[2]",
    ".transform.xRotation",
    ".transform.yRotation",
    ".transform.zRotation",
    ".transform.scale[0]",
    ".transform.scale[1]",
    ".transform.scale[2]",
};

// The suites of one press, all of them required.
struct NullSuites {
  explicit NullSuites(const PF_InData* in_data)
      : effect(in_data, kAEGP_PFInterfaceSuite1Name, kAEGP_PFInterfaceSuite1Version),
        layers(in_data, kAEGP_LayerSuite9Name, kAEGP_LayerSuite9Version),
        comps(in_data, kAEGP_CompSuite11Name, kAEGP_CompSuite11Version),
        streams(in_data, kAEGP_StreamSuite6Name, kAEGP_StreamSuite6Version),
        items(in_data, kAEGP_ItemSuite9Name, kAEGP_ItemSuite9Version) {
    if (!effect || !layers || !comps || !streams || !items) throw PF_Err{PF_Err_BAD_CALLBACK_PARAM};
  }

  ScopedSuite<AEGP_PFInterfaceSuite1> effect;
  ScopedSuite<AEGP_LayerSuite9> layers;
  ScopedSuite<AEGP_CompSuite11> comps;
  ScopedSuite<AEGP_StreamSuite6> streams;
  ScopedSuite<AEGP_ItemSuite9> items;
};

// Where the nulls go.
struct Target {
  AEGP_CompH comp = nullptr;
  A_long width = 0;
  A_long height = 0;
};

// All that we write is ASCII, so widening byte by byte is the whole conversion.
std::u16string Widen(std::string_view text) {
  return {text.begin(), text.end()};
}

const A_UTF16Char* HostText(const std::u16string& text) {
  static_assert(sizeof(char16_t) == sizeof(A_UTF16Char));
  return reinterpret_cast<const A_UTF16Char*>(text.c_str());
}

Target FindTarget(const PF_InData& in_data, const NullSuites& host) {
  Target target;
  AEGP_LayerH layer = nullptr;
  if (host.effect->AEGP_GetEffectLayer(in_data.effect_ref, &layer) != A_Err_NONE || layer == nullptr)
    return {};
  if (host.layers->AEGP_GetLayerParentComp(layer, &target.comp) != A_Err_NONE) return {};
  if (target.comp == nullptr) return {};
  AEGP_ItemH item = nullptr;
  if (host.comps->AEGP_GetItemFromComp(target.comp, &item) != A_Err_NONE || item == nullptr) return target;
  if (host.items->AEGP_GetItemDimensions(item, &target.width, &target.height) != A_Err_NONE) {
    target.width = 0;
    target.height = 0;
  }
  return target;
}

// A failure leaves the null where the host put it.
void MoveToCentre(const NullSuites& host, AEGP_LayerH layer, const Target& target) {
  const AEGP_PluginID id = GeneralPluginId();
  AEGP_StreamRefH stream = nullptr;
  if (host.streams->AEGP_GetNewLayerStream(id, layer, AEGP_LayerStream_POSITION, &stream) != A_Err_NONE ||
      stream == nullptr) {
    return;
  }
  AEGP_StreamValue2 value{};
  value.streamH = stream;
  value.val.three_d = {target.width * 0.5, target.height * 0.5, 0.0};
  host.streams->AEGP_SetStreamValue(id, stream, &value);
  host.streams->AEGP_DisposeStream(stream);
}

void Bind(const NullSuites& host, AEGP_EffectRefH effect, PF_ParamIndex control,
          const std::u16string& expression) {
  const AEGP_PluginID id = GeneralPluginId();
  AEGP_StreamRefH stream = nullptr;
  if (host.streams->AEGP_GetNewEffectStreamByIndex(id, effect, control, &stream) != A_Err_NONE ||
      stream == nullptr) {
    return;
  }
  host.streams->AEGP_SetExpression(id, stream, HostText(expression));
  host.streams->AEGP_SetExpressionState(id, stream, A_Boolean{1});
  host.streams->AEGP_DisposeStream(stream);
}

void CreateNull(const NullSuites& host, AEGP_EffectRefH effect, const Target& target,
                const ControlNull& null) {
  AEGP_LayerH layer = nullptr;
  if (host.comps->AEGP_CreateNullInComp(HostText(Widen(null.name)), target.comp, nullptr, &layer) !=
          A_Err_NONE ||
      layer == nullptr) {
    return;
  }
  host.layers->AEGP_SetLayerFlag(layer, AEGP_LayerFlag_LAYER_IS_3D, A_Boolean{1});
  MoveToCentre(host, layer, target);
  for (int k = 0; k < kBoundControls; ++k) {
    Bind(host, effect, null.firstControl + k, Widen(NullExpression(null.name, k)));
  }
}

}  // namespace

std::string NullExpression(std::string_view nullName, int k) {
  std::string text = "thisComp.layer(\"";
  text += nullName;
  text += "\")";
  text += kSuffixes[static_cast<size_t>(k)];
  return text;
}

PF_Err CreateControlNulls(const PF_InData* in_data) {
  if (in_data == nullptr || IsPremierePro(in_data) || GeneralPluginId() == 0) return PF_Err_NONE;
  const NullSuites host(in_data);

  // Without a composition around the effect there is nothing to put nulls into.
  const Target target = FindTarget(*in_data, host);
  if (target.comp == nullptr) return PF_Err_NONE;
  EffectHandle effect(in_data, *host.effect.get());
  if (effect.get() == nullptr) return PF_Err_NONE;

  for (const ControlNull& null : kControlNulls) CreateNull(host, effect.get(), target, null);
  if (!effect.GiveBack()) return PF_Err_BAD_CALLBACK_PARAM;
  return PF_Err_NONE;
}

}  // namespace vantle
