// A scene: what a user describes so that frames can be rendered. Plain data, as read from its file.
#pragma once

#include "host/composition/composition.h"

#include <array>
#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <variant>
#include <vector>

namespace vantle::scene {

/// Frames per second, exactly: 30000/1001 is {30000, 1001}. Both at least 1.
struct FrameRate {
  int32_t numerator = 30;
  int32_t denominator = 1;
};

struct Composition {
  int32_t width = 0;   ///< pixels at full resolution
  int32_t height = 0;  ///< pixels
  FrameRate frameRate;
  int32_t frames = 1;  ///< duration, in frames
};

struct StillSource {
  std::string file;
};

/// Numbered pictures. Before the first and after the last one the layer is transparent.
struct SequenceSource {
  std::string pattern;
  FrameRate frameRate;
  double start = 0.0;                 ///< seconds of the composition at which the first picture stands
  std::optional<int32_t> firstFrame;  /// < number of the first picture; the lowest on the disk when absent
  std::optional<int32_t> lastFrame;
};

struct SolidSource {
  std::array<double, 4> color{1.0, 1.0, 1.0, 1.0};  ///< red, green, blue, alpha; 0..1, straight
  int32_t width = 0;
  int32_t height = 0;
};

/// Nulls and cameras show nothing.
struct NoSource {};

/// What the file gives of a stream: its value, or only an expression.
struct PlacedStream {
  composition::Property property;
  bool hasValue = true;
};

/// How a layer lies in the composition, as far as its file says so; the rest is as of a new layer. `parent`
/// is the name of a layer, or empty; `place` is where the layer was written, for messages.
struct Placement {
  composition::LayerKind kind = composition::LayerKind::kPicture;
  bool threeD = false;
  bool twoNodes = false;  ///< a camera that looks at its point of interest
  std::string parent;
  std::string place;
  std::map<composition::Stream, PlacedStream> streams;
};

struct Layer {
  std::string name;
  std::variant<StillSource, SequenceSource, SolidSource, NoSource> source;
  Placement placement{};
};

/// Stops of a colour gradient: position, red, green, blue.
struct GradientValue {
  std::vector<std::array<double, 4>> stops;
};

/// A curve over a particle's life; `maximum` is the top of its editor.
struct CurveValue {
  double maximum = 1.0;
  std::vector<std::array<double, 2>> points;
};

/// A custom value as projects store it.
struct FlattenedValue {
  std::vector<std::uint8_t> bytes;
};

/// A number as the user sees it (per cent as 0..100, degrees, 1-based choices, 0 or 1), the text of a choice,
/// or a custom value.
using Value = std::variant<double, std::string, GradientValue, CurveValue, FlattenedValue>;

/// From this key to the next the value runs linearly, or stays when `hold` is set.
struct Key {
  double frame = 0.0;  ///< composition frames; may lie between them
  Value value;
  bool hold = false;
};

/// `name` is a display name, `group/name` or an id; `place` is where it was written, for messages. One key
/// is a constant. Keys ascend. Beside an expression there may be none: the default stands then.
struct Parameter {
  std::string name;
  std::string place;
  std::vector<Key> keys;
  composition::Expression expression{};
};

/// Names of the layers, as indices into Scene::layers.
struct Effect {
  int32_t layer = 0;              ///< carries the effect
  bool sourceIsOwnLayer = true;   ///< "Source Layer (A)" is the layer that carries the effect
  std::optional<int32_t> source;  ///< A; none when absent and not the own layer
  std::optional<int32_t> target;  ///< B
  std::optional<int32_t> custom;  ///< "Custom Layer"
  std::vector<Parameter> parameters;
};

struct Scene {
  std::string file;  ///< as the user named it
  Composition composition;
  std::vector<Layer> layers;  ///< the topmost first
  Effect effect;
};

}  // namespace vantle::scene
