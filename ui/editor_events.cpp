#include "ui/editor_events.h"

#include "host_api/commands.h"
#include "host_api/pf_suites.h"
#include "ui/color_picker.h"
#include "ui/curve_rules.h"
#include "ui/drawbot.h"
#include "ui/editor_drawing.h"
#include "ui/gradient_rules.h"
#include "ui/value_access.h"

namespace vantle {
namespace {

// One event of one of our controls.
struct ControlEvent {
  PF_InData* in_data;
  PF_OutData* out_data;
  PF_ParamDef* param;
  PF_EventExtra* extra;
};

ControlFrame FrameOf(const ControlEvent& event) {
  const PF_UnionableRect& rect = event.extra->effect_win.current_frame;
  return {rect.left, rect.top, rect.right, rect.bottom};
}

MousePosition MouseOf(const ControlEvent& event) {
  const PF_Point& point = event.extra->u.do_click.screen_point;
  return {point.h, point.v};
}

MouseClick ClickOf(const ControlEvent& event) {
  const PF_DoClickEventInfo& info = event.extra->u.do_click;
  return {MouseOf(event), (info.modifiers & PF_Mod_CMD_CTRL_KEY) != 0, info.num_clicks > 1};
}

void MarkHandled(const ControlEvent& event) {
  event.extra->evt_out_flags |= PF_EO_HANDLED_EVENT;
}

// ---- Drawing ----

void DrawEditor(Drawing& drawing, const ColorGradient& gradient, const ControlFrame& frame) {
  DrawGradientEditor(drawing, gradient, frame);
}

void DrawEditor(Drawing& drawing, const LifeCurve& curve, const ControlFrame& frame) {
  DrawCurveEditor(drawing, curve, frame);
}

// The suite of custom controls is held only for the one call.
PF_Err GetDrawingReference(const ControlEvent& event, DRAWBOT_DrawRef* reference) {
  const void* suite = nullptr;
  const PF_Err acquired = AcquireSuite(event.in_data, event.out_data, kPF_EffectCustomUISuite2Name,
                                       kPF_EffectCustomUISuite2Version, &suite);
  if (acquired != PF_Err_NONE) return acquired;

  const PF_Err error = static_cast<const PF_EffectCustomUISuite2*>(suite)->PF_GetDrawingReference(
      event.extra->contextH, reference);
  const PF_Err released = ReleaseSuite(event.in_data, event.out_data, kPF_EffectCustomUISuite2Name,
                                       kPF_EffectCustomUISuite2Version);
  return error != PF_Err_NONE ? error : released;
}

// A host without a reference, supplier or surface has nothing to draw on, which is no error.
template <typename Record>
PF_Err DrawWithSuites(const ControlEvent& event, const DrawbotSuites& suites, const Record& record) {
  DRAWBOT_DrawRef reference = nullptr;
  const PF_Err error = GetDrawingReference(event, &reference);
  if (error != PF_Err_NONE || !reference) return error;

  Drawing drawing = {&suites, nullptr, nullptr, PF_Err_NONE};
  NoteError(drawing, suites.draw->GetSupplier(reference, &drawing.supplier));
  if (drawing.error == PF_Err_NONE) NoteError(drawing, suites.draw->GetSurface(reference, &drawing.surface));
  if (drawing.error != PF_Err_NONE || !drawing.supplier || !drawing.surface) return drawing.error;

  DrawEditor(drawing, record, FrameOf(event));
  return drawing.error;
}

template <typename Record>
PF_Err OnDraw(const ControlEvent& event) {
  Record record;
  if ((event.extra->evt_in_flags & PF_EI_DONT_DRAW) != 0) return PF_Err_NONE;
  if (!ReadValue(event.in_data, *event.param, &record)) return PF_Err_NONE;
  MarkHandled(event);

  DrawbotSuites suites;
  const PF_Err acquired = AcquireDrawbotSuites(event.in_data, event.out_data, &suites);
  if (acquired != PF_Err_NONE) return acquired;
  const PF_Err drawn = DrawWithSuites(event, suites, record);
  const PF_Err released = ReleaseDrawbotSuites(event.in_data, event.out_data);
  return drawn != PF_Err_NONE ? drawn : released;
}

// ---- Editing ----

EditResult Click(ColorGradient* gradient, const ControlFrame& frame, const MouseClick& click) {
  return ClickGradient(gradient, frame, click);
}

EditResult Click(LifeCurve* curve, const ControlFrame& frame, const MouseClick& click) {
  return ClickCurve(curve, frame, click);
}

EditResult Drag(ColorGradient* gradient, const ControlFrame& frame, int64_t index, MousePosition mouse) {
  return DragGradient(gradient, frame, index, mouse);
}

EditResult Drag(LifeCurve* curve, const ControlFrame& frame, int64_t index, MousePosition mouse) {
  return DragCurve(curve, frame, index, mouse);
}

// The dialog is modal and the host lives on behind it: the value is read again afterwards, and the stop may
// be gone. A cancelled dialog is no error.
PF_Err RecolourStop(const ControlEvent& event, const GradientStop& stop, int32_t index) {
  Color picked;
  const PF_Err error = PickStopColor(event.in_data, event.out_data, {stop.r, stop.g, stop.b}, &picked);
  if (error != PF_Err_NONE) return error == PF_Interrupt_CANCEL ? PF_Err_NONE : error;

  ColorGradient gradient;
  if (ReadValue(event.in_data, *event.param, &gradient) && RecolourGradientStop(&gradient, index, picked)) {
    CommitValue(event.in_data, event.param, gradient);
  }
  return PF_Err_NONE;
}

PF_Err FinishEdit(const ControlEvent& event, const ColorGradient& gradient, const EditResult& result) {
  if (result.recolour == kNothing) return PF_Err_NONE;
  return RecolourStop(event, gradient.stops[result.recolour], result.recolour);
}

PF_Err FinishEdit(const ControlEvent&, const LifeCurve&, const EditResult&) {
  return PF_Err_NONE;
}

template <typename Record>
PF_Err OnClick(const ControlEvent& event) {
  Record record;
  if (!ReadValue(event.in_data, *event.param, &record)) return PF_Err_NONE;
  const EditResult result = Click(&record, FrameOf(event), ClickOf(event));
  if (!IsHandled(result)) return PF_Err_NONE;
  if (result.changed && !CommitValue(event.in_data, event.param, record)) return PF_Err_NONE;
  MarkHandled(event);

  // Without a drag of ours, one that the host sends all the same finds no index to move.
  PF_DoClickEventInfo& info = event.extra->u.do_click;
  info.continue_refcon[0] = result.drag;
  if (result.drag != kNothing) info.send_drag = 1;
  return FinishEdit(event, record, result);
}

// Drags go on until the host says that the button is up.
template <typename Record>
PF_Err OnDrag(const ControlEvent& event) {
  Record record;
  if (!ReadValue(event.in_data, *event.param, &record)) return PF_Err_NONE;
  PF_DoClickEventInfo& info = event.extra->u.do_click;
  const EditResult result = Drag(&record, FrameOf(event), info.continue_refcon[0], MouseOf(event));
  if (!result.changed || !CommitValue(event.in_data, event.param, record)) return PF_Err_NONE;
  MarkHandled(event);

  info.continue_refcon[0] = result.drag;
  if (!info.last_time) info.send_drag = 1;
  return PF_Err_NONE;
}

template <typename Record>
PF_Err OnControlEvent(const ControlEvent& event) {
  switch (event.extra->e_type) {
    case PF_Event_DRAW:
      return OnDraw<Record>(event);
    case PF_Event_DO_CLICK:
      // A click that comes with the drag already under way continues it.
      return event.extra->u.do_click.send_drag ? OnDrag<Record>(event) : OnClick<Record>(event);
    case PF_Event_DRAG:
      return OnDrag<Record>(event);
    default:
      return PF_Err_NONE;
  }
}

bool IsCurveControl(PF_ParamIndex index) {
  return index == kScaleOverLifeControl || index == kOpacityOverLifeControl;
}

}  // namespace

PF_Err HandleEvent(PF_InData* in_data, PF_OutData* out_data, PF_ParamDef* params[], PF_LayerDef*,
                   PF_EventExtra* extra) {
  if (!in_data || !params || !extra || extra->effect_win.area != PF_EA_CONTROL) return PF_Err_NONE;
  const PF_ParamIndex index = extra->effect_win.index;
  const bool isGradient = index == kColorGradientControl;
  if ((!isGradient && !IsCurveControl(index)) || !params[index]) return PF_Err_NONE;

  const ControlEvent event = {in_data, out_data, params[index], extra};
  return isGradient ? OnControlEvent<ColorGradient>(event) : OnControlEvent<LifeCurve>(event);
}

}  // namespace vantle
