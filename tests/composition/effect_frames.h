// Compositions around the shipped module, for tests that look at rendered frames.
#pragma once

#include "host/composition/composition.h"
#include "tests/host/real_effect.h"

#include <memory>

namespace vantle::host {

/// Controls beyond those of real_effect.h.
enum PlaneParam : int {
  kShowSolidsParam = 8,
  kFadeParam = 9,
  kOpacityParam = 38,
  kThicknessAParam = 75,
  kPositionAXParam = 67,
  kPositionAZParam = 69,
  kRotationAYParam = 71,
  kScaleAXParam = 73,
  kScaleAYParam = 74,
  kPositionBXParam = 76,
  kThicknessBParam = 84,
  kViewAngleParam = 85,
  kControlNullsParam = 86,
};

/// A composition of a frame's size with a picture layer "picture" that carries the effect and a layer
/// "sprite" of `spriteFrames` / 24 seconds, chosen as "Custom Layer".
std::shared_ptr<composition::Composition> CompositionAround(const FrameRequest& request, int spriteFrames);

/// Adds a camera that sees the plane z = 0 in its own size from `zoom` pixels away; its id.
int32_t AddCamera(composition::Composition& composition, double zoom);

/// Presses the button for the control nulls.
FrameResult PressNulls(EffectInstance& effect, const FrameRequest& request);

/// The request with the values that the composition's expressions give.
FrameRequest WithExpressions(const EffectInstance& effect, FrameRequest request);

/// The greatest difference between two channels, as codes of 8 bits.
double GreatestDifference(const World& a, const World& b);

/// Mean place of what was drawn, weighted by alpha; the middle of an empty world.
struct Centroid {
  double x = 0.0;
  double y = 0.0;
  double weight = 0.0;
};
Centroid CentroidOf(const World& world);

}  // namespace vantle::host
