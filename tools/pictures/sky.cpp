// Skies: a waxing moon, a sun with turning rays, and a dusk whose colours fill the frame.
#include "tools/pictures/pictures.h"

namespace pictures {
namespace {

constexpr float kTurn = 6.28318531f;

// Craters as (x, y, radius) on the unit disc.
constexpr float kCraters[][3] = {{-0.30f, -0.35f, 0.20f}, {0.25f, 0.10f, 0.26f},  {-0.15f, 0.45f, 0.15f},
                                 {0.45f, -0.45f, 0.13f},  {-0.60f, 0.15f, 0.12f}, {0.10f, -0.70f, 0.10f},
                                 {0.55f, 0.50f, 0.11f},   {-0.45f, 0.70f, 0.08f}, {0.02f, -0.12f, 0.07f}};

Paint MoonPaint(Point d, float sunAngle) {
  const float distance = Length(d);
  if (distance >= 1) return {};

  // Lambert's law on the sphere, the relief by shifting the normal inside of craters.
  const float z = std::sqrt(1 - distance * distance);
  Point normal = d;
  float albedo = 1;
  for (const auto& crater : kCraters) {
    const Point from = d - Point{crater[0], crater[1]};
    const float inside = Smooth(crater[2], crater[2] * 0.7f, Length(from));
    normal = normal - from * (inside * 1.3f);
    albedo -= 0.16f * inside;
  }
  const float light = Clamp01(normal.x * std::sin(sunAngle) + z * std::cos(sunAngle));
  const Paint lit = Shade(Mix(Hex(0x9fb4e8), Hex(0xfff6dc), light), albedo * (0.25f + 0.8f * light));
  return Fade(lit, Mix(0.10f, 1.0f, Smooth(0.0f, 0.25f, light)));
}

Paint SunPaint(Point d, float turn) {
  const float distance = Length(d) * 2.1f;
  if (distance < 1) return Mix(Hex(0xfff3b8), Hex(0xffa52e), distance * distance);
  const float ray = 0.5f + 0.5f * std::cos((std::atan2(d.y, d.x) + turn) * 12);
  const float reach = 1.22f + 0.78f * ray * ray;
  if (distance < 1.12f || distance > reach) return {};
  return Mix(Hex(0xffb03a), Hex(0xff4d6d), (distance - 1.12f) / 0.9f);
}

}  // namespace

Canvas DrawMoon(int side, float sunAngle) {
  Canvas canvas = NewCanvas(side, side);
  const float half = static_cast<float>(side) * 0.5f;
  Lay(canvas, {half, half}, half, [&](Point p) {
    return MoonPaint((p - Point{half, half}) * (1.04f / half), sunAngle);
  });
  return canvas;
}

Canvas DrawSun(int side, float turn) {
  Canvas canvas = NewCanvas(side, side);
  const float half = static_cast<float>(side) * 0.5f;
  Lay(canvas, {half, half}, half, [&](Point p) {
    return SunPaint((p - Point{half, half}) * (1.0f / half), turn * kTurn);
  });
  return canvas;
}

Canvas DrawDusk(int width, int height) {
  static const std::vector<Paint> kSky{Hex(0x2a2f8f), Hex(0x5b3fb0), Hex(0xc34a9a),
                                       Hex(0xff7b5c), Hex(0xffc25c), Hex(0xffe9a6)};
  Canvas canvas = NewCanvas(width, height);
  const float w = static_cast<float>(width), h = static_cast<float>(height);
  Lay(canvas, {w * 0.5f, h * 0.5f}, w, [&](Point p) {
    const float wave =
        0.07f * std::sin(p.x / w * kTurn * 0.8f) + 0.03f * std::sin(p.x / w * kTurn * 2.3f + 1);
    return Ramp(kSky, p.y / h + wave);
  });
  return canvas;
}

}  // namespace pictures
