// The device: makes what one shader needs, and is particular about it.
#include "tests/windows/graphics/stand_in/objects.h"

namespace vantle::standin {

namespace {

/// The code that a creation must fail with, or 0.
Result CreationFailure(Object* device) {
  Graphics& books = Books();
  ++books.creations;
  if (books.removed) device->lost = true;
  if (device->lost) return kDeviceRemoved;
  if (books.failCreation == 0 || --books.failCreation > 0) return 0;
  return kOutOfMemory;
}

// What each kind of buffer must be; anything else would be refused by Direct3D, or is not what the shader
// reads.
void CheckBuffer(const D3D11_BUFFER_DESC& desc, const D3D11_SUBRESOURCE_DATA* data) {
  const bool structured = desc.MiscFlags == D3D11_RESOURCE_MISC_BUFFER_STRUCTURED;
  const bool filled = data != nullptr && data->pSysMem != nullptr;
  if (desc.ByteWidth == 0) Fault("a buffer without bytes");
  if (structured && (desc.StructureByteStride == 0 || desc.ByteWidth % desc.StructureByteStride != 0))
    Fault("a structured buffer of broken elements");
  switch (desc.Usage) {
    case D3D11_USAGE_IMMUTABLE:
      if (!filled) Fault("an immutable buffer without contents");
      if (desc.CPUAccessFlags != 0) Fault("an immutable buffer that the processor touches");
      if (desc.BindFlags == D3D11_BIND_CONSTANT_BUFFER && (desc.ByteWidth != 48 || desc.MiscFlags != 0))
        Fault("a constant buffer of another size");
      else if (desc.BindFlags == D3D11_BIND_SHADER_RESOURCE && !structured)
        Fault("a list without structure");
      break;
    case D3D11_USAGE_DEFAULT:
      if (filled || !structured || desc.BindFlags != D3D11_BIND_UNORDERED_ACCESS) Fault("a strange output");
      if (desc.StructureByteStride != 16) Fault("an output of other pixels");
      break;
    case D3D11_USAGE_STAGING:
      if (filled || desc.BindFlags != 0 || desc.MiscFlags != 0 ||
          desc.CPUAccessFlags != D3D11_CPU_ACCESS_READ)
        Fault("a strange staging buffer");
      break;
    default:
      Fault("a buffer of a usage that nothing here has");
  }
}

HRESULT STDMETHODCALLTYPE CreateBuffer(ID3D11Device* self, const D3D11_BUFFER_DESC* desc,
                                       const D3D11_SUBRESOURCE_DATA* data, ID3D11Buffer** made) {
  const Turn turn;
  Object* const device = Find(self, Kind::kDevice);
  if (device == nullptr) return E_INVALIDARG;
  CheckBuffer(*desc, data);
  if (const Result failure = CreationFailure(device); failure != 0) return failure;
  static const ID3D11BufferVtbl table = CountingTable<ID3D11BufferVtbl>();
  Object* const buffer = NewObject(Kind::kBuffer, &table, device);
  buffer->desc = *desc;
  buffer->bytes.resize(desc->ByteWidth, std::byte{0xCD});
  if (data != nullptr) std::memcpy(buffer->bytes.data(), data->pSysMem, desc->ByteWidth);
  *made = reinterpret_cast<ID3D11Buffer*>(buffer);
  return S_OK;
}

/// A view of all of a buffer that was made to be seen so.
HRESULT CreateView(ID3D11Device* self, ID3D11Resource* resource, UINT bindFlag, bool plain, UINT first,
                   UINT elements, Kind kind, const void* table, void** made) {
  const Turn turn;
  Object* const device = Find(self, Kind::kDevice);
  Object* const buffer = Find(resource, Kind::kBuffer);
  if (device == nullptr || buffer == nullptr) return E_INVALIDARG;
  if (!plain) Fault("a view that is not one of a plain structured buffer");
  if (buffer->desc.BindFlags != bindFlag) Fault("a view that the buffer was not made for");
  if (first != 0 || elements * buffer->desc.StructureByteStride != buffer->desc.ByteWidth)
    Fault("a view that does not show the whole buffer");
  if (const Result failure = CreationFailure(device); failure != 0) return failure;
  Object* const view = NewObject(kind, table, device);
  view->buffer = buffer;
  view->elements = elements;
  ++buffer->references;
  *made = view;
  return S_OK;
}

HRESULT STDMETHODCALLTYPE CreateInputView(ID3D11Device* self, ID3D11Resource* resource,
                                          const D3D11_SHADER_RESOURCE_VIEW_DESC* desc,
                                          ID3D11ShaderResourceView** made) {
  static const ID3D11ShaderResourceViewVtbl table = CountingTable<ID3D11ShaderResourceViewVtbl>();
  const bool plain = desc->Format == DXGI_FORMAT_UNKNOWN && desc->ViewDimension == D3D11_SRV_DIMENSION_BUFFER;
  return CreateView(self, resource, D3D11_BIND_SHADER_RESOURCE, plain, desc->Buffer.FirstElement,
                    desc->Buffer.NumElements, Kind::kInputView, &table, reinterpret_cast<void**>(made));
}

HRESULT STDMETHODCALLTYPE CreateOutputView(ID3D11Device* self, ID3D11Resource* resource,
                                           const D3D11_UNORDERED_ACCESS_VIEW_DESC* desc,
                                           ID3D11UnorderedAccessView** made) {
  static const ID3D11UnorderedAccessViewVtbl table = CountingTable<ID3D11UnorderedAccessViewVtbl>();
  const bool plain = desc->Format == DXGI_FORMAT_UNKNOWN &&
                     desc->ViewDimension == D3D11_UAV_DIMENSION_BUFFER && desc->Buffer.Flags == 0;
  return CreateView(self, resource, D3D11_BIND_UNORDERED_ACCESS, plain, desc->Buffer.FirstElement,
                    desc->Buffer.NumElements, Kind::kOutputView, &table, reinterpret_cast<void**>(made));
}

HRESULT STDMETHODCALLTYPE CreateShader(ID3D11Device* self, const void* bytecode, SIZE_T size,
                                       ID3D11ClassLinkage* linkage, ID3D11ComputeShader** made) {
  const Turn turn;
  Object* const device = Find(self, Kind::kDevice);
  if (device == nullptr) return E_INVALIDARG;
  if (linkage != nullptr) Fault("a class linkage");
  if (size != sizeof(kBytecode) || std::memcmp(bytecode, kBytecode, size) != 0)
    Fault("a shader of something that was not compiled here");
  if (Books().createShader != 0) return Books().createShader;
  static const ID3D11ComputeShaderVtbl table = CountingTable<ID3D11ComputeShaderVtbl>();
  ++Books().shaders;
  *made = reinterpret_cast<ID3D11ComputeShader*>(NewObject(Kind::kShader, &table, device));
  return S_OK;
}

ID3D11DeviceVtbl MakeDeviceTable() {
  ID3D11DeviceVtbl table = CountingTable<ID3D11DeviceVtbl>();
  table.CreateBuffer = &CreateBuffer;
  table.CreateShaderResourceView = &CreateInputView;
  table.CreateUnorderedAccessView = &CreateOutputView;
  table.CreateComputeShader = &CreateShader;
  return table;
}

void CheckRequest(IDXGIAdapter* adapter, D3D_DRIVER_TYPE type, HMODULE software, UINT flags,
                  const D3D_FEATURE_LEVEL* levels, UINT count, UINT version) {
  if (adapter != nullptr || type != D3D_DRIVER_TYPE_HARDWARE || software != nullptr)
    Fault("another device than the default adapter's");
  if (flags != 0 || version != D3D11_SDK_VERSION) Fault("creation flags, or another version");
  if (count != 1 || levels == nullptr || levels[0] != D3D_FEATURE_LEVEL_11_0)
    Fault("other feature levels than 11.0");
}

}  // namespace
}  // namespace vantle::standin

