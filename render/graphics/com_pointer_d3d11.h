// Scope guard of a reference-counted interface.
#pragma once

namespace vantle {

/// Owns one reference and releases it at the end of the scope.
template <class Interface>
class ComPointer {
 public:
  ComPointer() = default;
  ComPointer(const ComPointer&) = delete;
  ComPointer& operator=(const ComPointer&) = delete;
  ~ComPointer() {
    if (pointer_ != nullptr) pointer_->Release();
  }

  Interface* get() const { return pointer_; }
  Interface* operator->() const { return pointer_; }

  /// Where a call writes the reference that it hands out. For an empty guard only.
  Interface** Receive() { return &pointer_; }

  /// Gives the reference away.
  Interface* Detach() {
    Interface* const pointer = pointer_;
    pointer_ = nullptr;
    return pointer;
  }

 private:
  Interface* pointer_ = nullptr;
};

}  // namespace vantle
