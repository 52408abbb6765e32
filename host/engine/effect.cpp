#include "host/engine/effect.h"

#include "host/engine/commands.h"
#include "host/engine/custom_values.h"
#include "host/engine/declaration.h"
#include "host/engine/suites.h"

namespace vantle::host {
namespace {

void Append(std::vector<std::string>& to, const std::vector<std::string>& lines) {
  to.insert(to.end(), lines.begin(), lines.end());
}

/// Sends a command on the effect's own books. `prepare` sees the records before, `take` after a success.
template <typename Prepare, typename Take>
CommandResult Send(EffectInstance& effect, PF_Cmd command, void* extra, Prepare prepare, Take take) {
  CallContext context;
  context.effect = &effect;
  context.ledger = &effect.ledger;
  context.faults = &effect.faults;
  CommandRecords records = MakeRecords(context, nullptr);
  prepare(records);
  CommandResult result;
  result.command = command;
  result.error = CallEffect(context, command, records, nullptr, nullptr, extra);
  result.message = TakeMessage(context, records.out);
  result.showsMessage =
      !result.message.empty() && (records.out.out_flags & PF_OutFlag_DISPLAY_ERROR_MESSAGE) != 0;
  if (result.error == PF_Err_NONE) {
    take(records);
  }
  Append(result.problems, DrainProblems(effect.ledger));
  Append(result.problems, TakeStrayCalls());
  return result;
}

CommandResult Send(EffectInstance& effect, PF_Cmd command, void* extra) {
  return Send(
      effect, command, extra, [](CommandRecords&) {}, [](CommandRecords&) {});
}

CommandResult SendGlobalSetup(EffectInstance& effect) {
  CommandResult result = Send(
      effect, PF_Cmd_GLOBAL_SETUP, nullptr, [](CommandRecords&) {},
      [&](CommandRecords& records) {
        effect.version = records.out.my_version;
        effect.outFlags = records.out.out_flags;
        effect.outFlags2 = records.out.out_flags2;
        effect.globalData = records.out.global_data;
      });
  if (result.error == PF_Err_NONE && effect.version == 0) {
    result.problems.emplace_back("no version set at global set-up");
  }
  return result;
}

CommandResult SendParamsSetup(EffectInstance& effect) {
  effect.params.clear();
  effect.params.push_back(InputLayerParam());
  effect.declaring = true;
  A_long announced = 0;
  CommandResult result = Send(
      effect, PF_Cmd_PARAMS_SETUP, nullptr,
      [](CommandRecords& records) { records.in.num_params = records.out.num_params = 0; },
      [&](CommandRecords& records) { announced = records.out.num_params; });
  effect.declaring = false;
  if (result.error == PF_Err_NONE) {
    Append(result.problems, CheckDeclaration(effect, announced));
  }
  return result;
}

/// Sequence commands may replace the data that the host keeps for the effect.
CommandResult SendSequence(EffectInstance& effect, PF_Cmd command) {
  return Send(
      effect, command, nullptr, [](CommandRecords&) {},
      [&](CommandRecords& records) { effect.sequenceData = records.out.sequence_data; });
}

void DisposeDefaults(EffectInstance& effect, CommandResult& result) {
  for (std::size_t i = 1; i < effect.params.size(); ++i) {
    PF_ParamDef& def = effect.params[i].def;
    if (def.param_type == PF_Param_ARBITRARY_DATA && def.u.arb_d.dephault != nullptr) {
      Append(result.problems, DisposeCustomHandle(effect, static_cast<int>(i), def.u.arb_d.dephault));
      def.u.arb_d.dephault = nullptr;
    }
  }
}

/// The first failure counts; problems of both are kept.
void Merge(CommandResult& into, const CommandResult& next) {
  if (into.error == PF_Err_NONE && next.error != PF_Err_NONE) {
    into.error = next.error;
    into.command = next.command;
    into.message = next.message;
    into.showsMessage = next.showsMessage;
  }
  Append(into.problems, next.problems);
}

/// Everything that is still missing at the end of the effect's life.
void CloseBooks(EffectInstance& effect, CommandResult& result) {
  Append(result.problems, DrainProblems(effect.ledger));
  Append(result.problems, SettleLedger(effect.ledger));
  Append(result.problems, FindLeaks(effect.handles, nullptr));
  Append(result.problems, TakeStrayCalls());
}

OpenedEffect Refuse(CommandResult result, const std::string& message) {
  result.message = message;
  return {nullptr, std::move(result)};
}

/// Registers as a host does at start-up; returns why the module is no use, or nothing.
std::string Register(EffectInstance& effect, CommandResult& result) {
  CallContext context;
  context.effect = &effect;
  context.ledger = &effect.ledger;
  context.faults = &effect.faults;
  {
    const CallScope scope(context);
    effect.registration = RegisterModule(effect.module, BasicSuite());
  }
  Append(result.problems, DrainProblems(effect.ledger));
  const Registration& registration = effect.registration;
  if (registration.calls == 0) {
    return "the module registered no effect";
  }
  if (registration.kind != kPluginKindEffect) {
    return "the module registered \"" + registration.name + "\", which is no effect";
  }
  if (registration.calls > 1) {
    result.problems.emplace_back("registered " + std::to_string(registration.calls) + " times");
  }
  if (registration.entryPoint != kEffectEntryName) {
    result.problems.emplace_back("registered the entry point \"" + registration.entryPoint + "\"");
  }
  return "";
}

}  // namespace

OpenedEffect OpenEffect(const Module& module, const HostOptions& options) {
  OpenedEffect opened;
  opened.effect = std::make_unique<EffectInstance>();
  EffectInstance& effect = *opened.effect;
  effect.module = module;
  effect.options = options;
  effect.faults.faults = options.faults;
  CommandResult& result = opened.result;
  const std::string refusal = Register(effect, result);
  if (!refusal.empty()) {
    return Refuse(std::move(result), refusal);
  }

  // Global set-up that failed is not set down; what comes after it is.
  Merge(result, SendGlobalSetup(effect));
  if (result.error == PF_Err_NONE) {
    Merge(result, SendParamsSetup(effect));
    if (result.error == PF_Err_NONE) {
      Merge(result, SendSequence(effect, PF_Cmd_SEQUENCE_SETUP));
    }
    effect.open = result.error == PF_Err_NONE;
    if (!effect.open) {
      DisposeDefaults(effect, result);
      Merge(result, Send(effect, PF_Cmd_GLOBAL_SETDOWN, nullptr));
    }
  }
  if (!effect.open) {
    CloseBooks(effect, result);
    opened.effect.reset();
  }
  return opened;
}

CommandResult CloseEffect(EffectInstance& effect) {
  CommandResult result;
  if (!effect.open || effect.closed) {
    return result;
  }
  effect.closed = true;
  result = SendSequence(effect, PF_Cmd_SEQUENCE_SETDOWN);
  DisposeDefaults(effect, result);
  Merge(result, Send(effect, PF_Cmd_GLOBAL_SETDOWN, nullptr));
  CloseBooks(effect, result);
  effect.open = false;
  return result;
}

CommandResult AskAbout(EffectInstance& effect) {
  return Send(effect, PF_Cmd_ABOUT, nullptr);
}

CommandResult SaveAndReload(EffectInstance& effect) {
  CommandResult result = SendSequence(effect, PF_Cmd_SEQUENCE_FLATTEN);
  Merge(result, SendSequence(effect, PF_Cmd_SEQUENCE_RESETUP));
  return result;
}

CommandResult SendCommand(EffectInstance& effect, PF_Cmd command, void* extra) {
  return Send(effect, command, extra);
}

bool RendersOnThreads(const EffectInstance& effect) {
  return (effect.outFlags2 & PF_OutFlag2_SUPPORTS_THREADED_RENDERING) != 0;
}

}  // namespace vantle::host
