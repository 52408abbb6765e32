// The general plug-in services around one effect: registration, the effect's layer, the composition's
// camera.
#include "host/composition/placement.h"
#include "host/engine/aegp_plugins.h"
#include "host/engine/call_context.h"
#include "host/engine/composition_access.h"
#include "host/engine/not_offered.h"
#include "host/engine/suites.h"

#include <algorithm>
#include <atomic>

namespace vantle::host {
namespace {

std::atomic<AEGP_PluginID> lastPluginId{0};

A_Err RegisterPlugin(AEGP_GlobalRefcon, const A_char* name, AEGP_PluginID* id) {
  const Entry entry = EnterHostCall("AEGP_RegisterWithAEGP");
  if (entry.call == nullptr || entry.error != A_Err_NONE || id == nullptr) {
    return entry.error != A_Err_NONE ? entry.error : A_Err_PARAMETER;
  }
  entry.call->effect->aegpRegistrations.emplace_back(name == nullptr ? "" : name);
  *id = ++lastPluginId;
  return A_Err_NONE;
}

/// The frame whose composition is asked about, or null with the error to return.
FrameScope* FrameOf(const Entry& entry, A_Err& error) {
  if (entry.call == nullptr || entry.error != A_Err_NONE) {
    error = entry.error != A_Err_NONE ? entry.error : A_Err_GENERIC;
    return nullptr;
  }
  error = A_Err_GENERIC;
  return entry.call->frame;
}

A_Err GetEffectLayer(PF_ProgPtr effectRef, AEGP_LayerH* layer) {
  const Entry entry = EnterHostCall("AEGP_GetEffectLayer", effectRef);
  A_Err error = A_Err_NONE;
  if (FrameOf(entry, error) == nullptr || layer == nullptr) {
    return error;
  }
  if (const composition::Composition* composition = CompositionOf(*entry.call)) {
    *layer = NewLayerHandle(*entry.call, composition->effectLayer);
    return A_Err_NONE;
  }
  AegpObject object;
  object.kind = AegpKind::kEffectLayer;
  *layer = NewAegpHandle<AEGP_LayerH>(entry.call->aegp, object);
  return A_Err_NONE;
}

A_Err GetNewEffect(AEGP_PluginID id, PF_ProgPtr effectRef, AEGP_EffectRefH* effect) {
  const Entry entry = EnterHostCall("AEGP_GetNewEffectForEffect", effectRef);
  A_Err error = A_Err_NONE;
  if (FrameOf(entry, error) == nullptr || effect == nullptr) {
    return error;
  }
  if (!IsPluginId(*entry.call, id)) {
    return A_Err_PARAMETER;
  }
  AegpObject object;
  object.kind = AegpKind::kEffect;
  *effect = NewAegpHandle<AEGP_EffectRefH>(entry.call->aegp, object);
  Take(*entry.call->ledger, Item::kEffectRef, "");
  return A_Err_NONE;
}

/// The effect's layer starts with its composition and is not stretched.
A_Err ConvertToCompTime(PF_ProgPtr effectRef, A_long time, A_u_long scale, A_Time* compTime) {
  const Entry entry = EnterHostCall("AEGP_ConvertEffectToCompTime", effectRef);
  A_Err error = A_Err_NONE;
  if (FrameOf(entry, error) == nullptr || compTime == nullptr) {
    return error;
  }
  *compTime = {time, scale};
  return A_Err_NONE;
}

/// The camera through which the request's composition is seen, or null.
const composition::Layer* CameraLayer(const CallContext& call) {
  const composition::Composition* composition = CompositionOf(call);
  return composition == nullptr ? nullptr : composition::ActiveCamera(*composition);
}

/// What the composition's camera comes to at that time; the image plane has the composition's size.
FrameCamera SeenThrough(CallContext& call, const composition::Layer& layer, const A_Time& time) {
  const composition::CameraView view = composition::ViewOfCamera(EvaluationAt(call, time), layer);
  FrameCamera camera;
  for (std::size_t row = 0; row < 4; ++row) {
    std::copy(view.toWorld[row].begin(), view.toWorld[row].end(), camera.matrix.mat[row]);
  }
  camera.distance = view.zoom;
  camera.planeWidth = static_cast<A_short>(CompositionOf(call)->width);
  camera.planeHeight = static_cast<A_short>(CompositionOf(call)->height);
  return camera;
}

A_Err GetEffectCamera(PF_ProgPtr effectRef, const A_Time* time, AEGP_LayerH* camera) {
  const Entry entry = EnterHostCall("AEGP_GetEffectCamera", effectRef);
  A_Err error = A_Err_NONE;
  const FrameScope* frame = FrameOf(entry, error);
  if (frame == nullptr || time == nullptr || camera == nullptr) {
    return error;
  }
  *camera = nullptr;
  if (frame->request->camera.has_value()) {
    AegpObject object;
    object.kind = AegpKind::kCameraLayer;
    *camera = NewAegpHandle<AEGP_LayerH>(entry.call->aegp, object);
  } else if (const composition::Layer* layer = CameraLayer(*entry.call)) {
    *camera = NewLayerHandle(*entry.call, layer->id);
  }
  return A_Err_NONE;
}

A_Err GetCameraMatrix(PF_ProgPtr effectRef, const A_Time* time, A_Matrix4* matrix, A_FpLong* distance,
                      A_short* planeWidth, A_short* planeHeight) {
  const Entry entry = EnterHostCall("AEGP_GetEffectCameraMatrix", effectRef);
  A_Err error = A_Err_NONE;
  const FrameScope* frame = FrameOf(entry, error);
  if (frame == nullptr) {
    return error;
  }
  const composition::Layer* layer = CameraLayer(*entry.call);
  if (!frame->request->camera.has_value() && layer == nullptr) {
    return error;
  }
  if (time == nullptr || matrix == nullptr || distance == nullptr || planeWidth == nullptr ||
      planeHeight == nullptr) {
    return A_Err_PARAMETER;
  }
  const FrameCamera camera =
      frame->request->camera.has_value() ? *frame->request->camera : SeenThrough(*entry.call, *layer, *time);
  *matrix = camera.matrix;
  *distance = camera.distance;
  *planeWidth = camera.planeWidth;
  *planeHeight = camera.planeHeight;
  return A_Err_NONE;
}

struct UtilityTable {
  static constexpr const char* kName = kAEGP_UtilitySuite6Name;
};

AEGP_UtilitySuite6 UtilityFunctions() {
  auto functions = MakeUnofferedTable<UtilityTable, AEGP_UtilitySuite6>();
  functions.AEGP_RegisterWithAEGP = RegisterPlugin;
  return functions;
}

}  // namespace

bool IsPluginId(CallContext& call, AEGP_PluginID id) {
  if (id > 0 && id <= lastPluginId.load()) {
    return true;
  }
  Complain(call, "used plug-in id " + std::to_string(id) + ", which was never given out");
  return false;
}

void AddUtilitySuites(std::vector<SuiteEntry>& suites) {
  static const AEGP_UtilitySuite6 functions = UtilityFunctions();
  suites.push_back({kAEGP_UtilitySuite6Name, kAEGP_UtilitySuite6Version, &functions, false});
}

void AddPfInterfaceSuites(std::vector<SuiteEntry>& suites) {
  static const AEGP_PFInterfaceSuite1 functions{GetEffectLayer, GetNewEffect, ConvertToCompTime,
                                                GetEffectCamera, GetCameraMatrix};
  suites.push_back({kAEGP_PFInterfaceSuite1Name, kAEGP_PFInterfaceSuite1Version, &functions, false});
}

}  // namespace vantle::host
