#include "host/io/codes.h"
#include "host/io/failure.h"
#include "host/io/files.h"
#include "host/io/image_file.h"
#include "host/io/npy.h"
#include "host/io/png_check.h"

#include <OpenImageIO/imageio.h>
#include <algorithm>
#include <array>
#include <cstring>
#include <memory>

namespace vantle::io {
namespace {

using OIIO::ImageInput;
using OIIO::ImageSpec;
using OIIO::TypeDesc;

[[noreturn]] void Refuse(const std::string& path, const std::string& why) {
  throw Failure(kUnreadableInput, path + ": " + why);
}

// A library's report may be many lines; ours is one.
std::string OneLine(std::string text) {
  while (!text.empty() && (text.back() == '\n' || text.back() == ' ')) text.pop_back();
  std::replace(text.begin(), text.end(), '\n', ' ');
  return text;
}

// The window that becomes the layer: the display window of an EXR, which its pixels may fill in part or
// exceed; the pixels themselves elsewhere.
struct Window {
  int x, y, width, height;
};

Window LayerWindow(const ImageInput& input) {
  const ImageSpec& spec = input.spec();
  if (std::strcmp(input.format_name(), "openexr") == 0)
    return {spec.full_x, spec.full_y, spec.full_width, spec.full_height};
  return {spec.x, spec.y, spec.width, spec.height};
}

void CheckSize(const std::string& path, int width, int height) {
  if (width >= 1 && height >= 1 && width <= kMaxEdge && height <= kMaxEdge) return;
  Refuse(path, std::to_string(width) + " x " + std::to_string(height) +
                   " pixels; a layer is 1 x 1 to 30000 x 30000: crop or scale it");
}

void CheckBeforeReading(const std::string& path) {
  const PngCheck png = CheckPng(ReadWholeFile(path));
  if (!png.isPng) return;
  constexpr uint32_t kSane = 0x7FFFFFFF;
  const bool sized = png.isWhole || png.width > 0 || png.height > 0;
  if (sized && png.width <= kSane && png.height <= kSane)
    CheckSize(path, static_cast<int>(png.width), static_cast<int>(png.height));
  if (!png.isWhole) Refuse(path, "the picture is damaged or cut off: write it again");
}

std::unique_ptr<ImageInput> OpenPicture(const std::string& path) {
  CheckBeforeReading(path);
  ImageSpec hints;
  hints.attribute("oiio:UnassociatedAlpha", 1);
  hints.attribute("oiio:RawColor", 1);
  std::unique_ptr<ImageInput> input = ImageInput::open(path, &hints);
  if (!input) {
    std::string why = OneLine(OIIO::geterror());
    if (why.find("format reader") != std::string::npos) why.clear();
    Refuse(path, "is not a picture that can be read (PNG, JPEG, TIFF or EXR)" +
                     (why.empty() ? std::string() : ": " + why));
  }
  const Window window = LayerWindow(*input);
  CheckSize(path, window.width, window.height);
  if (input->spec().width > 2 * kMaxEdge || input->spec().height > 2 * kMaxEdge)
    CheckSize(path, input->spec().width, input->spec().height);
  if (input->spec().deep) Refuse(path, "holds deep samples, not a flat picture: flatten it first");
  return input;
}

// Which of the file's channels are alpha, red, green and blue; -1 for an alpha that is not there.
std::array<int, 4> ChannelOrder(const ImageSpec& spec) {
  const int red = spec.channelindex("R"), green = spec.channelindex("G"), blue = spec.channelindex("B");
  int alpha = spec.alpha_channel;
  if (alpha < 0) alpha = spec.channelindex("A");
  if (red >= 0 && green >= 0 && blue >= 0) return {alpha, red, green, blue};
  if (alpha < 0 && spec.nchannels == 2) alpha = 1;
  if (alpha < 0 && spec.nchannels >= 4) alpha = 3;
  const int first = alpha == 0 && spec.nchannels > 1 ? 1 : 0;
  const bool colour = spec.nchannels - (alpha >= 0 ? 1 : 0) >= 3;
  if (spec.nchannels == 1) alpha = -1;
  return {alpha, first, colour ? first + 1 : first, colour ? first + 2 : first};
}

// Files whose reader says that alpha is stored straight keep it; the others are premultiplied.
bool IsPremultiplied(const ImageInput& input, int alpha) {
  if (alpha < 0) return false;
  return input.spec().get_int_attribute("oiio:UnassociatedAlpha", 0) == 0;
}

struct RawPixels {
  ImageSpec spec;
  Window window;
  TypeDesc::BASETYPE type;
  std::array<int, 4> order;
  bool premultiplied;
  std::vector<std::byte> data;
};

RawPixels ReadRaw(const std::string& path) {
  std::unique_ptr<ImageInput> input = OpenPicture(path);
  RawPixels raw{input->spec(), LayerWindow(*input), TypeDesc::FLOAT, {}, false, {}};
  raw.order = ChannelOrder(raw.spec);
  raw.premultiplied = IsPremultiplied(*input, raw.order[0]);
  const auto stored = static_cast<TypeDesc::BASETYPE>(raw.spec.format.basetype);
  if (stored == TypeDesc::UINT8 || stored == TypeDesc::UINT16) raw.type = stored;
  const size_t channelBytes = raw.type == TypeDesc::UINT8 ? 1 : raw.type == TypeDesc::UINT16 ? 2 : 4;
  raw.data.resize(static_cast<size_t>(raw.spec.width) * static_cast<size_t>(raw.spec.height) *
                  static_cast<size_t>(raw.spec.nchannels) * channelBytes);
  if (!input->read_image(0, 0, 0, raw.spec.nchannels, raw.type, raw.data.data()))
    Refuse(path, "the picture is damaged or cut off (" + OneLine(input->geterror()) + "): write it again");
  return raw;
}

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
void ConvertPixel(const RawPixels& raw, const std::byte* at, PixelDepth depth, std::byte* to) {
  Stored argb[4] = {};
  for (size_t c = 0; c < 4; ++c)
    if (raw.order[c] >= 0)
      std::memcpy(&argb[c], at + static_cast<size_t>(raw.order[c]) * sizeof(Stored), sizeof(Stored));
  if (raw.order[0] < 0) argb[0] = std::is_same_v<Stored, float> ? Stored{1} : static_cast<Stored>(~0u);

  // Codes go straight to codes; only floats and premultiplied colours pass through floats.
  if (depth == PixelDepth::k32 || raw.premultiplied) {
    float values[4];
    for (int c = 0; c < 4; ++c) values[c] = AsFloat(argb[c]);
    if (raw.premultiplied && values[0] > 0.0f)
      for (int c = 1; c < 4; ++c) values[c] /= values[0];
    StoreFloats(to, depth, values);
    return;
  }
  uint32_t codes[4];
  for (int c = 0; c < 4; ++c) codes[c] = AsCode(argb[c], WorldFull(depth));
  StoreChannels(to, depth, codes);
}

template <class Stored>
void ConvertInto(const RawPixels& raw, Picture* picture) {
  const size_t pixel = static_cast<size_t>(raw.spec.nchannels) * sizeof(Stored);
  const size_t worldPixel = PixelBytes(picture->depth);
  const int shiftX = raw.spec.x - raw.window.x, shiftY = raw.spec.y - raw.window.y;
  const int firstX = std::max(0, -shiftX), endX = std::min(raw.spec.width, raw.window.width - shiftX);
  const int firstY = std::max(0, -shiftY), endY = std::min(raw.spec.height, raw.window.height - shiftY);
  for (int y = firstY; y < endY; ++y) {
    const std::byte* from =
        raw.data.data() + (static_cast<size_t>(y) * static_cast<size_t>(raw.spec.width)) * pixel;
    std::byte* to = Row(*picture, y + shiftY);
    for (int x = firstX; x < endX; ++x)
      ConvertPixel<Stored>(raw, from + static_cast<size_t>(x) * pixel, picture->depth,
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
  const Window window = LayerWindow(*OpenPicture(path));
  return {window.width, window.height};
}

Picture ReadPicture(const std::string& path, PixelDepth depth) {
  if (IsNpy(path)) return ConvertDepth(ReadNpy(path), depth);
  const RawPixels raw = ReadRaw(path);
  Picture picture = MakePicture(raw.window.width, raw.window.height, depth);
  if (raw.type == TypeDesc::UINT8)
    ConvertInto<uint8_t>(raw, &picture);
  else if (raw.type == TypeDesc::UINT16)
    ConvertInto<uint16_t>(raw, &picture);
  else
    ConvertInto<float>(raw, &picture);
  return picture;
}

}  // namespace vantle::io
