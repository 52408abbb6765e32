// The demo's second picture: a blue butterfly with open wings.
#include "tools/pictures/curves.h"
#include "tools/pictures/pictures.h"

namespace pictures {
namespace {

// The right wing of a pair, around the thorax at (0, 0); the left one is its mirror image.
struct Wing {
  Polyline outline;
  std::vector<Polyline> veins;
  Polyline spots;  // centres of the pale spots along the margin
  std::vector<Paint> ramp;
  float margin = 0;  // width of the dark margin in pixels
};

std::vector<Polyline> Veins(Point root, const Polyline& ends, float sag) {
  std::vector<Polyline> veins;
  for (const Point end : ends) {
    const Point d = end - root;
    const Point bend{-d.y * sag, d.x * sag};
    veins.push_back(Flatten(root, {{root + d * 0.33f + bend, root + d * 0.72f + bend, end}}));
  }
  return veins;
}

Wing ForeWing() {
  Wing wing;
  wing.outline = Flatten({6, -34}, {{{70, -150}, {250, -388}, {520, -436}},
                                    {{590, -446}, {640, -420}, {628, -362}},
                                    {{612, -270}, {560, -200}, {532, -118}},
                                    {{518, -62}, {476, -6}, {408, 2}},
                                    {{270, 16}, {110, 30}, {6, 4}}});
  wing.veins = Veins(
      {10, -26},
      {{420, -404}, {520, -428}, {606, -396}, {606, -300}, {572, -220}, {540, -138}, {508, -60}, {430, -6}},
      0.05f);
  wing.spots = {{572, -392}, {588, -336}, {566, -262}, {536, -186}, {512, -116}, {474, -52}, {404, -24}};
  wing.ramp = {Hex(0x1a1f8c), Hex(0x1d4fe0), Hex(0x1f8bff), Hex(0x2cc0ff), Hex(0x86f0ff)};
  wing.margin = 56;
  return wing;
}

Wing HindWing() {
  Wing wing;
  wing.outline = Flatten({6, -6}, {{{150, -60}, {330, -40}, {438, 16}},
                                   {{502, 60}, {500, 160}, {438, 232}},
                                   {{400, 280}, {352, 312}, {318, 352}},
                                   {{300, 392}, {300, 440}, {276, 470}},
                                   {{246, 456}, {240, 402}, {222, 372}},
                                   {{150, 360}, {80, 280}, {52, 190}},
                                   {{34, 130}, {16, 70}, {6, 30}}});
  wing.veins = Veins(
      {12, 6}, {{478, 92}, {470, 176}, {416, 256}, {348, 316}, {276, 440}, {206, 364}, {120, 300}}, 0.045f);
  wing.spots = {{456, 132}, {430, 208}, {372, 268}, {312, 322}, {236, 346}, {158, 312}};
  wing.ramp = {Hex(0x2a1a8a), Hex(0x3d49e6), Hex(0x4a7dff), Hex(0x6fb2ff), Hex(0xc7b8ff)};
  wing.margin = 46;
  return wing;
}

Paint WingPaint(const Wing& wing, Point p) {
  const float depth = DepthIn(wing.outline, p);
  if (depth <= 0) return {};

  // From the root to the margin the scales grow lighter; t is the way already gone.
  const float radius = Length(p);
  const float t = radius / (radius + depth * 1.35f);
  Paint paint = Ramp(wing.ramp, Smooth(0.02f, 0.92f, t));
  const float angle = std::atan2(p.y, p.x);
  paint = Shade(paint, 0.93f + 0.10f * std::sin(angle * 46) * Smooth(60, 240, radius));

  // Veins, the dark margin, its pale spots and a fine light rim.
  float vein = 1e9f, along = 0;
  for (const Polyline& line : wing.veins) {
    float at = 0;
    const float distance = DistanceTo(line, p, &at);
    if (distance < vein) vein = distance, along = at;
  }
  paint = Mix(paint, Hex(0x0c1550), 0.85f * Smooth(Mix(5.0f, 2.6f, along), 0.8f, vein));
  const float margin = (wing.margin - 10 * Smooth(0, 26, vein)) * Smooth(90, 460, radius) + 4;
  paint = Mix(paint, Mix(Hex(0x141a63), Hex(0x2a2f9c), depth / wing.margin),
              Smooth(margin + 4, margin - 8, depth));
  for (const Point spot : wing.spots) {
    const float distance = Length(p - spot);
    paint = Mix(paint, Hex(0xd9f6ff), Smooth(14.5f, 11.5f, distance));
    paint = Mix(paint, Hex(0x35b6ff), 0.9f * Smooth(7.0f, 4.5f, distance));
  }
  return Mix(paint, Hex(0x5fd0ff), 0.9f * Smooth(5.5f, 2.5f, depth));
}

Paint BodyPaint(Point p) {
  static const Polyline kBody = Flatten({0, -104}, {{{26, -104}, {30, -66}, {22, -46}},
                                                    {{40, -24}, {36, 26}, {22, 44}},
                                                    {{26, 110}, {20, 190}, {0, 246}},
                                                    {{-20, 190}, {-26, 110}, {-22, 44}},
                                                    {{-36, 26}, {-40, -24}, {-22, -46}},
                                                    {{-30, -66}, {-26, -104}, {0, -104}}});
  const float depth = DepthIn(kBody, p);
  if (depth <= 0) return {};
  const float rings = p.y > 44 ? 0.14f * std::sin(p.y * 0.34f) : 0.0f;
  const Paint paint = Mix(Hex(0x35307a), Hex(0xb9b4ff), Smooth(0, 20, depth) * (0.75f + rings));
  return Mix(paint, Hex(0x7fb4ff), 0.8f * Smooth(4, 1, depth));
}

Paint AntennaPaint(Point p) {
  static const Polyline kAntenna = Flatten({8, -98}, {{{40, -180}, {76, -270}, {148, -330}}});
  float along = 0;
  const float distance = DistanceTo(kAntenna, p, &along);
  const float width = 2.6f + 6.5f * Smooth(0.88f, 0.985f, along);
  return Fade(Mix(Hex(0x8ea2ff), Hex(0xd9e6ff), along), Smooth(width + 0.5f, width - 0.5f, distance));
}

}  // namespace

Canvas DrawButterfly(int width, int height) {
  Canvas canvas = NewCanvas(width, height);
  const float scale = static_cast<float>(height) / 1080 * 1.10f;
  const Point centre{static_cast<float>(width) * 0.5f, static_cast<float>(height) * 0.5f + 2 * scale};
  const Wing hind = HindWing(), fore = ForeWing();

  // Painted in the butterfly's own units, the left half by mirroring.
  const auto mirrored = [&](const std::function<Paint(Point)>& brush) {
    Lay(canvas, centre, 720 * scale, [&](Point p) {
      const Point local = (p - centre) * (1 / scale);
      return brush({std::fabs(local.x), local.y});
    });
  };
  mirrored([&](Point p) { return WingPaint(hind, p); });
  mirrored([&](Point p) { return WingPaint(fore, p); });
  mirrored(AntennaPaint);
  mirrored(BodyPaint);
  return canvas;
}

}  // namespace pictures
