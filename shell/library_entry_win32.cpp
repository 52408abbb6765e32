// Where the system enters and leaves the library.
#include <windows.h>

extern "C" {

/// The compiler's own entry, which starts and ends the runtimes of C, C++ and OpenMP.
BOOL WINAPI VANTLE_RUNTIME_ENTRY(HINSTANCE library, DWORD reason, LPVOID reserved);

BOOL WINAPI VantleLibraryEntry(HINSTANCE library, DWORD reason, LPVOID reserved);

// A process that ends has stopped all its threads but one, wherever they were, workers of the parallel loops
// with a lock in their hands among them. The runtimes' clean-up would wait for such a lock, and the host
// would never end. Nobody needs it then: the system takes back everything.
BOOL WINAPI VantleLibraryEntry(HINSTANCE library, DWORD reason, LPVOID reserved) {
  const bool processEnds = reason == DLL_PROCESS_DETACH && reserved != nullptr;
  return processEnds ? TRUE : VANTLE_RUNTIME_ENTRY(library, reason, reserved);
}

}  // extern "C"
