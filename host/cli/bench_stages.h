// The stages of a frame, one by one, on the same layers and settings as the whole frame.
#pragma once

#include "host/cli/bench_scene.h"

#include <string>
#include <utility>
#include <vector>

namespace vantle::cli {

/// Name and milliseconds of each stage, the least of `rounds`, with the calling thread's loop threads.
std::vector<std::pair<std::string, double>> TimeStages(const BenchScene& scene, int rounds);

}  // namespace vantle::cli
