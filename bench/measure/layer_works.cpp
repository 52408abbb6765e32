// From layers to picked points, and their turbulence.
#include "bench/measure/works.h"
#include "particles/emission.h"
#include "particles/emitter_pick.h"
#include "particles/turbulence.h"
#include "tests/reference/layer_points.h"
#include "tests/reference/random_streams.h"
#include "tests/reference/turbulence_field.h"

namespace vantle::measure {
namespace {

constexpr size_t kPicks = 16384;
constexpr size_t kPlaces = 4096;

/// What picks leave behind, so that they are not left out.
volatile float sink;

struct Picks {
  std::shared_ptr<Scene> scene;
  reference::Layers points;
  Emission emission;
  std::vector<uint32_t> keys;
};

void PickPlainly(const Picks& picks) {
  float sum = 0.0f;
  for (uint32_t key : picks.keys) {
    const reference::Point& point = Pick(picks.points.a, key);
    sum += point.x + point.r;
  }
  sink = sum;
}

/// Each batch begins before the one before it is finished, as in a frame.
void PickWithProduct(const Picks& picks) {
  const Emitter& emitter = picks.emission.source;
  PendingPicks pending[2];
  EmittingPoint points[kLanes];
  float sum = 0.0f;
  BeginPicks(emitter, picks.keys.data(), &pending[0]);
  for (size_t i = 0, now = 0; i < picks.keys.size(); i += kLanes, now = 1 - now) {
    if (i + kLanes < picks.keys.size()) BeginPicks(emitter, &picks.keys[i + kLanes], &pending[1 - now]);
    FinishPicks(emitter, &pending[now]);
    PointsOfPicks(emitter, pending[now], 1.0f, 1.0f, points);
    for (const EmittingPoint& point : points) sum += point.x + point.r;
  }
  sink = sum;
}

Work PickWork(const std::shared_ptr<Scene>& scene) {
  auto picks = std::make_shared<Picks>();
  const reference::FrameInput& frame = scene->frame;
  picks->scene = scene;
  picks->points = LayersOf(frame);
  picks->emission = BuildEmission(frame.layerA, frame.layerB, frame.input, frame.settings);
  for (uint32_t i = 0; i < kPicks; ++i) picks->keys.push_back(reference::KeysOf(1, i).emitterPick);
  return {"a pick", "pick", static_cast<double>(kPicks),      false,
          5.0,      5.0,    [picks] { PickPlainly(*picks); }, [picks] { PickWithProduct(*picks); }};
}

struct Places {
  FrameSettings settings;
  TurbulenceField field;
  std::vector<float> x, y;
};

void StirPlainly(const Places& places) {
  float sum = 0.0f;
  for (size_t i = 0; i < kPlaces; ++i)
    sum += reference::TurbulenceAt(places.x[i], places.y[i], places.settings).x;
  sink = sum;
}

void StirWithProduct(const Places& places) {
  float sum = 0.0f;
  VectorLanes d;
  for (size_t i = 0; i < kPlaces; i += kLanes) {
    EvaluateTurbulence(places.field, &places.x[i], &places.y[i], &d);
    for (float x : d.x) sum += x;
  }
  sink = sum;
}

Work TurbulenceWork(const FrameSettings& settings) {
  auto places = std::make_shared<Places>();
  places->settings = settings;
  places->settings.turbulenceType = 1;
  places->settings.turbulenceAmount = 0.1f;
  places->field = MakeTurbulenceField(places->settings);
  for (size_t i = 0; i < kPlaces; ++i) {
    places->x.push_back(static_cast<float>(i * 7919 % 1920));
    places->y.push_back(static_cast<float>(i * 104729 % 1080));
  }
  return {"turbulence, 160 hashes",
          "field",
          static_cast<double>(kPlaces),
          false,
          30.0,
          15.0,
          [places] { StirPlainly(*places); },
          [places] { StirWithProduct(*places); }};
}

}  // namespace

void AddLayerWorks(const std::shared_ptr<Scene>& scene, std::vector<Work>* works) {
  const auto plain = [scene] { LayersOf(scene->frame); };
  const auto product = [scene] {
    const reference::FrameInput& frame = scene->frame;
    BuildEmission(frame.layerA, frame.layerB, frame.input, frame.settings);
  };
  works->push_back({"two layers to weights", "", 1.0, true, 30.0, 30.0, plain, product});
  works->push_back(PickWork(scene));
  works->push_back(TurbulenceWork(scene->frame.settings));
}

}  // namespace vantle::measure
