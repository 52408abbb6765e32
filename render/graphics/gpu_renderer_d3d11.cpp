#include "base/floating_environment.h"
#include "render/graphics/com_pointer_d3d11.h"
#include "render/graphics/frame_buffers_d3d11.h"
#include "render/graphics/gpu_renderer.h"
#include "render/graphics/headers_d3d11.h"
#include "render/graphics/library_d3d11.h"

#include <cstdarg>
#include <cstdio>
#include <cstring>
#include <mutex>

namespace vantle {

namespace {

/// What lives from the first frame to global set-down. Plain pointers: when the process ends without a
/// set-down, the libraries that own the objects may be gone already, and nothing may be called.
struct GpuState {
  ID3D11Device* device = nullptr;
  ID3D11DeviceContext* context = nullptr;
  ID3DBlob* bytecode = nullptr;
  ID3D11ComputeShader* shader = nullptr;
  bool attempted = false;
  bool available = false;
};

/// Hosts render several frames at once, but the immediate context serves one thread at a time, and giving up
/// on a busy one would change the picture. So renders take turns.
std::mutex gTurn;
GpuState gState;

template <class Interface>
void ReleaseAndClear(Interface** object) {
  if (*object != nullptr) (*object)->Release();
  *object = nullptr;
}

void PrintDeviceFailure(HRESULT code) {
  GpuDebugPrint("[Vantle GPU] Failed to create D3D11 device: 0x%08X\n", static_cast<unsigned>(code));
}

bool CompileShader(ID3D11Device* device, ComPointer<ID3DBlob>* bytecode,
                   ComPointer<ID3D11ComputeShader>* shader) {
  ComPointer<ID3DBlob> messages;
  const HRESULT compiled = CompileKernel(bytecode->Receive(), messages.Receive());
  if (FAILED(compiled) || bytecode->get() == nullptr) {
    if (messages.get() == nullptr) return false;
    GpuDebugPrint("[Vantle GPU] HLSL compile error: %s\n",
                  static_cast<const char*>(messages->GetBufferPointer()));
    return false;
  }
  const HRESULT created = device->CreateComputeShader(
      (*bytecode)->GetBufferPointer(), (*bytecode)->GetBufferSize(), nullptr, shader->Receive());
  if (SUCCEEDED(created)) return true;
  GpuDebugPrint("[Vantle GPU] Failed to create compute shader: 0x%08X\n", static_cast<unsigned>(created));
  return false;
}

/// In the caller's turn, as all that follow.
bool Initialise() {
  if (gState.attempted) return gState.available;
  gState.attempted = true;
  gState.available = false;

  ComPointer<ID3D11Device> device;
  ComPointer<ID3D11DeviceContext> context;
  const HRESULT created = CreateHardwareDevice(device.Receive(), context.Receive());
  if (FAILED(created) || device.get() == nullptr || context.get() == nullptr) {
    PrintDeviceFailure(created);
    return false;
  }
  ComPointer<ID3DBlob> bytecode;
  ComPointer<ID3D11ComputeShader> shader;
  if (!CompileShader(device.get(), &bytecode, &shader)) return false;

  gState = {device.Detach(), context.Detach(), bytecode.Detach(), shader.Detach(), true, true};
  GpuDebugPrint("[Vantle GPU] DirectCompute initialized\n");
  return true;
}

/// A device that is made and let go at once. That it could not be made is the outcome of the initialisation.
bool Probe() {
  ComPointer<ID3D11Device> device;
  const HRESULT created = CreateHardwareDevice(device.Receive(), nullptr);
  if (SUCCEEDED(created) && device.get() != nullptr) return true;
  PrintDeviceFailure(created);
  gState.attempted = true;
  gState.available = false;
  return false;
}

/// Runs the shader, one thread a pixel in groups of 16 x 16, and has its output copied.
void Dispatch(const FrameBuffers& buffers, int32_t width, int32_t height) {
  ID3D11DeviceContext* const context = gState.context;
  ID3D11Buffer* const params = buffers.params.get();
  ID3D11ShaderResourceView* const lists[] = {buffers.particles.view.get(), buffers.tileOffsets.view.get(),
                                             buffers.tileIndices.view.get()};
  ID3D11UnorderedAccessView* const output = buffers.outputView.get();
  context->CSSetShader(gState.shader, nullptr, 0);
  context->CSSetConstantBuffers(0, 1, &params);
  context->CSSetShaderResources(0, 3, lists);
  context->CSSetUnorderedAccessViews(0, 1, &output, nullptr);
  context->Dispatch((static_cast<UINT>(width) + 15) / 16, (static_cast<UINT>(height) + 15) / 16, 1);

  ID3D11UnorderedAccessView* const noOutput = nullptr;
  ID3D11ShaderResourceView* const noLists[3] = {};
  context->CSSetUnorderedAccessViews(0, 1, &noOutput, nullptr);
  context->CSSetShaderResources(0, 3, noLists);
  context->CopyResource(buffers.staging.get(), buffers.output.get());
}

/// Packed rows at once, others one by one.
void CopyRows(const std::byte* from, int32_t width, int32_t height, std::byte* to, int64_t rowBytes) {
  const int64_t packed = int64_t{width} * 16;
  if (rowBytes == packed) {
    std::memcpy(to, from, static_cast<size_t>(packed * height));
    return;
  }
  for (int64_t y = 0; y < height; ++y) {
    std::memcpy(to + rowBytes * y, from + packed * y, static_cast<size_t>(packed));
  }
}

/// Waits for the graphics processor.
bool ReadBack(ID3D11Buffer* staging, const RenderParamsCB& params, std::byte* destination, int64_t rowBytes) {
  D3D11_MAPPED_SUBRESOURCE mapped{};
  if (FAILED(gState.context->Map(staging, 0, D3D11_MAP_READ, 0, &mapped))) return false;
  CopyRows(static_cast<const std::byte*>(mapped.pData), params.g_width, params.g_height, destination,
           rowBytes);
  gState.context->Unmap(staging, 0);
  return true;
}

}  // namespace

bool IsGpuUsable() {
  const std::lock_guard turn(gTurn);
  const ScopedFloatingEnvironment environment;
  return gState.attempted ? gState.available : Probe();
}

bool InitGpu() {
  const std::lock_guard turn(gTurn);
  const ScopedFloatingEnvironment environment;
  return Initialise();
}

bool RenderGpu(std::byte* destination, int64_t rowBytes, const GpuFrame& frame) {
  const std::lock_guard turn(gTurn);
  const ScopedFloatingEnvironment environment;  // drivers may leave their own behind
  if (destination == nullptr || !FitsBuffers(frame)) return false;
  if (!Initialise()) return false;
  FrameBuffers buffers;
  if (!CreateFrameBuffers(gState.device, frame, &buffers)) return false;
  Dispatch(buffers, frame.params.g_width, frame.params.g_height);
  return ReadBack(buffers.staging.get(), frame.params, destination, rowBytes);
}

void GpuDebugPrint(const char* format, ...) {
  char text[512];
  va_list arguments;
  va_start(arguments, format);
  std::vsnprintf(text, sizeof(text), format, arguments);
  va_end(arguments);
  OutputDebugStringA(text);
}

void ReleaseGpu() {
  const std::lock_guard turn(gTurn);
  ReleaseAndClear(&gState.shader);
  ReleaseAndClear(&gState.bytecode);
  ReleaseAndClear(&gState.context);
  ReleaseAndClear(&gState.device);
  gState.attempted = false;
  gState.available = false;
}

}  // namespace vantle
