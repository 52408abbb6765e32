// A thin layer over the host's drawing suites: drawing code reads as its list of shapes, every object is
// released when its scope ends, and the first failing call ends the drawing.
#pragma once

#include "host_api/drawbot.h"
#include "ui/drawbot_suites.h"

namespace vantle {

/// What one DRAW event draws with. `error` holds the result of the first failing call; from then on every
/// function below does nothing, so that callers look at it once, at the end.
struct Drawing {
  const DrawbotSuites* suites;
  DRAWBOT_SupplierRef supplier;
  DRAWBOT_SurfaceRef surface;
  PF_Err error;
};

/// Keeps the first error.
void NoteError(Drawing& drawing, PF_Err error);

void ReleaseObject(Drawing& drawing, DRAWBOT_ObjectRef object);

/// An object of the supplier, released at the end of its scope. Null after an error.
template <typename Ref>
struct ScopedObject {
  ScopedObject(Drawing& owner, Ref object) : drawing(owner), ref(object) {}
  ~ScopedObject() {
    if (ref) ReleaseObject(drawing, reinterpret_cast<DRAWBOT_ObjectRef>(ref));
  }
  ScopedObject(const ScopedObject&) = delete;
  ScopedObject& operator=(const ScopedObject&) = delete;

  Drawing& drawing;
  Ref ref;
};

using Pen = ScopedObject<DRAWBOT_PenRef>;
using Brush = ScopedObject<DRAWBOT_BrushRef>;
using Path = ScopedObject<DRAWBOT_PathRef>;
using Font = ScopedObject<DRAWBOT_FontRef>;

Pen NewPen(Drawing& drawing, const DRAWBOT_ColorRGBA& color, float width);
Brush NewBrush(Drawing& drawing, const DRAWBOT_ColorRGBA& color);
Path NewPath(Drawing& drawing);

/// The host's own font at its own size.
Font NewDefaultFont(Drawing& drawing);

void MoveTo(Drawing& drawing, const Path& path, float x, float y);
void LineTo(Drawing& drawing, const Path& path, float x, float y);
void AddRect(Drawing& drawing, const Path& path, const DRAWBOT_RectF32& rect);
void AddCircle(Drawing& drawing, const Path& path, float x, float y, float radius);
void Close(Drawing& drawing, const Path& path);

void PaintRect(Drawing& drawing, const DRAWBOT_ColorRGBA& color, const DRAWBOT_RectF32& rect);
void Stroke(Drawing& drawing, const Path& path, const Pen& pen);

/// By the host's default rule, non-zero winding: an area folded over itself stays filled.
void Fill(Drawing& drawing, const Path& path, const Brush& brush);

/// Outline of a rectangle.
void StrokeRect(Drawing& drawing, const DRAWBOT_RectF32& rect, const Pen& pen);

/// `text` is zero-terminated; (x, y) is the left end of its base line.
void DrawLabel(Drawing& drawing, const Font& font, const Brush& brush, const DRAWBOT_UTF16Char* text, float x,
               float y);

}  // namespace vantle
