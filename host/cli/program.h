// The whole program but for main, so that tests can call it.
#pragma once

#include <string>
#include <vector>

namespace vantle::cli {

/// Runs the command line (without the program's own name) and returns the exit code. Never throws.
int RunProgram(const std::vector<std::string>& words);

}  // namespace vantle::cli
