// Measures the product against the plain renderer of the tests, and how it scales; JSON on standard output:
// vantle_measure table|shapes|scaling [--quick] [--seconds N] [--processor-time], or vantle_measure counts
#include "bench/measure/measurements.h"

#include <cstdio>
#include <cstdlib>
#include <exception>
#include <string>

namespace {

using namespace vantle::measure;

int Usage() {
  std::fprintf(stderr,
               "usage: vantle_measure table|shapes|scaling [--quick] [--seconds N] [--processor-time]\n"
               "       vantle_measure counts\n");
  return 2;
}

int Run(const std::string& what, const Effort& effort) {
  if (what == "table") {
    Print(MeasureTable(effort));
  } else if (what == "shapes") {
    Print(MeasureShapes(effort));
  } else if (what == "scaling") {
    Print(MeasureScaling(effort));
  } else if (what == "counts") {
    Print(RunCountedWorks());
  } else {
    return Usage();
  }
  return 0;
}

}  // namespace

int main(int argc, char** argv) {
  if (argc < 2) return Usage();
  Effort effort;
  for (int i = 2; i < argc; ++i) {
    const std::string argument = argv[i];
    if (argument == "--quick") {
      effort = {0.0, 1};
    } else if (argument == "--seconds" && i + 1 < argc) {
      effort.seconds = std::atof(argv[++i]);
    } else if (argument == "--processor-time") {
      UseProcessorTime();
    } else {
      return Usage();
    }
  }
  try {
    return Run(argv[1], effort);
  } catch (const std::exception& error) {
    std::fprintf(stderr, "vantle_measure: %s\n", error.what());
    return 1;
  }
}
