// How the three custom values are told apart: the host carries a tag of ours with each of their parameters
// and hands it back with every callback.
#pragma once

#include "particles/custom_values.h"

#include <cstddef>
#include <cstdint>

namespace vantle {

inline constexpr uint32_t kOpacityCurveTag = 0xC01A;
inline constexpr uint32_t kScaleCurveTag = 0xC01B;
inline constexpr uint32_t kGradientTag = 0xC01C;

inline constexpr float kOpacityCurveMaximum = 1.0f;
inline constexpr float kScaleCurveMaximum = 2.0f;

/// Bytes of the record that a tag stands for. Any tag but the gradient's is a curve.
constexpr size_t CustomValueSize(uint32_t tag) {
  return tag == kGradientTag ? sizeof(ColorGradient) : sizeof(LifeCurve);
}

/// Top of a curve's value range. Any tag but the scale curve's is the opacity curve.
constexpr float CurveMaximum(uint32_t tag) {
  return tag == kScaleCurveTag ? kScaleCurveMaximum : kOpacityCurveMaximum;
}

}  // namespace vantle
