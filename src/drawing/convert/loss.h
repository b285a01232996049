#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "drawing/error.h"

namespace velmar::drawing {

/// What another form or release cannot hold as it is.
struct Loss {
  std::string what;              // "ELLIPSE", "true colours"
  std::string outcome;           // "becomes a polyline", "dropped"
  bool harmless = false;         // nothing is lost that is drawn or that was made by hand
  std::size_t count = 0;         //
  std::vector<Handle> examples;  // at most 3
};

/// Counts losses of a sort together, in the order in which they are met.
class LossList {
 public:
  void add(std::string_view what, std::string_view outcome, Handle handle) {
    count(what, outcome, handle, false);
  }
  void note(std::string_view what, std::string_view outcome, Handle handle) {
    count(what, outcome, handle, true);
  }
  std::vector<Loss> take() { return std::move(list_); }

 private:
  void count(std::string_view what, std::string_view outcome, Handle handle, bool harmless);

  std::vector<Loss> list_;
};

}  // namespace velmar::drawing
