#include "host/scene/flattened_value.h"
#include "host/scene/scene_json.h"
#include "particles/custom_values.h"

#include <cmath>
#include <cstdio>
#include <numeric>

namespace vantle::scene {
namespace {

using io::Node;

// A list of `count` numbers.
template <size_t count>
std::array<double, count> ReadNumbers(const Node& node, const std::string& expected) {
  const std::vector<Node> elements = io::Elements(node, expected);
  if (elements.size() != count) io::RefuseNode(node, expected);
  std::array<double, count> numbers;
  for (size_t i = 0; i < count; ++i) numbers[i] = io::ReadNumber(elements[i]);
  return numbers;
}

Value ReadValue(const Node& node) {
  if (node.value->is_number()) return io::ReadNumber(node);
  if (node.value->is_boolean()) return node.value->get<bool>() ? 1.0 : 0.0;
  if (node.value->is_string()) return node.value->get<std::string>();
  if (node.value->is_array()) return ReadGradient(node);
  if (node.value->is_object() && node.value->contains("flattened")) return ReadFlattened(node);
  if (node.value->is_object()) return ReadCurve(node);
  io::RefuseNode(node,
                 "a number, true, false, the name of a choice, a gradient [[pos, r, g, b], ...], a curve "
                 "{\"max\": .., \"points\": ..} or {\"keyframes\": [...]}");
}

Key ReadKey(const Node& node, FrameRate rate) {
  io::RequireObject(node, {"time", "frame", "value", "hold"});
  const Node time = io::Member(node, "time"), frame = io::Member(node, "frame");
  if (io::IsPresent(time) == io::IsPresent(frame))
    io::FailAt(node, "a keyframe has either \"time\" (seconds) or \"frame\": give one of them");
  Key key;
  key.frame =
      io::IsPresent(frame) ? io::ReadNumber(frame) : io::ReadNumber(time) * rate.numerator / rate.denominator;
  key.value = ReadValue(io::RequiredMember(node, "value"));
  if (const Node hold = io::Member(node, "hold"); io::IsPresent(hold)) key.hold = io::ReadBool(hold);
  return key;
}

FrameRate RateFromText(const Node& node, const std::string& text) {
  FrameRate rate;
  int used = 0;
  if (std::sscanf(text.c_str(), "%9d/%9d%n", &rate.numerator, &rate.denominator, &used) == 2 &&
      static_cast<size_t>(used) == text.size() && rate.numerator >= 1 && rate.denominator >= 1)
    return rate;
  io::RefuseNode(node, "a frame rate such as 25 or \"30000/1001\"");
}

}  // namespace

GradientValue ReadGradient(const Node& node) {
  const std::string expected = "a gradient [[position, red, green, blue], ...] of up to 8 stops";
  GradientValue gradient;
  for (const Node& stop : io::Elements(node, expected))
    gradient.stops.push_back(ReadNumbers<4>(stop, "a stop [position, red, green, blue]"));
  if (gradient.stops.size() > kMaxGradientStops) io::RefuseNode(node, expected);
  return gradient;
}

CurveValue ReadCurve(const Node& node) {
  io::RequireObject(node, {"max", "points"});
  CurveValue curve;
  curve.maximum = io::ReadNumber(io::RequiredMember(node, "max"));
  const Node points = io::RequiredMember(node, "points");
  const std::string expected = "a list of up to 16 points [[x, y], ...]";
  for (const Node& point : io::Elements(points, expected))
    curve.points.push_back(ReadNumbers<2>(point, "a point [x, y]"));
  if (curve.points.size() > kMaxCurvePoints) io::RefuseNode(points, expected);
  return curve;
}

FrameRate ReadFrameRate(const Node& node) {
  constexpr int32_t kLargest = 1'000'000;
  if (node.value->is_string()) return RateFromText(node, node.value->get<std::string>());
  if (node.value->is_array() && node.value->size() == 2)
    return {static_cast<int32_t>(io::ReadInteger(io::Element(node, 0), 1, kLargest)),
            static_cast<int32_t>(io::ReadInteger(io::Element(node, 1), 1, kLargest))};
  const double rate = io::ReadNumber(node);
  const double thousandths = rate * 1000.0;
  if (!(rate > 0) || rate > 10000 || std::fabs(thousandths - std::round(thousandths)) > 1e-9 * thousandths)
    io::RefuseNode(node, "a frame rate above 0 such as 25, 12.5 or \"30000/1001\"");
  if (rate == std::floor(rate)) return {static_cast<int32_t>(rate), 1};
  const auto whole = static_cast<int32_t>(std::lround(thousandths));
  const int32_t common = std::gcd(whole, 1000);
  return {whole / common, 1000 / common};
}

std::vector<Key> ReadKeys(const Node& node, FrameRate rate) {
  if (!node.value->is_object() || !node.value->contains("keyframes"))
    return {Key{0.0, ReadValue(node), false}};
  io::RequireObject(node, {"keyframes"});
  const Node list = io::Member(node, "keyframes");
  std::vector<Key> keys;
  for (const Node& element : io::Elements(list, "a list of keyframes")) {
    keys.push_back(ReadKey(element, rate));
    if (keys.size() > 1 && !(keys.back().frame > keys[keys.size() - 2].frame))
      io::FailAt(element, "keyframes must ascend in time: sort them and give each time once");
  }
  if (keys.empty()) io::FailAt(list, "expected at least one keyframe, found none");
  return keys;
}

}  // namespace vantle::scene
