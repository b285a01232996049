#pragma once

#include <ole2.h>

#include <cstddef>

namespace velmar::com {

/// The items of an array of one dimension, locked as long as this lives. Error 13 where it cannot
/// be locked.
class ArrayAccess {
 public:
  explicit ArrayAccess(SAFEARRAY* array);
  ArrayAccess(const ArrayAccess&) = delete;
  ArrayAccess& operator=(const ArrayAccess&) = delete;
  ~ArrayAccess() { SafeArrayUnaccessData(array_); }

  std::size_t size() const { return size_; }
  void* item(std::size_t i) const {
    return static_cast<char*>(data_) + i * SafeArrayGetElemsize(array_);
  }

 private:
  SAFEARRAY* array_;
  void* data_ = nullptr;
  std::size_t size_ = 0;
};

/// Owns an array.
class SafeArray {
 public:
  /// Of `size` empty items, counted from 0.
  SafeArray(VARTYPE item_type, std::size_t size);
  SafeArray(const SafeArray&) = delete;
  SafeArray& operator=(const SafeArray&) = delete;
  ~SafeArray();

  SAFEARRAY* get() const { return array_; }
  SAFEARRAY* release();

 private:
  SAFEARRAY* array_;
};

}  // namespace velmar::com
