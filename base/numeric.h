// Conversions that are defined for every input.
#pragma once

#include <cstdint>

namespace vantle {

/// Truncates toward zero; saturates at the ends of the type; NaN gives 0.
inline int32_t TruncToInt(float v) {
  if (v >= 2147483648.0f) return INT32_MAX;
  if (v > -2147483648.0f) return static_cast<int32_t>(v);
  return v == v ? INT32_MIN : 0;
}

inline int32_t TruncToInt(double v) {
  if (v >= 2147483648.0) return INT32_MAX;
  if (v > -2147483649.0) return static_cast<int32_t>(v);
  return v == v ? INT32_MIN : 0;
}

/// lo for NaN.
inline float Clamp(float v, float lo, float hi) {
  return v > lo ? (v < hi ? v : hi) : lo;
}

}  // namespace vantle
