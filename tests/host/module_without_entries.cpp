// A library that is no effect at all.
#include "base/compiler.h"

extern "C" VANTLE_EXPORT int SomethingElse();
extern "C" int SomethingElse() {
  return 1;
}
