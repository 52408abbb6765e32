#include "host/engine/custom_values.h"

#include "host/engine/commands.h"

namespace vantle::host {
namespace {

/// One callback on books of its own, so that several threads may ask at once.
struct CallbackRun {
  Ledger ledger;
  CallContext context;
  std::vector<PF_Handle> lent;  ///< values of the host, locked for the effect
};

void Begin(CallbackRun& run, EffectInstance& effect) {
  run.context.effect = &effect;
  run.context.ledger = &run.ledger;
  run.context.faults = &effect.faults;
}

/// A value of the host's, locked as hosts lock what they pass in.
PF_Handle Lend(CallbackRun& run, const std::vector<std::uint8_t>& bytes) {
  HandlePool& pool = run.context.effect->handles;
  const PF_Handle handle = NewHandleFrom(pool, bytes);
  HandleProblem ignored;
  LockHandle(pool, handle, ignored);
  run.lent.push_back(handle);
  return handle;
}

PF_Err Call(CallbackRun& run, PF_ArbParamsExtra& extra) {
  CommandRecords records = MakeRecords(run.context, nullptr);
  // Hosts do not always have an instance at hand here, so nothing may rest on the reference.
  records.in.effect_ref = nullptr;
  const PF_Err error = CallEffect(run.context, PF_Cmd_ARBITRARY_CALLBACK, records, nullptr, nullptr, &extra);
  TakeMessage(run.context, records.out);
  return error;
}

PF_ArbParamsExtra MakeExtra(const EffectInstance& effect, int param, PF_FunctionSelector function) {
  PF_ArbParamsExtra extra{};
  extra.which_function = function;
  extra.id = effect.params[static_cast<std::size_t>(param)].def.u.arb_d.id;
  // All members of the union begin with the reference constant.
  extra.u.new_func_params.refconPV = effect.params[static_cast<std::size_t>(param)].def.u.arb_d.refconPV;
  return extra;
}

bool IsCustom(const EffectInstance& effect, int param) {
  return param > 0 && static_cast<std::size_t>(param) < effect.params.size() &&
         effect.params[static_cast<std::size_t>(param)].def.param_type == PF_Param_ARBITRARY_DATA;
}

/// Takes a value made by the effect over, reads it, and has the effect dispose of it.
void Collect(CallbackRun& run, int param, PF_ArbitraryH made, CustomResult& result) {
  if (made == nullptr) {
    return;
  }
  EffectInstance& effect = *run.context.effect;
  HandleProblem problem;
  SetHandleOwner(effect.handles, made, HandleOwner::kHost, nullptr, problem);
  if (!problem.empty()) {
    Complain(run.context, "value of parameter " + std::to_string(param) + ": " + problem);
    return;
  }
  result.present = true;
  result.bytes = HandleBytes(effect.handles, made);
  const std::vector<std::string> lines = DisposeCustomHandle(effect, param, made);
  result.problems.insert(result.problems.end(), lines.begin(), lines.end());
}

/// Takes the lent values back and closes the books.
void End(CallbackRun& run, std::vector<std::string>& problems) {
  HandlePool& pool = run.context.effect->handles;
  for (const PF_Handle handle : run.lent) {
    HandleProblem problem;
    if (HandleLocks(pool, handle) > 1) {
      Complain(run.context, "a value stayed locked after its callback");
    }
    while (HandleLocks(pool, handle) > 0) {
      UnlockHandle(pool, handle, problem);
    }
    DisposeHandle(pool, handle, problem);
    if (!problem.empty()) {
      Complain(run.context, problem);
    }
  }
  for (const auto& lines : {DrainProblems(run.ledger), SettleLedger(run.ledger), FindLeaks(pool, &run.ledger),
                            TakeStrayCalls()}) {
    problems.insert(problems.end(), lines.begin(), lines.end());
  }
  AddCounts(run.context.effect->ledger, run.ledger);
}

/// What all questions about a value share: `ask(run, result)` between opened and closed books.
template <typename Result, typename Ask>
Result WithBooks(EffectInstance& effect, int param, Ask ask) {
  Result result;
  if (!IsCustom(effect, param)) {
    result.error = PF_Err_INVALID_INDEX;
    return result;
  }
  CallbackRun run;
  Begin(run, effect);
  ask(run, result);
  End(run, result.problems);
  return result;
}

/// One callback; `fill(arguments)` completes its record.
template <typename Fill>
PF_Err CallWith(CallbackRun& run, int param, PF_FunctionSelector function, Fill fill) {
  PF_ArbParamsExtra extra = MakeExtra(*run.context.effect, param, function);
  fill(extra.u);
  return Call(run, extra);
}

/// A callback that makes a value. `fill` completes the record, given where the value must go.
template <typename Fill>
CustomResult MakeValue(EffectInstance& effect, int param, PF_FunctionSelector function, Fill fill) {
  return WithBooks<CustomResult>(effect, param, [&](CallbackRun& run, CustomResult& result) {
    PF_ArbitraryH made = nullptr;
    result.error = CallWith(run, param, function, [&](PF_ArbParamsExtra_u& u) { fill(run, u, &made); });
    Collect(run, param, made, result);
  });
}

}  // namespace

CustomResult NewCustomValue(EffectInstance& effect, int param) {
  return MakeValue(
      effect, param, PF_Arbitrary_NEW_FUNC,
      [](CallbackRun&, PF_ArbParamsExtra_u& u, PF_ArbitraryH* made) { u.new_func_params.arbPH = made; });
}

CustomResult CopyCustomValue(EffectInstance& effect, int param, const std::vector<std::uint8_t>& value) {
  return MakeValue(effect, param, PF_Arbitrary_COPY_FUNC,
                   [&](CallbackRun& run, PF_ArbParamsExtra_u& u, PF_ArbitraryH* made) {
                     u.copy_func_params.src_arbH = Lend(run, value);
                     u.copy_func_params.dst_arbPH = made;
                   });
}

CustomResult InterpolateCustomValue(EffectInstance& effect, int param, const std::vector<std::uint8_t>& left,
                                    const std::vector<std::uint8_t>& right, double fraction) {
  return MakeValue(effect, param, PF_Arbitrary_INTERP_FUNC,
                   [&](CallbackRun& run, PF_ArbParamsExtra_u& u, PF_ArbitraryH* made) {
                     u.interp_func_params.left_arbH = Lend(run, left);
                     u.interp_func_params.right_arbH = Lend(run, right);
                     u.interp_func_params.tF = fraction;
                     u.interp_func_params.interpPH = made;
                   });
}

CustomResult UnflattenCustomValue(EffectInstance& effect, int param, const std::vector<std::uint8_t>& flat) {
  return MakeValue(effect, param, PF_Arbitrary_UNFLATTEN_FUNC,
                   [&](CallbackRun&, PF_ArbParamsExtra_u& u, PF_ArbitraryH* made) {
                     u.unflatten_func_params.buf_sizeLu = static_cast<A_u_long>(flat.size());
                     u.unflatten_func_params.flat_dataPV = flat.data();
                     u.unflatten_func_params.arbPH = made;
                   });
}

CustomResult ScanCustomValue(EffectInstance& effect, int param, const std::string& text) {
  return MakeValue(effect, param, PF_Arbitrary_SCAN_FUNC,
                   [&](CallbackRun&, PF_ArbParamsExtra_u& u, PF_ArbitraryH* made) {
                     u.scan_func_params.bufPC = text.c_str();
                     u.scan_func_params.bytes_to_scanLu = static_cast<A_u_long>(text.size());
                     u.scan_func_params.arbPH = made;
                   });
}

CustomResult FlattenCustomValue(EffectInstance& effect, int param, const std::vector<std::uint8_t>& value) {
  return WithBooks<CustomResult>(effect, param, [&](CallbackRun& run, CustomResult& result) {
    const PF_Handle lent = Lend(run, value);
    A_u_long size = 0;
    result.error = CallWith(run, param, PF_Arbitrary_FLAT_SIZE_FUNC, [&](PF_ArbParamsExtra_u& u) {
      u.flat_size_func_params.arbH = lent;
      u.flat_size_func_params.flat_data_sizePLu = &size;
    });
    if (result.error != PF_Err_NONE) return;
    result.bytes.resize(size);
    result.error = CallWith(run, param, PF_Arbitrary_FLATTEN_FUNC, [&](PF_ArbParamsExtra_u& u) {
      u.flatten_func_params.arbH = lent;
      u.flatten_func_params.buf_sizeLu = size;
      u.flatten_func_params.flat_dataPV = result.bytes.data();
    });
    result.present = result.error == PF_Err_NONE && size > 0;
  });
}

CustomComparison CompareCustomValues(EffectInstance& effect, int param, const std::vector<std::uint8_t>& a,
                                     const std::vector<std::uint8_t>& b) {
  return WithBooks<CustomComparison>(effect, param, [&](CallbackRun& run, CustomComparison& result) {
    result.error = CallWith(run, param, PF_Arbitrary_COMPARE_FUNC, [&](PF_ArbParamsExtra_u& u) {
      u.compare_func_params.a_arbH = Lend(run, a);
      u.compare_func_params.b_arbH = Lend(run, b);
      u.compare_func_params.compareP = &result.order;
    });
  });
}

CustomText PrintCustomValue(EffectInstance& effect, int param, const std::vector<std::uint8_t>& value) {
  return WithBooks<CustomText>(effect, param, [&](CallbackRun& run, CustomText& result) {
    const PF_Handle lent = Lend(run, value);
    A_u_long size = 0;
    result.error = CallWith(run, param, PF_Arbitrary_PRINT_SIZE_FUNC, [&](PF_ArbParamsExtra_u& u) {
      u.print_size_func_params.arbH = lent;
      u.print_size_func_params.print_sizePLu = &size;
    });
    if (result.error != PF_Err_NONE || size == 0) return;
    // One zero more than the effect knows of ends a text that fills its buffer.
    std::vector<A_char> buffer(std::size_t{size} + 1, '\0');
    result.error = CallWith(run, param, PF_Arbitrary_PRINT_FUNC, [&](PF_ArbParamsExtra_u& u) {
      u.print_func_params.arbH = lent;
      u.print_func_params.print_sizeLu = size;
      u.print_func_params.print_bufferPC = buffer.data();
    });
    if (buffer[size] != '\0') {
      Complain(run.context, "a value's text was written past its buffer");
      buffer[size] = '\0';
    }
    result.text = buffer.data();
  });
}

std::vector<std::string> DisposeCustomHandle(EffectInstance& effect, int param, PF_ArbitraryH handle) {
  CallbackRun run;
  Begin(run, effect);
  HandleProblem problem;
  SetHandleOwner(effect.handles, handle, HandleOwner::kEffect, &run.ledger, problem);
  PF_ArbParamsExtra extra = MakeExtra(effect, param, PF_Arbitrary_DISPOSE_FUNC);
  extra.u.dispose_func_params.arbH = handle;
  std::vector<std::string> problems;
  if (!problem.empty()) {
    problems.push_back(problem);
  } else if (Call(run, extra) != PF_Err_NONE) {
    problems.emplace_back("disposing of a custom value failed");
  }
  End(run, problems);
  return problems;
}

CommandResult SendCustomCallback(EffectInstance& effect, PF_ArbParamsExtra& extra) {
  return SendCommand(effect, PF_Cmd_ARBITRARY_CALLBACK, &extra);
}

}  // namespace vantle::host
