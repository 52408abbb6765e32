// Parameter values over time: from what a scene says to what the effect is handed at a frame.
#pragma once

#include "host/engine/effect.h"
#include "host/engine/frame_request.h"
#include "host/scene/scene.h"

#include <cstdint>
#include <map>
#include <string>
#include <vector>

namespace vantle::scene {

/// `number` in the user's units; `bytes` of a custom value.
struct BoundKey {
  double frame = 0.0;
  double number = 0.0;
  std::vector<std::uint8_t> bytes;
  bool hold = false;
};

/// A parameter of the effect with its keys, ascending, at least one.
struct BoundParameter {
  int index = 0;
  A_long type = 0;
  std::vector<BoundKey> keys;
};

/// By parameter index, so that a later value of the same parameter replaces an earlier one.
using Timeline = std::map<int, BoundParameter>;

/// Finds the parameter, checks the kind of its values, turns choices into numbers and holds numbers to the
/// declared valid range; for each parameter that had to be held a line is added to `warnings`. Throws Failure
/// (kUnreadableInput) for an unknown or ambiguous name and for a value of the wrong kind.
BoundParameter BindParameter(const std::vector<host::DeclaredParam>& params, const Parameter& parameter,
                             std::vector<std::string>* warnings);

/// Splits "Name=value" as given on the command line; the value is JSON, or else a plain text such as the name
/// of a choice. Throws Failure (kUsage).
Parameter ParseAssignment(const std::string& text, FrameRate rate);

/// Numbers that the parameter takes, in the user's units.
struct Range {
  double lowest, highest;
};
Range ValidRange(const host::DeclaredParam& param);

/// The value at a frame. Before the first and after the last key their values stand. Sliders and angles run
/// linearly, popups and check boxes keep the earlier key's value, custom values go through the effect's own
/// interpolation; Failure (kEffectError) when that fails.
host::ParamValue ValueAt(host::EffectInstance& effect, const BoundParameter& parameter, double frame);

/// Degrees as 16.16 fixed point, rounded to nearest, saturated.
A_long FixedDegrees(double degrees);

/// The stored records of custom values. Numbers become floats; nothing is checked or clamped.
std::vector<std::uint8_t> GradientBytes(const GradientValue& gradient);
std::vector<std::uint8_t> CurveBytes(const CurveValue& curve);

/// Puts the bytes of a custom value of the right kind into `bytes`: a gradient where the declared default is
/// one, a curve elsewhere. False when the kinds do not match.
bool CustomValueBytes(const host::DeclaredParam& param, const Value& value, std::vector<std::uint8_t>* bytes);

}  // namespace vantle::scene
