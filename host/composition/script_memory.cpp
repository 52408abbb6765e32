#include "host/composition/script_memory.h"

#include <chrono>
#include <cstdlib>
#include <cstring>

namespace vantle::composition {
namespace {

// Stands before each block; as wide as the strictest alignment.
struct alignas(std::max_align_t) Header {
  size_t size;
};

Header* HeaderOf(void* block) {
  return static_cast<Header*>(block) - 1;
}

// Small requests are not worth a look at the clock.
constexpr size_t kLooksAtClock = 4096;

bool MayTake(ScriptMemory& memory, size_t size) {
  if (size > memory.limit || memory.used > memory.limit - size) {
    memory.refused = true;
    return false;
  }
  if (size >= kLooksAtClock && memory.deadline != 0 && NowInMicroseconds() > memory.deadline)
    memory.late = true;
  return !memory.late;
}

}  // namespace

std::int64_t NowInMicroseconds() {
  const auto now = std::chrono::steady_clock::now().time_since_epoch();
  return std::chrono::duration_cast<std::chrono::microseconds>(now).count();
}

void* AllocateForScript(void* of, size_t size) {
  auto& memory = *static_cast<ScriptMemory*>(of);
  if (size == 0 || !MayTake(memory, size)) return nullptr;
  auto* header = static_cast<Header*>(std::malloc(sizeof(Header) + size));
  if (header == nullptr) return nullptr;
  header->size = size;
  memory.used += size;
  return header + 1;
}

void* ReallocateForScript(void* of, void* block, size_t size) {
  if (block == nullptr) return AllocateForScript(of, size);
  if (size == 0) {
    FreeForScript(of, block);
    return nullptr;
  }
  const size_t before = HeaderOf(block)->size;
  auto& memory = *static_cast<ScriptMemory*>(of);
  if (size <= before) return block;  // too small to be worth moving; the next growth will
  memory.used -= before;
  const bool may = MayTake(memory, size);
  memory.used += before;
  if (!may) return nullptr;
  void* moved = std::realloc(HeaderOf(block), sizeof(Header) + size);
  if (moved == nullptr) return nullptr;
  static_cast<Header*>(moved)->size = size;
  memory.used += size - before;
  return static_cast<Header*>(moved) + 1;
}

void FreeForScript(void* of, void* block) {
  if (block == nullptr) return;
  static_cast<ScriptMemory*>(of)->used -= HeaderOf(block)->size;
  std::free(HeaderOf(block));
}

}  // namespace vantle::composition
