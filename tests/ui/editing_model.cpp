#include "tests/ui/editing_model.h"

#include <algorithm>
#include <cmath>

namespace vantle::test {
namespace {

float Unit(float v) {
  return std::clamp(v, 0.0f, 1.0f);
}

float BarPosition(const Rectangle& frame, int x) {
  const float width = static_cast<float>(frame.right - frame.left - 8);
  return Unit((static_cast<float>(x) - (static_cast<float>(frame.left) + 4.5f)) / width);
}

// The colour of a record made of the model's stops.
Color ColorAt(const std::vector<GradientStop>& stops, float t) {
  ColorGradient record = {};
  record.count = static_cast<int32_t>(stops.size());
  std::copy(stops.begin(), stops.end(), record.stops);
  return EvaluateGradient(record, t);
}

template <typename List, typename Predicate>
int FirstIndex(const List& list, Predicate predicate) {
  const auto found = std::find_if(list.begin(), list.end(), predicate);
  return found == list.end() ? -1 : static_cast<int>(found - list.begin());
}

std::string Differs(const char* what, int index) {
  return std::string(what) + " " + std::to_string(index) + " differs";
}

}  // namespace

Outcome GradientModel::Click(const Rectangle& frame, const Press& press) {
  const float originX = static_cast<float>(frame.left) + 4.5f;
  const float width = static_cast<float>(frame.right - frame.left - 8);
  const float fromTop = static_cast<float>(press.y - frame.top);
  const float x = static_cast<float>(press.x);

  const bool inReach = fromTop >= 2.5f && fromTop <= 38.5f;
  const int hit = inReach ? FirstIndex(stops,
                                       [&](const GradientStop& stop) {
                                         return std::abs(x - (originX + stop.position * width)) < 6.0f;
                                       })
                          : -1;

  if (hit >= 0 && press.command && stops.size() > 2) {
    stops.erase(stops.begin() + hit);
    if (selected >= static_cast<int>(stops.size())) selected = -1;
    return {.handled = true, .changed = true};
  }
  if (hit >= 0) {
    selected = hit;
    return {.handled = true, .changed = true, .asksColor = press.repeated, .drag = press.repeated ? -1 : hit};
  }
  if (x < originX || x > originX + width || fromTop < 4.5f || fromTop > 24.5f) return {};

  const float t = BarPosition(frame, press.x);
  if (stops.size() < 8) {
    const Color color = ColorAt(stops, t);
    const auto behind = std::upper_bound(stops.begin(), stops.end(), t,
                                         [](float v, const GradientStop& stop) { return v < stop.position; });
    stops.insert(behind, {t, color.r, color.g, color.b});
  }
  selected =
      FirstIndex(stops, [&](const GradientStop& stop) { return std::abs(stop.position - t) <= 0.001f; });
  return {.handled = true, .changed = true, .drag = selected};
}

// Takes the stop out and puts it back into its place in the order, nearest to where it was.
Outcome GradientModel::Drag(const Rectangle& frame, int index, int x) {
  if (index < 0 || index >= static_cast<int>(stops.size())) return {};
  GradientStop stop = stops[static_cast<size_t>(index)];
  stops.erase(stops.begin() + index);
  stop.position = BarPosition(frame, x);

  const auto less = [](const GradientStop& a, const GradientStop& b) { return a.position < b.position; };
  const auto [first, last] = std::equal_range(stops.begin(), stops.end(), stop, less);
  const auto place = std::clamp(stops.begin() + index, first, last);
  selected = static_cast<int>(stops.insert(place, stop) - stops.begin());
  return {.handled = true, .changed = true, .drag = selected};
}

std::string GradientModel::Difference(const ColorGradient& record) const {
  if (record.tag != 1) return "tag differs";
  if (record.count != static_cast<int32_t>(stops.size())) return "count differs";
  if (record.selected != selected) return "selected differs";
  for (size_t i = 0; i < stops.size(); ++i) {
    const GradientStop& a = stops[i];
    const GradientStop& b = record.stops[i];
    if (a.position != b.position || a.r != b.r || a.g != b.g || a.b != b.b) {
      return Differs("stop", static_cast<int>(i));
    }
  }
  return "";
}

Outcome CurveModel::Click(const Rectangle& frame, const Press& press) {
  const int fromRight = frame.right - press.x;
  const int fromBottom = frame.bottom - press.y;
  if (fromRight >= 4 && fromRight <= 46 && fromBottom >= 4 && fromBottom <= 20) {
    const float level = std::min(maximum, 1.0f);
    points = {{0.0f, level, 0.0f, 0.0f}, {1.0f, level, 0.0f, 0.0f}};
    return {.handled = true, .changed = true};
  }

  const float left = static_cast<float>(frame.left + 4);
  const float top = static_cast<float>(frame.top + 4);
  const float width = static_cast<float>(frame.right - frame.left - 8);
  const float height = static_cast<float>(frame.bottom - frame.top - 26);
  const int hit = FirstIndex(points, [&](const CurveModelPoint& point) {
    const float dx = static_cast<float>(press.x) - (left + Unit(point.x) * width);
    const float dy = static_cast<float>(press.y) - (top + (1.0f - Unit(point.y / maximum)) * height);
    return dx * dx + dy * dy < 64.0f;
  });

  const bool isInner = hit > 0 && hit + 1 < static_cast<int>(points.size());
  if (hit >= 0 && press.command && isInner) {
    points.erase(points.begin() + hit);
    return {.handled = true, .changed = true};
  }
  if (hit >= 0) return {.handled = true, .drag = hit};

  const float t = Unit((static_cast<float>(press.x) - left) / width);
  const float v = Unit(1.0f - (static_cast<float>(press.y) - top) / height);
  if (points.size() < 16) {
    const auto before =
        std::find_if(points.begin(), points.end(), [&](const CurveModelPoint& point) { return point.x > t; });
    points.insert(before, {t, v * maximum, 0.0f, 0.0f});
  }
  return {.handled = true, .changed = true, .drag = FirstIndex(points, [&](const CurveModelPoint& point) {
                                              return std::abs(point.x - t) <= 0.001f;
                                            })};
}

Outcome CurveModel::Drag(const Rectangle& frame, int index, int x, int y) {
  if (index < 0 || index >= static_cast<int>(points.size())) return {};
  const float width = static_cast<float>(frame.right - frame.left - 8);
  const float height = static_cast<float>(frame.bottom - frame.top - 26);
  const auto at = points.begin() + index;
  at->y = Unit(1.0f - static_cast<float>(y - frame.top - 4) / height) * maximum;
  if (index > 0 && at + 1 != points.end()) {
    const float wanted = Unit(static_cast<float>(x - frame.left - 4) / width);
    at->x = std::max(std::min(wanted, (at + 1)->x - 0.005f), (at - 1)->x + 0.005f);
  }
  return {.handled = true, .changed = true, .drag = index};
}

std::string CurveModel::Difference(const LifeCurve& record) const {
  if (record.tag != 2) return "tag differs";
  if (record.maximum != maximum) return "maximum differs";
  if (record.count != static_cast<int32_t>(points.size())) return "count differs";
  for (size_t i = 0; i < points.size(); ++i) {
    const CurveModelPoint& point = points[i];
    if (point.x != record.x[i] || point.y != record.y[i]) return Differs("point", static_cast<int>(i));
    if (point.extra1 != record.extra1[i] || point.extra2 != record.extra2[i]) {
      return Differs("extra value", static_cast<int>(i));
    }
  }
  return "";
}

GradientModel ModelOf(const ColorGradient& record) {
  GradientModel model;
  model.stops.assign(record.stops, record.stops + record.count);
  model.selected = record.selected;
  return model;
}

CurveModel ModelOf(const LifeCurve& record) {
  CurveModel model;
  model.maximum = record.maximum;
  for (int32_t i = 0; i < record.count; ++i) {
    model.points.push_back({record.x[i], record.y[i], record.extra1[i], record.extra2[i]});
  }
  return model;
}

}  // namespace vantle::test
