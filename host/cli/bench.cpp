#include "base/compiler.h"
#include "host/cli/bench_concurrent.h"
#include "host/cli/bench_scene.h"
#include "host/cli/bench_stages.h"
#include "host/cli/commands.h"
#include "host/cli/platform.h"
#include "host/cli/session.h"
#include "host/io/failure.h"
#include "host/io/files.h"
#include "host/io/image_file.h"
#include "host/io/json_file.h"
#include "host/scene/layer_store.h"

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <thread>

namespace vantle::cli {
namespace {

/// One frame on so many threads, over several rounds.
struct BenchCase {
  const BenchScene* scene;
  int threads;
  std::vector<double> milliseconds;
};

struct BenchResult {
  std::vector<BenchCase> cases;
  std::vector<std::vector<std::pair<std::string, double>>> stages;  ///< by scene
  std::vector<int64_t> peakMemory;                                  ///< by scene; grows from one to the next
};

double Median(std::vector<double> values) {
  std::sort(values.begin(), values.end());
  const size_t middle = values.size() / 2;
  return values.size() % 2 == 1 ? values[middle] : (values[middle - 1] + values[middle]) / 2;
}

double Least(const std::vector<double>& values) {
  return *std::min_element(values.begin(), values.end());
}

void SaveImage(const std::string& folder, const BenchScene& scene, const host::World& world) {
  const std::string file = folder + "/" + scene.name + ".png";
  io::CreateFoldersFor(file);
  io::WriteFileAtomically(file, io::EncodePicture(scene::ViewOf(world), io::OutputFormat::kPng));
}

// Rounds over all thread counts in turn, so that a slow moment of the machine hits all of them.
BenchResult Measure(host::EffectInstance& effect, const std::vector<BenchScene>& scenes, int threads,
                    int rounds, const std::string& imageFolder) {
  BenchResult result;
  for (const BenchScene& scene : scenes) {
    const size_t first = result.cases.size();
    result.cases.push_back({&scene, 1, {}});
    if (threads > 1) result.cases.push_back({&scene, threads, {}});
    host::World world;
    RenderOnce(effect, scene, &world);
    for (int round = 0; round < rounds; ++round) {
      for (size_t i = first; i < result.cases.size(); ++i) {
        SetLoopThreads(result.cases[i].threads);
        std::this_thread::sleep_for(
            std::chrono::milliseconds(3));  // until the last frame's threads are at rest
        result.cases[i].milliseconds.push_back(RenderOnce(effect, scene, &world));
      }
    }
    result.peakMemory.push_back(PeakMemory());
    if (!imageFolder.empty()) SaveImage(imageFolder, scene, world);
    SetLoopThreads(1);
    result.stages.push_back(TimeStages(scene, rounds));
  }
  return result;
}

double Sum(const std::vector<std::pair<std::string, double>>& stages) {
  double sum = 0.0;
  for (const auto& [name, milliseconds] : stages) sum += milliseconds;
  return sum;
}

io::Json MachineAsJson() {
  return {{"processor", ProcessorName()}, {"threads", MachineThreads()}, {"memory_bytes", MachineMemory()},
          {"system", SystemName()},       {"compiler", CompilerName()},  {"version", VANTLE_VERSION}};
}

io::Json AsJson(const BenchResult& result, const std::vector<BenchScene>& scenes) {
  io::Json report;
  report["machine"] = MachineAsJson();
  report["rounds"] = result.cases[0].milliseconds.size();
  report["frames"] = io::Json::array();
  for (const BenchCase& entry : result.cases)
    report["frames"].push_back({{"frame", entry.scene->name},
                                {"threads", entry.threads},
                                {"min_ms", Least(entry.milliseconds)},
                                {"median_ms", Median(entry.milliseconds)}});
  report["stages_one_thread"] = io::Json::array();
  for (size_t s = 0; s < scenes.size(); ++s) {
    io::Json list = io::Json::array();
    for (const auto& [name, milliseconds] : result.stages[s])
      list.push_back(
          {{"stage", name}, {"min_ms", milliseconds}, {"share", milliseconds / Sum(result.stages[s])}});
    report["stages_one_thread"].push_back({{"frame", scenes[s].name}, {"stages", list}});
  }
  report["peak_memory_bytes"] = io::Json::object();
  for (size_t s = 0; s < scenes.size(); ++s)
    report["peak_memory_bytes"][scenes[s].name] = result.peakMemory[s];
  return report;
}

void PrintTable(const BenchResult& result, const std::vector<BenchScene>& scenes) {
  std::printf("%s, %d threads, %s\n", ProcessorName().c_str(), MachineThreads(), SystemName().c_str());
  for (size_t s = 0; s < scenes.size(); ++s) {
    std::printf("\n%s\n", scenes[s].title.c_str());
    std::printf("  1920 x 1080, 8 bit              least      median\n");
    for (const BenchCase& entry : result.cases)
      if (entry.scene == &scenes[s])
        std::printf("  %2d thread%-20s %8.2f ms %8.2f ms\n", entry.threads, entry.threads == 1 ? "" : "s",
                    Least(entry.milliseconds), Median(entry.milliseconds));
    std::printf("  stages on one thread\n");
    for (const auto& [name, milliseconds] : result.stages[s])
      std::printf("    %-27s %8.2f ms %8.0f %%\n", name.c_str(), milliseconds,
                  100.0 * milliseconds / Sum(result.stages[s]));
    std::printf("  peak memory of the program  %10.0f MB\n", static_cast<double>(result.peakMemory[s]) / 1e6);
  }
}

io::Json AsJson(const std::vector<ConcurrentCase>& cases) {
  io::Json report;
  report["machine"] = MachineAsJson();
  report["concurrent"] = io::Json::array();
  for (const ConcurrentCase& entry : cases)
    report["concurrent"].push_back({{"frame", entry.frame},
                                    {"at_once", entry.framesAtOnce},
                                    {"loop_threads", entry.loopThreads},
                                    {"frames_per_second", Median(entry.framesPerSecond)},
                                    {"frame_ms", Median(entry.milliseconds)}});
  return report;
}

void PrintTable(const std::vector<ConcurrentCase>& cases) {
  std::printf("frame      at once   loop threads   frames a second   ms a frame   (medians)\n");
  for (const ConcurrentCase& entry : cases)
    std::printf("%-10s %7d %14d %17.1f %12.2f\n", entry.frame.c_str(), entry.framesAtOnce, entry.loopThreads,
                Median(entry.framesPerSecond), Median(entry.milliseconds));
}

template <class... Figures>
void Show(const Arguments& arguments, const Figures&... figures) {
  if (Has(arguments, "json"))
    std::printf("%s\n", AsJson(figures...).dump(2).c_str());
  else
    PrintTable(figures...);
}

/// The measurement that was asked for, and its figures printed.
void MeasureAndShow(host::EffectInstance& effect, const Arguments& arguments) {
  const int threads = IntegerOf(arguments, "threads", MachineThreads(), 1, 1024);
  const std::vector<BenchScene> scenes = MakeBenchScenes(effect);
  if (Has(arguments, "concurrent")) {
    const int rounds = IntegerOf(arguments, "rounds", Has(arguments, "quick") ? 2 : 9, 1, 100000);
    const int atOnce = IntegerOf(arguments, "concurrent", 4, 2, 64);
    const std::vector<BenchScene> yardsticks(scenes.begin(), scenes.begin() + 2);
    Show(arguments, MeasureConcurrent(effect, yardsticks, atOnce, threads, rounds));
    return;
  }
  const int rounds = IntegerOf(arguments, "rounds", Has(arguments, "quick") ? 5 : 25, 1, 100000);
  Show(arguments, Measure(effect, scenes, threads, rounds, ValueOf(arguments, "save-images")), scenes);
}

}  // namespace

double RenderOnce(host::EffectInstance& effect, const BenchScene& scene, host::World* world) {
  const host::FrameResult result = host::RenderFrame(effect, scene.request, world);
  if (!host::Succeeded(result))
    throw io::Failure(io::kEffectError,
                      "the " + scene.name + " frame failed at " +
                          DescribeError(result.failedCommand, result.error,
                                        result.problems.empty() ? result.message : result.problems[0]));
  return result.milliseconds;
}

const Command& BenchCommand() {
  static const Command command = [] {
    Command made{
        "bench",
        "Measures whole frames through the effect's entry point, on one thread and on all, and the\n"
        "share of each stage. Times are of the render command alone.",
        "[--quick] [--json] [options]",
        nullptr,
        0,
        "",
        {{nullptr, "quick", nullptr, "Measuring", "few rounds"},
         {nullptr, "rounds", "N", "Measuring",
          "rounds over which the least and the median are taken\n"
          "(default: 25; 5 with --quick)"},
         {nullptr, "threads", "N", "Measuring", "what \"all\" means (default: all of the machine's)"},
         {nullptr, "concurrent", "N", "Measuring",
          "render N frames at once instead, against one after the other"},
         {nullptr, "save-images", "FOLDER", "Output", "write the frames that were measured"},
         {nullptr, "json", nullptr, "Output", "print JSON instead of a table"}}};
    for (const Option& option : ModuleOptions()) made.options.push_back(option);
    made.options.push_back({"-h", "help", nullptr, "Output", "show this text"});
    return made;
  }();
  return command;
}

int RunBench(const Arguments& arguments) {
  const std::unique_ptr<host::EffectInstance> effect = OpenSession(arguments);
  try {
    MeasureAndShow(*effect, arguments);
  } catch (...) {
    host::CloseEffect(*effect);
    throw;
  }
  CloseSession(*effect);
  return 0;
}

}  // namespace vantle::cli
