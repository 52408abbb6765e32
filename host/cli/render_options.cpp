#include "host/cli/render_options.h"

#include "host/cli/session.h"
#include "host/io/failure.h"
#include "host/io/json_file.h"
#include "host/scene/scene_json.h"

#include <algorithm>
#include <cstdio>

namespace vantle::cli {
namespace {

[[noreturn]] void Refuse(const std::string& why) {
  throw io::Failure(io::kUsage, why);
}

PixelDepth ReadDepth(const Arguments& arguments) {
  const std::string depth = ValueOf(arguments, "depth", "8");
  if (depth == "8") return PixelDepth::k8;
  if (depth == "16") return PixelDepth::k16;
  if (depth == "32") return PixelDepth::k32;
  Refuse("--depth takes 8, 16 or 32, found \"" + depth + "\"");
}

int32_t ReadDivisor(const Arguments& arguments) {
  const std::string resolution = ValueOf(arguments, "resolution", "1");
  if (resolution == "1") return 1;
  if (resolution == "1/2") return 2;
  if (resolution == "1/3") return 3;
  if (resolution == "1/4") return 4;
  Refuse("--resolution takes 1, 1/2, 1/3 or 1/4, found \"" + resolution + "\"");
}

ExistingFiles ReadExisting(const Arguments& arguments) {
  const bool overwrite = Has(arguments, "overwrite"), skip = Has(arguments, "skip"),
             resume = Has(arguments, "resume");
  if (overwrite + skip + resume > 1) Refuse("-y, -n and --resume exclude each other: keep one");
  return overwrite ? ExistingFiles::kOverwrite
         : skip    ? ExistingFiles::kSkip
         : resume  ? ExistingFiles::kResume
                   : ExistingFiles::kRefuse;
}

scene::FrameRate ReadRate(const Arguments& arguments) {
  const std::string text = ValueOf(arguments, "fps", "30");
  io::Json json;
  if (!io::ParseJsonText(text, &json)) json = text;
  try {
    return scene::ReadFrameRate({&json, "--fps", ""});
  } catch (const io::Failure& failure) {
    Refuse(failure.what());
  }
}

io::PictureSize ReadSize(const Arguments& arguments, const std::string& picture) {
  if (!Has(arguments, "size")) return io::ReadPictureSize(picture);
  const std::string text = ValueOf(arguments, "size");
  io::PictureSize size;
  int used = 0;
  if (std::sscanf(text.c_str(), "%9dx%9d%n", &size.width, &size.height, &used) != 2 ||
      static_cast<size_t>(used) != text.size() || size.width < 1 || size.height < 1 ||
      size.width > io::kMaxEdge || size.height > io::kMaxEdge)
    Refuse("--size takes WIDTHxHEIGHT, 1x1 to 30000x30000, found \"" + text + "\"");
  return size;
}

// Two pictures and nothing else: the change from one to the other over the frames asked for.
scene::Scene SceneOfPictures(const Arguments& arguments, const RenderRequest& request) {
  const auto [first, last] = std::minmax_element(request.frames.begin(), request.frames.end());
  scene::Scene made;
  made.file = "--a";
  const std::string source = ValueOf(arguments, "a");
  const io::PictureSize size = ReadSize(arguments, source);
  made.composition = {size.width, size.height, ReadRate(arguments), std::max(1, *last + 1)};
  made.layers.push_back({"A", scene::StillSource{source}});
  if (Has(arguments, "b")) {
    made.layers.push_back({"B", scene::StillSource{ValueOf(arguments, "b")}});
    made.effect.target = 1;
  }
  scene::Parameter transform{"Transform", "Transform", {{static_cast<double>(*first), 0.0, false}}};
  if (*last > *first) transform.keys.push_back({static_cast<double>(*last), 100.0, false});
  made.effect.parameters.push_back(transform);
  return made;
}

}  // namespace

RenderRequest ReadRenderRequest(const Arguments& arguments) {
  RenderRequest request;
  request.options.depth = ReadDepth(arguments);
  request.options.divisor = ReadDivisor(arguments);
  request.existing = ReadExisting(arguments);
  request.threads = IntegerOf(arguments, "threads", MachineThreads(), 1, 1024);
  request.quiet = Has(arguments, "quiet");
  request.json = Has(arguments, "json");
  if (Has(arguments, "set")) request.assignments = arguments.values.at("set");

  const bool scene = !arguments.positionals.empty(), pictures = Has(arguments, "a");
  if (scene && (pictures || Has(arguments, "b") || Has(arguments, "size") || Has(arguments, "fps")))
    Refuse("--a, --b, --size and --fps make a scene of their own: leave them or SCENE.json away");
  if (!scene && !pictures)
    Refuse("what to render is missing: name a SCENE.json, or pictures with --a A.png --b B.png");
  if (Has(arguments, "frames")) request.frames = io::ParseFrameRange(ValueOf(arguments, "frames"));
  if (!scene && request.frames.empty()) request.frames = io::ParseFrameRange("0-59");

  const std::string output = ValueOf(arguments, "output");
  if (output.empty()) Refuse("-o is missing: say where the frames go, such as -o out/f.%04d.png");
  request.format = io::FormatForName(output);
  request.pattern = io::ParseNamePattern(output);
  return request;
}

scene::Scene ReadRenderScene(const Arguments& arguments, const RenderRequest& request) {
  return arguments.positionals.empty() ? SceneOfPictures(arguments, request)
                                       : scene::ReadScene(arguments.positionals[0]);
}

}  // namespace vantle::cli
