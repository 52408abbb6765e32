// The product's road of a frame, from the same input as the reference's.
#pragma once

#include "base/instruction_level.h"
#include "particles/simulation.h"
#include "tests/reference/picture.h"
#include "tests/reference/reference_renderer.h"

#include <vector>

namespace vantle::reference {

/// Threads of the parallel loops that the calling thread starts from now on.
void SetThreads(int count);

/// Weighs, simulates, sorts and scales.
ParticleList SimulateWithProduct(const FrameInput& frame);

/// Draws the first `count` particles with the loops of one instruction level.
void RasteriseWithProduct(const FrameInput& frame, const ParticleList& list, size_t count, Picture& output,
                          InstructionLevel level = BestInstructionLevel());

/// The level of this number, counted from the least, or the best one when the processor has no such.
InstructionLevel LevelOf(int number);

/// The reference's particles in the product's form.
ParticleList ListOf(const std::vector<Particle>& particles);

}  // namespace vantle::reference
