// Keeps this library in memory, whatever the host unloads.
#pragma once

namespace vantle {

/// From now on the library stays loaded until the process ends: the worker threads of the parallel loops
/// outlive a frame, and unloading their code under them would crash the host. May be called again and again.
/// Returns whether the system agreed; when it did not, nothing has changed.
bool PinModule();

}  // namespace vantle
