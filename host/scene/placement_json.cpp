#include "host/scene/placement_json.h"

#include "host/scene/scene_json.h"

#include <cmath>
#include <cstdint>

namespace vantle::scene {
namespace {

using composition::Expression;
using composition::LayerKind;
using composition::Numbers;
using composition::Property;
using composition::Stream;
using io::Node;

// What a stream has where the file names fewer numbers than it takes.
Numbers FillOf(Stream stream) {
  return stream == composition::kScale ? Numbers{100.0, 100.0, 100.0} : Numbers{};
}

Numbers ReadNumbers(const Node& node, Stream stream) {
  Numbers numbers = FillOf(stream);
  if (composition::FactsOf(stream).dimensions == 1) {
    const bool isSwitch = node.value != nullptr && node.value->is_boolean();
    numbers[0] = isSwitch ? (io::ReadBool(node) ? 1.0 : 0.0) : io::ReadNumber(node);
    return numbers;
  }
  const std::string expected = "a list of two or three numbers";
  const std::vector<Node> elements = io::Elements(node, expected);
  if (elements.size() != 2 && elements.size() != 3) io::RefuseNode(node, expected);
  for (size_t i = 0; i < elements.size(); ++i) numbers[i] = io::ReadNumber(elements[i]);
  return numbers;
}

composition::Key ReadStreamKey(const Node& node, Stream stream, FrameRate rate) {
  io::RequireObject(node, {"time", "frame", "value", "hold"});
  const Node time = io::Member(node, "time"), frame = io::Member(node, "frame");
  if (io::IsPresent(time) == io::IsPresent(frame))
    io::FailAt(node, "a keyframe has either \"time\" (seconds) or \"frame\": give one of them");
  composition::Key key;
  key.seconds =
      io::IsPresent(time) ? io::ReadNumber(time) : io::ReadNumber(frame) * rate.denominator / rate.numerator;
  key.value = ReadNumbers(io::RequiredMember(node, "value"), stream);
  if (const Node hold = io::Member(node, "hold"); io::IsPresent(hold)) key.hold = io::ReadBool(hold);
  return key;
}

std::vector<composition::Key> ReadStreamKeys(const Node& list, Stream stream, FrameRate rate) {
  std::vector<composition::Key> keys;
  for (const Node& element : io::Elements(list, "a list of keyframes")) {
    keys.push_back(ReadStreamKey(element, stream, rate));
    if (keys.size() > 1 && !(keys.back().seconds > keys[keys.size() - 2].seconds))
      io::FailAt(element, "keyframes must ascend in time: sort them and give each time once");
  }
  if (keys.empty()) io::FailAt(list, "expected at least one keyframe, found none");
  return keys;
}

Expression ReadExpression(const Node& node) {
  Expression expression;
  expression.text = io::ReadText(io::RequiredMember(node, "expression"), "the text of an expression");
  expression.on = true;
  if (const Node on = io::Member(node, "expression_on"); io::IsPresent(on)) expression.on = io::ReadBool(on);
  return expression;
}

// Either a value alone, or an object with keyframes, an expression, or both.
Property ReadProperty(const Node& node, Stream stream, FrameRate rate, const Numbers& usual) {
  Property property = composition::Constant(usual);
  if (!node.value->is_object()) {
    property.keys[0].value = ReadNumbers(node, stream);
    return property;
  }
  io::RequireObject(node, {"value", "keyframes", "expression", "expression_on"});
  const Node value = io::Member(node, "value"), keys = io::Member(node, "keyframes");
  if (io::IsPresent(value) && io::IsPresent(keys))
    io::FailAt(node, "give either \"value\" or \"keyframes\": keep one");
  if (io::IsPresent(value)) property.keys[0].value = ReadNumbers(value, stream);
  if (io::IsPresent(keys)) property.keys = ReadStreamKeys(keys, stream, rate);
  if (io::IsPresent(io::Member(node, "expression"))) property.expression = ReadExpression(node);
  return property;
}

// A stream under its name in the file. Without a value of its own (an expression alone) the layer's usual
// value stands behind the expression.
void ReadStream(const Node& parent, const char* key, Stream stream, FrameRate rate, Placement* placement) {
  const Node node = io::Member(parent, key);
  if (!io::IsPresent(node)) return;
  PlacedStream placed;
  placed.property = ReadProperty(node, stream, rate, FillOf(stream));
  placed.hasValue =
      !node.value->is_object() || node.value->contains("value") || node.value->contains("keyframes");
  placement->streams[stream] = placed;
}

void ReadCamera(const Node& layer, FrameRate rate, Placement* placement) {
  const Node camera = io::Member(layer, "camera");
  placement->kind = LayerKind::kCamera;
  placement->threeD = true;
  io::RequireObject(camera, {"zoom", "depth_of_field", "focus_distance", "aperture"});
  for (const Stream stream :
       {composition::kZoom, composition::kDepthOfField, composition::kFocusDistance, composition::kAperture})
    ReadStream(camera, composition::FactsOf(stream).key, stream, rate, placement);
  const Node transform = io::Member(layer, "transform");
  if (!io::IsPresent(transform)) return;
  io::RequireObject(
      transform, {"point_of_interest", "position", "orientation", "x_rotation", "y_rotation", "z_rotation"});
  placement->twoNodes = io::IsPresent(io::Member(transform, "point_of_interest"));
  ReadStream(transform, "point_of_interest", composition::kAnchorPoint, rate, placement);
}

void ReadTransform(const Node& layer, FrameRate rate, Placement* placement) {
  const Node transform = io::Member(layer, "transform");
  if (!io::IsPresent(transform)) return;
  if (placement->kind != LayerKind::kCamera)
    io::RequireObject(transform, {"anchor_point", "position", "scale", "orientation", "x_rotation",
                                  "y_rotation", "z_rotation", "opacity"});
  for (int i = 0; i < composition::kStreamCount; ++i) {
    const auto stream = static_cast<Stream>(i);
    if (!composition::FactsOf(stream).ofCameras)
      ReadStream(transform, composition::FactsOf(stream).key, stream, rate, placement);
  }
}

// Whole numbers are written without a fraction.
io::Json NumberJson(double number) {
  constexpr double kExact = 1e15;
  if (number == std::floor(number) && std::fabs(number) < kExact) return static_cast<int64_t>(number);
  return number;
}

io::Json NumbersJson(const Numbers& numbers, int dimensions) {
  if (dimensions == 1) return NumberJson(numbers[0]);
  io::Json list = io::Json::array();
  for (int i = 0; i < dimensions; ++i) list.push_back(NumberJson(numbers[static_cast<size_t>(i)]));
  return list;
}

}  // namespace

Placement ReadPlacement(const Node& layer, FrameRate rate) {
  Placement placement;
  placement.place = io::Place(layer);
  if (const Node null = io::Member(layer, "null"); io::IsPresent(null)) {
    if (!io::ReadBool(null)) io::RefuseNode(null, "true");
    placement.kind = LayerKind::kNull;
  }
  if (io::IsPresent(io::Member(layer, "camera"))) ReadCamera(layer, rate, &placement);
  if (const Node space = io::Member(layer, "three_d"); io::IsPresent(space))
    placement.threeD = io::ReadBool(space);
  if (const Node parent = io::Member(layer, "parent"); io::IsPresent(parent) && !io::IsNull(parent))
    placement.parent = io::ReadText(parent, "the name of a layer");
  ReadTransform(layer, rate, &placement);
  return placement;
}

Parameter ReadParameter(const std::string& name, const Node& node, FrameRate rate) {
  Parameter parameter{name, io::Place(node), {}, {}};
  if (!node.value->is_object() || !node.value->contains("expression")) {
    parameter.keys = ReadKeys(node, rate);
    return parameter;
  }
  io::RequireObject(node, {"value", "keyframes", "expression", "expression_on"});
  parameter.expression = ReadExpression(node);
  const Node value = io::Member(node, "value"), keys = io::Member(node, "keyframes");
  if (io::IsPresent(value) && io::IsPresent(keys))
    io::FailAt(node, "give either \"value\" or \"keyframes\": keep one");
  if (io::IsPresent(value)) parameter.keys = ReadKeys(value, rate);
  if (io::IsPresent(keys)) {
    const io::Json alone = {{"keyframes", *keys.value}};
    parameter.keys = ReadKeys({&alone, node.file, node.path}, rate);
  }
  return parameter;
}

io::Json PropertyJson(const Property& property, int dimensions, FrameRate rate) {
  const bool plain = property.keys.size() == 1 && property.expression.text.empty();
  if (plain) return NumbersJson(property.keys[0].value, dimensions);
  io::Json json = io::Json::object();
  if (property.keys.size() == 1) json["value"] = NumbersJson(property.keys[0].value, dimensions);
  for (const composition::Key& key : property.keys) {
    if (property.keys.size() == 1) break;
    io::Json entry = {{"frame", NumberJson(key.seconds * rate.numerator / rate.denominator)},
                      {"value", NumbersJson(key.value, dimensions)}};
    if (key.hold) entry["hold"] = true;
    json["keyframes"].push_back(entry);
  }
  if (!property.expression.text.empty()) json["expression"] = property.expression.text;
  if (!property.expression.text.empty() && !property.expression.on) json["expression_on"] = false;
  return json;
}

}  // namespace vantle::scene
