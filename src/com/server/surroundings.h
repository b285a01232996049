#pragma once

#include <memory>

#include "component/system.h"

namespace velmar::com {

/// The machine for a new object. The first call also says how threads reach the host.
std::shared_ptr<System> surroundings();

}  // namespace velmar::com
