// A layer as a list of emitting points with a table of running weights.
#pragma once

#include "base/image_view.h"
#include "particles/frame_settings.h"

#include <cstddef>
#include <cstdint>
#include <vector>

namespace vantle::reference {

/// One emitting pixel, in full-resolution composition pixels.
struct Point {
  float x = 0.0f;
  float y = 0.0f;
  float r = 0.0f;
  float g = 0.0f;
  float b = 0.0f;
  float alpha = 0.0f;
};

/// Row by row, top to bottom, left to right.
struct PointList {
  std::vector<Point> points;
  std::vector<float> cumulative;
};

/// The points of a frame, from which particles pick their start and end.
struct Layers {
  PointList a;
  PointList b;
};

/// Which channel of a layer reweighs its points, and how strongly.
struct Variation {
  float amount = 0.0f;  ///< negative inverts the channel
  int32_t by = 1;
};

/// The channel that a popup names: brightness, saturation, red, green, blue, alpha.
float ChannelOf(float r, float g, float b, float alpha, int32_t by);

/// Every pixel above the alpha threshold, centred on the output unless it is the effect's own layer.
PointList PointsOf(const ImageView& layer, const FrameSettings& settings, const Variation& variation,
                   bool centred);

/// The smallest index whose running weight reaches the key's fraction of the total. The list is not empty.
const Point& Pick(const PointList& list, uint32_t key);

}  // namespace vantle::reference
