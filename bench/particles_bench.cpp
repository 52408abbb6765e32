// The stages from layers to a sorted list of particles. Items are pixels for the layers, picks, particles and
// records for the rest; the default frame has 20,000 particles on two layers of 1920x1080.

#include "base/elementary.h"
#include "base/pixels.h"
#include "particles/appearance.h"
#include "particles/emission.h"
#include "particles/emitter_pick.h"
#include "particles/motion.h"
#include "particles/particle_streams.h"
#include "particles/projection.h"
#include "particles/simulation.h"
#include "particles/turbulence.h"

#include <benchmark/benchmark.h>
#include <cmath>
#include <cstring>
#include <random>
#include <vector>

#ifndef VANTLE_STD_THREADS
#include <omp.h>
#endif

namespace vantle {
namespace {

constexpr int32_t kWidth = 1920, kHeight = 1080;

struct Layer {
  std::vector<std::byte> bytes;
  ImageView view;
};

/// An opaque layer, or one whose alpha falls off towards the edges.
template <class Format>
Layer MakeLayer(bool feathered) {
  Layer layer;
  const size_t rowBytes = kWidth * kPixelBytes<Format>;
  layer.bytes.resize(rowBytes * kHeight);
  layer.view = {layer.bytes.data(), static_cast<int64_t>(rowBytes), kWidth, kHeight, Format::kDepth};
  std::mt19937 random(1);
  std::uniform_real_distribution<float> unit(0.0f, 1.0f);
  for (int32_t y = 0; y < kHeight; ++y) {
    for (int32_t x = 0; x < kWidth; ++x) {
      const float dx = static_cast<float>(x) / kWidth - 0.5f, dy = static_cast<float>(y) / kHeight - 0.5f;
      const float a = feathered ? std::max(0.0f, 1.2f - 2.0f * std::sqrt(dx * dx + dy * dy)) : 1.0f;
      std::byte* at = layer.bytes.data() + static_cast<size_t>(y) * rowBytes +
                      static_cast<size_t>(x) * kPixelBytes<Format>;
      StorePixel<Format>(at, {a, unit(random), unit(random), unit(random)});
    }
  }
  return layer;
}

const Layer& Opaque() {
  static const Layer layer = MakeLayer<Format8>(false);
  return layer;
}

const Layer& Feathered() {
  static const Layer layer = MakeLayer<Format8>(true);
  return layer;
}

FrameSettings DefaultSettings() {
  FrameSettings s{};
  s.transform = 0.5f;
  s.fade = 0.1f;
  s.staggerBy = s.staggerFrom = s.variationABy = s.variationBBy = 1;
  s.density = 20000;
  s.planeA.scale[0] = s.planeA.scale[1] = s.planeB.scale[0] = s.planeB.scale[1] = 1.0f;
  s.turbulenceType = 1;
  s.turbulenceScale = 5.0f;
  s.size = 4.0f;
  s.sizeVariation = 0.2f;
  s.shape = SHAPE_SOFT_CIRCLE;
  s.lineWidth = 1.0f;
  s.timeType = s.transferMode = 1;
  s.colorMode = 2;
  MakeDefaultGradient(&s.colorGradient);
  s.opacity = 0.8f;
  MakeDefaultLifeCurve(&s.opacityOverLife, 1.0f);
  MakeDefaultLifeCurve(&s.scaleOverLife, 2.0f);
  s.outputWidth = s.fullWidth = kWidth;
  s.outputHeight = s.fullHeight = kHeight;
  s.downsampleX = s.downsampleY = 1.0f;
  s.timeSeconds = 1.0f;
  return s;
}

FrameSettings FullSettings() {
  FrameSettings s = DefaultSettings();
  s.stagger = 0.5f;
  s.scatter = 0.2f;
  s.swirlAngle = 90.0f;
  s.hueVariation = 0.2f;
  s.autoOrient = true;
  return s;
}

void SetItems(benchmark::State& state, int64_t items) {
  state.counters["ns_per_item"] =
      benchmark::Counter(static_cast<double>(items) * 1e-9,
                         benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert);
}

void OneThread() {
#ifndef VANTLE_STD_THREADS
  omp_set_num_threads(1);
#endif
}

// ---- Layers and picks ----

void WeighTwoLayers(benchmark::State& state, const ImageView& a, const ImageView& b, float variation) {
  FrameSettings s = DefaultSettings();
  s.variationA = s.variationB = variation;
  for (auto _ : state) benchmark::DoNotOptimize(BuildEmission(a, b, {}, s).source.total);
  SetItems(state, int64_t{2} * kWidth * kHeight);
}

void BM_LayersDefault(benchmark::State& state) {
  WeighTwoLayers(state, Opaque().view, Feathered().view, 0.0f);
}
void BM_LayersOpaque(benchmark::State& state) {
  WeighTwoLayers(state, Opaque().view, Opaque().view, 0.0f);
}
void BM_LayersFeathered(benchmark::State& state) {
  WeighTwoLayers(state, Feathered().view, Feathered().view, 0.0f);
}
void BM_LayersByBrightness(benchmark::State& state) {
  WeighTwoLayers(state, Opaque().view, Feathered().view, 0.7f);
}
void BM_LayersBySaturation(benchmark::State& state) {
  FrameSettings s = DefaultSettings();
  s.variationA = s.variationB = 0.7f;
  s.variationABy = s.variationBBy = 2;
  for (auto _ : state)
    benchmark::DoNotOptimize(BuildEmission(Opaque().view, Feathered().view, {}, s).source.total);
  SetItems(state, int64_t{2} * kWidth * kHeight);
}
void BM_Layers16Bit(benchmark::State& state) {
  static const Layer a = MakeLayer<Format16>(false), b = MakeLayer<Format16>(true);
  WeighTwoLayers(state, a.view, b.view, 0.0f);
}
void BM_LayersFloat(benchmark::State& state) {
  static const Layer a = MakeLayer<Format32>(false), b = MakeLayer<Format32>(true);
  WeighTwoLayers(state, a.view, b.view, 0.0f);
}
BENCHMARK(BM_LayersDefault)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_LayersOpaque)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_LayersFeathered)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_LayersByBrightness)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_LayersBySaturation)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_Layers16Bit)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_LayersFloat)->Unit(benchmark::kMillisecond);

