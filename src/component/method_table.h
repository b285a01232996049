#pragma once

#include <span>
#include <string_view>

#include "component/method.h"
#include "component/velmar16.h"

namespace velmar {

/// All published methods, in interface order.
std::span<const Method> methods();

/// Without regard to case; null for a name that is not published.
const Method* find_method(std::string_view name);

/// Calls a method as a macro does: arguments in published order become the declared types, and what
/// the method wrote into parameters by reference is put back into `arguments`, also when it fails.
/// A LeftOut stays left out; trailing arguments may be missing. An optional one left out is "", 0
/// or false; error 449 for another one left out, 450 for too many.
Value call(Velmar16& velmar, const Method& method, std::span<Value> arguments);

}  // namespace velmar
