// The panel as the drawing suites see it: one context, one surface, the objects of the running event and the
// answers of the colour picker. Suite functions find the session of their thread.
#pragma once

#include "host/drawing/draw_list.h"
#include "host_api/call_records.h"
#include "host_api/commands.h"
#include "host_api/events.h"

#include <functional>
#include <map>
#include <memory>
#include <string>
#include <unordered_map>
#include <vector>

namespace vantle::host {

enum class DrawingKind { kPen, kBrush, kFont, kPath, kImage };

/// One object of the supplier. `references` is 0 once it was released; the record stays, so that late uses
/// are told from wild ones.
struct DrawingObject {
  DrawingKind kind = DrawingKind::kPen;
  std::string name;  ///< "pen2", counted within the event
  int references = 1;
  DRAWBOT_ColorRGBA color{};
  float size = 0;  ///< of a pen or a font
  DrawPath path;
  std::shared_ptr<const DrawImage> image;
};

/// What PushStateStack keeps. Clip bounds are those of the surface, whatever the transform.
struct SurfaceState {
  DRAWBOT_Rect32 clip{};
  DRAWBOT_MatrixF32 transform{};
  DRAWBOT_AntiAliasPolicy antiAlias = kDRAWBOT_AntiAliasPolicy_High;
  DRAWBOT_InterpolationPolicy interpolation = kDRAWBOT_InterpolationPolicy_Default;
};

/// The user's answer to the colour picker. PF_Interrupt_CANCEL when it was closed without a choice.
struct PickerReply {
  PF_Err error = PF_Err_NONE;
  PF_PixelFloat color{};
};

/// One panel. Stays where it is: the references handed to the effect point into it.
struct DrawingSession {
  float screenScale = 1;  ///< pixels of the screen per unit of the panel
  float fontSize = 11;    ///< of the default font, units
  PF_Point mouse{};       ///< where it was last, in the panel
  std::function<PickerReply(const std::string& title, const PF_PixelFloat& sample)> picker;

  // What the running event drew.
  bool drawing = false;            ///< a DRAW event is running
  DrawList list;                   ///< what to paint
  std::vector<std::string> calls;  ///< every call, one line each
  std::vector<PF_Rect> invalidated;

  // Books.
  std::unordered_map<const void*, std::unique_ptr<DrawingObject>> objects;
  std::vector<DrawingObject*> current;  ///< made in the running event
  std::map<DrawingKind, int> made;
  std::vector<SurfaceState> states;
  PF_Context context{};
  PF_Context* contextField = nullptr;
  char tokens[3] = {};  ///< their addresses are reference, supplier and surface

  DrawingSession();
  DrawingSession(const DrawingSession&) = delete;
  DrawingSession& operator=(const DrawingSession&) = delete;
};

/// The context that events of the panel carry.
PF_ContextH ContextOf(DrawingSession& session);

/// Opens the surface for one DRAW event within `clip`, or for another event, in which nothing may be drawn.
void BeginEvent(DrawingSession& session, bool drawing, const DRAWBOT_Rect32& clip);
/// Closes it. Objects still alive belong to an earlier event from now on.
void EndEvent(DrawingSession& session);

/// Makes a session the one of this thread, until the end of the scope.
struct DrawingScope {
  explicit DrawingScope(DrawingSession& session);
  ~DrawingScope();
  DrawingScope(const DrawingScope&) = delete;
  DrawingScope& operator=(const DrawingScope&) = delete;

 private:
  DrawingSession* outer_;
};

/// The session of this thread, or null.
DrawingSession* CurrentDrawing();

}  // namespace vantle::host