void Pick(benchmark::State& state, const ImageView& layer) {
  const Emission emission = BuildEmission(layer, {}, {}, DefaultSettings());
  std::vector<uint32_t> keys(20000 / kLanes * kLanes);
  for (size_t i = 0; i < keys.size(); ++i) keys[i] = KeysOfParticle(1, static_cast<uint32_t>(i)).source;
  size_t at = 0;
  int64_t pixels[kLanes];
  for (auto _ : state) {
    PickPixels(emission.source, &keys[at], pixels);
    benchmark::DoNotOptimize(pixels);
    at = at + kLanes < keys.size() ? at + kLanes : 0;
  }
  SetItems(state, kLanes);
}
void BM_PickOpaque(benchmark::State& state) {
  Pick(state, Opaque().view);
}
void BM_PickFeathered(benchmark::State& state) {
  Pick(state, Feathered().view);
}
BENCHMARK(BM_PickOpaque);
BENCHMARK(BM_PickFeathered);

// ---- Particles ----

void BM_TurbulenceField(benchmark::State& state) {
  FrameSettings s = DefaultSettings();
  s.turbulenceAmount = 0.1f;
  s.turbulenceType = static_cast<int32_t>(state.range(0));
  const TurbulenceField field = MakeTurbulenceField(s);
  float x[kLanes], y[kLanes];
  for (int32_t l = 0; l < kLanes; ++l) {
    x[l] = 97.3f * static_cast<float>(l);
    y[l] = 61.7f * static_cast<float>(l);
  }
  VectorLanes d;
  for (auto _ : state) {
    EvaluateTurbulence(field, x, y, &d);
    benchmark::DoNotOptimize(d);
    x[0] += 1.0f;
  }
  SetItems(state, kLanes);
}
BENCHMARK(BM_TurbulenceField)->Arg(1)->Arg(2)->Arg(3);

void SimulateFrame(benchmark::State& state, const FrameSettings& s, const CameraData& camera = {}) {
  OneThread();
  const Emission emission = BuildEmission(Opaque().view, Feathered().view, {}, s);
  for (auto _ : state) benchmark::DoNotOptimize(SimulateParticles(emission, s, camera).count);
  SetItems(state, s.density);
}

