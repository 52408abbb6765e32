// The seam to the library that decodes and encodes picture files; there is one such library for each system,
// chosen when the program is built.
#pragma once

#include "host/io/image_file.h"

#include <array>
#include <cstddef>
#include <string>
#include <vector>

namespace vantle::io {

enum class StoredType { k8, k16, kFloat };

struct StoredWindow {
  int x = 0, y = 0, width = 0, height = 0;
};

/// A picture as its file stores it: rows without padding, channels interleaved.
struct StoredPicture {
  StoredType type = StoredType::k8;
  int channels = 4;
  StoredWindow pixels;  ///< what `data` holds
  StoredWindow layer;   ///< what becomes the layer: an EXR's display window, else the pixels
  std::array<int, 4>
      order;  ///< which channels are alpha, red, green, blue; -1 for an alpha that is not there
  bool premultiplied = false;
  std::vector<std::byte> data;
};

/// Decodes a file. Throws Failure (kUnreadableInput): missing, unreadable or damaged, a layer's side outside
/// 1..kMaxEdge.
StoredPicture ReadStored(const std::string& path);

/// The layer's window alone. Throws as ReadStored.
StoredWindow ReadStoredWindow(const std::string& path);

/// The bytes of a PNG or EXR file from interleaved red, green, blue, alpha of `type`. Throws Failure
/// (kOutputNotWritable) when the library cannot.
std::vector<std::byte> EncodeStored(OutputFormat format, StoredType type, int width, int height,
                                    const void* rgba);

/// Whether this build's library writes such files.
bool CanEncode(OutputFormat format);

/// To be called once, before frames render: they run on threads of ours, and a library's own would only be in
/// the way.
void PreparePictureCodec();

}  // namespace vantle::io
