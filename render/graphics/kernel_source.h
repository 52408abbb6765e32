// The text of the compute shader, as it is handed to the shader compiler.
#pragma once

#include <string_view>

namespace vantle {

/// The kernel's text and its exact length, without a terminator. It stays for the life of the program.
std::string_view KernelSource();

}  // namespace vantle
