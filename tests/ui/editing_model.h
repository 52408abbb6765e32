// The rules of editing written a second time, over lists instead of fixed arrays: the judge of random
// editing. Takes sound values only (sorted stops, finite numbers, counts within the arrays).
#pragma once

#include "particles/custom_values.h"

#include <string>
#include <vector>

namespace vantle::test {

struct Press {
  int x = 0;
  int y = 0;
  bool command = false;
  bool repeated = false;
};

/// What the host must see after an event.
struct Outcome {
  bool handled = false;
  bool changed = false;
  bool asksColor = false;
  int drag = -1;
};

struct Rectangle {
  int left, top, right, bottom;
};

struct GradientModel {
  std::vector<GradientStop> stops;
  int selected = -1;

  Outcome Click(const Rectangle& frame, const Press& press);
  Outcome Drag(const Rectangle& frame, int index, int x);

  /// What differs from a record; empty when nothing does.
  std::string Difference(const ColorGradient& record) const;
};

struct CurveModelPoint {
  float x, y, extra1, extra2;
};

struct CurveModel {
  std::vector<CurveModelPoint> points;
  float maximum = 1.0f;

  Outcome Click(const Rectangle& frame, const Press& press);
  Outcome Drag(const Rectangle& frame, int index, int x, int y);
  std::string Difference(const LifeCurve& record) const;
};

GradientModel ModelOf(const ColorGradient& record);
CurveModel ModelOf(const LifeCurve& record);

}  // namespace vantle::test
