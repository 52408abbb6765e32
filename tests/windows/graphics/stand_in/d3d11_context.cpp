// The immediate context: remembers what is bound, runs the kernel, copies, maps.
#include "tests/windows/graphics/stand_in/objects.h"

namespace vantle::standin {

namespace {

struct Bound {
  const void* shader = nullptr;
  const void* params = nullptr;
  const void* lists[3] = {};
  const void* output = nullptr;
};

Bound gBound;

void STDMETHODCALLTYPE SetShader(ID3D11DeviceContext*, ID3D11ComputeShader* shader,
                                 ID3D11ClassInstance* const* instances, UINT count) {
  const Turn turn;
  if (instances != nullptr || count != 0) Fault("class instances");
  gBound.shader = shader;
}

void STDMETHODCALLTYPE SetConstantBuffers(ID3D11DeviceContext*, UINT first, UINT count,
                                          ID3D11Buffer* const* buffers) {
  const Turn turn;
  if (first != 0 || count != 1) Fault("other slots for the constant buffer");
  gBound.params = buffers[0];
}

void STDMETHODCALLTYPE SetShaderResources(ID3D11DeviceContext*, UINT first, UINT count,
                                          ID3D11ShaderResourceView* const* views) {
  const Turn turn;
  if (first != 0 || count != 3) return Fault("other slots for the lists");
  for (UINT i = 0; i < count; ++i) gBound.lists[i] = views[i];
}

void STDMETHODCALLTYPE SetUnorderedAccessViews(ID3D11DeviceContext*, UINT first, UINT count,
                                               ID3D11UnorderedAccessView* const* views,
                                               const UINT* initialCounts) {
  const Turn turn;
  if (first != 0 || count != 1 || initialCounts != nullptr) Fault("other slots for the output");
  gBound.output = views[0];
}

/// The buffers that the kernel is about to read and write; false, with the fault noted, when one is missing.
struct Inputs {
  Object* params;
  Object* lists[3];
  Object* output;
};
bool FindInputs(Inputs* inputs) {
  inputs->params = Find(gBound.params, Kind::kBuffer);
  bool complete = Find(gBound.shader, Kind::kShader) != nullptr && inputs->params != nullptr;
  for (int i = 0; i < 3; ++i) {
    inputs->lists[i] = Find(gBound.lists[i], Kind::kInputView);
    complete = complete && inputs->lists[i] != nullptr;
  }
  inputs->output = Find(gBound.output, Kind::kOutputView);
  return complete && inputs->output != nullptr;
}

void Note(const Inputs& inputs, UINT x, UINT y, UINT z) {
  SeenDispatch& seen = Books().seen;
  seen = {{x, y, z}, {}, 0, 0, 0, 0, 0};
  std::memcpy(seen.params, inputs.params->bytes.data(), sizeof(seen.params));
  seen.particles = inputs.lists[0]->elements;
  seen.offsets = inputs.lists[1]->elements;
  seen.indices = inputs.lists[2]->elements;
  seen.pixels = inputs.output->elements;
  std::memcpy(&seen.firstIndex, inputs.lists[2]->buffer->bytes.data(), sizeof(seen.firstIndex));
}

void STDMETHODCALLTYPE Dispatch(ID3D11DeviceContext*, UINT x, UINT y, UINT z) {
  const Turn turn;
  Inputs inputs{};
  if (!FindInputs(&inputs)) return;
  ++Books().dispatches;
  Note(inputs, x, y, z);
  const std::int32_t* const params = Books().seen.params;
  if (x != static_cast<UINT>(params[0] + 15) / 16 || y != static_cast<UINT>(params[1] + 15) / 16 || z != 1)
    return Fault("groups that do not cover the picture");
  if (inputs.output->elements != static_cast<UINT>(params[0]) * static_cast<UINT>(params[1]))
    return Fault("an output of another size than the picture");
  RunKernel(params, *inputs.lists[0]->buffer, *inputs.lists[1]->buffer, *inputs.lists[2]->buffer,
            inputs.output->buffer);
}

void STDMETHODCALLTYPE CopyBuffer(ID3D11DeviceContext*, ID3D11Resource* to, ID3D11Resource* from) {
  const Turn turn;
  Object* const target = Find(to, Kind::kBuffer);
  const Object* const source = Find(from, Kind::kBuffer);
  if (target == nullptr || source == nullptr) return;
  if (gBound.output != nullptr || gBound.lists[0] != nullptr) Fault("copied while still bound");
  if (target->desc.Usage != D3D11_USAGE_STAGING || target->bytes.size() != source->bytes.size())
    return Fault("a copy to something else than a staging buffer of that size");
  target->bytes = source->bytes;
}

HRESULT STDMETHODCALLTYPE MapBuffer(ID3D11DeviceContext*, ID3D11Resource* resource, UINT subresource,
                                    D3D11_MAP type, UINT flags, D3D11_MAPPED_SUBRESOURCE* mapped) {
  const Turn turn;
  Graphics& books = Books();
  Object* const buffer = Find(resource, Kind::kBuffer);
  if (buffer == nullptr) return E_INVALIDARG;
  if (subresource != 0 || type != D3D11_MAP_READ || flags != 0 || buffer->desc.Usage != D3D11_USAGE_STAGING)
    Fault("mapped otherwise than for reading");
  if (books.insideMap != nullptr) books.insideMap(books.insideMapContext);
  if (books.removed) buffer->device->lost = true;
  if (buffer->device->lost) return kDeviceRemoved;
  if (books.map != 0) return books.map;
  ++books.maps;
  buffer->mapped = true;
  mapped->pData = buffer->bytes.data();
  mapped->RowPitch = books.rowPitch != 0 ? books.rowPitch : static_cast<UINT>(buffer->bytes.size());
  mapped->DepthPitch = mapped->RowPitch;
  return S_OK;
}

void STDMETHODCALLTYPE UnmapBuffer(ID3D11DeviceContext*, ID3D11Resource* resource, UINT subresource) {
  const Turn turn;
  Object* const buffer = Find(resource, Kind::kBuffer);
  if (buffer == nullptr) return;
  if (!buffer->mapped || subresource != 0) Fault("unmapped what was not mapped");
  buffer->mapped = false;
  ++Books().unmaps;
}

ID3D11DeviceContextVtbl MakeContextTable() {
  ID3D11DeviceContextVtbl table = CountingTable<ID3D11DeviceContextVtbl>();
  table.CSSetShader = &SetShader;
  table.CSSetConstantBuffers = &SetConstantBuffers;
  table.CSSetShaderResources = &SetShaderResources;
  table.CSSetUnorderedAccessViews = &SetUnorderedAccessViews;
  table.Dispatch = &Dispatch;
  table.CopyResource = &CopyBuffer;
  table.Map = &MapBuffer;
  table.Unmap = &UnmapBuffer;
  return table;
}

}  // namespace

const ID3D11DeviceContextVtbl& ContextTable() {
  static const ID3D11DeviceContextVtbl table = MakeContextTable();
  return table;
}

}  // namespace vantle::standin
