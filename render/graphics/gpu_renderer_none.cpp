// Systems without Direct3D 11.
#include "render/graphics/gpu_renderer.h"

namespace vantle {

bool IsGpuUsable() {
  return false;
}

bool InitGpu() {
  return false;
}

bool RenderGpu(std::byte* /*destination*/, int64_t /*rowBytes*/, const GpuFrame& /*frame*/) {
  return false;
}

void GpuDebugPrint(const char* /*format*/, ...) {}

void ReleaseGpu() {}

}  // namespace vantle
