#include "host/io/codes.h"
#include "host/io/failure.h"
#include "host/io/image_file.h"
#include "host/io/npy.h"

#include <OpenImageIO/filesystem.h>
#include <OpenImageIO/imageio.h>
#include <cstring>
#include <memory>

namespace vantle::io {
namespace {

using OIIO::ImageOutput;
using OIIO::ImageSpec;
using OIIO::TypeDesc;

// Encodes into memory, so that writing to the disk, and its failures, stay in one place.
std::vector<std::byte> Encode(const char* format, ImageSpec spec, const void* pixels) {
  std::vector<unsigned char> bytes;
  OIIO::Filesystem::IOVecOutput memory(bytes);
  OIIO::Filesystem::IOProxy* proxy = &memory;
  spec.attribute("oiio:ioproxy", TypeDesc::PTR, &proxy);
  const std::string name = std::string("frame.") + format;
  std::unique_ptr<ImageOutput> output = ImageOutput::create(name, &memory);
  if (!output || !output->open(name, spec) || !output->write_image(spec.format, pixels) || !output->close())
    throw Failure(kOutputNotWritable, std::string("a frame cannot be encoded as ") + format + ": " +
                                          (output ? output->geterror() : OIIO::geterror()));
  std::vector<std::byte> file(bytes.size());
  std::memcpy(file.data(), bytes.data(), bytes.size());
  return file;
}

ImageSpec SpecFor(const ImageView& image, TypeDesc::BASETYPE type) {
  ImageSpec spec(image.width, image.height, 4, type);
  spec.channelnames = {"R", "G", "B", "A"};
  spec.alpha_channel = 3;
  return spec;
}

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
  ImageSpec spec = SpecFor(image, TypeDesc::UINT8);
  spec.attribute("oiio:UnassociatedAlpha", 1);
  spec.attribute("png:compressionLevel", 3);
  return Encode("png", spec, rgba.data());
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
  ImageSpec spec = SpecFor(image, TypeDesc::UINT16);
  spec.attribute("oiio:UnassociatedAlpha", 1);
  spec.attribute("png:compressionLevel", 3);
  return Encode("png", spec, rgba.data());
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
  ImageSpec spec = SpecFor(image, TypeDesc::FLOAT);
  spec.attribute("compression", "zip");
  return Encode("exr", spec, rgba.data());
}

}  // namespace

OutputFormat FormatForName(const std::string& path) {
  if (path.ends_with(".png")) return OutputFormat::kPng;
  if (path.ends_with(".exr")) return OutputFormat::kExr;
  if (path.ends_with(".npy")) return OutputFormat::kNpy;
  throw Failure(kUsage, path + ": the name must end in .png, .exr or .npy");
}

std::vector<std::byte> EncodePicture(const ImageView& image, OutputFormat format) {
  if (format == OutputFormat::kNpy) return EncodeNpy(image);
  if (format == OutputFormat::kExr) return EncodeExr(image);
  return image.depth == PixelDepth::k8 ? EncodePng8(image) : EncodePng16(image);
}

}  // namespace vantle::io
