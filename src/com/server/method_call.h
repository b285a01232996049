#pragma once

#include <cstddef>
#include <optional>
#include <span>

#include "basic/failure.h"
#include "com/server/velmar_object.h"
#include "component/method.h"

namespace velmar::com {

struct Outcome {
  basic::Value result;
  std::optional<basic::Failure> failure;
};

/// Calls a method as velmar::call does; `arguments` hold what it wrote into them, also after a
/// failure. Whatever it throws is in the outcome. The object lives until the call is over.
Outcome call_method(VelmarObject& object, const Method& method, std::span<basic::Value> arguments);

/// The row of a dispatch identifier, or null.
const Method* method_of(DISPID id);

}  // namespace velmar::com
