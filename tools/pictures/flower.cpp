// The demo's first picture: a dahlia, its petals set by the golden angle as in the real flower.
#include "tools/pictures/pictures.h"

namespace pictures {
namespace {

constexpr float kGoldenAngle = 2.39996323f;
constexpr int kPetals = 190;

struct Petal {
  Point base;
  Point axis;
  float length = 0;
  float halfWidth = 0;
  float age = 0;  // 0 in the heart of the flower, 1 at its rim
};

Petal PetalAt(int i, Point centre, float radius) {
  const float age = static_cast<float>(i) / (kPetals - 1);
  const float angle = static_cast<float>(i) * kGoldenAngle;
  const float tip = radius * (0.085f + 0.915f * std::pow(age, 0.72f)) * (0.96f + 0.07f * Chance(i, 1));
  const Point axis{std::cos(angle), std::sin(angle)};
  const float start = tip * 0.30f;
  return {centre + axis * start, axis, tip - start, tip * 0.118f + 7, age};
}

// Half the width at u of the length: slim at the foot, widest past the middle, drawn out to a point.
float Outline(float u) {
  return u <= 0 || u >= 1 ? 0 : 1.9f * std::pow(u, 0.85f) * std::pow(1 - u, 0.5f);
}

Paint PetalPaint(const Petal& petal, Point point, int i) {
  static const std::vector<Paint> kByAge{Hex(0xffe9a8), Hex(0xffc062), Hex(0xff8a52), Hex(0xff5470),
                                         Hex(0xf23a8e), Hex(0xd136b0), Hex(0x9a35c4)};
  const Point d = point - petal.base;
  const float u = (d.x * petal.axis.x + d.y * petal.axis.y) / petal.length;
  const float v = (d.y * petal.axis.x - d.x * petal.axis.y) / petal.halfWidth;
  const float width = Outline(u);
  if (width <= 0 || std::fabs(v) > width) return {};

  // Darker at the foot and in the crease, lighter along the curled rim; fine veins run lengthwise.
  const float across = std::fabs(v) / width;
  const float vein = std::sin((v / width) * 17.0f + static_cast<float>(i)) * 0.035f;
  const float crease = 1 - 0.30f * std::exp(-across * across * 26);
  const float rim = 0.26f * Smooth(0.70f, 1.0f, across) * Smooth(0.15f, 0.7f, u);
  const float light = (0.30f + 0.76f * Smooth(0.0f, 0.85f, u)) * crease + rim + vein;
  const Paint ground = Ramp(kByAge, petal.age * 0.94f + 0.05f * (1 - u));
  return Mix(Shade(ground, light), Hex(0xfff2e0), 0.42f * Smooth(0.72f, 1.0f, u) * (1 - 0.5f * across));
}

// A soft dark edge under each petal lifts it from the ones below.
Paint ShadowPaint(const Petal& petal, Point point) {
  const Point d = point - petal.base;
  const float u = (d.x * petal.axis.x + d.y * petal.axis.y) / (petal.length * 1.07f);
  const float v = (d.y * petal.axis.x - d.x * petal.axis.y) / (petal.halfWidth * 1.45f);
  const float width = Outline(u);
  if (width <= 0) return {};
  return Fade(Hex(0x2a0540), 0.62f * Smooth(1.0f, 0.45f, std::fabs(v) / width));
}

// The heart: a dome of tiny florets in the same spiral.
Paint HeartPaint(Point d, float radius) {
  const float distance = Length(d) / radius;
  if (distance >= 1) return {};
  float grain = 0;
  for (int i = 0; i < 90; ++i) {
    const float ring = radius * std::sqrt((static_cast<float>(i) + 0.5f) / 90);
    const float angle = static_cast<float>(i) * kGoldenAngle;
    const Point floret{std::cos(angle) * ring, std::sin(angle) * ring};
    grain = std::max(grain, Smooth(4.6f, 0.5f, Length(d - floret)));
  }
  return Mix(Hex(0x9a3b12), Mix(Hex(0xffb638), Hex(0xfff0b0), 1 - distance), 0.15f + 0.85f * grain);
}

}  // namespace

Canvas DrawFlower(int width, int height) {
  Canvas canvas = NewCanvas(width, height);
  const Point centre{static_cast<float>(width) * 0.5f, static_cast<float>(height) * 0.5f};
  const float radius = static_cast<float>(height) * 0.475f;
  for (int i = kPetals - 1; i >= 0; --i) {
    const Petal petal = PetalAt(i, centre, radius);
    const Point middle = petal.base + petal.axis * (petal.length * 0.5f);
    const float reach = petal.length * 0.62f + petal.halfWidth;
    LayInside(canvas, middle, reach, [&](Point p) { return ShadowPaint(petal, p); });
    Lay(canvas, middle, reach, [&](Point p) { return PetalPaint(petal, p, i); });
    if (i == 16) Lay(canvas, centre, 40, [&](Point p) { return HeartPaint(p - centre, 36); });
  }
  return canvas;
}

}  // namespace pictures
