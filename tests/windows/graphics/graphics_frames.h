// Frames through the whole effect, twice: by the module as it is shipped, and by the same sources linked
// without a graphics path, whose pictures are the processor's.
#pragma once

#include "tests/windows/varied_frames.h"

#include <cstdint>
#include <vector>

namespace vantle::host {

/// The shipped module, and the effect that only knows the processor; both fail the test when they do not
/// open.
OpenedEffect OpenShipped(const HostOptions& options = {});
OpenedEffect OpenProcessorOnly(const HostOptions& options = {});

/// Numbers of the varied frames whose shape the graphics path draws: each such shape in each transfer mode.
std::vector<int> GraphicsNumbers();

/// A varied frame without solid layers over it, which are the processor's on either road.
FrameRequest ParticlesAlone(const EffectInstance& effect, int number);

/// The same frame in a float world, from layers that hold the very numbers which the effect reads from the
/// codes of the request's own depth: the same particles.
FrameRequest InFloats(const FrameRequest& request);

/// Renders, and fails the test on any error or complaint.
World Rendered(EffectInstance& effect, const FrameRequest& request);

/// The pixels' bytes, row after row, without what lies between the rows.
std::vector<std::uint8_t> PixelsOf(const World& world);

/// Floats limited to 0..1, scaled to the depth's codes and truncated.
World Quantised(const World& floats, int depth);

/// What the graphics path must give where it computes in the processor's own arithmetic: the processor's
/// floats, quantised once. `processor` is the effect that only knows the processor.
std::vector<std::uint8_t> GraphicsPixels(EffectInstance& processor, const FrameRequest& request);

/// How far two float pictures are from each other.
struct PictureDifference {
  float largest = 0.0f;  ///< of all premultiplied channels; infinite for what is not a number
  int drawnByOne = 0;    ///< pixels with something on them in one picture alone
  int drawn = 0;         ///< pixels with something on them in the first
};
PictureDifference CompareFloats(const World& a, const World& b);

}  // namespace vantle::host
