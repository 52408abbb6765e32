#include "host/cli/commands.h"
#include "host/cli/platform.h"
#include "host/cli/render_loop.h"
#include "host/cli/render_options.h"
#include "host/cli/session.h"
#include "host/engine/frame_request.h"
#include "host/io/failure.h"
#include "host/io/files.h"
#include "host/io/json_file.h"
#include "host/scene/scene_composition.h"

#include <chrono>
#include <cstdio>
#include <filesystem>
#include <set>
#include <system_error>

namespace vantle::cli {
namespace {

constexpr const char* kDetails = R"(SCENE.json (every key is explained in docs/scene.md)
  { "composition": {"width": 1920, "height": 1080, "frame_rate": 30, "duration": 2},
    "layers": [ {"name": "one", "file": "one.png"},
                {"name": "two", "sequence": "two.####.png", "frame_rate": 25, "start": 0.5},
                {"name": "grey", "solid": [0.5, 0.5, 0.5]} ],
    "effect": { "layer": "one", "b": "two",
      "parameters": {
        "Transform": {"keyframes": [{"time": 0, "value": 0}, {"time": 2, "value": 100}]},
        "Shape": "Soft Circle", "Turbulence/Seed": 7, "Swirl Angle": 90 } } }

Exit codes: 0 done, 1 some frames were written and others failed, 2 usage, 3 unreadable input,
4 module not loadable, 5 the effect returned an error, 6 output not writable, 130 interrupted.
)";

std::vector<FrameJob> MakeJobs(const RenderRequest& request, const scene::Scene& scene) {
  std::vector<int32_t> frames = request.frames;
  if (frames.empty())
    for (int32_t f = 0; f < scene.composition.frames; ++f) frames.push_back(f);
  if (frames.size() > 1 && !request.pattern.hasNumber)
    throw io::Failure(io::kUsage, io::NameOfFrame(request.pattern, 0) + ": " + std::to_string(frames.size()) +
                                      " frames need a place for the frame number, such as f.%04d.png");
  std::vector<FrameJob> jobs;
  for (const int32_t frame : frames) {
    FrameJob job;
    job.frame = frame;
    job.file = io::NameOfFrame(request.pattern, frame);
    scene::TimeOfFrame(scene.composition, frame);
    jobs.push_back(job);
  }
  return jobs;
}

// Complete is what decodes to its end and has the size of the frames.
bool IsComplete(const std::string& file, const RenderRequest& request,
                const scene::Composition& composition) {
  try {
    const io::Picture picture = io::ReadPicture(file, request.options.depth);
    const int32_t divisor = request.options.divisor;
    return picture.width == (composition.width + divisor - 1) / divisor &&
           picture.height == (composition.height + divisor - 1) / divisor;
  } catch (const io::Failure&) {
    return false;
  }
}

void TreatExisting(const RenderRequest& request, const scene::Composition& composition,
                   std::vector<FrameJob>& jobs) {
  if (request.existing == ExistingFiles::kOverwrite) return;
  for (FrameJob& job : jobs) {
    std::error_code ignored;
    if (!std::filesystem::exists(job.file, ignored)) continue;
    if (request.existing == ExistingFiles::kRefuse)
      throw io::Failure(io::kOutputNotWritable,
                        job.file +
                            ": exists already; -y overwrites, -n skips frames that exist, --resume "
                            "skips complete ones");
    if (request.existing == ExistingFiles::kSkip || IsComplete(job.file, request, composition))
      job.status = FrameStatus::kSkipped;
  }
}

void CheckFrame(const host::FrameResult& result, const scene::CheckoutFailure& failure) {
  if (!failure.message.empty()) throw io::Failure(io::kUnreadableInput, failure.message);
  RequireSuccess(result);
}

double RenderAndWrite(scene::PreparedScene& prepared, io::OutputFormat format, const FrameJob& job) {
  const auto failure = std::make_shared<scene::CheckoutFailure>();
  const host::FrameRequest request = scene::RequestFrame(prepared, job.frame, failure);
  host::World world;
  const host::FrameResult result = host::RenderFrame(*prepared.effect, request, &world);
  CheckFrame(result, *failure);
  io::WriteFileAtomically(job.file, io::EncodePicture(scene::ViewOf(world), format));
  return result.milliseconds;
}

// The output, its encoding, and a layer's weights and copies: a generous guess.
int64_t FrameBytes(const scene::PreparedScene& prepared) {
  const scene::Composition& composition = prepared.scene->composition;
  const int64_t divisor = prepared.options.divisor;
  const int64_t pixels = (composition.width / divisor + 1) * (composition.height / divisor + 1);
  return pixels * static_cast<int64_t>(PixelBytes(prepared.options.depth)) * 4 + (int64_t{64} << 20);
}

const char* StatusName(FrameStatus status) {
  switch (status) {
    case FrameStatus::kWritten:
      return "written";
    case FrameStatus::kSkipped:
      return "skipped";
    case FrameStatus::kFailed:
      return "failed";
    default:
      return "not begun";
  }
}

void PrintJson(const std::vector<FrameJob>& jobs, double seconds, const ThreadPlan& plan, io::ExitCode code) {
  io::Json report;
  size_t counts[4] = {0, 0, 0, 0};
  io::Json frames = io::Json::array();
  for (const FrameJob& job : jobs) {
    ++counts[static_cast<size_t>(job.status)];
    io::Json entry = {{"frame", job.frame}, {"file", job.file}, {"status", StatusName(job.status)}};
    if (job.status == FrameStatus::kWritten) entry["milliseconds"] = job.milliseconds;
    if (job.status == FrameStatus::kFailed) entry["error"] = job.problem;
    frames.push_back(entry);
  }
  report["exit_code"] = static_cast<int>(code);
  report["written"] = counts[static_cast<size_t>(FrameStatus::kWritten)];
  report["skipped"] = counts[static_cast<size_t>(FrameStatus::kSkipped)];
  report["failed"] = counts[static_cast<size_t>(FrameStatus::kFailed)];
  report["not_begun"] = counts[static_cast<size_t>(FrameStatus::kNotBegun)];
  report["seconds"] = seconds;
  report["frames_at_once"] = plan.frames;
  report["threads_per_frame"] = plan.loopThreads;
  report["frames"] = frames;
  std::printf("%s\n", report.dump(2, ' ', false, io::Json::error_handler_t::replace).c_str());
}

size_t CountPending(const std::vector<FrameJob>& jobs) {
  size_t pending = 0;
  for (const FrameJob& job : jobs) pending += job.status == FrameStatus::kNotBegun ? 1 : 0;
  return pending;
}

void PrintSummary(const std::vector<FrameJob>& jobs, double seconds) {
  size_t written = 0, skipped = 0, failed = 0;
  for (const FrameJob& job : jobs) {
    written += job.status == FrameStatus::kWritten ? 1 : 0;
    skipped += job.status == FrameStatus::kSkipped ? 1 : 0;
    failed += job.status == FrameStatus::kFailed ? 1 : 0;
  }
  std::string line = std::to_string(written) + (written == 1 ? " frame" : " frames") + " written";
  if (skipped > 0) line += ", " + std::to_string(skipped) + " skipped";
  if (failed > 0) line += ", " + std::to_string(failed) + " failed";
  char time[32];
  std::snprintf(time, sizeof(time), " in %.2f s", seconds);
  PrintLine(line + time);
}

// Everything between the set-up and the set-down of the effect.
io::ExitCode RenderScene(const RenderRequest& request, const scene::Scene& scene,
                         host::EffectInstance& effect) {
  std::vector<scene::Parameter> overrides;
  for (const std::string& assignment : request.assignments)
    overrides.push_back(scene::ParseAssignment(assignment, scene.composition.frameRate));
  std::vector<FrameJob> jobs = MakeJobs(request, scene);
  scene::PreparedScene prepared;
  std::vector<std::string> warnings;
  scene::PrepareScene(scene, overrides, effect, request.options, &prepared, &warnings);
  if (!jobs.empty()) scene::CheckExpressions(prepared, jobs.front().frame);
  for (const std::string& line : composition::DrainReports(*prepared.reports)) warnings.push_back(line);
  for (const std::string& warning : warnings) PrintWarning(warning);
  TreatExisting(request, scene.composition, jobs);
  for (const FrameJob& job : jobs)
    if (job.status == FrameStatus::kNotBegun) io::CreateFoldersFor(job.file);

  const size_t pending = CountPending(jobs);
  const ThreadPlan plan = PlanThreads(request.threads, pending, host::RendersOnThreads(effect),
                                      FrameBytes(prepared), MachineMemory() / 2);
  CatchInterrupts();
  Progress progress;
  StartProgress(progress, pending, request.quiet);
  RunJobs(jobs, plan, progress,
          [&](const FrameJob& job) { return RenderAndWrite(prepared, request.format, job); });
  EndProgress(progress);
  for (const std::string& line : composition::DrainReports(*prepared.reports)) PrintWarning(line);
  const double seconds =
      std::chrono::duration<double>(std::chrono::steady_clock::now() - progress.start).count();
  const io::ExitCode code = CodeOfRun(jobs, WasInterrupted());
  if (!request.quiet) PrintSummary(jobs, seconds);
  if (request.json) PrintJson(jobs, seconds, plan, code);
  if (code == io::kInterrupted)
    PrintLine("vantle: interrupted; the same command with --resume renders the frames that are left");
  return code;
}

}  // namespace

