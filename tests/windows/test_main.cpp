// Runs the tests of a program for Windows.
#include "tests/windows/end_process.h"

#include <gtest/gtest.h>

int main(int argc, char** argv) {
  testing::InitGoogleTest(&argc, argv);
  vantle::test::EndProcess(RUN_ALL_TESTS());
}
