// Pictures in and out of files. Colours are handed on as the file stores them: no colour conversion, no
// gamma, alpha straight.
#pragma once

#include "host/io/picture.h"

#include <cstddef>
#include <string>
#include <vector>

namespace vantle::io {

/// Reads PNG, JPEG, TIFF, EXR (and .npy) into a picture of the asked depth. Grey, grey with alpha, RGB, RGBA
/// and palettes all become four channels; a missing alpha is full. Alpha that the file stores premultiplied
/// (EXR, some TIFF) is divided out; where it is 0 the colour stays as stored. Codes are converted by the rule
/// of codes.h, so an 8-bit file gives its own codes in 8 bits. An EXR fills its display window. Throws
/// Failure (kUnreadableInput): missing, unreadable or damaged file, a side outside 1..kMaxEdge.
Picture ReadPicture(const std::string& path, PixelDepth depth);

/// Width and height of a picture without reading its pixels. Throws as ReadPicture.
struct PictureSize {
  int32_t width = 0;
  int32_t height = 0;
};
PictureSize ReadPictureSize(const std::string& path);

enum class OutputFormat { kPng, kExr, kNpy };

/// By the name's ending; Failure (kUsage) for any other.
OutputFormat FormatForName(const std::string& path);

/// The file's bytes. PNG: straight alpha, 8 bits for an 8-bit world, else 16 bits (0..32768 stretched to
/// 0..65535 by the rule of codes.h; floats held to 0..1). EXR: premultiplied 32-bit float, R G B A. npy: the
/// world's codes as they are.
std::vector<std::byte> EncodePicture(const ImageView& image, OutputFormat format);

/// Averages blocks of divisorX x divisorY pixels, as a reduced preview does: sides are rounded up, the last
/// block of a row averages what there is. Colour is weighted by alpha, so that a transparent neighbour does
/// not darken an edge. Results are rounded to the nearest code.
Picture ReducePicture(const Picture& picture, int32_t divisorX, int32_t divisorY);

/// The picture's codes at another depth.
Picture ConvertDepth(const Picture& picture, PixelDepth depth);

}  // namespace vantle::io
