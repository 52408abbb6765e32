#include "tests/windows/graphics/stand_in/objects.h"

#include <atomic>
#include <cstdio>
#include <memory>
#include <mutex>

namespace vantle::standin {

namespace {

struct Pool {
  std::mutex mutex;
  std::vector<std::unique_ptr<Object>> objects;
};

Pool& ThePool() {
  static Pool pool;
  return pool;
}

std::atomic<int> gInside{0};

}  // namespace

Graphics& Books() {
  static Graphics books;
  return books;
}

void Fault(const char* what) {
  static std::mutex mutex;
  const std::lock_guard lock(mutex);
  if (Books().faults++ == 0) std::snprintf(Books().firstFault, sizeof(Books().firstFault), "%s", what);
}

Object* NewObject(Kind kind, const void* table, Object* device) {
  Pool& pool = ThePool();
  const std::lock_guard lock(pool.mutex);
  pool.objects.push_back(std::make_unique<Object>());
  Object* const object = pool.objects.back().get();
  object->table = table;
  object->kind = kind;
  object->references = 1;
  object->device = device;
  if (device != nullptr) ++device->references;
  ++Books().live;
  return object;
}

Object* Find(const void* object, Kind kind) {
  Pool& pool = ThePool();
  const std::lock_guard lock(pool.mutex);
  for (const auto& known : pool.objects) {
    if (known.get() != object) continue;
    if (known->references > 0 && known->kind == kind) return known.get();
    Fault(known->references > 0 ? "an object of another kind" : "use of a released object");
    return nullptr;
  }
  Fault("use of something that is no object");
  return nullptr;
}

ULONG STDMETHODCALLTYPE AddReference(Object* object) {
  return ++object->references;
}

namespace {

/// Takes a reference away; the last one lets go of what the object holds on to.
ULONG Drop(Object* object) {
  const ULONG left = --object->references;
  if (left > 0) return left;
  --Books().live;
  std::vector<std::byte>().swap(object->bytes);
  if (object->buffer != nullptr) Drop(object->buffer);
  if (object->device != nullptr) Drop(object->device);
  return 0;
}

}  // namespace

ULONG STDMETHODCALLTYPE ReleaseReference(Object* object) {
  if (object->references == 0) {
    Fault("released once too often");
    return 0;
  }
  if (object->references == 1 && object->mapped) Fault("released while mapped");
  const ULONG left = Drop(object);
  if (object->kind == Kind::kDevice) Books().lastDeviceRelease = static_cast<std::uint32_t>(left);
  return left;
}

void ResetGraphics() {
  Pool& pool = ThePool();
  const std::lock_guard lock(pool.mutex);
  pool.objects.clear();
  Books() = {};
}

HRESULT STDMETHODCALLTYPE Unexpected() {
  Fault("a function that the effect has no use for");
  return E_NOTIMPL;
}

Turn::Turn() {
  if (gInside.fetch_add(1) != 0) Fault("two threads at once");
}

Turn::~Turn() {
  gInside.fetch_sub(1);
}

}  // namespace vantle::standin
