// Custom values in scene files. A value that numbers alone cannot hold (stops behind the used ones, the
// selected stop, numbers that are not finite) is kept besides as the bytes that projects store:
// {"value": [[...]], "flattened": "base64"}.
#pragma once

#include "host/io/json_file.h"
#include "host/scene/scene.h"

#include <cstdint>
#include <string>
#include <vector>

namespace vantle::scene {

/// Base64 with padding, without line breaks.
std::string EncodeBase64(const std::vector<std::uint8_t>& bytes);
/// False for anything but complete base64.
bool DecodeBase64(const std::string& text, std::vector<std::uint8_t>* bytes);

/// Reads the object form. The bytes count; a "value" beside them must say the same, so that a hand's change
/// of one of the two does not go unseen. Throws Failure (kUnreadableInput).
FlattenedValue ReadFlattened(const io::Node& node);

/// A gradient or curve as a scene file holds it, numbers alone where they hold everything. `bytes` are a
/// record of either kind; others are kept as bytes only.
io::Json CustomValueJson(const std::vector<std::uint8_t>& bytes);

}  // namespace vantle::scene
