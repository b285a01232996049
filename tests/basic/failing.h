#pragma once

#include "basic/failure.h"

namespace velmar::basic {

/// The number of the failure that `action` ends with; 0 when it does not fail.
template <class Action>
int failure_of(Action action) {
  try {
    action();
    return 0;
  } catch (const Failure& failure) {
    return failure.number;
  }
}

}  // namespace velmar::basic
