// Pictures through OpenImageIO: PNG, JPEG, TIFF and EXR.
#include "host/io/failure.h"
#include "host/io/picture_checks.h"
#include "host/io/picture_codec.h"

#include <OpenImageIO/filesystem.h>
#include <OpenImageIO/imageio.h>
#include <algorithm>
#include <cstring>
#include <memory>

namespace vantle::io {
namespace {

using OIIO::ImageInput;
using OIIO::ImageOutput;
using OIIO::ImageSpec;
using OIIO::TypeDesc;

// A library's report may be many lines; ours is one.
std::string OneLine(std::string text) {
  while (!text.empty() && (text.back() == '\n' || text.back() == ' ')) text.pop_back();
  std::replace(text.begin(), text.end(), '\n', ' ');
  return text;
}

// The display window of an EXR, which its pixels may fill in part or exceed; the pixels themselves elsewhere.
StoredWindow LayerWindow(const ImageInput& input) {
  const ImageSpec& spec = input.spec();
  if (std::strcmp(input.format_name(), "openexr") == 0)
    return {spec.full_x, spec.full_y, spec.full_width, spec.full_height};
  return {spec.x, spec.y, spec.width, spec.height};
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
    RefusePicture(path, "is not a picture that can be read (PNG, JPEG, TIFF or EXR)" +
                            (why.empty() ? std::string() : ": " + why));
  }
  const StoredWindow window = LayerWindow(*input);
  CheckPictureSize(path, window.width, window.height);
  if (input->spec().width > 2 * kMaxEdge || input->spec().height > 2 * kMaxEdge)
    CheckPictureSize(path, input->spec().width, input->spec().height);
  if (input->spec().deep) RefusePicture(path, "holds deep samples, not a flat picture: flatten it first");
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

StoredType TypeFor(const ImageSpec& spec) {
  if (spec.format.basetype == TypeDesc::UINT8) return StoredType::k8;
  return spec.format.basetype == TypeDesc::UINT16 ? StoredType::k16 : StoredType::kFloat;
}

TypeDesc::BASETYPE LibraryType(StoredType type) {
  return type == StoredType::k8    ? TypeDesc::UINT8
         : type == StoredType::k16 ? TypeDesc::UINT16
                                   : TypeDesc::FLOAT;
}

size_t ChannelBytes(StoredType type) {
  return type == StoredType::k8 ? 1 : type == StoredType::k16 ? 2 : 4;
}

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

}  // namespace

StoredPicture ReadStored(const std::string& path) {
  const std::unique_ptr<ImageInput> input = OpenPicture(path);
  const ImageSpec spec = input->spec();
  StoredPicture stored;
  stored.type = TypeFor(spec);
  stored.channels = spec.nchannels;
  stored.pixels = {spec.x, spec.y, spec.width, spec.height};
  stored.layer = LayerWindow(*input);
  stored.order = ChannelOrder(spec);
  stored.premultiplied = IsPremultiplied(*input, stored.order[0]);
  stored.data.resize(static_cast<size_t>(spec.width) * static_cast<size_t>(spec.height) *
                     static_cast<size_t>(spec.nchannels) * ChannelBytes(stored.type));
  if (!input->read_image(0, 0, 0, spec.nchannels, LibraryType(stored.type), stored.data.data()))
    RefusePicture(path,
                  "the picture is damaged or cut off (" + OneLine(input->geterror()) + "): write it again");
  return stored;
}

StoredWindow ReadStoredWindow(const std::string& path) {
  return LayerWindow(*OpenPicture(path));
}

std::vector<std::byte> EncodeStored(OutputFormat format, StoredType type, int width, int height,
                                    const void* rgba) {
  ImageSpec spec(width, height, 4, LibraryType(type));
  spec.channelnames = {"R", "G", "B", "A"};
  spec.alpha_channel = 3;
  if (format == OutputFormat::kExr) {
    spec.attribute("compression", "zip");
    return Encode("exr", spec, rgba);
  }
  spec.attribute("oiio:UnassociatedAlpha", 1);
  spec.attribute("png:compressionLevel", 3);
  return Encode("png", spec, rgba);
}

bool CanEncode(OutputFormat) {
  return true;
}

void PreparePictureCodec() {
  OIIO::attribute("threads", 1);
  OIIO::attribute("exr_threads", 1);
}

}  // namespace vantle::io
