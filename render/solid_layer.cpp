#include "render/solid_layer.h"

#include "base/parallel.h"
#include "base/pixels.h"
#include "render/transfer.h"

#include <algorithm>
#include <cmath>

namespace vantle {
namespace {

// Positions so close to the layer's edge are meant to lie on it: the map is right to about a billionth of a
// texel, and a row of pixels must not come and go with the rounding of its last bit.
constexpr double kEdgeSlack = 1e-9;

double OntoEdges(double position, double size) {
  if (std::fabs(position) <= kEdgeSlack) return 0.0;
  if (std::fabs(position - size) <= kEdgeSlack) return size;
  return position;
}

template <class Format>
FloatPixel Texel(const ImageView& layer, int32_t x, int32_t y) {
  return LoadPixel<Format>(Row(layer, y) + static_cast<size_t>(x) * kPixelBytes<Format>);
}

// Bilinear in alpha; the colours are weighted by their alphas as well, so that white over transparent black
// does not darken at its edge. A missing right or lower neighbour repeats the last texel.
template <class Format>
FloatPixel Sample(const ImageView& layer, double u, double v) {
  const int32_t x = static_cast<int32_t>(u);
  const int32_t y = static_cast<int32_t>(v);
  const int32_t right = std::min(x + 1, layer.width - 1);
  const int32_t below = std::min(y + 1, layer.height - 1);
  const float fx = static_cast<float>(u - x);
  const float fy = static_cast<float>(v - y);
  const FloatPixel texels[4] = {Texel<Format>(layer, x, y), Texel<Format>(layer, x, below),
                                Texel<Format>(layer, right, y), Texel<Format>(layer, right, below)};
  const float weights[4] = {(1.0f - fx) * (1.0f - fy), (1.0f - fx) * fy, fx * (1.0f - fy), fx * fy};
  FloatPixel sum;
  for (int i = 0; i < 4; ++i) {
    const float a = weights[i] * texels[i].a;
    sum.a += a;
    sum.r += a * texels[i].r;
    sum.g += a * texels[i].g;
    sum.b += a * texels[i].b;
  }
  if (!(sum.a > 0.0f)) return {};
  return {sum.a, sum.r / sum.a, sum.g / sum.a, sum.b / sum.a};
}

template <class Format>
void LayOver(const FloatPixel& source, float opacity, std::byte* at) {
  FloatPixel under = LoadPixel<Format>(at);
  const float alpha = source.a * opacity;
  if (!(alpha >= 0.001f)) return;
  kernel::blendPixel(source.r, source.g, source.b, alpha, under.r, under.g, under.b, under.a, BLEND_NORMAL);
  StorePixel<Format>(at, under);
}

template <class Format>
void DrawRow(const MutableImage& output, const ImageView& layer, const SolidPlacement& place, float opacity,
             int32_t y) {
  const double* m = place.toLayer;
  std::byte* row = Row(output, y);
  for (int32_t x = place.x0; x <= place.x1; ++x) {
    const double w = m[6] * x + m[7] * y + m[8];
    const double u = OntoEdges((m[0] * x + m[1] * y + m[2]) / w, layer.width);
    const double v = OntoEdges((m[3] * x + m[4] * y + m[5]) / w, layer.height);
    if (!(u >= 0.0 && u < layer.width && v >= 0.0 && v < layer.height)) continue;
    LayOver<Format>(Sample<Format>(layer, u, v), opacity, row + static_cast<size_t>(x) * kPixelBytes<Format>);
  }
}

template <class Format>
void DrawRows(const MutableImage& output, const ImageView& layer, const SolidPlacement& place,
              float opacity) {
  constexpr int64_t kRowsWorthAThread = 16;
  ParallelRanges(place.y1 - place.y0 + 1, kRowsWorthAThread, [&](int64_t begin, int64_t end) {
    for (int64_t i = begin; i < end; ++i) {
      DrawRow<Format>(output, layer, place, opacity, place.y0 + static_cast<int32_t>(i));
    }
  });
}

}  // namespace

void DrawSolidLayer(const MutableImage& output, const ImageView& layer, const SolidPlacement& placement,
                    float opacity) {
  if (!(opacity > 0.001f) || !HasPixels(layer) || output.data == nullptr) return;
  SolidPlacement place = placement;
  place.x1 = std::min(place.x1, output.width - 1);
  place.y1 = std::min(place.y1, output.height - 1);
  switch (output.depth) {
    case PixelDepth::k8:
      return DrawRows<Format8>(output, layer, place, opacity);
    case PixelDepth::k16:
      return DrawRows<Format16>(output, layer, place, opacity);
    case PixelDepth::k32:
      return DrawRows<Format32>(output, layer, place, opacity);
  }
}

}  // namespace vantle
