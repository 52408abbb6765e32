// Particles are worked on in batches of lanes: every stage is a loop of fixed length over arrays, which
// compilers and instruction sets turn into vector code without changing any lane's arithmetic.
#pragma once

#include <cstdint>

namespace vantle {

/// Particles a batch.
inline constexpr int32_t kLanes = 16;

struct alignas(64) VectorLanes {
  float x[kLanes];
  float y[kLanes];
  float z[kLanes];
};

}  // namespace vantle
