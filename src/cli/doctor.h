#pragma once

#include <string>
#include <vector>

namespace velmar::cli {

/// One thing that a user's machine needs, and how it stands.
struct Finding {
  enum class State { well, absent, wrong };

  std::string subject;  // "class, 64-bit"
  State state;          // absent: nothing is wrong, but some uses need it
  std::string text;
};

/// Looks at this machine, and changes nothing.
std::vector<Finding> examine();

}  // namespace velmar::cli
