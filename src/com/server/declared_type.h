#pragma once

#include "basic/conversion.h"
#include "component/method.h"

namespace velmar::com {

/// The argument as the type that the parameter is declared with. Fails as basic::convert does.
basic::Value as_declared(const basic::Value& argument, ValueType type,
                         basic::Separators separators);

}  // namespace velmar::com
