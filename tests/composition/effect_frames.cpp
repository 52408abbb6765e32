#include "tests/composition/effect_frames.h"

#include "host/composition/evaluation.h"
#include "host_api/call_records.h"

#include <algorithm>
#include <cmath>

namespace vantle::host {

std::shared_ptr<composition::Composition> CompositionAround(const FrameRequest& request, int spriteFrames) {
  auto made = std::make_shared<composition::Composition>();
  made->width = request.width;
  made->height = request.height;
  made->duration = 2.0;
  made->frameDuration = 1.0 / 24;
  composition::Layer sprite = MakeLayer(*made, composition::LayerKind::kPicture, "sprite");
  sprite.source = composition::SourceItem{4, 4, spriteFrames, 24};
  made->chosenLayers[kSpriteLayerParam] = AddOnTop(*made, sprite);
  composition::Layer picture = MakeLayer(*made, composition::LayerKind::kPicture, "picture");
  picture.source = composition::SourceItem{request.width, request.height, 48, 24};
  made->effectLayer = AddOnTop(*made, picture);
  return made;
}

int32_t AddCamera(composition::Composition& composition, double zoom) {
  composition::Layer camera = MakeLayer(composition, composition::LayerKind::kCamera, "camera");
  camera.streams[composition::kZoom] = composition::Constant({zoom, 0, 0});
  camera.streams[composition::kPosition] =
      composition::Constant({composition.width * 0.5, composition.height * 0.5, -zoom});
  return AddOnTop(composition, camera);
}

FrameResult PressNulls(EffectInstance& effect, const FrameRequest& request) {
  PF_UserChangedParamExtra change{};
  change.param_index = kControlNullsParam;
  return SendFrameCommand(effect, PF_Cmd_USER_CHANGED_PARAM, request, nullptr, &change);
}

FrameRequest WithExpressions(const EffectInstance& effect, FrameRequest request) {
  composition::Evaluation evaluation;
  evaluation.composition = request.composition.get();
  for (const auto& [index, expression] : request.composition->effectExpressions) {
    if (!expression.on) continue;
    const DeclaredParam& param = effect.params[static_cast<std::size_t>(index)];
    const double value = composition::EffectValue(evaluation, index, param.name, 0.0);
    if (param.def.param_type == PF_Param_ANGLE)
      request.values[index] = static_cast<A_long>(value * 65536.0);
    else
      request.values[index] = value;
  }
  return request;
}

double GreatestDifference(const World& a, const World& b) {
  double greatest = 0.0;
  for (int y = 0; y < a.height; ++y) {
    for (int x = 0; x < a.width; ++x) {
      const PF_PixelFloat p = ReadPixel(a, x, y), q = ReadPixel(b, x, y);
      for (const float difference : {p.alpha - q.alpha, p.red - q.red, p.green - q.green, p.blue - q.blue})
        greatest = std::max(greatest, std::fabs(static_cast<double>(difference)) * 255.0);
    }
  }
  return greatest;
}

Centroid CentroidOf(const World& world) {
  Centroid sum;
  for (int y = 0; y < world.height; ++y) {
    for (int x = 0; x < world.width; ++x) {
      const double alpha = static_cast<double>(ReadPixel(world, x, y).alpha);
      sum.x += x * alpha;
      sum.y += y * alpha;
      sum.weight += alpha;
    }
  }
  if (sum.weight == 0.0) return {world.width * 0.5, world.height * 0.5, 0.0};
  return {sum.x / sum.weight, sum.y / sum.weight, sum.weight};
}

}  // namespace vantle::host
