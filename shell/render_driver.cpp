#include "base/floating_environment.h"
#include "particles/emission.h"
#include "particles/simulation.h"
#include "particles/solid_plane.h"
#include "render/graphics/draw_particles_gpu.h"
#include "render/graphics/gpu_renderer.h"
#include "render/rasteriser.h"
#include "render/solid_layer.h"
#include "shell/camera_reader.h"
#include "shell/command_handlers.h"
#include "shell/frame_threads.h"
#include "shell/layer_checkout.h"
#include "shell/parameter_ids.h"
#include "shell/pixel_format.h"
#include "shell/settings_reader.h"
#include "shell/sprite_frames.h"

#include <optional>

namespace vantle {
namespace {

// The effect's own layer, as the layers below it in the stack of effects left it.
ImageView InputLayer(const PF_InData& in_data, PF_ParamDef* const* params, PixelDepth depth) {
  const bool given = params != nullptr && in_data.num_params > 0 && params[kParamInput] != nullptr;
  return given ? ViewWorld(params[kParamInput]->u.ld, depth) : ImageView{};
}

// The layers stay checked out until every particle has picked its pixels; those are read in place.
ParticleList RunParticles(const PF_InData& in_data, PF_ParamDef* const* params, const FrameSettings& settings,
                          const CameraData& camera, PixelDepth depth) {
  LayerCheckouts layers(in_data, 2);
  const ImageView layerA = layers.CheckOut(kParamSourceLayerA, in_data.current_time, depth);
  const ImageView layerB = layers.CheckOut(kParamTargetLayerB, in_data.current_time, depth);
  const ImageView input = InputLayer(in_data, params, depth);
  const Emission emission = BuildEmission(layerA, layerB, input, settings);
  return SimulateParticles(emission, settings, camera);
}

// One layer as a flat image on its plane. The layer of the control is meant, and no other stands in for it.
void DrawSolid(const PF_InData& in_data, const FrameSettings& settings, const CameraData& camera,
               PF_ParamIndex layerControl, const PlaneSettings& plane, float weight,
               const MutableImage& output) {
  constexpr float kFaintest = 0.001f;
  if (!(weight > kFaintest)) return;
  LayerCheckouts layers(in_data, 1);
  const ImageView layer = layers.CheckOut(layerControl, in_data.current_time, output.depth);
  SolidPlacement placement;
  if (!PlaceSolidLayer(settings, camera, plane, layer.width, layer.height, &placement)) return;
  DrawSolidLayer(output, layer, placement, weight);
}

void DrawSolids(const PF_InData& in_data, const FrameSettings& settings, const CameraData& camera,
                const MutableImage& output) {
  const SolidWeights weights = WeighSolids(settings);
  DrawSolid(in_data, settings, camera, kParamSourceLayerA, settings.planeA, weights.a, output);
  DrawSolid(in_data, settings, camera, kParamTargetLayerB, settings.planeB, weights.b, output);
}

}  // namespace

PF_Err RenderFrame(const PF_InData* in_data, PF_ParamDef* const* params, const PF_LayerDef* output) {
  if (in_data == nullptr || output == nullptr) return PF_Err_NONE;
  const ScopedFloatingEnvironment environment;
  const ScopedFrameThreads threads;

  // Read the frame's parameters, clock and sizes.
  const FrameSettings settings = ReadFrameSettings(*in_data, params, *output);

  // Look at the output; a world without pixels asks for nothing.
  const PixelDepth depth = QueryPixelDepth(*in_data, *output);
  const MutableImage image = ViewOutput(*output, depth);
  if (image.data == nullptr) return PF_Err_NONE;

  // Ask for the composition's camera.
  const CameraData camera = ReadCamera(*in_data, settings);

  // Simulate and project the particles.
  ParticleList list = RunParticles(*in_data, params, settings, camera, depth);

  // Order them, farthest first, in the preview's pixels. The host was called meanwhile: start afresh.
  const ScopedFloatingEnvironment ours;
  SortBackToFront(&list);
  ScaleToPreview(settings, &list);

  // Borrow the custom layer's frames that the particles wear; they go back when the picture is done.
  std::optional<SpriteFrames> sprites;
  if (settings.shape == SHAPE_LAYER) sprites.emplace(*in_data, depth).Assign(settings, &list);

  // Draw the particles: on the graphics processor where there is one, else, and whenever it fails, here.
  const bool drawn = IsGpuShape(settings.shape) && IsGpuUsable() &&
                     DrawParticlesGpu(image, list.particles.data(), list.count, settings);
  if (!drawn) {
    RenderParticlesCpu(image, list.particles.data(), list.count, list.curvePoints, settings,
                       sprites ? sprites->images() : nullptr, sprites ? sprites->count() : 0);
  }

  // Lay the layers themselves over them, near the ends of the transition.
  DrawSolids(*in_data, settings, camera, image);
  return PF_Err_NONE;
}

}  // namespace vantle
