// The value texts of the custom controls, as hosts show and copy them.
#pragma once

#include "particles/custom_values.h"

#include <cstddef>

namespace vantle {

/// Characters that FormatWhole writes at most, its terminator included: a sign and 39 digits.
inline constexpr size_t kWholeTextSize = 48;

/// Writes `value` rounded to a whole number, halves to even, in the C locale's "%.0f" form on every system:
/// "-0" for small negatives, "inf", "-inf", and "nan" whatever its sign. Returns the length.
size_t FormatWhole(float value, char (&text)[kWholeTextSize]);

/// Writes the positions of a gradient's stops, "0%,50%,100%", while fewer than size - 16 characters are
/// written. A part that does not fit ends the text. Terminated whenever `size` is not 0.
void PrintGradient(const ColorGradient& gradient, char* text, size_t size);

/// Writes the values of a curve's points in per cent, "100,100", while fewer than size - 8 characters are
/// written.
void PrintCurve(const LifeCurve& curve, char* text, size_t size);

}  // namespace vantle
