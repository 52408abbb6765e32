// How long large frames take on the graphics processor.
#pragma once

#include "tests/graphics/vulkan_kernel.h"

namespace vantle::test {

/// Draws 1920 x 1080 pixels with 20,000 soft circles of size 4 and with 200,000 circles of size 10, and
/// prints the best of several runs of each step, beside the processor's rasteriser. False when a picture
/// differs from the rasteriser's.
bool PrintTimes(const VulkanKernel& kernel);

}  // namespace vantle::test
