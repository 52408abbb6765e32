#include "shell/module_pin.h"

#include <windows.h>

namespace vantle {

bool PinModule() {
  static const char inThisModule = 0;
  constexpr DWORD kFlags = GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_PIN;
  HMODULE module = nullptr;
  return GetModuleHandleExW(kFlags, reinterpret_cast<LPCWSTR>(&inThisModule), &module) != 0;
}

}  // namespace vantle
