#pragma once

#include <utility>

namespace velmar::host {

/// Runs `action` when the scope is left, also by a failure. The action must not fail.
template <class Action>
class AtExit {
 public:
  explicit AtExit(Action action) : action_(std::move(action)) {}
  AtExit(const AtExit&) = delete;
  AtExit& operator=(const AtExit&) = delete;
  ~AtExit() { action_(); }

 private:
  Action action_;
};

}  // namespace velmar::host
