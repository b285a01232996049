#pragma once

#include <optional>
#include <string>
#include <vector>

#include "drawing/convert/loss.h"
#include "drawing/convert/release.h"

namespace velmar::drawing {

/// What a drawing is to be written as; what is not said stays as it is.
struct ConversionTarget {
  std::optional<std::string_view> version;  // one of releases()
  std::optional<bool> binary;
};

/// A drawing written in another form or release, and what was lost by it.
struct Conversion {
  std::string bytes;
  std::vector<Loss> losses;

  /// Nothing is lost that is drawn or that was made by hand.
  bool is_lossless() const;
};

}  // namespace velmar::drawing
