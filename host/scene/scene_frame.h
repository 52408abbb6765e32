// From a scene to the requests that the engine renders.
#pragma once

#include "host/composition/evaluation.h"
#include "host/engine/frame_request.h"
#include "host/io/picture.h"
#include "host/scene/layer_store.h"
#include "host/scene/scene.h"
#include "host/scene/timeline.h"

#include <cstdint>
#include <memory>
#include <mutex>
#include <string>
#include <vector>

namespace vantle::scene {

struct RenderOptions {
  PixelDepth depth = PixelDepth::k8;
  int32_t divisor = 1;  ///< 1, 2, 3 or 4: full, half, third, quarter resolution
};

/// A scene bound to an applied effect, its layers loaded. It stays where it is: requests refer to it.
struct PreparedScene {
  const Scene* scene = nullptr;
  host::EffectInstance* effect = nullptr;
  RenderOptions options;
  Timeline timeline;
  LayerStore store;
  std::shared_ptr<composition::Composition> composition;    ///< frames only read it
  std::shared_ptr<composition::ExpressionReports> reports;  ///< what expressions failed with
};

/// Indices of the effect's three layer parameters.
inline constexpr int kSourceLayerParam = 2;
inline constexpr int kTargetLayerParam = 3;
inline constexpr int kCustomLayerParam = 33;

/// Binds the scene's parameters, then `overrides`, and loads the layers. Warnings on values held to their
/// range are added to `warnings`. Throws Failure.
void PrepareScene(const Scene& scene, const std::vector<Parameter>& overrides, host::EffectInstance& effect,
                  const RenderOptions& options, PreparedScene* prepared, std::vector<std::string>* warnings);

/// The clock of a frame: time_scale / time_step is the frame rate exactly. Throws Failure (kUsage) when the
/// frame's time does not fit.
host::FrameTime TimeOfFrame(const Composition& composition, int32_t frame);

/// A failure inside of a checkout, where nothing may be thrown; one a frame.
struct CheckoutFailure {
  std::mutex mutex;
  std::string message;
};

/// The request of one frame. The layers' pictures are loaded as the effect asks for them; when that fails,
/// the checkout fails and `failure` says why. Throws Failure.
host::FrameRequest RequestFrame(PreparedScene& prepared, int32_t frame,
                                const std::shared_ptr<CheckoutFailure>& failure);

}  // namespace vantle::scene
