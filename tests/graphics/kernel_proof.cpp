// Draws many small frames with the compute shader, on whatever Vulkan device there is, and compares them with
// the processor's rasteriser:
// kernel_proof [--spv FILE] [--device NUMBER|NAME] [--vulkan LIBRARY] [--seeds N] [--time]
//
// Prints the largest difference for each shape and transfer mode as a table. Exit code 0 when all is within
// the tolerance, 1 when not, 2 when there is nothing to draw with. With --time, draws large frames and prints
// milliseconds.

#include "tests/graphics/kernel_difference.h"
#include "tests/graphics/kernel_times.h"
#include "tests/graphics/vulkan_kernel.h"

#include <cstdio>
#include <cstring>
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

/// With tiles and without: the tiles leave out only what touches nothing, so not a bit may differ.
FrameDifference CompareScene(const VulkanKernel& kernel, const KernelScene& scene) {
  const std::vector<float> all = kernel.Draw(MakeKernelInput(scene, false));
  const std::vector<float> tiled = kernel.Draw(MakeKernelInput(scene, true));
  FrameDifference difference = CompareFrames(scene, DrawOnProcessor(scene), tiled);
  if (std::memcmp(all.data(), tiled.data(), all.size() * sizeof(float)) == 0) return difference;
  FrameDifference untiled = CompareFrames(scene, all, tiled);
  untiled.wrong = std::max<int64_t>(untiled.wrong, 1);
  untiled.firstFault = "the tiles change the picture: " + untiled.firstFault;
  Accumulate(&difference, untiled);
  return difference;
}

/// A shape and a mode in every size and with both kinds of line ends.
FrameDifference CompareShapeAndMode(const VulkanKernel& kernel, int32_t shape, int32_t mode, uint32_t seeds) {
  FrameDifference sum;
  for (uint32_t seed = 0; seed < seeds; ++seed) {
    uint32_t number = static_cast<uint32_t>(shape * 1000 + mode * 50) + seed * 100000;
    for (const FrameSize size : kFrameSizes) {
      for (const bool roundCap : {false, true}) {
        Accumulate(&sum, CompareScene(kernel, MakeKernelScene(shape, mode, roundCap, size, number++)));
      }
    }
  }
  return sum;
}

bool PrintTable(const VulkanKernel& kernel, uint32_t seeds) {
  std::printf("| |");
  for (const int32_t mode : kKernelModes) std::printf(" %s |", ModeName(mode));
  std::printf("\n|---|");
  for (size_t i = 0; i < std::size(kKernelModes); ++i) std::printf("---|");
  FrameDifference all;
  for (const int32_t shape : kKernelShapes) {
    std::printf("\n| %s |", ShapeName(shape));
    for (const int32_t mode : kKernelModes) {
      const FrameDifference difference = CompareShapeAndMode(kernel, shape, mode, seeds);
      std::printf(" %.1e |", static_cast<double>(difference.largest));
      if (difference.wrong > 0) std::fprintf(stderr, "\n%s\n", difference.firstFault.c_str());
      Accumulate(&all, difference);
    }
    std::fflush(stdout);
  }
  std::printf(
      "\n\n%lld pixels compared, %lld of them drawn; largest difference %.2g, %lld pixels decided by "
      "the opacity threshold, %lld wrong\n",
      static_cast<long long>(all.pixels), static_cast<long long>(all.drawn), static_cast<double>(all.largest),
      static_cast<long long>(all.onThreshold), static_cast<long long>(all.wrong));
  return all.wrong == 0 && all.drawn > 0;
}

int Run(const Options& options) {
  const VulkanDevice device(options.library, options.device);
  std::printf("Device: %s\n\n", device.description().c_str());
  const VulkanKernel kernel(device, ReadCode(options.code));
  if (options.time) return PrintTimes(kernel) ? 0 : 1;
  return PrintTable(kernel, options.seeds) ? 0 : 1;
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
