// The stand-ins for Direct3D and its compiler, put in place of the system's.
#pragma once

#include "tests/windows/graphics/stand_in/stand_in_state.h"

#include <string>
#include <vector>

namespace vantle::test {

/// The stand-ins' records; the first call loads the library, from which moment on it is found in place of the
/// system's. Throw std::runtime_error when it cannot be loaded.
standin::Graphics& TheGraphics();
standin::Compiler& TheCompiler();

/// Everything works, nothing was done yet, and no text was heard. Only while no device is alive.
void ResetStandIns();

/// The first forbidden use of Direct3D; empty when there was none.
std::string FirstFault();

/// What the debugger's output has of a start: of one that went well, and of failures.
inline constexpr char kStarted[] = "[Vantle GPU] DirectCompute initialized\n";
std::string NoDeviceText(standin::Result code);
std::string NoShaderText(standin::Result code);

using Texts = std::vector<std::string>;

}  // namespace vantle::test
