#include "tests/reference/random_settings.h"

#include "base/elementary.h"

#include <limits>

namespace vantle::reference {
namespace {

constexpr float kInfinity = std::numeric_limits<float>::infinity();
constexpr float kNan = std::numeric_limits<float>::quiet_NaN();

// Sets controls to random values, each with the frame's own probability: some frames are nearly plain, so
// that what is done only when nothing is turned or bent is met as well.
struct Shaker {
  Dice& dice;
  float probability;

  bool Moves() { return dice.Chance(probability); }

  // Ends of a range are as likely as its inside.
  void Slide(float& value, float low, float high) {
    if (!Moves()) return;
    value = dice.Chance(0.2f) ? dice.OneOf({low, high}) : dice.Between(low, high);
  }

  void Choose(int32_t& value, int32_t low, int32_t high) {
    if (Moves()) value = dice.Range(low, high);
  }

  void Switch(bool& value) {
    if (Moves()) value = dice.Chance(0.5f);
  }

  void Turn(float& degrees) {
    if (!Moves()) return;
    degrees =
        dice.Chance(0.3f) ? 45.0f * static_cast<float>(dice.Range(-8, 8)) : dice.Between(-400.0f, 400.0f);
  }
};

LifeCurve FlatCurve(float maximum) {
  LifeCurve curve{};
  curve.tag = 2;
  curve.maximum = maximum;
  curve.count = 2;
  curve.x[1] = 1.0f;
  curve.y[0] = curve.y[1] = 1.0f;
  return curve;
}

ColorGradient PlainGradient() {
  ColorGradient g{};
  g.tag = 1;
  g.count = 3;
  g.stops[0] = {0.0f, 1.0f, 1.0f, 0.0f};
  g.stops[1] = {0.5f, 0.0f, 1.0f, 1.0f};
  g.stops[2] = {1.0f, 1.0f, 0.4f, 0.7f};
  g.selected = -1;
  return g;
}

void ShakeCurve(Dice& dice, LifeCurve& curve) {
  curve.count = dice.Range(0, kMaxCurvePoints);
  for (int i = 0; i < curve.count; ++i) {
    const float even = static_cast<float>(i) / static_cast<float>(curve.count);
    curve.x[i] = dice.Chance(0.9f) ? even + dice.Between(0.0f, 0.05f) : dice.Unit();
    curve.y[i] = dice.Between(0.0f, curve.maximum);
  }
}

void ShakeGradient(Dice& dice, ColorGradient& gradient) {
  gradient.count = dice.Range(0, kMaxGradientStops);
  for (int i = 0; i < gradient.count; ++i) {
    const float even = static_cast<float>(i) / static_cast<float>(gradient.count);
    const float position = dice.Chance(0.9f) ? even : dice.OneOf({0.0f, 0.5f, 1.0f});
    gradient.stops[i] = {position, dice.Unit(), dice.Unit(), dice.Unit()};
  }
}

void ShakeMotion(Shaker& shaker, FrameSettings& s) {
  s.transform = shaker.dice.Chance(0.15f) ? shaker.dice.OneOf({0.0f, 1.0f}) : shaker.dice.Unit();
  s.seed = shaker.dice.Range(0, 10000);
  shaker.Switch(s.showSolids);
  shaker.Slide(s.fade, 0.0f, 0.5f);
  shaker.Slide(s.scatter, -1.0f, 2.0f);
  shaker.Turn(s.swirlAngle);
  shaker.Slide(s.stagger, -1.0f, 1.0f);
  shaker.Choose(s.staggerBy, 0, 7);
  shaker.Choose(s.staggerFrom, 1, 2);
  shaker.Slide(s.variationA, -1.0f, 1.0f);
  shaker.Choose(s.variationABy, 0, 7);
  shaker.Slide(s.variationB, -1.0f, 1.0f);
  shaker.Choose(s.variationBBy, 0, 7);
}

void ShakeTurbulence(Shaker& shaker, FrameSettings& s) {
  shaker.Choose(s.turbulenceType, 0, 4);
  shaker.Slide(s.turbulenceAmount, 0.0f, 1.0f);
  shaker.Slide(s.turbulenceZDepth, 0.0f, 1.0f);
  shaker.Slide(s.turbulenceScale, 0.0f, 50.0f);
  shaker.Slide(s.turbulenceSpeed, 0.0f, 2.0f);
  shaker.Slide(s.turbulenceEvolution, -10.0f, 10.0f);
  shaker.Choose(s.turbulenceSeed, 0, 10000);
  s.timeSeconds = shaker.dice.Chance(0.2f) ? 0.0f : shaker.dice.Between(-5.0f, 200.0f);
  s.frameRate = 30.0f;
}

void ShakeParticle(Shaker& shaker, FrameSettings& s) {
  Dice& dice = shaker.dice;
  s.shape = dice.Range(1, 10);
  s.size = dice.Chance(0.1f) ? 0.5f : dice.Between(0.5f, 25.0f);
  shaker.Slide(s.sizeVariation, 0.0f, 1.0f);
  s.lineWidth = dice.Chance(0.1f) ? 0.5f : dice.Between(0.5f, 8.0f);
  shaker.Slide(s.lineWidthVariation, 0.0f, 1.0f);
  s.roundCap = dice.Chance(0.5f);
  shaker.Choose(s.colorMode, 0, 5);
  shaker.Slide(s.hueVariation, 0.0f, 1.0f);
  shaker.Slide(s.opacity, 0.0f, 1.0f);
  shaker.Slide(s.opacityVariation, 0.0f, 1.0f);
  for (int a = 0; a < 3; ++a) {
    shaker.Turn(s.rotation[a]);
    shaker.Slide(s.rotationVariation[a], 0.0f, 360.0f);
    shaker.Slide(s.spin[a], -720.0f, 720.0f);
  }
  shaker.Switch(s.autoOrient);
  shaker.Switch(s.faceCamera);
  if (shaker.Moves()) ShakeCurve(dice, s.scaleOverLife);
  if (shaker.Moves()) ShakeCurve(dice, s.opacityOverLife);
  if (shaker.Moves()) ShakeGradient(dice, s.colorGradient);
  s.transferMode = dice.Chance(0.3f) ? 1 : dice.Range(0, 9);
}

void ShakePlane(Shaker& shaker, PlaneSettings& plane) {
  for (int a = 0; a < 3; ++a) {
    shaker.Slide(plane.position[a], -30.0f, 30.0f);
    shaker.Turn(plane.rotation[a]);
  }
  shaker.Slide(plane.scale[0], 0.0f, 3.0f);
  shaker.Slide(plane.scale[1], 0.0f, 3.0f);
  shaker.Slide(plane.thickness, 0.0f, 300.0f);
}

int32_t FullSize(int32_t output, float factor) {
  if (factor <= 0.001f) return output;
  return static_cast<int32_t>(static_cast<float>(output) / factor + 0.5f);
}

void SpoilCurve(Dice& dice, LifeCurve& curve) {
  curve.count = dice.OneOf({-1, 0, 1, 2, 15, 16, 17, 1000000, -2147483647});
  for (int i = 0; i < kMaxCurvePoints; ++i) {
    curve.x[i] = dice.Chance(0.1f) ? dice.OneOf({kNan, kInfinity, -kInfinity, 1e30f}) : dice.Unit();
    curve.y[i] =
        dice.Chance(0.1f) ? dice.OneOf({kNan, kInfinity, -kInfinity, 1e30f}) : dice.Between(-1.0f, 3.0f);
  }
}

// Positions of every kind, but colours that are numbers: a NaN in a picture has no one value to compare.
void SpoilGradient(Dice& dice, ColorGradient& gradient) {
  gradient.count = dice.OneOf({-1, 0, 1, 2, 7, 8, 9, 1000000, -2147483647});
  for (GradientStop& stop : gradient.stops) {
    const float position = dice.OneOf({kNan, kInfinity, -kInfinity, dice.Unit(), dice.Unit()});
    stop = {position, dice.Between(-1.0f, 2.0f), dice.Unit(), dice.Unit()};
  }
}

// The controls that take any float.
float* AnyControl(Dice& dice, FrameSettings& s) {
  return dice.OneOf<float*>({&s.transform,
                             &s.fade,
                             &s.scatter,
                             &s.swirlAngle,
                             &s.stagger,
                             &s.variationA,
                             &s.variationB,
                             &s.planeA.position[0],
                             &s.planeA.position[2],
                             &s.planeB.rotation[1],
                             &s.planeB.scale[0],
                             &s.planeA.thickness,
                             &s.viewAngle,
                             &s.turbulenceAmount,
                             &s.turbulenceScale,
                             &s.turbulenceEvolution,
                             &s.turbulenceSpeed,
                             &s.turbulenceZDepth,
                             &s.size,
                             &s.sizeVariation,
                             &s.lineWidth,
                             &s.lineWidthVariation,
                             &s.hueVariation,
                             &s.opacity,
                             &s.opacityVariation,
                             &s.rotation[0],
                             &s.rotation[2],
                             &s.rotationVariation[1],
                             &s.spin[2],
                             &s.timeSeconds});
}

}  // namespace

FrameSettings DefaultSettings(int32_t outputWidth, int32_t outputHeight) {
  FrameSettings s{};
  s.fade = 0.15f;
  s.staggerBy = s.staggerFrom = s.variationABy = s.variationBBy = 1;
  s.density = 20000;
  for (PlaneSettings* plane : {&s.planeA, &s.planeB}) {
    plane->scale[0] = plane->scale[1] = 1.0f;
    plane->thickness = 100.0f;
  }
  s.viewAngle = 40.0f;
  s.turbulenceType = 1;
  s.turbulenceScale = 5.0f;
  s.turbulenceSpeed = 0.5f;
  s.turbulenceZDepth = 0.5f;
  s.size = 4.0f;
  s.sizeVariation = 0.2f;
  s.shape = SHAPE_SOFT_CIRCLE;
  s.lineWidth = 2.0f;
  s.roundCap = true;
  s.timeType = 1;
  s.colorMode = 2;
  s.colorGradient = PlainGradient();
  s.opacity = 0.8f;
  s.opacityOverLife = FlatCurve(1.0f);
  s.scaleOverLife = FlatCurve(2.0f);
  s.transferMode = BLEND_NORMAL;
  s.frameRate = 30.0f;
  s.outputWidth = s.fullWidth = outputWidth;
  s.outputHeight = s.fullHeight = outputHeight;
  s.downsampleX = s.downsampleY = 1.0f;
  return s;
}

FrameSettings RandomSettings(Dice& dice, int32_t outputWidth, int32_t outputHeight) {
  FrameSettings s = DefaultSettings(outputWidth, outputHeight);
  Shaker shaker{dice, dice.OneOf({0.05f, 0.3f, 0.8f})};
  s.density = dice.Chance(0.05f) ? dice.Range(-1, 2) : dice.Range(1, 400);
  ShakeMotion(shaker, s);
  ShakeTurbulence(shaker, s);
  ShakeParticle(shaker, s);
  ShakePlane(shaker, s.planeA);
  ShakePlane(shaker, s.planeB);
  shaker.Slide(s.viewAngle, 0.0f, 120.0f);
  shaker.Switch(s.depthOfField);
  if (dice.Chance(0.3f)) {
    s.downsampleX = dice.OneOf({0.5f, 1.0f / 3.0f, 0.25f, 0.9995f, 0.0f, 0.7f});
    s.downsampleY = dice.Chance(0.7f) ? s.downsampleX : dice.OneOf({1.0f, 0.5f, 0.25f});
  }
  s.fullWidth = FullSize(outputWidth, s.downsampleX);
  s.fullHeight = FullSize(outputHeight, s.downsampleY);
  return s;
}

void SpoilSettings(Dice& dice, FrameSettings& s) {
  if (dice.Chance(0.3f)) SpoilCurve(dice, s.scaleOverLife);
  if (dice.Chance(0.3f)) SpoilCurve(dice, s.opacityOverLife);
  if (dice.Chance(0.3f)) SpoilGradient(dice, s.colorGradient);
  if (dice.Chance(0.2f)) s.shape = dice.OneOf({-1, 0, 11, 2147483647});
  if (dice.Chance(0.2f)) s.seed = dice.OneOf({-1, 2147483647, -2147483647});
  if (dice.Chance(0.2f)) s.turbulenceSeed = dice.OneOf({-1, 2147483647, -2147483647});
  for (int n = dice.Range(0, 2); n > 0; --n) {
    *AnyControl(dice, s) = dice.OneOf({kNan, kInfinity, -kInfinity, 1e30f, -1e30f, 1e9f, -1e9f, 1e5f, -1e5f,
                                       1e-30f, -1e-30f, -0.0f, -1.0f, 3.0f});
  }
}

CameraData RandomCamera(Dice& dice, const FrameSettings& s) {
  CameraData camera;
  if (dice.Chance(0.5f)) return camera;
  camera.hasCamera = true;

  // Turn about y, then about x, and stand back by about the frame's width.
  const double w = s.fullWidth;
  const double h = s.fullHeight;
  const bool straight = dice.Chance(0.3f);
  const float wild = dice.OneOf({0.3f, 0.3f, 3.1f});
  const double a = straight ? 0.0 : static_cast<double>(dice.Between(-wild, wild));
  const double b = straight ? 0.0 : static_cast<double>(dice.Between(-wild, wild));
  const double row[3][3] = {{Cos(a), 0.0, -Sin(a)},
                            {Sin(b) * Sin(a), Cos(b), Sin(b) * Cos(a)},
                            {Cos(b) * Sin(a), -Sin(b), Cos(b) * Cos(a)}};
  for (int i = 0; i < 3; ++i) {
    for (int j = 0; j < 3; ++j) camera.viewMatrix[4 * j + i] = row[i][j];
    camera.viewMatrix[12 + i] = -(row[i][0] * w / 2 + row[i][1] * h / 2);
  }
  camera.imagePlaneDistance = w * static_cast<double>(dice.Between(0.5f, 3.0f));
  camera.viewMatrix[14] += camera.imagePlaneDistance * static_cast<double>(dice.Between(0.3f, 1.3f));
  camera.cameraCentre[0] = static_cast<float>(w / 2);
  camera.cameraCentre[1] = static_cast<float>(h / 2);

  camera.cameraDepthOfField = dice.Chance(0.8f);
  camera.zoom = static_cast<float>(camera.imagePlaneDistance);
  camera.focusDistance =
      dice.Chance(0.1f) ? dice.OneOf({0.0f, 1.0f, 1.5f}) : camera.zoom * dice.Between(0.5f, 2.0f);
  camera.aperture = dice.OneOf({0.0f, 0.5f, 5.0f, dice.Between(0.0f, 60.0f)});
  return camera;
}

}  // namespace vantle::reference
