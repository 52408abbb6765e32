// Pictures through small libraries of headers alone, where OpenImageIO is not at hand: PNG and JPEG in, PNG
// out.
#include "host/io/failure.h"
#include "host/io/files.h"
#include "host/io/picture_checks.h"
#include "host/io/picture_codec.h"
#include "host/io/png_write.h"

#include <cstring>
#include <limits>
#include <memory>

#define STB_IMAGE_IMPLEMENTATION
#define STB_IMAGE_STATIC
#define STBI_NO_STDIO
#define STBI_ONLY_PNG
#define STBI_ONLY_JPEG
#include <stb_image.h>
#define STB_IMAGE_WRITE_IMPLEMENTATION
#define STBI_WRITE_NO_STDIO
#include <stb_image_write.h>

namespace vantle::io {
namespace {

struct FileBytes {
  std::vector<std::byte> bytes;
  const stbi_uc* data = nullptr;
  int size = 0;
};

FileBytes Load(const std::string& path) {
  CheckBeforeReading(path);
  FileBytes file;
  file.bytes = ReadWholeFile(path);
  if (file.bytes.size() > static_cast<size_t>(std::numeric_limits<int>::max()))
    RefusePicture(path, "is larger than 2 gigabytes: scale it, or use .npy");
  file.data = reinterpret_cast<const stbi_uc*>(file.bytes.data());
  file.size = static_cast<int>(file.bytes.size());
  return file;
}

StoredWindow WindowOf(const std::string& path, const FileBytes& file) {
  StoredWindow window;
  int channels = 0;
  if (stbi_info_from_memory(file.data, file.size, &window.width, &window.height, &channels) == 0)
    RefusePicture(path, "is not a picture that can be read (PNG or JPEG)");
  CheckPictureSize(path, window.width, window.height);
  return window;
}

std::vector<std::byte> Compress(const std::vector<std::byte>& bytes) {
  constexpr int kQuality = 8;
  if (bytes.size() > static_cast<size_t>(std::numeric_limits<int>::max()) / 2)
    throw Failure(kOutputNotWritable, "a frame this large cannot be encoded as png: use .npy");
  std::vector<unsigned char> input(bytes.size());
  std::memcpy(input.data(), bytes.data(), bytes.size());
  int size = 0;
  const auto release = [](unsigned char* block) { STBIW_FREE(block); };
  const std::unique_ptr<unsigned char, decltype(release)> packed(
      stbi_zlib_compress(input.data(), static_cast<int>(input.size()), &size, kQuality), release);
  if (packed == nullptr) throw std::bad_alloc();
  std::vector<std::byte> result(static_cast<size_t>(size));
  std::memcpy(result.data(), packed.get(), result.size());
  return result;
}

}  // namespace

StoredPicture ReadStored(const std::string& path) {
  const FileBytes file = Load(path);
  StoredPicture stored;
  stored.pixels = stored.layer = WindowOf(path, file);
  stored.type = stbi_is_16_bit_from_memory(file.data, file.size) != 0 ? StoredType::k16 : StoredType::k8;
  stored.order = {3, 0, 1, 2};
  int width = 0, height = 0, channels = 0;
  const auto release = [](void* pixels) { stbi_image_free(pixels); };
  const std::unique_ptr<void, decltype(release)> pixels(
      stored.type == StoredType::k16
          ? static_cast<void*>(stbi_load_16_from_memory(file.data, file.size, &width, &height, &channels, 4))
          : stbi_load_from_memory(file.data, file.size, &width, &height, &channels, 4),
      release);
  if (pixels == nullptr)
    RefusePicture(path, std::string("the picture is damaged or cut off (") + stbi_failure_reason() +
                            "): write it again");
  stored.data.resize(static_cast<size_t>(width) * static_cast<size_t>(height) *
                     (stored.type == StoredType::k16 ? 8 : 4));
  std::memcpy(stored.data.data(), pixels.get(), stored.data.size());
  return stored;
}

StoredWindow ReadStoredWindow(const std::string& path) {
  return WindowOf(path, Load(path));
}

std::vector<std::byte> EncodeStored(OutputFormat format, StoredType type, int width, int height,
                                    const void* rgba) {
  if (format != OutputFormat::kPng || type == StoredType::kFloat)
    throw Failure(kOutputNotWritable, "this build writes no .exr: use .png or .npy");
  const int bits = type == StoredType::k16 ? 16 : 8;
  const std::vector<std::byte> rows = FilteredPngRows(width, height, bits, rgba);
  return PngFile(width, height, bits, Compress(rows));
}

bool CanEncode(OutputFormat format) {
  return format != OutputFormat::kExr;
}

void PreparePictureCodec() {}

}  // namespace vantle::io
