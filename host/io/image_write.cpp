#include "host/io/codes.h"
#include "host/io/failure.h"
#include "host/io/image_file.h"
#include "host/io/npy.h"
#include "host/io/picture_codec.h"

#include <cstring>

namespace vantle::io {
namespace {

template <class Channel>
void LoadChannels(const std::byte* at, Channel* argb) {
  std::memcpy(argb, at, 4 * sizeof(Channel));
}

// Calls store(pixel index, pointer to the pixel) over the picture.
template <class Store>
void ForEachPixel(const ImageView& image, const Store& store) {
  const size_t pixel = PixelBytes(image.depth);
  size_t index = 0;
  for (int32_t y = 0; y < image.height; ++y) {
    const std::byte* at = Row(image, y);
    for (int32_t x = 0; x < image.width; ++x, at += pixel) store(index++, at);
  }
}

size_t PixelCount(const ImageView& image) {
  return static_cast<size_t>(image.width) * static_cast<size_t>(image.height);
}

constexpr size_t kFileOrder[4] = {1, 2, 3, 0};  // red, green, blue, alpha among ours

std::vector<std::byte> EncodePng8(const ImageView& image) {
  std::vector<uint8_t> rgba(PixelCount(image) * 4);
  ForEachPixel(image, [&](size_t i, const std::byte* at) {
    for (size_t c = 0; c < 4; ++c) rgba[i * 4 + c] = std::to_integer<uint8_t>(at[kFileOrder[c]]);
  });
  return EncodeStored(OutputFormat::kPng, StoredType::k8, image.width, image.height, rgba.data());
}

uint16_t FileCode16(const std::byte* at, PixelDepth depth, size_t channel) {
  if (depth == PixelDepth::k16) {
    uint16_t argb[4];
    LoadChannels(at, argb);
    return static_cast<uint16_t>(ConvertCode(argb[channel], kFullWorld16, kFullFile16));
  }
  float argb[4];
  LoadChannels(at, argb);
  return static_cast<uint16_t>(CodeFromFloat(argb[channel], kFullFile16));
}

std::vector<std::byte> EncodePng16(const ImageView& image) {
  std::vector<uint16_t> rgba(PixelCount(image) * 4);
  ForEachPixel(image, [&](size_t i, const std::byte* at) {
    for (size_t c = 0; c < 4; ++c) rgba[i * 4 + c] = FileCode16(at, image.depth, kFileOrder[c]);
  });
  return EncodeStored(OutputFormat::kPng, StoredType::k16, image.width, image.height, rgba.data());
}

void LoadAsFloat(const std::byte* at, PixelDepth depth, float* argb) {
  if (depth == PixelDepth::k32) return LoadChannels(at, argb);
  for (size_t c = 0; c < 4; ++c) {
    uint16_t code = std::to_integer<uint8_t>(at[depth == PixelDepth::k8 ? c : 0]);
    if (depth == PixelDepth::k16) std::memcpy(&code, at + 2 * c, 2);
    argb[c] = FloatFromCode(code, depth == PixelDepth::k8 ? kFull8 : kFullWorld16);
  }
}

std::vector<std::byte> EncodeExr(const ImageView& image) {
  std::vector<float> rgba(PixelCount(image) * 4);
  ForEachPixel(image, [&](size_t i, const std::byte* at) {
    float argb[4];
    LoadAsFloat(at, image.depth, argb);
    for (size_t c = 0; c < 3; ++c) rgba[i * 4 + c] = argb[c + 1] * argb[0];
    rgba[i * 4 + 3] = argb[0];
  });
  return EncodeStored(OutputFormat::kExr, StoredType::kFloat, image.width, image.height, rgba.data());
}

}  // namespace

OutputFormat FormatForName(const std::string& path) {
  if (path.ends_with(".png")) return OutputFormat::kPng;
  if (path.ends_with(".exr") && CanEncode(OutputFormat::kExr)) return OutputFormat::kExr;
  if (path.ends_with(".npy")) return OutputFormat::kNpy;
  throw Failure(kUsage, path + (CanEncode(OutputFormat::kExr)
                                    ? ": the name must end in .png, .exr or .npy"
                                    : ": the name must end in .png or .npy; this build writes no .exr"));
}

std::vector<std::byte> EncodePicture(const ImageView& image, OutputFormat format) {
  if (format == OutputFormat::kNpy) return EncodeNpy(image);
  if (format == OutputFormat::kExr) return EncodeExr(image);
  return image.depth == PixelDepth::k8 ? EncodePng8(image) : EncodePng16(image);
}

}  // namespace vantle::io
