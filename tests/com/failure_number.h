#pragma once

#include <cstdint>
#include <string>

#include "basic/failure.h"

namespace velmar::com {

/// The number of the failure, 0 where there is none.
template <class Action>
std::int32_t failure_number(Action action) {
  try {
    action();
    return 0;
  } catch (const basic::Failure& failure) {
    return failure.number;
  }
}

/// Its description, empty where there is none.
template <class Action>
std::string failure_text(Action action) {
  try {
    action();
    return {};
  } catch (const basic::Failure& failure) {
    return failure.description;
  }
}

}  // namespace velmar::com
