#include "host/scene/scene_composition.h"

#include "host/composition/evaluation.h"
#include "host/io/failure.h"
#include "host/io/nearest.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace vantle::scene {
namespace {

using composition::LayerKind;

// Saturated: a duration that does not fit is longer than anybody waits.
int32_t Ticks(int64_t frames, int32_t perFrame) {
  return static_cast<int32_t>(std::min<int64_t>(frames * perFrame, std::numeric_limits<int32_t>::max()));
}

// Pictures and solids last as long as the composition, sequences as long as their pictures.
std::optional<composition::SourceItem> SourceOf(const Scene& scene, const StoredLayer& stored) {
  if (stored.fullSize.width == 0) return std::nullopt;
  composition::SourceItem item{stored.fullSize.width, stored.fullSize.height, 0, 1};
  FrameRate rate = scene.composition.frameRate;
  int64_t frames = scene.composition.frames;
  if (const auto* sequence = std::get_if<SequenceSource>(&stored.layer->source)) {
    rate = sequence->frameRate;
    frames = int64_t{stored.lastFrame} - stored.firstFrame + 1;
  }
  item.duration = Ticks(frames, rate.denominator);
  item.scale = static_cast<uint32_t>(rate.numerator);
  return item;
}

void PlaceStreams(const Placement& placement, composition::Layer* layer) {
  for (const auto& [stream, placed] : placement.streams) {
    composition::Property& property = layer->streams[static_cast<size_t>(stream)];
    if (placed.hasValue)
      property = placed.property;
    else
      property.expression = placed.property.expression;
  }
  // A camera that is not told where to focus does so at its image plane.
  if (layer->kind == LayerKind::kCamera && placement.streams.count(composition::kFocusDistance) == 0)
    layer->streams[composition::kFocusDistance] =
        composition::Constant(layer->streams[composition::kZoom].keys[0].value);
}

composition::Layer MakeSceneLayer(const Scene& scene, const Layer& from, const StoredLayer& stored,
                                  const composition::Composition& composition) {
  composition::Layer layer = composition::MakeLayer(composition, from.placement.kind, from.name);
  layer.threeD = from.placement.threeD;
  layer.twoNodes = from.placement.twoNodes;
  layer.source = SourceOf(scene, stored);
  if (layer.source)
    layer.streams[composition::kAnchorPoint] =
        composition::Constant({layer.source->width * 0.5, layer.source->height * 0.5, 0.0});
  PlaceStreams(from.placement, &layer);
  return layer;
}

int32_t FindParent(const Scene& scene, const composition::Composition& composition, size_t child) {
  const Placement& placement = scene.layers[child].placement;
  std::vector<std::string> names;
  for (size_t i = 0; i < composition.layers.size(); ++i) {
    if (i == child) continue;
    if (composition.layers[i].name == placement.parent) return composition.layers[i].id;
    names.push_back(composition.layers[i].name);
  }
  const std::vector<std::string> near = io::NearestNames(placement.parent, names, 1);
  throw io::Failure(io::kUnreadableInput, placement.place + ": there is no other layer named \"" +
                                              placement.parent + "\" to be its parent" +
                                              (near.empty() ? "" : "; did you mean \"" + near[0] + "\"?"));
}

void CheckAncestors(const Scene& scene, const composition::Composition& composition) {
  for (size_t i = 0; i < composition.layers.size(); ++i) {
    size_t steps = 0;
    for (const composition::Layer* at = &composition.layers[i]; at != nullptr && at->parent != 0; ++steps) {
      at = FindLayer(composition, at->parent);
      if (steps > composition.layers.size())
        throw io::Failure(
            io::kUnreadableInput,
            scene.layers[i].placement.place + ": the parents lead back to the layer itself: break the ring");
    }
  }
}

void ChooseLayers(const Effect& effect, composition::Composition* composition) {
  const auto choose = [&](int parameter, std::optional<int32_t> layer) {
    if (layer) composition->chosenLayers[parameter] = *layer + 1;
  };
  composition->effectLayer = effect.layer + 1;
  choose(kSourceLayerParam, effect.sourceIsOwnLayer ? effect.layer : effect.source);
  choose(kTargetLayerParam, effect.target);
  choose(kCustomLayerParam, effect.custom);
}

composition::Evaluation MakeEvaluation(const PreparedScene& prepared, const host::FrameTime& time) {
  composition::Evaluation evaluation;
  evaluation.composition = prepared.composition.get();
  evaluation.seconds = time.scale == 0 ? 0.0 : static_cast<double>(time.current) / time.scale;
  evaluation.reports = prepared.reports.get();
  return evaluation;
}

// As the user sees it.
double NumberOf(const host::DeclaredParam& param, const host::ParamValue& value) {
  if (const auto* number = std::get_if<double>(&value)) return *number;
  const auto whole = static_cast<double>(std::get<A_long>(value));
  return param.def.param_type == PF_Param_ANGLE ? whole / 65536.0 : whole;
}

host::ParamValue HandedNumber(const host::DeclaredParam& param, double number) {
  const Range range = ValidRange(param);
  const double held = std::clamp(number, range.lowest, range.highest);
  if (param.def.param_type == PF_Param_FLOAT_SLIDER) return held;
  if (param.def.param_type == PF_Param_ANGLE) return FixedDegrees(held);
  return static_cast<A_long>(std::floor(held));
}

void Apply(const PreparedScene& prepared, composition::Evaluation& evaluation, int index,
           host::FrameRequest* request) {
  const host::DeclaredParam& param = prepared.effect->params[static_cast<size_t>(index)];
  const auto given = request->values.find(index);
  const double own =
      given == request->values.end() ? DefaultKey(param).number : NumberOf(param, given->second);
  request->values[index] = HandedNumber(param, composition::EffectValue(evaluation, index, param.name, own));
}

}  // namespace

