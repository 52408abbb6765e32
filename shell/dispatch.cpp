#include "shell/dispatch.h"

#include "host_api/arbitrary_data.h"
#include "shell/command_handlers.h"
#include "shell/control_nulls.h"
#include "shell/guard.h"
#include "shell/parameter_ids.h"
#include "ui/custom_value_callbacks.h"
#include "ui/editor_events.h"

namespace vantle {
namespace {

// The button is the only control whose change asks for more than a new frame.
PF_Err HandleChangedControl(const PF_InData* in_data, const PF_UserChangedParamExtra* change) {
  if (change == nullptr || change->param_index != kParamControlNulls) return PF_Err_NONE;
  return CreateControlNulls(in_data);
}

// No control is ever enabled, disabled or hidden while the effect runs, and nothing is kept per sequence or
// frame: the commands that would serve that are left to succeed on their own.
PF_Err Route(PF_Cmd command, PF_InData* in_data, PF_OutData* out_data, PF_ParamDef* params[],
             PF_LayerDef* output, void* extra) {
  switch (command) {
    case PF_Cmd_ABOUT:
      return ShowAbout(in_data, out_data);
    case PF_Cmd_GLOBAL_SETUP:
      return SetUpGlobally(in_data, out_data);
    case PF_Cmd_GLOBAL_SETDOWN:
      return SetDownGlobally();
    case PF_Cmd_PARAMS_SETUP:
      return SetUpParameters(in_data, out_data);
    case PF_Cmd_RENDER:
      return RenderFrame(in_data, params, output);
    case PF_Cmd_USER_CHANGED_PARAM:
      return HandleChangedControl(in_data, static_cast<const PF_UserChangedParamExtra*>(extra));
    case PF_Cmd_EVENT:
      return HandleEvent(in_data, out_data, params, output, static_cast<PF_EventExtra*>(extra));
    case PF_Cmd_ARBITRARY_CALLBACK:
      return HandleCustomValue(in_data, static_cast<PF_ArbParamsExtra*>(extra));
    default:
      return PF_Err_NONE;
  }
}

}  // namespace

PF_Err DispatchCommand(PF_Cmd command, PF_InData* in_data, PF_OutData* out_data, PF_ParamDef* params[],
                       PF_LayerDef* output, void* extra) noexcept {
  return Guarded([&] { return Route(command, in_data, out_data, params, output, extra); });
}

}  // namespace vantle
