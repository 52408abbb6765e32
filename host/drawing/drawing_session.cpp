#include "host/drawing/drawing_session.h"

#include "host/drawing/drawing_calls.h"

namespace vantle::host {
namespace {

thread_local DrawingSession* currentSession = nullptr;

constexpr A_u_long kContextMagic = 0x05ea771e;
constexpr DRAWBOT_MatrixF32 kIdentity{{{1, 0, 0}, {0, 1, 0}, {0, 0, 1}}};

}  // namespace

DrawingSession::DrawingSession() : contextField(&context) {
  context.magic = kContextMagic;
  context.w_type = PF_Window_EFFECT;
  context.reserved_drawref = ReferenceOf(*this);
}

PF_ContextH ContextOf(DrawingSession& session) {
  return &session.contextField;
}

void BeginEvent(DrawingSession& session, bool drawing, const DRAWBOT_Rect32& clip) {
  session.drawing = drawing;
  session.list.clear();
  session.calls.clear();
  session.invalidated.clear();
  session.made.clear();
  SurfaceState state;
  state.clip = clip;
  state.transform = kIdentity;
  session.states.assign(1, state);
}

void EndEvent(DrawingSession& session) {
  session.drawing = false;
  for (DrawingObject* object : session.current) {
    object->references = 0;
    // Only its address and its kind are still of use.
    object->path = {};
    object->image.reset();
  }
  session.current.clear();
}

DrawingScope::DrawingScope(DrawingSession& session) : outer_(currentSession) {
  currentSession = &session;
}

DrawingScope::~DrawingScope() {
  currentSession = outer_;
}

DrawingSession* CurrentDrawing() {
  return currentSession;
}

}  // namespace vantle::host
