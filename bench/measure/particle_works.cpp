// From picked points to records on the screen, and their order.
#include "bench/measure/works.h"
#include "particles/emission.h"
#include "particles/stages.h"
#include "tests/reference/dice.h"
#include "tests/reference/motion.h"
#include "tests/reference/projection.h"

#include <algorithm>
#include <cstring>

namespace vantle::measure {
namespace {

// Few enough to stay in the cache: what is measured is arithmetic.
constexpr int32_t kParticles = 4096;
constexpr size_t kBatches = kParticles / kLanes;

struct Batch {
  PointLanes points;
  ParticleLanes lanes;  ///< with keys and colours, from which the rest is worked out
};

struct Motion {
  std::shared_ptr<Scene> scene;
  FrameSettings settings;
  CameraData camera;

  std::vector<reference::Point> points;  ///< in the order of use: looking for them is the picks' affair
  std::vector<reference::ParticleKeys> keys;
  std::vector<reference::Ends> ends;
  std::vector<reference::WorldParticle> worlds;
  std::vector<ProjectedParticle> records;

  Emission emission;
  FrameConstants constants;
  ViewProjection view;
  std::vector<Batch> batches;
  std::vector<VectorLanes> positions;  ///< of every batch, and the looks: what a projection starts from
  std::vector<AppearanceLanes> looks;
};

void MovePlainly(Motion& m) {
  const reference::MotionFrame frame = reference::MotionFrameOf(m.settings);
  const reference::View view = reference::ViewOfFrame(m.settings, m.camera);
  for (size_t i = 0; i < kParticles; ++i) {
    const std::optional<reference::Particle> particle =
        Project(SimulateOne(m.keys[i], m.ends[i], frame), view);
    if (particle) m.records[i] = particle->projected;
  }
}

void MoveWithProduct(Motion& m) {
  const int32_t indices[kLanes] = {};
  VectorLanes positions, directions = {};
  AppearanceLanes looks;
  for (size_t b = 0; b < kBatches; ++b) {
    ParticleLanes& lanes = m.batches[b].lanes;
    CurrentStages().startFromPoints(m.constants, m.batches[b].points, &lanes);
    PositionsAt(m.constants, lanes.path, lanes.progress, &positions);
    if (m.constants.needsDirection) Directions(m.constants, lanes, positions, &directions);
    EvaluateAppearance(m.constants, lanes, &looks);
    ProjectParticles(m.view, positions, directions, looks, indices, kLanes, &m.records[b * kLanes]);
  }
}

void SetLane(const Motion& m, size_t i, Batch* batch) {
  const size_t l = i % kLanes;
  const reference::Point& from = *m.ends[i].emitter;
  const reference::Point& to = *m.ends[i].target;
  batch->points.fromX[l] = from.x;
  batch->points.fromY[l] = from.y;
  batch->points.toX[l] = to.x;
  batch->points.toY[l] = to.y;
  ParticleLanes& lanes = batch->lanes;
  lanes.key[l] = m.keys[i].key;
  lanes.hasTarget = true;
  lanes.fromR[l] = from.r;
  lanes.fromG[l] = from.g;
  lanes.fromB[l] = from.b;
  lanes.fromAlpha[l] = from.alpha;
  lanes.toR[l] = to.r;
  lanes.toG[l] = to.g;
  lanes.toB[l] = to.b;
}

std::shared_ptr<Motion> MakeMotion(const std::shared_ptr<Scene>& scene, const FrameSettings& settings,
                                   const CameraData& camera) {
  auto m = std::make_shared<Motion>();
  const reference::FrameInput& frame = scene->frame;
  m->scene = scene;
  m->settings = settings;
  m->camera = camera;
  const reference::Layers layers = LayersOf(frame);
  m->emission = BuildEmission(frame.layerA, frame.layerB, frame.input, m->settings);
  m->constants = MakeFrameConstants(m->emission, m->settings);
  m->view = MakeViewProjection(m->settings, m->camera);
  m->records.resize(kParticles);
  m->batches.resize(kBatches);
  m->points.reserve(2 * kParticles);
  for (size_t i = 0; i < kParticles; ++i) {
    m->keys.push_back(reference::KeysOf(m->settings.seed, static_cast<uint32_t>(i)));
    const reference::Ends picked = PickEnds(m->keys[i], layers);
    m->points.push_back(*picked.emitter);
    m->points.push_back(*picked.target);
    m->ends.push_back({&m->points[2 * i], &m->points[2 * i + 1], picked.startsOnA});
    m->worlds.push_back(SimulateOne(m->keys[i], m->ends[i], reference::MotionFrameOf(m->settings)));
    SetLane(*m, i, &m->batches[i / kLanes]);
  }
  return m;
}

void ProjectPlainly(Motion& m) {
  const reference::View view = reference::ViewOfFrame(m.settings, m.camera);
  for (size_t i = 0; i < kParticles; ++i) {
    const std::optional<reference::Particle> particle = Project(m.worlds[i], view);
    if (particle) m.records[i] = particle->projected;
  }
}

void KeepWhatIsProjected(Motion* m) {
  m->positions.resize(kBatches);
  m->looks.resize(kBatches);
  for (size_t b = 0; b < kBatches; ++b) {
    const ParticleLanes& lanes = m->batches[b].lanes;
    PositionsAt(m->constants, lanes.path, lanes.progress, &m->positions[b]);
    EvaluateAppearance(m->constants, lanes, &m->looks[b]);
  }
}

void ProjectWithProduct(Motion& m) {
  const int32_t indices[kLanes] = {};
  const VectorLanes directions = {};
  for (size_t b = 0; b < kBatches; ++b)
    ProjectParticles(m.view, m.positions[b], directions, m.looks[b], indices, kLanes, &m.records[b * kLanes]);
}

struct Order {
  std::vector<ProjectedParticle> shuffled, plain;
  ParticleList list;
};

/// Both sides copy the records first.
void AddSortWork(size_t count, std::vector<Work>* works) {
  auto order = std::make_shared<Order>();
  order->shuffled.resize(count);
  order->list.particles.Reset(count);
  reference::Dice dice{3};
  for (ProjectedParticle& p : order->shuffled) p.depth = dice.Between(-2000.0f, 2000.0f);
  const auto plain = [order] {
    order->plain = order->shuffled;
    std::stable_sort(
        order->plain.begin(), order->plain.end(),
        [](const ProjectedParticle& a, const ProjectedParticle& b) { return a.depth > b.depth; });
  };
  const auto product = [order] {
    order->list.count = order->shuffled.size();
    std::memcpy(order->list.particles.data(), order->shuffled.data(),
                order->list.count * sizeof(ProjectedParticle));
    SortBackToFront(&order->list);
  };
  works->push_back({"sort, " + std::to_string(count / 1000) + ",000 records", "record",
                    static_cast<double>(count), false, 0.0, 0.0, plain, product});
}

void AddMotionWork(const char* name, const std::shared_ptr<Motion>& m, double goal, double goalAvx2,
                   std::vector<Work>* works) {
  works->push_back({name, "particle", static_cast<double>(kParticles), false, goal, goalAvx2,
                    [m] { MovePlainly(*m); }, [m] { MoveWithProduct(*m); }});
}

}  // namespace

void AddParticleWorks(const std::shared_ptr<Scene>& scene, std::vector<Work>* works) {
  const FrameSettings& settings = scene->frame.settings;
  FrameSettings full = settings;
  UseAllControls(&full);
  AddMotionWork("simulation and projection, default controls", MakeMotion(scene, settings, {}), 3.0, 3.0,
                works);
  AddMotionWork("the same with stagger, scatter, swirl, hue, auto-orient", MakeMotion(scene, full, {}), 8.0,
                8.0, works);
  const std::shared_ptr<Motion> m = MakeMotion(scene, settings, FrontCamera());
  MoveWithProduct(*m);
  KeepWhatIsProjected(m.get());
  works->push_back({"projection by a camera", "particle", static_cast<double>(kParticles), false, 0.0, 0.0,
                    [m] { ProjectPlainly(*m); }, [m] { ProjectWithProduct(*m); }});
  AddSortWork(20000, works);
  AddSortWork(200000, works);
}

}  // namespace vantle::measure
