#include "host/scene/scene_frame.h"

#include "host/io/failure.h"
#include "host/scene/scene_composition.h"

#include <exception>
#include <limits>

namespace vantle::scene {
namespace {

std::vector<bool> UsedLayers(const Scene& scene) {
  std::vector<bool> used(scene.layers.size(), false);
  used[static_cast<size_t>(scene.effect.layer)] = true;
  for (const std::optional<int32_t>& layer : {scene.effect.source, scene.effect.target, scene.effect.custom})
    if (layer) used[static_cast<size_t>(*layer)] = true;
  return used;
}

// Which layer a layer parameter shows, if any.
std::optional<int32_t> LayerOfParameter(const Effect& effect, int param) {
  switch (param) {
    case 0:
      return effect.layer;
    case kSourceLayerParam:
      return effect.sourceIsOwnLayer ? effect.layer : effect.source;
    case kTargetLayerParam:
      return effect.target;
    case kCustomLayerParam:
      return effect.custom;
    default:
      return std::nullopt;
  }
}

// Called from inside the effect: nothing may be thrown across it.
host::LayerFrame Answer(PreparedScene& prepared, int param, A_long time, A_u_long scale,
                        CheckoutFailure& failure) {
  try {
    const std::optional<int32_t> layer = LayerOfParameter(prepared.scene->effect, param);
    if (!layer) return {};
    return {PF_Err_NONE, LayerAt(prepared.store, static_cast<size_t>(*layer), time, scale)};
  } catch (const std::exception& error) {
    const std::lock_guard<std::mutex> lock(failure.mutex);
    if (failure.message.empty()) failure.message = error.what();
    return {PF_Err_INTERNAL_STRUCT_DAMAGED, nullptr};
  }
}

// Expressions give numbers, so gradients and curves have none.
composition::Expression TakeExpression(const Parameter& parameter, const BoundParameter& bound) {
  if (bound.type == PF_Param_ARBITRARY_DATA)
    throw io::Failure(io::kUnreadableInput,
                      parameter.place + ": gradients and curves take no expression: give a value");
  return parameter.expression;
}

}  // namespace

void PrepareScene(const Scene& scene, const std::vector<Parameter>& overrides, host::EffectInstance& effect,
                  const RenderOptions& options, PreparedScene* prepared, std::vector<std::string>* warnings) {
  prepared->scene = &scene;
  prepared->effect = &effect;
  prepared->options = options;
  std::map<int, composition::Expression> expressions;
  for (const Parameter& parameter : scene.effect.parameters) {
    BoundParameter bound = BindParameter(effect.params, parameter, warnings);
    if (!parameter.expression.text.empty()) expressions[bound.index] = TakeExpression(parameter, bound);
    if (bound.keys.empty()) bound.keys = {DefaultKey(effect.params[static_cast<size_t>(bound.index)])};
    if (!prepared->timeline.emplace(bound.index, bound).second)
      throw io::Failure(io::kUnreadableInput,
                        parameter.place + ": the parameter is given a value twice: keep one");
  }
  for (const Parameter& parameter : overrides) {
    try {
      BoundParameter bound = BindParameter(effect.params, parameter, warnings);
      expressions.erase(bound.index);
      prepared->timeline[bound.index] = std::move(bound);
    } catch (const io::Failure& failure) {
      throw io::Failure(io::kUsage, failure.what());
    }
  }
  prepared->store.depth = options.depth;
  prepared->store.divisor = options.divisor;
  OpenLayers(scene, UsedLayers(scene), &prepared->store);
  prepared->composition = MakeComposition(scene, prepared->store);
  prepared->composition->effectExpressions = std::move(expressions);
  prepared->reports = std::make_shared<composition::ExpressionReports>();
}

host::FrameTime TimeOfFrame(const Composition& composition, int32_t frame) {
  const FrameRate rate = composition.frameRate;
  const int64_t current = int64_t{frame} * rate.denominator,
                total = int64_t{composition.frames} * rate.denominator;
  constexpr int64_t kLimit = std::numeric_limits<A_long>::max();
  if (current > kLimit || current < -kLimit || total > kLimit)
    throw io::Failure(io::kUsage, "frame " + std::to_string(frame) + " lies too far out for the frame rate " +
                                      std::to_string(rate.numerator) + "/" +
                                      std::to_string(rate.denominator));
  return {static_cast<A_long>(current), rate.denominator, static_cast<A_u_long>(rate.numerator),
          static_cast<A_long>(total)};
}

host::FrameRequest RequestFrame(PreparedScene& prepared, int32_t frame,
                                const std::shared_ptr<CheckoutFailure>& failure) {
  const Scene& scene = *prepared.scene;
  const int32_t divisor = prepared.options.divisor;
  host::FrameRequest request;
  request.width = (scene.composition.width + divisor - 1) / divisor;
  request.height = (scene.composition.height + divisor - 1) / divisor;
  request.depth = prepared.options.depth == PixelDepth::k8    ? 8
                  : prepared.options.depth == PixelDepth::k16 ? 16
                                                              : 32;
  request.time = TimeOfFrame(scene.composition, frame);
  request.downsampleX = request.downsampleY = {1, static_cast<A_u_long>(divisor)};

  const auto own = static_cast<size_t>(scene.effect.layer);
  request.fullWidth = prepared.store.layers[own].fullSize.width;
  request.fullHeight = prepared.store.layers[own].fullSize.height;
  request.input = LayerAt(prepared.store, own, request.time.current, request.time.scale);
  request.layers = [&prepared, failure](int param, A_long time, A_long, A_u_long scale) {
    return Answer(prepared, param, time, scale, *failure);
  };
  for (const auto& [index, parameter] : prepared.timeline)
    request.values[index] = ValueAt(*prepared.effect, parameter, frame);
  request.composition = prepared.composition;
  request.reports = prepared.reports;
  ApplyExpressions(prepared, &request);
  return request;
}

}  // namespace vantle::scene
