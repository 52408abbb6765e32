#include "host/cli/bench_stages.h"

#include "host/scene/layer_store.h"
#include "particles/emission.h"
#include "particles/simulation.h"
#include "render/rasteriser.h"

#include <algorithm>
#include <chrono>

namespace vantle::cli {
namespace {

template <class Work>
double Milliseconds(const Work& work) {
  const auto start = std::chrono::steady_clock::now();
  work();
  return std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - start).count();
}

}  // namespace

std::vector<std::pair<std::string, double>> TimeStages(const BenchScene& scene, int rounds) {
  std::vector<std::pair<std::string, double>> stages = {
      {"layers to weights", 1e9}, {"simulation and projection", 1e9}, {"sort", 1e9}, {"raster", 1e9}};
  host::World world = host::MakeWorld(scene.request.width, scene.request.height, 8);
  const MutableImage output{reinterpret_cast<std::byte*>(host::WorldRow(world, 0)), world.rowBytes,
                            world.width, world.height, PixelDepth::k8};
  const ImageView a = scene::ViewOf(*scene.layerA), b = scene::ViewOf(*scene.layerB);
  const ImageView sprite = scene.sprite != nullptr ? scene::ViewOf(*scene.sprite) : ImageView{};
  for (int round = 0; round < rounds; ++round) {
    Emission emission;
    ParticleList list;
    const double times[4] = {
        Milliseconds([&] { emission = BuildEmission(a, b, a, scene.settings); }),
        Milliseconds([&] { list = SimulateParticles(emission, scene.settings, scene.camera); }),
        Milliseconds([&] { SortBackToFront(&list); }), Milliseconds([&] {
          for (size_t i = 0; i < list.count; ++i) list.particles[i].spriteFrame = 0;
          RenderParticlesCpu(output, list.particles.data(), list.count, list.curvePoints, scene.settings,
                             &sprite, 1);
        })};
    for (size_t i = 0; i < 4; ++i) stages[i].second = std::min(stages[i].second, times[i]);
  }
  return stages;
}

}  // namespace vantle::cli
