#include "host/scene/scene_change.h"

#include "host/io/files.h"
#include "host/scene/parameter_lookup.h"
#include "host/scene/placement_json.h"

#include <filesystem>

namespace vantle::scene {
namespace {

using composition::Property;
using io::Json;

bool SameKeys(const Property& a, const Property& b) {
  if (a.keys.size() != b.keys.size()) return false;
  for (size_t i = 0; i < a.keys.size(); ++i)
    if (a.keys[i].seconds != b.keys[i].seconds || a.keys[i].value != b.keys[i].value ||
        a.keys[i].hold != b.keys[i].hold)
      return false;
  return true;
}

// A layer out of space keeps its third coordinate in the file only when that says something.
int WrittenDimensions(const composition::Layer& layer, composition::Stream stream) {
  const int dimensions = composition::FactsOf(stream).dimensions;
  return dimensions == 3 && !layer.threeD && stream != composition::kOrientation ? 2 : dimensions;
}

// The streams that differ from a new layer's, and the position in any case: it is what people look for.
Json TransformJson(const composition::Composition& composition, const composition::Layer& layer,
                   FrameRate rate) {
  const composition::Layer usual = composition::MakeLayer(composition, layer.kind, layer.name);
  Json transform = Json::object();
  for (int i = 0; i < composition::kStreamCount; ++i) {
    const auto stream = static_cast<composition::Stream>(i);
    const Property& property = layer.streams[static_cast<size_t>(i)];
    const bool usualValue = SameKeys(property, usual.streams[static_cast<size_t>(i)]);
    if (composition::FactsOf(stream).ofCameras) continue;
    if (usualValue && property.expression.text.empty() && stream != composition::kPosition) continue;
    transform[composition::FactsOf(stream).key] =
        PropertyJson(property, WrittenDimensions(layer, stream), rate);
  }
  return transform;
}

Json NullJson(const composition::Composition& composition, const composition::Layer& layer, FrameRate rate) {
  Json json = {{"name", layer.name}, {"null", true}};
  if (layer.threeD) json["three_d"] = true;
  json["transform"] = TransformJson(composition, layer, rate);
  return json;
}

// What the document calls the parameter, or what it is to be called there.
std::string KeyOf(const Json& parameters, const std::vector<host::DeclaredParam>& params, int index) {
  for (const auto& [key, value] : parameters.items())
    if (FindParameter(params, key).index == index) return key;
  const std::string& name = params[static_cast<size_t>(index)].name;
  if (FindParameter(params, name).index == index) return name;
  const std::string full = GroupNames(params)[static_cast<size_t>(index)] + "/" + name;
  return FindParameter(params, full).index == index ? full : std::to_string(index);
}

void PutExpression(const composition::Expression& expression, Json* parameter) {
  if (!parameter->is_object()) {
    const Json value = *parameter;
    *parameter = Json::object();
    if (!value.is_null()) (*parameter)["value"] = value;
  }
  (*parameter)["expression"] = expression.text;
  parameter->erase("expression_on");
  if (!expression.on) (*parameter)["expression_on"] = false;
}

bool SameExpression(const std::map<int, composition::Expression>& known, int index,
                    const composition::Expression& expression) {
  const auto before = known.find(index);
  const composition::Expression none;
  const composition::Expression& old = before == known.end() ? none : before->second;
  return old.text == expression.text && old.on == expression.on;
}

bool IsShort(const Json& value, size_t indent) {
  constexpr size_t kLine = 100;
  return value.is_primitive() || value.dump().size() + indent <= kLine;
}

std::string Inline(const Json& value) {
  std::string text;
  if (value.is_array()) {
    for (const Json& element : value) text += (text.empty() ? "" : ", ") + Inline(element);
    return "[" + text + "]";
  }
  if (value.is_object()) {
    for (const auto& [key, element] : value.items())
      text += (text.empty() ? " " : ", ") + Json(key).dump() + ": " + Inline(element);
    return text.empty() ? "{}" : "{" + text + " }";
  }
  return value.dump(-1, ' ', false, Json::error_handler_t::replace);
}

std::string Tidy(const Json& value, size_t indent) {
  if (IsShort(value, indent)) return Inline(value);
  const std::string inner(indent + 2, ' '), outer(indent, ' ');
  std::string text;
  if (value.is_array()) {
    for (const Json& element : value) text += (text.empty() ? "" : ",\n") + inner + Tidy(element, indent + 2);
    return "[\n" + text + "\n" + outer + "]";
  }
  for (const auto& [key, element] : value.items())
    text += (text.empty() ? "" : ",\n") + inner + Json(key).dump() + ": " + Tidy(element, indent + 2);
  return "{\n" + text + "\n" + outer + "}";
}

}  // namespace

void WriteChanges(const composition::Composition& before, const composition::Composition& after,
                  const host::EffectInstance& effect, FrameRate rate, Json* document) {
  Json layers = Json::array();
  for (const composition::Layer& layer : after.layers)
    if (layer.id > before.lastId) layers.push_back(NullJson(after, layer, rate));
  for (const Json& layer : (*document)["layers"]) layers.push_back(layer);
  (*document)["layers"] = layers;

  Json& parameters = (*document)["effect"]["parameters"];
  if (!parameters.is_object()) parameters = Json::object();
  for (const auto& [index, expression] : after.effectExpressions)
    if (!SameExpression(before.effectExpressions, index, expression))
      PutExpression(expression, &parameters[KeyOf(parameters, effect.params, index)]);
}

void MovePaths(const std::string& from, const std::string& to, Json* document) {
  namespace fs = std::filesystem;
  const fs::path fromFolder = fs::absolute(from).lexically_normal().parent_path();
  const fs::path toFolder = fs::absolute(to).lexically_normal().parent_path();
  if (fromFolder == toFolder) return;
  for (Json& layer : (*document)["layers"]) {
    for (const char* key : {"file", "sequence"}) {
      if (!layer.contains(key) || fs::path(layer[key].get<std::string>()).is_absolute()) continue;
      const fs::path whole = (fromFolder / layer[key].get<std::string>()).lexically_normal();
      layer[key] = whole.lexically_proximate(toFolder).generic_string();
    }
  }
}

std::string TidyText(const Json& document) {
  return Tidy(document, 0) + "\n";
}

}  // namespace vantle::scene
