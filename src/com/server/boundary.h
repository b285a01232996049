#pragma once

#include <windows.h>

#include <new>
#include <utility>

#include "com/automation/failure_crossing.h"

namespace velmar::com {

/// What COM calls is one call of this: no exception leaves it. A failure becomes the thread's error
/// information.
template <class Work>
HRESULT guarded(Work&& work) noexcept {
  try {
    return std::forward<Work>(work)();
  } catch (const std::bad_alloc&) {
    return E_OUTOFMEMORY;
  } catch (const basic::Failure& failure) {
    return report(failure);
  } catch (...) {
    return E_UNEXPECTED;
  }
}

}  // namespace velmar::com
