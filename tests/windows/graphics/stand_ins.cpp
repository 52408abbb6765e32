#include "tests/windows/graphics/stand_ins.h"

#include "tests/windows/graphics/debug_text.h"

#include <cstdio>
#include <filesystem>
#include <stdexcept>
#include <windows.h>

namespace vantle::test {

namespace {

HMODULE Load(const char* path) {
  const HMODULE library = LoadLibraryW(std::filesystem::absolute(path).c_str());
  if (library == nullptr) throw std::runtime_error(std::string("cannot load ") + path);
  return library;
}

template <class Function>
Function Find(HMODULE library, const char* name) {
  const FARPROC address = GetProcAddress(library, name);
  if (address == nullptr) throw std::runtime_error(std::string("no function ") + name);
  return reinterpret_cast<Function>(reinterpret_cast<void*>(address));
}

HMODULE Direct3D() {
  static const HMODULE library = Load(STAND_IN_D3D11);
  return library;
}

HMODULE ShaderCompiler() {
  static const HMODULE library = Load(STAND_IN_D3DCOMPILER);
  return library;
}

std::string WithCode(const char* text, standin::Result code) {
  char line[100];
  std::snprintf(line, sizeof(line), "[Vantle GPU] %s: 0x%08X\n", text, static_cast<unsigned>(code));
  return line;
}

}  // namespace

standin::Graphics& TheGraphics() {
  static const auto address = Find<standin::GraphicsAddress>(Direct3D(), standin::kGraphicsName);
  return *address();
}

standin::Compiler& TheCompiler() {
  static const auto address = Find<standin::CompilerAddress>(ShaderCompiler(), standin::kCompilerName);
  return *address();
}

void ResetStandIns() {
  Find<standin::ResetStandIn>(Direct3D(), standin::kGraphicsResetName)();
  Find<standin::ResetStandIn>(ShaderCompiler(), standin::kCompilerResetName)();
  TakeDebugTexts();
}

std::string FirstFault() {
  return TheGraphics().firstFault;
}

std::string NoDeviceText(standin::Result code) {
  return WithCode("Failed to create D3D11 device", code);
}

std::string NoShaderText(standin::Result code) {
  return WithCode("Failed to create compute shader", code);
}

}  // namespace vantle::test
