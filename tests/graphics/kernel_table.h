// The comparison of the compute shader with the rasteriser, frame after frame, told as a table.
#pragma once

#include "tests/graphics/kernel_scenes.h"

#include <functional>
#include <vector>

namespace vantle::test {

/// Draws a frame on whatever graphics processor is looked at: four floats a pixel, alpha, red, green, blue.
using KernelDrawer = std::function<std::vector<float>(const KernelInput&)>;

/// Draws every shape and transfer mode with both kinds of line ends in all sizes, `seeds` times, with the
/// tile lists and without, and prints the largest difference of each shape and mode. True when all is within
/// the tolerance and something was drawn; what is not is told on standard error.
bool PrintKernelTable(const KernelDrawer& draw, uint32_t seeds);

}  // namespace vantle::test
