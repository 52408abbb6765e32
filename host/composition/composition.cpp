#include "host/composition/composition.h"

#include <utility>

namespace vantle::composition {
namespace {

constexpr StreamFacts kFacts[kStreamCount] = {
    {"anchorPoint", "anchor_point", "Anchor Point", 3, false},
    {"position", "position", "Position", 3, false},
    {"scale", "scale", "Scale", 3, false},
    {"xRotation", "x_rotation", "X Rotation", 1, false},
    {"yRotation", "y_rotation", "Y Rotation", 1, false},
    {"zRotation", "z_rotation", "Z Rotation", 1, false},
    {"orientation", "orientation", "Orientation", 3, false},
    {"opacity", "opacity", "Opacity", 1, false},
    {"zoom", "zoom", "Zoom", 1, true},
    {"depthOfField", "depth_of_field", "Depth of Field", 1, true},
    {"focusDistance", "focus_distance", "Focus Distance", 1, true},
    {"aperture", "aperture", "Aperture", 1, true},
};

constexpr double kLens = 50.0;  // mm
constexpr double kFilm = 36.0;  // mm
constexpr double kUsualAperture = 25.0;

void SetCameraDefaults(const Composition& composition, Layer& layer) {
  const double zoom = composition.width * kLens / kFilm;
  const Numbers middle{composition.width * 0.5, composition.height * 0.5, 0.0};
  layer.threeD = true;
  layer.streams[kAnchorPoint] = Constant(middle);
  layer.streams[kPosition] = Constant({middle[0], middle[1], -zoom});
  layer.streams[kZoom] = Constant({zoom, 0.0, 0.0});
  layer.streams[kFocusDistance] = Constant({zoom, 0.0, 0.0});
  layer.streams[kAperture] = Constant({kUsualAperture, 0.0, 0.0});
}

}  // namespace

const StreamFacts& FactsOf(Stream stream) {
  return kFacts[stream];
}

Property Constant(const Numbers& value) {
  Property property;
  property.keys[0].value = value;
  return property;
}

Numbers KeyedValue(const Property& property, double seconds) {
  const std::vector<Key>& keys = property.keys;
  size_t next = 0;
  while (next < keys.size() && keys[next].seconds <= seconds) ++next;
  if (next == 0) return keys.front().value;
  const Key& left = keys[next - 1];
  if (next == keys.size() || left.hold || left.seconds == seconds) return left.value;
  const Key& right = keys[next];
  const double fraction = (seconds - left.seconds) / (right.seconds - left.seconds);
  Numbers value{};
  for (size_t i = 0; i < value.size(); ++i)
    value[i] = left.value[i] + (right.value[i] - left.value[i]) * fraction;
  return value;
}

Layer MakeLayer(const Composition& composition, LayerKind kind, const std::string& name) {
  Layer layer;
  layer.name = name;
  layer.kind = kind;
  layer.streams[kPosition] = Constant({composition.width * 0.5, composition.height * 0.5, 0.0});
  layer.streams[kScale] = Constant({100.0, 100.0, 100.0});
  layer.streams[kOpacity] = Constant({100.0, 0.0, 0.0});
  if (kind == LayerKind::kCamera) SetCameraDefaults(composition, layer);
  return layer;
}

int32_t AddOnTop(Composition& composition, Layer layer) {
  layer.id = ++composition.lastId;
  composition.layers.insert(composition.layers.begin(), std::move(layer));
  return composition.lastId;
}

const Layer* FindLayer(const Composition& composition, int32_t id) {
  for (const Layer& layer : composition.layers)
    if (id > 0 && layer.id == id) return &layer;
  return nullptr;
}

Layer* FindLayer(Composition& composition, int32_t id) {
  for (Layer& layer : composition.layers)
    if (id > 0 && layer.id == id) return &layer;
  return nullptr;
}

const Layer* FindLayer(const Composition& composition, const std::string& name) {
  for (const Layer& layer : composition.layers)
    if (layer.name == name) return &layer;
  return nullptr;
}

}  // namespace vantle::composition
