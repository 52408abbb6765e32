// One frame as a host hands it to an effect. Nothing in here is scaled, clamped or guessed.
#pragma once

#include "host/engine/host_options.h"
#include "host/engine/world.h"
#include "host_api/basic_types.h"

#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <variant>
#include <vector>

namespace vantle::composition {
struct Composition;
struct ExpressionReports;
}  // namespace vantle::composition

namespace vantle::host {

struct EffectInstance;

/// Layer time, in units of 1 / scale second. `current` may be negative, `step` 0 or negative, `scale` 0.
struct FrameTime {
  A_long current = 0;
  A_long step = 1;
  A_u_long scale = 1;
  A_long total = 1;
};

/// Answer to a checkout. Without a world the checkout succeeds with a record of zeros, as hosts answer for a
/// layer control set to none; with an error it fails.
struct LayerFrame {
  PF_Err error = PF_Err_NONE;
  std::shared_ptr<const World> world;
};

/// Called on the thread of the frame for every layer checkout.
using LayerProvider = std::function<LayerFrame(int paramIndex, A_long time, A_long step, A_u_long scale)>;

/// The bytes of a custom value, put into a handle of exactly that size. Without bytes the parameter carries
/// no handle at all.
struct CustomBytes {
  std::optional<std::vector<std::uint8_t>> bytes;
};

/// double: a slider's number. A_long: 16.16 degrees of an angle, the 1-based choice of a popup, 0 or 1 of a
/// check box. CustomBytes: a custom value.
using ParamValue = std::variant<double, A_long, CustomBytes>;

/// The composition's camera, as the host's services tell it.
struct FrameCamera {
  A_Matrix4 matrix{};
  double distance = 0;
  A_short planeWidth = 0;
  A_short planeHeight = 0;
  bool depthOfField = false;
  double focusDistance = 0;
  double aperture = 0;
  double zoom = 0;
};

/// `width` and `height` are those of the output at the current resolution. The layer's full size goes into
/// in_data; when it is 0, width x downsample denominator / numerator is meant, rounded.
struct FrameRequest {
  int width = 0;
  int height = 0;
  int depth = 8;
  int fullWidth = 0;
  int fullHeight = 0;
  FrameTime time;
  PF_RationalScale downsampleX{1, 1};
  PF_RationalScale downsampleY{1, 1};
  PF_RationalScale pixelAspect{1, 1};
  A_long quality = 1;
  std::shared_ptr<const World> input;  ///< null: the input layer has no pixels
  LayerProvider layers;                ///< empty: see `LayersOf`, given no layers and no frames
  std::map<int, ParamValue> values;    ///< by parameter index; absent ones keep their default
  std::optional<FrameCamera> camera;
  /// Durations of the items behind layer parameters, by parameter index. A layer parameter without one counts
  /// as set to none where its stream is asked, as its pixels come from `layers` alone.
  std::map<int, A_Time> sourceDurations;
  /// The composition around the effect, which then answers for layers, cameras and items; `camera`, when
  /// given, still goes before its cameras. Renders only read it, other commands may change it. What its
  /// expressions fail with goes to `reports` (may be null).
  std::shared_ptr<composition::Composition> composition;
  std::shared_ptr<composition::ExpressionReports> reports;
  std::optional<HostFaults> faults;  ///< instead of the host's own, counted from this frame's start
};

/// Frames of one layer over time: a checkout gives the last one whose time is not above the asked one.
struct TimedWorld {
  A_long time = 0;
  std::shared_ptr<const World> world;
};

/// A provider over plain tables. A layer parameter in `frames` answers from there, one in `layers` always
/// with that world (null: none); one in neither answers with `input` when its declared default is the
/// effect's own layer, else with none. Times are compared after conversion from the asked scale to
/// `frameScale` (frames are at `time` / `frameScale` seconds). Parameter 0 is the input.
struct LayerTable {
  std::map<int, std::shared_ptr<const World>> layers;
  std::map<int, std::vector<TimedWorld>> frames;
  A_u_long frameScale = 1;
};
LayerProvider LayersOf(const EffectInstance& effect, LayerTable table, std::shared_ptr<const World> input);

/// How a frame ended. `error` is the effect's own; `problems` are what the host found wrong with the effect's
/// manners (one line each), or with the request: then `refused` is set and the effect was not called.
struct FrameResult {
  PF_Err error = PF_Err_NONE;
  PF_Cmd failedCommand = PF_Cmd_RENDER;  ///< which command gave `error`
  std::string message;                   ///< what the effect put into return_msg
  std::vector<std::string> problems;
  bool refused = false;
  double milliseconds = 0;  ///< of the render command alone
  long hostCalls = 0;       ///< callbacks and suite functions that the effect called
  long allocations = 0;     ///< of handles and worlds that it asked for
};

/// True when the effect succeeded and nothing was found wrong.
bool Succeeded(const FrameResult& result);

/// Sends frame set-up, render and frame set-down. `output` is made anew unless it already has the request's
/// size and depth; the effect gets it as it is. May be called on several threads at once, and again from
/// inside a checkout; frames of an effect that does not declare threaded rendering take turns.
FrameResult RenderFrame(EffectInstance& effect, const FrameRequest& request, World* output);

/// Sends any one command with the arguments of a frame (parameters, clock, sizes, output when there is one):
/// a changed parameter, an update of the panel, an event. `extra` goes to the effect as it is. The value
/// changes that the effect makes to custom values come back in `changed`, by parameter index, when asked for.
FrameResult SendFrameCommand(EffectInstance& effect, PF_Cmd command, const FrameRequest& request,
                             World* output, void* extra, std::map<int, CustomBytes>* changed = nullptr);

}  // namespace vantle::host
