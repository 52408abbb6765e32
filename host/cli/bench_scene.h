// The frames that are measured.
#pragma once

#include "host/engine/frame_request.h"
#include "particles/frame_settings.h"

#include <memory>
#include <string>
#include <vector>

namespace vantle::cli {

/// A frame for the whole effect, and the same frame's settings for its stages.
struct BenchScene {
  std::string name;
  std::string title;
  host::FrameRequest request;
  FrameSettings settings{};
  std::shared_ptr<const host::World> layerA;
  std::shared_ptr<const host::World> layerB;
  std::shared_ptr<const host::World> sprite;  ///< what particles of the shape "Layer" wear; else null
  CameraData camera;
};

/// The default frame: 20,000 soft circles of size 4, half-way between two opaque layers of 1920 x 1080, 8
/// bit. The heavy frame: 200,000 circles of size 10 with 10 % of curl turbulence. Then 20,000 curve lines,
/// curved arrows, sprites, and sprites out of focus.
std::vector<BenchScene> MakeBenchScenes(const host::EffectInstance& effect);

}  // namespace vantle::cli
