// An owning reference to a COM interface: released when it goes out of scope.
#pragma once

#include <utility>

#include <windows.h>
#include <unknwn.h>

namespace varnex::server {

template <typename Interface>
class ComPtr {
 public:
  ComPtr() = default;
  // Takes over a reference the caller already owns.
  static ComPtr Attach(Interface* pointer) {
    ComPtr result;
    result.pointer_ = pointer;
    return result;
  }
  // Adds a reference of its own.
  static ComPtr Share(Interface* pointer) {
    if (pointer != nullptr) pointer->AddRef();
    return Attach(pointer);
  }
  ComPtr(const ComPtr& other) : pointer_(other.pointer_) {
    if (pointer_ != nullptr) pointer_->AddRef();
  }
  ComPtr(ComPtr&& other) noexcept : pointer_(std::exchange(other.pointer_, nullptr)) {}
  ComPtr& operator=(ComPtr other) noexcept {
    std::swap(pointer_, other.pointer_);
    return *this;
  }
  ~ComPtr() {
    if (pointer_ != nullptr) pointer_->Release();
  }

  Interface* get() const { return pointer_; }
  Interface* operator->() const { return pointer_; }
  explicit operator bool() const { return pointer_ != nullptr; }
  // The address to receive a new reference (the old one is released first).
  Interface** put() {
    *this = ComPtr();
    return &pointer_;
  }
  // Hands the reference to the caller.
  Interface* detach() { return std::exchange(pointer_, nullptr); }

  // Another interface of the same object, or an empty pointer.
  template <typename Other>
  ComPtr<Other> As(REFIID iid) const {
    ComPtr<Other> other;
    if (pointer_ != nullptr) pointer_->QueryInterface(iid, reinterpret_cast<void**>(other.put()));
    return other;
  }

 private:
  Interface* pointer_ = nullptr;
};

}  // namespace varnex::server
