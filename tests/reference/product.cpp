#include "tests/reference/product.h"

#include "particles/emission.h"
#include "render/rasteriser.h"

#include <algorithm>

#ifndef VANTLE_STD_THREADS
#include <omp.h>
#endif

namespace vantle::reference {

void SetThreads([[maybe_unused]] int count) {
#ifndef VANTLE_STD_THREADS
  omp_set_num_threads(count);
#endif
}

ParticleList SimulateWithProduct(const FrameInput& frame) {
  const Emission emission = BuildEmission(frame.layerA, frame.layerB, frame.input, frame.settings);
  ParticleList list = SimulateParticles(emission, frame.settings, frame.camera);
  SortBackToFront(&list);
  ScaleToPreview(frame.settings, &list);
  return list;
}

void RasteriseWithProduct(const FrameInput& frame, const ParticleList& list, size_t count, Picture& output,
                          InstructionLevel level) {
  RenderParticlesAtLevel(level, MutableOf(output), list.particles.data(), count, list.curvePoints,
                         frame.settings, frame.sprites.data(), frame.sprites.size());
}

InstructionLevel LevelOf(int number) {
  return std::min(static_cast<InstructionLevel>(number), BestInstructionLevel());
}

ParticleList ListOf(const std::vector<Particle>& particles) {
  ParticleList list;
  list.count = particles.size();
  list.particles.Reset(particles.size());
  list.curvePoints.points.Reset(particles.size() * kMaxTrailPoints);
  list.curvePoints.counts.Reset(particles.size());
  for (size_t i = 0; i < particles.size(); ++i) {
    const std::vector<Vec2>& curve = particles[i].curvePoints;
    list.particles[i] = particles[i].projected;
    list.particles[i].curvePoints = static_cast<uint32_t>(i);
    list.curvePoints.counts[i] = static_cast<uint8_t>(curve.size());
    std::copy(curve.begin(), curve.end(), list.curvePoints.points.data() + i * kMaxTrailPoints);
  }
  return list;
}

}  // namespace vantle::reference
