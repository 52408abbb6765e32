#include "tests/panel/drawing_effect.h"

#include "host/engine/module.h"
#include "host_api/commands.h"

#include <gtest/gtest.h>

namespace vantle::host {
namespace {

const Drawer* currentDrawer = nullptr;

PF_Err RegisterDrawing(PF_PluginDataPtr token, PF_PluginDataCB callback, SPBasicSuite*, const char*,
                       const char*) {
  const auto text = [](const char* string) { return reinterpret_cast<const A_u_char*>(string); };
  return callback(token, text("Drawing"), text("Test_Drawing"), text("Test"), text("EffectMain"),
                  kPluginKindEffect, 13, 28, 8);
}

template <typename Suite>
const Suite* Acquire(const PF_InData* in, const char* name, A_long version) {
  const void* suite = nullptr;
  in->pica_basicP->AcquireSuite(name, version, &suite);
  return static_cast<const Suite*>(suite);
}

PF_Err RunDrawer(PF_InData* in, PF_EventExtra* extra) {
  Pencil pencil;
  pencil.in = in;
  pencil.extra = extra;
  pencil.draw = Acquire<DRAWBOT_DrawbotSuite1>(in, kDRAWBOT_DrawbotSuite1Name, kDRAWBOT_DrawbotSuite1Version);
  pencil.supplier =
      Acquire<DRAWBOT_SupplierSuite1>(in, kDRAWBOT_SupplierSuite1Name, kDRAWBOT_SupplierSuite1Version);
  pencil.surface =
      Acquire<DRAWBOT_SurfaceSuite2>(in, kDRAWBOT_SurfaceSuite2Name, kDRAWBOT_SurfaceSuite2Version);
  pencil.path = Acquire<DRAWBOT_PathSuite1>(in, kDRAWBOT_PathSuite1Name, kDRAWBOT_PathSuite1Version);
  pencil.customUi =
      Acquire<PF_EffectCustomUISuite2>(in, kPF_EffectCustomUISuite2Name, kPF_EffectCustomUISuite2Version);
  pencil.app = Acquire<PFAppSuite6>(in, kPFAppSuite6Name, kPFAppSuite6Version);
  if (extra->e_type == PF_Event_DRAW) {
    DRAWBOT_DrawRef reference = nullptr;
    pencil.customUi->PF_GetDrawingReference(extra->contextH, &reference);
    pencil.draw->GetSupplier(reference, &pencil.supplierRef);
    pencil.draw->GetSurface(reference, &pencil.surfaceRef);
  }
  const PF_Err error = (*currentDrawer)(pencil);
  in->pica_basicP->ReleaseSuite(kDRAWBOT_DrawbotSuite1Name, kDRAWBOT_DrawbotSuite1Version);
  in->pica_basicP->ReleaseSuite(kDRAWBOT_SupplierSuite1Name, kDRAWBOT_SupplierSuite1Version);
  in->pica_basicP->ReleaseSuite(kDRAWBOT_SurfaceSuite2Name, kDRAWBOT_SurfaceSuite2Version);
  in->pica_basicP->ReleaseSuite(kDRAWBOT_PathSuite1Name, kDRAWBOT_PathSuite1Version);
  in->pica_basicP->ReleaseSuite(kPF_EffectCustomUISuite2Name, kPF_EffectCustomUISuite2Version);
  in->pica_basicP->ReleaseSuite(kPFAppSuite6Name, kPFAppSuite6Version);
  return error;
}

PF_Err RunDrawing(PF_Cmd command, PF_InData* in, PF_OutData* out, PF_ParamDef*[], PF_LayerDef*, void* extra) {
  if (command == PF_Cmd_GLOBAL_SETUP) out->my_version = 1;
  if (command == PF_Cmd_PARAMS_SETUP) out->num_params = 1;
  if (command != PF_Cmd_EVENT || currentDrawer == nullptr) return PF_Err_NONE;
  return RunDrawer(in, static_cast<PF_EventExtra*>(extra));
}

}  // namespace

std::unique_ptr<EffectInstance> OpenDrawingEffect() {
  OpenedEffect opened = OpenEffect(MakeLinkedModule(RegisterDrawing, RunDrawing), HostOptions());
  if (opened.effect == nullptr) ADD_FAILURE() << opened.result.message << opened.result.error;
  return std::move(opened.effect);
}

FrameResult SendDrawing(EffectInstance& effect, DrawingSession& session, PF_EventType type,
                        const Drawer& drawer) {
  FrameRequest request;
  request.width = 4;
  request.height = 4;
  PF_EventExtra extra{};
  extra.contextH = ContextOf(session);
  extra.e_type = type;
  currentDrawer = &drawer;
  const DrawingScope scope(session);
  BeginEvent(session, type == PF_Event_DRAW, {0, 0, 100, 50});
  FrameResult result = SendFrameCommand(effect, PF_Cmd_EVENT, request, nullptr, &extra);
  EndEvent(session);
  currentDrawer = nullptr;
  return result;
}

std::string ProblemsOf(const FrameResult& result) {
  std::string all;
  for (const std::string& line : result.problems) all += line + "\n";
  return all;
}

}  // namespace vantle::host
