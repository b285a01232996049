#include "com/automation/safe_array.h"

#include <new>
#include <utility>

#include "basic/failure.h"

namespace velmar::com {

ArrayAccess::ArrayAccess(SAFEARRAY* array) : array_(array) {
  LONG first = 0, last = -1;
  if (FAILED(SafeArrayGetLBound(array, 1, &first)) || FAILED(SafeArrayGetUBound(array, 1, &last)) ||
      FAILED(SafeArrayAccessData(array, &data_))) {
    throw basic::Failure(basic::type_mismatch);
  }
  if (last >= first) size_ = static_cast<std::size_t>(last - first) + 1;
}

SafeArray::SafeArray(VARTYPE item_type, std::size_t size)
    : array_(SafeArrayCreateVector(item_type, 0, static_cast<ULONG>(size))) {
  if (!array_) throw std::bad_alloc();
}

SafeArray::~SafeArray() {
  if (array_) SafeArrayDestroy(array_);
}

SAFEARRAY* SafeArray::release() { return std::exchange(array_, nullptr); }

}  // namespace velmar::com
