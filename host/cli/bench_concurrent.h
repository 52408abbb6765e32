// Several frames at once, as hosts render previews and exports, against one after the other.
#pragma once

#include "host/cli/bench_scene.h"
#include "host/engine/effect.h"

#include <string>
#include <vector>

namespace vantle::cli {

/// `framesAtOnce` host threads render the frame over and over, each with so many loop threads.
struct ConcurrentCase {
  std::string frame;
  int framesAtOnce = 1;
  int loopThreads = 1;
  std::vector<double> framesPerSecond;  ///< a value a round
  std::vector<double> milliseconds;     ///< of a frame, from its start to its end; the mean of each round
};

/// Each scene one frame after the other and `atOnce` at once, both with one loop thread a frame and with
/// `threads`, all in turns. Throws Failure when a frame fails.
std::vector<ConcurrentCase> MeasureConcurrent(host::EffectInstance& effect,
                                              const std::vector<BenchScene>& scenes, int atOnce, int threads,
                                              int rounds);

/// Renders once and returns the milliseconds of the render command. Throws Failure when it fails.
double RenderOnce(host::EffectInstance& effect, const BenchScene& scene, host::World* world);

}  // namespace vantle::cli
