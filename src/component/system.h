#pragma once

#include "basic/separators.h"

namespace velmar {

/// What the machine offers to the methods, apart from the host.
class System {
 public:
  virtual ~System() = default;
  /// The marks that the user's locale puts into numbers.
  virtual basic::Separators separators() const = 0;
};

/// A machine without a locale: numbers have a point.
class PlainSystem : public System {
 public:
  basic::Separators separators() const override { return {}; }
};

}  // namespace velmar
