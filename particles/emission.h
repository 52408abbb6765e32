// Where particles come from: the pixels of the two layers as weighted sets from which every particle picks
// its start and its end.
#pragma once

#include "base/buffer.h"
#include "base/image_view.h"
#include "particles/frame_settings.h"

#include <cstdint>

namespace vantle {

/// Sums are kept at every so many pixels, and gathered into tree nodes of as many.
inline constexpr int32_t kSumGroup = 16;

/// One layer as a weighted set of emitting pixels. No list of points is kept: a pick needs only the running
/// sums of the weights at every 16th pixel, from which the few additions in between are repeated exactly.
struct Emitter {
  ImageView image;          ///< borrowed; must outlive the emitter
  bool hasPoints = false;   ///< whether any pixel emits
  int64_t firstPoint = 0;   ///< index (row-major) of the first emitting pixel
  int64_t lastPoint = 0;    ///< index of the last one; known only when `total` is not finite
  float total = 0.0f;       ///< sum of all weights
  float variation = 0.0f;   ///< signed strength of the channel's influence on the weights
  int32_t variationBy = 1;  ///< channel, as the popup numbers it
  float offsetX = 0.0f;     ///< added to a pixel's column before dividing by the downsample factor
  float offsetY = 0.0f;

  /// Rows are cut into blocks of this many pixels, the last of a row being shorter.
  int32_t blockLength = kSumGroup;
  int32_t blocksPerRow = 0;
  /// Running sum at the end of each block, row after row; filled up with the total to whole groups of 16.
  Buffer<float> sums;
  /// A tree over `sums`: each level holds the last value of every 16 of the level below, the top level being
  /// one group. Level by level from the lowest, each filled up to whole groups.
  Buffer<float> tree;
  /// The sums before rounding, for layers so large that they are summed in double precision; else empty.
  Buffer<double> wideSums;
};

/// What a frame's particles are born on and travel to.
struct Emission {
  Emitter source;
  Emitter target;
};

/// Weighs the layers. When `layerA` has no emitting pixel the effect's own `input` stands in for it, placed
/// without centring. Views may be empty. Throws std::bad_alloc.
Emission BuildEmission(const ImageView& layerA, const ImageView& layerB, const ImageView& input,
                       const FrameSettings& settings);

}  // namespace vantle