void BM_SimulateDefault(benchmark::State& state) {
  SimulateFrame(state, DefaultSettings());
}
void BM_SimulateFull(benchmark::State& state) {
  SimulateFrame(state, FullSettings());
}
void BM_SimulateTurbulence(benchmark::State& state) {
  FrameSettings s = DefaultSettings();
  s.turbulenceAmount = 0.1f;
  SimulateFrame(state, s);
}
void BM_SimulateCamera(benchmark::State& state) {
  CameraData camera;
  camera.hasCamera = true;
  camera.viewMatrix[14] = 1500.0;
  camera.imagePlaneDistance = 1500.0;
  SimulateFrame(state, DefaultSettings(), camera);
}
void BM_SimulateTrails(benchmark::State& state) {
  FrameSettings s = FullSettings();
  s.shape = SHAPE_CURVE_LINE;
  SimulateFrame(state, s);
}
void BM_SimulateHeavy(benchmark::State& state) {
  FrameSettings s = DefaultSettings();
  s.density = 200000;
  s.turbulenceAmount = 0.1f;
  SimulateFrame(state, s);
}
BENCHMARK(BM_SimulateDefault);
BENCHMARK(BM_SimulateFull);
BENCHMARK(BM_SimulateTurbulence);
BENCHMARK(BM_SimulateCamera);
BENCHMARK(BM_SimulateTrails);
BENCHMARK(BM_SimulateHeavy)->Unit(benchmark::kMillisecond);

/// The work of a batch after its picks.
void Move(benchmark::State& state, const FrameSettings& s) {
  const Emission emission = BuildEmission(Opaque().view, Feathered().view, {}, s);
  const FrameConstants frame = MakeFrameConstants(emission, s);
  const ViewProjection view = MakeViewProjection(s, {});
  int32_t indices[kLanes];
  for (int32_t l = 0; l < kLanes; ++l) indices[l] = l;
  ParticleLanes lanes;
  StartParticles(frame, indices, &lanes);
  for (auto _ : state) {
    VectorLanes positions, directions = {};
    AppearanceLanes looks;
    ProjectedParticle out[kLanes];
    PositionsAt(frame, lanes.path, lanes.progress, &positions);
    if (frame.needsDirection) Directions(frame, lanes, positions, &directions);
    EvaluateAppearance(frame, lanes, &looks);
    ProjectParticles(view, positions, directions, looks, indices, kLanes, out);
    benchmark::DoNotOptimize(out);
  }
  SetItems(state, kLanes);
}
void BM_MoveAndProjectDefault(benchmark::State& state) {
  Move(state, DefaultSettings());
}
void BM_MoveAndProjectFull(benchmark::State& state) {
  Move(state, FullSettings());
}
BENCHMARK(BM_MoveAndProjectDefault);
BENCHMARK(BM_MoveAndProjectFull);

void Project(benchmark::State& state, bool hasCamera) {
  FrameSettings s = DefaultSettings();
  CameraData camera;
  camera.hasCamera = hasCamera;
  camera.viewMatrix[14] = camera.imagePlaneDistance = 1500.0;
  const ViewProjection view = MakeViewProjection(s, camera);
  VectorLanes positions{}, directions{};
  AppearanceLanes looks{};
  const int32_t indices[kLanes] = {};
  for (int32_t l = 0; l < kLanes; ++l) {
    positions.x[l] = static_cast<float>(l);
    looks.size[l] = looks.opacity[l] = 1.0f;
  }
  ProjectedParticle out[kLanes];
  for (auto _ : state) {
    ProjectParticles(view, positions, directions, looks, indices, kLanes, out);
    benchmark::DoNotOptimize(out);
  }
  SetItems(state, kLanes);
}
void BM_ProjectSimple(benchmark::State& state) {
  Project(state, false);
}
void BM_ProjectCamera(benchmark::State& state) {
  Project(state, true);
}
BENCHMARK(BM_ProjectSimple);
BENCHMARK(BM_ProjectCamera);

// ---- Order ----

void BM_Sort(benchmark::State& state) {
  const size_t count = static_cast<size_t>(state.range(0));
  ParticleList list, unsorted;
  unsorted.particles.Reset(count);
  list.particles.Reset(count);
  list.count = count;
  std::mt19937 random(1);
  for (size_t i = 0; i < count; ++i) {
    unsorted.particles[i] = {};
    unsorted.particles[i].depth = static_cast<float>(random()) * 1e-6f - 2000.0f;
  }
  for (auto _ : state) {
    state.PauseTiming();
    std::memcpy(list.particles.data(), unsorted.particles.data(), count * sizeof(ProjectedParticle));
    state.ResumeTiming();
    SortBackToFront(&list);
  }
  SetItems(state, state.range(0));
}
BENCHMARK(BM_Sort)->Arg(30)->Arg(300)->Arg(3000)->Arg(20000)->Arg(200000);

// ---- Elementary functions ----

void BM_SinCos(benchmark::State& state) {
  float x = 0.0f;
  for (auto _ : state) {
    benchmark::DoNotOptimize(SinCos(x));
    x += 0.37f;
    x = x < 6.3f ? x : x - 6.3f;
  }
}
BENCHMARK(BM_SinCos);

}  // namespace
}  // namespace vantle