extern "C" HRESULT WINAPI D3D11CreateDevice(IDXGIAdapter* adapter, D3D_DRIVER_TYPE type, HMODULE software,
                                            UINT flags, const D3D_FEATURE_LEVEL* levels, UINT count,
                                            UINT version, ID3D11Device** madeDevice,
                                            D3D_FEATURE_LEVEL* obtained, ID3D11DeviceContext** madeContext) {
  using namespace vantle::standin;
  const Turn turn;
  CheckRequest(adapter, type, software, flags, levels, count, version);
  if (Books().createDevice != 0) return Books().createDevice;
  if (Books().withholdDevice) return S_OK;
  if (Books().failDevice > 0 && --Books().failDevice == 0) return kUnsupported;
  static const ID3D11DeviceVtbl table = MakeDeviceTable();
  ++Books().devices;
  Object* const device = NewObject(Kind::kDevice, &table, nullptr);
  *madeDevice = reinterpret_cast<ID3D11Device*>(device);
  if (obtained != nullptr) *obtained = D3D_FEATURE_LEVEL_11_0;
  if (madeContext != nullptr && !Books().withholdContext) {
    Object* const context = NewObject(Kind::kContext, &ContextTable(), device);
    *madeContext = reinterpret_cast<ID3D11DeviceContext*>(context);
  }
  return S_OK;
}

extern "C" vantle::standin::Graphics* StandInGraphics();
extern "C" vantle::standin::Graphics* StandInGraphics() {
  return &vantle::standin::Books();
}

extern "C" void ResetStandInGraphics();
extern "C" void ResetStandInGraphics() {
  vantle::standin::ResetGraphics();
}
