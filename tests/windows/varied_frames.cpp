#include "tests/windows/varied_frames.h"

#include <cstdio>

namespace vantle::host {
namespace {

constexpr int kWidth = 96;
constexpr int kHeight = 64;
constexpr int kShapes = 9;
constexpr int kDepths[] = {8, 16, 32};

// Indices of the parameters.
enum : int {
  kSource = 2,
  kTarget = 3,
  kTransform = 4,
  kSeed = 5,
  kShowSolid = 8,
  kFade = 9,
  kScatter = 12,
  kSwirl = 13,
  kStagger = 14,
  kStaggerBy = 15,
  kStaggerFrom = 16,
  kDensity = 19,
  kVariationA = 20,
  kVariationABy = 21,
  kVariationB = 22,
  kVariationBBy = 23,
  kSize = 26,
  kSizeVariation = 27,
  kShape = 29,
  kLineWidth = 30,
  kLineWidthVariation = 31,
  kRoundCap = 32,
  kCustomLayer = 33,
  kTimeType = 34,
  kColorMode = 35,
  kHueVariation = 37,
  kOpacity = 38,
  kOpacityVariation = 39,
  kAutoOrient = 41,
  kFaceCamera = 42,
  kRotationX = 43,
  kRotationVariationX = 46,
  kSpinX = 49,
  kTransferMode = 52,
  kTurbulenceType = 55,
  kTurbulenceAmount = 56,
  kTurbulenceDepth = 57,
  kTurbulenceScale = 58,
  kTurbulenceSpeed = 59,
  kEvolution = 60,
  kTurbulenceSeed = 61,
  kDepthOfField = 64,
  kPositionAX = 67,
  kRotationAX = 70,
  kScaleAX = 73,
  kThicknessA = 75,
  kPositionBX = 76,
  kThicknessB = 84,
  kViewAngle = 85
};

/// A row of numbers that every machine gives alike.
struct Dice {
  std::uint32_t state;

