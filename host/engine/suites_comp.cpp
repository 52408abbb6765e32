// Compositions: the item that stands for one, and new nulls.
#include "host/engine/composition_access.h"
#include "host/engine/not_offered.h"
#include "host/engine/suites.h"

namespace vantle::host {
namespace {

bool IsComp(CallContext& call, AEGP_CompH comp) {
  const AegpObject* object = FindAegpObject(call.aegp, comp);
  if (object != nullptr && object->kind == AegpKind::kComp) {
    return true;
  }
  Complain(call, "used a composition that is not this command's");
  return false;
}

A_Err GetItemFromComp(AEGP_CompH comp, AEGP_ItemH* item) {
  const Entry entry = EnterHostCall("AEGP_GetItemFromComp");
  if (entry.call == nullptr || entry.error != A_Err_NONE || item == nullptr) {
    return entry.error != A_Err_NONE ? entry.error : A_Err_PARAMETER;
  }
  if (!IsComp(*entry.call, comp)) {
    return A_Err_PARAMETER;
  }
  *item = nullptr;
  const composition::Composition* composition = CompositionOf(*entry.call);
  if (composition != nullptr && composition->hasItem) {
    AegpObject object;
    object.kind = AegpKind::kCompItem;
    *item = NewAegpHandle<AEGP_ItemH>(entry.call->aegp, object);
  }
  return A_Err_NONE;
}

/// A null lies above all other layers, in the middle of the composition, and lasts as long as that: the host
/// has no preference for the duration of stills.
A_Err CreateNull(const A_UTF16Char* name, AEGP_CompH comp, const A_Time*, AEGP_LayerH* layer) {
  const Entry entry = EnterHostCall("AEGP_CreateNullInComp");
  if (entry.call == nullptr || entry.error != A_Err_NONE || name == nullptr || layer == nullptr) {
    return entry.error != A_Err_NONE ? entry.error : A_Err_PARAMETER;
  }
  if (!IsComp(*entry.call, comp)) {
    return A_Err_PARAMETER;
  }
  if (!MayChange(*entry.call, "AEGP_CreateNullInComp")) {
    return A_Err_GENERIC;
  }
  composition::Composition& composition = *CompositionOf(*entry.call);
  const std::string text = TextOf(name);
  const A_long id = AddOnTop(composition, MakeLayer(composition, composition::LayerKind::kNull, text));
  NoteChange(*entry.call, "new null \"" + text + "\"");
  *layer = NewLayerHandle(*entry.call, id);
  return A_Err_NONE;
}

struct CompTableName {
  static constexpr const char* kName = kAEGP_CompSuite11Name;
};

AEGP_CompSuite11 CompFunctions() {
  auto functions = MakeUnofferedTable<CompTableName, AEGP_CompSuite11>();
  functions.AEGP_GetItemFromComp = GetItemFromComp;
  functions.AEGP_CreateNullInComp = CreateNull;
  return functions;
}

}  // namespace

void AddCompSuites(std::vector<SuiteEntry>& suites) {
  static const AEGP_CompSuite11 functions = CompFunctions();
  suites.push_back({kAEGP_CompSuite11Name, kAEGP_CompSuite11Version, &functions, false});
}

}  // namespace vantle::host
