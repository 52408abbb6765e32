// Two drawings in the manner of emblems: a knot and a compass star.
#include "tools/pictures/curves.h"
#include "tools/pictures/pictures.h"

namespace pictures {
namespace {

constexpr float kTurn = 6.28318531f;

struct Strand {
  Point at;
  float height = 0;
};

// The trefoil knot, x = sin t + 2 sin 2t, y = cos t - 2 cos 2t, height = -sin 3t.
std::vector<Strand> Trefoil(Point centre, float scale) {
  std::vector<Strand> strands;
  for (int i = 0; i < 420; ++i) {
    const float t = kTurn * static_cast<float>(i) / 420;
    const Point at{std::sin(t) + 2 * std::sin(2 * t), std::cos(t) - 2 * std::cos(2 * t)};
    strands.push_back({centre + at * scale, -std::sin(3 * t)});
  }
  return strands;
}

// The highest strand that covers the point wins; where it runs close above another one, a gap is left.
Paint KnotPaint(const std::vector<Strand>& strands, Point p, float halfWidth) {
  static const std::vector<Paint> kMetal{Hex(0xff7a3c), Hex(0xffc04d), Hex(0xffe7a1),
                                         Hex(0xffb04a), Hex(0xf0567a), Hex(0xff7a3c)};
  float bestHeight = -9, bestDistance = 0, bestAt = 0, gapHeight = -9;
  for (size_t i = 0; i < strands.size(); ++i) {
    const float distance = Length(p - strands[i].at);
    if (distance < halfWidth && strands[i].height > bestHeight + 0.2f) bestDistance = distance;
    if (distance < halfWidth && strands[i].height > bestHeight - 0.2f) {
      bestDistance = std::min(bestDistance, distance);
      bestHeight = std::max(bestHeight, strands[i].height);
      bestAt = static_cast<float>(i) / static_cast<float>(strands.size());
    }
    if (distance < halfWidth * 1.28f) gapHeight = std::max(gapHeight, strands[i].height);
  }
  if (bestHeight < -5 || gapHeight > bestHeight + 0.6f) return {};
  const float across = bestDistance / halfWidth;
  const float light = 0.55f + 0.5f * std::sqrt(std::max(0.0f, 1 - across * across));
  return Shade(Ramp(kMetal, bestAt * 3 - std::floor(bestAt * 3)), light);
}

// One point of the star: two facets that meet in a ridge, one in the light.
Paint FacetPaint(Point d, float angle, float length, float half, Paint light, Paint dark) {
  const float u = (d.x * std::cos(angle) + d.y * std::sin(angle)) / length;
  const float v = d.y * std::cos(angle) - d.x * std::sin(angle);
  const float foot = half / length;
  if (u < 0 || u > 1) return {};
  const float width = u < foot ? u / foot * half : half * (1 - u) / (1 - foot);
  if (std::fabs(v) > width) return {};
  return Shade(v > 0 ? dark : light, 0.82f + 0.3f * u);
}

Paint StarPaint(Point d, float radius) {
  const float distance = Length(d);
  if (distance < radius * 0.075f) return Mix(Hex(0xfff3c4), Hex(0xffc65c), distance / (radius * 0.075f));
  for (int i = 0; i < 4; ++i) {
    const Paint paint = FacetPaint(d, kTurn * static_cast<float>(i) / 4, radius, radius * 0.15f,
                                   Hex(0xd8fff2), Hex(0x1fae9e));
    if (paint.a > 0) return paint;
  }
  for (int i = 0; i < 4; ++i) {
    const Paint paint = FacetPaint(d, kTurn * (static_cast<float>(i) + 0.5f) / 4, radius * 0.66f,
                                   radius * 0.13f, Hex(0x8fd8ff), Hex(0x2a63d4));
    if (paint.a > 0) return paint;
  }

  // Two rings; the outer one is graduated.
  if (std::fabs(distance - radius * 0.50f) < radius * 0.012f) return Hex(0x56c7ff);
  const float mark = std::fabs(std::sin(std::atan2(d.y, d.x) * 36));
  if (std::fabs(distance - radius * 0.80f) < radius * 0.022f)
    return mark > 0.35f ? Hex(0x4de0c4) : Hex(0x1a6f9e);
  return {};
}

}  // namespace

Canvas DrawKnot(int width, int height) {
  Canvas canvas = NewCanvas(width, height);
  const float unit = static_cast<float>(height);
  const Point centre{static_cast<float>(width) * 0.5f, unit * 0.53f};
  const std::vector<Strand> strands = Trefoil(centre, unit * 0.140f);
  Lay(canvas, centre, unit, [&](Point p) { return KnotPaint(strands, p, unit * 0.062f); });
  return canvas;
}

Canvas DrawStar(int width, int height) {
  Canvas canvas = NewCanvas(width, height);
  const Point centre{static_cast<float>(width) * 0.5f, static_cast<float>(height) * 0.5f};
  const float radius = static_cast<float>(height) * 0.48f;
  Lay(canvas, centre, radius * 1.1f, [&](Point p) { return StarPaint(p - centre, radius); });
  return canvas;
}

}  // namespace pictures
