// The one place that tells compilers apart. Everything else is standard C++, the header of the vector
// instructions, and OpenMP's pragmas.
#pragma once

#include <string>

#if defined(_MSC_VER) && !defined(__clang__)
#include <immintrin.h>
#include <intrin.h>
#endif

// In front of a function that its module exports: no function of the language can say so.
#if defined(_WIN32)
#define VANTLE_EXPORT __declspec(dllexport)
#else
#define VANTLE_EXPORT __attribute__((visibility("default")))
#endif

namespace vantle {

/// Which vector instructions both the processor and its operating system support.
struct VectorInstructions {
  bool avx2 = false;
  bool avx512 = false;  ///< F, DQ, BW and VL
};

#if defined(_MSC_VER) && !defined(__clang__)
inline VectorInstructions AskProcessor() {
  int id[4];
  __cpuid(id, 0);
  if (id[0] < 7) return {};
  __cpuidex(id, 1, 0);
  const bool systemSavesRegisters = (id[2] & (1 << 27)) != 0;
  if (!systemSavesRegisters) return {};
  const unsigned long long saved = _xgetbv(0);
  __cpuidex(id, 7, 0);
  const unsigned features = static_cast<unsigned>(id[1]);
  constexpr unsigned kAvx2 = 1u << 5;
  constexpr unsigned kAvx512 = 1u << 16 | 1u << 17 | 1u << 30 | 1u << 31;
  return {(saved & 0x06) == 0x06 && (features & kAvx2) == kAvx2,
          (saved & 0xE6) == 0xE6 && (features & kAvx512) == kAvx512};
}

/// Name and version of the compiler, for reports.
inline std::string CompilerName() {
  return "MSVC " + std::to_string(_MSC_FULL_VER);
}
#else
inline VectorInstructions AskProcessor() {
  __builtin_cpu_init();
  return {__builtin_cpu_supports("avx2") != 0,
          __builtin_cpu_supports("avx512f") != 0 && __builtin_cpu_supports("avx512dq") != 0 &&
              __builtin_cpu_supports("avx512bw") != 0 && __builtin_cpu_supports("avx512vl") != 0};
}

/// Name and version of the compiler, for reports.
inline std::string CompilerName() {
  return __VERSION__;
}
#endif

}  // namespace vantle
