// What the render command was asked for, checked before anything is opened.
#pragma once

#include "host/cli/arguments.h"
#include "host/io/frame_range.h"
#include "host/io/image_file.h"
#include "host/scene/scene.h"
#include "host/scene/scene_frame.h"

#include <cstdint>
#include <string>
#include <vector>

namespace vantle::cli {

enum class ExistingFiles { kRefuse, kOverwrite, kSkip, kResume };

struct RenderRequest {
  scene::RenderOptions options;
  io::NamePattern pattern;
  io::OutputFormat format = io::OutputFormat::kPng;
  ExistingFiles existing = ExistingFiles::kRefuse;
  std::vector<int32_t> frames;  ///< empty: the scene's whole duration
  std::vector<std::string> assignments;
  int threads = 1;
  bool quiet = false;
  bool json = false;
};

/// Throws Failure (kUsage).
RenderRequest ReadRenderRequest(const Arguments& arguments);

/// The scene named on the command line, or one made of --a and --b. Throws Failure.
scene::Scene ReadRenderScene(const Arguments& arguments, const RenderRequest& request);

}  // namespace vantle::cli
