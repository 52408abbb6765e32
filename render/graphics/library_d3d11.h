// The two functions that the system's graphics libraries export, found at run time: where a library is
// missing, everything else still works.
#pragma once

#include "render/graphics/headers_d3d11.h"

namespace vantle {

/// A hardware device of feature level 11.0 on the default adapter, and its immediate context unless `context`
/// is null. Without the library: the error of loading it.
HRESULT CreateHardwareDevice(ID3D11Device** device, ID3D11DeviceContext** context);

/// Compiles the kernel's text. `messages` receives the compiler's text, if it has any to tell. Without the
/// library: the error of loading it, and no text.
HRESULT CompileKernel(ID3DBlob** bytecode, ID3DBlob** messages);

}  // namespace vantle
