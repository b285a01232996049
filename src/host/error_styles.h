#pragma once

#include <concepts>
#include <optional>
#include <type_traits>
#include <utility>

#include "basic/failure.h"

namespace velmar::host {

/// Does `action` and swallows a failure: gives its result, or nothing where it failed.
/// For an action without a result: whether it succeeded. Anything but a Failure passes through.
template <class Action>
auto attempt(Action&& action) {
  if constexpr (std::is_void_v<std::invoke_result_t<Action>>) {
    try {
      std::forward<Action>(action)();
      return true;
    } catch (const basic::Failure&) {
      return false;
    }
  } else {
    using Result = std::optional<std::remove_cvref_t<std::invoke_result_t<Action>>>;
    try {
      return Result(std::forward<Action>(action)());
    } catch (const basic::Failure&) {
      return Result();
    }
  }
}

/// Does steps one by one and skips those that fail, remembering the last failure until it is
/// cleared.
class ResumeNext {
 public:
  template <std::invocable Step>
  void operator()(Step&& step) {
    try {
      std::forward<Step>(step)();
    } catch (const basic::Failure& failure) {
      failure_ = failure;
    }
  }

  /// Whether a step has failed since the last clear(); successful steps do not change that.
  bool pending() const { return failure_.has_value(); }
  const std::optional<basic::Failure>& failure() const { return failure_; }
  void clear() { failure_.reset(); }

 private:
  std::optional<basic::Failure> failure_;
};

/// The same spelling without a trap, for a command that shares its steps with a resume-next one.
struct NoTrap {
  template <std::invocable Step>
  void operator()(Step&& step) const {
    std::forward<Step>(step)();
  }
  static constexpr bool pending() { return false; }
};

}  // namespace velmar::host
