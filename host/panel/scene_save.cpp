#include "host/panel/scene_save.h"

#include "host/engine/custom_values.h"
#include "host/io/failure.h"
#include "host/io/json_file.h"
#include "host/scene/flattened_value.h"
#include "host/scene/parameter_lookup.h"
#include "host/scene/scene_json.h"

#include <filesystem>

namespace vantle::panel {
namespace {

using io::Json;
namespace fs = std::filesystem;

// The key under which the scene names a parameter; a new one when it does not.
std::string KeyOf(const Json& parameters, const host::EffectInstance& effect, int param) {
  for (const auto& [key, value] : parameters.items())
    if (scene::FindParameter(effect.params, key).index == param) return key;
  const std::string& name = effect.params[static_cast<size_t>(param)].name;
  if (scene::FindParameter(effect.params, name).index == param) return name;
  return scene::GroupNames(effect.params)[static_cast<size_t>(param)] + "/" + name;
}

double FrameOfKey(const Json& key, scene::FrameRate rate) {
  if (key.contains("frame")) return key["frame"].get<double>();
  return key["time"].get<double>() * rate.numerator / rate.denominator;
}

// Replaces the key at the frame, or puts a new one in its place.
void SetKey(Json& keys, int32_t frame, scene::FrameRate rate, const Json& value) {
  size_t at = 0;
  while (at < keys.size() && FrameOfKey(keys[at], rate) < frame) ++at;
  if (at < keys.size() && FrameOfKey(keys[at], rate) == frame) {
    keys[at]["value"] = value;
    return;
  }
  Json key = Json::object();
  key["frame"] = frame;
  key["value"] = value;
  keys.insert(keys.begin() + static_cast<std::ptrdiff_t>(at), key);
}

void SetValue(Json& parameters, const std::string& name, int32_t frame, scene::FrameRate rate,
              const Json& value) {
  Json& old = parameters[name];
  if (old.is_object() && old.contains("keyframes")) return SetKey(old["keyframes"], frame, rate, value);
  old = value;
}

std::string Rebased(const std::string& path, const fs::path& from, const fs::path& to) {
  if (fs::path(path).is_absolute()) return path;
  return (from / path).lexically_normal().lexically_relative(to).generic_string();
}

// Paths in a scene are relative to its file.
void RebaseLayers(Json& document, const std::string& scenePath, const std::string& newPath) {
  const fs::path from = fs::absolute(scenePath).lexically_normal().parent_path();
  const fs::path to = fs::absolute(newPath).lexically_normal().parent_path();
  if (from == to) return;
  for (Json& layer : document["layers"])
    for (const char* key : {"file", "sequence"})
      if (layer.contains(key)) layer[key] = Rebased(layer[key].get<std::string>(), from, to);
}

}  // namespace

EditedValues CollectEdits(Panel& panel) {
  EditedValues edits;
  for (size_t i = 0; i < panel.applied; ++i)
    edits[panel.steps[i].param] = CurrentValue(panel, panel.steps[i].param);
  for (auto& [param, bytes] : edits) {
    const host::CustomResult flat = host::FlattenCustomValue(*panel.effect, param, bytes);
    const host::CustomResult back = host::UnflattenCustomValue(*panel.effect, param, flat.bytes);
    if (flat.error != PF_Err_NONE || back.error != PF_Err_NONE || back.bytes != bytes)
      throw io::Failure(io::kEffectError, "the effect does not restore the flattened value of \"" +
                                              panel.effect->params[static_cast<size_t>(param)].name + "\"");
    bytes = flat.bytes;
  }
  return edits;
}

std::string SceneTextWithEdits(const std::string& scenePath, const std::string& newPath,
                               const host::EffectInstance& effect, const EditedValues& edits, int32_t frame) {
  Json document = io::ReadJsonFile(scenePath);
  const scene::Scene scene = scene::ReadScene(scenePath);
  RebaseLayers(document, scenePath, newPath);
  Json& parameters = document["effect"]["parameters"];
  if (parameters.is_null()) parameters = Json::object();
  for (const auto& [param, bytes] : edits)
    SetValue(parameters, KeyOf(parameters, effect, param), frame, scene.composition.frameRate,
             scene::CustomValueJson(bytes));
  return PrettyJson(document);
}

}  // namespace vantle::panel
