// Frame memory. The lists of a frame are sized once, written once and never zeroed first: touching fresh
// pages twice is what makes lists expensive.
#pragma once

#include <cstddef>
#include <memory>
#include <new>
#include <type_traits>

namespace vantle {

/// Buffers begin with a cache line, so that records and vectors of 64 bytes lie in one line each.
inline constexpr std::align_val_t kBufferAlignment{64};

/// A fixed-size array of uninitialised values. Throws std::bad_alloc when memory runs out, so it is never
/// allocated inside a parallel region.
template <class T>
class Buffer {
  static_assert(std::is_trivially_destructible_v<T> && std::is_trivially_copyable_v<T>);

 public:
  Buffer() = default;
  explicit Buffer(size_t size) { Reset(size); }

  /// Drops the content and holds `size` uninitialised values.
  void Reset(size_t size) {
    values_.reset();
    size_ = 0;
    if (size > static_cast<size_t>(-1) / sizeof(T)) throw std::bad_alloc();
    T* values = static_cast<T*>(::operator new(size * sizeof(T), kBufferAlignment));
    std::uninitialized_default_construct_n(values, size);
    values_.reset(values);
    size_ = size;
  }

  size_t size() const { return size_; }
  bool empty() const { return size_ == 0; }
  T* data() { return values_.get(); }
  const T* data() const { return values_.get(); }
  T& operator[](size_t i) { return values_.get()[i]; }
  const T& operator[](size_t i) const { return values_.get()[i]; }

 private:
  struct Free {
    void operator()(T* values) const { ::operator delete(values, kBufferAlignment); }
  };
  std::unique_ptr<T, Free> values_;
  size_t size_ = 0;
};

}  // namespace vantle
