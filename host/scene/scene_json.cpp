#include "host/scene/scene_json.h"

#include "host/io/failure.h"
#include "host/io/files.h"
#include "host/io/nearest.h"
#include "host/io/picture.h"
#include "host/scene/placement_json.h"

#include <cmath>

namespace vantle::scene {
namespace {

using io::Node;

int32_t ReadSide(const Node& node) {
  return static_cast<int32_t>(io::ReadInteger(node, 1, io::kMaxEdge));
}

int32_t ReadFrameNumber(const Node& node) {
  return static_cast<int32_t>(io::ReadInteger(node, -1'000'000, 1'000'000));
}

Composition ReadComposition(const Node& node) {
  io::RequireObject(node, {"width", "height", "frame_rate", "duration", "frames"});
  Composition composition;
  composition.width = ReadSide(io::RequiredMember(node, "width"));
  composition.height = ReadSide(io::RequiredMember(node, "height"));
  composition.frameRate = ReadFrameRate(io::RequiredMember(node, "frame_rate"));
  const Node seconds = io::Member(node, "duration"), frames = io::Member(node, "frames");
  if (io::IsPresent(seconds) == io::IsPresent(frames))
    io::FailAt(node, "give either \"duration\" (seconds) or \"frames\"");
  if (io::IsPresent(frames)) {
    composition.frames = static_cast<int32_t>(io::ReadInteger(frames, 1, 1'000'000));
    return composition;
  }
  const double count =
      io::ReadNumber(seconds) * composition.frameRate.numerator / composition.frameRate.denominator;
  if (!(count > 0) || count > 1e6)
    io::RefuseNode(seconds, "a duration above 0 seconds, of up to a million frames");
  composition.frames = std::max(1, static_cast<int32_t>(std::lround(count)));
  return composition;
}

SequenceSource ReadSequence(const Node& node, const std::string& file, FrameRate compositionRate) {
  SequenceSource source;
  source.pattern = io::ResolveBeside(
      file, io::ReadText(io::Member(node, "sequence"), "a pattern such as \"shot.####.png\""));
  source.frameRate = compositionRate;
  if (const Node rate = io::Member(node, "frame_rate"); io::IsPresent(rate))
    source.frameRate = ReadFrameRate(rate);
  if (const Node start = io::Member(node, "start"); io::IsPresent(start))
    source.start = io::ReadNumber(start);
  if (const Node first = io::Member(node, "first"); io::IsPresent(first))
    source.firstFrame = ReadFrameNumber(first);
  if (const Node last = io::Member(node, "last"); io::IsPresent(last))
    source.lastFrame = ReadFrameNumber(last);
  return source;
}

SolidSource ReadSolid(const Node& node, const Composition& composition) {
  SolidSource source;
  const Node color = io::Member(node, "solid");
  const std::string expected = "a colour [red, green, blue] or [red, green, blue, alpha], each 0 to 1";
  const std::vector<Node> channels = io::Elements(color, expected);
  if (channels.size() != 3 && channels.size() != 4) io::RefuseNode(color, expected);
  for (size_t i = 0; i < channels.size(); ++i) source.color[i] = io::ReadNumber(channels[i]);
  const Node width = io::Member(node, "width"), height = io::Member(node, "height");
  source.width = io::IsPresent(width) ? ReadSide(width) : composition.width;
  source.height = io::IsPresent(height) ? ReadSide(height) : composition.height;
  return source;
}

Layer ReadLayer(const Node& node, const std::string& file, const Composition& composition) {
  if (node.value == nullptr || !node.value->is_object()) io::RefuseNode(node, "a layer { \"name\": ... }");
  const bool still = node.value->contains("file"), sequence = node.value->contains("sequence"),
             solid = node.value->contains("solid"), null = node.value->contains("null"),
             camera = node.value->contains("camera");
  if (still + sequence + solid + null + camera > 1)
    io::FailAt(
        node,
        "a layer is either a \"file\", a \"sequence\", a \"solid\", a \"null\" or a \"camera\": keep one");
  if (still) io::RequireObject(node, {"name", "file", "three_d", "parent", "transform"});
  if (sequence)
    io::RequireObject(
        node, {"name", "sequence", "frame_rate", "start", "first", "last", "three_d", "parent", "transform"});
  if (solid) io::RequireObject(node, {"name", "solid", "width", "height", "three_d", "parent", "transform"});
  if (null) io::RequireObject(node, {"name", "null", "three_d", "parent", "transform"});
  if (camera) io::RequireObject(node, {"name", "camera", "parent", "transform"});
  if (!still && !sequence && !solid && !null && !camera) {
    io::RequireObject(node, {"name", "file", "sequence", "solid", "frame_rate", "start", "first", "last",
                             "width", "height", "null", "camera", "three_d", "parent", "transform"});
    io::FailAt(
        node,
        "what the layer shows is missing: add a \"file\", a \"sequence\", a \"solid\", a \"null\" or a "
        "\"camera\"");
  }
  Layer layer;
  layer.name = io::ReadText(io::RequiredMember(node, "name"), "the layer's name");
  if (still)
    layer.source =
        StillSource{io::ResolveBeside(file, io::ReadText(io::Member(node, "file"), "a picture's path"))};
  if (sequence) layer.source = ReadSequence(node, file, composition.frameRate);
  if (solid) layer.source = ReadSolid(node, composition);
  if (null || camera) layer.source = NoSource{};
  layer.placement = ReadPlacement(node, composition.frameRate);
  return layer;
}

int32_t FindLayer(const Node& node, const std::vector<Layer>& layers) {
  const std::string name = io::ReadText(node, "the name of a layer");
  std::vector<std::string> names;
  for (size_t i = 0; i < layers.size(); ++i) {
    if (std::holds_alternative<NoSource>(layers[i].source)) continue;
    if (layers[i].name == name) return static_cast<int32_t>(i);
    names.push_back(layers[i].name);
  }
  const std::vector<std::string> near = io::NearestNames(name, names, 1);
  std::string hint;
  if (!near.empty()) hint = "; did you mean \"" + near[0] + "\"?";
  io::FailAt(node, "there is no layer named \"" + name + "\" in \"layers\"" + hint);
}

std::optional<int32_t> FindOptionalLayer(const Node& node, const std::vector<Layer>& layers) {
  if (!io::IsPresent(node) || io::IsNull(node)) return std::nullopt;
  return FindLayer(node, layers);
}

Effect ReadEffect(const Node& node, const Scene& scene) {
  io::RequireObject(node, {"layer", "a", "b", "custom", "parameters"});
  Effect effect;
  effect.layer = FindLayer(io::RequiredMember(node, "layer"), scene.layers);
  const Node source = io::Member(node, "a");
  effect.sourceIsOwnLayer = !io::IsPresent(source);
  effect.source = FindOptionalLayer(source, scene.layers);
  effect.target = FindOptionalLayer(io::Member(node, "b"), scene.layers);
  effect.custom = FindOptionalLayer(io::Member(node, "custom"), scene.layers);
  const Node parameters = io::Member(node, "parameters");
  if (!io::IsPresent(parameters)) return effect;
  for (const auto& [name, value] : io::Members(parameters, "an object of parameter values"))
    effect.parameters.push_back(ReadParameter(name, value, scene.composition.frameRate));
  return effect;
}

// Only nulls and cameras may share a name: the effect names its layers by it.
bool ShowsSomething(const Layer& layer) {
  return !std::holds_alternative<NoSource>(layer.source);
}

}  // namespace

Scene ReadScene(const std::string& path) {
  const io::Json document = io::ReadJsonFile(path);
  const Node root{&document, path, ""};
  io::RequireObject(root, {"composition", "layers", "effect"});
  Scene scene;
  scene.file = path;
  scene.composition = ReadComposition(io::RequiredMember(root, "composition"));
  const Node layers = io::RequiredMember(root, "layers");
  for (const Node& layer : io::Elements(layers, "a list of layers")) {
    scene.layers.push_back(ReadLayer(layer, path, scene.composition));
    for (size_t i = 0; i + 1 < scene.layers.size(); ++i)
      if (scene.layers[i].name == scene.layers.back().name && ShowsSomething(scene.layers[i]) &&
          ShowsSomething(scene.layers.back()))
        io::FailAt(layer, "the name \"" + scene.layers[i].name + "\" is used twice: rename one layer");
  }
  scene.effect = ReadEffect(io::RequiredMember(root, "effect"), scene);
  return scene;
}

}  // namespace vantle::scene
