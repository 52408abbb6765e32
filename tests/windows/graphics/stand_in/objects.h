// Reference-counted objects of the stand-in, behind the tables of functions that Direct3D's interfaces are in
// memory. Records of released objects are kept until the stand-in starts afresh, so that a late use is told
// from a good one.
#pragma once

// Interfaces as records with a table of functions, instead of as classes.
#define CINTERFACE
#include "render/graphics/headers_d3d11.h"
#include "tests/windows/graphics/stand_in/stand_in_state.h"

#include <cstddef>
#include <cstring>
#include <vector>

namespace vantle::standin {

enum class Kind { kDevice, kContext, kShader, kBuffer, kInputView, kOutputView };

struct Object {
  const void* table = nullptr;  ///< first: an interface's pointer is this record's address
  Kind kind = Kind::kDevice;
  ULONG references = 0;
  Object* device = nullptr;      ///< every other object holds a reference on its device
  Object* buffer = nullptr;      ///< that a view shows, and holds a reference on
  std::vector<std::byte> bytes;  ///< of a buffer
  D3D11_BUFFER_DESC desc{};      ///< of a buffer
  UINT elements = 0;             ///< of a view
  bool mapped = false;
  bool lost = false;  ///< of a device that was removed
};

/// The books; see ResetGraphics.
Graphics& Books();

/// Notes a use that Direct3D forbids, or that the effect has no business with.
void Fault(const char* what);

/// A new object with one reference, for whoever asked for it.
Object* NewObject(Kind kind, const void* table, Object* device);

/// The object behind an interface; null, and a fault, unless it is alive and of that kind.
Object* Find(const void* object, Kind kind);

ULONG STDMETHODCALLTYPE AddReference(Object* object);
ULONG STDMETHODCALLTYPE ReleaseReference(Object* object);

/// Forgets all objects, and starts the books afresh.
void ResetGraphics();

/// Stands in every entry of a table that has no function of its own.
HRESULT STDMETHODCALLTYPE Unexpected();

/// A table that knows how to count references and nothing else.
template <class Table>
Table CountingTable() {
  Table table;
  static_assert(sizeof(Table) % sizeof(&Unexpected) == 0);
  const auto unexpected = &Unexpected;
  for (size_t at = 0; at < sizeof(Table); at += sizeof(unexpected))
    std::memcpy(reinterpret_cast<std::byte*>(&table) + at, &unexpected, sizeof(unexpected));
  table.AddRef = reinterpret_cast<decltype(table.AddRef)>(&AddReference);
  table.Release = reinterpret_cast<decltype(table.Release)>(&ReleaseReference);
  return table;
}

/// Every call of device and context stands in one: two at the same time are a fault, as the effect's renders
/// take turns.
class Turn {
 public:
  Turn();
  ~Turn();
  Turn(const Turn&) = delete;
  Turn& operator=(const Turn&) = delete;
};

/// The functions of a device's immediate context.
const ID3D11DeviceContextVtbl& ContextTable();

/// Runs the kernel for every pixel of the output.
void RunKernel(const std::int32_t* params, const Object& particles, const Object& offsets,
               const Object& indices, Object* output);

}  // namespace vantle::standin
