#include "render/graphics/library_d3d11.h"

#include "render/graphics/kernel_source.h"

namespace vantle {

namespace {

/// An exported function of a library in the system folder; null when either is missing. The library stays
/// loaded: its objects and the driver's threads outlive any frame.
template <class Function>
Function FindSystemFunction(const wchar_t* library, const char* name) {
  const HMODULE module = LoadLibraryExW(library, nullptr, LOAD_LIBRARY_SEARCH_SYSTEM32);
  if (module == nullptr) return nullptr;
  return reinterpret_cast<Function>(reinterpret_cast<void*>(GetProcAddress(module, name)));
}

/// The code of the system call that just failed.
HRESULT LastError() {
  const HRESULT code = HRESULT_FROM_WIN32(GetLastError());
  return code < 0 ? code : E_FAIL;
}

}  // namespace

HRESULT CreateHardwareDevice(ID3D11Device** device, ID3D11DeviceContext** context) {
  const auto create = FindSystemFunction<PFN_D3D11_CREATE_DEVICE>(L"d3d11.dll", "D3D11CreateDevice");
  if (create == nullptr) return LastError();
  const D3D_FEATURE_LEVEL wanted = D3D_FEATURE_LEVEL_11_0;
  D3D_FEATURE_LEVEL obtained{};
  return create(nullptr, D3D_DRIVER_TYPE_HARDWARE, nullptr, 0, &wanted, 1, D3D11_SDK_VERSION, device,
                &obtained, context);
}

HRESULT CompileKernel(ID3DBlob** bytecode, ID3DBlob** messages) {
  const auto compile = FindSystemFunction<pD3DCompile>(L"d3dcompiler_47.dll", "D3DCompile");
  if (compile == nullptr) return LastError();
  const std::string_view text = KernelSource();
  return compile(text.data(), text.size(), "VantleKernel.hlsl", nullptr, nullptr, "CSMain", "cs_5_0",
                 D3DCOMPILE_OPTIMIZATION_LEVEL3, 0, bytecode, messages);
}

}  // namespace vantle
