#include "ui/gradient_rules.h"

#include <cmath>
#include <utility>

namespace vantle {
namespace {

// The mouse is mapped half a pixel to the right of and below the drawing: its whole numbers mean pixel
// centres.
constexpr float kMouseMargin = kGradientMargin + 0.5f;
constexpr float kHandleReach = 6.0f;  // exclusive, to each side of a handle's centre
constexpr float kHandleTop = 2.5f;
constexpr float kHandleBottom = 38.5f;

float MouseX(MousePosition mouse) {
  return static_cast<float>(mouse.x);
}

float MouseY(MousePosition mouse) {
  return static_cast<float>(mouse.y);
}

bool IsInBar(const ControlFrame& frame, float width, MousePosition mouse) {
  const float left = static_cast<float>(frame.left) + kMouseMargin;
  const float top = static_cast<float>(frame.top) + kMouseMargin;
  return MouseX(mouse) >= left && MouseX(mouse) <= left + width && MouseY(mouse) >= top &&
         MouseY(mouse) <= top + kGradientBarHeight;
}

float PositionUnder(const ControlFrame& frame, float width, MousePosition mouse) {
  return Clamp01((MouseX(mouse) - (static_cast<float>(frame.left) + kMouseMargin)) / width);
}

// Behind all stops of an equal position, coloured as the gradient is there.
void InsertStop(ColorGradient* gradient, float position) {
  const int32_t count = UsableCount(*gradient);
  const Color color = EvaluateGradient(*gradient, position);

  int32_t at = 0;
  while (at < count && !(gradient->stops[at].position > position)) ++at;
  for (int32_t i = count; i > at; --i) gradient->stops[i] = gradient->stops[i - 1];

  gradient->stops[at] = {position, color.r, color.g, color.b};
  gradient->count = count + 1;
}

int32_t FindStop(const ColorGradient& gradient, float position) {
  const int32_t count = UsableCount(gradient);
  for (int32_t i = 0; i < count; ++i) {
    if (IsSamePosition(gradient.stops[i].position, position)) return i;
  }
  return kNothing;
}

void DeleteStop(ColorGradient* gradient, int32_t index) {
  const int32_t count = UsableCount(*gradient) - 1;
  for (int32_t i = index; i < count; ++i) gradient->stops[i] = gradient->stops[i + 1];
  gradient->count = count;
  if (gradient->selected >= count) gradient->selected = kNothing;
}

EditResult ClickBar(ColorGradient* gradient, float position) {
  if (UsableCount(*gradient) < kMaxGradientStops) InsertStop(gradient, position);
  gradient->selected = FindStop(*gradient, position);
  return {.changed = true, .drag = gradient->selected};
}

EditResult ClickStop(ColorGradient* gradient, int32_t index, const MouseClick& click) {
  if (click.command && UsableCount(*gradient) > 2) {
    DeleteStop(gradient, index);
    return {.changed = true};
  }
  gradient->selected = index;
  if (click.repeated) return {.changed = true, .recolour = index};
  return {.changed = true, .drag = index};
}

}  // namespace

float GradientBarWidth(const ControlFrame& frame) {
  const float width = ControlWidth(frame) - 2.0f * kGradientMargin;
  return width > 0.0f ? width : 0.0f;
}

int32_t HitGradientStop(const ColorGradient& gradient, const ControlFrame& frame, MousePosition mouse) {
  const float width = GradientBarWidth(frame);
  const float top = static_cast<float>(frame.top);
  if (width <= 0.0f || MouseY(mouse) < top + kHandleTop || MouseY(mouse) > top + kHandleBottom)
    return kNothing;

  const int32_t count = UsableCount(gradient);
  for (int32_t i = 0; i < count; ++i) {
    const float shown = Clamp01(gradient.stops[i].position);
    const float center = static_cast<float>(frame.left) + kMouseMargin + shown * width;
    if (std::fabs(MouseX(mouse) - center) < kHandleReach) return i;
  }
  return kNothing;
}

EditResult ClickGradient(ColorGradient* gradient, const ControlFrame& frame, const MouseClick& click) {
  const int32_t hit = HitGradientStop(*gradient, frame, click.mouse);
  if (hit != kNothing) return ClickStop(gradient, hit, click);

  const float width = GradientBarWidth(frame);
  if (width <= 0.0f || !IsInBar(frame, width, click.mouse)) return {};
  return ClickBar(gradient, PositionUnder(frame, width, click.mouse));
}

EditResult DragGradient(ColorGradient* gradient, const ControlFrame& frame, int64_t index,
                        MousePosition mouse) {
  const int32_t count = UsableCount(*gradient);
  const float width = GradientBarWidth(frame);
  int32_t at = CheckedIndex(index, count);
  if (at == kNothing || width <= 0.0f) return {};

  GradientStop* const stops = gradient->stops;
  const float position = PositionUnder(frame, width, mouse);
  stops[at].position = position;

  // Stops may pass each other: order is repaired by swapping, not by blocking.
  for (; at > 0 && stops[at - 1].position > position; --at) std::swap(stops[at - 1], stops[at]);
  for (; at + 1 < count && stops[at + 1].position < position; ++at) std::swap(stops[at + 1], stops[at]);

  gradient->selected = at;
  return {.changed = true, .drag = at};
}

bool RecolourGradientStop(ColorGradient* gradient, int64_t index, const Color& color) {
  const int32_t at = CheckedIndex(index, UsableCount(*gradient));
  if (at == kNothing) return false;
  gradient->stops[at].r = color.r;
  gradient->stops[at].g = color.g;
  gradient->stops[at].b = color.b;
  return true;
}

}  // namespace vantle
