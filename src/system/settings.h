#pragma once

#include <string>
#include <string_view>

#include "component/system.h"

namespace velmar::system {

/// Empty where none was written.
std::string read_setting(const SettingName& name);
/// Error 75 where it cannot be kept.
void write_setting(const SettingName& name, std::string_view value);

}  // namespace velmar::system
