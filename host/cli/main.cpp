#include "host/cli/program.h"

int main(int argc, char** argv) {
  return vantle::cli::RunProgram(std::vector<std::string>(argv + (argc > 0 ? 1 : 0), argv + argc));
}
