// An open Effect Controls panel: values at one frame, the picture, and the steps that can be undone. The
// effect draws and edits its own controls in it through the events that a host sends.
#pragma once

#include "host/drawing/cairo_painter.h"
#include "host/drawing/drawing_session.h"
#include "host/engine/frame_request.h"
#include "host/io/picture.h"
#include "host/panel/panel_layout.h"
#include "host/panel/panel_paint.h"
#include "host/scene/scene.h"

#include <cstdint>
#include <map>
#include <string>
#include <vector>

namespace vantle::panel {

using ValueBytes = std::vector<std::uint8_t>;

/// One change that the host can take back: an event that the effect handled and that changed `param`.
struct UndoStep {
  int param = 0;
  std::string event;  ///< what the user did, "drag to 90,14"
  ValueBytes before;
  ValueBytes after;
  std::string textBefore;
  std::string textAfter;
};

struct PanelOptions {
  double scale = 1;   ///< pixels per unit, 0.25 to 8
  int32_t frame = 0;  ///< at which values are shown and changed
};

/// Stays where it is once opened. `steps` up to `applied` are in force; those behind it can be redone.
struct Panel {
  host::EffectInstance* effect = nullptr;
  PanelOptions options;
  PanelLayout layout;
  PanelContent content;
  host::FrameRequest request;
  host::DrawingSession drawing;
  host::CairoSurface surface;
  host::Cairo cairo;
  std::vector<UndoStep> steps;
  size_t applied = 0;
  std::vector<std::string> record;  ///< every event and what it drew, one line a call
};

/// Binds the scene's values at the frame, paints the plain controls and has the effect draw its own. The
/// scene's pictures are not read. Values held to their range are told in `warnings`. Throws Failure:
/// kUnreadableInput for a parameter that does not fit, kUsage for a picture that would be too large,
/// kEffectError when the effect fails or misbehaves.
void OpenPanel(const scene::Scene& scene, host::EffectInstance& effect, const PanelOptions& options,
               Panel* panel, std::vector<std::string>* warnings);

/// Sends what a host sends when a panel goes away. Throws Failure (kEffectError).
void ClosePanel(Panel& panel);

/// The bytes of a custom value as it stands.
const ValueBytes& CurrentValue(const Panel& panel, int param);

/// Takes up to `count` steps back, or forward again, and draws. Returns how many it were.
size_t Undo(Panel& panel, size_t count);
size_t Redo(Panel& panel, size_t count);

/// What the effect answered to one event.
struct EventAnswer {
  PF_Err error = PF_Err_NONE;
  std::string message;
  bool handled = false;
  bool changed = false;  ///< became an undo step
};

/// Sends one event to the control of `param`, with everything but `e_type` and `u` filled in. A changed value
/// becomes a step, `event` says of what, and the control is drawn again. An error of the effect is returned,
/// save when drawing; what the host finds wrong throws Failure (kEffectError).
EventAnswer SendEvent(Panel& panel, int param, const std::string& event, PF_EventExtra& extra);

/// Has the effect draw its control over what it drew before.
void DrawControl(Panel& panel, int param);

/// The picture so far, opaque.
io::Picture PanelPicture(const Panel& panel);

}  // namespace vantle::panel
