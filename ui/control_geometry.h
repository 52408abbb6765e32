// Where a custom control lies in the panel, where the mouse is, and what an edit asks of the host. Knows no
// host: the rules of editing are tested alone.
#pragma once

#include "base/numeric.h"

#include <cstdint>

namespace vantle {

/// A control's rectangle in the panel's pixels; right and bottom are exclusive.
struct ControlFrame {
  int32_t left;
  int32_t top;
  int32_t right;
  int32_t bottom;
};

/// In the same space as ControlFrame.
struct MousePosition {
  int32_t x;
  int32_t y;
};

/// One press of the mouse button.
struct MouseClick {
  MousePosition mouse;
  bool command;   ///< Ctrl or Command held
  bool repeated;  ///< second press of a double click, or a later one
};

inline constexpr int32_t kNothing = -1;

/// What an edit did. Indices are kNothing where nothing of the kind happens.
struct EditResult {
  bool changed = false;         ///< the value is another one, to be recorded for undo
  int32_t drag = kNothing;      ///< stop or point that follows the mouse from here on
  int32_t recolour = kNothing;  ///< stop whose colour the user is to be asked for
};

/// A click on nothing is left to the host.
inline bool IsHandled(const EditResult& result) {
  return result.changed || result.drag != kNothing;
}

inline constexpr int64_t kMaxControlEdge = 32767;

/// Length from `from` to `to`; 0 for an edge that is reversed or longer than any panel, so that loops over
/// pixels stay short whatever rectangle arrives.
inline float ControlEdge(int32_t from, int32_t to) {
  const int64_t length = static_cast<int64_t>(to) - from;
  return length > 0 && length <= kMaxControlEdge ? static_cast<float>(length) : 0.0f;
}

inline float ControlWidth(const ControlFrame& frame) {
  return ControlEdge(frame.left, frame.right);
}

inline float ControlHeight(const ControlFrame& frame) {
  return ControlEdge(frame.top, frame.bottom);
}

/// Stored positions are hostile; where they are shown and grabbed is not.
inline float Clamp01(float v) {
  return Clamp(v, 0.0f, 1.0f);
}

/// An index that arrives from outside (a continuation word of the host), held to 0..count-1; else kNothing.
inline int32_t CheckedIndex(int64_t index, int32_t count) {
  return index >= 0 && index < count ? static_cast<int32_t>(index) : kNothing;
}

/// Whether two positions along a control mean the same stop or point.
inline bool IsSamePosition(float a, float b) {
  const float distance = a - b;
  return distance <= 0.001f && distance >= -0.001f;
}

}  // namespace vantle
