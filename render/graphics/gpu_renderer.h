// The graphics processor behind plain functions: a compute shader draws the particles, or the caller is told
// that it did not and draws the frame on the processor. On systems without Direct3D 11 it never does.
//
// The device and the compiled shader are kept between frames and shared by all of them. Renders on several
// threads take turns; none of the functions calls the host.
#pragma once

#include "render/coverage.h"
#include "render/graphics/render_params.h"

#include <cstddef>
#include <cstdint>

namespace vantle {

/// Whether it is worth preparing a frame for the graphics processor. Before the first initialisation this
/// creates a device and lets it go again; if that fails, it counts as the failed initialisation.
bool IsGpuUsable();

/// Creates device and shader at the first call; later calls return the outcome of the first. What fails is
/// told to the debugger's output, and not tried again until ReleaseGpu.
bool InitGpu();

/// The lists that one frame is drawn from; `params` says how many particles and tiles there are.
struct GpuFrame {
  RenderParamsCB params;
  const kernel::Particle* particles;  ///< may be null, for none
  const int32_t* tileOffsets;         ///< may be null when no tiles are used
  const int32_t* tileIndices;         ///< may be null when no tiles are used
  size_t numTileIndices;
};

/// Draws a frame and reads it back: g_width x g_height pixels of four floats (alpha, red, green, blue), row y
/// at destination + y * rowBytes, which need not be aligned and may run upwards. Bytes between the rows stay.
/// False when anything failed; the destination is then as it was.
bool RenderGpu(std::byte* destination, int64_t rowBytes, const GpuFrame& frame);

/// Formats as printf does, cuts at 511 characters and hands the text to the debugger's output.
void GpuDebugPrint(const char* format, ...);

/// Lets go of device and shader; the next frame begins afresh. Harmless when there are none.
void ReleaseGpu();

}  // namespace vantle
