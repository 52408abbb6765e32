// Draws many small frames by the graphics path's own calls, on the system's Direct3D and shader compiler, and
// compares them with the processor's rasteriser: direct3d_proof [SEEDS]
//
// Prints the largest difference for each shape and transfer mode as a table. Exit code 0 when all is within
// the tolerance, 1 when not, 2 when there is no device or no shader.
#include "render/graphics/gpu_renderer.h"
#include "tests/graphics/kernel_table.h"
#include "tests/windows/end_process.h"
#include "tests/windows/graphics/debug_text.h"

#include <cstdio>
#include <cstdlib>
#include <stdexcept>
#include <windows.h>

namespace vantle::test {
namespace {

std::vector<float> Draw(const KernelInput& input) {
  const RenderParamsCB& p = input.params;
  const auto width = static_cast<size_t>(p.g_width);
  std::vector<float> pixels(width * static_cast<size_t>(p.g_height) * 4, -1.0f);
  const GpuFrame frame{p, input.particles.data(), input.lists.offsets.data(), input.lists.indices.data(),
                       input.lists.indices.size()};
  const auto rowBytes = static_cast<int64_t>(width * 4 * sizeof(float));
  if (!RenderGpu(reinterpret_cast<std::byte*>(pixels.data()), rowBytes, frame))
    throw std::runtime_error("a frame could not be drawn");
  return pixels;
}

/// The version of a library in the system folder, for people.
void PrintVersion(const char* library) {
  DWORD ignored = 0;
  std::vector<char> info(GetFileVersionInfoSizeA(library, &ignored));
  void* found = nullptr;
  UINT size = 0;
  if (info.empty() || GetFileVersionInfoA(library, 0, static_cast<DWORD>(info.size()), info.data()) == 0 ||
      VerQueryValueA(info.data(), "\\", &found, &size) == 0) {
    std::printf("%s tells no version\n", library);
    return;
  }
  const auto* const fixed = static_cast<const VS_FIXEDFILEINFO*>(found);
  std::printf("%s %u.%u.%u.%u\n", library, HIWORD(fixed->dwFileVersionMS), LOWORD(fixed->dwFileVersionMS),
              HIWORD(fixed->dwFileVersionLS), LOWORD(fixed->dwFileVersionLS));
}

int Run(uint32_t seeds) {
  PrintVersion("d3d11.dll");
  PrintVersion("d3dcompiler_47.dll");
  TakeDebugTexts();
  const bool started = InitGpu();
  for (const std::string& text : TakeDebugTexts()) std::printf("%s", text.c_str());
  if (!started) return 2;
  std::printf("\n");
  const bool equal = PrintKernelTable(Draw, seeds);
  ReleaseGpu();
  return equal ? 0 : 1;
}

}  // namespace
}  // namespace vantle::test

int main(int argc, char** argv) {
  try {
    vantle::test::EndProcess(
        vantle::test::Run(argc > 1 ? static_cast<uint32_t>(std::strtoul(argv[1], nullptr, 10)) : 1));
  } catch (const std::exception& error) {
    std::fprintf(stderr, "direct3d_proof: %s\n", error.what());
    vantle::test::EndProcess(1);
  }
}
