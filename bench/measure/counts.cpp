// Small work for each stage, one after the other inside a function that an instruction counter knows by name.
// Counts do not depend on what else the machine does, so they make good bars against slow changes.
#include "bench/measure/measurements.h"
#include "bench/measure/scenes.h"
#include "particles/emission.h"
#include "particles/simulation.h"
#include "particles/solid_plane.h"
#include "render/rasteriser.h"
#include "render/solid_layer.h"

#include <cstring>
#include <functional>
#include <stdexcept>

/// The counter adds up what happens inside and writes it down at the end of each call.
extern "C" void VantleCountedWork(const std::function<void()>& work) {
  work();
}

namespace vantle::measure {
namespace {

constexpr int32_t kWidth = 480, kHeight = 270;
constexpr int32_t kParticles = 2000;

void Count(const std::string& name, const std::function<void()>& work, Report* report) {
  // Through a pointer that may change, so that the call stays one.
  void (*volatile counted)(const std::function<void()>&) = VantleCountedWork;
  work();
  counted(work);
  report->records.push_back(Record{}.Add("stage", name));
}

void CountLayers(const char* name, PixelDepth depth, float variation, int32_t by, Report* report) {
  Scene scene;
  MakeDefaultScene(kWidth, kHeight, depth, &scene);
  FrameSettings& s = scene.frame.settings;
  s.variationA = s.variationB = variation;
  s.variationABy = s.variationBBy = by;
  Count(
      name, [&] { BuildEmission(scene.frame.layerA, scene.frame.layerB, scene.frame.input, s); }, report);
}

using Change = std::function<void(FrameSettings*)>;

void CountSimulation(const char* name, const CameraData& camera, const Change& change, Report* report) {
  Scene scene;
  MakeDefaultScene(kWidth, kHeight, PixelDepth::k8, &scene);
  FrameSettings& s = scene.frame.settings;
  s.density = kParticles;
  change(&s);
  const Emission emission = BuildEmission(scene.frame.layerA, scene.frame.layerB, scene.frame.input, s);
  Count(
      name, [&] { SimulateParticles(emission, s, camera); }, report);
}

void CountSimulations(Report* report) {
  const auto turbulence = [](int32_t type) {
    return [type](FrameSettings* s) {
      s->turbulenceType = type;
      s->turbulenceAmount = 0.1f;
    };
  };
  CountSimulation(
      "simulation, default controls", {}, [](FrameSettings*) {}, report);
  CountSimulation("simulation, all controls", {}, UseAllControls, report);
  CountSimulation("simulation, curl", {}, turbulence(1), report);
  CountSimulation("simulation, gradient flow", {}, turbulence(2), report);
  CountSimulation("simulation, ridged", {}, turbulence(3), report);
  CountSimulation(
      "simulation, camera", FrontCamera(), [](FrameSettings*) {}, report);
  CountSimulation(
      "simulation, trails", {}, [](FrameSettings* s) { s->shape = SHAPE_CURVE_LINE; }, report);
}

void CountSort(Report* report) {
  Scene scene;
  MakeDefaultScene(kWidth, kHeight, PixelDepth::k8, &scene);
  FrameSettings& s = scene.frame.settings;
  s.density = 20000;
  const Emission emission = BuildEmission(scene.frame.layerA, scene.frame.layerB, scene.frame.input, s);
  const ParticleList shuffled = SimulateParticles(emission, s, {});
  ParticleList list;
  list.count = shuffled.count;
  list.particles.Reset(list.count);
  Count(
      "sort",
      [&] {
        std::memcpy(list.particles.data(), shuffled.particles.data(), list.count * sizeof(ProjectedParticle));
        SortBackToFront(&list);
      },
      report);
}

void CountRaster(const ShapeVariant& variant, PixelDepth depth, int32_t mode, const std::string& name,
                 Report* report) {
  Stamps stamps;
  MakeStamps(variant, 300, 10.0f, depth, kWidth, kHeight, &stamps);
  stamps.frame.settings.transferMode = mode;
  reference::Picture picture = reference::MakePicture({.width = kWidth, .height = kHeight, .depth = depth});
  Count(
      name,
      [&] {
        RenderParticlesCpu(MutableOf(picture), stamps.list.particles.data(), stamps.list.count,
                           stamps.list.curvePoints, stamps.frame.settings, stamps.frame.sprites.data(), 1);
      },
      report);
}

void CountRasters(Report* report) {
  const ShapeVariant& softCircle = ShapeVariants()[0];
  for (const ShapeVariant& variant : ShapeVariants())
    CountRaster(variant, PixelDepth::k8, BLEND_NORMAL, "raster, " + variant.name, report);
  CountRaster(softCircle, PixelDepth::k16, BLEND_NORMAL, "raster, 16 bit", report);
  CountRaster(softCircle, PixelDepth::k32, BLEND_NORMAL, "raster, float", report);
  for (int32_t mode = BLEND_ADD; mode <= BLEND_COLOR_BURN; ++mode)
    CountRaster(softCircle, PixelDepth::k8, mode, "raster, mode " + std::to_string(mode), report);
}

void CountWarp(PixelDepth depth, const char* name, Report* report) {
  Scene scene;
  MakeDefaultScene(kWidth, kHeight, depth, &scene);
  FrameSettings& s = scene.frame.settings;
  s.planeA.rotation[1] = 30.0f;
  s.planeA.rotation[2] = 10.0f;
  SolidPlacement placement;
  if (!PlaceSolidLayer(s, {}, s.planeA, kWidth, kHeight, &placement))
    throw std::runtime_error("the plane of the warp cannot be seen");
  reference::Picture picture = reference::MakePicture({.width = kWidth, .height = kHeight, .depth = depth});
  Count(
      name, [&] { DrawSolidLayer(MutableOf(picture), scene.frame.layerA, placement, 0.7f); }, report);
}

}  // namespace

Report RunCountedWorks() {
  if (BestInstructionLevel() < InstructionLevel::kAvx2)
    throw std::runtime_error("not counted: this processor has no AVX2, for which the figures are kept");
  SetRoad(InstructionLevel::kAvx2, 1);
  Report report{"counts", {}};
  CountLayers("layers, 8 bit", PixelDepth::k8, 0.0f, 1, &report);
  CountLayers("layers, 16 bit", PixelDepth::k16, 0.0f, 1, &report);
  CountLayers("layers, float", PixelDepth::k32, 0.0f, 1, &report);
  CountLayers("layers, by brightness", PixelDepth::k8, 0.7f, 1, &report);
  CountLayers("layers, by saturation", PixelDepth::k8, 0.7f, 2, &report);
  CountSimulations(&report);
  CountSort(&report);
  CountRasters(&report);
  CountWarp(PixelDepth::k8, "warp, 8 bit", &report);
  CountWarp(PixelDepth::k32, "warp, float", &report);
  return report;
}

}  // namespace vantle::measure
