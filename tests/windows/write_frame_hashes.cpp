// Prints a line on every varied frame, to be compared with another machine's.
#include "tests/windows/varied_frames.h"

#include <cstdio>

int main(int argc, char** argv) {
  using namespace vantle::host;
  if (argc != 2) return 2;
  const LoadedModule loaded = LoadModule(argv[1]);
  if (!loaded.module) {
    std::fprintf(stderr, "%s\n", loaded.message.c_str());
    return 1;
  }
  const OpenedEffect opened = OpenEffect(*loaded.module, {});
  if (!opened.effect) return 1;
  for (int number = 0; number < kVariedFrames; ++number)
    std::printf("%s\n", RenderedLine(*opened.effect, number).c_str());
  CloseEffect(*opened.effect);
  return 0;
}
