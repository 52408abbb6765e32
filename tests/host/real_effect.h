// The shipped module, and small scenes for it.
#pragma once

#include "host/engine/custom_values.h"
#include "host/engine/effect.h"
#include "host/engine/frame_request.h"

#include <map>
#include <memory>
#include <string>
#include <vector>

namespace vantle::host {

/// Indices of the parameters that these tests touch.
enum RealParam : int {
  kSourceLayerParam = 2,
  kTargetLayerParam = 3,
  kTransformParam = 4,
  kDensityParam = 19,
  kSizeParam = 26,
  kScaleOverLifeParam = 28,
  kShapeParam = 29,
  kTimeTypeParam = 34,
  kSpriteLayerParam = 33,
  kColorModeParam = 35,
  kGradientParam = 36,
  kOpacityOverLifeParam = 40,
  kDepthOfFieldParam = 64,
};

/// The module, opened; fails the test when that does not work.
OpenedEffect OpenReal(const HostOptions& options = {});

/// A layer of coloured squares, opaque at its left and transparent at its right edge.
std::shared_ptr<const World> ColorfulLayer(int width, int height, int depth);

/// A frame with a few hundred particles half way between two layers.
FrameRequest RealFrame(const EffectInstance& effect, int width, int height, int depth);

/// Renders, and fails the test on any error or complaint.
World RenderClean(EffectInstance& effect, const FrameRequest& request);

/// How many pixels are not transparent black.
int PixelsDrawn(const World& world);

/// All lines in one, for messages of tests.
std::string AllLines(const std::vector<std::string>& lines);

}  // namespace vantle::host
