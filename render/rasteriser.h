// The processor's rasteriser: the reference for every picture, and the only renderer of curves and sprites.
#pragma once

#include "base/image_view.h"
#include "base/instruction_level.h"
#include "particles/frame_settings.h"
#include "particles/projected_particle.h"

#include <cstddef>

namespace vantle {

/// Clears `output` and lays the particles over transparent black in list order, quantising to the output's
/// depth after every particle. `sprites` are the frames that `spriteFrame` selects, in the output's depth.
/// Bytes between a row's end and the next row's start are not touched. The result does not depend on the
/// number of threads. Cannot fail; allocates nothing.
void RenderParticlesCpu(const MutableImage& output, const ProjectedParticle* particles, size_t count,
                        const CurvePointPool& curvePoints, const FrameSettings& settings,
                        const ImageView* sprites, size_t spriteCount);

/// The same with the row loops of one instruction level, which the processor must have. Every level gives the
/// same bytes.
void RenderParticlesAtLevel(InstructionLevel level, const MutableImage& output,
                            const ProjectedParticle* particles, size_t count,
                            const CurvePointPool& curvePoints, const FrameSettings& settings,
                            const ImageView* sprites, size_t spriteCount);

}  // namespace vantle