BoundKey DefaultKey(const host::DeclaredParam& param) {
  BoundKey key;
  switch (param.def.param_type) {
    case PF_Param_FLOAT_SLIDER:
      key.number = static_cast<double>(param.def.u.fs_d.dephault);
      break;
    case PF_Param_ANGLE:
      key.number = param.def.u.ad.dephault / 65536.0;
      break;
    case PF_Param_POPUP:
      key.number = param.def.u.pd.dephault;
      break;
    case PF_Param_CHECKBOX:
      key.number = param.def.u.bd.dephault;
      break;
    default:
      break;
  }
  return key;
}

std::shared_ptr<composition::Composition> MakeComposition(const Scene& scene, const LayerStore& store) {
  auto made = std::make_shared<composition::Composition>();
  const FrameRate rate = scene.composition.frameRate;
  made->width = scene.composition.width;
  made->height = scene.composition.height;
  made->frameDuration = static_cast<double>(rate.denominator) / rate.numerator;
  made->duration = static_cast<double>(scene.composition.frames) * rate.denominator / rate.numerator;
  for (size_t i = 0; i < scene.layers.size(); ++i) {
    composition::Layer layer = MakeSceneLayer(scene, scene.layers[i], store.layers[i], *made);
    layer.id = ++made->lastId;
    made->layers.push_back(std::move(layer));
  }
  for (size_t i = 0; i < scene.layers.size(); ++i)
    if (!scene.layers[i].placement.parent.empty()) made->layers[i].parent = FindParent(scene, *made, i);
  CheckAncestors(scene, *made);
  ChooseLayers(scene.effect, made.get());
  return made;
}

void ApplyExpressions(const PreparedScene& prepared, host::FrameRequest* request) {
  composition::Evaluation evaluation = MakeEvaluation(prepared, request->time);
  for (const auto& [index, expression] : prepared.composition->effectExpressions)
    if (expression.on) Apply(prepared, evaluation, index, request);
}

void CheckExpressions(const PreparedScene& prepared, int32_t frame) {
  host::FrameRequest request;
  request.time = TimeOfFrame(prepared.scene->composition, frame);
  ApplyExpressions(prepared, &request);
  composition::Evaluation evaluation = MakeEvaluation(prepared, request.time);
  for (const composition::Layer& layer : prepared.composition->layers)
    for (int i = 0; i < composition::kStreamCount; ++i)
      StreamValue(evaluation, layer, static_cast<composition::Stream>(i));
}

}  // namespace vantle::scene
