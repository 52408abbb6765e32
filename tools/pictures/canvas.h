// A picture to paint on: straight-colour paints laid over one another, painted at twice the size and averaged
// down, so that no shape needs an anti-aliased formula of its own.
#pragma once

#include <algorithm>
#include <cmath>
#include <functional>
#include <string>
#include <vector>

namespace pictures {

struct Point {
  float x = 0;
  float y = 0;
};

/// Straight colour, each channel 0..1.
struct Paint {
  float r = 0;
  float g = 0;
  float b = 0;
  float a = 0;
};

/// Sizes are those of the finished picture; cells hold premultiplied colour at twice the size.
struct Canvas {
  int width = 0;
  int height = 0;
  std::vector<Paint> cells;
};

inline constexpr int kOversampling = 2;

Canvas NewCanvas(int width, int height);

/// Lays what `brush` returns for each point over the canvas, within `reach` pixels around `centre`.
void Lay(Canvas& canvas, Point centre, float reach, const std::function<Paint(Point)>& brush);

/// The same, only where something is painted already: for shadows.
void LayInside(Canvas& canvas, Point centre, float reach, const std::function<Paint(Point)>& brush);

/// Writes a PNG of 8 or 16 bits with straight alpha; false when it cannot be written.
bool Save(const Canvas& canvas, const std::string& path, int bits);

inline float Clamp01(float value) {
  return std::clamp(value, 0.0f, 1.0f);
}
inline float Mix(float from, float to, float t) {
  return from + (to - from) * t;
}
inline float Smooth(float from, float to, float value) {
  const float t = Clamp01((value - from) / (to - from));
  return t * t * (3 - 2 * t);
}
inline Point operator+(Point a, Point b) {
  return {a.x + b.x, a.y + b.y};
}
inline Point operator-(Point a, Point b) {
  return {a.x - b.x, a.y - b.y};
}
inline Point operator*(Point a, float k) {
  return {a.x * k, a.y * k};
}
inline float Length(Point a) {
  return std::sqrt(a.x * a.x + a.y * a.y);
}
inline Paint Mix(Paint a, Paint b, float t) {
  return {Mix(a.r, b.r, t), Mix(a.g, b.g, t), Mix(a.b, b.b, t), Mix(a.a, b.a, t)};
}
inline Paint Shade(Paint a, float k) {
  return {Clamp01(a.r * k), Clamp01(a.g * k), Clamp01(a.b * k), a.a};
}
inline Paint Fade(Paint a, float k) {
  return {a.r, a.g, a.b, a.a * k};
}

/// 0xRRGGBB as opaque paint.
Paint Hex(unsigned colour);

/// The colour at t of evenly spaced stops.
Paint Ramp(const std::vector<Paint>& stops, float t);

/// A hash of two integers as a number in 0..1.
float Chance(int i, int salt);

}  // namespace pictures
