// What the loops over blocks have in common.
#pragma once

#include "render/row_kernels.h"

namespace vantle {

/// Clears what the filling up to whole chunks added.
template <class L>
void ClearOutside(const PixelBlock& block, float* coverage) {
  const int32_t left = block.first - block.x;
  const int32_t right = block.last - block.x + 1;
  for (int32_t row = 0; row < block.rows; ++row, coverage += block.stride) {
    for (int32_t i = 0; i < left; ++i) coverage[i] = 0.0f;
    for (int32_t i = right; i < block.stride; ++i) coverage[i] = 0.0f;
  }
}

}  // namespace vantle
