// Layers out of plain tables.
#include "host/engine/effect.h"
#include "host/engine/frame_request.h"

#include <cstdint>

namespace vantle::host {
namespace {

/// Whether a / scaleA seconds is not above b / scaleB seconds; scales of 0 count as 1.
bool NotAbove(A_long a, A_u_long scaleA, A_long b, A_u_long scaleB) {
  const std::int64_t left = std::int64_t{a} * (scaleB == 0 ? 1 : std::int64_t{scaleB});
  const std::int64_t right = std::int64_t{b} * (scaleA == 0 ? 1 : std::int64_t{scaleA});
  return left <= right;
}

std::shared_ptr<const World> FrameAt(const std::vector<TimedWorld>& frames, A_u_long frameScale, A_long time,
                                     A_u_long scale) {
  std::shared_ptr<const World> last;
  for (const TimedWorld& frame : frames) {
    if (NotAbove(frame.time, frameScale, time, scale)) {
      last = frame.world;
    }
  }
  return last;
}

}  // namespace

LayerProvider LayersOf(const EffectInstance& effect, LayerTable table, std::shared_ptr<const World> input) {
  return [&effect, table = std::move(table), input = std::move(input)](int param, A_long time, A_long,
                                                                       A_u_long scale) -> LayerFrame {
    if (const auto timed = table.frames.find(param); timed != table.frames.end()) {
      return {PF_Err_NONE, FrameAt(timed->second, table.frameScale, time, scale)};
    }
    if (const auto still = table.layers.find(param); still != table.layers.end()) {
      return {PF_Err_NONE, still->second};
    }
    const auto index = static_cast<std::size_t>(param);
    const bool itself =
        index < effect.params.size() && effect.params[index].def.u.ld.dephault == PF_LayerDefault_MYSELF;
    return {PF_Err_NONE, itself ? input : nullptr};
  };
}

}  // namespace vantle::host
