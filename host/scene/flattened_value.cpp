#include "host/scene/flattened_value.h"

#include "host/io/json_file.h"
#include "host/scene/scene_json.h"
#include "host/scene/timeline.h"
#include "particles/custom_values.h"

#include <cmath>
#include <cstring>

namespace vantle::scene {
namespace {

using io::Json;
using Bytes = std::vector<std::uint8_t>;

constexpr char kDigits[] = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";

int DigitOf(char letter) {
  const char* found = letter == '\0' ? nullptr : std::strchr(kDigits, letter);
  return found == nullptr ? -1 : static_cast<int>(found - kDigits);
}

bool AllFinite(const Json& list) {
  for (const Json& item : list)
    if (item.is_array() ? !AllFinite(item) : !std::isfinite(item.get<double>())) return false;
  return true;
}

// What a person reads: the used stops or points. Null where they are not numbers.
Json ReadablePart(const Bytes& bytes) {
  Json list = Json::array();
  if (bytes.size() == sizeof(ColorGradient)) {
    ColorGradient gradient;
    std::memcpy(&gradient, bytes.data(), sizeof(gradient));
    for (int32_t i = 0; i < UsableCount(gradient); ++i) {
      const GradientStop& stop = gradient.stops[i];
      list.push_back({io::ShortestDecimal(stop.position), io::ShortestDecimal(stop.r),
                      io::ShortestDecimal(stop.g), io::ShortestDecimal(stop.b)});
    }
    return AllFinite(list) ? list : Json();
  }
  if (bytes.size() != sizeof(LifeCurve)) return {};
  LifeCurve curve;
  std::memcpy(&curve, bytes.data(), sizeof(curve));
  for (int32_t i = 0; i < UsableCount(curve); ++i)
    list.push_back({io::ShortestDecimal(curve.x[i]), io::ShortestDecimal(curve.y[i])});
  if (!AllFinite(list) || !std::isfinite(curve.maximum)) return {};
  return {{"max", io::ShortestDecimal(curve.maximum)}, {"points", list}};
}

Bytes BytesOfReadable(const io::Node& node) {
  return node.value->is_array() ? GradientBytes(ReadGradient(node)) : CurveBytes(ReadCurve(node));
}

bool SameReadable(const io::Node& written, const Bytes& bytes) {
  const Json stored = ReadablePart(bytes);
  if (stored.is_null()) return false;
  return BytesOfReadable(written) == BytesOfReadable({&stored, written.file, written.path});
}

}  // namespace

std::string EncodeBase64(const Bytes& bytes) {
  std::string text;
  for (size_t i = 0; i < bytes.size(); i += 3) {
    uint32_t group = 0;
    for (size_t k = 0; k < 3; ++k) group = group << 8 | (i + k < bytes.size() ? bytes[i + k] : 0u);
    for (size_t k = 0; k < 4; ++k) text += i + k <= bytes.size() ? kDigits[group >> (18 - 6 * k) & 63] : '=';
  }
  return text;
}

bool DecodeBase64(const std::string& text, Bytes* bytes) {
  bytes->clear();
  if (text.size() % 4 != 0) return false;
  const size_t padding = text.ends_with("==") ? 2 : text.ends_with('=') ? 1 : 0;
  uint32_t group = 0;
  for (size_t i = 0; i < text.size(); ++i) {
    const int digit = i + padding >= text.size() ? 0 : DigitOf(text[i]);
    if (digit < 0) return false;
    group = group << 6 | static_cast<uint32_t>(digit);
    if (i % 4 != 3) continue;
    for (int shift = 16; shift >= 0; shift -= 8) bytes->push_back(static_cast<uint8_t>(group >> shift));
    group = 0;
  }
  // Bits behind the last byte must be 0, so that each value has one text.
  for (size_t i = 0; i < padding; ++i, bytes->pop_back())
    if (bytes->back() != 0) return false;
  return true;
}

FlattenedValue ReadFlattened(const io::Node& node) {
  io::RequireObject(node, {"value", "flattened"});
  const io::Node flattened = io::RequiredMember(node, "flattened");
  FlattenedValue value;
  if (!DecodeBase64(io::ReadText(flattened, "bytes in base64"), &value.bytes))
    io::RefuseNode(flattened, "bytes in base64");
  if (const io::Node readable = io::Member(node, "value");
      io::IsPresent(readable) && !SameReadable(readable, value.bytes))
    io::FailAt(node,
               "\"value\" and \"flattened\" are different values: delete \"flattened\" and write the "
               "value alone, or delete \"value\"");
  return value;
}

Json CustomValueJson(const Bytes& bytes) {
  const Json readable = ReadablePart(bytes);
  const std::string place = "custom value";
  if (!readable.is_null() && BytesOfReadable({&readable, place, ""}) == bytes) return readable;
  Json both = Json::object();
  if (!readable.is_null()) both["value"] = readable;
  both["flattened"] = EncodeBase64(bytes);
  return both;
}

}  // namespace vantle::scene
