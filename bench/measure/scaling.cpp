// How the time grows with the number of particles, their size, the layers and the threads. What the work is,
// by which growth is judged, stands beside each time.
#include "bench/measure/measurements.h"
#include "bench/measure/scenes.h"
#include "particles/emission.h"
#include "render/rasteriser.h"

#include <algorithm>
#include <functional>
#include <memory>
#include <omp.h>
#include <string>

namespace vantle::measure {
namespace {

constexpr int32_t kWidth = 1920, kHeight = 1080;
constexpr int32_t kCounts[] = {100, 300, 1000, 3000, 10000, 20000, 50000, 100000, 200000};
constexpr float kSizes[] = {0.5f, 1.0f, 2.0f, 4.0f, 8.0f, 16.0f, 32.0f, 64.0f, 100.0f};
constexpr int32_t kLayerWidths[] = {256, 512, 1024, 1536, 1920, 2048, 3072, 4096, 6144, 8192};
constexpr int kThreads[] = {1, 2, 3, 4, 8};

struct Point {
  std::string series;
  double x;
  double work;
  int threads;
  std::function<void()> run;
  std::vector<double> nanoseconds;
};

using SharedScene = std::shared_ptr<Scene>;

SharedScene DefaultScene() {
  auto scene = std::make_shared<Scene>();
  MakeDefaultScene(kWidth, kHeight, PixelDepth::k8, scene.get());
  return scene;
}

/// Particles alone, and the whole frame with them.
void AddCounts(const SharedScene& scene, std::vector<Point>* points) {
  const auto output = std::make_shared<reference::Picture>(reference::MakePicture(scene->output));
  const auto emission = std::make_shared<Emission>(
      BuildEmission(scene->frame.layerA, scene->frame.layerB, scene->frame.input, scene->frame.settings));
  for (int32_t count : kCounts) {
    reference::FrameInput frame = scene->frame;
    frame.settings.density = count;
    const double work = count;
    points->push_back({"particles: simulation and sort",
                       work,
                       work,
                       1,
                       [scene, emission, frame] {
                         ParticleList list = SimulateParticles(*emission, frame.settings, frame.camera);
                         SortBackToFront(&list);
                       },
                       {}});
    points->push_back({"particles: whole frame",
                       work,
                       work,
                       1,
                       [scene, output, frame] { RenderFrame(frame, output.get()); },
                       {}});
  }
}

/// Pixels that lie in the discs of the particles, as far as they lie in the picture.
double PixelsOfDiscs(const ParticleList& list) {
  double pixels = 0.0;
  for (size_t i = 0; i < list.count; ++i) {
    const ProjectedParticle& p = list.particles[i];
    const float width = std::min(p.sx + p.size, float{kWidth}) - std::max(p.sx - p.size, 0.0f);
    const float height = std::min(p.sy + p.size, float{kHeight}) - std::max(p.sy - p.size, 0.0f);
    pixels += 0.785 * static_cast<double>(std::max(width, 0.0f) * std::max(height, 0.0f));
  }
  return pixels;
}

void AddSizes(const SharedScene& scene, std::vector<Point>* points) {
  const auto output = std::make_shared<reference::Picture>(reference::MakePicture(scene->output));
  for (float size : kSizes) {
    FrameSettings settings = scene->frame.settings;
    settings.size = size;
    reference::FrameInput frame = scene->frame;
    frame.settings = settings;
    const auto list = std::make_shared<ParticleList>(SimulateFrame(frame));
    points->push_back({"size: raster",
                       static_cast<double>(size),
                       PixelsOfDiscs(*list),
                       1,
                       [output, list, settings] {
                         RenderParticlesCpu(MutableOf(*output), list->particles.data(), list->count,
                                            list->curvePoints, settings, nullptr, 0);
                       },
                       {}});
  }
}

void AddLayers(const FrameSettings& settings, std::vector<Point>* points) {
  for (int32_t width : kLayerWidths) {
    const int32_t height = width * 9 / 16;
    const auto a = std::make_shared<reference::Picture>(NoiseLayer(width, height, PixelDepth::k8, false));
    const auto b = std::make_shared<reference::Picture>(NoiseLayer(width, height, PixelDepth::k8, true));
    points->push_back({"layers: weights",
                       static_cast<double>(width),
                       2.0 * width * height,
                       1,
                       [settings, a, b] { BuildEmission(ViewOf(*a), ViewOf(*b), ViewOf(*a), settings); },
                       {}});
  }
}

void AddThreads(const char* series, const SharedScene& scene, std::vector<Point>* points) {
  const auto output = std::make_shared<reference::Picture>(reference::MakePicture(scene->output));
  for (int threads : kThreads) {
    points->push_back({series,
                       static_cast<double>(threads),
                       1.0 / std::min(threads, omp_get_num_procs()),
                       threads,
                       [scene, output] { RenderFrame(scene->frame, output.get()); },
                       {}});
  }
}

std::vector<Point> MakePoints() {
  const SharedScene scene = DefaultScene();
  const auto heavy = std::make_shared<Scene>();
  MakeHeavyScene(kWidth, kHeight, PixelDepth::k8, heavy.get());
  std::vector<Point> points;
  AddCounts(scene, &points);
  AddSizes(scene, &points);
  AddLayers(scene->frame.settings, &points);
  AddThreads("threads: default frame", scene, &points);
  AddThreads("threads: heavy frame", heavy, &points);
  return points;
}

}  // namespace

Report MeasureScaling(const Effort& effort) {
  Tell("scaling: making the frames");
  std::vector<Point> points = MakePoints();
  const double start = Now();
  double lastRound = 0.0;
  for (int round = 0; round < effort.leastRounds || Now() - start + lastRound < effort.seconds; ++round) {
    Tell("scaling: round " + std::to_string(round + 1));
    const double began = Now();
    for (Point& point : points) {
      SetRoad(BestInstructionLevel(), point.threads);
      point.nanoseconds.push_back(TimeOf(point.run));
    }
    lastRound = Now() - began;
  }
  Report report{"scaling", {}};
  for (const Point& point : points) {
    Record record;
    record.Add("series", point.series)
        .Add("x", point.x)
        .Add("work", point.work)
        .Add("threads", point.threads);
    report.records.push_back(
        record.Add("least_ns", Least(point.nanoseconds)).Add("median_ns", Median(point.nanoseconds)));
  }
  return report;
}

}  // namespace vantle::measure
