#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "component/system.h"

namespace velmar::system {

/// The machine that the program runs on, with the settings, folders and files of the user who
/// started it.
/// `on_listed`, where it is given, is told of the files that a method has listed.
std::shared_ptr<System> user_system(
    std::function<void(const std::vector<std::string>&)> on_listed = {});

}  // namespace velmar::system
