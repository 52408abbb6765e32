// The rasteriser, and whole frames.
#include "bench/measure/works.h"
#include "render/rasteriser.h"
#include "tests/reference/product.h"

#include <stdexcept>

namespace vantle::measure {
namespace {

struct Raster {
  std::shared_ptr<Scene> scene;
  std::vector<reference::Particle> particles;
  ParticleList list;
  reference::Picture plain, product;
};

std::shared_ptr<Raster> MakeRaster(const std::shared_ptr<Scene>& scene) {
  auto raster = std::make_shared<Raster>();
  raster->scene = scene;
  raster->plain = raster->product = reference::MakePicture(scene->output);
  return raster;
}

/// A comparison of unequal work would be worth nothing.
void RequireSamePicture(const Raster& raster, const std::string& name) {
  const std::string difference = FirstDifference(raster.plain, raster.product);
  if (!difference.empty()) throw std::runtime_error(name + " differs from the plain road: " + difference);
}

std::shared_ptr<Scene> MakeSharedScene(bool isHeavy, PixelDepth depth) {
  auto scene = std::make_shared<Scene>();
  (isHeavy ? MakeHeavyScene : MakeDefaultScene)(1920, 1080, depth, scene.get());
  return scene;
}

}  // namespace

void AddRasterWork(const std::shared_ptr<Scene>& scene, const Work& described, std::vector<Work>* works) {
  const std::shared_ptr<Raster> raster = MakeRaster(scene);
  raster->particles = Simulate(scene->frame);
  raster->list = SimulateFrame(scene->frame);
  Work work = described;
  work.isThreaded = true;
  work.plain = [raster] { Rasterise(raster->scene->frame, raster->particles, MutableOf(raster->plain)); };
  work.product = [raster] {
    RenderParticlesCpu(MutableOf(raster->product), raster->list.particles.data(), raster->list.count,
                       raster->list.curvePoints, raster->scene->frame.settings, nullptr, 0);
  };
  work.plain();
  work.product();
  RequireSamePicture(*raster, work.name);
  works->push_back(work);
}

void AddFrameWork(const std::shared_ptr<Scene>& scene, const Work& described, std::vector<Work>* works) {
  const std::shared_ptr<Raster> raster = MakeRaster(scene);
  Work work = described;
  work.isThreaded = true;
  work.plain = [raster] { Render(raster->scene->frame, MutableOf(raster->plain)); };
  work.product = [raster] { RenderFrame(raster->scene->frame, &raster->product); };
  work.plain();
  work.product();
  RequireSamePicture(*raster, work.name);
  works->push_back(work);
}

std::vector<Work> MakeWorks() {
  std::vector<Work> works;
  const auto described = [](const char* name, double goal, double goalAvx2) {
    Work work;
    work.name = name;
    work.goalAvx512 = goal;
    work.goalAvx2 = goalAvx2;
    return work;
  };
  const auto light8 = MakeSharedScene(false, PixelDepth::k8),
             light32 = MakeSharedScene(false, PixelDepth::k32);
  const auto heavy8 = MakeSharedScene(true, PixelDepth::k8), heavy32 = MakeSharedScene(true, PixelDepth::k32);
  AddLayerWorks(light8, &works);
  AddParticleWorks(light8, &works);
  AddRasterWork(light8, described("raster, default, 8 bit", 8.0, 5.5), &works);
  AddRasterWork(light32, described("raster, default, float", 5.0, 5.0), &works);
  AddRasterWork(heavy8, described("raster, heavy, 8 bit", 13.0, 7.0), &works);
  AddRasterWork(heavy32, described("raster, heavy, float", 11.0, 8.0), &works);
  AddFrameWork(light8, described("default frame, 8 bit", 15.0, 15.0), &works);
  AddFrameWork(light32, described("default frame, float", 0.0, 0.0), &works);
  AddFrameWork(heavy8, described("heavy frame, 8 bit", 12.0, 7.0), &works);
  AddFrameWork(heavy32, described("heavy frame, float", 0.0, 0.0), &works);
  return works;
}

}  // namespace vantle::measure
