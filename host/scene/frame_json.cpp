#include "host/scene/frame_json.h"

#include "host/engine/effect.h"
#include "host/io/files.h"
#include "host/io/json_file.h"
#include "host/io/npy.h"
#include "host/scene/layer_store.h"
#include "host/scene/parameter_lookup.h"
#include "host/scene/scene_frame.h"
#include "host/scene/scene_json.h"
#include "host/scene/timeline.h"

#include <charconv>
#include <limits>
#include <vector>

namespace vantle::scene {
namespace {

using host::FrameRequest;
using io::Node;

constexpr int64_t kInt32Min = std::numeric_limits<int32_t>::min();
constexpr int64_t kInt32Max = std::numeric_limits<int32_t>::max();
constexpr int64_t kUint32Max = std::numeric_limits<uint32_t>::max();

A_long ReadInt32(const Node& node) {
  return static_cast<A_long>(io::ReadInteger(node, kInt32Min, kInt32Max));
}

host::FrameTime ReadTime(const Node& node) {
  io::RequireObject(node, {"current", "step", "scale", "total"});
  host::FrameTime time;
  time.current = ReadInt32(io::RequiredMember(node, "current"));
  time.step = ReadInt32(io::RequiredMember(node, "step"));
  time.scale = static_cast<A_u_long>(io::ReadInteger(io::RequiredMember(node, "scale"), 0, kUint32Max));
  time.total = ReadInt32(io::RequiredMember(node, "total"));
  return time;
}

PF_RationalScale ReadScale(const Node& node) {
  const std::string expected = "a fraction [numerator, denominator]";
  const std::vector<Node> parts = io::Elements(node, expected);
  if (parts.size() != 2) io::RefuseNode(node, expected);
  return {ReadInt32(parts[0]), static_cast<A_u_long>(io::ReadInteger(parts[1], 0, kUint32Max))};
}

void ReadDownsample(const Node& node, FrameRequest* request) {
  if (!io::IsPresent(node)) return;
  io::RequireObject(node, {"x", "y"});
  request->downsampleX = ReadScale(io::RequiredMember(node, "x"));
  request->downsampleY = ReadScale(io::RequiredMember(node, "y"));
}

WorldPtr ReadWorld(const Node& node, int depth) {
  const std::string file =
      io::ResolveBeside(node.file, io::ReadText(node, "the path of a .npy file, or null for none"));
  auto world = std::make_shared<host::World>(WorldOf(io::ReadNpy(file)));
  if (world->depth != depth)
    io::FailAt(node, file + " is " + std::to_string(world->depth) + " bits deep, the frame " +
                         std::to_string(depth) + ": save the array in the frame's depth");
  return world;
}

WorldPtr ReadOptionalWorld(const Node& node, int depth) {
  return io::IsPresent(node) && !io::IsNull(node) ? ReadWorld(node, depth) : nullptr;
}

// A missing "2" is the effect's own layer, a missing "3" none.
void ReadLayers(const Node& node, FrameRequest* request, host::LayerTable* table) {
  table->layers[kSourceLayerParam] = request->input;
  table->layers[kTargetLayerParam] = nullptr;
  if (!io::IsPresent(node)) return;
  io::RequireObject(node, {"2", "3"});
  if (const Node source = io::Member(node, "2"); io::IsPresent(source))
    table->layers[kSourceLayerParam] = ReadOptionalWorld(source, request->depth);
  table->layers[kTargetLayerParam] = ReadOptionalWorld(io::Member(node, "3"), request->depth);
}

void ReadCustomLayer(const Node& node, FrameRequest* request, host::LayerTable* table) {
  table->layers[kCustomLayerParam] = nullptr;
  if (!io::IsPresent(node) || io::IsNull(node)) return;
  io::RequireObject(node, {"frames", "duration"});
  const auto duration =
      static_cast<A_long>(io::ReadInteger(io::RequiredMember(node, "duration"), 0, kInt32Max));
  request->sourceDurations[kCustomLayerParam] = {duration, request->time.scale};
  std::vector<host::TimedWorld>& frames = table->frames[kCustomLayerParam];
  for (const Node& frame : io::Elements(io::RequiredMember(node, "frames"), "a list of frames")) {
    io::RequireObject(frame, {"time", "file"});
    frames.push_back({ReadInt32(io::RequiredMember(frame, "time")),
                      ReadWorld(io::RequiredMember(frame, "file"), request->depth)});
  }
  table->layers.erase(kCustomLayerParam);
  table->frameScale = request->time.scale;
}

std::optional<host::FrameCamera> ReadCamera(const Node& node) {
  if (!io::IsPresent(node) || io::IsNull(node)) return std::nullopt;
  io::RequireObject(node, {"matrix", "distance", "plane_width", "plane_height", "depth_of_field",
                           "focus_distance", "aperture", "zoom"});
  host::FrameCamera camera;
  const Node matrix = io::RequiredMember(node, "matrix");
  const std::vector<Node> numbers = io::Elements(matrix, "a list of 16 numbers, row after row");
  if (numbers.size() != 16) io::RefuseNode(matrix, "a list of 16 numbers, row after row");
  for (size_t i = 0; i < 16; ++i) camera.matrix.mat[i / 4][i % 4] = io::ReadNumber(numbers[i]);
  camera.distance = io::ReadNumber(io::RequiredMember(node, "distance"));
  const auto readSide = [&](const char* key) {
    return static_cast<A_short>(io::ReadInteger(io::RequiredMember(node, key), -32768, 32767));
  };
  camera.planeWidth = readSide("plane_width");
  camera.planeHeight = readSide("plane_height");
  if (const Node blur = io::Member(node, "depth_of_field"); io::IsPresent(blur))
    camera.depthOfField = io::ReadBool(blur);
  const auto readOptional = [&](const char* key) {
    const Node number = io::Member(node, key);
    return io::IsPresent(number) ? io::ReadNumber(number) : 0.0;
  };
  camera.focusDistance = readOptional("focus_distance");
  camera.aperture = readOptional("aperture");
  camera.zoom = readOptional("zoom");
  return camera;
}

int ReadParamId(const Node& params, const std::string& key, const host::EffectInstance& effect) {
  int id = 0;
  const auto [end, error] = std::from_chars(key.data(), key.data() + key.size(), id);
  const int last = static_cast<int>(effect.params.size()) - 1;
  if (error != std::errc() || end != key.data() + key.size() || id < 1 || id > last)
    io::FailAt(params, "unknown key \"" + key + "\"; parameters go by their ids, \"1\" to \"" +
                           std::to_string(last) + "\" (\"vantle info\" lists them)");
  return id;
}

host::ParamValue ReadParamValue(const Node& node, const host::DeclaredParam& param) {
  switch (param.def.param_type) {
    case PF_Param_FLOAT_SLIDER:
      return io::ReadNumber(node);
    case PF_Param_ANGLE:
      return FixedDegrees(io::ReadNumber(node));
    case PF_Param_POPUP:
      return ReadInt32(node);
    case PF_Param_CHECKBOX:
      if (node.value->is_boolean()) return static_cast<A_long>(node.value->get<bool>());
      return ReadInt32(node);
    case PF_Param_LAYER:
      io::FailAt(node, "is a layer: it goes into \"layers\" or \"custom_layer\"");
    case PF_Param_ARBITRARY_DATA:
      io::FailAt(node, "is a custom value: it goes into \"gradient\", \"scale_curve\" or \"opacity_curve\"");
    default:
      io::FailAt(node, std::string("is a ") + TypeName(param.def.param_type) + " and takes no value");
  }
}

void ReadParams(const Node& node, const host::EffectInstance& effect, FrameRequest* request) {
  if (!io::IsPresent(node)) return;
  for (const auto& [key, value] : io::Members(node, "an object of values by parameter id")) {
    const int id = ReadParamId(node, key, effect);
    request->values[id] = ReadParamValue(value, effect.params[static_cast<size_t>(id)]);
  }
}

constexpr int kScaleCurveParam = 28;
constexpr int kGradientParam = 36;
constexpr int kOpacityCurveParam = 40;

void ReadCustomValues(const Node& root, FrameRequest* request) {
  if (const Node gradient = io::Member(root, "gradient"); io::IsPresent(gradient))
    request->values[kGradientParam] = host::CustomBytes{GradientBytes(ReadGradient(gradient))};
  if (const Node curve = io::Member(root, "scale_curve"); io::IsPresent(curve))
    request->values[kScaleCurveParam] = host::CustomBytes{CurveBytes(ReadCurve(curve))};
  if (const Node curve = io::Member(root, "opacity_curve"); io::IsPresent(curve))
    request->values[kOpacityCurveParam] = host::CustomBytes{CurveBytes(ReadCurve(curve))};
}

int ReadSide(const Node& node) {
  return static_cast<int>(io::ReadInteger(node, 1, io::kMaxEdge));
}

int ReadDepth(const Node& node) {
  const double depth = node.value->is_number() ? node.value->get<double>() : 0.0;
  if (depth != 8 && depth != 16 && depth != 32) io::RefuseNode(node, "8, 16 or 32");
  return static_cast<int>(depth);
}

}  // namespace

FrameRequest ReadFrameRequest(const std::string& path, const host::EffectInstance& effect) {
  const io::Json document = io::ReadJsonFile(path);
  const Node root{&document, path, ""};
  io::RequireObject(root, {"width", "height", "depth", "time", "downsample", "input", "layers",
                           "custom_layer", "camera", "params", "gradient", "scale_curve", "opacity_curve"});
  FrameRequest request;
  request.width = ReadSide(io::RequiredMember(root, "width"));
  request.height = ReadSide(io::RequiredMember(root, "height"));
  request.depth = ReadDepth(io::RequiredMember(root, "depth"));
  request.time = ReadTime(io::RequiredMember(root, "time"));
  ReadDownsample(io::Member(root, "downsample"), &request);
  request.input = ReadOptionalWorld(io::RequiredMember(root, "input"), request.depth);
  host::LayerTable table;
  ReadLayers(io::Member(root, "layers"), &request, &table);
  ReadCustomLayer(io::Member(root, "custom_layer"), &request, &table);
  request.layers = host::LayersOf(effect, std::move(table), request.input);
  request.camera = ReadCamera(io::Member(root, "camera"));
  ReadParams(io::Member(root, "params"), effect, &request);
  ReadCustomValues(root, &request);
  return request;
}

}  // namespace vantle::scene
