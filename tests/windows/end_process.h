// How test programs for Windows end.
#pragma once

#include <cstdio>
#include <cstdlib>
#include <iostream>

namespace vantle::test {

/// Ends the program with this exit code, all output written, without the runtimes' clean-up: the OpenMP
/// runtime's may wait for good for a lock that one of its workers holds.
[[noreturn]] inline void EndProcess(int code) {
  std::cout.flush();
  std::cerr.flush();
  std::fflush(nullptr);
  std::_Exit(code);
}

}  // namespace vantle::test
