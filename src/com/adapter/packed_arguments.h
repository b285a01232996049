#pragma once

#include <span>
#include <vector>

#include "com/automation/variant.h"
#include "host/member.h"

namespace velmar::com {

/// The arguments of one call as automation wants them: the last one first, those left out at the
/// end dropped, out-arguments as references to places in here.
class PackedArguments {
 public:
  PackedArguments(host::Member method, std::span<const basic::Value> arguments,
                  const ObjectBorder& border, bool out_as_variants);
  PackedArguments(const PackedArguments&) = delete;
  PackedArguments& operator=(const PackedArguments&) = delete;

  std::span<VARIANT> reversed() { return reversed_; }
  /// Whether any argument is a reference to something else than a variant.
  bool has_typed_out() const { return has_typed_out_; }
  /// Puts what was written into the out-arguments back into the values that they came from.
  void write_back(std::span<basic::Value> arguments) const;

 private:
  std::vector<Variant> places_;    // what is owned, in the arguments' order
  std::vector<VARIANT> reversed_;  // owns nothing
  const ObjectBorder& border_;
  bool has_typed_out_ = false;
};

}  // namespace velmar::com
