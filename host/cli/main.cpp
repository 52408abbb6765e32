#include "host/cli/platform.h"
#include "host/cli/program.h"

int main(int argc, char** argv) {
  vantle::cli::EndProgram(
      vantle::cli::RunProgram(std::vector<std::string>(argv + (argc > 0 ? 1 : 0), argv + argc)));
}
