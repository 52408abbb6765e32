#include "host/io/codes.h"
#include "host/io/image_file.h"
#include "host/io/npy.h"
#include "host/io/picture_codec.h"

#include <algorithm>
#include <cstring>

namespace vantle::io {
namespace {

template <class Stored>
struct StoredFull;
template <>
struct StoredFull<uint8_t> {
  static constexpr uint32_t kFull = kFull8;
};
template <>
struct StoredFull<uint16_t> {
  static constexpr uint32_t kFull = kFullFile16;
};

template <class Stored>
float AsFloat(Stored code) {
  if constexpr (std::is_same_v<Stored, float>)
    return code;
  else
    return FloatFromCode(code, StoredFull<Stored>::kFull);
}

template <class Stored>
uint32_t AsCode(Stored code, uint32_t full) {
  if constexpr (std::is_same_v<Stored, float>)
    return CodeFromFloat(code, full);
  else
    return ConvertCode(code, StoredFull<Stored>::kFull, full);
}

void StoreChannels(std::byte* at, PixelDepth depth, const uint32_t* codes) {
  for (size_t c = 0; c < 4; ++c) {
    const auto code16 = static_cast<uint16_t>(codes[c]);
    if (depth == PixelDepth::k8)
      at[c] = static_cast<std::byte>(codes[c]);
    else
      std::memcpy(at + 2 * c, &code16, 2);
  }
}

uint32_t WorldFull(PixelDepth depth) {
  return depth == PixelDepth::k8 ? kFull8 : kFullWorld16;
}

void StoreFloats(std::byte* at, PixelDepth depth, const float* argb) {
  if (depth == PixelDepth::k32) {
    std::memcpy(at, argb, 4 * sizeof(float));
    return;
  }
  uint32_t codes[4];
  for (int c = 0; c < 4; ++c) codes[c] = CodeFromFloat(argb[c], WorldFull(depth));
  StoreChannels(at, depth, codes);
}

template <class Stored>
void ConvertPixel(const StoredPicture& stored, const std::byte* at, PixelDepth depth, std::byte* to) {
  Stored argb[4] = {};
  for (size_t c = 0; c < 4; ++c)
    if (stored.order[c] >= 0)
      std::memcpy(&argb[c], at + static_cast<size_t>(stored.order[c]) * sizeof(Stored), sizeof(Stored));
  if (stored.order[0] < 0) argb[0] = std::is_same_v<Stored, float> ? Stored{1} : static_cast<Stored>(~0u);

  // Codes go straight to codes; only floats and premultiplied colours pass through floats.
  if (depth == PixelDepth::k32 || stored.premultiplied) {
    float values[4];
    for (int c = 0; c < 4; ++c) values[c] = AsFloat(argb[c]);
    if (stored.premultiplied && values[0] > 0.0f)
      for (int c = 1; c < 4; ++c) values[c] /= values[0];
    StoreFloats(to, depth, values);
    return;
  }
  uint32_t codes[4];
  for (int c = 0; c < 4; ++c) codes[c] = AsCode(argb[c], WorldFull(depth));
  StoreChannels(to, depth, codes);
}

template <class Stored>
void ConvertInto(const StoredPicture& stored, Picture* picture) {
  const size_t pixel = static_cast<size_t>(stored.channels) * sizeof(Stored);
  const size_t worldPixel = PixelBytes(picture->depth);
  const int shiftX = stored.pixels.x - stored.layer.x, shiftY = stored.pixels.y - stored.layer.y;
  const int firstX = std::max(0, -shiftX), endX = std::min(stored.pixels.width, stored.layer.width - shiftX);
  const int firstY = std::max(0, -shiftY),
            endY = std::min(stored.pixels.height, stored.layer.height - shiftY);
  for (int y = firstY; y < endY; ++y) {
    const std::byte* from =
        stored.data.data() + (static_cast<size_t>(y) * static_cast<size_t>(stored.pixels.width)) * pixel;
    std::byte* to = Row(*picture, y + shiftY);
    for (int x = firstX; x < endX; ++x)
      ConvertPixel<Stored>(stored, from + static_cast<size_t>(x) * pixel, picture->depth,
                           to + static_cast<size_t>(x + shiftX) * worldPixel);
  }
}

bool IsNpy(const std::string& path) {
  return path.size() > 4 && path.ends_with(".npy");
}

}  // namespace

PictureSize ReadPictureSize(const std::string& path) {
  if (IsNpy(path)) {
    const Picture picture = ReadNpy(path);
    return {picture.width, picture.height};
  }
  const StoredWindow window = ReadStoredWindow(path);
  return {window.width, window.height};
}

Picture ReadPicture(const std::string& path, PixelDepth depth) {
  if (IsNpy(path)) return ConvertDepth(ReadNpy(path), depth);
  const StoredPicture stored = ReadStored(path);
  Picture picture = MakePicture(stored.layer.width, stored.layer.height, depth);
  if (stored.type == StoredType::k8)
    ConvertInto<uint8_t>(stored, &picture);
  else if (stored.type == StoredType::k16)
    ConvertInto<uint16_t>(stored, &picture);
  else
    ConvertInto<float>(stored, &picture);
  return picture;
}

}  // namespace vantle::io