const Command& RenderCommand() {
  static const Command command = [] {
    Command made{
        "render",
        "Renders frames of a scene. Without a scene, \"Transform\" runs from 0 to 100 % over the frames.",
        "SCENE.json -o PATTERN [options]\n--a A.png [--b B.png] -o PATTERN --frames 0-59 [options]",
        "SCENE.json",
        1,
        kDetails,
        {{nullptr, "a", "FILE", "Two pictures instead of a scene",
          "picture the particles come from; it carries the effect"},
         {nullptr, "b", "FILE", "Two pictures instead of a scene", "picture the particles go to"},
         {nullptr, "size", "WxH", "Two pictures instead of a scene",
          "size of the frames (default: that of A)"},
         {nullptr, "fps", "RATE", "Two pictures instead of a scene",
          "frames per second, 25 or 30000/1001 (default: 30)"},
         {nullptr, "frames", "RANGE", "Frames",
          "1-100, 1-100x2, 1,5,9-12, -5--1 (default: all of the scene;\n0-59 without a scene)"},
         {nullptr, "depth", "8|16|32", "Frames", "bits per channel (default: 8)"},
         {nullptr, "resolution", "1|1/2|1/3|1/4", "Frames", "size of the preview (default: 1)"},
         {nullptr, "set", "NAME=VALUE", "Frames",
          "set a parameter for all frames, by name, group/name or id;\nmay be given several times", true},
         {"-o", "output", "PATTERN", "Output",
          "files to write: f.%04d.png or f.####.exr or f.%d.npy; PNG is\nstraight, 8 bit or 16 bit, EXR "
          "premultiplied float, npy the\nworld as it is"},
         {"-y", "overwrite", nullptr, "Output", "overwrite frames that exist"},
         {"-n", "skip", nullptr, "Output", "skip frames that exist"},
         {nullptr, "resume", nullptr, "Output", "skip frames that exist and are complete"}}};
    for (const Option& option : ModuleOptions()) made.options.push_back(option);
    made.options.push_back(
        {nullptr, "threads", "N", "Running", "threads in all (default: all of the machine's)"});
    made.options.push_back({nullptr, "quiet", nullptr, "Running", "no progress; warnings and errors only"});
    made.options.push_back(
        {nullptr, "json", nullptr, "Running", "print the results as JSON to standard output"});
    made.options.push_back({"-h", "help", nullptr, "Running", "show this text"});
    return made;
  }();
  return command;
}

int RunRender(const Arguments& arguments) {
  const RenderRequest request = ReadRenderRequest(arguments);
  const scene::Scene scene = ReadRenderScene(arguments, request);
  const std::unique_ptr<host::EffectInstance> effect = OpenSession(arguments);
  io::ExitCode code = io::kDone;
  try {
    code = RenderScene(request, scene, *effect);
  } catch (...) {
    host::CloseEffect(*effect);
    throw;
  }
  CloseSession(*effect);
  return code;
}

}  // namespace vantle::cli
