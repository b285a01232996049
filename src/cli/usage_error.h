#pragma once

#include <stdexcept>

namespace velmar::cli {

/// The command line asks for something that cannot be done; what() is the message for the user.
class UsageError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

}  // namespace velmar::cli
