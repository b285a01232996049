#pragma once

#include <utility>

namespace velmar::com {

/// Holds one reference to a COM object.
template <class T>
class ComPtr {
 public:
  ComPtr() = default;
  ComPtr(std::nullptr_t) {}  // NOLINT(google-explicit-constructor)
  ComPtr(const ComPtr& other) : ComPtr(sharing(other.object_)) {}
  ComPtr(ComPtr&& other) noexcept : object_(std::exchange(other.object_, nullptr)) {}
  ComPtr& operator=(ComPtr other) noexcept {
    std::swap(object_, other.object_);
    return *this;
  }
  ~ComPtr() {
    if (object_) object_->Release();
  }

  /// Takes over a reference that the caller owns.
  static ComPtr taking(T* object) {
    ComPtr pointer;
    pointer.object_ = object;
    return pointer;
  }
  /// Adds a reference of its own.
  static ComPtr sharing(T* object) {
    if (object) object->AddRef();
    return taking(object);
  }

  T* get() const { return object_; }
  T* operator->() const { return object_; }
  explicit operator bool() const { return object_ != nullptr; }

  /// For a call that hands out a reference; what was held is released first.
  T** put() {
    *this = nullptr;
    return &object_;
  }
  /// The reference is the caller's from now on.
  T* release() { return std::exchange(object_, nullptr); }

  /// Another interface of the object; null where it has none.
  template <class Other>
  ComPtr<Other> as() const {
    void* found = nullptr;
    if (object_ && object_->QueryInterface(__uuidof(Other), &found) < 0) found = nullptr;
    return ComPtr<Other>::taking(static_cast<Other*>(found));
  }

 private:
  T* object_ = nullptr;
};

}  // namespace velmar::com
