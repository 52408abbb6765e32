// Scenes from their files.
#pragma once

#include "host/io/json_file.h"
#include "host/scene/scene.h"

#include <string>

namespace vantle::scene {

/// Reads a scene file; paths in it are relative to it. Throws Failure (kUnreadableInput) that names file,
/// place, what was found and what is expected.
Scene ReadScene(const std::string& path);

/// A parameter's value or keyframes as JSON writes them. `rate` turns the seconds of keyframes into frames.
std::vector<Key> ReadKeys(const io::Node& node, FrameRate rate);

/// [[position, red, green, blue], ...], up to 8 stops.
GradientValue ReadGradient(const io::Node& node);

/// {"max": number, "points": [[x, y], ...]}, up to 16 points.
CurveValue ReadCurve(const io::Node& node);

/// 25, "30000/1001" or [30000, 1001].
FrameRate ReadFrameRate(const io::Node& node);

}  // namespace vantle::scene
