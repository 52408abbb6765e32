// A library that exports only one of the two entry points.
#include "base/compiler.h"

extern "C" VANTLE_EXPORT int EffectMain() {
  return 0;
}
