// A composition as its host knows it: layers one above the other, each with a transform whose values may have
// keyframes and expressions, cameras and nulls among them. Plain records; docs/composition.md tells the
// conventions.
#pragma once

#include <array>
#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <vector>

namespace vantle::composition {

/// Up to three numbers; a value of one dimension stands in the first, the others are 0.
using Numbers = std::array<double, 3>;

/// What of a layer has a value over time. Angles are degrees, scale and opacity per cent, lengths pixels of
/// the composition. On a camera of two nodes the anchor point is its point of interest.
enum Stream : int {
  kAnchorPoint,
  kPosition,
  kScale,
  kRotationX,
  kRotationY,
  kRotationZ,
  kOrientation,
  kOpacity,
  kZoom,
  kDepthOfField,  ///< 0 or 1
  kFocusDistance,
  kAperture,
  kStreamCount
};

/// `name` is what expressions call it, `key` what scene files do, `title` what people read.
struct StreamFacts {
  const char* name;
  const char* key;
  const char* title;
  int dimensions;
  bool ofCameras;  ///< cameras alone have it
};
const StreamFacts& FactsOf(Stream stream);

/// From this key to the next the value runs linearly, or stays when `hold` is set.
struct Key {
  double seconds = 0.0;
  Numbers value{};
  bool hold = false;
};

/// JavaScript that takes the place of a value while it is switched on.
struct Expression {
  std::string text;
  bool on = false;
};

/// A value over time: at least one key, ascending.
struct Property {
  std::vector<Key> keys{Key{}};
  Expression expression;
};

/// The value that the keys give; before the first and after the last key their values stand.
Numbers KeyedValue(const Property& property, double seconds);

/// One key at 0.
Property Constant(const Numbers& value);

enum class LayerKind { kPicture, kNull, kCamera };

/// What a layer shows. The duration is `duration` / `scale` seconds.
struct SourceItem {
  int32_t width = 0;
  int32_t height = 0;
  int32_t duration = 0;
  uint32_t scale = 1;
};

/// Ids are above 0 and never used twice. `parent` is the id of the layer that this one moves with, or 0.
struct Layer {
  int32_t id = 0;
  std::string name;
  LayerKind kind = LayerKind::kPicture;
  bool threeD = false;
  bool twoNodes = false;  ///< of a camera: it looks at its point of interest
  int32_t parent = 0;
  std::optional<SourceItem> source;
  std::array<Property, kStreamCount> streams;
};

/// Everything around one applied effect. Renders only read it; commands that change it do so one at a time.
struct Composition {
  int32_t width = 0;   ///< pixels at full resolution
  int32_t height = 0;  ///< pixels
  double duration = 0.0;
  double frameDuration = 0.0;
  bool hasItem = true;        ///< tests: a composition that no item of the project stands for
  std::vector<Layer> layers;  ///< the topmost first
  int32_t effectLayer = 0;    ///< id of the layer that carries the effect, 0 for none
  std::map<int, Expression> effectExpressions;  ///< by parameter index
  std::map<int, int32_t> chosenLayers;          ///< ids that layer parameters chose, by parameter index
  int32_t lastId = 0;
  std::vector<std::string> changes;  ///< what effects did to the composition, in order
};

/// A layer with the values that a new one has: in the middle of the composition, at full scale, not turned; a
/// camera with a 50 mm lens on 36 mm film, standing where the plane z = 0 appears in its own size.
Layer MakeLayer(const Composition& composition, LayerKind kind, const std::string& name);

/// Puts the layer above all others and gives it its id, which is returned.
int32_t AddOnTop(Composition& composition, Layer layer);

/// Null when there is no such layer. Of two layers of one name the topmost is meant.
const Layer* FindLayer(const Composition& composition, int32_t id);
Layer* FindLayer(Composition& composition, int32_t id);
const Layer* FindLayer(const Composition& composition, const std::string& name);

}  // namespace vantle::composition
