#include "render/graphics/frame_buffers_d3d11.h"

#include "render/graphics/tile_binning.h"

#include <cstring>

namespace vantle {

namespace {

constexpr UINT kPixelBytes = 16;

UINT PixelCount(const GpuFrame& frame) {
  return static_cast<UINT>(frame.params.g_width) * static_cast<UINT>(frame.params.g_height);
}

bool CreateParams(ID3D11Device* device, const RenderParamsCB& params, ID3D11Buffer** buffer) {
  // The size of a constant buffer is a multiple of 16 bytes.
  int32_t values[12] = {};
  static_assert(sizeof(params) <= sizeof(values));
  std::memcpy(values, &params, sizeof(params));
  const D3D11_BUFFER_DESC desc{.ByteWidth = sizeof(values),
                               .Usage = D3D11_USAGE_IMMUTABLE,
                               .BindFlags = D3D11_BIND_CONSTANT_BUFFER,
                               .CPUAccessFlags = 0,
                               .MiscFlags = 0,
                               .StructureByteStride = 0};
  const D3D11_SUBRESOURCE_DATA data{.pSysMem = values, .SysMemPitch = 0, .SysMemSlicePitch = 0};
  return SUCCEEDED(device->CreateBuffer(&desc, &data, buffer));
}

/// A structured buffer of `count` elements that never changes, and a view of all of it.
bool CreateInputList(ID3D11Device* device, const void* elements, UINT count, UINT stride, InputList* list) {
  const D3D11_BUFFER_DESC desc{.ByteWidth = count * stride,
                               .Usage = D3D11_USAGE_IMMUTABLE,
                               .BindFlags = D3D11_BIND_SHADER_RESOURCE,
                               .CPUAccessFlags = 0,
                               .MiscFlags = D3D11_RESOURCE_MISC_BUFFER_STRUCTURED,
                               .StructureByteStride = stride};
  const D3D11_SUBRESOURCE_DATA data{.pSysMem = elements, .SysMemPitch = 0, .SysMemSlicePitch = 0};
  if (FAILED(device->CreateBuffer(&desc, &data, list->buffer.Receive()))) return false;

  D3D11_SHADER_RESOURCE_VIEW_DESC view{};
  view.Format = DXGI_FORMAT_UNKNOWN;
  view.ViewDimension = D3D11_SRV_DIMENSION_BUFFER;
  view.Buffer.FirstElement = 0;
  view.Buffer.NumElements = count;
  return SUCCEEDED(device->CreateShaderResourceView(list->buffer.get(), &view, list->view.Receive()));
}

/// Without particles: one of no size and no opacity, which covers nothing.
bool CreateParticles(ID3D11Device* device, const GpuFrame& frame, InputList* list) {
  const kernel::Particle nothing{};
  const bool given = frame.params.g_numParticles > 0 && frame.particles != nullptr;
  const UINT count = given ? static_cast<UINT>(frame.params.g_numParticles) : 1;
  return CreateInputList(device, given ? frame.particles : &nothing, count, sizeof(kernel::Particle), list);
}

/// A list of fewer than two entries is a single 0, whatever it holds.
bool CreateIntegers(ID3D11Device* device, const int32_t* values, size_t count, InputList* list) {
  const int32_t zero = 0;
  const bool given = values != nullptr && count >= 2;
  return CreateInputList(device, given ? values : &zero, given ? static_cast<UINT>(count) : 1,
                         sizeof(int32_t), list);
}

size_t OffsetCount(const RenderParamsCB& params) {
  if (params.g_useTiles == 0) return 1;
  return static_cast<size_t>(params.g_tilesX) * static_cast<size_t>(params.g_tilesY) + 1;
}

bool CreateOutput(ID3D11Device* device, UINT pixels, FrameBuffers* buffers) {
  const D3D11_BUFFER_DESC desc{.ByteWidth = pixels * kPixelBytes,
                               .Usage = D3D11_USAGE_DEFAULT,
                               .BindFlags = D3D11_BIND_UNORDERED_ACCESS,
                               .CPUAccessFlags = 0,
                               .MiscFlags = D3D11_RESOURCE_MISC_BUFFER_STRUCTURED,
                               .StructureByteStride = kPixelBytes};
  if (FAILED(device->CreateBuffer(&desc, nullptr, buffers->output.Receive()))) return false;

  D3D11_UNORDERED_ACCESS_VIEW_DESC view{};
  view.Format = DXGI_FORMAT_UNKNOWN;
  view.ViewDimension = D3D11_UAV_DIMENSION_BUFFER;
  view.Buffer.FirstElement = 0;
  view.Buffer.NumElements = pixels;
  view.Buffer.Flags = 0;
  ID3D11Buffer* const output = buffers->output.get();
  return SUCCEEDED(device->CreateUnorderedAccessView(output, &view, buffers->outputView.Receive()));
}

bool CreateStaging(ID3D11Device* device, UINT pixels, ID3D11Buffer** buffer) {
  const D3D11_BUFFER_DESC desc{.ByteWidth = pixels * kPixelBytes,
                               .Usage = D3D11_USAGE_STAGING,
                               .BindFlags = 0,
                               .CPUAccessFlags = D3D11_CPU_ACCESS_READ,
                               .MiscFlags = 0,
                               .StructureByteStride = 0};
  return SUCCEEDED(device->CreateBuffer(&desc, nullptr, buffer));
}

}  // namespace

bool FitsBuffers(const GpuFrame& frame) {
  // Sizes in bytes are 32-bit numbers.
  constexpr int64_t kMostBytes = UINT32_MAX;
  constexpr int64_t kMostPixels = kMostBytes / kPixelBytes;
  constexpr int64_t kMostParticles = kMostBytes / int64_t{sizeof(kernel::Particle)};
  constexpr int32_t kMostAcross = D3D11_CS_DISPATCH_MAX_THREAD_GROUPS_PER_DIMENSION * 16;
  const RenderParamsCB& p = frame.params;
  if (p.g_width <= 0 || p.g_height <= 0 || p.g_width > kMostAcross || p.g_height > kMostAcross) return false;
  const int64_t pixels = int64_t{p.g_width} * p.g_height;
  if (pixels > kMostPixels || pixels > kMostViewElements) return false;
  if (p.g_numParticles > kMostParticles) return false;
  if (frame.numTileIndices > static_cast<size_t>(kMostViewElements)) return false;
  if (p.g_useTiles == 0) return true;
  return p.g_tilesX > 0 && p.g_tilesY > 0 && int64_t{p.g_tilesX} * p.g_tilesY < kMostViewElements;
}

bool CreateFrameBuffers(ID3D11Device* device, const GpuFrame& frame, FrameBuffers* buffers) {
  const UINT pixels = PixelCount(frame);
  return CreateParams(device, frame.params, buffers->params.Receive()) &&
         CreateParticles(device, frame, &buffers->particles) &&
         CreateIntegers(device, frame.tileOffsets, OffsetCount(frame.params), &buffers->tileOffsets) &&
         CreateIntegers(device, frame.tileIndices, frame.numTileIndices, &buffers->tileIndices) &&
         CreateOutput(device, pixels, buffers) && CreateStaging(device, pixels, buffers->staging.Receive());
}

}  // namespace vantle
