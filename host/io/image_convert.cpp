#include "host/io/codes.h"
#include "host/io/image_file.h"

#include <algorithm>
#include <cstring>

namespace vantle::io {
namespace {

struct Code8 {
  using Channel = uint8_t;
  static constexpr uint32_t kFull = kFull8;
};
struct Code16 {
  using Channel = uint16_t;
  static constexpr uint32_t kFull = kFullWorld16;
};
struct CodeFloat {
  using Channel = float;
};

template <class From, class To>
typename To::Channel Convert(typename From::Channel code) {
  using Channel = typename To::Channel;
  if constexpr (std::is_same_v<From, To>)
    return code;
  else if constexpr (std::is_same_v<To, CodeFloat>)
    return FloatFromCode(code, From::kFull);
  else if constexpr (std::is_same_v<From, CodeFloat>)
    return static_cast<Channel>(CodeFromFloat(code, To::kFull));
  else
    return static_cast<Channel>(ConvertCode(code, From::kFull, To::kFull));
}

template <class From, class To>
void ConvertAll(const Picture& from, Picture* to) {
  const size_t channels = static_cast<size_t>(from.width) * static_cast<size_t>(from.height) * 4;
  for (size_t i = 0; i < channels; ++i) {
    typename From::Channel code;
    std::memcpy(&code, from.pixels.data() + i * sizeof(code), sizeof(code));
    const typename To::Channel result = Convert<From, To>(code);
    std::memcpy(to->pixels.data() + i * sizeof(result), &result, sizeof(result));
  }
}

template <class From>
void ConvertFrom(const Picture& from, Picture* to) {
  if (to->depth == PixelDepth::k8) ConvertAll<From, Code8>(from, to);
  if (to->depth == PixelDepth::k16) ConvertAll<From, Code16>(from, to);
  if (to->depth == PixelDepth::k32) ConvertAll<From, CodeFloat>(from, to);
}

// The mean of a block. Without any alpha the plain mean of the colours is kept, as the pixels keep theirs.
template <class Format>
void AverageBlock(const Picture& picture, int32_t x0, int32_t y0, int32_t x1, int32_t y1, std::byte* to) {
  using Channel = typename Format::Channel;
  double alpha = 0, weighted[3] = {0, 0, 0}, plain[3] = {0, 0, 0};
  for (int32_t y = y0; y < y1; ++y) {
    for (int32_t x = x0; x < x1; ++x) {
      Channel argb[4];
      std::memcpy(argb, Row(picture, y) + static_cast<size_t>(x) * sizeof(argb), sizeof(argb));
      alpha += static_cast<double>(argb[0]);
      for (size_t c = 0; c < 3; ++c) {
        weighted[c] += static_cast<double>(argb[c + 1]) * static_cast<double>(argb[0]);
        plain[c] += static_cast<double>(argb[c + 1]);
      }
    }
  }
  const double count = static_cast<double>(x1 - x0) * static_cast<double>(y1 - y0);
  double mean[4] = {alpha / count, 0, 0, 0};
  for (size_t c = 0; c < 3; ++c) mean[c + 1] = alpha > 0 ? weighted[c] / alpha : plain[c] / count;
  Channel result[4];
  for (size_t c = 0; c < 4; ++c)
    result[c] = static_cast<Channel>(std::is_same_v<Channel, float> ? mean[c] : mean[c] + 0.5);
  std::memcpy(to, result, sizeof(result));
}

template <class Format>
void Reduce(const Picture& from, int32_t dx, int32_t dy, Picture* to) {
  for (int32_t y = 0; y < to->height; ++y)
    for (int32_t x = 0; x < to->width; ++x)
      AverageBlock<Format>(from, x * dx, y * dy, std::min(from.width, (x + 1) * dx),
                           std::min(from.height, (y + 1) * dy),
                           Row(*to, y) + static_cast<size_t>(x) * PixelBytes(to->depth));
}

}  // namespace

Picture ConvertDepth(const Picture& picture, PixelDepth depth) {
  if (picture.depth == depth) return picture;
  Picture result = MakePicture(picture.width, picture.height, depth);
  if (picture.depth == PixelDepth::k8) ConvertFrom<Code8>(picture, &result);
  if (picture.depth == PixelDepth::k16) ConvertFrom<Code16>(picture, &result);
  if (picture.depth == PixelDepth::k32) ConvertFrom<CodeFloat>(picture, &result);
  return result;
}

Picture ReducePicture(const Picture& picture, int32_t divisorX, int32_t divisorY) {
  if (divisorX == 1 && divisorY == 1) return picture;
  Picture result = MakePicture((picture.width + divisorX - 1) / divisorX,
                               (picture.height + divisorY - 1) / divisorY, picture.depth);
  if (picture.depth == PixelDepth::k8) Reduce<Code8>(picture, divisorX, divisorY, &result);
  if (picture.depth == PixelDepth::k16) Reduce<Code16>(picture, divisorX, divisorY, &result);
  if (picture.depth == PixelDepth::k32) Reduce<CodeFloat>(picture, divisorX, divisorY, &result);
  return result;
}

}  // namespace vantle::io
