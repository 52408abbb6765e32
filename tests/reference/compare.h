// Difference 0 between the product and the reference, or a report that leads to the culprit.
#pragma once

#include "base/instruction_level.h"
#include "particles/simulation.h"
#include "tests/reference/random_scene.h"

#include <cstdint>
#include <string>
#include <vector>

namespace vantle::reference {

/// What is compared of a seed's frame.
enum class Stage {
  kParticles,   ///< the list that the renderers receive
  kRaster,      ///< random particles, drawn
  kWholeFrame,  ///< both, one after the other
};

/// Empty when the product gives the reference's answer for this seed; otherwise what differs first, with the
/// names of three pictures (reference, product, difference) written into the working folder.
std::string Compare(uint64_t seed, Nature nature, Stage stage, InstructionLevel level);

/// The first particle and field that differ, with both values; empty when the lists are equal bit for bit.
/// NaNs of any kind are equal.
std::string FirstDifference(const std::vector<Particle>& expected, const ParticleList& actual);

}  // namespace vantle::reference
