// Runs the tests and ends without the runtimes' clean-up: the OpenMP runtime's may wait for good for a lock
// that one of its workers holds.
#include <cstdio>
#include <cstdlib>
#include <gtest/gtest.h>
#include <iostream>

int main(int argc, char** argv) {
  testing::InitGoogleTest(&argc, argv);
  const int failed = RUN_ALL_TESTS();
  std::cout.flush();
  std::cerr.flush();
  std::fflush(nullptr);
  std::_Exit(failed);
}
