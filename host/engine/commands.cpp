#include "host/engine/commands.h"

#include "host/engine/suites.h"

#include <algorithm>
#include <cmath>
#include <exception>
#include <limits>

namespace vantle::host {
namespace {

constexpr PF_SpecVersion kHostApi{13, 28};

/// Size at full resolution of something `size` pixels long at a downsample of num / den.
A_long FullSize(int size, const PF_RationalScale& downsample) {
  if (downsample.num <= 0 || downsample.den == 0) {
    return size;
  }
  const double full = std::floor(size * static_cast<double>(downsample.den) / downsample.num + 0.5);
  return static_cast<A_long>(std::clamp(full, 0.0, double{std::numeric_limits<A_long>::max()}));
}

void FillClock(PF_InData& in, const FrameTime& time) {
  in.current_time = time.current;
  in.time_step = time.step;
  in.local_time_step = time.step;
  in.total_time = time.total;
  in.time_scale = time.scale;
}

void FillSizes(PF_InData& in, const FrameRequest& request) {
  in.width = request.fullWidth != 0 ? request.fullWidth : FullSize(request.width, request.downsampleX);
  in.height = request.fullHeight != 0 ? request.fullHeight : FullSize(request.height, request.downsampleY);
  in.extent_hint = {0, 0, request.width, request.height};
  in.downsample_x = request.downsampleX;
  in.downsample_y = request.downsampleY;
  in.pixel_aspect_ratio = request.pixelAspect;
}

}  // namespace

CommandRecords MakeRecords(CallContext& context, const FrameRequest* request) {
  EffectInstance& effect = *context.effect;
  CommandRecords records;
  PF_InData& in = records.in;
  in.inter = InteractCallbacks();
  in.utils = UtilCallbacks();
  in.effect_ref = EffectRef(context);
  in.quality = PF_Quality_HI;
  in.version = kHostApi;
  in.appl_id = effect.options.applId;
  in.num_params = static_cast<A_long>(effect.params.size());
  in.downsample_x = {1, 1};
  in.downsample_y = {1, 1};
  in.pixel_aspect_ratio = {1, 1};
  in.global_data = effect.globalData;
  in.sequence_data = effect.sequenceData;
  in.pica_basicP = BasicSuite();
  if (request != nullptr) {
    in.quality = request->quality;
    FillClock(in, request->time);
    FillSizes(in, *request);
    // Frames on several threads share one sequence, so hosts withhold its data from them.
    in.sequence_data = RendersOnThreads(effect) ? nullptr : effect.sequenceData;
  }

  PF_OutData& out = records.out;
  out.my_version = effect.version;
  out.global_data = effect.globalData;
  out.num_params = in.num_params;
  out.sequence_data = in.sequence_data;
  out.out_flags = effect.outFlags;
  out.out_flags2 = effect.outFlags2;
  return records;
}

PF_Err CallEffect(CallContext& context, PF_Cmd command, CommandRecords& records, PF_ParamDef** params,
                  PF_LayerDef* output, void* extra) {
  context.command = command;
  const CallScope scope(context);
  try {
    return context.effect->module.effectMain(command, &records.in, &records.out, params, output, extra);
  } catch (const std::exception& escaped) {
    Complain(context, CommandName(command) + ": an exception came out of the effect: " + escaped.what());
  } catch (...) {
    Complain(context, CommandName(command) + ": an exception came out of the effect");
  }
  return PF_Err_INTERNAL_STRUCT_DAMAGED;
}

std::string TakeMessage(CallContext& context, PF_OutData& out) {
  A_char* end = std::find(std::begin(out.return_msg), std::end(out.return_msg), '\0');
  if (end == std::end(out.return_msg)) {
    Complain(context, "return_msg holds no end");
  }
  std::string message(std::begin(out.return_msg), end);
  std::fill(std::begin(out.return_msg), std::end(out.return_msg), '\0');
  return message;
}

std::string CommandName(PF_Cmd command) {
  static const char* const names[] = {
      "ABOUT",          "GLOBAL_SETUP",     "UNUSED_0",         "GLOBAL_SETDOWN",     "PARAMS_SETUP",
      "SEQUENCE_SETUP", "SEQUENCE_RESETUP", "SEQUENCE_FLATTEN", "SEQUENCE_SETDOWN",   "DO_DIALOG",
      "FRAME_SETUP",    "RENDER",           "FRAME_SETDOWN",    "USER_CHANGED_PARAM", "UPDATE_PARAMS_UI",
      "EVENT"};
  if (command >= 0 && command < static_cast<PF_Cmd>(std::size(names))) {
    return names[command];
  }
  return command == PF_Cmd_ARBITRARY_CALLBACK ? "ARBITRARY_CALLBACK" : "command " + std::to_string(command);
}

}  // namespace vantle::host
