// The arithmetic that the shared formulas are written in: names and meanings that a shading language has, or
// can be given in a line. The formulas take their numbers as `Real`, which is a float here and a group of
// floats, one a pixel, in the row loops (lanes.h); those bring the same functions for groups.
//
// The graphics processor's kernel is made from the very text of the formulas (graphics/kernel_text.cmake), so
// they are written in what both languages have: records, functions, `const`, `?:`, and references in
// parameters only.
#pragma once

#include "base/elementary.h"

#include <cmath>

namespace vantle::kernel {

using std::sqrt;

inline float abs(float v) {
  return std::fabs(v);
}
inline float min(float a, float b) {
  return b < a ? b : a;
}
inline float max(float a, float b) {
  return a < b ? b : a;
}
inline float sin(float radians) {
  return Sin(radians);
}
inline float cos(float radians) {
  return Cos(radians);
}

/// a where the condition holds, else b. Both are computed; the one not taken may be anything, NaN included.
inline float select(bool condition, float a, float b) {
  return condition ? a : b;
}
inline bool both(bool a, bool b) {
  return a && b;
}
inline bool either(bool a, bool b) {
  return a || b;
}

/// lo for NaN.
inline float clamp(float v, float lo, float hi) {
  return v > lo ? (v < hi ? v : hi) : lo;
}

}  // namespace vantle::kernel
