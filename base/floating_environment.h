// Host threads arrive with whatever rounding mode and denormal handling their last owner left. The picture
// must not care, so every thread that computes pixels does so under the processor's default settings.
#pragma once

#include <immintrin.h>

namespace vantle {

/// Sets round-to-nearest, denormals on, exceptions masked for this thread, and restores the caller's settings
/// at the end of the scope.
class ScopedFloatingEnvironment {
 public:
  ScopedFloatingEnvironment() : saved_(_mm_getcsr()) { _mm_setcsr(kDefault); }
  ~ScopedFloatingEnvironment() { _mm_setcsr(saved_); }
  ScopedFloatingEnvironment(const ScopedFloatingEnvironment&) = delete;
  ScopedFloatingEnvironment& operator=(const ScopedFloatingEnvironment&) = delete;

 private:
  static constexpr unsigned kDefault = 0x1F80;
  unsigned saved_;
};

}  // namespace vantle
