// Runs an expression: JavaScript that sees the composition and nothing else.
#pragma once

#include "host/composition/evaluation.h"

#include <string>

namespace vantle::composition {

/// `line` is where a failure showed itself, from 1.
struct ScriptResult {
  bool ok = false;
  Numbers value{};
  int line = 1;
  std::string message;
};

/// What an expression and those that it refers to may use: a million turns of loops or calls, and two
/// seconds should those take long.
Budget FreshBudget();

/// The value of the last statement that `text` runs, `dimensions` numbers. The script sees `thisComp`,
/// `time`, `value` (`own`), Math without its random numbers, and plain texts, numbers and lists; no files, no
/// clock, no compiler. It may use four megabytes and what is left of the evaluation's budget. Runs in an
/// engine of its own, so that nothing stays behind.
ScriptResult RunScript(Evaluation& evaluation, const std::string& text, const Numbers& own, int dimensions);

}  // namespace vantle::composition
