// The suite of custom controls, and of the application what such controls use: its colour picker, the mouse,
// and the request to be drawn again.
#include "host/drawing/drawing_calls.h"
#include "host/drawing/drawing_suites.h"
#include "host/engine/not_offered.h"
#include "host_api/commands.h"
#include "host_api/pf_suites.h"

#include <cmath>

namespace vantle::host {

void AddDrawingSuites(std::vector<SuiteEntry>& suites) {
  AddSupplierSuites(suites);
  AddSurfaceSuites(suites);
  AddPathSuites(suites);
  AddPanelSuites(suites);
}

namespace {

constexpr PF_Err kBad = PF_Err_BAD_CALLBACK_PARAM;

PF_Err GetDrawingReference(PF_ContextH context, DRAWBOT_DrawRef* reference) {
  const DrawingCall call = EnterDrawing("PF_GetDrawingReference");
  if (call.error != PF_Err_NONE) return call.error;
  if (context != ContextOf(*call.session) || reference == nullptr)
    return Misused(call, "with a context that is not the event's, or without a place");
  Record(call, "get drawing reference");
  *reference = ReferenceOf(*call.session);
  return PF_Err_NONE;
}

/// Functions of the application may be called in any event, but only while a panel is open.
struct PanelCall {
  DrawingCall call;
  PF_Err error;
};

PanelCall EnterPanel(const char* function) {
  const Entry entry = EnterHostCall(function);
  PanelCall entered{{entry.call, CurrentDrawing(), function, PF_Err_NONE}, entry.error};
  if (entry.call != nullptr && entered.call.session == nullptr)
    entered.error = Misused(entered.call, "without an open panel");
  return entered;
}

/// A modal dialog lets the rest of the host run on, so no value may stay locked behind it.
void CheckLocks(const DrawingCall& call) {
  const FrameScope* frame = call.call->frame;
  if (frame == nullptr) return;
  for (const PF_ParamDef& param : frame->params)
    if (param.param_type == PF_Param_ARBITRARY_DATA && param.u.arb_d.value != nullptr &&
        HandleLocks(call.call->effect->handles, param.u.arb_d.value) > 1)
      Misused(call, "while the effect holds a value locked");
}

PF_Err ColorPicker(const A_char* title, const PF_PixelFloat* sample, PF_Boolean useTransform,
                   PF_PixelFloat* color) {
  const PanelCall entered = EnterPanel("PF_AppColorPickerDialog");
  if (entered.error != PF_Err_NONE) return entered.error;
  if (title == nullptr || sample == nullptr || color == nullptr)
    return Misused(entered.call, "without a title, a sample or a place for the colour");
  CheckLocks(entered.call);
  const DrawingSession& session = *entered.call.session;
  const PickerReply reply =
      session.picker ? session.picker(title, *sample) : PickerReply{PF_Interrupt_CANCEL, {}};
  Record(entered.call,
         "colour picker \"" + std::string(title) + "\" from " +
             Numbers({sample->red, sample->green, sample->blue, sample->alpha}) +
             (useTransform != 0 ? " transformed" : "") + ": " +
             (reply.error == PF_Err_NONE ? Numbers({reply.color.red, reply.color.green, reply.color.blue})
                                         : "error " + std::to_string(reply.error)));
  if (reply.error == PF_Err_NONE) *color = reply.color;
  return reply.error;
}

PF_Err GetMouse(PF_Point* point) {
  const PanelCall entered = EnterPanel("PF_GetMouse");
  if (entered.error != PF_Err_NONE || point == nullptr)
    return entered.error != PF_Err_NONE ? entered.error : kBad;
  *point = entered.call.session->mouse;
  return PF_Err_NONE;
}

PF_Err InvalidateRect(PF_ContextH context, const PF_Rect* rect) {
  const PanelCall entered = EnterPanel("PF_InvalidateRect");
  if (entered.error != PF_Err_NONE) return entered.error;
  if (context != ContextOf(*entered.call.session))
    return Misused(entered.call, "with a context that is not this panel's");
  entered.call.session->invalidated.push_back(rect != nullptr ? *rect : PF_Rect{});
  return PF_Err_NONE;
}

struct CustomUiTable {
  static constexpr const char* kName = "PF Effect Custom UI Suite";
};
struct AppTable {
  static constexpr const char* kName = "PF AE App Suite";
};

PF_EffectCustomUISuite2 MakeCustomUiSuite() {
  auto suite = MakeUnofferedTable<CustomUiTable, PF_EffectCustomUISuite2>();
  suite.PF_GetDrawingReference = GetDrawingReference;
  return suite;
}

PFAppSuite6 MakeAppSuite() {
  auto suite = MakeUnofferedTable<AppTable, PFAppSuite6>();
  suite.PF_AppColorPickerDialog = ColorPicker;
  suite.PF_GetMouse = GetMouse;
  suite.PF_InvalidateRect = InvalidateRect;
  return suite;
}

}  // namespace

void AddPanelSuites(std::vector<SuiteEntry>& suites) {
  static const PF_EffectCustomUISuite2 customUi2 = MakeCustomUiSuite();
  static constexpr PF_EffectCustomUISuite1 kCustomUi1{GetDrawingReference};
  static const PFAppSuite6 app = MakeAppSuite();
  // Premiere Pro has the first version alone.
  suites.push_back({kPF_EffectCustomUISuite2Name, kPF_EffectCustomUISuite2Version, &customUi2, false});
  suites.push_back({kPF_EffectCustomUISuite1Name, kPF_EffectCustomUISuite1Version, &kCustomUi1, true});
  suites.push_back({kPFAppSuite6Name, kPFAppSuite6Version, &app, false});
}

}  // namespace vantle::host
