// Memory of one running script, with an upper limit.
#pragma once

#include <cstddef>
#include <cstdint>

namespace vantle::composition {

/// Counts what is in use. `refused` is set when something was asked for beyond the limit, or after the
/// deadline: an engine that gets no memory stops.
struct ScriptMemory {
  size_t limit = 0;
  size_t used = 0;
  bool refused = false;
  std::int64_t deadline = 0;
  bool late = false;
};

/// Microseconds of a clock that never jumps.
std::int64_t NowInMicroseconds();

/// As malloc, realloc and free do; `memory` is a ScriptMemory.
void* AllocateForScript(void* memory, size_t size);
void* ReallocateForScript(void* memory, void* block, size_t size);
void FreeForScript(void* memory, void* block);

}  // namespace vantle::composition
