// Layers of the effect's composition, the items behind them, and references to the effect itself. The
// composition holds the effect's own layer and those that its layer parameters chose.
#include "host/engine/call_context.h"
#include "host/engine/composition_access.h"
#include "host/engine/not_offered.h"
#include "host/engine/suites.h"

namespace vantle::host {
namespace {

/// The object behind a handle of one of the given kinds, when no fault is due and `to` has a place for the
/// answer; else null and the error to return.
template <typename Handle, typename Answer>
const AegpObject* Find(const Entry& entry, Handle handle, std::initializer_list<AegpKind> kinds,
                       const Answer* to, A_Err& error) {
  error = entry.error != A_Err_NONE ? entry.error : A_Err{A_Err_PARAMETER};
  if (entry.call == nullptr || entry.error != A_Err_NONE || to == nullptr) {
    return nullptr;
  }
  const AegpObject* object = FindAegpObject(entry.call->aegp, handle);
  for (const AegpKind kind : kinds) {
    if (object != nullptr && object->kind == kind) {
      return object;
    }
  }
  Complain(*entry.call, "used a layer, composition or item that is not this command's");
  return nullptr;
}

const A_Time* SourceDuration(const CallContext& call, A_long layerId) {
  if (call.frame == nullptr) {
    return nullptr;
  }
  const auto& durations = call.frame->request->sourceDurations;
  const auto found = durations.find(layerId);
  return found == durations.end() ? nullptr : &found->second;
}

template <typename Handle>
Handle NewObject(CallContext& call, AegpKind kind, A_long which) {
  AegpObject object;
  object.kind = kind;
  object.which = which;
  return NewAegpHandle<Handle>(call.aegp, object);
}

constexpr std::initializer_list<AegpKind> kLayers = {AegpKind::kSourceLayer, AegpKind::kEffectLayer,
                                                     AegpKind::kCameraLayer, AegpKind::kCompLayer};

/// What a layer of the composition shows, or null.
const composition::SourceItem* SourceOf(const CallContext& call, A_long layerId) {
  const composition::Composition* composition = CompositionOf(call);
  const composition::Layer* layer =
      composition == nullptr ? nullptr : composition::FindLayer(*composition, layerId);
  return layer != nullptr && layer->source.has_value() ? &*layer->source : nullptr;
}

A_Err GetLayerSourceItem(AEGP_LayerH layer, AEGP_ItemH* item) {
  const Entry entry = EnterHostCall("AEGP_GetLayerSourceItem");
  A_Err error = A_Err_NONE;
  const AegpObject* found = Find(entry, layer, kLayers, item, error);
  if (found == nullptr) {
    return error;
  }
  const bool shows = found->kind == AegpKind::kCompLayer
                         ? SourceOf(*entry.call, found->which) != nullptr
                         : SourceDuration(*entry.call, found->which) != nullptr;
  *item = !shows ? nullptr : NewObject<AEGP_ItemH>(*entry.call, AegpKind::kItem, found->which);
  return A_Err_NONE;
}

A_Err GetLayerParentComp(AEGP_LayerH layer, AEGP_CompH* comp) {
  const Entry entry = EnterHostCall("AEGP_GetLayerParentComp");
  A_Err error = A_Err_NONE;
  if (Find(entry, layer, kLayers, comp, error) == nullptr) {
    return error;
  }
  *comp = NewObject<AEGP_CompH>(*entry.call, AegpKind::kComp, 0);
  return A_Err_NONE;
}

A_Err GetLayerFromId(AEGP_CompH comp, AEGP_LayerIDVal id, AEGP_LayerH* layer) {
  const Entry entry = EnterHostCall("AEGP_GetLayerFromLayerID");
  A_Err error = A_Err_NONE;
  if (Find(entry, comp, {AegpKind::kComp}, layer, error) == nullptr) {
    return error;
  }
  if (CompositionOf(*entry.call) != nullptr) {
    *layer = NewLayerHandle(*entry.call, id);
    return *layer == nullptr ? A_Err{A_Err_PARAMETER} : A_Err{A_Err_NONE};
  }
  *layer = SourceDuration(*entry.call, id) == nullptr
               ? nullptr
               : NewObject<AEGP_LayerH>(*entry.call, AegpKind::kSourceLayer, id);
  return *layer == nullptr ? A_Err{A_Err_PARAMETER} : A_Err{A_Err_NONE};
}

A_Err GetItemDuration(AEGP_ItemH item, A_Time* duration) {
  const Entry entry = EnterHostCall("AEGP_GetItemDuration");
  A_Err error = A_Err_NONE;
  const AegpObject* found = Find(entry, item, {AegpKind::kItem}, duration, error);
  if (found == nullptr) {
    return error;
  }
  if (const composition::SourceItem* source = SourceOf(*entry.call, found->which)) {
    *duration = {source->duration, source->scale};
  } else {
    *duration = *SourceDuration(*entry.call, found->which);
  }
  return A_Err_NONE;
}

/// Of an item that a layer shows, or of the composition's own.
A_Err GetItemDimensions(AEGP_ItemH item, A_long* width, A_long* height) {
  const Entry entry = EnterHostCall("AEGP_GetItemDimensions");
  A_Err error = A_Err_NONE;
  const AegpObject* found = Find(entry, item, {AegpKind::kItem, AegpKind::kCompItem}, width, error);
  if (found == nullptr || height == nullptr) {
    return error;
  }
  if (found->kind == AegpKind::kCompItem) {
    *width = CompositionOf(*entry.call)->width;
    *height = CompositionOf(*entry.call)->height;
    return A_Err_NONE;
  }
  const composition::SourceItem* source = SourceOf(*entry.call, found->which);
  if (source == nullptr) {
    return A_Err_GENERIC;
  }
  *width = source->width;
  *height = source->height;
  return A_Err_NONE;
}

/// Only the switch that puts a layer into space.
A_Err SetLayerFlag(AEGP_LayerH layer, AEGP_LayerFlags flag, A_Boolean on) {
  const Entry entry = EnterHostCall("AEGP_SetLayerFlag");
  A_Err error = A_Err_NONE;
  const AegpObject* found = Find(entry, layer, {AegpKind::kCompLayer}, &flag, error);
  composition::Layer* changed = found == nullptr ? nullptr : LayerOf(*entry.call, *found);
  if (changed == nullptr || !MayChange(*entry.call, "AEGP_SetLayerFlag")) {
    return error;
  }
  if (flag != AEGP_LayerFlag_LAYER_IS_3D) {
    Complain(*entry.call, "set layer flag " + std::to_string(flag) + ", which this host does not offer");
    return A_Err_GENERIC;
  }
  changed->threeD = on != 0;
  NoteChange(*entry.call, "layer \"" + changed->name + "\" " + (on != 0 ? "into space" : "out of space"));
  return A_Err_NONE;
}

A_Err DisposeEffectRef(AEGP_EffectRefH effect) {
  const Entry entry = EnterHostCall("AEGP_DisposeEffect");
  if (entry.call == nullptr) {
    return A_Err_GENERIC;
  }
  AegpObject* object = FindAegpObject(entry.call->aegp, effect);
  if (object == nullptr || object->kind != AegpKind::kEffect || object->disposed) {
    Complain(*entry.call, "gave back an effect reference that it does not hold");
    return A_Err_PARAMETER;
  }
  object->disposed = true;
  Give(*entry.call->ledger, Item::kEffectRef, "");
  return entry.error;
}

struct LayerTableName {
  static constexpr const char* kName = kAEGP_LayerSuite9Name;
};
struct ItemTableName {
  static constexpr const char* kName = kAEGP_ItemSuite9Name;
};
struct EffectTableName {
  static constexpr const char* kName = kAEGP_EffectSuite4Name;
};

AEGP_LayerSuite9 LayerFunctions() {
  auto functions = MakeUnofferedTable<LayerTableName, AEGP_LayerSuite9>();
  functions.AEGP_GetLayerSourceItem = GetLayerSourceItem;
  functions.AEGP_GetLayerParentComp = GetLayerParentComp;
  functions.AEGP_SetLayerFlag = SetLayerFlag;
  functions.AEGP_GetLayerFromLayerID = GetLayerFromId;
  return functions;
}

AEGP_ItemSuite9 ItemFunctions() {
  auto functions = MakeUnofferedTable<ItemTableName, AEGP_ItemSuite9>();
  functions.AEGP_GetItemDuration = GetItemDuration;
  functions.AEGP_GetItemDimensions = GetItemDimensions;
  return functions;
}

AEGP_EffectSuite4 EffectFunctions() {
  auto functions = MakeUnofferedTable<EffectTableName, AEGP_EffectSuite4>();
  functions.AEGP_DisposeEffect = DisposeEffectRef;
  return functions;
}

}  // namespace

void AddLayerSuites(std::vector<SuiteEntry>& suites) {
  static const AEGP_LayerSuite9 functions = LayerFunctions();
  suites.push_back({kAEGP_LayerSuite9Name, kAEGP_LayerSuite9Version, &functions, false});
}

void AddItemSuites(std::vector<SuiteEntry>& suites) {
  static const AEGP_ItemSuite9 functions = ItemFunctions();
  suites.push_back({kAEGP_ItemSuite9Name, kAEGP_ItemSuite9Version, &functions, false});
}

void AddEffectSuites(std::vector<SuiteEntry>& suites) {
  static const AEGP_EffectSuite4 functions = EffectFunctions();
  suites.push_back({kAEGP_EffectSuite4Name, kAEGP_EffectSuite4Version, &functions, false});
}

}  // namespace vantle::host
