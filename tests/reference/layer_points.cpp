#include "tests/reference/layer_points.h"

#include "tests/reference/pixel_codec.h"
#include "tests/reference/random_streams.h"

#include <algorithm>
#include <cmath>

namespace vantle::reference {
namespace {

float WeightOf(const Point& point, const Variation& variation) {
  const float v = std::min(std::fabs(variation.amount), 1.0f);
  float w = point.alpha;
  if (!(v <= 0.001f)) {
    float c = ChannelOf(point.r, point.g, point.b, point.alpha, variation.by);
    if (variation.amount < 0.0f) c = 1.0f - c;
    w = point.alpha * (c * v + (1.0f - v));
  }
  return std::isfinite(w) ? std::max(w, 0.0001f) : 0.0001f;
}

// A float sum of more than 2^24 weights stops growing, and the lower rows of a large layer would never emit.
void SumWeights(PointList& list, const Variation& variation, bool large) {
  list.cumulative.reserve(list.points.size());
  float sum = 0.0f;
  double largeSum = 0.0;
  for (const Point& point : list.points) {
    const float w = WeightOf(point, variation);
    sum += w;
    largeSum += static_cast<double>(w);
    list.cumulative.push_back(large ? static_cast<float>(largeSum) : sum);
  }
}

}  // namespace

float ChannelOf(float r, float g, float b, float alpha, int32_t by) {
  if (by == 2) {
    const float high = std::max(std::max(r, g), b);
    const float low = std::min(std::min(r, g), b);
    return high <= 0.001f ? 0.0f : (high - low) / high;
  }
  if (by == 3) return r;
  if (by == 4) return g;
  if (by == 5) return b;
  if (by == 6) return alpha;
  return 0.299f * r + 0.587f * g + 0.114f * b;
}

PointList PointsOf(const ImageView& layer, const FrameSettings& settings, const Variation& variation,
                   bool centred) {
  PointList list;
  if (!HasPixels(layer)) return list;

  // Place the layer on the composition.
  float offsetX = 0.0f;
  float offsetY = 0.0f;
  if (centred) {
    offsetX = (static_cast<float>(settings.outputWidth) - static_cast<float>(layer.width)) / 2.0f;
    offsetY = (static_cast<float>(settings.outputHeight) - static_cast<float>(layer.height)) / 2.0f;
  }
  const float downX = settings.downsampleX <= 0.001f ? 1.0f : settings.downsampleX;
  const float downY = settings.downsampleY <= 0.001f ? 1.0f : settings.downsampleY;

  const int64_t pixels = int64_t{layer.width} * layer.height;
  list.points.reserve(static_cast<size_t>(pixels));
  for (int32_t y = 0; y < layer.height; ++y) {
    for (int32_t x = 0; x < layer.width; ++x) {
      const size_t column = static_cast<size_t>(x) * BytesPerPixel(layer.depth);
      const Pixel pixel = ReadPixel(Row(layer, y) + column, layer.depth);
      if (!(pixel.a > 0.01f)) continue;
      list.points.push_back({(static_cast<float>(x) + offsetX) / downX,
                             (static_cast<float>(y) + offsetY) / downY, pixel.r, pixel.g, pixel.b, pixel.a});
    }
  }
  SumWeights(list, variation, pixels > (int64_t{1} << 24));
  return list;
}

const Point& Pick(const PointList& list, uint32_t key) {
  const std::vector<float>& c = list.cumulative;
  const float r = Fraction(key) * c.back();
  size_t low = 0;
  size_t high = c.size() - 1;
  while (low < high) {
    const size_t middle = (low + high) >> 1;
    if (r <= c[middle]) {
      high = middle;
    } else {
      low = middle + 1;
    }
  }
  return list.points[low];
}

}  // namespace vantle::reference
