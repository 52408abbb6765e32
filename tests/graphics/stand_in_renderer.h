// A graphics processor made of loops, in place of the real one: it runs the kernel's formulas as C++.
#pragma once

#include "render/graphics/gpu_renderer.h"

namespace vantle::test {

struct StandInRenderer {
  bool fails = false;  ///< every render reports failure and writes nothing
  int renders = 0;
  size_t numTileIndices = 0;  ///< of the last render
  RenderParamsCB params{};    ///< of the last render
};

/// The one that RenderGpu draws with.
StandInRenderer& TheStandIn();

}  // namespace vantle::test
