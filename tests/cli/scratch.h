// A folder of a test's own, removed at the end, and small pictures to put there.
#pragma once

#include "host/io/failure.h"
#include "host/io/files.h"
#include "host/io/image_file.h"
#include "host/io/npy.h"
#include "host/io/picture.h"

#include <cstdint>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <functional>
#include <random>
#include <sstream>
#include <string>
#include <vector>

namespace vantle::test {

struct Scratch {
  std::filesystem::path folder;

  Scratch() {
    std::random_device device;
    folder = std::filesystem::temp_directory_path() /
             ("vantle_test_" + std::to_string(device()) + std::to_string(device()));
    std::filesystem::create_directories(folder);
  }
  ~Scratch() {
    std::error_code ignored;
    std::filesystem::remove_all(folder, ignored);
  }
  Scratch(const Scratch&) = delete;
  Scratch& operator=(const Scratch&) = delete;

  std::string Path(const std::string& name) const { return (folder / name).string(); }

  std::string Write(const std::string& name, const std::string& text) const {
    std::ofstream(Path(name), std::ios::binary) << text;
    return Path(name);
  }
};

inline std::string ReadText(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  std::ostringstream text;
  text << file.rdbuf();
  return text.str();
}

/// A sum over bytes, so that a test that fails does not print a picture; 0 for none.
inline size_t SumOf(const std::string& bytes) {
  return bytes.empty() ? 0 : std::hash<std::string>()(bytes) | 1;
}

/// Every channel a different code, alpha anything from none to full.
inline io::Picture RandomPicture(int32_t width, int32_t height, PixelDepth depth, uint32_t seed) {
  io::Picture picture = io::MakePicture(width, height, depth);
  std::mt19937 random(seed);
  const size_t channels = static_cast<size_t>(width) * static_cast<size_t>(height) * 4;
  for (size_t i = 0; i < channels; ++i) {
    const auto r = static_cast<uint32_t>(random());
    if (depth == PixelDepth::k8) picture.pixels[i] = static_cast<std::byte>(r);
    const auto code = static_cast<uint16_t>(r % 32769);
    if (depth == PixelDepth::k16) std::memcpy(&picture.pixels[i * 2], &code, 2);
    const float value = static_cast<float>(r >> 8) / 16777216.0f;
    if (depth == PixelDepth::k32) std::memcpy(&picture.pixels[i * 4], &value, 4);
  }
  return picture;
}

/// One colour all over; channels are codes.
inline io::Picture FlatPicture8(int32_t width, int32_t height, uint8_t a, uint8_t r, uint8_t g, uint8_t b) {
  io::Picture picture = io::MakePicture(width, height, PixelDepth::k8);
  const uint8_t argb[4] = {a, r, g, b};
  for (size_t i = 0; i < picture.pixels.size(); i += 4) std::memcpy(&picture.pixels[i], argb, 4);
  return picture;
}

inline std::string SavePicture(const Scratch& scratch, const std::string& name, const io::Picture& picture) {
  const std::string path = scratch.Path(name);
  io::WriteFileAtomically(path, io::EncodePicture(io::View(picture), io::FormatForName(path)));
  return path;
}

/// The message of the Failure that `work` throws, with its code in front: "3 a.png: ...". "" without one.
template <class Work>
std::string FailureOf(const Work& work) {
  try {
    work();
  } catch (const io::Failure& failure) {
    return std::to_string(failure.code) + " " + failure.what();
  }
  return "";
}

}  // namespace vantle::test
