#include "ui/drawbot.h"

#include "host_api/commands.h"

namespace vantle {
namespace {

bool Failed(const Drawing& drawing) {
  return drawing.error != PF_Err_NONE;
}

// A call that succeeds without making anything leaves nothing to draw with.
template <typename Ref>
Ref Checked(Drawing& drawing, PF_Err error, Ref made) {
  NoteError(drawing, error);
  if (error != PF_Err_NONE) return nullptr;
  if (!made) NoteError(drawing, PF_Err_OUT_OF_MEMORY);
  return made;
}

}  // namespace

void NoteError(Drawing& drawing, PF_Err error) {
  if (!Failed(drawing)) drawing.error = error;
}

void ReleaseObject(Drawing& drawing, DRAWBOT_ObjectRef object) {
  NoteError(drawing, drawing.suites->supplier->ReleaseObject(object));
}

Pen NewPen(Drawing& drawing, const DRAWBOT_ColorRGBA& color, float width) {
  DRAWBOT_PenRef pen = nullptr;
  if (Failed(drawing)) return Pen(drawing, nullptr);
  const PF_Err error = drawing.suites->supplier->NewPen(drawing.supplier, &color, width, &pen);
  return Pen(drawing, Checked(drawing, error, pen));
}

Brush NewBrush(Drawing& drawing, const DRAWBOT_ColorRGBA& color) {
  DRAWBOT_BrushRef brush = nullptr;
  if (Failed(drawing)) return Brush(drawing, nullptr);
  const PF_Err error = drawing.suites->supplier->NewBrush(drawing.supplier, &color, &brush);
  return Brush(drawing, Checked(drawing, error, brush));
}

Path NewPath(Drawing& drawing) {
  DRAWBOT_PathRef path = nullptr;
  if (Failed(drawing)) return Path(drawing, nullptr);
  const PF_Err error = drawing.suites->supplier->NewPath(drawing.supplier, &path);
  return Path(drawing, Checked(drawing, error, path));
}

Font NewDefaultFont(Drawing& drawing) {
  float size = 0.0f;
  DRAWBOT_FontRef font = nullptr;
  const DRAWBOT_SupplierSuite1& supplier = *drawing.suites->supplier;
  if (!Failed(drawing)) NoteError(drawing, supplier.GetDefaultFontSize(drawing.supplier, &size));
  if (Failed(drawing)) return Font(drawing, nullptr);
  const PF_Err error = supplier.NewDefaultFont(drawing.supplier, size, &font);
  return Font(drawing, Checked(drawing, error, font));
}

void MoveTo(Drawing& drawing, const Path& path, float x, float y) {
  if (!Failed(drawing)) drawing.error = drawing.suites->path->MoveTo(path.ref, x, y);
}

void LineTo(Drawing& drawing, const Path& path, float x, float y) {
  if (!Failed(drawing)) drawing.error = drawing.suites->path->LineTo(path.ref, x, y);
}

void AddRect(Drawing& drawing, const Path& path, const DRAWBOT_RectF32& rect) {
  if (!Failed(drawing)) drawing.error = drawing.suites->path->AddRect(path.ref, &rect);
}

void AddCircle(Drawing& drawing, const Path& path, float x, float y, float radius) {
  const DRAWBOT_PointF32 center = {x, y};
  if (!Failed(drawing)) drawing.error = drawing.suites->path->AddArc(path.ref, &center, radius, 0.0f, 360.0f);
}

void Close(Drawing& drawing, const Path& path) {
  if (!Failed(drawing)) drawing.error = drawing.suites->path->Close(path.ref);
}

void PaintRect(Drawing& drawing, const DRAWBOT_ColorRGBA& color, const DRAWBOT_RectF32& rect) {
  if (!Failed(drawing)) drawing.error = drawing.suites->surface->PaintRect(drawing.surface, &color, &rect);
}

void Stroke(Drawing& drawing, const Path& path, const Pen& pen) {
  if (!Failed(drawing))
    drawing.error = drawing.suites->surface->StrokePath(drawing.surface, pen.ref, path.ref);
}

void Fill(Drawing& drawing, const Path& path, const Brush& brush) {
  if (Failed(drawing)) return;
  drawing.error =
      drawing.suites->surface->FillPath(drawing.surface, brush.ref, path.ref, kDRAWBOT_FillType_Default);
}

void StrokeRect(Drawing& drawing, const DRAWBOT_RectF32& rect, const Pen& pen) {
  const Path path = NewPath(drawing);
  AddRect(drawing, path, rect);
  Stroke(drawing, path, pen);
}

void DrawLabel(Drawing& drawing, const Font& font, const Brush& brush, const DRAWBOT_UTF16Char* text, float x,
               float y) {
  const DRAWBOT_PointF32 origin = {x, y};
  if (Failed(drawing)) return;
  drawing.error =
      drawing.suites->surface->DrawString(drawing.surface, brush.ref, font.ref, text, &origin,
                                          kDRAWBOT_TextAlignment_Left, kDRAWBOT_TextTruncation_None, 0.0f);
}

}  // namespace vantle
