#pragma once

#include <optional>

#include "basic/failure.h"

namespace velmar {

/// The failure of an action, nothing if it succeeds.
template <class Action>
std::optional<basic::Failure> failure_of(Action&& action) {
  try {
    action();
  } catch (const basic::Failure& failure) {
    return failure;
  }
  return std::nullopt;
}

/// Its number, 0 if it succeeds.
template <class Action>
std::int32_t failure_number(Action&& action) {
  const auto failure = failure_of(action);
  return failure ? failure->number : 0;
}

}  // namespace velmar
