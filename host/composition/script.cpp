#include "host/composition/script.h"

#include "host/composition/script_guard.h"
#include "host/composition/script_memory.h"
#include "host/composition/script_setup.h"

#include <cmath>
#include <duktape.h>
#include <memory>

namespace vantle::composition {
namespace {

constexpr long kSteps = 1'000'000;
constexpr std::int64_t kMicroseconds = 2'000'000;
constexpr size_t kMemory = size_t{4} << 20;

// One running script. Also the engine's user data, so memory and steps are found from its callbacks.
struct Run {
  ScriptMemory memory;
  Evaluation* evaluation = nullptr;
  const std::string* text = nullptr;
  Numbers own{};
  int dimensions = 1;
  bool outOfSteps = false;
  bool complete = false;
  Numbers value{};
  char shape[160] = "";
};

Run& RunOf(duk_context* engine) {
  duk_memory_functions functions{};
  duk_get_memory_functions(engine, &functions);
  return *static_cast<Run*>(functions.udata);
}

void* Allocate(void* run, duk_size_t size) {
  return AllocateForScript(&static_cast<Run*>(run)->memory, size);
}
void* Reallocate(void* run, void* block, duk_size_t size) {
  return ReallocateForScript(&static_cast<Run*>(run)->memory, block, size);
}
void Free(void* run, void* block) {
  FreeForScript(&static_cast<Run*>(run)->memory, block);
}

// Once the budget is spent every further question fails too, so that no handler of the script survives it.
void Spend(duk_context* engine, long steps) {
  constexpr long kLooksAtClock = 256;
  Run& run = RunOf(engine);
  Budget& budget = run.evaluation->budget;
  const long before = budget.steps;
  budget.steps -= steps;
  const bool look = before / kLooksAtClock != budget.steps / kLooksAtClock;
  if (look && NowInMicroseconds() > budget.deadline) run.memory.late = true;
  if (budget.steps < 0) run.outOfSteps = true;
  if (run.outOfSteps || run.memory.late) duk_error_raw(engine, DUK_ERR_RANGE_ERROR, nullptr, 0, "stopped");
}

duk_ret_t Tick(duk_context* engine) {
  Spend(engine, 1);
  duk_push_true(engine);
  return 1;
}

long CountKeys(duk_context* engine) {
  long count = 0;
  if (duk_is_string(engine, 0)) return static_cast<long>(duk_get_length(engine, 0));
  if (!duk_is_object(engine, 0)) return 0;
  duk_enum(engine, 0, 0);
  while (duk_next(engine, -1, 0) != 0) {
    duk_pop(engine);
    ++count;
  }
  duk_pop(engine);
  return count;
}

duk_ret_t Keys(duk_context* engine) {
  Spend(engine, 1 + CountKeys(engine));
  duk_dup(engine, 0);
  return 1;
}

// The script can neither replace nor remove it.
void AddFixedGlobal(duk_context* engine, const char* name, duk_c_function function, duk_idx_t arguments) {
  duk_push_global_object(engine);
  duk_push_string(engine, name);
  duk_push_c_function(engine, function, arguments);
  duk_def_prop(engine, -3,
               DUK_DEFPROP_HAVE_VALUE | DUK_DEFPROP_CLEAR_WRITABLE | DUK_DEFPROP_CLEAR_CONFIGURABLE |
                   DUK_DEFPROP_CLEAR_ENUMERABLE);
  duk_pop(engine);
}

bool TakeNumber(duk_context* engine, Run& run, size_t at) {
  const double number = duk_get_number_default(engine, -1, std::nan(""));
  run.value[at] = number;
  return std::isfinite(number);
}

// Of a list, as many numbers as it has; what it leaves out keeps its own value.
bool TakeList(duk_context* engine, Run& run) {
  const auto length = static_cast<size_t>(duk_get_length(engine, -1));
  if (length < 2) return false;
  for (size_t i = 0; i < length && i < static_cast<size_t>(run.dimensions); ++i) {
    duk_get_prop_index(engine, -1, static_cast<duk_uarridx_t>(i));
    const bool fits = TakeNumber(engine, run, i);
    duk_pop(engine);
    if (!fits) return false;
  }
  return true;
}

void TakeResult(duk_context* engine, Run& run) {
  run.value = run.own;
  run.complete = run.dimensions == 1 ? TakeNumber(engine, run, 0)
                                     : duk_is_array(engine, -1) != 0 && TakeList(engine, run);
  if (run.complete) return;
  const char* found = duk_is_array(engine, -1) != 0 ? "a list" : duk_safe_to_string(engine, -1);
  std::snprintf(run.shape, sizeof run.shape, "gives %.60s where %s needed", found,
                run.dimensions == 1 ? "one number is" : "a list of numbers is");
}

duk_ret_t Prepare(duk_context* engine, void*) {
  Run& run = RunOf(engine);
  StripGlobals(engine);
  AddFixedGlobal(engine, kTickName, Tick, 0);
  AddFixedGlobal(engine, kKeysName, Keys, 1);
  OfferComposition(engine, *run.evaluation, run.own, run.dimensions);
  return 0;
}

duk_ret_t Execute(duk_context* engine, void*) {
  Run& run = RunOf(engine);
  duk_push_lstring(engine, run.text->data(), run.text->size());
  duk_push_string(engine, "expression");
  duk_compile(engine, DUK_COMPILE_EVAL);
  duk_call(engine, 0);
  TakeResult(engine, run);
  return 0;
}

int LineOf(duk_context* engine) {
  if (!duk_is_object(engine, -1)) return 1;
  duk_get_prop_string(engine, -1, "lineNumber");
  const int line = duk_get_int_default(engine, -1, 1);
  duk_pop(engine);
  return line < 1 ? 1 : line;
}

duk_ret_t Describe(duk_context* engine, void* to) {
  auto* result = static_cast<ScriptResult*>(to);
  result->line = LineOf(engine);
  result->message = duk_safe_to_string(engine, -1);
  return 0;
}

// The thrown value lies on the stack. Looking at it runs the script's own code, so that is protected too.
void DescribeFailure(duk_context* engine, const Run& run, ScriptResult* result) {
  result->message = "fails without a message";
  if (engine != nullptr && duk_get_top(engine) > 0) duk_safe_call(engine, Describe, result, 1, 1);
  if (run.outOfSteps) result->message = "does not end: stopped after 1000000 turns of loops and calls";
  if (run.memory.late) result->message = "does not end: stopped after 2 seconds";
  if (run.memory.refused && !run.outOfSteps && !run.memory.late)
    result->message = "needs more than 4 megabytes of memory";
}

void RunInEngine(Run& run, const std::string& prepared, ScriptResult* result) {
  run.text = &prepared;
  const auto close = [](duk_context* engine) { duk_destroy_heap(engine); };
  const std::unique_ptr<duk_context, decltype(close)> engine(
      duk_create_heap(Allocate, Reallocate, Free, &run, nullptr), close);
  if (engine == nullptr) return DescribeFailure(nullptr, run, result);
  const bool ran = duk_safe_call(engine.get(), Prepare, nullptr, 0, 1) == DUK_EXEC_SUCCESS &&
                   duk_safe_call(engine.get(), Execute, nullptr, 0, 1) == DUK_EXEC_SUCCESS;
  const bool stopped = run.outOfSteps || run.memory.late;
  result->ok = ran && run.complete && !stopped;
  result->value = run.value;
  if (!ran || stopped) return DescribeFailure(engine.get(), run, result);
  if (!run.complete) result->message = run.shape;
}

}  // namespace

Budget FreshBudget() {
  return {kSteps, NowInMicroseconds() + kMicroseconds};
}

ScriptResult RunScript(Evaluation& evaluation, const std::string& text, const Numbers& own, int dimensions) {
  ScriptResult result;
  const GuardedScript guarded = GuardScript(text);
  if (!guarded.ok) {
    result.line = guarded.line;
    result.message = guarded.message;
    return result;
  }
  Run run;
  run.memory.limit = kMemory;
  run.memory.deadline = evaluation.budget.deadline;
  run.evaluation = &evaluation;
  run.own = own;
  run.dimensions = dimensions;
  RunInEngine(run, guarded.text, &result);
  return result;
}

}  // namespace vantle::composition
