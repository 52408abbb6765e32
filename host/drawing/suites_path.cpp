// Paths: lists of steps, kept as they were added.
#include "host/drawing/drawing_calls.h"
#include "host/drawing/drawing_suites.h"
#include "host_api/commands.h"

namespace vantle::host {
namespace {

/// Appends a step unless one of its numbers cannot be drawn with.
SPErr Append(const char* function, DRAWBOT_PathRef ref, const PathStep& step, const std::string& text) {
  const DrawingCall call = EnterDrawing(function);
  if (call.error != PF_Err_NONE) return call.error;
  DrawingObject* path = FindObject(call, ref, DrawingKind::kPath);
  if (path == nullptr) return PF_Err_BAD_CALLBACK_PARAM;
  for (const float number : step.v)
    if (!AllFinite({number})) return Misused(call, "with a number that is not finite");
  path->path.push_back(step);
  Record(call, path->name + " " + text);
  return PF_Err_NONE;
}

/// For a step whose record is missing.
SPErr Missing(const char* function) {
  const DrawingCall call = EnterDrawing(function);
  return call.error != PF_Err_NONE ? call.error : Misused(call, "with a null pointer");
}

SPErr MoveTo(DRAWBOT_PathRef path, float x, float y) {
  return Append("MoveTo", path, {PathVerb::kMove, {x, y}}, "move to " + Numbers({x, y}));
}

SPErr LineTo(DRAWBOT_PathRef path, float x, float y) {
  return Append("LineTo", path, {PathVerb::kLine, {x, y}}, "line to " + Numbers({x, y}));
}

SPErr BezierTo(DRAWBOT_PathRef path, const DRAWBOT_PointF32* a, const DRAWBOT_PointF32* b,
               const DRAWBOT_PointF32* c) {
  if (a == nullptr || b == nullptr || c == nullptr) return Missing("BezierTo");
  return Append("BezierTo", path, {PathVerb::kBezier, {a->x, a->y, b->x, b->y, c->x, c->y}},
                "bezier to " + Numbers({a->x, a->y, b->x, b->y, c->x, c->y}));
}

SPErr AddRect(DRAWBOT_PathRef path, const DRAWBOT_RectF32* rect) {
  if (rect == nullptr) return Missing("AddRect");
  return Append("AddRect", path, {PathVerb::kRect, {rect->left, rect->top, rect->width, rect->height}},
                "rect " + RectText(*rect));
}

SPErr AddArc(DRAWBOT_PathRef path, const DRAWBOT_PointF32* center, float radius, float start, float sweep) {
  if (center == nullptr) return Missing("AddArc");
  return Append("AddArc", path, {PathVerb::kArc, {center->x, center->y, radius, start, sweep}},
                "arc " + Numbers({center->x, center->y, radius, start, sweep}));
}

SPErr ClosePath(DRAWBOT_PathRef path) {
  return Append("Close", path, {PathVerb::kClose, {}}, "close");
}

constexpr DRAWBOT_PathSuite1 kPathSuite{MoveTo, LineTo, BezierTo, AddRect, AddArc, ClosePath};

}  // namespace

void AddPathSuites(std::vector<SuiteEntry>& suites) {
  suites.push_back({kDRAWBOT_PathSuite1Name, kDRAWBOT_PathSuite1Version, &kPathSuite, true});
}

}  // namespace vantle::host