  int Below(int count) {
    state = state * 1664525u + 1013904223u;
    return static_cast<int>((state >> 8) % static_cast<std::uint32_t>(count));
  }
  bool Yes() { return Below(2) == 1; }
  double Between(int low, int high) { return low + Below((high - low) * 16 + 1) / 16.0; }
};

// Another one for the same shape in the next mode.
int Turbulence(int number) {
  return 1 + (number + number / kShapes) % 3;
}

A_long Degrees(int degrees) {
  return degrees * 65536;
}

std::shared_ptr<const World> Squares(int width, int height, int depth, int phase) {
  auto world = std::make_shared<World>(MakeWorld(width, height, depth));
  const auto part = [](int numerator, int denominator) {
    return static_cast<float>(numerator) / static_cast<float>(denominator);
  };
  for (int y = 0; y < height; ++y)
    for (int x = 0; x < width; ++x)
      WritePixel(*world, x, y,
                 {part((x * 7 + y * 3 + phase) % 16, 15), part(x, width),
                  (x / 4 + y / 4 + phase) % 2 == 0 ? 0.9F : 0.2F, part(y, height)});
  return world;
}

void VaryMotion(Dice& dice, FrameRequest* request) {
  auto& values = request->values;
  values[kTransform] = dice.Between(2, 98);
  values[kSeed] = dice.Between(0, 100);
  values[kScatter] = dice.Between(-60, 120);
  values[kSwirl] = Degrees(dice.Below(720) - 360);
  values[kStagger] = dice.Between(-100, 100);
  values[kStaggerBy] = A_long{1 + dice.Below(6)};
  values[kStaggerFrom] = A_long{1 + dice.Below(2)};
  values[kDensity] = 300.0 + dice.Below(2500);
  values[kVariationA] = dice.Between(-100, 100);
  values[kVariationABy] = A_long{1 + dice.Below(5)};
  values[kVariationB] = dice.Between(-100, 100);
  values[kVariationBBy] = A_long{1 + dice.Below(5)};
}

void VaryParticles(Dice& dice, FrameRequest* request) {
  auto& values = request->values;
  values[kSize] = dice.Between(1, 14);
  values[kSizeVariation] = dice.Between(0, 100);
  values[kLineWidth] = dice.Between(1, 6);
  values[kLineWidthVariation] = dice.Between(0, 100);
  values[kRoundCap] = A_long{dice.Below(2)};
  values[kTimeType] = A_long{1 + dice.Below(7)};
  values[kColorMode] = A_long{1 + dice.Below(4)};
  values[kHueVariation] = dice.Between(0, 100);
  values[kOpacity] = dice.Between(30, 100);
  values[kOpacityVariation] = dice.Between(0, 100);
  values[kAutoOrient] = A_long{dice.Below(2)};
  values[kFaceCamera] = A_long{dice.Below(2)};
  for (int axis = 0; axis < 3; ++axis) {
    values[kRotationX + axis] = Degrees(dice.Below(360));
    values[kRotationVariationX + axis] = dice.Between(0, 360);
    values[kSpinX + axis] = dice.Between(-720, 720);
  }
}

void VaryTurbulence(Dice& dice, int number, FrameRequest* request) {
  auto& values = request->values;
  values[kTurbulenceType] = A_long{Turbulence(number)};
  values[kTurbulenceAmount] = number % 4 == 3 ? 0.0 : dice.Between(5, 80);
  values[kTurbulenceDepth] = dice.Between(0, 100);
  values[kTurbulenceScale] = dice.Between(1, 20);
  values[kTurbulenceSpeed] = dice.Between(0, 200);
  values[kEvolution] = Degrees(dice.Below(360));
  values[kTurbulenceSeed] = dice.Between(0, 50);
}

void VarySpace(Dice& dice, FrameRequest* request) {
  auto& values = request->values;
  values[kShowSolid] = A_long{dice.Below(2)};
  values[kFade] = dice.Between(0, 50);
  for (int axis = 0; axis < 3; ++axis) {
    values[kPositionAX + axis] = dice.Between(-10, 10);
    values[kPositionBX + axis] = dice.Between(-10, 10);
    values[kRotationAX + axis] = Degrees(dice.Below(40) - 20);
  }
  values[kScaleAX] = dice.Between(60, 140);
  values[kThicknessA] = dice.Between(0, 200);
  values[kThicknessB] = dice.Between(0, 200);
  values[kViewAngle] = dice.Between(0, 100);
}

// In front of the picture's centre, looking along z, with and without a lens.
void VaryCamera(Dice& dice, int number, FrameRequest* request) {
  if (number % 5 > 1) return;
  FrameCamera& camera = request->camera.emplace();
  for (int i = 0; i < 4; ++i) camera.matrix.mat[i][i] = 1;
  camera.matrix.mat[3][0] = dice.Between(30, 60);
  camera.matrix.mat[3][1] = dice.Between(20, 44);
  camera.matrix.mat[3][2] = -dice.Between(80, 160);
  camera.distance = dice.Between(80, 160);
  camera.planeWidth = kWidth;
  camera.planeHeight = kHeight;
  camera.depthOfField = dice.Yes();
  camera.focusDistance = dice.Between(60, 160);
  camera.aperture = dice.Between(1, 30);
  camera.zoom = camera.distance;
  request->values[kDepthOfField] = A_long{dice.Below(2)};
}

void AddLayers(const EffectInstance& effect, Dice& dice, FrameRequest* request) {
  request->input = Squares(kWidth, kHeight, request->depth, 0);
  LayerTable table;
  table.layers[kTarget] = Squares(40 + dice.Below(60), 30 + dice.Below(50), request->depth, 5);
  table.frameScale = 24;
  for (int i = 0; i < 4; ++i) table.frames[kCustomLayer].push_back({6 * i, Squares(9, 7, request->depth, i)});
  request->sourceDurations[kCustomLayer] = {24, 24};
  request->layers = LayersOf(effect, table, request->input);
}

}  // namespace

FrameRequest VariedFrame(const EffectInstance& effect, int number) {
  Dice dice{static_cast<std::uint32_t>(number) * 2654435761u + 1u};
  FrameRequest request;
  request.width = kWidth;
  request.height = kHeight;
  request.depth = kDepths[number / 2 % 3];
  request.time = {dice.Below(96), 1, 24, 96};
  request.values[kShape] = A_long{1 + number % kShapes};
  request.values[kTransferMode] = A_long{1 + number / kShapes};
  VaryMotion(dice, &request);
  VaryParticles(dice, &request);
  VaryTurbulence(dice, number, &request);
  VarySpace(dice, &request);
  VaryCamera(dice, number, &request);
  AddLayers(effect, dice, &request);
  return request;
}

std::string RenderedLine(EffectInstance& effect, int number) {
  const FrameRequest request = VariedFrame(effect, number);
  World output;
  const FrameResult result = RenderFrame(effect, request, &output);
  char line[120];
  std::snprintf(line, sizeof(line), "%02d shape %d mode %d depth %2d turbulence %d camera %s  ", number,
                1 + number % kShapes, 1 + number / kShapes, request.depth, Turbulence(number),
                request.camera ? "yes" : "no ");
  std::string text = line;
  if (!Succeeded(result)) {
    text += "error " + std::to_string(result.error);
    for (const std::string& problem : result.problems) text += "; " + problem;
    return text;
  }
  std::snprintf(line, sizeof(line), "%016llx", static_cast<unsigned long long>(HashPixels(output)));
  return text + line;
}

}  // namespace vantle::host
