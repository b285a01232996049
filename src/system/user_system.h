#pragma once

#include <memory>

#include "component/system.h"

namespace velmar::system {

/// The machine that the program runs on, with the settings, folders and files of the user who
/// started it.
std::shared_ptr<System> user_system();

}  // namespace velmar::system
