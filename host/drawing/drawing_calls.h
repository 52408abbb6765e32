// What the functions of all drawing suites begin and end with.
#pragma once

#include "host/drawing/drawing_session.h"
#include "host/engine/call_context.h"

#include <initializer_list>
#include <string>

namespace vantle::host {

/// With an `error` the function must return it at once: the call is a fault to provoke, comes outside of a
/// DRAW event, or names a supplier or surface that is not the panel's (the latter two are noted).
struct DrawingCall {
  CallContext* call = nullptr;
  DrawingSession* session = nullptr;
  const char* function = "";
  PF_Err error = PF_Err_NONE;
};

DrawingCall EnterDrawing(const char* function);
DrawingCall EnterDrawing(const char* function, DRAWBOT_SupplierRef supplier);
DrawingCall EnterDrawing(const char* function, DRAWBOT_SurfaceRef surface);
/// For functions that do their work even when told to fail: `error` is that of misuse only, `due` the fault.
DrawingCall EnterDrawing(const char* function, PF_Err* due);

/// Notes a misuse and returns the error for it.
PF_Err Misused(const DrawingCall& call, const std::string& what);

/// Writes a line into the list of calls.
void Record(const DrawingCall& call, const std::string& line);

/// "a b c", each number the shortest that reads back as the same float.
std::string Numbers(std::initializer_list<float> values);
std::string ColorText(const DRAWBOT_ColorRGBA& color);
std::string RectText(const DRAWBOT_RectF32& rect);

/// Whether all are numbers that can be drawn with.
bool AllFinite(std::initializer_list<float> values);

/// A new object, in the books, which starts a line "pen1 = new pen"; `details` end it.
DrawingObject& MakeObject(const DrawingCall& call, DrawingKind kind, const std::string& details);

/// The live object of that kind; null, noted, for anything else.
DrawingObject* FindObject(const DrawingCall& call, const void* ref, DrawingKind kind);
/// The live object of any kind.
DrawingObject* FindObject(const DrawingCall& call, const void* ref);

const char* KindName(DrawingKind kind);

DRAWBOT_DrawRef ReferenceOf(DrawingSession& session);
DRAWBOT_SupplierRef SupplierOf(DrawingSession& session);
DRAWBOT_SurfaceRef SurfaceOf(DrawingSession& session);

}  // namespace vantle::host
