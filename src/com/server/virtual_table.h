#pragma once

#include "com/server/velmar_object.h"

namespace velmar::com {

/// The functions of the interface _Velmar16: those of IDispatch, then one for each row of the
/// method table, in its order, with parameters as the type library declares them. A pointer to an
/// optional parameter may be null, which leaves it out. What a method writes goes into the caller's
/// variables, also when it fails; failures are left as the thread's error information.
const Slot* virtual_table();

}  // namespace velmar::com
