// Seeded random numbers for tests, the same on every system: splitmix64 (Steele, Lea, Flood: Fast Splittable
// Pseudorandom Number Generators, 2014), and no distribution of a standard library.
#pragma once

#include <cstddef>
#include <cstdint>
#include <initializer_list>

namespace vantle::reference {

struct Dice {
  uint64_t state = 0;

  uint64_t Next() {
    state += 0x9E3779B97F4A7C15u;
    uint64_t z = state;
    z = (z ^ (z >> 30)) * 0xBF58476D1CE4E5B9u;
    z = (z ^ (z >> 27)) * 0x94D049BB133111EBu;
    return z ^ (z >> 31);
  }

  /// 0..n-1, for n of at least 1.
  int32_t Below(int32_t n) { return static_cast<int32_t>((Next() >> 33) % static_cast<uint64_t>(n)); }

  /// low..high, both included.
  int32_t Range(int32_t low, int32_t high) { return low + Below(high - low + 1); }

  /// 0..1 in steps of 2^-24.
  float Unit() { return static_cast<float>(Next() >> 40) * 0x1p-24f; }

  float Between(float low, float high) { return low + (high - low) * Unit(); }

  bool Chance(float probability) { return Unit() < probability; }

  template <class T>
  T OneOf(std::initializer_list<T> values) {
    return values.begin()[static_cast<size_t>(Below(static_cast<int32_t>(values.size())))];
  }
};

}  // namespace vantle::reference
