#include "host/scene/timeline.h"
#include "particles/custom_values.h"

#include <algorithm>
#include <cstring>

namespace vantle::scene {
namespace {

template <class Record>
std::vector<std::uint8_t> BytesOf(const Record& record) {
  std::vector<std::uint8_t> bytes(sizeof(record));
  std::memcpy(bytes.data(), &record, sizeof(record));
  return bytes;
}

}  // namespace

std::vector<std::uint8_t> GradientBytes(const GradientValue& value) {
  ColorGradient gradient{};
  gradient.tag = 1;
  gradient.count = static_cast<int32_t>(std::min<size_t>(value.stops.size(), kMaxGradientStops));
  gradient.selected = -1;
  for (int32_t i = 0; i < gradient.count; ++i) {
    const std::array<double, 4>& stop = value.stops[static_cast<size_t>(i)];
    gradient.stops[i] = {static_cast<float>(stop[0]), static_cast<float>(stop[1]),
                         static_cast<float>(stop[2]), static_cast<float>(stop[3])};
  }
  return BytesOf(gradient);
}

std::vector<std::uint8_t> CurveBytes(const CurveValue& value) {
  LifeCurve curve{};
  curve.tag = 2;
  curve.maximum = static_cast<float>(value.maximum);
  curve.count = static_cast<int32_t>(std::min<size_t>(value.points.size(), kMaxCurvePoints));
  for (int32_t i = 0; i < curve.count; ++i) {
    curve.x[i] = static_cast<float>(value.points[static_cast<size_t>(i)][0]);
    curve.y[i] = static_cast<float>(value.points[static_cast<size_t>(i)][1]);
  }
  return BytesOf(curve);
}

bool CustomValueBytes(const host::DeclaredParam& param, const Value& value,
                      std::vector<std::uint8_t>* bytes) {
  const bool isGradient = param.defaultBytes.size() == sizeof(ColorGradient);
  if (const auto* gradient = std::get_if<GradientValue>(&value); gradient && isGradient) {
    *bytes = GradientBytes(*gradient);
    return true;
  }
  if (const auto* curve = std::get_if<CurveValue>(&value); curve && !isGradient) {
    *bytes = CurveBytes(*curve);
    return true;
  }
  const auto* flattened = std::get_if<FlattenedValue>(&value);
  if (flattened && flattened->bytes.size() == param.defaultBytes.size()) {
    *bytes = flattened->bytes;
    return true;
  }
  return false;
}

}  // namespace vantle::scene
