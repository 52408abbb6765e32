#include "shell/module_pin.h"

namespace vantle {

// The module is linked so that it is never unloaded; there is nothing left to do.
bool PinModule() {
  return true;
}

}  // namespace vantle
