// Draws many small frames with the compute shader, on whatever Vulkan device there is, and compares them with
// the processor's rasteriser:
// kernel_proof [--spv FILE] [--device NUMBER|NAME] [--vulkan LIBRARY] [--seeds N] [--time]
//
// Prints the largest difference for each shape and transfer mode as a table. Exit code 0 when all is within
// the tolerance, 1 when not, 2 when there is nothing to draw with. With --time, draws large frames and prints
// milliseconds.

#include "tests/graphics/kernel_table.h"
#include "tests/graphics/kernel_times.h"
#include "tests/graphics/vulkan_kernel.h"

#include <cstdio>
#include <fstream>
#include <stdexcept>

namespace vantle::test {
namespace {

struct Options {
  std::string code;
  std::string device;
  std::string library;
  uint32_t seeds = 1;
  bool time = false;
};

/// The compiled kernel lies beside the program, unless an option says otherwise.
std::string BesideProgram(const std::string& program) {
  const size_t slash = program.rfind('/');
  return (slash == std::string::npos ? "" : program.substr(0, slash + 1)) + "kernel.spv";
}

Options ReadOptions(int argc, char** argv) {
  Options options;
  options.code = BesideProgram(argv[0]);
  for (int i = 1; i < argc; ++i) {
    const std::string name = argv[i];
    if (name == "--time") {
      options.time = true;
      continue;
    }
    if (i + 1 == argc) throw std::runtime_error("unknown option, or an option without its value: " + name);
    const std::string value = argv[++i];
    if (name == "--spv")
      options.code = value;
    else if (name == "--device")
      options.device = value;
    else if (name == "--vulkan")
      options.library = value;
    else if (name == "--seeds")
      options.seeds = static_cast<uint32_t>(std::stoul(value));
    else
      throw std::runtime_error("unknown option: " + name);
  }
  return options;
}

std::vector<uint32_t> ReadCode(const std::string& path) {
  std::ifstream file(path, std::ios::binary | std::ios::ate);
  if (!file) throw std::runtime_error("cannot read " + path);
  const std::streamoff bytes = file.tellg();
  std::vector<uint32_t> code(static_cast<size_t>(bytes) / sizeof(uint32_t));
  file.seekg(0);
  file.read(reinterpret_cast<char*>(code.data()), bytes);
  return code;
}

int Run(const Options& options) {
  const VulkanDevice device(options.library, options.device);
  std::printf("Device: %s\n\n", device.description().c_str());
  const VulkanKernel kernel(device, ReadCode(options.code));
  if (options.time) return PrintTimes(kernel) ? 0 : 1;
  const auto draw = [&](const KernelInput& input) { return kernel.Draw(input); };
  return PrintKernelTable(draw, options.seeds) ? 0 : 1;
}

}  // namespace
}  // namespace vantle::test

int main(int argc, char** argv) {
  try {
    return vantle::test::Run(vantle::test::ReadOptions(argc, argv));
  } catch (const std::exception& error) {
    std::fprintf(stderr, "kernel_proof: %s\n", error.what());
    return 2;
  }
}
