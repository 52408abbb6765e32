// How layers lie in a composition, and expressions: their part of a scene's file.
#pragma once

#include "host/io/json_file.h"
#include "host/scene/scene.h"

#include <string>

namespace vantle::scene {

/// Reads "null" or "camera", "three_d", "parent" and "transform" of a layer. Throws Failure
/// (kUnreadableInput).
Placement ReadPlacement(const io::Node& layer, FrameRate rate);

/// A parameter's value, keyframes and expression. Throws Failure (kUnreadableInput).
Parameter ReadParameter(const std::string& name, const io::Node& node, FrameRate rate);

/// As JSON: numbers, or an object where there are keyframes or an expression. Two-dimensional layers leave
/// the third number away.
io::Json PropertyJson(const composition::Property& property, int dimensions, FrameRate rate);

}  // namespace vantle::scene
