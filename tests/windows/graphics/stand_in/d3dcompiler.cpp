// The shader compiler: takes any text for good, unless it is told not to.
#define CINTERFACE
#include "render/graphics/headers_d3d11.h"
#include "tests/windows/graphics/stand_in/stand_in_state.h"

#include <cstdio>
#include <cstring>
#include <new>
#include <string>

namespace vantle::standin {

namespace {

struct Blob {
  const ID3D10BlobVtbl* table;
  ULONG references;
  std::string bytes;
};

Compiler& Books() {
  static Compiler books;
  return books;
}

HRESULT STDMETHODCALLTYPE NoOtherInterface(ID3D10Blob*, REFIID, void** made) {
  *made = nullptr;
  return E_NOINTERFACE;
}

ULONG STDMETHODCALLTYPE AddReference(ID3D10Blob* self) {
  return ++reinterpret_cast<Blob*>(self)->references;
}

ULONG STDMETHODCALLTYPE ReleaseReference(ID3D10Blob* self) {
  Blob* const blob = reinterpret_cast<Blob*>(self);
  const ULONG left = --blob->references;
  if (left > 0) return left;
  --Books().live;
  delete blob;
  return 0;
}

void* STDMETHODCALLTYPE Pointer(ID3D10Blob* self) {
  return reinterpret_cast<Blob*>(self)->bytes.data();
}

SIZE_T STDMETHODCALLTYPE Size(ID3D10Blob* self) {
  return reinterpret_cast<Blob*>(self)->bytes.size();
}

constexpr ID3D10BlobVtbl kBlobTable{&NoOtherInterface, &AddReference, &ReleaseReference, &Pointer, &Size};

ID3D10Blob* NewBlob(const char* text) {
  // With the terminator, as the real one does it.
  Blob* const blob = new Blob{&kBlobTable, 1, std::string(text, std::strlen(text) + 1)};
  ++Books().live;
  return reinterpret_cast<ID3D10Blob*>(blob);
}

void Copy(const char* from, char* to, std::size_t size) {
  std::snprintf(to, size, "%s", from != nullptr ? from : "(null)");
}

}  // namespace
}  // namespace vantle::standin

extern "C" HRESULT WINAPI D3DCompile(LPCVOID text, SIZE_T size, LPCSTR sourceName,
                                     const D3D_SHADER_MACRO* macros, ID3DInclude* includes, LPCSTR entry,
                                     LPCSTR target, UINT compileFlags, UINT effectFlags, ID3DBlob** bytecode,
                                     ID3DBlob** messages) {
  using namespace vantle::standin;
  Compiler& books = Books();
  ++books.compilations;
  books.text = text;
  books.textBytes = size;
  Copy(sourceName, books.sourceName, sizeof(books.sourceName));
  Copy(entry, books.entry, sizeof(books.entry));
  Copy(target, books.target, sizeof(books.target));
  books.givenMacros = macros != nullptr;
  books.givenIncludes = includes != nullptr;
  books.compileFlags = compileFlags;
  books.effectFlags = effectFlags;
  if (books.givesMessages) *messages = NewBlob(books.messages);
  if (books.result >= 0 && !books.withholdBytecode) *bytecode = NewBlob(kBytecode);
  return books.result;
}

extern "C" vantle::standin::Compiler* StandInCompiler();
extern "C" vantle::standin::Compiler* StandInCompiler() {
  return &vantle::standin::Books();
}

extern "C" void ResetStandInCompiler();
extern "C" void ResetStandInCompiler() {
  vantle::standin::Books() = {};
}
