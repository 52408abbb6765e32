#include "host/engine/commands.h"
#include "host/engine/frame_params.h"
#include "host/engine/frame_request.h"

#include <chrono>
#include <cstring>
#include <new>

namespace vantle::host {
namespace {

/// Everything that lives as long as one frame.
struct FrameRun {
  Ledger ledger;
  FaultState ownFaults;
  CallContext context;
  FrameScope frame;
  World copiedOutput;
  FrameResult result;
};

void Append(std::vector<std::string>& to, const std::vector<std::string>& lines) {
  to.insert(to.end(), lines.begin(), lines.end());
}

std::string CheckRequest(const EffectInstance& effect, const FrameRequest& request) {
  if (!effect.open) {
    return "the effect is not set up";
  }
  if (request.depth != 8 && request.depth != 16 && request.depth != 32) {
    return "frames have 8, 16 or 32 bits, not " + std::to_string(request.depth);
  }
  if (request.width < 0 || request.height < 0 || request.width > kMaxWorldEdge ||
      request.height > kMaxWorldEdge) {
    return "frames have 0 to 30000 columns and rows, not " + std::to_string(request.width) + " x " +
           std::to_string(request.height);
  }
  if (request.depth > 8 && (effect.outFlags & PF_OutFlag_DEEP_COLOR_AWARE) == 0) {
    return "the effect declares no more than 8 bits";
  }
  return CheckValues(effect, request);
}

/// The output as the effect gets it: the caller's world, or a copy whose rows lie as the host was told.
World* PrepareOutput(FrameRun& run, const HostOptions& options, const FrameRequest& request, World* output) {
  const bool fits = output->width == request.width && output->height == request.height &&
                    output->depth == request.depth && !output->storage.empty();
  if (!fits) {
    *output =
        MakeWorld(request.width, request.height, request.depth, options.rows.value_or(RowLayout::kPadded));
  }
  if (options.soilOutput) {
    SoilWorld(*output);
  }
  if (options.rows.has_value() && *options.rows != output->layout) {
    run.copiedOutput = CopyWorld(*output, *options.rows);
    return &run.copiedOutput;
  }
  return output;
}

std::shared_ptr<const World> PrepareInput(const HostOptions& options,
                                          const std::shared_ptr<const World>& input) {
  if (input != nullptr && options.rows.has_value() && *options.rows != input->layout) {
    return std::make_shared<const World>(CopyWorld(*input, *options.rows));
  }
  return input;
}

void Begin(FrameRun& run, EffectInstance& effect, const FrameRequest& request, World* output) {
  FrameScope& frame = run.frame;
  frame.request = &request;
  frame.layers = request.layers ? request.layers : LayersOf(effect, {}, request.input);
  frame.input = PrepareInput(effect.options, request.input);
  frame.output = output == nullptr ? nullptr : PrepareOutput(run, effect.options, request, output);
  if (frame.input != nullptr) {
    frame.worlds.push_back({WorldRow(*frame.input, 0), frame.input->depth});
    frame.inputSum = effect.options.checkReadOnly ? HashPixels(*frame.input) : 0;
  }
  if (frame.output != nullptr) {
    frame.worlds.push_back({WorldRow(*frame.output, 0), frame.output->depth});
  }
  BuildParams(effect, request, frame);
  run.context.effect = &effect;
  run.context.ledger = &run.ledger;
  run.context.frame = &frame;
  run.context.faults = &effect.faults;
  if (request.faults.has_value()) {
    run.ownFaults.faults = *request.faults;
    run.context.faults = &run.ownFaults;
  }
}

/// Only a render sees pixels of the input layer; other commands get its record without them.
void ShowInput(FrameScope& frame, PF_Cmd command) {
  const A_long initial = frame.params[0].u.ld.dephault;
  frame.params[0].u.ld = frame.input == nullptr ? PF_LayerDef{} : DescribeReadOnlyWorld(*frame.input);
  if (command != PF_Cmd_RENDER) {
    frame.params[0].u.ld.data = nullptr;
  }
  frame.params[0].u.ld.dephault = initial;
}

/// Any byte that changed counts, padding included: nobody but the effect had the records.
bool SameBytes(const void* a, const void* b, std::size_t size) {
  return std::memcmp(a, b, size) == 0;
}

/// Sends one command; the first failing one is remembered.
PF_Err SendOne(FrameRun& run, PF_Cmd command, void* extra) {
  FrameScope& frame = run.frame;
  ShowInput(frame, command);
  CommandRecords records = MakeRecords(run.context, frame.request);
  records.in.frame_data = records.out.frame_data = frame.frameData;
  records.out.width = frame.request->width;
  records.out.height = frame.request->height;
  PF_LayerDef output = frame.output == nullptr ? PF_LayerDef{} : DescribeWorld(*frame.output, true);
  const std::vector<PF_ParamDef> before =
      command == PF_Cmd_RENDER ? frame.params : std::vector<PF_ParamDef>();

  const auto start = std::chrono::steady_clock::now();
  const PF_Err error = CallEffect(run.context, command, records, frame.pointers.data(),
                                  frame.output == nullptr ? nullptr : &output, extra);
  const std::chrono::duration<double, std::milli> took = std::chrono::steady_clock::now() - start;
  if (command == PF_Cmd_RENDER) {
    run.result.milliseconds = took.count();
  }

  frame.frameData = records.out.frame_data;
  const std::string message = TakeMessage(run.context, records.out);
  if (run.result.message.empty()) {
    run.result.message = message;
  }
  if (error != PF_Err_NONE && run.result.error == PF_Err_NONE) {
    run.result.error = error;
    run.result.failedCommand = command;
    run.result.message = message;
  }
  const bool resizes =
      (records.out.out_flags & (PF_OutFlag_I_EXPAND_BUFFER | PF_OutFlag_I_SHRINK_BUFFER)) != 0;
  if (!resizes &&
      (records.out.width != frame.request->width || records.out.height != frame.request->height)) {
    Complain(run.context, CommandName(command) + " changed the output's size without having declared it");
  }
  for (std::size_t i = 0; i < before.size(); ++i) {
    if (!SameBytes(&before[i], &frame.params[i], sizeof before[i])) {
      Complain(run.context, "parameter " + std::to_string(i) + " was written to in a render");
      frame.params[i] = before[i];
    }
  }
  return error;
}

void CheckWorlds(FrameRun& run) {
  const FrameScope& frame = run.frame;
  if (frame.output != nullptr) {
    for (const std::string& line : FindDamage(*frame.output)) {
      Complain(run.context, "output: " + line);
    }
  }
  if (frame.input != nullptr) {
    for (const std::string& line : FindDamage(*frame.input)) {
      Complain(run.context, "input: " + line);
    }
    if (run.context.effect->options.checkReadOnly && HashPixels(*frame.input) != frame.inputSum) {
      Complain(run.context, "the pixels of the input were written to");
    }
  }
}

void End(FrameRun& run, World* output, std::map<int, CustomBytes>* changed) {
  EffectInstance& effect = *run.context.effect;
  CheckWorlds(run);
  if (output != nullptr && run.frame.output != output) {
    CopyPixels(*run.frame.output, *output);
  }
  const std::vector<std::string> params = TakeParamsBack(effect, run.frame, changed);
  std::vector<std::string>& problems = run.result.problems;
  Append(problems, DrainProblems(run.ledger));
  Append(problems, params);
  Append(problems, SettleLedger(run.ledger));
  Append(problems, FindLeaks(effect.handles, &run.ledger));
  Append(problems, TakeStrayCalls());
  AddCounts(effect.ledger, run.ledger);
  run.result.hostCalls = run.context.calls;
  run.result.allocations = run.context.allocations;
}

FrameResult Refused(const std::string& why) {
  FrameResult result;
  result.refused = true;
  result.message = why;
  result.problems.push_back(why);
  return result;
}

template <typename Commands>
FrameResult RunFrame(EffectInstance& effect, const FrameRequest& request, World* output,
                     std::map<int, CustomBytes>* changed, Commands commands) {
  FrameRun run;
  const std::string refusal = CheckRequest(effect, request);
  if (!refusal.empty()) {
    return Refused(refusal);
  }
  std::unique_lock<std::recursive_mutex> turn(effect.turns, std::defer_lock);
  if (!RendersOnThreads(effect)) {
    turn.lock();
  }
  try {
    Begin(run, effect, request, output);
  } catch (const std::bad_alloc&) {
    return Refused("not enough memory for the frame's worlds");
  }
  commands(run);
  End(run, output, changed);
  return std::move(run.result);
}

}  // namespace

bool Succeeded(const FrameResult& result) {
  return result.error == PF_Err_NONE && !result.refused && result.problems.empty();
}

FrameResult RenderFrame(EffectInstance& effect, const FrameRequest& request, World* output) {
  World scratch;
  return RunFrame(effect, request, output == nullptr ? &scratch : output, nullptr, [](FrameRun& run) {
    if (SendOne(run, PF_Cmd_FRAME_SETUP, nullptr) == PF_Err_NONE) {
      SendOne(run, PF_Cmd_RENDER, nullptr);
    }
    SendOne(run, PF_Cmd_FRAME_SETDOWN, nullptr);
  });
}

FrameResult SendFrameCommand(EffectInstance& effect, PF_Cmd command, const FrameRequest& request,
                             World* output, void* extra, std::map<int, CustomBytes>* changed) {
  return RunFrame(effect, request, output, changed, [&](FrameRun& run) { SendOne(run, command, extra); });
}

}  // namespace vantle::host
